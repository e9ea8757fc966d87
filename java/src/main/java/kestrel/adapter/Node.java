package kestrel.adapter;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.function.Consumer;

/**
 * An element of a request or of a template, which can be changed. Attributes without a namespace go by their names,
 * those of templates by a colon and their name; others are not kept.
 */
final class Node {
  final Vocabulary.Space space;
  final String name;
  final int line;
  final int column;
  final Map<String, String> attributes = new LinkedHashMap<>();
  final List<Node> children = new ArrayList<>();
  String text = "";
  private Node parent;

  Node(Vocabulary.Space space, String name, int line, int column) {
    this.space = space;
    this.name = name;
    this.line = line;
    this.column = column;
  }

  /** A new element of the chart, at the place of another. */
  static Node inChart(String name, Node at) {
    return new Node(Vocabulary.Space.CHART, name, at.line, at.column);
  }

  boolean is(Vocabulary.Space wanted, String wantedName) {
    return space == wanted && name.equals(wantedName);
  }

  /** The value of an attribute; empty where there is none. */
  String get(String attribute) {
    return attributes.getOrDefault(attribute, "");
  }

  boolean has(String attribute) {
    return attributes.containsKey(attribute);
  }

  Node set(String attribute, String value) {
    attributes.put(attribute, value);
    return this;
  }

  String id() {
    return get("id");
  }

  Node parent() {
    return parent;
  }

  Node add(Node child) {
    return insert(children.size(), child);
  }

  private Node insert(int at, Node child) {
    child.parent = this;
    children.add(at, child);
    return child;
  }

  /** Puts another element directly behind this one. */
  Node addBehind(Node sibling) {
    return parent.insert(place() + 1, sibling);
  }

  /** Takes the element out of its parent. */
  void remove() {
    parent.children.remove(place());
    parent = null;
  }

  private int place() {
    for (int at = 0; at < parent.children.size(); ++at) {
      if (parent.children.get(at) == this) return at;
    }
    throw new IllegalStateException("an element is not among its parent's children");
  }

  /** The first child of a name, or null. */
  Node child(Vocabulary.Space wanted, String wantedName) {
    for (Node child : children) {
      if (child.is(wanted, wantedName)) return child;
    }
    return null;
  }

  Node childOrNew(String wantedName) {
    Node child = child(Vocabulary.Space.CHART, wantedName);
    return child != null ? child : add(inChart(wantedName, this));
  }

  /** The element and all below it, in the order of the document, as they are now. */
  List<Node> all() {
    List<Node> found = new ArrayList<>();
    each(found::add);
    return found;
  }

  /** Readers bound the depth. */
  private void each(Consumer<Node> visitor) {
    visitor.accept(this);
    for (Node child : children) child.each(visitor);
  }

  Node copy() {
    Node copy = new Node(space, name, line, column);
    copy.attributes.putAll(attributes);
    copy.text = text;
    for (Node child : children) copy.add(child.copy());
    return copy;
  }
}
