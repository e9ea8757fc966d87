package kestrel.golden;

import static kestrel.support.TemplateRequests.template;
import static kestrel.support.TemplateRequests.whole;
import static org.junit.jupiter.api.Assertions.assertThrows;

import java.nio.charset.StandardCharsets;
import java.nio.file.Path;
import kestrel.support.Goldens;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;
import org.xml.sax.SAXException;

/** The schema of templates, which is the schema of charts with slots, and is kept so by this test. */
class TemplateSchemaTest {
  private static final Path SCHEMAS = Schemas.sourceDirectory().resolve("schema");

  private static final String TYPES = "  <xs:simpleType name=\"slotText\">\n"
      + "    <xs:annotation><xs:documentation>A text with {slot} in it.</xs:documentation></xs:annotation>\n"
      + "    <xs:restriction base=\"xs:string\">\n"
      + "      <xs:pattern value=\".*\\{[A-Za-z][A-Za-z0-9_]*(\\.words)?\\}.*\"/>\n"
      + "    </xs:restriction>\n"
      + "  </xs:simpleType>\n";

  /** The schema of charts, in which every value may come from a slot and every element may have conditions. */
  private static String derived() {
    String charts = new String(Schemas.read(SCHEMAS.resolve("lumoml.xsd")), StandardCharsets.UTF_8);
    StringBuilder types = new StringBuilder(TYPES);
    for (String type : new String[] {"boolean", "double", "int", "unsignedInt"}) {
      charts = charts.replaceAll("(<xs:attribute name=\"\\w+\" type=\")xs:" + type + "\"", "$1" + type + "OrSlot\"");
      types.append("  <xs:simpleType name=\"").append(type).append("OrSlot\">\n    <xs:union memberTypes=\"xs:");
      types.append(type).append(" slotText\"/>\n  </xs:simpleType>\n");
    }
    return charts
        .replace("      The chart markup. Children",
            "      The markup of visualization templates: the chart markup with slots.\n      Children")
        .replace("           targetNamespace=",
            "           xmlns:t=\"http://xml.vexa.example/visualization-template\"\n           targetNamespace=")
        .replace("  <xs:element name=\"visualization\" type=\"visualization\"/>\n",
            "  <xs:import namespace=\"http://xml.vexa.example/visualization-template\" "
                + "schemaLocation=\"visualization-template-slots.xsd\"/>\n\n"
                + "  <xs:element name=\"visualization\" type=\"visualization\"/>\n\n" + types)
        .replace("<xs:restriction base=\"xs:int\"/>", "<xs:union memberTypes=\"xs:int slotText\"/>")
        .replaceAll(
            "( *)<xs:attribute name=\"id\" type=\"xs:string\"/>\n", "$0$1<xs:attributeGroup ref=\"t:conditions\"/>\n")
        .replaceAll("( *)<xs:attribute name=\"sourceName\" type=\"xs:string\"/>\n",
            "$0$1<xs:attribute ref=\"t:slot\"/>\n$1<xs:attribute ref=\"t:labeling\"/>\n")
        .replaceAll("( *)<xs:element name=\"swingController\" type=\"swingController\"/>\n",
            "$0$1<xs:element ref=\"t:template\"/>\n");
  }

  private static void validate(String template) throws SAXException {
    Schemas.validate("visualization-template.xsd", template.getBytes(StandardCharsets.UTF_8));
  }

  @Test
  void isTheSchemaOfChartsWithSlots() throws Exception {
    Goldens.compare(SCHEMAS.resolve("visualization-template.xsd"), derived());
  }

  @Test
  void acceptsSlotsInNumbersAndTextsAndConditionsOnEveryElement() throws Exception {
    validate(template("s statistic required='true'; n number; x scale several='true'; L label default='a'",
        "<graph t:if='n x'><interval><summaryStatistic method='{s}' t:unless='n'/></interval>"
            + "<line><labeling dimension='{n}'/></line></graph>"
            + "<sourceVariable id='v' t:slot='x'/><sourceVariable id='l' t:labeling='x' t:several='x'/>"
            + "<labelFrame><label><text t:if='L'>{L}</text></label></labelFrame>"));
  }

  @ParameterizedTest
  @ValueSource(
      strings = {"<t:template/>", "<t:template version='1.1'/>",
          "<t:template version='1.0'><t:slot name='x' kind='date'/></t:template>",
          "<t:template version='1.0'><t:slot name='1x' kind='label'/></t:template>",
          "<t:template version='1.0'><t:slot name='x' kind='label'/><t:slot name='x' kind='label'/></t:template>",
          "<t:template version='1.0'><t:slot name='x' kind='label' required='yes'/></t:template>",
          "<graph t:when='x'/>", "<graph><t:template version='1.0'/></graph>", "<sourceVariable id='v' t:slot='a b'/>",
          "<legend t:slot='x'/>", "<graph><interval><summaryStatistic method='count'/></interval></graph>"})
  void
  refusesWhatIsNoTemplate(String content) {
    assertThrows(SAXException.class, () -> validate(whole(content)));
  }
}
