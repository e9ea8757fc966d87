package kestrel.stylesheet;

import static kestrel.support.OldCharts.bytes;
import static kestrel.support.OldCharts.text;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNotSame;
import static org.junit.jupiter.api.Assertions.assertSame;
import static org.junit.jupiter.api.Assertions.assertThrows;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.charset.StandardCharsets;
import javax.xml.transform.Templates;
import kestrel.converter.ConversionException;
import kestrel.converter.Converter;
import org.junit.jupiter.api.Test;

class StyleSheetsTest {
  private static final String CHART = "<v xmlns='http://xml.vexa.example/visualization'><style color='red'/></v>";

  static byte[] sheet(String content) {
    return bytes("<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform' "
        + "xmlns:c='http://xml.vexa.example/visualization' exclude-result-prefixes='c'>\n" + content
        + "</xsl:stylesheet>");
  }

  static String applied(String content, String chart) throws ConversionException {
    return text(Converter.applyStyleSheet(sheet(content), bytes(chart)));
  }

  static String refusal(byte[] sheet, String chart) {
    return assertThrows(ConversionException.class, () -> Converter.applyStyleSheet(sheet, bytes(chart))).getMessage();
  }

  private static final String COPY =
      "<xsl:template match='@*|node()'><xsl:copy><xsl:apply-templates select='@*|node()'/>"
      + "</xsl:copy></xsl:template>";

  @Test
  void reworksTheChart() throws ConversionException {
    String result =
        applied(COPY + "<xsl:template match='c:style/@color'><xsl:attribute name='color'>blue</xsl:attribute>"
                + "</xsl:template>",
            CHART);
    assertEquals("<?xml version=\"1.0\" encoding=\"UTF-8\"?><v xmlns=\"http://xml.vexa.example/visualization\">"
            + "<style color=\"blue\"/></v>",
        result);
  }

  @Test
  void aSheetThatGivesNothingGivesNothing() throws ConversionException {
    assertEquals("", applied("<xsl:template match='/'/>", CHART));
  }

  @Test
  void aSheetThatWantsNoDeclarationGetsNone() throws ConversionException {
    assertEquals(
        "<a/>", applied("<xsl:output omit-xml-declaration='yes'/><xsl:template match='/'><a/></xsl:template>", CHART));
  }

  @Test
  void aSheetOfTextGivesText() throws ConversionException {
    assertEquals("red",
        applied("<xsl:output method='text'/><xsl:template match='/'>"
                + "<xsl:value-of select='//@color'/></xsl:template>",
            CHART));
  }

  @Test
  void theResultIsUtf8WhateverTheSheetAsksFor() throws ConversionException {
    assertEquals("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\u00e4&#128512;</a>",
        applied("<xsl:output encoding='ISO-8859-1'/><xsl:template match='/'><a>\u00e4\uD83D\uDE00</a></xsl:template>",
            CHART));
  }

  @Test
  void theChartIsReadInTheEncodingThatItDeclares() throws ConversionException {
    byte[] chart = "<?xml version='1.0' encoding='ISO-8859-1'?><a>\u00e4</a>".getBytes(StandardCharsets.ISO_8859_1);
    assertEquals(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\u00e4</a>", text(Converter.applyStyleSheet(sheet(COPY), chart)));
  }

  @Test
  void aBrokenSheetIsRefusedWithItsPlace() {
    assertTrue(refusal(bytes("<a>\n<b></a>"), CHART).startsWith("line 2, column 6: the style sheet is refused: "));
  }

  @Test
  void anUnknownInstructionIsRefused() {
    assertEquals("line 3, column 1: the style sheet is refused: Unsupported XSL element 'foo'.",
        refusal(sheet("<xsl:template match='/'>\n<xsl:foo/></xsl:template>"), CHART));
  }

  @Test
  void aBrokenChartIsRefusedWithItsPlace() {
    assertTrue(
        refusal(sheet(COPY), "<a>\n\n<b></a>").startsWith("line 3, column 6: the style sheet could not be applied: "));
  }

  @Test
  void aSheetMayEndTheMatter() {
    String message =
        refusal(sheet("<xsl:template match='/'><xsl:message terminate='yes'>no</xsl:message></xsl:template>"), CHART);
    assertEquals("the style sheet could not be applied: Termination forced by an xsl:message instruction", message);
  }

  @Test
  void emptyTextsAreRefused() {
    assertEquals("the style sheet is empty", refusal(new byte[0], CHART));
    assertEquals("the chart is empty", refusal(sheet(COPY), ""));
  }

  @Test
  void aSheetIsCompiledOnce() throws ConversionException {
    Templates once = StyleSheets.sheetOf(sheet("<!-- once -->"));
    assertSame(once, StyleSheets.sheetOf(sheet("<!-- once -->")));
  }

  @Test
  void theSheetThatWasNotUsedForLongestIsForgotten() throws ConversionException {
    Templates first = StyleSheets.sheetOf(sheet("<!-- first -->"));
    Templates second = StyleSheets.sheetOf(sheet("<!-- second -->"));
    for (int each = 0; each < 15; ++each) {
      StyleSheets.sheetOf(sheet("<!-- " + each + " -->"));
      StyleSheets.sheetOf(sheet("<!-- second -->"));
    }
    assertEquals(16, StyleSheets.cached());
    assertSame(second, StyleSheets.sheetOf(sheet("<!-- second -->")));
    assertNotSame(first, StyleSheets.sheetOf(sheet("<!-- first -->")));
  }

  @Test
  void severalThreadsMayUseOneSheet() throws Exception {
    String[] results = new String[8];
    Thread[] threads = new Thread[results.length];
    for (int at = 0; at < threads.length; ++at) {
      int number = at;
      threads[at] = new Thread(() -> results[number] = unchecked("<a n='" + number + "'/>"));
      threads[at].start();
    }
    for (Thread thread : threads) thread.join();
    for (int at = 0; at < results.length; ++at) {
      assertEquals("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a n=\"" + at + "\"/>", results[at]);
    }
  }

  private static String unchecked(String chart) {
    try {
      String result = "";
      for (int each = 0; each < 50; ++each) result = applied(COPY, chart);
      return result;
    } catch (ConversionException failure) {
      return failure.getMessage();
    }
  }
}
