package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import kestrel.support.Descriptions;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/**
 * What elements, their statistics and their aesthetics become. a and b are numbers, c and e categories, d is a date.
 */
class ElementTest {
  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      point { x a y b } => <point id="element_point_1" labelCollisionHandling="1" style="element_point_1s"><x variable="sourceVariable0"/><y variable="sourceVariable1"/></point>
      line { x a y b } => <line id="element_simpleline_1" labelCollisionHandling="2" style="element_simpleline_1s">
      path { x a y b } => <path id="element_path_1" labelCollisionHandling="2" style="element_path_1s">
      bar { x a y b } => <interval id="element_bar_1" labelCollisionHandling="2" style="element_bar_1s">
      area { x a y b } => <area id="element_area_1" labelCollisionHandling="2" style="element_area_1s">
      edge { x a to b y a to b } => <edge id="element_edge_1" labelCollisionHandling="2" style="element_edge_1s"><x variable="sourceVariable0"/><x variable="sourceVariable1"/><y variable="sourceVariable0"/><y variable="sourceVariable1"/></edge>
      polygon { x a y b } => <polygon id="element_polygon_1" labelCollisionHandling="2" style="element_polygon_1s">
      box { y a } => <schema extremeStyle="element_tukeyExtremes_1s" fenceStyle="element_tukeyInnerFence_1s" hingeStyle="element_tukeyHinges_1s" id="elementGroup_boxplot_11" labelCollisionHandling="1" medianStyle="element_median_1s" name="elementGroup_boxplot_11" outlierStyle="element_tukeyOutliers_1s" showCollidingLabels="true" style="elementGroup_boxplot_11s"><tukeyStatistic/><y variable="sourceVariable0"/></schema>
      box { y a name "N" } => name="N"
      point { x a y b z a } => <z variable="sourceVariable0"/>
      bar { x a y a to b } => <y variable="sourceVariable0"/><y variable="sourceVariable1"/></interval>
      bar { x a y b } bar { x a bins } point { x a y b } bar { x a statistic error y b } => id="element_errorbar_3"
      line { x a y b name "N" } => name="N"
      """)
  void kindsAndPositions(String statements, String markup) throws Exception {
    contains(markup, statements);
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      bar { x c statistic count } => <summaryStatistic method="10"/>
      bar { x c statistic percent } => <summaryStatistic method="3"/>
      line { x a statistic cumulative count } => <summaryStatistic method="11"/>
      line { x a statistic cumulative percent } => <summaryStatistic method="12"/>
      bar { x c y a statistic sum } => <summaryStatistic method="1"/>
      bar { x c y a statistic mean } => <summaryStatistic method="2"/>
      bar { x c y a statistic median } => <summaryStatistic method="4"/>
      bar { x c y a statistic minimum } => <summaryStatistic method="5"/>
      bar { x c y a statistic maximum } => <summaryStatistic method="6"/>
      bar { x c y a statistic error } => <interval id="element_errorbar_1" labelCollisionHandling="2" style="element_errorbar_1s"><summaryStatistic method="7"/>
      bar { x c y a statistic error } => <style id="element_errorbar_1s" symbol="ibeam" width="25%"/>
      bar { x c y a statistic error style { width 50% } } => <style id="element_errorbar_1s" symbol="ibeam" width="50%"/>
      line { x a statistic density } => <distributionStatistic/><x variable="sourceVariable0"/></line>
      bar { x a bins } => <interval id="element_histogram_1" labelCollisionHandling="2" style="element_histogram_1s"><binStatistic/><summaryStatistic method="10"/><x
      bar { x a bins { count 12 } } => <binStatistic binCount="12;12;12"/>
      bar { x a bins { width 2.5 start -1 } } => <binStatistic binStart="-1;-1;-1" binWidth="2.5d;2.5d;2.5d"/>
      line { x a y b bins statistic mean } => <binStatistic/><summaryStatistic method="2"/>
      point { x a dots } => labelCollisionHandling="1" positionModifier="8" style="element_point_1s"><binStatistic gridType="1"/><x
      point { x a stacked dots } => positionModifier="7"
      bar { x c y a stack color e } => positionModifier="3"
      bar { x c y a dodge color e } => positionModifier="1"
      bar { x c y a cluster e } => <interval id="element_clusteredbar_1"
      bar { x c y a cluster e } => <dimension clusterGap="10%" clusterVariable="sourceVariable3" domain="categoricalDomain0" lowerMargin="5%" upperMargin="5%">
      """)
  void statisticsAndModifiers(String statements, String markup) throws Exception {
    contains(markup, statements);
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      point { x a y b color c } => <color id="element_point_1_color1" variable="sourceVariable2"/>
      point { x a y b color a } => <color id="element_point_1_color1" variable="sourceVariable0"/>
      point { x a y b color c { values "#0072B2", "red" } } => <color cycle="styleCycle_1" id="element_point_1_color1" variable="sourceVariable2"/>
      point { x a y b color c { values "#0072B2", "red" } } => <styleCycle id="styleCycle_1"><cycle><style color="#0072B2"/><style color="red"/></cycle><extension aesthetic="color"/></styleCycle>
      point { x a y b color c { value "q" "red" value 3 "blue" } } => <colorMapping from="2" to="red"/><colorMapping from="3" to="blue"/></color>
      point { x a y b shape c { values "circle", "plus" } } => <cycle><style symbol="circle"/><style symbol="plus"/></cycle><extension aesthetic="shape"/>
      point { x a y b shape c { value "p" "star" } } => <symbolMapping from="1" to="star"/></shape>
      bar { x c y b pattern e { values 1, 3 } } => <cycle><style pattern="1"/><style pattern="3"/></cycle><extension aesthetic="pattern"/>
      line { x a y b dash c { values "", "8pt,2pt" } } => <cycle><style stroke_dasharray=""/><style stroke_dasharray="8pt,2pt"/></cycle><extension aesthetic="dash"/>
      point { x a y b size a { range 3pt to 12pt } } => <size high="12pt" id="element_point_1_size1" low="3pt" variable="sourceVariable0"/>
      point { x a y b size a } => <size id="element_point_1_size1" variable="sourceVariable0"/>
      point { x a y b transparency a { range 0 to 0.5 } } => <transparency high="0.5" id="element_point_1_transparency1" low="0" variable="sourceVariable0"/>
      point { x a y b label c } => <labeling connectingLines="false" dimension="0" style="element_point_1_labelStyle" textFrameStyle="element_point_1_textFrameStyle" variable="sourceVariable2"/>
      point { x a y b label a { format { decimals 1 } } } => <format maximumFractionDigits="1" minimumFractionDigits="1"/></labeling>
      point { x a y b only c "q" } panels { rows e columns c } => <conditionalStyle style="hidden" when="facet1 != &quot;2&quot;"/>
      point { x a y b only e 7 } panels { rows e columns c } => <conditionalStyle style="hidden" when="facet2 != &quot;7&quot;"/>
      """)
  void aestheticsAndLabels(String statements, String markup) throws Exception {
    contains(markup, statements);
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      color "#0072B2" outline "transparent" => color="#0072B2" color2="transparent" id="element_point_1s"
      stroke 2pt size 6.50px width 25% => id="element_point_1s" size="6.5px" stroke_width="2pt" width="25%"
      dash "8pt,8pt" symbol "diamond" pattern 4 => id="element_point_1s" pattern="4" stroke_dasharray="8pt,8pt" symbol="diamond"
      font "serif" 12pt bold italic => font_family="serif" font_size="12pt" font_style="italic" font_weight="bold" id="element_point_1s"
      font 12pt padding 1cm => font_size="12pt" id="element_point_1s" padding="1cm"
      opacity 0.25 hidden => id="element_point_1s" opacity="0.25" visible="false"
      """)
  void styles(String style, String markup) throws Exception {
    contains(markup, "point { x a y b style { " + style + " } }");
  }

  @Test
  void theStyleThatHidesIsMadeOnce() throws Exception {
    String markup = Descriptions.markup(
        "point { x a y b only c 1 } line { x a y b only c 1 } reference x 1 { only c 2 } panels { rows c }");
    assertEquals(2, markup.split("<style id=\"hidden\" visible=\"false\"/>", -1).length);
  }

  private static void contains(String markup, String statements) throws Exception {
    String actual = Descriptions.markup(statements);
    assertTrue(actual.contains(markup), actual);
  }
}
