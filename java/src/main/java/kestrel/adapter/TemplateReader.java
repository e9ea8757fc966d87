package kestrel.adapter;

import java.util.HashMap;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Optional;
import java.util.Set;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import kestrel.adapter.Refusal.Kind;
import kestrel.pdl.Wording;

/** Reads the declaration of a template, and sees to it that its chart keeps the rules of templates. */
final class TemplateReader {
  /** Elements of a template. */
  private static final int MAXIMUM_ELEMENTS = 20_000;

  private static final int MAJOR = 1;
  private static final int MINOR = 0;
  private static final double CHART_VERSION = 2.8;
  private static final Pattern VERSION = Pattern.compile("(\\d{1,4})\\.(\\d{1,4})");
  private static final Pattern CHART_NUMBER = Pattern.compile("\\d{1,4}(\\.\\d{1,4})?");
  private static final Pattern NAME = Pattern.compile("[A-Za-z][A-Za-z0-9_]{0,63}");

  /** What a reply itself has, so that who looks for these finds the right ones. */
  private static final Set<String> OF_REPLIES = Set.of("Lumoml", "mapInfo", "styleSheet");
  private static final Set<String> SLOT_ATTRIBUTES =
      Set.of("name", "kind", "required", "several", "sets", "values", "default");
  private static final Set<String> DECLARATION_ATTRIBUTES = Set.of("version", "title", "map");
  private static final Set<String> CONDITIONS = Set.of(":if", ":unless", ":several");

  private final String origin;
  private final Node chart;
  private final Map<String, Slot> slots = new LinkedHashMap<>();
  private final Map<String, Node> declarations = new HashMap<>();
  private final Map<String, String> used = new HashMap<>();

  private TemplateReader(String origin, Node chart) {
    this.origin = origin;
    this.chart = chart;
  }

  /** `origin` names the template in messages. */
  static Template read(String origin, Node root) throws Refusal {
    return new TemplateReader(origin, root).read();
  }

  private Template read() throws Refusal {
    if (!chart.is(Vocabulary.Space.CHART, "visualization")) {
      throw invalid(chart, "the root of a template is visualization in the namespace of charts");
    }
    List<Node> declared =
        chart.children.stream().filter(child -> child.is(Vocabulary.Space.TEMPLATE, "template")).toList();
    if (declared.size() != 1) {
      throw invalid(chart,
          "a template has one element template in the namespace " + Vocabulary.TEMPLATE_NAMESPACE
              + " below its root, this one has " + declared.size());
    }
    Node declaration = declared.get(0);
    checkVersion(declaration);
    readSlots(declaration);
    declaration.remove();
    if (!chart.text.isBlank()) throw invalid(chart, "the root of a template has no text");
    List<Node> all = chart.all();
    if (all.size() > MAXIMUM_ELEMENTS) {
      throw invalid(chart, "a template has " + MAXIMUM_ELEMENTS + " elements at most, this one " + all.size());
    }
    for (Node node : all) check(node);
    for (Slot slot : slots.values()) checkUse(slot);
    return new Template(origin, chart, slots, declaration.get("map").equals("required"));
  }

  private void checkVersion(Node declaration) throws Refusal {
    Matcher version = VERSION.matcher(declaration.get("version"));
    if (!version.matches()) throw invalid(declaration, "a template says its version, such as \"1.0\"");
    int major = Integer.parseInt(version.group(1));
    if (major > MAJOR || (major == MAJOR && Integer.parseInt(version.group(2)) > MINOR)) {
      throw tooNew(declaration,
          "the template has version " + version.group() + "; known are versions up to " + MAJOR + "." + MINOR);
    }
    String ofChart = chart.get("version");
    if (ofChart.isEmpty()) return;
    if (!CHART_NUMBER.matcher(ofChart).matches()) {
      throw invalid(chart, "the version of the chart is " + Wording.quoted(ofChart) + ", which is no number");
    }
    if (Double.parseDouble(ofChart) > CHART_VERSION) {
      throw tooNew(chart, "the chart has version " + ofChart + "; known are versions up to " + CHART_VERSION);
    }
  }

