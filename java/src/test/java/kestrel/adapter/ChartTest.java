package kestrel.adapter;

import static kestrel.support.TemplateRequests.chart;
import static kestrel.support.TemplateRequests.refusal;
import static kestrel.support.TemplateRequests.request;
import static kestrel.support.TemplateRequests.specification;
import static kestrel.support.TemplateRequests.template;
import static kestrel.support.TemplateRequests.text;
import static kestrel.support.TemplateRequests.variable;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTimeout;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.time.Duration;
import org.junit.jupiter.api.Test;

/** The chart that a template becomes. */
class ChartTest {
  private static final String ROOT = "<visualization xmlns=\"http://xml.vexa.example/visualization\"";
  private static final String SOURCE = "<userSource id=\"source0\"/>";

  /** What stands below the root. */
  private static String content(String template, String... mappings) {
    String chart = chart(request(template, mappings));
    if (chart.equals(ROOT + "/>")) return "";
    assertTrue(chart.startsWith(ROOT + ">"), chart);
    return chart.substring(ROOT.length() + 1, chart.lastIndexOf("</"));
  }

  private static String filled(String id, String name, String more) {
    return "<sourceVariable categorical=\"false\" creator=\"external_datasource\" id=\"" + id + "\" label=\"" + name
        + "\" source=\"source0\" sourceName=\"" + name + "\"" + more + "/>";
  }

  private static void assertHas(String part, String whole) {
    assertTrue(whole.contains(part), whole);
  }

  @Test
  void aDataSetMayHaveTheNameOfAnythingInTheTemplate() {
    String template = template("x scale; y scale",
        "<graph><line style='v_'><x variable='v'/><y variable='w'/></line></graph><sourceVariable id='v' t:slot='x'/>"
            + "<sourceVariable id='w' t:slot='y'/><style id='v_'/>");
    String made = content(template, variable("x", "a", false, "dataSetName='v'", ""), variable("y", "b", false));
    assertHas("<x variable=\"v__\"/><y variable=\"w\"/>", made);
    assertHas("id=\"v__\" label=\"a\" source=\"v\"", made);
    assertHas("<userSource id=\"v\"/>", made);
    assertEquals(made.indexOf("id=\"v\""), made.lastIndexOf("id=\"v\""), made);
  }

  @Test
  void aVariableTakesTheColumnAndItsLabel() {
    String template = template("x scale", SOURCE.replace('"', '\'') + "<sourceVariable id='v' t:slot='x'/>");
    assertEquals(SOURCE + filled("v", "mass", ""), content(template, variable("x", "mass", false)));
    assertHas("label=\"Mass (g)\"", content(template, variable("x", "mass", false, "slotLabel='Mass (g)'", "")));
  }

  @Test
  void aVariableIsTheWeightWhereTheRequestOrTheSlotSaysSo() {
    String variable = "<sourceVariable id='v' t:slot='x'/>";
    assertHas("weight=\"true\"", content(template("x weight", variable), variable("x", "n", false)));
    assertHas(
        "weight=\"true\"", content(template("x scale", variable), variable("x", "n", false, "weight='true'", "")));
    assertFalse(content(template("x scale", variable), variable("x", "n", false)).contains("weight"));
  }

  @Test
  void theFormatOfTheRequestStandsForThatOfTheTemplate() {
    String template = template("x scale", "<sourceVariable id='v' t:slot='x'><format suffix=' kg'/></sourceVariable>");
    assertHas("<format suffix=\" kg\"/>", content(template, variable("x", "n", false)));
    String given = content(template,
        variable(
            "x", "n", false, "", "<lumoml:format prefix='{x}'><lumoml:relabel from='1' to='{}'/></lumoml:format>"));
    assertHas("<format prefix=\"{x}\"><relabel from=\"1\" to=\"{}\"/></format>", given);
    assertFalse(given.contains(" kg"), given);
  }

  @Test
  void variablesOfADataSetAreReadFromASourceOfItsName() {
    String template = template("x scale; y scale",
        "<userSource id='own'/><sourceVariable id='v' t:slot='x' source='own'/><sourceVariable id='w' t:slot='y'/>");
    String both = content(template, variable("x", "a", false, "dataSetName='{one}'", ""), variable("y", "b", false));
    assertTrue(both.startsWith("<userSource id=\"own\"/><userSource id=\"{one}\"/>"), both);
    assertHas("id=\"v\" label=\"a\" source=\"{one}\"", both);
    assertHas("id=\"w\" label=\"b\" source=\"own\"", both);
    String other = content(template, variable("x", "a", false, "dataSetName='one'", ""),
        variable("y", "b", false, "dataSetName='one'", ""));
    assertTrue(other.startsWith("<userSource id=\"one\"/><sourceVariable"), other);
  }

