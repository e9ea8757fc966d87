package kestrel.support;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;

/** Expected texts in files. KESTREL_GOLDEN_REWRITE=1 writes them anew. */
public final class Goldens {
  private Goldens() {}

  public static void compare(Path file, String actual) throws IOException {
    if ("1".equals(System.getenv("KESTREL_GOLDEN_REWRITE"))) Files.writeString(file, actual);
    assertEquals(Files.readString(file), actual, file.getFileName().toString());
  }

  /** An element a line, for the reader's sake; texts stay as they are. */
  public static String indented(String markup) {
    StringBuilder indented = new StringBuilder();
    int depth = 0;
    for (String line : markup.strip().split("(?<=>)\\n?(?=<)")) {
      if (line.startsWith("</")) --depth;
      indented.append("  ".repeat(depth)).append(line).append('\n');
      boolean opens = !line.startsWith("</") && !line.startsWith("<?");
      if (opens && !line.endsWith("/>") && !line.contains("</")) ++depth;
    }
    return indented.toString();
  }
}
