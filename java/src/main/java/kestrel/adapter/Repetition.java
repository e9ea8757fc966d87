package kestrel.adapter;

import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.List;
import java.util.Map;
import java.util.Set;
import kestrel.adapter.Refusal.Kind;
import kestrel.pdl.Wording;

/**
 * Draws what shows a slot once for each of the variables that it holds. Each variable after the first gets a variable
 * of its own in the chart, and so do domains and legends.
 */
final class Repetition {
  /** Elements with data that a chart may come to. */
  private static final int MAXIMUM_LAYERS = 1000;

  private static final String[] COLORS = {
      "#0072B2", "#D55E00", "#009E73", "#CC79A7", "#E69F00", "#56B4E9", "#F0E442", "#000000"};
  private static final String STACKED = "3";

  private final Node chart;
  private final Set<String> ids = new HashSet<>();

  private Repetition(Node chart) {
    this.chart = chart;
    for (Node node : chart.all()) ids.add(node.id());
  }

  /** Fills the variable of the slot, and makes those that it lacks. */
  static void repeat(Node chart, Slot slot, List<Filling> fillings) throws Refusal {
    if (!fillings.isEmpty()) new Repetition(chart).run(slot, fillings);
  }

  private void run(Slot slot, List<Filling> fillings) throws Refusal {
    Node variable = variable(":slot", slot.name());
    Node labeling = variable(":labeling", slot.name());
    List<Node> layers = chart.all().stream().filter(node -> isLayerOf(node, variable.id())).toList();
    if (layers.size() * fillings.size() > MAXIMUM_LAYERS) {
      throw new Refusal(Kind.RequestInvalid,
          "the variables of the slot " + Wording.quoted(slot.name()) + " would be drawn "
              + layers.size() * fillings.size() + " times; " + MAXIMUM_LAYERS + " are the most");
    }
    List<Node> variables = copies(variable, fillings.size());
    for (int at = 0; at < variables.size(); ++at) SlotVariable.fill(variables.get(at), fillings.get(at), slot);
    limit(variable.id(), fillings.get(0).set());
    List<Node> labels = labeling == null ? List.of() : copies(labeling, fillings.size());
    for (int at = 0; at < labels.size(); ++at) SlotVariable.label(labels.get(at), labelingOf(fillings, at));
    if (fillings.size() == 1) return;
    repeatReferences(variables);
    for (Node layer : layers) repeatLayer(layer, slot.name(), fillings, variables, labels);
  }

  /** Where some have one, those without take the first. */
  private static Filling labelingOf(List<Filling> fillings, int at) {
    Filling own = fillings.get(at);
    if (!own.labeling().isEmpty()) return own;
    String first = fillings.stream().map(Filling::labeling).filter(name -> !name.isEmpty()).findFirst().orElse("");
    return own.labeledBy(first);
  }

  private Node variable(String role, String slot) {
    return chart.children.stream().filter(child -> child.get(role).equals(slot)).findFirst().orElse(null);
  }

  private static boolean isLayerOf(Node node, String variable) {
    return Vocabulary.LAYERS.contains(node.name)
        && node.all().stream().anyMatch(part -> part.get("variable").equals(variable));
  }

  /** The element itself and copies of it, each with an id of its own. */
  private List<Node> copies(Node first, int count) {
    List<Node> all = new ArrayList<>(List.of(first));
    for (int number = 2; number <= count; ++number) {
      Node copy = first.copy().set("id", freshId(first.id(), number));
      all.get(all.size() - 1).addBehind(copy);
      all.add(copy);
    }
    return all;
  }

  private String freshId(String id, int number) {
    String fresh = id + "_" + number;
    while (!ids.add(fresh)) fresh += "_";
    return fresh;
  }

  /** Domains and panels have all of the variables. */
  private void repeatReferences(List<Node> variables) {
    String first = variables.get(0).id();
    for (Node node : chart.all()) {
      if (!node.name.equals("variableReference") || !node.get("ref").equals(first)) continue;
      Node last = node;
      for (Node variable : variables.subList(1, variables.size())) {
        Node more = Node.inChart(node.name, node).set("ref", variable.id());
        last.addBehind(more);
        last = more;
      }
    }
  }

