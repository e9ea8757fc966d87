package kestrel.pdl;

/** The scale of a dimension and the bounds of what it measures. What is null is left to the client. */
final class Scale {
  /** By the numbers that the markup has for them. */
  enum Method {
    LINEAR("1"),
    LOG("2"),
    POWER("3"),
    SYMMETRIC_LOG("4"),
    SYMMETRIC_POWER("5");

    private final String number;

    Method(String number) {
      this.number = number;
    }

    String number() {
      return number;
    }
  }

  final Place place;
  Method method;

  /** The base of logarithms, or the exponent of powers. */
  Double base;

  boolean reverse;
  String origin;
  String minimum;
  String maximum;
  boolean exact;
  Boolean nice;
  String lowerMargin;
  String upperMargin;

  Scale(Place place) {
    this.place = place;
  }

  boolean hasRange() {
    return minimum != null || maximum != null;
  }

  boolean isScale() {
    return method != null || reverse || origin != null;
  }
}
