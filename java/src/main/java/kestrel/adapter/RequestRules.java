package kestrel.adapter;

import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.regex.Pattern;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import kestrel.adapter.Refusal.Kind;
import kestrel.adapter.Vocabulary.Space;
import kestrel.pdl.Wording;

/** What a request may be: what its schema says, and the rules that a schema cannot say. */
final class RequestRules {
  /** What an attribute may hold. */
  private enum Values {
    ANY(".*", ""),
    FOLDER(".+", "the folder's name, or the attribute is not there"),
    TRUTH("true|false", "true or false"),
    TRUE("true", "true, or the attribute is not there"),
    LOCATION("local|KOS|file", "local, KOS or file"),
    SHEET_LOCATION("local|KOS", "local or KOS"),
    SET("MultipleDichotomy|MultipleCategory", "MultipleDichotomy or MultipleCategory"),
    CHART_TRUTH("true|false|0|1", "true or false"),
    NUMBER("-?[0-9]{1,9}", "a whole number"),
    COUNT("[0-9]{1,9}", "a whole number from 0");

    final Pattern pattern;
    final String meaning;

    Values(String pattern, String meaning) {
      this.pattern = Pattern.compile(pattern, Pattern.DOTALL);
      this.meaning = meaning;
    }
  }

  /** `children` stand in this order, each once but for the one that is `repeated`. */
  private record Rule(
      Map<String, Values> required, Map<String, Values> optional, List<String> children, String repeated) {
    Rule(Map<String, Values> required, Map<String, Values> optional) {
      this(required, optional, List.of(), "");
    }

    Values of(String attribute) {
      Values values = required.get(attribute);
      return values != null ? values : optional.get(attribute);
    }
  }

  private static final String SPECIFICATION = "templateSpecification";
  private static final String CONTENTS = "templateContents";
  private static final String RESPONSES = "multipleResponseInfo";
  private static final String SHEET = "styleSheetSpecification";
  private static final String FORMAT = "format";
  private static final String FOLDER = "repositoryFolderSpec";

  private static final Map<String, Rule> RULES = Map.ofEntries(
      Map.entry("lumoTemplate", new Rule(Map.of("type", Values.ANY), Map.of(), List.of(SPECIFICATION, SHEET), "")),
      Map.entry(SPECIFICATION,
          new Rule(Map.of("templateName", Values.ANY, "locale", Values.ANY, "location", Values.LOCATION),
              Map.of(FOLDER, Values.FOLDER), List.of(CONTENTS, "map", "mapping"), "mapping")),
      Map.entry(CONTENTS, new Rule(Map.of(), Map.of())),
      Map.entry("map",
          new Rule(Map.of("showAllFeatures", Values.TRUTH),
              Map.of("dataFile", Values.ANY, "dataMapRepositoryFolderSpec", Values.ANY, "dataMapLocation",
                  Values.LOCATION, "referenceMap", Values.ANY, "refMapRepositoryFolderSpec", Values.ANY,
                  "referenceMapLocation", Values.LOCATION, "mapKey", Values.ANY))),
      Map.entry("mapping",
          new Rule(Map.of("slotName", Values.ANY, "slotValue", Values.ANY),
              Map.of("categorical", Values.TRUTH, "labelingVariableName", Values.ANY, "dataSetName", Values.ANY,
                  "slotLabel", Values.ANY, "weight", Values.TRUE, "variableType", Values.SET),
              List.of(RESPONSES, FORMAT), "")),
      Map.entry(RESPONSES,
          new Rule(Map.of("MRSetName", Values.ANY, "enhancedDichotomy", Values.TRUTH),
              Map.of("countedValue", Values.ANY), List.of("variable"), "variable")),
      Map.entry("variable",
          new Rule(
              Map.of("varName", Values.ANY, "varLabel", Values.ANY, "labelingVariableName", Values.ANY), Map.of())),
      Map.entry(SHEET,
          new Rule(
              Map.of("styleSheetName", Values.ANY, "location", Values.SHEET_LOCATION), Map.of(FOLDER, Values.FOLDER))),
      Map.entry(FORMAT,
          new Rule(Map.of(),
              Map.of("id", Values.ANY, "baseFormat", Values.NUMBER, "errorCharacter", Values.ANY,
                  "maximumFractionDigits", Values.COUNT, "minimumFractionDigits", Values.COUNT, "pattern", Values.ANY,
                  "prefix", Values.ANY, "suffix", Values.ANY, "useGrouping", Values.CHART_TRUTH),
              List.of("relabel"), "relabel")),
      Map.entry("relabel", new Rule(Map.of(), Map.of("id", Values.ANY, "from", Values.ANY, "to", Values.ANY))));

  /** Elements of the chart markup; all others are of requests. */
  private static final Set<String> OF_CHARTS = Set.of(FORMAT, "relabel");

