package kestrel.adapter;

import java.util.ArrayDeque;
import java.util.ArrayList;
import java.util.Deque;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * Takes out of a chart what its conditions rule out and what belongs to empty slots, then what refers to that: an
 * element that means nothing without it goes, too; of any other only the reference goes.
 */
final class Pruning {
  private final Node chart;
  private final Map<String, List<Filling>> filled;
  /** How many elements have an id, for ids need not be unique. */
  private final Map<String, Integer> bearers = new HashMap<>();
  private final Map<String, List<Node>> referrers = new HashMap<>();
  /** Ids that nothing has any more. */
  private final Deque<String> gone = new ArrayDeque<>();

  private Pruning(Node chart, Map<String, List<Filling>> filled) {
    this.chart = chart;
    this.filled = filled;
    for (Node node : chart.all()) {
      if (!node.id().isEmpty()) bearers.merge(node.id(), 1, Integer::sum);
      node.attributes.forEach((name, value) -> {
        if (Vocabulary.isReference(name)) referrers.computeIfAbsent(value, id -> new ArrayList<>()).add(node);
      });
    }
  }

  static void prune(Node chart, Map<String, List<Filling>> filled) {
    Pruning pruning = new Pruning(chart, filled);
    for (Node node : chart.all()) {
      if (pruning.isThere(node)) pruning.visit(node);
    }
    pruning.follow();
  }

  private void visit(Node node) {
    if (!holds(node) || isEmptyVariable(node) || namesEmpty(node.text)) {
      remove(node);
      return;
    }
    node.attributes.values().removeIf(this::namesEmpty);
  }

  private boolean holds(Node node) {
    for (String slot : condition(node, ":if")) {
      if (count(slot) == 0) return false;
    }
    for (String slot : condition(node, ":unless")) {
      if (count(slot) > 0) return false;
    }
    for (String slot : condition(node, ":several")) {
      if (count(slot) < 2) return false;
    }
    return true;
  }

  private static List<String> condition(Node node, String name) {
    return node.has(name) ? Placeholders.names(node.get(name)) : List.of();
  }

  private int count(String slot) {
    return filled.get(slot).size();
  }

  private boolean isEmptyVariable(Node node) {
    if (node.has(":slot")) return count(node.get(":slot")) == 0;
    if (!node.has(":labeling")) return false;
    List<Filling> labeled = filled.get(node.get(":labeling"));
    boolean none = labeled.stream().allMatch(filling -> filling.labeling().isEmpty());
    // One that names a column itself has that where the request names none.
    return labeled.isEmpty() || (none && !node.has("sourceName"));
  }

  private boolean namesEmpty(String text) {
    if (text.indexOf('{') < 0) return false;
    return Placeholders.in(text).stream().anyMatch(placeholder -> count(Placeholders.slotOf(placeholder)) == 0);
  }

  private void remove(Node node) {
    for (Node below : node.all()) {
      if (!below.id().isEmpty() && bearers.merge(below.id(), -1, Integer::sum) == 0) gone.add(below.id());
    }
    Node parent = node.parent();
    node.remove();
    Set<String> needed = Vocabulary.NEEDED.getOrDefault(parent.name, Set.of());
    boolean lacks =
        needed.contains(node.name) && parent.children.stream().noneMatch(left -> needed.contains(left.name));
    if (lacks) remove(parent);
  }

  private void follow() {
    while (!gone.isEmpty()) {
      String id = gone.remove();
      for (Node node : referrers.getOrDefault(id, List.of())) {
        if (isThere(node)) forget(node, id);
      }
    }
  }

  private void forget(Node node, String id) {
    for (Map.Entry<String, String> attribute : List.copyOf(node.attributes.entrySet())) {
      if (!Vocabulary.isReference(attribute.getKey()) || !attribute.getValue().equals(id)) continue;
      if (Vocabulary.isEssential(attribute.getKey())) {
        remove(node);
        return;
      }
      node.attributes.remove(attribute.getKey());
    }
  }

  private boolean isThere(Node node) {
    for (Node above = node; above != null; above = above.parent()) {
      if (above == chart) return true;
    }
    return false;
  }
}