  @Test
  void whatNamesAnEmptySlotIsLeftOut() {
    String template = template("L label",
        "<labelFrame id='f'><label><text>{L}</text></label></labelFrame>"
            + "<extension title1='f' title2='g'/><graph id='n-{L}'/>");
    assertEquals("<extension title2=\"g\"/><graph/>", content(template));
    assertEquals("<labelFrame id=\"f\"><label><text>a</text></label></labelFrame>"
            + "<extension title1=\"f\" title2=\"g\"/><graph id=\"n-a\"/>",
        content(template, text("L", "a")));
  }

  @Test
  void whatRefersToAnEmptySlotGoesWithIt() {
    String template = template("x scale; c categorical",
        "<sourceVariable id='v' t:slot='x'/><sourceVariable id='w' t:slot='c'/>"
            + "<graph id='g'><coordinates><dimension domain='d' clusterVariable='w'/></coordinates><point>"
            + "<x variable='v'/><color id='k' variable='w'/></point><faceting><cross><variableReference ref='w'/></cross>"
            + "</faceting></graph><categoricalDomain id='d'><variableReference ref='w'/></categoricalDomain>"
            + "<legend id='l'><legendTarget target='k'/></legend><extension legend1='l'/>");
    assertEquals(filled("v", "a", "") + "<graph id=\"g\"><coordinates><dimension/></coordinates><point>"
            + "<x variable=\"v\"/></point></graph><extension/>" + SOURCE,
        content(template, variable("x", "a", false)));
  }

  @Test
  void whatStillHasTheIdKeepsTheReferences() {
    String template = template("L label; M label",
        "<graph id='g' t:if='L'/><graph id='g' t:if='M'/><extension a='{L}{M}'/><legend><legendTarget target='g'/></legend>");
    assertHas("<legendTarget target=\"g\"/>", content(template, text("M", "a")));
    assertEquals("<extension/>", content(template));
  }

  @Test
  void referencesAreFollowedHoweverLongTheirChainIs() {
    StringBuilder chain = new StringBuilder("<graph id='a0' t:if='L'/>");
    for (int at = 1; at < 19_000; ++at) {
      chain.append("<legendTarget id='a").append(at).append("' target='a").append(at - 1).append("'/>");
    }
    String template = template("L label", "<extension a='{L}'/><legend>" + chain + "<label/></legend>");
    assertTimeout(Duration.ofSeconds(10), () -> assertEquals("<extension/>", content(template)));
  }

  @Test
  void aDomainStaysForTheVariablesThatAreLeft() {
    String template = template("x scale; y scale",
        "<sourceVariable id='v' t:slot='x'/><sourceVariable id='w' t:slot='y'/>"
            + "<intervalDomain id='d'><variableReference ref='w'/><variableReference ref='v'/></intervalDomain>");
    assertHas("<intervalDomain id=\"d\"><variableReference ref=\"v\"/></intervalDomain>",
        content(template, variable("x", "a", false)));
  }

  @Test
  void conditionsAskWhatSlotsHold() {
    String template = template("L label; M label several='true'; x scale several='true'",
        "<legend id='if' t:if='L M'/><legend id='unless' t:unless='L M'/><legend id='several' t:several='x'/>"
            + "<extension a='{L}{M}'/><sourceVariable id='v' t:slot='x' t:if='L'/>");
    assertEquals("<legend id=\"unless\"/><extension/>", content(template));
    assertEquals("<extension/>", content(template, text("L", "a")));
    assertEquals("<legend id=\"if\"/><extension a=\"ab\"/>", content(template, text("L", "a"), text("M", "b")));
    assertHas("<legend id=\"several\"/>",
        content(template, text("L", "a"), variable("x", "a", false), variable("x", "b", false)));
  }

  @Test
  void textsOfTheRequestAreNotReadForSlots() {
    String template = template("L label; M label; x scale",
        "<extension a='{{{L}}}' b='{M}'/><sourceVariable id='v' t:slot='x'/><legend><label><text>{x}</text></label></legend>");
    assertEquals("<extension a=\"{{M}}\" b=\"$1\\\"/>"
            + "<sourceVariable categorical=\"false\" creator=\"external_datasource\" id=\"v\" label=\"{{L}\" "
            + "source=\"source0\" sourceName=\"{L}\"/><legend><label><text>{{L}</text></label></legend>" + SOURCE,
        content(template, text("L", "{M}"), text("M", "$1\\"), variable("x", "{L}", false, "slotLabel='{{L}'", "")));
  }

