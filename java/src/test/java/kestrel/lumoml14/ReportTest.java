package kestrel.lumoml14;

import static kestrel.support.OldCharts.report;
import static org.junit.jupiter.api.Assertions.assertEquals;

import kestrel.converter.ConversionException;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/** What could not be carried over, by its place and with the reason. */
class ReportTest {
  private static final String DATA = "<source name='s'/><variables names='a|t|u' kinds='number|string|string'/>";

  private static void reports(String old, String expected) throws ConversionException {
    assertEquals(expected, report(DATA + "\n" + old).replace("line 2, column 1: ", "").strip());
  }

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value = {"<what is='this'/> ! element \"what\" is not carried over: it is not part of LumoML 1.4",
          "<view what='1'/> ! attribute \"what\" of \"view\" is not carried over: it is not part of LumoML 1.4",
          "<picture file='x'/> ! element \"picture\" is not carried over: charts hold no pictures from outside their text",
          "<script code='x'/> ! element \"script\" is not carried over: charts run no programs",
          "<layer kind='bar' x='t' tooltip='x'/> ! attribute \"tooltip\" of \"layer\" is not carried over: the client makes its own",
          "<layer kind='bar' x='t' statistic='deviation'/> ! attribute \"statistic\" of \"layer\" is not carried over: values are drawn as they are in the data",
          "<layer kind='bar' x='t' bins='4'/> ! attribute \"bins\" of \"layer\" is not carried over: it says nothing together with the other attributes",
          "<layer kind='bar' x='t' sizes='1|2'/> ! attribute \"sizes\" of \"layer\" is not carried over: it says nothing together with the other attributes",
          "<axis of='x' second='yes' scale='log'/> ! attribute \"scale\" of \"axis\" is not carried over: it says nothing together with the other attributes",
          "<?p i?> ! processing instruction is not carried over: only the chart itself is",
          "<reference axis='z' at='1'/> ! element \"reference\" is not carried over: reference lines are of x and y",
          "<legend/> ! element \"legend\" is not carried over: no layer has groups or a name that it could explain",
          "<categories variable='t' order='a;b|c'/> ! attribute \"order\" of \"categories\" is not carried over: category \"a;b\" has a semicolon"})
  void
  saysWhatIsLostAndWhy(String old, String expected) throws ConversionException {
    reports(old, expected);
  }

  @Test
  void aCommentIsLost() throws ConversionException {
    reports("<!-- c -->", "comment is not carried over: only the chart itself is");
  }

  @Test
  void theSecondVariableThatClustersIsLost() throws ConversionException {
    String layer = "<layer kind='bar' x='t' colorby='t' arrange='cluster'/>";
    assertEquals(
        "line 3, column 1: attribute \"arrange\" of \"layer\" is not carried over: another layer is clustered by "
            + "another variable\n",
        report(DATA + "\n" + layer + "\n" + layer.replace("colorby='t'", "colorby='u'")));
  }

  @Test
  void anElementWithinAnotherIsNamedOnceWithAllThatIsInIt() throws ConversionException {
    assertEquals("line 1, column 14: element \"b\" is not carried over: LumoML 1.4 has no elements within others\n",
        report("<view><b c='d'>e<f/></b></view>"));
  }

  @Test
  void textWithinAnElementIsNamed() throws ConversionException {
    assertEquals("line 1, column 14: text \"lost\" is not carried over: texts stand in attributes\n",
        report("<view>lost</view>"));
  }

  @Test
  void textBesideTheElementsIsNamed() throws ConversionException {
    assertEquals(
        "line 1, column 15: text \"lost\" is not carried over: texts stand in attributes\n", report("<view/> lost\n"));
  }

  @Test
  void whatIsCarriedOverIsNotReported() throws ConversionException {
    reports("<layer kind='bar' x='t' y='a'/>", "");
  }

  @Test
  void theReportFollowsTheChart() throws ConversionException {
    assertEquals("line 1, column 8: element \"script\" is not carried over: charts run no programs\n"
            + "line 2, column 1: element \"what\" is not carried over: it is not part of LumoML 1.4\n"
            + "line 3, column 1: element \"picture\" is not carried over: charts hold no pictures from outside their text\n",
        report("<script/>\n<what/>\n<picture/>"));
  }
}
