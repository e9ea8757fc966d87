package kestrel.markup;

import java.util.ArrayList;
import java.util.List;
import java.util.SortedMap;
import java.util.TreeMap;

/** An element of the current markup as it is being built: children, or a text. */
public final class MarkupElement {
  /** The namespace of the chart markup. */
  public static final String NAMESPACE = "http://xml.vexa.example/visualization";

  private final String name;
  private final SortedMap<String, String> attributes = new TreeMap<>();
  private final List<MarkupElement> children = new ArrayList<>();
  private String text;

  public MarkupElement(String name) {
    this.name = name;
  }

  /** Adds a child behind the others and gives it. */
  public MarkupElement add(String childName) {
    return add(new MarkupElement(childName));
  }

  /** Adds a child behind the others and gives it. */
  public MarkupElement add(MarkupElement child) {
    children.add(child);
    return child;
  }

  /** Sets an attribute; null leaves it out. Gives the element itself. */
  public MarkupElement set(String attribute, String value) {
    if (value == null) {
      attributes.remove(attribute);
    } else {
      attributes.put(attribute, value);
    }
    return this;
  }

  /** Gives the element a text. One that has children has none. Gives the element itself. */
  public MarkupElement setText(String content) {
    text = content;
    return this;
  }

  public String name() {
    return name;
  }

  public SortedMap<String, String> attributes() {
    return attributes;
  }

  public String attribute(String attribute) {
    return attributes.get(attribute);
  }

  public List<MarkupElement> children() {
    return children;
  }

  public String text() {
    return text;
  }

  /** The first child of a name, or null. */
  public MarkupElement find(String childName) {
    for (MarkupElement child : children) {
      if (child.name.equals(childName)) return child;
    }
    return null;
  }

  /** The first child of a name, which is added where there is none. */
  public MarkupElement findOrAdd(String childName) {
    MarkupElement child = find(childName);
    return child != null ? child : add(childName);
  }
}
