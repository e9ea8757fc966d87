package kestrel.lumoml14;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeSet;
import javax.xml.parsers.DocumentBuilderFactory;
import kestrel.support.Schemas;
import org.junit.jupiter.api.BeforeAll;
import org.junit.jupiter.api.Test;
import org.w3c.dom.Document;
import org.w3c.dom.Element;
import org.w3c.dom.NodeList;

/** The schema of LumoML 1.4 and the upgrade say the same. */
class VocabularyTest {
  private static Document schema;

  @BeforeAll
  static void readSchema() throws Exception {
    schema = DocumentBuilderFactory.newInstance().newDocumentBuilder().parse(
        Schemas.sourceDirectory().resolve("schema/lumoml14.xsd").toFile());
  }

  @Test
  void theSchemaHasTheElements() {
    Set<String> inSchema = new TreeSet<>();
    for (Element element : all(schema.getDocumentElement(), "xs:element")) inSchema.add(element.getAttribute("name"));
    assertEquals(new TreeSet<>(Vocabulary.elements()), inSchema);
  }

  @Test
  void theSchemaHasTheAttributesOfEachElement() {
    for (String element : Vocabulary.elements()) {
      assertEquals(new TreeSet<>(Vocabulary.attributesOf(element)), attributesOf(element), element);
    }
  }

  @Test
  void theSchemaHasTheWordsInTheirOrder() {
    Map<String, Map<String, ?>> tables = Map.ofEntries(Map.entry("truth", Words.TRUTH),
        Map.entry("sourceKind", Words.SOURCES), Map.entry("dimension", Words.DIMENSIONS),
        Map.entry("dash", Words.DASHES), Map.entry("shape", Words.SHAPES), Map.entry("scale", Words.SCALES),
        Map.entry("arrangement", Words.ARRANGEMENTS), Map.entry("statistic", Words.STATISTICS),
        Map.entry("alignment", Words.ALIGNMENTS), Map.entry("place", Words.PLACES), Map.entry("side", Words.SIDES),
        Map.entry("order", Words.ORDERS), Map.entry("panelMethod", Words.PANEL_METHODS),
        Map.entry("reflection", Words.REFLECTIONS), Map.entry("overlap", Words.OVERLAPS));
    tables.forEach((type, words) -> assertEquals(new ArrayList<>(words.keySet()), wordsOf(type), type));
  }

  private static Set<String> attributesOf(String element) {
    Set<String> names = new TreeSet<>();
    Element owner = element.equals("graph") ? named("xs:element", element) : named("xs:complexType", element);
    for (Element attribute : all(owner, "xs:attribute")) names.add(attribute.getAttribute("name"));
    for (Element group : all(owner, "xs:attributeGroup")) {
      for (Element attribute : all(named("xs:attributeGroup", group.getAttribute("ref")), "xs:attribute")) {
        names.add(attribute.getAttribute("name"));
      }
    }
    return names;
  }

  private static List<String> wordsOf(String type) {
    List<String> words = new ArrayList<>();
    for (Element word : all(named("xs:simpleType", type), "xs:enumeration")) words.add(word.getAttribute("value"));
    return words;
  }

  private static Element named(String tag, String name) {
    return all(schema.getDocumentElement(), tag)
        .stream()
        .filter(each -> each.getAttribute("name").equals(name))
        .findFirst()
        .orElseThrow();
  }

  private static List<Element> all(Element owner, String tag) {
    List<Element> elements = new ArrayList<>();
    NodeList nodes = owner.getElementsByTagName(tag);
    for (int at = 0; at < nodes.getLength(); ++at) elements.add((Element) nodes.item(at));
    return elements;
  }
}
