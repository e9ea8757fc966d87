package kestrel.adapter;

import static kestrel.support.TemplateRequests.chart;
import static kestrel.support.TemplateRequests.refusal;
import static kestrel.support.TemplateRequests.request;
import static kestrel.support.TemplateRequests.template;
import static kestrel.support.TemplateRequests.whole;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.stream.Stream;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.Arguments;
import org.junit.jupiter.params.provider.MethodSource;

/** What a template may not be, and what is said then. */
class TemplateRuleTest {
  private static final String VARIABLE = "<sourceVariable id='v' t:slot='x'/>";

  private static String declared(String attributes, String slots) {
    return "<t:template version='1.0' " + attributes + ">" + slots + "</t:template>";
  }

  private static Arguments of(String template, String fault) {
    return Arguments.of(template, fault);
  }

  private static Arguments slot(String slot, String fault) {
    return of(whole(declared("", "<t:slot " + slot + "/>")), fault);
  }

  private static Arguments chartOf(String chart, String fault) {
    return of(template("x variable; L label; s statistic", VARIABLE + "<legend>{L}{s}</legend>" + chart), fault);
  }

  static Stream<Arguments> declarations() {
    return Stream.of(of("<chart/>", "the root of a template is visualization in the namespace of charts"),
        of("<visualization xmlns=''/>", "the root of a template is visualization in the namespace of charts"),
        of(whole(""),
            "a template has one element template in the namespace "
                + "http://xml.vexa.example/visualization-template below its root, this one has 0"),
        of(whole(declared("", "") + declared("", "")), "this one has 2"),
        of(whole("<t:template/>"), "a template says its version, such as \"1.0\""),
        of(whole("<t:template version='one'/>"), "a template says its version, such as \"1.0\""),
        of(whole(declared("author='x'", "")), "template has no attribute \"author\""),
        of(whole(declared("map='maybe'", "")), "map is \"required\" or absent"),
        of(whole(declared("", "<t:place name='x'/>")), "template holds elements slot, not \"place\""),
        of(whole(declared("", "<t:slot name='x' kind='label'/><t:slot name='x' kind='label'/>")),
            "there are two slots \"x\""),
        of(whole("text" + declared("", "")), "the root of a template has no text"));
  }

  static Stream<Arguments> slots() {
    return Stream.of(slot("name='x' kind='label' colour='red'", "slot has no attribute \"colour\""),
        slot("kind='label'", "the name of a slot is a letter and then letters, digits and _, not \"\""),
        slot("name='a-b' kind='label'", "letters, digits and _, not \"a-b\""),
        slot("name='x'", "the kind \"\" is none of variable, categorical, scale, weight, statistic, number, label"),
        slot("name='x' kind='label' required='yes'", "required is true or false"),
        slot("name='x' kind='label' values='mean'", "values go with statistic"),
        slot("name='x' kind='statistic' values='mean;mode'", "there is no statistic \"mode\"; there are count, "),
        slot("name='x' kind='label' sets='true'", "sets goes with variables"),
        slot("name='x' kind='scale' sets='true'", "a multiple response set is categorical"),
        slot("name='x' kind='number' several='true'", "several goes with variables and labels"),
        slot("name='x' kind='scale' default='y'", "a slot for variables has no default"),
        slot("name='x' kind='label' required='true' default='y'", "so that it is not required"),
        slot("name='x' kind='number' default='many'", "the default \"many\" is none that the slot takes"),
        slot("name='x' kind='label'", "the slot \"x\" has no place in the chart: no text has {x}"),
        slot("name='x' kind='scale'", "the slot \"x\" has no place in the chart: no sourceVariable is for it"),
        of(whole(declared("", "<t:slot name='x' kind='label'><b/></t:slot>")),
            "a slot holds nothing but its meaning as text"));
  }

  static Stream<Arguments> charts() {
    return Stream.of(chartOf("<a xmlns='urn:other'/>", "the element \"a\" is not in the namespace of charts"),
        chartOf("<t:slot name='late' kind='label'/>", "the element \"slot\" is not in the namespace of charts"),
        chartOf("<mapInfo/>", "no chart has an element \"mapInfo\""),
        chartOf("<graph>text<line/></graph>", "an element of a chart holds elements or a text, not both"),
        chartOf("<graph t:when='x'/>", "the attribute \"when\" is none of charts and templates"),
        chartOf("<graph xmlns:o='urn:o' o:a='b'/>", "the attribute \"a\" is none of charts and templates"),
        chartOf("<graph t:if='y'/>", "there is no slot \"y\"; there are x, L, s"),
        chartOf("<graph t:unless=''/>", "there is no slot \"\""),
        chartOf("<graph t:slot='x'/>", "slot goes with a sourceVariable below the root"),
        chartOf(
            "<graph><sourceVariable t:labeling='x'/></graph>", "labeling goes with a sourceVariable below the root"),
        chartOf("<sourceVariable id='w' t:slot='L'/>", "takes a text; its place is a text with {L}"),
        chartOf("<sourceVariable t:labeling='x'/>", "the variable of a slot has an id"),
        chartOf("<sourceVariable id='w' t:slot='x'/>", "there are two variables for the slot \"x\""),
        chartOf("<legend id='{'/>", "a brace that is meant as such is written twice, {{ or }}: \"{\""),
        chartOf("<legend id='{y}'/>", "there is no slot \"y\""),
        chartOf("<legend id='{L.words}'/>", "{L.words} is for statistics; \"L\" takes a text"),
        of(template("x variable; y variable", VARIABLE + "<sourceVariable id='w' t:slot='y' t:labeling='x'/>"),
            "a variable is for slot or for labeling"));
  }

  @ParameterizedTest
  @MethodSource({"declarations", "slots", "charts"})
  void aTemplateThatBreaksARuleIsInvalid(String template, String fault) {
    String code = refusal(request(template));
    assertTrue(code.startsWith("TemplateInvalid: the template in the request, line 1, column "), code);
    assertTrue(code.contains(fault), code);
  }

  @Test
  void conditionsDoNotTakeTheWholeChartAway() {
    String code = refusal(
        request(template("L label", "<legend id='{L}'/>").replace("<visualization ", "<visualization t:if='L' ")));
    assertTrue(code.endsWith("the root of a template is always there"), code);
  }

  @Test
  void aTemplateOfALaterVersionIsRefusedBeforeAnythingElseOfIt() {
    assertTrue(refusal(request(whole("<t:template version='1.1'><t:new/></t:template>")))
                   .startsWith("TemplateTooNew: the template in the request, line 1, column "));
    assertTrue(refusal(request(whole("<t:template version='2.0'/>")))
                   .endsWith("the template has version 2.0; known are versions up to 1.0"));
  }

  @Test
  void aTemplateOfALaterChartIsRefused() {
    String later = whole(declared("", "")).replace("<visualization ", "<visualization version='2.9' ");
    assertTrue(refusal(request(later)).startsWith("TemplateTooNew: "), refusal(request(later)));
    assertTrue(refusal(request(later.replace("2.9", "new"))).startsWith("TemplateInvalid: "));
    assertEquals("<visualization xmlns=\"http://xml.vexa.example/visualization\" version=\"2.8\"/>",
        chart(request(later.replace("2.9", "2.8"))));
  }

  @Test
  void aTemplateHasABoundedNumberOfElements() {
    String many = "<legend/>".repeat(20_000);
    assertTrue(refusal(request(whole(declared("", "") + many)))
                   .endsWith("a template has 20000 elements at most, this one 20001"));
    assertTrue(chart(request(whole(declared("", "") + many.substring(9)))).length() > many.length() / 2);
  }
}
