package kestrel.lumoml14;

import static kestrel.support.OldCharts.upgraded;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import kestrel.converter.Converter;
import kestrel.support.OldCharts;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

/** What each thing of an old chart becomes. */
class UpgradeRulesTest {
  private static final String DATA = "<source name='s'/><variables names='a|b|t|u|d' labels='A||T||' "
      + "kinds='number|number|string|string|date'/>";

  private static void becomes(String old, String expected) throws Exception {
    String upgraded = upgraded(DATA + old);
    assertTrue(upgraded.contains(expected), expected + " in " + upgraded);
  }

  private static String root(String attributes) throws Exception {
    byte[] upgraded = Converter.upgrade(OldCharts.bytes("<graph " + attributes + "/>"));
    Schemas.validate("lumoml.xsd", upgraded);
    return OldCharts.text(upgraded);
  }

  @Test
  void anEmptyChartHasTwoDimensions() throws Exception {
    assertEquals("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<visualization id=\"frame_graph_1\" version=\"2.8\" "
            + "xmlns=\"http://xml.vexa.example/visualization\"><graph id=\"frame_data_1\"><coordinates id=\"coordinates0\">"
            + "<dimension/><dimension/></coordinates></graph></visualization>\n",
        root("version='1.4'"));
  }

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value = {"transpose='yes' ! <transposeTransform/></coordinates>", "polar='yes' ! <polarTransform/></coordinates>",
          "sameunits='yes' ! <sameRatioTransform/></coordinates>",
          "mirror='y' mirrorpanels='every' ! <reflectionTransform alternating=\"false\" dimension=\"1\"/></coordinates>",
          "mirror='x' ! <reflectionTransform dimension=\"0\"/></coordinates>", "language='de-DE' ! lang=\"de-DE\"",
          "name='n' ! name=\"n\"", "width='72' ! <location method=\"0\" part=\"4\" value=\"72pt\"/>",
          "plotframe='black' ! <graph cellStyle=\"plot_s\" id=\"frame_data_1\">",
          "background='1,2,3' ! <style color=\"#010203\" id=\"page_s\"/>"})
  void
  theRootSaysSo(String attributes, String expected) throws Exception {
    String upgraded = root(attributes);
    assertTrue(upgraded.contains(expected), upgraded);
  }

  @ParameterizedTest
  @CsvSource({"polar", "transpose", "sameunits"})
  void noIsNo(String attribute) throws Exception {
    assertEquals(root(""), root(attribute + "='no'"));
  }

  @ParameterizedTest
  @CsvSource({"user,userSource", "database,databaseSource", "file,delimitedFileSource", "stream,streamingSource",
      "embedded,embeddedSource"})
  void
  kindsOfSourcesHaveTheirElements(String kind, String element) throws Exception {
    assertTrue(upgraded("<source name='q' kind='" + kind + "'/>").contains("<" + element + " id=\"q\"/>"));
  }

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value = {"<variables source='s' names='x' columns='C' labels='L' kinds='weight'/> ! <sourceVariable categorical=\"false\" id=\"x\" label=\"L\" source=\"s\" sourceName=\"C\" weight=\"true\"/>",
          "<variables source='s' names='x' kinds='case'/> ! <sourceVariable categorical=\"false\" id=\"x\" key=\"true\" source=\"s\" sourceName=\"x\"/>",
          "<variables source='s' names='x' kinds='date' dates='mdy'/> ! id=\"x\" inputDateFormatPattern=\"MM/dd/yyyy\" source=\"s\" sourceName=\"x\"><format pattern=\"MM/dd/yyyy\"/></sourceVariable>",
          "<formula name='f' function='log(a)' label='F'/> ! <derivedVariable categorical=\"false\" id=\"f\" label=\"F\" value=\"log(a)\"/>",
          "<formula name='f' expression='a+b' kind='string'/> ! <expressionVariable categorical=\"true\" expression=\"a+b\" id=\"f\"/>",
          "<relabels variable='t' values='1=x|2=y z'/> ! <format><relabel from=\"1\" to=\"x\"/><relabel from=\"2\" to=\"y z\"/></format>",
          "<format variables='a|b' decimals='2' leastdecimals='1' grouping='no' prefix='$'/> ! <format maximumFractionDigits=\"2\" minimumFractionDigits=\"1\" prefix=\"$\" useGrouping=\"false\"/></sourceVariable><sourceVariable categorical=\"false\" id=\"b\" source=\"s\" sourceName=\"b\"><format",
          "<categories variable='t' sort='descending'/> ! <simpleSort descending=\"true\" method=\"2\"/>",
          "<categories variable='t' order='b|a'/> ! <simpleSort><categoryOrder>b;a</categoryOrder></simpleSort>",
          "<categories variable='t' leaveout='1|2'/> ! <categories remove=\"true\">1;2</categories>",
          "<categories variable='t' leaveout='1'/> ! domain=\"categories_1\" id=\"t\" label=\"T\" source=\"s\" sourceName=\"t\"/>"})
  void
  variablesBecome(String old, String expected) throws Exception {
    becomes(old, expected);
  }

  @ParameterizedTest
  @CsvSource({"point,point", "line,line", "path,path", "area,area", "bar,interval"})
  void layersHaveTheirElements(String kind, String element) throws Exception {
    becomes("<layer kind='" + kind + "' x='t' y='a'/>",
        "<" + element + " id=\"element_" + kind + "_1\" style=\"element_" + kind
            + "_1s\"><x variable=\"t\"/><y variable=\"a\"/></" + element + ">");
  }

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value = {"kind='dot' x='a' ! positionModifier=\"7\" style=\"element_dot_1s\"><x variable=\"a\"/><binStatistic gridType=\"1\"/></point>",
          "kind='histogram' x='a' bins='9' ! <binStatistic binCount=\"9;9;9\"/><summaryStatistic method=\"10\"/>",
          "kind='histogram' x='a' binwidth='2.50' binstart='-1' ! <binStatistic binStart=\"-1;-1;-1\" binWidth=\"2.5d;2.5d;2.5d\"/>",
          "kind='errorbar' x='t' y='a' ! <style id=\"element_errorbar_1s\" symbol=\"ibeam\" width=\"25%\"/>",
          "kind='errorbar' x='t' y='a' ! <summaryStatistic method=\"7\"/></interval>",
          "kind='bar' x='t' y='a' errorbars='yes' ! </interval><interval id=\"element_errorbar_1\" style=\"element_errorbar_1s\"><summaryStatistic method=\"7\"/><x variable=\"t\"/><y variable=\"a\"/></interval>",
          "kind='box' x='t' y='a' mediancolor='red' ! <schema id=\"element_box_1\" medianStyle=\"element_median_1s\" style=\"element_box_1s\"><x variable=\"t\"/><y variable=\"a\"/><tukeyStatistic/></schema>",
          "kind='bar' x='t' statistic='percent' ! <summaryStatistic method=\"3\"/>",
          "kind='bar' x='t' statistic='mean' ! <summaryStatistic method=\"2\"/>",
          "kind='bar' x='t' statistic='count' ! <summaryStatistic method=\"10\"/>",
          "kind='bar' x='t' arrange='stack' ! positionModifier=\"3\"",
          "kind='point' x='t' arrange='dots' ! positionModifier=\"8\"",
          "kind='bar' x='t' overlap='hide' ! labelCollisionHandling=\"2\"",
          "kind='bar' x='t' labelsby='a' labellines='yes' ! <labeling connectingLines=\"true\" dimension=\"0\" variable=\"a\"/>",
          "kind='point' x='a' y='b' z='a' ! <dimension domain=\"domain_1\"/><dimension domain=\"domain_2\"/><dimension domain=\"domain_3\"/>",
          "kind='bar' x='t' color='none' outline='red' width='40' ! <style color=\"transparent\" color2=\"#FF0000\" id=\"element_bar_1s\" width=\"40%\"/>",
          "kind='line' x='a' dash='solid' linewidth='.5' depth='3' ! <style depth=\"3pt\" id=\"element_line_1s\" stroke_dasharray=\"\" stroke_width=\"0.5pt\"/>",
          "kind='point' x='a' shape='plus' size='4' transparency='30' pattern='2' ! <style id=\"element_point_1s\" opacity=\"0.7\" pattern=\"2\" size=\"4pt\" symbol=\"plus\"/>"})
  void
  layersBecome(String attributes, String expected) throws Exception {
    becomes("<layer " + attributes + "/>", expected);
  }

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value = {"colorby='t' ! <color id=\"element_bar_1_color\" variable=\"t\"/>",
          "colorby='t' colors='red' ! <styleCycle id=\"element_bar_1_color_cycle\"><cycle><style color=\"#FF0000\"/></cycle><extension aesthetic=\"color\"/></styleCycle>",
          "colorby='t' colors='red' ! <color cycle=\"element_bar_1_color_cycle\" id=\"element_bar_1_color\" variable=\"t\"/>",
          "patternby='t' patterns='3|1' ! <cycle><style pattern=\"3\"/><style pattern=\"1\"/></cycle><extension aesthetic=\"pattern\"/>",
          "shapeby='t' shapes='star|plus' ! <cycle><style symbol=\"star\"/><style symbol=\"plus\"/></cycle><extension aesthetic=\"shape\"/>",
          "dashby='t' dashes='solid|dotted' ! <cycle><style stroke_dasharray=\"\"/><style stroke_dasharray=\"2pt,2pt\"/></cycle><extension aesthetic=\"dash\"/>",
          "sizeby='a' sizes='1|2.5' ! <size high=\"2.5pt\" id=\"element_bar_1_size\" low=\"1pt\" variable=\"a\"/>",
          "transparencyby='a' transparencies='10|90' ! <transparency high=\"0.9\" id=\"element_bar_1_transparency\" low=\"0.1\" variable=\"a\"/>",
          "colorby='t' colormap='1=red' ! <colorMapping from=\"1\" to=\"#FF0000\"/></color>",
          "shapeby='t' shapemap='x=star' ! <symbolMapping from=\"x\" to=\"star\"/></shape>",
          "colorby='u' arrange='cluster' ! <dimension clusterGap=\"10%\" clusterVariable=\"u\" domain=\"domain_1\" lowerMargin=\"5%\" upperMargin=\"5%\"/>",
          "colorby='a' patternby='u' arrange='cluster' gap='2' ! <dimension clusterGap=\"2%\" clusterVariable=\"u\""})
  void
  groupsBecomeAesthetics(String attributes, String expected) throws Exception {
    becomes("<layer kind='bar' x='t' " + attributes + "/>", expected);
  }

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value = {"of='x' ! <dimension><axis id=\"axis_axisx_1\" style=\"axis_axisx_1s\"><majorTicks",
          "of='x' label='L' labelsize='9' labelbold='yes' ! <label style=\"axis_axisx_1_label\"><text>L</text></label>",
          "of='x' label='L' labelsize='9' labelbold='yes' ! <style font_size=\"9pt\" font_weight=\"bold\" id=\"axis_axisx_1_label\"/>",
          "of='y' min='1' max='2.50' exact='no' ! <range exact=\"false\" max=\"2.5\" min=\"1\"/>",
          "of='y' scale='log' logbase='10' reverse='yes' ! <dimension><scale base=\"10\" invert=\"true\" method=\"2\"/>",
          "of='y' origin='5' ! <scale method=\"1\" origin=\"5\"/>", "of='y' scale='power' ! <scale method=\"3\"/>",
          "of='y' side='far' ! <axis id=\"axis_axisy_1\" opposite=\"true\" style=\"axis_axisy_1s\">",
          "of='y' second='yes' ! <axis id=\"axis_axisy_1\" opposite=\"true\" style=\"axis_axisy_1s\" transform=\"1\">",
          "of='y' second='yes' side='near' ! <axis id=\"axis_axisy_1\" opposite=\"false\" style=\"axis_axisy_1s\" transform=\"1\">",
          "of='y' step='5' start='1' ticklength='2' angle='90' stagger='yes' every='3' ! <majorTicks base=\"1\" delta=\"5\" labelAngle=\"90\" labelFrequency=\"3\" length=\"2pt\"",
          "of='y' ticks='no' ! <style id=\"axis_axisy_1_markStyle\" visible=\"false\"/>",
          "of='y' ticklabels='no' ! <style id=\"axis_axisy_1_style\" visible=\"false\"/>",
          "of='y' ticksize='7' tickcolor='red' ! <style color=\"#FF0000\" font_size=\"7pt\" id=\"axis_axisy_1_style\"/>",
          "of='y' grid='yes' griddash='dotted' ! <gridline style=\"axis_axisy_1_grid\"/></majorTicks>",
          "of='y' grid='yes' griddash='dotted' ! <style id=\"axis_axisy_1_grid\" stroke_dasharray=\"2pt,2pt\"/>",
          "of='y' suffix='%' decimals='0' ! <format maximumFractionDigits=\"0\" suffix=\"%\"/></majorTicks>",
          "of='y' margins='5' nice='no' ! <dimension lowerMargin=\"5%\" niceLowerMapping=\"false\" niceUpperMapping=\"false\" upperMargin=\"5%\">",
          "of='z' ! <dimension/><dimension/><dimension><axis id=\"axis_axisz_1\"",
          "of='y' color='red' linewidth='2' ! <style color=\"#FF0000\" id=\"axis_axisy_1s\" stroke_width=\"2pt\"/>"})
  void
  axesBecomeDimensions(String attributes, String expected) throws Exception {
    becomes("<axis " + attributes + "/>", expected);
  }

  @Test
  void aDimensionOfNumbersHasADomainOfAllItsVariables() throws Exception {
    becomes("<layer kind='line' x='d' y='a'/><layer kind='line' x='d' y='b'/>",
        "<intervalDomain date=\"true\" id=\"domain_1\"><variableReference ref=\"d\"/></intervalDomain><intervalDomain "
            + "id=\"domain_2\"><variableReference ref=\"a\"/><variableReference ref=\"b\"/></intervalDomain>");
  }

  @Test
  void aDimensionOfTextsHasADomainOfCategories() throws Exception {
    becomes("<layer kind='bar' x='t' y='a'/>",
        "<categoricalDomain id=\"domain_1\"><variableReference ref=\"t\"/></categoricalDomain>");
  }

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value =
          {"<legend title='L'/> ! <legend id=\"frame_legend_1\" style=\"frame_legend_1s\" tickTextStyle=\"frame_legend_1_texts\"><legendTarget target=\"element_bar_1_color\"/><legendTarget target=\"element_line_1\"/><label style=\"frame_legend_1_label\"><text>L</text></label></legend>",
              "<legend explains='color'/> ! <legendTarget target=\"element_bar_1_color\"/></legend>",
              "<legend position='top'/> ! <location method=\"0\" part=\"2\" value=\"0%\"/></legend>",
              "<legend left='5'/> ! <location method=\"0\" part=\"0\" value=\"5pt\"/></legend>",
              "<legend/> ! <extension legend1=\"frame_legend_1\"/>",
              "<legend/><legend/> ! <extension legend1=\"frame_legend_1\" legend2=\"frame_legend_2\"/>"})
  void
  legendsExplainGroupsAndNamedLayers(String legend, String expected) throws Exception {
    becomes("<layer kind='bar' name='N' x='t' y='a' colorby='u'/><layer kind='line' name='M' x='t' y='a'/>"
            + "<layer kind='line' x='t' y='b'/>" + legend,
        expected);
  }

  @Test
  void aLegendThatStandsNowhereIsNone() throws Exception {
    assertFalse(upgraded(DATA + "<layer kind='bar' x='t' colorby='u'/><legend position='none'/>").contains("legend"));
  }

  @ParameterizedTest
  @CsvSource(delimiter = '!', quoteCharacter = '`',
      value = {"<heading kind='title' text='T' bold='yes' italic='no' align='right' font='serif' size='9' color='red'/> ! <style color=\"#FF0000\" font_family=\"serif\" font_size=\"9pt\" font_style=\"normal\" font_weight=\"bold\" id=\"frame_title_1_label\" textAlignment=\"right\"/>",
          "<heading kind='subtitle' text='T'/> ! <extension subtitle=\"frame_subtitle_1\"/>",
          "<heading kind='footnote' text='1'/><heading kind='footnote' text='2'/> ! <extension footnote1=\"frame_footnote_1\" footnote2=\"frame_footnote_2\"/>",
          "<reference axis='y' at='2*x' name='R' dash='dashed'/> ! <lineGuide id=\"lineGuide1\" name=\"R\" style=\"lineGuide1s\" y=\"2*x\"/>",
          "<curve function='sin(x)'/> ! <functionGuide id=\"functionGuide1\" style=\"functionGuide1s\" value=\"sin(x)\"/>",
          "<view phi='1' theta='2' zeta='3' distance='4'/> ! <rectangularTransform distance=\"4\" phi=\"1\" theta=\"2\" zeta=\"3\"/>",
          "<view frame='yes'/> ! <frameGuide complete=\"true\"/>",
          "<panels columns='t|u' rows='d'/> ! <faceting id=\"faceting0\" method=\"cross\"><cross><variableReference ref=\"t\"/><variableReference ref=\"d\"/><variableReference ref=\"u\"/><unity/></cross></faceting>",
          "<panels rows='t|u' method='nest'/> ! <cross><unity/><nest><variableReference ref=\"t\"/><variableReference ref=\"u\"/></nest></cross>",
          "<panels columns='t' gap='1'/> ! <facetLevel gap=\"1%\" id=\"facetLabel_panel_1\" level=\"1\"><axis opposite=\"true\" style=\"facetLabel_panel_1s\"><label><text>T</text></label></axis></facetLevel>",
          "<panels columns='t' labels='no'/> ! <style id=\"facetLabel_panel_1s\" visible=\"false\"/>",
          "<panels columns='t' topdown='no' aspect='2'/> ! <facetLayout cellAspect=\"2\" method=\"1\" topDown=\"false\">"})
  void
  theRestBecomes(String old, String expected) throws Exception {
    becomes(old, expected);
  }

  @Test
  void aNoteStandsWhereItSaysAndKeepsItsLines() throws Exception {
    becomes("<heading kind='note' text='a&#10;b' top='4'/>",
        "<text>a\nb</text></label><location method=\"0\" part=\"2\" value=\"4pt\"/></labelFrame>");
  }

  @Test
  void textsOfRowsBecomeNumbersWithRelabels() throws Exception {
    String upgraded = upgraded("<variables names='t|d' kinds='string|date'/>"
        + "<source name='s' kind='embedded' columns='t|d|n'>x|1970-01-02|1\ny|.|.\nx||2.0</source>");
    assertTrue(upgraded.contains("<data>1;86400;1\n2;;\n1;;2\n</data>"), upgraded);
    assertTrue(upgraded.contains("<relabel from=\"1\" to=\"x\"/><relabel from=\"2\" to=\"y\"/>"), upgraded);
  }

  @Test
  void rowsOfAVariableWithRelabelsHoldNumbers() throws Exception {
    assertTrue(upgraded("<variables names='t' kinds='string'/><relabels variable='t' values='1=x|2=y'/>"
        + "<source name='s' kind='embedded' columns='t'>2\n1</source>")
                   .contains("<data>2\n1\n</data>"));
  }

  @Test
  void anIdThatANameHasIsNotGivenAgain() throws Exception {
    assertTrue(upgraded("<source name='element_bar_1'/><variables names='domain_1'/><layer kind='bar' x='domain_1'/>")
                   .contains("<intervalDomain id=\"domain_2\"><variableReference ref=\"domain_1\"/></intervalDomain>"));
  }

  @Test
  void elementsMayStandInAnyOrder() throws Exception {
    String[] parts = {"<source name='s'/>", "<variables names='a'/>", "<format variables='a' decimals='1'/>",
        "<layer kind='line' x='a' name='L'/>", "<axis of='x' min='1'/>", "<legend/>"};
    StringBuilder reversed = new StringBuilder();
    for (int at = parts.length; at-- > 0;) reversed.append(parts[at]);
    assertEquals(upgraded(String.join("", parts)), upgraded(reversed.toString()));
  }
}
