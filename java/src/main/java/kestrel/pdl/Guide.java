package kestrel.pdl;

/** Something drawn over the elements that depends on no data. */
final class Guide {
  enum Kind { REFERENCE, FUNCTION, PLANE, FRAME }

  final Place place;
  final Kind kind;

  /** Of a reference line. */
  Dimension.Name dimension;

  /** Where the reference line is, the function, or the number of the dimension that the plane leaves out. */
  String value;

  String name;
  Only only;
  Style style = new Style();

  Guide(Place place, Kind kind) {
    this.place = place;
    this.kind = kind;
  }
}
