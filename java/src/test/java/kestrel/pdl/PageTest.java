package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import kestrel.support.Descriptions;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/** What the page, headings, legends and blends become. */
class PageTest {
  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      page { width 625px height 102.50mm } => <location method="0" part="4" value="625px"/><location method="0" part="5" value="102.5mm"/>
      page { style { color "#FFFFFF" } } => <visualization id="frame_graph_1" style="frame_graph_1s" version="2.8"
      page { style { color "#FFFFFF" } } => <style color="#FFFFFF" id="frame_graph_1s"/>
      language "de-DE" => <visualization id="frame_graph_1" lang="de-DE" version="2.8" xmlns="http://xml.vexa.example/visualization"><graph id="frame_data_1">
      title "T" => <labelFrame id="frame_title_1" style="frame_title_1s"><label style="label_title_1s"><text>T</text></label></labelFrame>
      title "T" title "U" subtitle "S" footnote "F" footnote "G" footnote "H" => <extension footnote1="frame_footnote_1" footnote2="frame_footnote_2" footnote3="frame_footnote_3" subtitle="frame_subtitle_1" title1="frame_title_1" title2="frame_title_2"/>
      title "T" { style { font 14pt } } => <style font_size="14pt" id="label_title_1s"/>
      """)
  void pageAndHeadings(String statements, String markup) throws Exception {
    String actual = Descriptions.markupWithPoints(statements);
    assertTrue(actual.contains(markup), actual);
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      point { x a y b color c shape c } => <legend id="frame_legend_1" style="frame_legend_1s" tickTextStyle="frame_legend_1_legend_1s"><legendTarget id="frame_legend_1_legendTarget0" target="element_point_1_color1"/><legendTarget id="frame_legend_1_legendTarget1" target="element_point_1_shape1"/><label id="frame_legend_1_legend_1_label_1" style="frame_legend_1_legend_1_label_1s"><text>C</text></label></legend>
      point { x a y b color c } line { x a y b color c } => <legendTarget id="frame_legend_1_legendTarget1" target="element_simpleline_1_color1"/>
      point { x a y b color c shape e } => <extension legend1="frame_legend_1" legend2="frame_legend_2"/>
      point { x a y b color c } legend c { title "T" } => <text>T</text></label></legend>
      point { x a y b color c } legend c { title "" } => target="element_point_1_color1"/></legend>
      point { x a y b color c shape e } legend c { hidden } => <extension legend1="frame_legend_1"/>
      """)
  void legends(String statements, String markup) throws Exception {
    String actual = Descriptions.markup(statements);
    assertTrue(actual.contains(markup), actual);
  }

  @Test
  void aChartWithoutLegendsHasNone() throws Exception {
    assertFalse(Descriptions.markup("point { x a y b color c } no legends").contains("<legend"));
  }

  @Test
  void aBlendNamesEachOfItsVariables() throws Exception {
    String markup = Descriptions.markup("line { x d } panels { blend a + b }");
    String constants =
        "<derivedVariable categorical=\"true\" id=\"sourceVariable1label\" label=\"sourceVariable1label\" "
        + "value=\"constant(labelsourceVariable1)\"><format><relabel from=\"labelsourceVariable1\" to=\"B\"/></format>";
    assertTrue(markup.contains(constants), markup);
    String sum = "sourceVariable0/sourceVariable0label + sourceVariable1/sourceVariable1label";
    assertTrue(
        markup.contains("expression=\"" + sum + "\" id=\"expressionVariable1\" shortLabel=\"Y Axis\"><format/>"));
    assertTrue(markup.contains("<x variable=\"sourceVariable4\"/><y variable=\"expressionVariable1\"/></line>"));
    assertTrue(markup.contains("<facetLayout topDown=\"true\"><facetLevel id=\"facetLabel_matrixscatterx_1\""));
    assertFalse(markup.contains("<faceting"));
  }
}
