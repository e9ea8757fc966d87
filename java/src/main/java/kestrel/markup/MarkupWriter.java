package kestrel.markup;

import java.io.ByteArrayOutputStream;
import java.io.IOException;
import java.io.OutputStreamWriter;
import java.io.UncheckedIOException;
import java.io.Writer;
import java.nio.charset.StandardCharsets;

/**
 * Writes a chart as the library itself does: XML 1.0 in UTF-8, without indentation, attributes in the order of their
 * names. Characters that XML cannot hold are left out.
 */
public final class MarkupWriter {
  private static final String DECLARATION = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

  private final Writer out;

  private MarkupWriter(Writer out) {
    this.out = out;
  }

  /** The chart in UTF-8. The root, and with it all of the chart, is in the namespace of the markup. */
  public static byte[] write(MarkupElement root) {
    return write(root, MarkupElement.NAMESPACE);
  }

  /** The text in UTF-8. The root, and all below it that says no other, is in the namespace. */
  public static byte[] write(MarkupElement root, String namespace) {
    ByteArrayOutputStream bytes = new ByteArrayOutputStream(8192);
    try (Writer out = new OutputStreamWriter(bytes, StandardCharsets.UTF_8)) {
      out.write(DECLARATION);
      root.set("xmlns", namespace);
      new MarkupWriter(out).element(root);
      out.write('\n');
    } catch (IOException failure) {
      throw new UncheckedIOException(failure);
    }
    return bytes.toByteArray();
  }

  private void element(MarkupElement element) throws IOException {
    out.write('<');
    out.write(element.name());
    for (String attribute : element.attributeNames()) {
      out.write(' ');
      out.write(attribute);
      out.write("=\"");
      content(element.attribute(attribute), true);
      out.write('"');
    }
    if (element.children().isEmpty() && element.text() == null) {
      out.write("/>");
      return;
    }
    out.write('>');
    if (element.text() != null) content(element.text(), false);
    for (MarkupElement child : element.children()) element(child);
    out.write("</");
    out.write(element.name());
    out.write('>');
  }

  private void content(String text, boolean inAttribute) throws IOException {
    int length;
    for (int at = 0; at < text.length(); at += length) {
      int character = text.codePointAt(at);
      length = Character.charCount(character);
      String reference = referenceTo(character, inAttribute);
      if (reference != null) {
        out.write(reference);
      } else if (isInXml(character)) {
        out.write(text, at, length);
      }
    }
  }

  /** Line ends and tabs would not come back from an attribute, nor carriage returns from anywhere. */
  private static String referenceTo(int character, boolean inAttribute) {
    return switch (character) {
      case '&' -> "&amp;"; case '<' -> "&lt;"; case '>' -> "&gt;"; case '"' -> inAttribute ? "&quot;":
        null;
      case '\t' -> inAttribute ? "&#x9;":
        null;
      case '\n' -> inAttribute ? "&#xA;":
        null;
      case '\r' -> "&#xD;";
      default -> null;
    };
  }

  private static boolean isInXml(int character) {
    return character == '\t' || character == '\n' || (character >= 0x20 && character <= 0xD7FF)
        || (character >= 0xE000 && character <= 0xFFFD) || character >= 0x10000;
  }
}
