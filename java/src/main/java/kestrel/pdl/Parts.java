package kestrel.pdl;

import java.util.HashMap;
import java.util.Map;
import kestrel.markup.MarkupElement;

/** What all writers of a chart's markup add to: the root, the graph, the named styles, and the numbers of ids. */
final class Parts {
  /** The id of the style that holds all named ones. */
  private static final String CONTAINER = "container";

  private static final String HIDDEN = "hidden";

  final MarkupElement root = new MarkupElement("visualization");
  final MarkupElement graph = root.add("graph");
  final MarkupElement extension;
  private final MarkupElement container = root.add("style").set("id", CONTAINER);
  private final Map<String, Integer> styles = new HashMap<>();
  private final Map<String, Integer> numbers = new HashMap<>();

  Parts() {
    extension = root.add("extension");
  }

  /** Adds a named style and gives its id: the one that is wished for, with a number where that is taken. */
  String style(String wish, Style style) {
    int taken = styles.merge(wish, 1, Integer::sum) - 1;
    String id = taken == 0 ? wish : wish + "_" + taken;
    MarkupElement named = container.add("style").set("id", id);
    style.attributes.forEach(named::set);
    return id;
  }

  String style(String wish) {
    return style(wish, new Style());
  }

  /** How often this was asked for the prefix before. */
  int number(String prefix) {
    return numbers.merge(prefix, 1, Integer::sum) - 1;
  }

  String idFrom0(String prefix) {
    return prefix + number(prefix);
  }

  String idFrom1(String prefix) {
    return prefix + (number(prefix) + 1);
  }

  /** Hides `part` in all panels but those of a category. */
  void only(MarkupElement part, Only only, Panels panels) {
    if (only == null) return;
    if (!styles.containsKey(HIDDEN)) style(HIDDEN, new Style().with("visible", "false"));
    int level = panels.levels().indexOf(only.variable()) + 1;
    part.add("conditionalStyle").set("style", HIDDEN).set("when", "facet" + level + " != \"" + only.code() + "\"");
  }
}
