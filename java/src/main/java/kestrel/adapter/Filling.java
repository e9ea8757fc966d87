package kestrel.adapter;

/**
 * What fills a slot. For a variable `value` is the name of its column; for all others it is their text. A set is
 * filled in by its members, each of which knows the set.
 */
record Filling(String value, String label, boolean categorical, boolean weight, String dataSet, String labeling,
    Node format, ResponseSet set) {
  /** A multiple response set. `counted` is null for a set of categories. */
  record ResponseSet(String name, String label, String counted, boolean enhanced) {}

  static Filling ofText(String value) {
    return new Filling(value, value, false, false, "", "", null, null);
  }

  /** The same with the variable that labels the cases. */
  Filling labeledBy(String variable) {
    return new Filling(value, label, categorical, weight, dataSet, variable, format, set);
  }
}