  @Test
  void aStatisticIsANumberOrItsWords() {
    assertEquals("<extension a=\"12\" b=\"Cumulative percent\"/>",
        content(template("s statistic", "<extension a='{s}' b='{s.words}'/>"), text("s", "cumulative percent")));
  }

  @Test
  void aLabelingVariableIsThereWhereTheRequestNamesOne() {
    String template = template("y scale",
        "<sourceVariable id='v' t:slot='y'/><sourceVariable id='n' t:labeling='y'/>"
            + "<graph><point><labeling variable='n'/></point></graph>");
    assertEquals(
        filled("v", "a", "") + "<graph><point/></graph>" + SOURCE, content(template, variable("y", "a", false)));
    String named = content(template, variable("y", "a", false, "labelingVariableName='who' dataSetName='d'", ""));
    assertHas(
        "<sourceVariable categorical=\"true\" creator=\"external_datasource\" id=\"n\" label=\"who\" source=\"d\" "
            + "sourceName=\"who\"/>",
        named);
    assertHas("<labeling variable=\"n\"/>", named);
  }

  @Test
  void aLabelingVariableMayHaveAColumnOfItsOwn() {
    String template = template("y scale",
        "<sourceVariable id='v' t:slot='y'/>"
            + "<sourceVariable id='n' t:labeling='y' sourceName='$CASENUM' creator='external_system'/>");
    assertHas("creator=\"external_system\" id=\"n\" source=\"d\" sourceName=\"$CASENUM\"",
        content(template, variable("y", "a", false, "dataSetName='d'", "")));
    assertEquals("<extension/>",
        content(template("y scale",
            "<sourceVariable id='v' t:slot='y'/><extension/>"
                + "<sourceVariable id='n' t:labeling='y' sourceName='$CASENUM'/>")));
    String named = content(template, variable("y", "a", false, "labelingVariableName='who'", ""));
    assertHas("creator=\"external_datasource\" id=\"n\" label=\"who\"", named);
  }

  private static final String LINES = template("y scale several='true'",
      "<graph><line id='l' style='s'><x variable='other'/><y variable='v'/><labeling variable='n'/></line></graph>"
          + "<style id='c'><style id='s'/></style><intervalDomain><variableReference ref='v'/></intervalDomain>"
          + "<sourceVariable id='v' t:slot='y'/><sourceVariable id='n' t:labeling='y'/><legend><legendTarget target='l'/></legend>");

  @Test
  void severalVariablesAreDrawnSeverally() {
    String chart = content(LINES, variable("y", "a", false, "labelingVariableName='who'", ""),
        variable("y", "b", false, "slotLabel='{B}'", ""));
    assertHas("<graph><line id=\"l\" name=\"a\" style=\"s\"><x variable=\"other\"/><y variable=\"v\"/>"
            + "<labeling variable=\"n\"/></line><line id=\"l_2\" name=\"{B}\" style=\"s_2\"><x variable=\"other\"/>"
            + "<y variable=\"v_2\"/><labeling variable=\"n_2\"/></line></graph>",
        chart);
    assertHas("<style color=\"#0072B2\" id=\"s\"/><style color=\"#D55E00\" id=\"s_2\"/>", chart);
    assertHas("<variableReference ref=\"v\"/><variableReference ref=\"v_2\"/>", chart);
    assertHas("<legendTarget target=\"l\"/><legendTarget target=\"l_2\"/>", chart);
    assertHas("id=\"v_2\" label=\"{B}\" source=\"source0\" sourceName=\"b\"", chart);
    assertHas("id=\"n_2\" label=\"who\"", chart);
  }

  @Test
  void eachOfSeveralHasAColorOfItsOwnBehindThatOfTheTemplate() {
    String chart = content(LINES.replace("<style id='s'/>", "<style id='s' color='#D55E00'/>"),
        variable("y", "a", false), variable("y", "b", false), variable("y", "c", false));
    assertHas("<style color=\"#D55E00\" id=\"s\"/><style color=\"#0072B2\" id=\"s_2\"/>"
            + "<style color=\"#009E73\" id=\"s_3\"/>",
        chart);
  }

  @Test
  void eachOfSeveralGetsAStyleWhereTheTemplateHasNone() {
    String chart = content(LINES.replace(" style='s'", ""), variable("y", "a", false), variable("y", "b", false));
    assertHas("<line id=\"l\" name=\"a\" style=\"ls\">", chart);
    assertHas("<line id=\"l_2\" name=\"b\" style=\"ls_2\">", chart);
    assertHas("<style color=\"#0072B2\" id=\"ls\"/><style color=\"#D55E00\" id=\"ls_2\"/>", chart);
  }

