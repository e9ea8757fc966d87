package kestrel.pdl;

/** What the values of a variable are. */
enum Kind {
  CATEGORICAL("categorical"),
  NUMERIC("numeric"),
  DATE("a date"),
  /** The number of the row. */
  CASE("the number of the row");

  private final String phrase;

  Kind(String phrase) {
    this.phrase = phrase;
  }

  /** As in "species is categorical". */
  String phrase() {
    return phrase;
  }

  boolean isCategorical() {
    return this == CATEGORICAL;
  }

  /** Of the kinds that one dimension can measure together. */
  Kind measured() {
    return this == CASE ? NUMERIC : this;
  }
}
