package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import kestrel.support.Descriptions;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/** What sources and variables become, and what strings and names may hold. */
class DataTest {
  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      variable v numeric => <sourceVariable categorical="false" creator="external_datasource" id="sourceVariable5" label="v" source="source0" sourceName="v"/>
      variable v categorical => <sourceVariable categorical="true" creator="external_datasource" id="sourceVariable5" label="v" source="source0" sourceName="v"/>
      variable v numeric { column "C 1" label "L" weight } => label="L" source="source0" sourceName="C 1" weight="true"/>
      variable v date => id="sourceVariable5" inputDateFormatPattern="yyyy-MM-dd" label="v" source="source0" sourceName="v"><format pattern="yyyy-MM-dd"/></sourceVariable>
      variable v date { input "dd/MM/yy" } => inputDateFormatPattern="dd/MM/yy" label="v" source="source0" sourceName="v"><format pattern="dd/MM/yy"/>
      variable v date { input "dd/MM/yy" format { pattern "MMM" } } => inputDateFormatPattern="dd/MM/yy" label="v" source="source0" sourceName="v"><format pattern="MMM"/>
      variable v case => <sourceVariable categorical="false" creator="external_system" id="sourceVariable5" label="v" source="source0" sourceName="$CASENUM"/>
      variable v categorical { categories "x", "y" } => <format><relabel from="1" to="x"/><relabel from="2" to="y"/></format>
      variable v categorical { show 0 as "no" show 1 as "yes" } => <format><relabel from="0" to="no"/><relabel from="1" to="yes"/></format>
      variable v numeric { show -9 as "unknown" format { decimals 1 } } => <format maximumFractionDigits="1" minimumFractionDigits="1"><relabel from="-9" to="unknown"/></format>
      variable v categorical { sort descending } => <categoricalDomain id="categoricalDomain0"><variableReference ref="sourceVariable5"/><simpleSort descending="true" method="2"/></categoricalDomain>
      variable v categorical { sort ascending } => <sourceVariable categorical="true" creator="external_datasource" domain="categoricalDomain0"
      variable v categorical { order "y", "x" categories "x", "y" } => <simpleSort><categoryOrder>2;1</categoryOrder></simpleSort>
      variable v categorical { categories "x", "y" exclude "y", 7 } => <categories remove="true">2;7</categories>
      variable v categorical { exclude "no" show 0 as "no" } => <categories remove="true">0</categories>
      variable v = log(a) => <derivedVariable categorical="false" id="derivedVariable0" label="v" value="log(sourceVariable0)"/>
      variable v = a / b - 1.50 { label "L" format { suffix "%" } } => <derivedVariable categorical="false" id="derivedVariable0" label="L" value="sourceVariable0/sourceVariable1 - 1.5"><format suffix="%"/></derivedVariable>
      variable v = a variable w = v * -2 => <derivedVariable categorical="false" id="derivedVariable1" label="w" value="derivedVariable0*-2"/>
      variable `a b` = a reference x 1 { name "`" } => label="a b"
      source s => <userSource id="s"/>
      """)
  void variables(String statements, String markup) throws Exception {
    String actual = Descriptions.markupWithPoints(statements);
    assertTrue(actual.contains(markup), actual);
  }

  @Test
  void aVariableIsOfTheFirstSourceUnlessItSaysOtherwise() throws Exception {
    String markup = Descriptions.translated(
        "chart { source s source t variable a numeric variable b numeric { from t } point { x a y b } }");
    assertTrue(markup.contains("<userSource id=\"s\"/><userSource id=\"t\"/>"), markup);
    assertTrue(markup.contains("label=\"a\" source=\"s\""), markup);
    assertTrue(markup.contains("label=\"b\" source=\"t\""), markup);
  }

  @Test
  void elementsMayStandBeforeTheVariablesThatTheyShow() throws Exception {
    assertTrue(Descriptions.translated("chart { point { x a y b } variable b numeric variable a numeric }")
                   .contains("<x variable=\"sourceVariable1\"/><y variable=\"sourceVariable0\"/>"));
  }

  @Test
  void everyWordOfTheLanguageMayBeAName() throws Exception {
    for (String word : Grammar.words()) {
      String markup = Descriptions.translated("chart { source " + word + " variable " + word + " numeric { from " + word
          + " } variable v = " + word + " + 1 point { x " + word + " y v size " + word + " } legend " + word
          + " { } }");
      assertTrue(markup.contains("sourceName=\"" + word + "\""), markup);
    }
  }

  @Test
  void aStringCarriesEveryCharacterOfAChart() throws Exception {
    assertTrue(title("\uD83D\uDC27 \u00E9 \u4E2D \uE000").contains("<text>\uD83D\uDC27 \u00E9 \u4E2D \uE000</text>"));
    assertTrue(title("\\u{1F427}\\u{e9}").contains("<text>\uD83D\uDC27\u00E9</text>"));
    assertTrue(title("a\\nb\\tc").contains("<text>a\nb\tc</text>"));
    assertTrue(title("<&>'#\\\"\\\\").contains("<text>&lt;&amp;&gt;'#\"\\</text>"));
  }

  @Test
  void lineEndsInAttributesComeBack() throws Exception {
    assertTrue(Descriptions.translated("chart \"a\\nb\" { variable a numeric point { x a y a } }")
                   .contains("description=\"a&#xA;b\""));
  }

  @Test
  void linesMayEndInEveryUsualWay() throws Exception {
    String lines = "chart {\n# c\nvariable a numeric\npoint { x a y a }\n}\n";
    String markup = Descriptions.translated(lines);
    assertEquals(markup, Descriptions.translated(lines.replace("\n", "\r\n")));
    assertEquals(markup, Descriptions.translated(lines.replace("\n", "\r")));
    assertEquals(markup, Descriptions.translated("\uFEFF" + lines));
  }

  @Test
  void aColumnOfTheRowNumberBelongsToNoCategories() throws Exception {
    assertFalse(Descriptions.markupWithPoints("variable v case").contains("categoricalDomain"));
  }

  private static String title(String string) throws Exception {
    return Descriptions.markupWithPoints("title \"" + string + "\"");
  }
}
