package kestrel.markup;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.Collections;
import java.util.List;

/**
 * An element of the current markup as it is being built: children, or a text. Large charts have millions of them, so
 * that they hold no more than they need.
 */
public final class MarkupElement {
  /** The namespace of the chart markup. */
  public static final String NAMESPACE = "http://xml.vexa.example/visualization";

  private static final String[] NONE = {};

  private final String name;
  /** Names, in their order, and values by turns. */
  private String[] attributes = NONE;
  private List<MarkupElement> children = Collections.emptyList();
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
    if (children.isEmpty()) children = new ArrayList<>(2);
    children.add(child);
    return child;
  }

  /** Sets an attribute; null leaves it out. Gives the element itself. */
  public MarkupElement set(String attribute, String value) {
    int at = 0;
    while (at < attributes.length && attributes[at].compareTo(attribute) < 0) at += 2;
    boolean there = at < attributes.length && attributes[at].equals(attribute);
    if (value == null) {
      if (there) attributes = resized(at, 2, 0);
    } else {
      if (!there) attributes = resized(at, 0, 2);
      attributes[at] = attribute;
      attributes[at + 1] = value;
    }
    return this;
  }

  private String[] resized(int at, int without, int room) {
    String[] resized = Arrays.copyOf(attributes, attributes.length - without + room);
    System.arraycopy(attributes, at + without, resized, at + room, attributes.length - at - without);
    return resized;
  }

  /** Gives the element a text. One that has children has none. Gives the element itself. */
  public MarkupElement setText(String content) {
    text = content;
    return this;
  }

  public String name() {
    return name;
  }

  /** The names of the attributes, in their order. */
  public List<String> attributeNames() {
    List<String> names = new ArrayList<>(attributes.length / 2);
    for (int at = 0; at < attributes.length; at += 2) names.add(attributes[at]);
    return names;
  }

  /** The value of an attribute; null where there is none. */
  public String attribute(String attribute) {
    for (int at = 0; at < attributes.length; at += 2) {
      if (attributes[at].equals(attribute)) return attributes[at + 1];
    }
    return null;
  }

  public List<MarkupElement> children() {
    return Collections.unmodifiableList(children);
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
