package kestrel.pdl;

/** What a chart says of the legend of one variable. */
final class Legend {
  final Place place;
  String title;
  boolean hidden;

  Legend(Place place) {
    this.place = place;
  }
}
