package kestrel.converter;

import static kestrel.support.OldCharts.bytes;
import static kestrel.support.OldCharts.refusal;
import static kestrel.support.OldCharts.text;
import static org.junit.jupiter.api.Assertions.assertDoesNotThrow;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.charset.StandardCharsets;
import java.util.Arrays;
import java.util.List;
import kestrel.support.OldCharts;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;
import org.junit.jupiter.params.provider.ValueSource;
import org.xml.sax.SAXException;

/** Broken, deep and large texts: each is converted or refused, and nothing else happens. */
class ManyTextsTest {
  static List<String> names() {
    return OldCharts.names();
  }

  /** A refusal is fine, and so is a chart, if it is one. */
  private static void convert(byte[] chart) {
    byte[] upgraded;
    try {
      upgraded = Converter.upgrade(chart);
    } catch (ConversionException refused) {
      assertTrue(refused.getMessage().matches("(?s)(the chart |line \\d+, column \\d+: ).+"), refused.getMessage());
      return;
    }
    try {
      Schemas.validate("lumoml.xsd", upgraded);
    } catch (SAXException invalid) {
      throw new AssertionError(invalid.getMessage() + " in " + text(upgraded) + " of " + text(chart), invalid);
    }
  }

  @ParameterizedTest
  @MethodSource("names")
  void everyByteMayBeFlipped(String name) {
    flipEachByte(OldCharts.old(name), 0x01);
  }

  @ParameterizedTest
  @ValueSource(ints = {0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80, 0xFF})
  void everyBitMayBeFlipped(int mask) {
    flipEachByte(OldCharts.old("points_in_space"), mask);
  }

  private static void flipEachByte(byte[] chart, int mask) {
    for (int at = 0; at < chart.length; ++at) {
      chart[at] ^= (byte) mask;
      convert(chart);
      chart[at] ^= (byte) mask;
    }
  }

  @ParameterizedTest
  @ValueSource(strings = {"points_in_space", "stacked_bars_with_their_data", "what_gets_lost"})
  void everyByteMayBeMissing(String name) {
    byte[] chart = OldCharts.old(name);
    for (int at = 0; at < chart.length; ++at) {
      byte[] without = Arrays.copyOf(chart, chart.length - 1);
      System.arraycopy(chart, at + 1, without, at, chart.length - at - 1);
      convert(without);
    }
  }

  @ParameterizedTest
  @ValueSource(strings = {"points_in_space", "stacked_bars_with_their_data", "what_gets_lost"})
  void theTextMayEndAnywhere(String name) {
    byte[] chart = OldCharts.old(name);
    for (int length = 0; length < chart.length; ++length) convert(Arrays.copyOf(chart, length));
  }

  @Test
  void everyByteOfUtf16MayBeFlipped() {
    byte[] chart = text(OldCharts.old("points_in_space")).getBytes(StandardCharsets.UTF_16);
    flipEachByte(chart, 0x40);
  }

  @Test
  void aHundredThousandLevelsAreRefused() {
    assertEquals("line 1, column 3008: elements are nested more than 1000 levels deep",
        refusal(bytes("<graph>"
            + "<a>".repeat(100_000) + "</a>".repeat(100_000) + "</graph>")));
  }

  @Test
  void aThousandLevelsAreNot() {
    assertDoesNotThrow(()
                           -> Converter.upgrade(bytes("<graph>"
                               + "<a>".repeat(999) + "</a>".repeat(999) + "</graph>")));
  }

  @Test
  void aChartOfTwentyMegabytesOfRowsIsConverted() throws ConversionException {
    String row = "1234567|2345678|\n";
    int rows = 20_000_000 / row.length() + 1;
    byte[] chart = filled("<graph><source name='s' kind='embedded' columns='a|b|c'>", row, rows, "</source></graph>");
    byte[] upgraded = Converter.upgrade(chart);
    assertTrue(upgraded.length > rows * (row.length() - 1));
  }

  @Test
  void aChartOfTenMegabytesOfElementsIsConverted() throws ConversionException {
    String heading = "<heading kind='note' text='a note of the page with some words' left='1' top='2' color='1,2,3'/>";
    byte[] chart = filled("<graph>", heading, 10_000_000 / heading.length(), "</graph>");
    assertTrue(Converter.upgrade(chart).length > chart.length);
  }

  @Test
  void fiftyMegabytesOfNothingKnownHaveAReportOfBoundedLength() throws ConversionException {
    byte[][] upgraded = Converter.upgradeWithReport(filled("<graph>", "<what/>", 50_000_000 / 7, "</graph>"));
    assertTrue(text(upgraded[1]).endsWith("\nand 7141857 further things\n"));
    assertEquals(1001, text(upgraded[1]).lines().count());
  }

  @Test
  void oneLongAttributeIsConverted() throws ConversionException {
    byte[] chart = filled("<graph><heading kind='title' text='", "0123456789", 3_000_000, "'/></graph>");
    assertTrue(Converter.upgrade(chart).length > 30_000_000);
  }

  @Test
  void aTextBeyondTheLimitIsRefusedUnread() {
    assertEquals("the chart has 200000015 bytes; no more than 134217728 are read",
        refusal(filled("<graph>", "<what /><what />", 12_500_000, "</graph>")));
  }

  @Test
  void aChartOfMoreElementsThanTheMemoryHoldsIsRefused() {
    String message = refusal(filled("<graph>", "<view a='' b='' c='' d='' e=''/>", 4_000_000, "</graph>"));
    assertTrue(message.matches("line 1, column \\d+: the chart has more elements than the memory of the Java VM holds, "
                   + "\\d+ MB"),
        message);
  }

  private static byte[] filled(String beginning, String repeated, int times, String end) {
    byte[] unit = bytes(repeated);
    byte[] chart = new byte[beginning.length() + unit.length * times + end.length()];
    System.arraycopy(bytes(beginning), 0, chart, 0, beginning.length());
    for (int at = 0; at < times; ++at) {
      System.arraycopy(unit, 0, chart, beginning.length() + at * unit.length, unit.length);
    }
    System.arraycopy(bytes(end), 0, chart, chart.length - end.length(), end.length());
    return chart;
  }
}
