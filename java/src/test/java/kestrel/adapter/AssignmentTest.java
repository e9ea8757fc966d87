package kestrel.adapter;

import static kestrel.support.TemplateRequests.chart;
import static kestrel.support.TemplateRequests.refusal;
import static kestrel.support.TemplateRequests.request;
import static kestrel.support.TemplateRequests.template;
import static kestrel.support.TemplateRequests.text;
import static kestrel.support.TemplateRequests.variable;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.ValueSource;

/** Which mappings go into which slots. */
class AssignmentTest {
  private static final String SET = "<multipleResponseInfo MRSetName='$s' enhancedDichotomy='false'>"
      + "<variable varName='a' varLabel='' labelingVariableName=''/></multipleResponseInfo>";

  private static String ofSlot(String slot) {
    boolean variable = slot.matches("x (variable|categorical|scale|weight).*");
    return template(slot, variable ? "<sourceVariable id='v' t:slot='x'/>" : "<legend id='{x}'/>");
  }

  @Test
  void aSlotThatTheTemplateDoesNotHaveIsNamedBesideThoseThatItHas() {
    String two = template("x variable; L label", "<sourceVariable id='v' t:slot='x'/><legend id='{L}'/>");
    assertEquals("SlotUnknown: the template has no slot \"z\"; its slots are x, L",
        refusal(request(two, variable("z", "a", true))));
    assertEquals("SlotUnknown: the template has no slot \"Title\"; its slots are x, L",
        refusal(request(two, text("Title", "a"))));
  }

  @Test
  void aRequiredSlotThatIsEmptyIsNamedWithWhatItNeeds() {
    String required = "SlotEmpty: the slot \"x\" is empty; it needs ";
    assertEquals(required + "a scale variable", refusal(request(ofSlot("x scale required='true'"))));
    assertEquals(
        required + "a scale variable", refusal(request(ofSlot("x scale required='true'"), variable("x", "", false))));
    assertEquals(required + "a text", refusal(request(ofSlot("x label required='true'"), text("x", ""))));
    assertEquals(
        required + "one of mean, count", refusal(request(ofSlot("x statistic required='true' values='mean;count'"))));
    assertEquals(required + "a categorical variable",
        refusal(request(ofSlot("x categorical required='true' sets='true'"),
            variable("x", "s", true, "variableType='MultipleCategory'",
                "<multipleResponseInfo MRSetName='$s' enhancedDichotomy='false'/>"))));
  }

  @ParameterizedTest
  @CsvSource({"categorical,false,a categorical variable,scale", "scale,true,a scale variable,categorical",
      "weight,true,a variable that weights the cases,categorical"})
  void
  aVariableOfTheWrongKindIsRefused(String kind, boolean categorical, String wanted, String found) {
    assertEquals("VariableKind: the slot \"x\" takes " + wanted + "; \"a\" is " + found,
        refusal(request(ofSlot("x " + kind), variable("x", "a", categorical))));
  }

  @ParameterizedTest
  @CsvSource({"variable,true", "variable,false", "categorical,true", "scale,false", "weight,false"})
  void aVariableOfTheRightKindIsTaken(String kind, boolean categorical) {
    String chart = chart(request(ofSlot("x " + kind), variable("x", "a", categorical)));
    assertTrue(chart.contains("categorical=\"" + categorical + "\""), chart);
  }

  @Test
  void textsAndVariablesDoNotStandForEachOther() {
    assertEquals("SlotKind: the slot \"x\" takes a scale variable, not a text",
        refusal(request(ofSlot("x scale"), text("x", "a"))));
    assertEquals("SlotKind: the slot \"x\" takes a text, not a variable",
        refusal(request(ofSlot("x label"), variable("x", "a", true))));
    assertEquals("SlotKind: the slot \"x\" takes a statistic, not a variable",
        refusal(request(ofSlot("x statistic"), variable("x", "a", true))));
  }

  @Test
  void aSlotIsFilledTwiceOnlyWhereItTakesSeveral() {
    assertEquals("SlotFilledTwice: the slot \"x\" takes one thing, and is filled twice",
        refusal(request(ofSlot("x scale"), variable("x", "a", false), variable("x", "b", false))));
    assertTrue(
        chart(request(ofSlot("x label several='true'"), text("x", "a"), text("x", "b"))).contains("id=\"a&#10;b\""));
    assertTrue(chart(request(ofSlot("x scale"), variable("x", "", false), variable("x", "b", false)))
                   .contains("sourceName=\"b\""));
  }

  @Test
  void aSlotIsNotFilledWithoutABound() {
    String[] many = new String[101];
    for (int at = 0; at < many.length; ++at) many[at] = text("x", "a");
    assertEquals("RequestInvalid: the slot \"x\" is filled more than 100 times",
        refusal(request(ofSlot("x label several='true'"), many)));
  }

  @ParameterizedTest
  @CsvSource({"sum,1", "mean,2", "percent,3", "median,4", "minimum,5", "maximum,6", "error,7", "count,10",
      "cumulative count,11", "cumulative percent,12", "' Mean ',2"})
  void
  aStatisticIsWrittenAsTheNumberOfTheMarkup(String word, String number) {
    assertTrue(chart(request(ofSlot("x statistic"), text("x", word))).contains("id=\"" + number + "\""));
  }

  @Test
  void aStatisticThatTheSlotDoesNotTakeIsRefused() {
    assertEquals("ValueUnknown: the slot \"x\" takes one of mean, sum, not \"count\"",
        refusal(request(ofSlot("x statistic values='mean;sum'"), text("x", "count"))));
    assertEquals(
        "ValueUnknown: the slot \"x\" takes one of count, cumulative count, cumulative percent, error, maximum, "
            + "mean, median, minimum, percent, sum, not \"mode\"",
        refusal(request(ofSlot("x statistic"), text("x", "mode"))));
  }

  @ParameterizedTest
  @ValueSource(strings = {"12", "-3", "0.25", "123456789012345"})
  void aNumberIsTakenAsItStands(String number) {
    assertTrue(chart(request(ofSlot("x number"), text("x", number))).contains("id=\"" + number + "\""));
  }

  @ParameterizedTest
  @ValueSource(strings = {"many", "1e3", "NaN", "1,5", "1;2", "--1", "1.", "1234567890123456"})
  void whatIsNoNumberIsRefused(String text) {
    assertEquals("ValueUnknown: the slot \"x\" takes a number, not \"" + text + "\"",
        refusal(request(ofSlot("x number"), text("x", text))));
  }

  @Test
  void aDefaultStandsWhereTheRequestHasNothing() {
    String slot = ofSlot("x number default='7'");
    assertTrue(chart(request(slot)).contains("id=\"7\""));
    assertTrue(chart(request(slot, text("x", ""))).contains("id=\"7\""));
    assertTrue(chart(request(slot, text("x", "8"))).contains("id=\"8\""));
  }

  @Test
  void aMultipleResponseSetGoesOnlyWhereSetsAreTaken() {
    String type = "variableType='MultipleCategory'";
    assertEquals("SetRefused: the slot \"x\" takes no multiple response set, which \"s\" is",
        refusal(request(ofSlot("x categorical several='true'"), variable("x", "s", true, type, SET))));
    assertTrue(
        chart(request(ofSlot("x categorical sets='true'"), variable("x", "s", true, type, SET))).contains("\"$s\""));
  }
}
