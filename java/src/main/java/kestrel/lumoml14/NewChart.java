package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.HashMap;
import java.util.HashSet;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/** The chart in the current markup as the rules fill it. */
final class NewChart {
  private static final String VERSION = "2.8";

  private final MarkupElement visualization = new MarkupElement("visualization");
  private final MarkupElement graph = new MarkupElement("graph").set("id", "frame_data_1");
  private final MarkupElement coordinates = new MarkupElement("coordinates").set("id", "coordinates0");
  private final MarkupElement container = new MarkupElement("style").set("id", "container");
  private final MarkupElement extension = new MarkupElement("extension");
  private final Map<String, Variable> variables = new LinkedHashMap<>();
  private final Map<String, MarkupElement> styles = new HashMap<>();
  private final Map<String, Integer> counters = new LinkedHashMap<>();
  private final Set<String> names = new HashSet<>();
  private final List<MarkupElement> aesthetics = new ArrayList<>();

  NewChart() {
    visualization.set("id", "frame_graph_1").set("version", VERSION);
    graph.add(coordinates);
  }

  MarkupElement visualization() {
    return visualization;
  }

  MarkupElement graph() {
    return graph;
  }

  MarkupElement coordinates() {
    return coordinates;
  }

  /** Names the special parts of the chart. */
  MarkupElement extension() {
    return extension;
  }

  /** What a legend can explain: the aesthetics, and the elements that have a name and no aesthetic. */
  List<MarkupElement> explained() {
    return aesthetics;
  }

  /** A new named style. */
  MarkupElement addStyle(String id) {
    MarkupElement style = container.add("style").set("id", id);
    styles.put(id, style);
    return style;
  }

  /** The named style of an element that has one. */
  MarkupElement styleOf(MarkupElement element) {
    return styles.get(element.attribute("style"));
  }

  /** The prefix with the next number, from 1, that makes it an id which no name of the old chart has. */
  String nextId(String prefix) {
    String id;
    do {
      id = prefix + counters.merge(prefix, 1, Integer::sum);
    } while (names.contains(id));
    return id;
  }

  /** A name of the old chart that becomes an id. */
  void takeName(String name) {
    names.add(name);
  }

  void add(Variable variable) {
    variables.put(variable.name(), variable);
    takeName(variable.name());
    visualization.add(variable.element());
  }

  boolean hasVariable(String name) {
    return variables.containsKey(name);
  }

  Iterable<Variable> variables() {
    return variables.values();
  }

  /** The variable that an attribute names; null where there is no such attribute. */
  Variable variable(OldElement element, String attribute) throws ConversionException {
    String name = element.value(attribute);
    return name == null ? null : named(element, attribute, name);
  }

  List<Variable> variables(OldElement element, String attribute) throws ConversionException {
    List<Variable> named = new ArrayList<>();
    for (String name : element.list(attribute)) named.add(named(element, attribute, name));
    return named;
  }

  private Variable named(OldElement element, String attribute, String name) throws ConversionException {
    Variable variable = variables.get(name);
    if (variable == null) {
      throw element.malformed(attribute, name,
          variables.isEmpty()
              ? "the chart has no variables"
              : "the chart has no such variable, but " + OldElement.cut(String.join(", ", variables.keySet())));
    }
    return variable;
  }

  /** The whole chart, once all rules have run. */
  MarkupElement finished() {
    visualization.add(graph);
    if (!container.children().isEmpty()) visualization.add(container);
    if (!extension.attributeNames().isEmpty()) visualization.add(extension);
    return visualization;
  }
}
