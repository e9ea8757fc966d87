package kestrel.lumoml14;

import kestrel.markup.MarkupElement;

/** A variable of the chart, by its name in the old chart, which is its id in the new one. */
record Variable(String name, Kind kind, String sourceName, MarkupElement element) {
  enum Kind { NUMBER, STRING, DATE, WEIGHT, CASE }

  boolean isCategorical() {
    return kind == Kind.STRING;
  }

  String label() {
    return element.attribute("label");
  }
}