  private void readSlots(Node declaration) throws Refusal {
    checkAttributes(declaration, DECLARATION_ATTRIBUTES);
    if (declaration.has("map") && !declaration.get("map").equals("required")) {
      throw invalid(declaration, "map is \"required\" or absent");
    }
    for (Node child : declaration.children) {
      if (!child.is(Vocabulary.Space.TEMPLATE, "slot")) {
        throw invalid(child, "template holds elements slot, not " + Wording.quoted(child.name));
      }
      Slot slot = slot(child);
      if (slots.putIfAbsent(slot.name(), slot) != null) {
        throw invalid(child, "there are two slots " + Wording.quoted(slot.name()));
      }
      declarations.put(slot.name(), child);
    }
  }

  private Slot slot(Node declared) throws Refusal {
    checkAttributes(declared, SLOT_ATTRIBUTES);
    if (!declared.children.isEmpty()) throw invalid(declared, "a slot holds nothing but its meaning as text");
    String name = declared.get("name");
    if (!NAME.matcher(name).matches()) {
      throw invalid(
          declared, "the name of a slot is a letter and then letters, digits and _, not " + Wording.quoted(name));
    }
    Slot.Kind kind = Slot.Kind.of(declared.get("kind"));
    if (kind == null) {
      throw invalid(declared, "the kind " + Wording.quoted(declared.get("kind")) + " is none of " + Slot.Kind.words());
    }
    List<String> values = values(declared, kind);
    Slot slot = new Slot(name, kind, truth(declared, "required"), truth(declared, "several"), truth(declared, "sets"),
        values, declared.has("default") ? declared.get("default") : null);
    checkFits(declared, slot);
    return slot;
  }

  private List<String> values(Node declared, Slot.Kind kind) throws Refusal {
    if (!declared.has("values")) return List.of();
    if (kind != Slot.Kind.STATISTIC) throw invalid(declared, "values go with statistic");
    List<String> values = List.of(declared.get("values").strip().split("\\s*;\\s*"));
    for (String value : values) {
      if (!Vocabulary.STATISTICS.containsKey(value)) {
        throw invalid(declared,
            "there is no statistic " + Wording.quoted(value) + "; there are "
                + String.join(", ", Vocabulary.statistics()));
      }
    }
    return values;
  }

  private void checkFits(Node declared, Slot slot) throws Refusal {
    boolean variables = slot.kind().takesVariables();
    if (slot.sets() && !variables) throw invalid(declared, "sets goes with variables");
    if (slot.sets() && (slot.kind() == Slot.Kind.SCALE || slot.kind() == Slot.Kind.WEIGHT)) {
      throw invalid(declared, "a multiple response set is categorical, which this slot does not take");
    }
    if (slot.several() && (slot.kind() == Slot.Kind.STATISTIC || slot.kind() == Slot.Kind.NUMBER)) {
      throw invalid(declared, "several goes with variables and labels");
    }
    if (slot.fallback() == null) return;
    if (variables) throw invalid(declared, "a slot for variables has no default");
    if (slot.required()) throw invalid(declared, "a slot with a default is never empty, so that it is not required");
    if (!slot.takes(slot.fallback())) {
      throw invalid(declared, "the default " + Wording.quoted(slot.fallback()) + " is none that the slot takes");
    }
  }

  private boolean truth(Node declared, String attribute) throws Refusal {
    String value = declared.get(attribute);
    if (value.equals("true")) return true;
    if (value.isEmpty() || value.equals("false")) return false;
    throw invalid(declared, attribute + " is true or false");
  }

  private void checkAttributes(Node node, Set<String> known) throws Refusal {
    Optional<String> foreign = node.attributes.keySet().stream().filter(name -> !known.contains(name)).findFirst();
    if (foreign.isPresent()) {
      throw invalid(node, node.name + " has no attribute " + Wording.quoted(foreign.get()));
    }
  }

