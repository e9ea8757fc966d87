package kestrel.pdl;

import java.util.LinkedHashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;

/** Varies the look of an element by a variable. */
final class Aesthetic {
  /** What of the look varies; the tags of the markup are the words of the language. */
  enum Kind {
    COLOR("color"),
    SHAPE("symbol"),
    PATTERN("pattern"),
    DASH("stroke_dasharray"),
    SIZE(null),
    TRANSPARENCY(null);

    private final String property;

    Kind(String property) {
      this.property = property;
    }

    static Kind of(String word) {
      return valueOf(word.toUpperCase(Locale.ROOT));
    }

    String word() {
      return name().toLowerCase(Locale.ROOT);
    }

    /** The property of style that a cycle of it has; null where it varies between two ends. */
    String property() {
      return property;
    }
  }

  final Kind kind;
  final Variable variable;

  /** The looks that categories take one after the other; empty where the chart's own ones are taken. */
  List<String> values = List.of();

  /** The looks of single categories, by their codes. */
  final Map<String, String> mappings = new LinkedHashMap<>();

  String low;
  String high;

  Aesthetic(Kind kind, Variable variable) {
    this.kind = kind;
    this.variable = variable;
  }
}
