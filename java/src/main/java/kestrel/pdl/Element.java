package kestrel.pdl;

import java.util.ArrayList;
import java.util.EnumMap;
import java.util.List;
import java.util.Map;

/** A graphic element: what a chart draws of its data. */
final class Element {
  final Place place;
  final ElementKind kind;

  /** What it shows along each direction: one variable, or two where it reaches from one to the other. */
  final Map<Dimension.Name, List<Variable>> positions = new EnumMap<>(Dimension.Name.class);

  /** Where the description says so. */
  final Map<Dimension.Name, Place> positionPlaces = new EnumMap<>(Dimension.Name.class);

  Statistic statistic;

  /** Null where values are not gathered in bins. */
  Bins bins;

  Modifier modifier;
  Variable cluster;
  final List<Aesthetic> aesthetics = new ArrayList<>();
  Variable label;
  Format labelFormat;
  String name;
  Only only;
  Style style = new Style();

  Element(Place place, ElementKind kind) {
    this.place = place;
    this.kind = kind;
  }

  boolean shows(Dimension.Name dimension) {
    return positions.containsKey(dimension);
  }

  boolean isDots() {
    return modifier == Modifier.DOTS || modifier == Modifier.STACKED_DOTS;
  }

  /** Classes of values. The texts hold numbers; null is left to the client. */
  static final class Bins {
    String count;
    String width;
    String start;
  }

  /** How parts at one place are kept apart, by the numbers of the markup. */
  enum Modifier {
    DODGE("dodge", "1"),
    STACK("stack", "3"),
    STACKED_DOTS("stacked dots", "7"),
    DOTS("dots", "8");

    private final String words;
    private final String number;

    Modifier(String words, String number) {
      this.words = words;
      this.number = number;
    }

    String words() {
      return words;
    }

    String number() {
      return number;
    }
  }
}