  private void check(Node node) throws Refusal {
    if (node.space != Vocabulary.Space.CHART) {
      throw invalid(node, "the element " + Wording.quoted(node.name) + " is not in the namespace of charts");
    }
    if (OF_REPLIES.contains(node.name)) throw invalid(node, "no chart has an element " + Wording.quoted(node.name));
    if (!node.children.isEmpty() && !node.text.isBlank()) {
      throw invalid(node, "an element of a chart holds elements or a text, not both");
    }
    for (Map.Entry<String, String> attribute : node.attributes.entrySet()) {
      checkAttribute(node, attribute.getKey(), attribute.getValue());
    }
    checkPlaceholders(node, node.text);
  }

  private void checkAttribute(Node node, String name, String value) throws Refusal {
    if (CONDITIONS.contains(name)) {
      if (node == chart) throw invalid(node, "the root of a template is always there");
      for (String slot : Placeholders.names(value)) require(node, slot);
    } else if (name.equals(":slot") || name.equals(":labeling")) {
      checkVariable(node, name, value);
    } else if (name.startsWith(":") || name.startsWith(TreeReader.FOREIGN)) {
      throw invalid(node, "the attribute " + Wording.quoted(name.substring(1)) + " is none of charts and templates");
    } else {
      checkPlaceholders(node, value);
    }
  }

  private void checkVariable(Node node, String role, String name) throws Refusal {
    Slot slot = require(node, name);
    if (!node.name.equals("sourceVariable") || node.parent() != chart) {
      throw invalid(node, role.substring(1) + " goes with a sourceVariable below the root");
    }
    if (!slot.kind().takesVariables()) {
      throw invalid(node,
          "the slot " + Wording.quoted(name) + " takes " + slot.kind().meaning() + "; its place is a text with {" + name
              + "}");
    }
    if (node.id().isEmpty()) throw invalid(node, "the variable of a slot has an id");
    if (node.has(":slot") && node.has(":labeling")) throw invalid(node, "a variable is for slot or for labeling");
    if (used.put(role + name, name) != null) {
      throw invalid(node, "there are two variables for the slot " + Wording.quoted(name));
    }
  }

  private void checkPlaceholders(Node node, String text) throws Refusal {
    List<String> names = Placeholders.in(text);
    if (names == null) {
      throw invalid(node, "a brace that is meant as such is written twice, {{ or }}: " + Wording.quoted(text));
    }
    for (String name : names) {
      Slot slot = require(node, Placeholders.slotOf(name));
      if (Placeholders.inWords(name) && slot.kind() != Slot.Kind.STATISTIC) {
        throw invalid(node,
            "{" + name + "} is for statistics; " + Wording.quoted(slot.name()) + " takes " + slot.kind().meaning());
      }
      used.put(slot.name(), slot.name());
    }
  }

  private Slot require(Node node, String name) throws Refusal {
    Slot slot = slots.get(name);
    if (slot != null) return slot;
    throw invalid(
        node, "there is no slot " + Wording.quoted(name) + "; there are " + String.join(", ", slots.keySet()));
  }

  private void checkUse(Slot slot) throws Refusal {
    boolean variable = slot.kind().takesVariables();
    if (used.containsKey(variable ? ":slot" + slot.name() : slot.name())) return;
    throw invalid(declarations.get(slot.name()),
        "the slot " + Wording.quoted(slot.name()) + " has no place in the chart: "
            + (variable ? "no sourceVariable is for it" : "no text has {" + slot.name() + "}"));
  }

  private Refusal tooNew(Node at, String message) {
    return Template.refusal(origin, Kind.TemplateTooNew, at, message);
  }

  private Refusal invalid(Node at, String message) {
    return Template.refusal(origin, Kind.TemplateInvalid, at, message);
  }
}
