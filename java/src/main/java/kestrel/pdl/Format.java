package kestrel.pdl;

import kestrel.markup.MarkupElement;

/** How values are shown. What is null is left to the client. */
final class Format {
  Integer minimumDecimals;
  Integer maximumDecimals;
  boolean grouping;
  String prefix;
  String suffix;
  String pattern;
  String missing;

  void writeTo(MarkupElement format) {
    format.set("minimumFractionDigits", minimumDecimals == null ? null : minimumDecimals.toString())
        .set("maximumFractionDigits", maximumDecimals == null ? null : maximumDecimals.toString())
        .set("useGrouping", grouping ? "true" : null)
        .set("prefix", prefix)
        .set("suffix", suffix)
        .set("pattern", pattern)
        .set("errorCharacter", missing);
  }
}
