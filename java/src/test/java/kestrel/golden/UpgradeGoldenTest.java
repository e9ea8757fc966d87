package kestrel.golden;

import static org.junit.jupiter.api.Assertions.assertDoesNotThrow;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.IOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import kestrel.converter.Converter;
import kestrel.support.OldCharts;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/** Old charts, what they become, and what of them is lost. KESTREL_GOLDEN_REWRITE=1 writes the expected texts anew. */
class UpgradeGoldenTest {
  static List<String> names() {
    return OldCharts.names();
  }

  @Test
  void thereAreTenChartsAndMore() {
    assertTrue(names().size() >= 10);
  }

  @ParameterizedTest
  @MethodSource("names")
  void theOldChartIsValid(String name) {
    assertDoesNotThrow(() -> Schemas.validate("lumoml14.xsd", OldCharts.old(name)));
  }

  @ParameterizedTest
  @MethodSource("names")
  void theUpgradedChartIsValid(String name) {
    assertDoesNotThrow(() -> Schemas.validate("lumoml.xsd", Converter.upgrade(OldCharts.old(name))));
  }

  @ParameterizedTest
  @MethodSource("names")
  void theOldChartBecomesTheNewOne(String name) throws Exception {
    byte[][] upgraded = Converter.upgradeWithReport(OldCharts.old(name));
    compare(OldCharts.folder().resolve(name + ".xml"), indented(OldCharts.text(upgraded[0])));
    compare(OldCharts.folder().resolve(name + ".report.txt"), OldCharts.text(upgraded[1]));
  }

  private static void compare(Path file, String actual) throws IOException {
    if ("1".equals(System.getenv("KESTREL_GOLDEN_REWRITE"))) Files.writeString(file, actual);
    assertEquals(Files.readString(file), actual, file.getFileName().toString());
  }

  /** An element a line, for the reader's sake; texts stay as they are. */
  private static String indented(String markup) {
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
