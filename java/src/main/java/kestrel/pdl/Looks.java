package kestrel.pdl;

import java.util.List;
import java.util.regex.Pattern;

/** Checks the texts that looks are made of. */
final class Looks {
  static final List<String> SYMBOLS =
      List.of("circle", "square", "triangle", "diamond", "cross", "plus", "star", "ibeam");

  private static final Pattern COLOR = Pattern.compile("#[0-9A-Fa-f]{6}|[A-Za-z]{1,30}");
  private static final String LENGTH = "[0-9]{1,6}(\\.[0-9]{1,6})?(px|pt|mm|cm|in|%)";
  private static final Pattern DASH = Pattern.compile("(" + LENGTH + "(," + LENGTH + "){0,20})?");

  private Looks() {}

  static String color(String text, Place place) {
    if (COLOR.matcher(text).matches()) return text;
    throw refusal(text, place, "a color such as \"#0072B2\" or \"transparent\"");
  }

  static String dash(String text, Place place) {
    if (DASH.matcher(text).matches()) return text;
    throw refusal(text, place, "lengths of dashes and gaps such as \"6pt,3pt\", or \"\" for a solid line");
  }

  static String symbol(String text, Place place) {
    if (SYMBOLS.contains(text)) return text;
    throw refusal(text, place, "a symbol (" + Wording.anyOf(SYMBOLS) + ")" + Suggestions.hint(text, SYMBOLS));
  }

  private static Refusal refusal(String text, Place place, String expected) {
    return new Refusal(place, "found " + Wording.quoted(text) + ", expected " + expected);
  }
}
