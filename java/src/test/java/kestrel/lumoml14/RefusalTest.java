package kestrel.lumoml14;

import static org.junit.jupiter.api.Assertions.assertEquals;

import kestrel.support.OldCharts;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/** What is malformed in an old chart is refused with its place, the value, and what it has to be. */
class RefusalTest {
  private static final String DATA = "<source name='s'/><variables names='a|b|t|d' kinds='number|number|string|date'/>";

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value = {"<layer kind='bar' x='a' size='big'/> ! attribute \"size\" of \"layer\" is \"big\"; it has to be a number of points such as 12",
          "<layer kind='bar' x='a' width='101'/> ! attribute \"width\" of \"layer\" is \"101\"; it has to be a percentage from 0 to 100",
          "<layer kind='bar' x='a' color='blu'/> ! attribute \"color\" of \"layer\" is \"blu\"; it has to be a colour such as 0,114,178 or black",
          "<layer kind='bar' x='a' dash='wavy'/> ! attribute \"dash\" of \"layer\" is \"wavy\"; it has to be one of solid, dotted, dashed, longdashed, dashdotted",
          "<layer kind='pie' x='a'/> ! attribute \"kind\" of \"layer\" is \"pie\"; it has to be one of point, dot, line, path, area, bar, histogram, errorbar, box",
          "<layer x='a'/> ! \"layer\" needs the attribute \"kind\"",
          "<layer kind='bar'/> ! \"layer\" needs one of the attributes \"x\" and \"y\"",
          "<layer kind='bar' x='q'/> ! attribute \"x\" of \"layer\" is \"q\"; the chart has no such variable, but a, b, t, d",
          "<layer kind='bar' x='a' arrange='cluster' colorby='b'/> ! attribute \"arrange\" of \"layer\" is \"cluster\"; it needs groups, such as a string variable in \"colorby\"",
          "<layer kind='bar' x='a' colorby='t' colors='red|5'/> ! attribute \"colors\" of \"layer\" is \"5\"; each item has to be a colour such as 0,114,178 or black",
          "<layer kind='bar' x='a' colorby='t' colormap='1=red|2=r'/> ! attribute \"colormap\" of \"layer\" is \"r\"; each look has to be a colour such as 0,114,178 or black",
          "<layer kind='bar' x='a' sizeby='b' sizes='1|2|3'/> ! attribute \"sizes\" of \"layer\" is \"1|2|3\"; it has to be the least and the greatest",
          "<layer kind='bar' x='a' errorbars='true'/> ! attribute \"errorbars\" of \"layer\" is \"true\"; it has to be one of yes, no",
          "<layer kind='histogram' x='a' bins='1.5'/> ! attribute \"bins\" of \"layer\" is \"1.5\"; it has to be a whole number such as 5",
          "<axis of='u'/> ! attribute \"of\" of \"axis\" is \"u\"; it has to be one of x, y, z",
          "<axis of='x' step='ten'/> ! attribute \"step\" of \"axis\" is \"ten\"; it has to be a number such as 2.5",
          "<axis of='x' margins='1|2|3'/> ! attribute \"margins\" of \"axis\" is \"1|2|3\"; it has to be one margin or two",
          "<axis of='x' decimals='1' leastdecimals='2'/> ! attribute \"leastdecimals\" of \"axis\" is \"2\"; it has to be at most \"decimals\", 1",
          "<layer kind='bar' x='t' y='a'/><axis of='x' min='0'/> ! \"min\" and \"max\" are for axes of numbers and dates, and this one has categories",
          "<layer kind='line' x='d' y='a'/><axis of='x' min='0'/> ! attribute \"min\" of \"axis\" is \"0\"; it has to be a date such as 2012-01-31",
          "<relabels variable='t' values='1'/> ! attribute \"values\" of \"relabels\" is \"1\"; it has to be a list of different values such as 1=male|2=female",
          "<relabels values='1=a'/> ! \"relabels\" needs the attribute \"variable\"",
          "<formula name='f'/> ! \"formula\" needs one of the attributes \"function\" and \"expression\"",
          "<formula name='a' function='log(b)'/> ! attribute \"name\" of \"formula\" is \"a\"; another variable has this name",
          "<heading kind='title'/> ! \"heading\" needs the attribute \"text\"",
          "<panels method='nest'/> ! \"panels\" needs one of the attributes \"columns\" and \"rows\"",
          "<reference axis='x'/> ! \"reference\" needs the attribute \"at\"",
          "<curve name='c'/> ! \"curve\" needs the attribute \"function\"",
          "<view phi='a'/> ! attribute \"phi\" of \"view\" is \"a\"; it has to be a number such as 2.5",
          "<legend explains='colour'/> ! attribute \"explains\" of \"legend\" is \"colour\"; each item has to be one of color, pattern, shape, dash, size, transparency",
          "<categories variable='t' sort='up'/> ! attribute \"sort\" of \"categories\" is \"up\"; it has to be one of ascending, descending",
          "<source name='s'/> ! attribute \"name\" of \"source\" is \"s\"; another source has this name",
          "<variables source='r' names='x'/> ! attribute \"source\" of \"variables\" is \"r\"; the chart has no such source",
          "<variables names='x|y' labels='X'/> ! attribute \"labels\" of \"variables\" is \"X\"; it has 1 items, and \"names\" has 2",
          "<variables names='x||y'/> ! attribute \"names\" of \"variables\" is \"x||y\"; a name must not be empty",
          "<variables names='x' kinds='text'/> ! attribute \"kinds\" of \"variables\" is \"text\"; each item has to be one of number, string, date, weight, case"})
  void
  namesPlaceValueAndRemedy(String elements, String message) {
    String refused = OldCharts.refusal(DATA + "\n\n " + elements);
    assertEquals(message, refused.replaceFirst("^line 4, column \\d+: ", ""));
  }

  @Test
  void theColumnIsThatOfTheElement() {
    assertEquals(
        "line 2, column 3: \"curve\" needs the attribute \"function\"", OldCharts.refusal("  <curve\n name='c'\n/>"));
  }

  @Test
  void theColumnIsThatOfTheElementBehindAnother() {
    assertEquals("line 2, column 19: \"curve\" needs the attribute \"function\"",
        OldCharts.refusal("<source name='s'/><curve/>"));
  }

  @Test
  void rowsAreCountedOnTheirLines() {
    String rows = "<variables names='n|t|d' kinds='number|string|date'/>"
        + "<source name='s' kind='embedded' columns='n|t|d'>\n1|a|2012-01-31\n\n2|b|2012-01-32\n</source>";
    assertEquals(
        "line 5, column 1: \"2012-01-32\" is no value for the column \"d\", which holds dates such as 2012-01-31",
        OldCharts.refusal(rows));
  }

  @Test
  void aRowHasAValueForEachColumn() {
    assertEquals("line 3, column 1: a row has 1 values, and \"columns\" names 2",
        OldCharts.refusal("<source name='s' kind='embedded' columns='a|b'>\n1\n</source>"));
  }

  @Test
  void rowsNeedColumns() {
    assertEquals("line 2, column 1: \"source\" needs the attribute \"columns\"",
        OldCharts.refusal("<source name='s' kind='embedded'>1</source>"));
  }

  @Test
  void variablesNeedASourceWhereThereAreTwo() {
    assertEquals("line 2, column 37: \"variables\" has to say in \"source\" which source they come from",
        OldCharts.refusal("<source name='a'/><source name='b'/><variables names='x'/>"));
  }

  @Test
  void aChartWithoutVariablesSaysSo() {
    assertEquals("line 2, column 1: attribute \"x\" of \"layer\" is \"a\"; the chart has no variables",
        OldCharts.refusal("<layer kind='bar' x='a'/>"));
  }

  @Test
  void anotherRootIsRefused() {
    assertEquals(
        "line 1, column 17: the root element is \"visualization\"; a chart in LumoML 1.4 begins with \"graph\"",
        OldCharts.refusal(OldCharts.bytes("<visualization/>")));
  }

  @Test
  void anotherVersionIsRefused() {
    assertEquals("line 1, column 23: attribute \"version\" of \"graph\" is \"1.5\"; only LumoML 1.4 can be upgraded",
        OldCharts.refusal(OldCharts.bytes("<graph version='1.5'/>")));
  }

  @Test
  void aLongValueIsCut() {
    assertEquals("line 2, column 1: attribute \"phi\" of \"view\" is \""
            + "a".repeat(60) + "...\"; it has to be a number such as 2.5",
        OldCharts.refusal("<view phi='"
            + "a".repeat(5000) + "'/>"));
  }

  @Test
  void aSecondAxisOfADimensionHasToSaySo() {
    assertEquals("line 2, column 15: attribute \"of\" of \"axis\" is \"x\"; another axis is of it; see \"second\"",
        OldCharts.refusal("<axis of='x'/><axis of='x'/>"));
  }
}