  private static final Set<String> OF_TEXTS = Set.of("slotName", "slotValue");

  @FunctionalInterface
  private interface Check {
    void of(Node node) throws Refusal;
  }

  private static final Map<String, Check> FURTHER =
      Map.of(SPECIFICATION, RequestRules::checkPlace, SHEET, RequestRules::checkPlace, CONTENTS,
          RequestRules::checkContents, "map", RequestRules::checkMap, "mapping", RequestRules::checkMapping);

  private RequestRules() {}

  /** `root` is a lumoTemplate. The template in the request is not looked at; it has rules of its own. */
  static void check(Node root) throws Refusal {
    Rule rule = RULES.get(root.name);
    checkAttributes(root, rule);
    if (!root.name.equals(CONTENTS)) checkChildren(root, rule);
    if (!root.text.isBlank()) throw wrong(root, root.name + " holds no text: " + Wording.quoted(root.text.strip()));
    Check check = FURTHER.get(root.name);
    if (check != null) check.of(root);
  }

  private static void checkAttributes(Node node, Rule rule) throws Refusal {
    for (Map.Entry<String, String> attribute : node.attributes.entrySet()) {
      Values values = rule.of(attribute.getKey());
      if (values == null)
        throw wrong(
            node, node.name + " has no attribute " + Wording.quoted(attribute.getKey().replaceFirst("^[:?]", "")));
      if (!values.pattern.matcher(attribute.getValue()).matches()) {
        throw wrong(
            node, attribute.getKey() + " is " + Wording.quoted(attribute.getValue()) + "; it is " + values.meaning);
      }
    }
    List<String> absent = rule.required().keySet().stream().filter(name -> !node.has(name)).sorted().toList();
    if (!absent.isEmpty()) throw wrong(node, node.name + " needs the attribute " + absent.get(0));
  }

  private static void checkChildren(Node node, Rule rule) throws Refusal {
    int reached = -1;
    for (Node child : node.children) {
      boolean own = child.space == (OF_CHARTS.contains(child.name) ? Space.CHART : Space.REQUEST);
      int place = own ? rule.children().indexOf(child.name) : -1;
      if (place < 0) throw wrong(child, node.name + " holds no element " + Wording.quoted(child.name));
      if (place < reached) {
        throw wrong(child, child.name + " stands before " + rule.children().get(reached));
      }
      if (place == reached && !child.name.equals(rule.repeated())) {
        throw wrong(child, "there is one " + child.name + " at most");
      }
      reached = place;
      check(child);
    }
  }

  private static void checkPlace(Node node) throws Refusal {
    if (node.has(FOLDER) && !node.get("location").equals("KOS")) {
      throw wrong(node, FOLDER + " goes with the location \"KOS\"");
    }
  }

  private static void checkContents(Node contents) throws Refusal {
    if (contents.children.size() != 1) throw wrong(contents, CONTENTS + " holds one element, the template");
    if (!contents.parent().get("location").equals("file")) {
      throw wrong(contents, CONTENTS + " goes with the location \"file\"");
    }
  }

  private static void checkMap(Node map) throws Refusal {
    checkMapFile(map, "dataFile", "dataMapLocation", "dataMapRepositoryFolderSpec");
    checkMapFile(map, "referenceMap", "referenceMapLocation", "refMapRepositoryFolderSpec");
    if (!map.has("dataFile") && !map.has("referenceMap")) {
      throw wrong(map, "a map has a dataFile, a referenceMap, or both");
    }
  }

  private static void checkMapFile(Node map, String name, String location, String folder) throws Refusal {
    if (map.has(name) != map.has(location)) throw wrong(map, name + " and " + location + " stand together");
    if (map.has(folder) != map.get(location).equals("KOS")) {
      throw wrong(map, folder + " stands beside the location \"KOS\", and only there");
    }
  }

  private static void checkMapping(Node mapping) throws Refusal {
    if (!mapping.has("categorical")) {
      String other =
          Stream.concat(mapping.attributes.keySet().stream(), mapping.children.stream().map(each -> each.name))
              .filter(name -> !OF_TEXTS.contains(name))
              .collect(Collectors.joining(", "));
      if (!other.isEmpty()) throw wrong(mapping, "only the mapping of a variable, which has categorical, has " + other);
    }
    Node responses = mapping.child(Space.REQUEST, RESPONSES);
    if (mapping.has("variableType") != (responses != null)) {
      throw wrong(mapping, "variableType and " + RESPONSES + " stand together");
    }
    if (responses != null && responses.has("countedValue") != mapping.get("variableType").equals("MultipleDichotomy")) {
      throw wrong(responses, "countedValue stands beside the type \"MultipleDichotomy\", and only there");
    }
  }

  private static Refusal wrong(Node node, String message) {
    return Request.at(Kind.RequestInvalid, node, message);
  }
}
