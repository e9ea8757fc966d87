package kestrel.markup;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.nio.charset.StandardCharsets;
import org.junit.jupiter.api.Test;

class MarkupWriterTest {
  private static final String BEGINNING = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<chart";
  private static final String NAMESPACE = " xmlns=\"http://xml.vexa.example/visualization\"";

  private final MarkupElement chart = new MarkupElement("chart");

  private String written() {
    return new String(MarkupWriter.write(chart), StandardCharsets.UTF_8);
  }

  @Test
  void writesAttributesInTheOrderOfTheirNames() {
    chart.set("b", "2").set("a", "1");
    assertEquals(BEGINNING + " a=\"1\" b=\"2\"" + NAMESPACE + "/>\n", written());
  }

  @Test
  void writesChildrenInTheirOrder() {
    chart.add("b");
    chart.add("a").setText("x");
    assertEquals(BEGINNING + NAMESPACE + "><b/><a>x</a></chart>\n", written());
  }

  @Test
  void anAttributeThatIsNullIsLeftOut() {
    chart.set("a", "1").set("a", null);
    assertEquals(BEGINNING + NAMESPACE + "/>\n", written());
  }

  @Test
  void anEmptyTextKeepsTheElementOpen() {
    chart.setText("");
    assertEquals(BEGINNING + NAMESPACE + "></chart>\n", written());
  }

  @Test
  void lineEndsOfAttributesComeBack() {
    chart.set("a", "\t\n\r");
    assertEquals(BEGINNING + " a=\"&#x9;&#xA;&#xD;\"" + NAMESPACE + "/>\n", written());
  }

  @Test
  void signsOfXmlAreReplaced() {
    chart.set("a", "<&>\"'").setText("<&>\"'\n]]>");
    assertEquals(
        BEGINNING + " a=\"&lt;&amp;&gt;&quot;'\"" + NAMESPACE + ">&lt;&amp;&gt;\"'\n]]&gt;</chart>\n", written());
  }

  @Test
  void whatXmlCannotHoldIsLeftOut() {
    chart.setText("a\u0000\u0001\u001F\uFFFE\uFFFF\uD800b\uDC00c\uD83D\uDE00\u007F");
    assertEquals(BEGINNING + NAMESPACE + ">abc\uD83D\uDE00\u007F</chart>\n", written());
  }
}