  /** Of a set of dichotomies only the value that counts is shown. */
  private void limit(String variable, Filling.ResponseSet set) {
    if (set == null || set.counted() == null) return;
    for (Node node : chart.all()) {
      boolean ofSet = node.name.equals("variableReference") && node.get("ref").equals(variable)
          && node.parent().name.equals("categoricalDomain");
      if (!ofSet || node.parent().child(Vocabulary.Space.CHART, "categories") != null) continue;
      Node categories = Node.inChart("categories", node);
      categories.text = Placeholders.meant(set.counted());
      node.parent().add(categories);
    }
  }

  private void repeatLayer(Node layer, String slot, List<Filling> fillings, List<Node> variables, List<Node> labels) {
    boolean colored = layer.children.stream().noneMatch(child -> child.name.equals("color"));
    boolean set = fillings.get(0).set() != null;
    if (set && layer.name.equals("interval")) layer.attributes.putIfAbsent("positionModifier", STACKED);
    Colors colors = colored && !set ? new Colors(styleOf(layer)) : null;
    Node pristine = layer.copy();
    Map<String, List<String>> copiedIds = new HashMap<>();
    name(layer, slot, fillings.get(0));
    Node last = layer;
    for (int at = 1; at < fillings.size(); ++at) {
      Map<String, String> renamed = new HashMap<>();
      renamed.put(variables.get(0).id(), variables.get(at).id());
      if (!labels.isEmpty()) renamed.put(labels.get(0).id(), labels.get(at).id());
      if (colors != null) renamed.put(pristine.get("style"), colors.next(at + 1).id());
      Node copy = pristine.copy();
      renameIds(copy, at + 1, renamed, copiedIds);
      name(copy, slot, fillings.get(at));
      last.addBehind(copy);
      last = copy;
    }
    repeatTargets(copiedIds);
  }

  private static void name(Node layer, String slot, Filling filling) {
    layer.attributes.putIfAbsent("name", "{" + slot + "}");
    for (Node node : layer.all()) {
      node.attributes.replaceAll((name, value) -> Placeholders.replacedOne(value, slot, filling.label()));
      node.text = Placeholders.replacedOne(node.text, slot, filling.label());
    }
  }

  private void renameIds(Node copy, int number, Map<String, String> renamed, Map<String, List<String>> copiedIds) {
    List<Node> all = copy.all();
    for (Node node : all) {
      if (node.id().isEmpty()) continue;
      String fresh = freshId(node.id(), number);
      renamed.put(node.id(), fresh);
      copiedIds.computeIfAbsent(node.id(), id -> new ArrayList<>()).add(fresh);
      node.set("id", fresh);
    }
    for (Node node : all) {
      node.attributes.replaceAll(
          (name, value) -> Vocabulary.isReference(name) ? renamed.getOrDefault(value, value) : value);
    }
  }

  /** The style of a layer, which it gets where it has none. */
  private Node styleOf(Node layer) {
    String id = layer.get("style");
    for (Node node : chart.all()) {
      if (!id.isEmpty() && node.name.equals("style") && node.id().equals(id)) return node;
    }
    if (id.isEmpty()) {
      id = (layer.id().isEmpty() ? layer.name : layer.id()) + "s";
      while (!ids.add(id)) id += "_";
      layer.set("style", id);
    }
    return chart.add(Node.inChart("style", chart).set("id", id));
  }

  /** The copies of a layer are told apart by their colours: that of the template, then those of the palette. */
  private final class Colors {
    private final Node first;
    private final List<String> others = new ArrayList<>();
    private Node last;

    Colors(Node style) {
      first = style;
      last = style;
      style.attributes.putIfAbsent("color", COLORS[0]);
      for (String color : COLORS) {
        if (!color.equalsIgnoreCase(style.get("color"))) others.add(color);
      }
    }

    /** The style of the copy with that number; the first copy is 2. */
    Node next(int number) {
      String color = others.get((number - 2) % others.size());
      Node copy = first.copy().set("id", freshId(first.id(), number)).set("color", color);
      last.addBehind(copy);
      last = copy;
      return copy;
    }
  }

  /** Legends explain each copy of what they explain. */
  private void repeatTargets(Map<String, List<String>> copiedIds) {
    for (Node node : chart.all()) {
      List<String> copies = copiedIds.get(node.get("target"));
      if (!node.name.equals("legendTarget") || copies == null) continue;
      Node last = node;
      for (String copy : copies) {
        Node more = Node.inChart(node.name, node).set("target", copy);
        last.addBehind(more);
        last = more;
      }
    }
  }
}
