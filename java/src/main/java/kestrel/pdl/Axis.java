package kestrel.pdl;

/** What is drawn of a dimension. What is null is left to the client. */
final class Axis {
  /** Null takes the label of the variable that the dimension shows, an empty one gives none. */
  String label;

  boolean hidden;
  boolean opposite;
  boolean derived;
  boolean gridlines;
  Style style = new Style();
  final Ticks ticks = new Ticks();

  /** The marks of an axis and their labels. */
  static final class Ticks {
    Double step;
    Integer every;
    Double angle;
    String length;
    boolean stagger;
    Format format;
    Style style = new Style();
  }
}
