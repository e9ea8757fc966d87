package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import kestrel.support.Descriptions;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/** What coordinates, scales, axes, guides and panels become. The chart shows points of a and b, which are numbers. */
class FrameTest {
  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      coordinates { transpose } => <transposeTransform/></coordinates>
      coordinates { reflect y } => <reflectionTransform alternating="false" dimension="1"/>
      coordinates { reflect x alternating reflect y } => <reflectionTransform alternating="true" dimension="0"/><reflectionTransform alternating="false" dimension="1"/>
      coordinates { same ratio } => <sameRatioTransform center="true"/>
      coordinates { same ratio } => <facetLayout cellAspect="1" method="1" topDown="true"/>
      coordinates { polar } => <polarTransform/>
      point { x a y b z a } => <rectangularTransform distance="20" phi="45" theta="30" zeta="0"/>
      point { x a y b z a } coordinates { view { phi 1 theta -2 zeta 3.5 distance 4 } } => <rectangularTransform distance="4" phi="1" theta="-2" zeta="3.5"/>
      """)
  void coordinates(String statements, String markup) throws Exception {
    contains(markup, statements);
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      scale x { linear } => <dimension domain="intervalDomain0"><scale method="1"/>
      scale x { log } => <scale base="10" method="2"/>
      scale x { log base 2 } => <scale base="2" method="2"/>
      scale x { power 0.5 } => <scale base="0.5" method="3"/>
      scale x { symmetric log } => <scale base="10" method="4"/>
      scale x { symmetric power 2 } => <scale base="2" method="5"/>
      scale x { reverse } => <scale invert="true" method="1"/>
      scale x { origin 5 } => <scale method="1" origin="5"/>
      scale x { minimum -1 maximum 1e3 } => <range exact="false" max="1000" min="-1"/>
      scale y { maximum 7 exact } => <intervalDomain id="intervalDomain1"><variableReference ref="sourceVariable1"/><range exact="true" max="7"/></intervalDomain>
      scale x { nice } => <dimension domain="intervalDomain0" niceLowerMapping="true" niceUpperMapping="true">
      scale x { tight } => niceLowerMapping="false" niceUpperMapping="false"
      scale x { margins 5% 10px } => lowerMargin="5%" upperMargin="10px"
      """)
  void scales(String statements, String markup) throws Exception {
    contains(markup, statements);
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      point { x d y a } scale x { minimum "2012-01-01" } => <intervalDomain date="true" id="intervalDomain0"><variableReference ref="sourceVariable4"/><range exact="false" min="2012-01-01"/></intervalDomain>
      point { x d y a } scale x { maximum "2012-01-01T08:30:00" } => <range exact="false" max="2012-01-01T08:30:00"/>
      point { x d y a } reference x "2012-06-30" => <lineGuide id="lineGuide1" style="lineGuide1s" x="2012-06-30"/>
      point { x c y a } reference x "q" => x="2"/>
      point { x c y a } scale x { reverse } => <dimension domain="categoricalDomain0"><scale invert="true" method="1"/>
      line { x a y a } line { x a y b } => <intervalDomain id="intervalDomain1"><variableReference ref="sourceVariable0"/><variableReference ref="sourceVariable1"/></intervalDomain>
      point { x a dots } => <dimension/></coordinates>
      bar { x a bins } scale y { maximum 5 } => <intervalDomain id="intervalDomain1"><range exact="false" max="5"/></intervalDomain>
      """)
  void domains(String statements, String markup) throws Exception {
    String actual = Descriptions.markup(statements);
    assertTrue(actual.contains(markup), actual);
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      axis x { label "L" } => <axis combineAxisLabels="true" repeat="0" style="axis_axisx_1s"><majorTicks markStyle="markStyle" style="tickStyle" tickFrameStyle="tickLabelStyle"/><label style="label"><text>L</text></label></axis>
      no legends => <label style="label_1"><text>B</text></label>
      axis x { label "" } => tickFrameStyle="tickLabelStyle"/></axis>
      axis x { hidden } => <dimension domain="intervalDomain0"/>
      axis x { opposite } => <axis combineAxisLabels="true" opposite="true" repeat="0" style="axis_axisx_1s">
      axis x { gridlines } => tickFrameStyle="tickLabelStyle"><gridline/></majorTicks>
      axis x { style { color "red" } } => <style color="red" id="axis_axisx_1s"/>
      axis x { ticks { step 2.5 every 3 angle -45 length 4px stagger } } => <majorTicks delta="2.5" labelAngle="-45" labelFrequency="3" length="4px" markStyle="markStyle" stagger="true" style="tickStyle"
      axis x { ticks { format { decimals 0 to 2 grouping prefix "$" suffix "k" pattern "0" missing "-" } } } => <format errorCharacter="-" maximumFractionDigits="2" minimumFractionDigits="0" pattern="0" prefix="$" suffix="k" useGrouping="true"/></majorTicks>
      axis x { ticks { style { font 9pt } } } => <style font_size="9pt" id="tickStyle"/>
      second axis y { label "S" derived } => <axis combineAxisLabels="true" opposite="true" repeat="0" style="axis_axisy_2s" transform="1">
      second axis x { } => <axis combineAxisLabels="true" opposite="true" repeat="0" style="axis_axisx_2s"><majorTicks markStyle="markStyle_1" style="tickStyle_1" tickFrameStyle="tickLabelStyle_1"/></axis>
      """)
  void axes(String statements, String markup) throws Exception {
    contains(markup, statements);
  }

  @Test
  void anAxisOfSeveralVariablesHasNoLabelOfItsOwn() throws Exception {
    assertFalse(Descriptions.markup("line { x a y a } line { x a y b }").contains("<text>B</text>"));
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      reference x 200.9 { name "N" style { color "red" } } => <lineGuide id="lineGuide1" name="N" style="lineGuide1s" x="200.9"/>
      reference y -5 => <lineGuide id="lineGuide1" style="lineGuide1s" y="-5"/>
      function 5.251 + 0.2048 * x { name "N" } => <functionGuide id="functionGuide1" name="N" style="functionGuide1s" value="5.251 + 0.2048*x"/>
      function -x ^ 2 / (1 - log(x)) => value="-x^2/(1 - log(x))"
      function 2 ^ - x => value="2^-x"
      function max(x, 1, 2) => value="max(x, 1, 2)"
      point { x a y b z a } plane yz plane xy { style { hidden } } => <planeGuide id="guide_yzplane_1" normal="0" style="guide_yzplane_1s"/><planeGuide id="guide_xyplane_1" normal="2" style="guide_xyplane_1s"/>
      point { x a y b z a } plane xz frame => <planeGuide id="guide_xzplane_1" normal="1" style="guide_xzplane_1s"/><frameGuide complete="false" id="guide_frame_1" style="guide_frame_1s"/>
      """)
  void guides(String statements, String markup) throws Exception {
    contains(markup, statements);
  }

  @ParameterizedTest
  @CsvSource(delimiterString = " => ", quoteCharacter = '~', textBlock = """
      panels { columns c } => <faceting id="faceting0" method="cross"><cross><variableReference ref="sourceVariable2"/><unity/></cross></faceting>
      panels { rows c } => <cross><unity/><variableReference ref="sourceVariable2"/></cross>
      panels { columns c * e } => <cross><variableReference ref="sourceVariable2"/><unity/><variableReference ref="sourceVariable3"/><unity/></cross>
      panels { columns c rows e } => <cross><variableReference ref="sourceVariable2"/><variableReference ref="sourceVariable3"/></cross>
      panels { columns c / e } => <faceting id="faceting0" method="nest"><cross><nest><variableReference ref="sourceVariable2"/><variableReference ref="sourceVariable3"/></nest><unity/></cross></faceting>
      panels { rows c } => <majorTicks labelAngle="90" markStyle="majorTicks_axis_panel_1markStyle"
      panels { columns c gap 1% aspect 2 } => <facetLayout cellAspect="2" method="1" topDown="true"><facetLevel gap="1%" id="facetLabel_panel_1" level="1"><axis opposite="true" style="axis_panel_1s"><label style="label_panel_1s" textFrameStyle="textFrame_panel_1s"><text>C</text></label>
      panels { columns c / e } => <facetLevel gap="5%" id="facetLabel_panel_2" level="2">
      panels { columns c rows e } coordinates { reflect x alternating } => <faceting method="cross"><cross><cross><variableReference ref="sourceVariable2"/><variableReference ref="sourceVariable3"/></cross></cross></faceting>
      panels { columns c rows e } coordinates { reflect x alternating } => <facetLevel gap="10%" id="facetLabel_panel_2" level="2">
      """)
  void panels(String statements, String markup) throws Exception {
    contains(markup, statements);
  }

  @Test
  void rowsOfAPyramidNestOrCrossWithinTheCross() throws Exception {
    String pyramid = "variable f categorical coordinates { reflect x alternating } panels { columns c rows e ";
    contains("<variableReference ref=\"sourceVariable3\"/><cross><unity/><variableReference ref=\"sourceVariable5\"/>"
            + "</cross></cross></cross></faceting>",
        pyramid + "* f }");
    contains("<nest><variableReference ref=\"sourceVariable3\"/><variableReference ref=\"sourceVariable5\"/></nest>"
            + "</cross></cross></faceting>",
        pyramid + "/ f }");
  }

  private static void contains(String markup, String statements) throws Exception {
    String actual =
        statements.startsWith("point {") ? Descriptions.markup(statements) : Descriptions.markupWithPoints(statements);
    assertTrue(actual.contains(markup), actual);
  }
}
