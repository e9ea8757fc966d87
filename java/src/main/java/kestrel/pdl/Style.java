package kestrel.pdl;

import java.util.SortedMap;
import java.util.TreeMap;

/** Properties of a look, by the names and in the form of the markup. */
final class Style {
  final SortedMap<String, String> attributes = new TreeMap<>();

  Style with(String attribute, String value) {
    attributes.put(attribute, value);
    return this;
  }

  /** These properties, and those of the other where this one has none. */
  Style over(Style other) {
    Style both = new Style();
    both.attributes.putAll(other.attributes);
    both.attributes.putAll(attributes);
    return both;
  }
}