  @Test
  void namesThatAreTakenAreLeftToThoseThatHaveThem() {
    String chart =
        content(LINES.replace("<graph>", "<graph id='v_2'>"), variable("y", "a", false), variable("y", "b", false));
    assertHas("<variableReference ref=\"v\"/><variableReference ref=\"v_2_\"/>", chart);
  }

  @Test
  void whatIsDrawnSeverallyMayNameItsOwnVariable() {
    String chart =
        content(LINES.replace("<line ", "<line name='of {y}' "), variable("y", "a", false), variable("y", "b", false));
    assertHas("name=\"of a\"", chart);
    assertHas("name=\"of b\"", chart);
  }

  @Test
  void drawingSeverallyHasABound() {
    String[] many = new String[100];
    for (int at = 0; at < many.length; ++at) many[at] = variable("y", "a" + at, false);
    String line = "<line><y variable='v'/></line>";
    assertEquals("RequestInvalid: the variables of the slot \"y\" would be drawn 1100 times; 1000 are the most",
        refusal(request(LINES.replace("<graph>", "<graph>" + line.repeat(10)), many)));
    assertHas("v_100", content(LINES.replace("<graph>", "<graph>" + line.repeat(9)), many));
  }

  private static String set(String type, String more) {
    String members = "<variable varName='p' varLabel='P' labelingVariableName=''/>"
        + "<variable varName='q' varLabel='' labelingVariableName=''/>";
    return variable("x", "$s", true, "variableType='" + type + "' slotLabel='Seen'",
        "<multipleResponseInfo MRSetName='$s' " + more + ">" + members + "</multipleResponseInfo>");
  }

  private static final String BARS = template("x categorical sets='true'",
      "<graph id='{x}'><interval style='s'><x variable='v'/></interval></graph><style id='s'/>"
          + "<categoricalDomain><variableReference ref='v'/></categoricalDomain><sourceVariable id='v' t:slot='x'/>");

  @Test
  void theMembersOfASetOfCategoriesAreCountedTogether() {
    String chart = content(BARS, set("MultipleCategory", "enhancedDichotomy='false'"));
    assertHas(
        "<graph id=\"Seen\"><interval name=\"P\" positionModifier=\"3\" style=\"s\"><x variable=\"v\"/></interval>"
            + "<interval name=\"q\" positionModifier=\"3\" style=\"s\"><x variable=\"v_2\"/></interval></graph>",
        chart);
    assertHas("<extension MRSetName=\"$s\"/></sourceVariable>", chart);
    assertHas(
        "<categoricalDomain><variableReference ref=\"v\"/><variableReference ref=\"v_2\"/></categoricalDomain>", chart);
    assertFalse(chart.contains("relabel"), chart);
  }

  @Test
  void theMembersOfASetOfDichotomiesAreItsCategories() {
    String chart = content(BARS, set("MultipleDichotomy", "enhancedDichotomy='false' countedValue='1'"));
    assertHas("<extension MRSetName=\"$s\" countedValue=\"1\" enhancedDichotomy=\"false\"/>"
            + "<format><relabel from=\"1\" to=\"P\"/></format>",
        chart);
    assertHas("<relabel from=\"1\" to=\"q\"/>", chart);
    assertHas("<variableReference ref=\"v_2\"/><categories>1</categories></categoricalDomain>", chart);
  }

  @Test
  void theCountedValuesOfAnEnhancedSetKeepTheirOwnLabels() {
    String chart = content(BARS, set("MultipleDichotomy", "enhancedDichotomy='true' countedValue='1'"));
    assertHas("countedValue=\"1\" enhancedDichotomy=\"true\"", chart);
    assertFalse(chart.contains("relabel"), chart);
  }

  @Test
  void theChartHasTheLanguageOfTheRequestUnlessItSaysOne() {
    String contents = "<templateContents>" + template("L label", "<extension a='{L}'/>") + "</templateContents>";
    String german = "templateName='' locale='de-DE' location='file'";
    assertHas("lang=\"de-DE\"", chart(specification(german, contents)));
    assertHas("lang=\"en-US\"",
        chart(specification(german, contents.replace("<visualization ", "<visualization lang='en-US' "))));
  }

  @Test
  void aTemplateInTheRequestNeedsNoNameAndOneThatIsMissingIsTold() {
    assertEquals("TemplateMissing: the request has no template in it; its file could not be read",
        refusal(specification("templateName='a.lumotemplate' locale='' location='file'", "")));
  }
}
