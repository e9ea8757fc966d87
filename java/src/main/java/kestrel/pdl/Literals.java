package kestrel.pdl;

import java.util.Map;
import kestrel.markup.Numbers;
import kestrel.pdl.PdlParser.LengthContext;
import kestrel.pdl.PdlParser.NameContext;
import kestrel.pdl.PdlParser.NumberContext;
import kestrel.pdl.PdlParser.TextContext;
import org.antlr.v4.runtime.Token;

/** What strings, names, numbers and lengths stand for. */
final class Literals {
  private static final Map<Character, String> ESCAPES = Map.of('"', "\"", '\\', "\\", 'n', "\n", 't', "\t");

  private Literals() {}

  static String text(TextContext text) {
    return decoded(text.getStart());
  }

  static String name(NameContext name) {
    Token word = name.getStart();
    if (word.getType() != PdlParser.QUOTED_NAME) return word.getText();
    String quoted = word.getText();
    check(quoted, Place.of(word));
    return quoted.substring(1, quoted.length() - 1);
  }

  static double number(NumberContext number) {
    return finite(number.getText(), Place.of(number));
  }

  static double finite(String digits, Place place) {
    double value = Double.parseDouble(digits);
    if (Double.isInfinite(value)) {
      throw new Refusal(place, "found the number " + Wording.quoted(digits) + ", expected one below 1.8e308");
    }
    return value;
  }

  static double positive(NumberContext number, String what) {
    double value = number(number);
    if (value > 0) return value;
    throw new Refusal(Place.of(number), "found " + number.getText() + ", expected a positive number for " + what);
  }

  /** A whole number from 0 or 1 to a bound. */
  static int whole(NumberContext number, int least, int greatest, String what) {
    double value = number(number);
    if (value == Math.rint(value) && value >= least && value <= greatest) return (int) value;
    throw new Refusal(Place.of(number),
        "found " + number.getText() + ", expected a whole number from " + least + " to " + greatest + " for " + what);
  }

  /** A number and its unit, the number in its shortest form. */
  static String length(LengthContext length) {
    String written = length.getText();
    int unit = written.endsWith("%") ? written.length() - 1 : written.length() - 2;
    return Numbers.text(finite(written.substring(0, unit), Place.of(length))) + written.substring(unit);
  }

  private static String decoded(Token string) {
    String written = string.getText();
    Place place = Place.of(string);
    StringBuilder text = new StringBuilder();
    int at = 1;
    while (at < written.length() - 1) {
      int character = written.codePointAt(at);
      Place here = place.plus(written.codePointCount(0, at));
      int end = character == '\\' ? endOfEscape(written, at, here) : at + Character.charCount(character);
      String part = character == '\\' ? escaped(written.substring(at + 1, end), here) : written.substring(at, end);
      check(part, here);
      text.append(part);
      at = end;
    }
    return text.toString();
  }

  private static int endOfEscape(String written, int backslash, Place place) {
    if (written.charAt(backslash + 1) != 'u') {
      return backslash + 1 + Character.charCount(written.codePointAt(backslash + 1));
    }
    int end = written.indexOf('}', backslash);
    if (end < 0 || end - backslash > 9 || written.charAt(backslash + 2) != '{') throw badEscape("\\u", place);
    return end + 1;
  }

  private static String escaped(String escape, Place place) {
    String simple = ESCAPES.get(escape.charAt(0));
    if (simple != null) return simple;
    if (!escape.matches("u\\{[0-9A-Fa-f]{1,6}\\}")) throw badEscape("\\" + escape, place);
    int character = Integer.parseInt(escape.substring(2, escape.length() - 1), 16);
    if (!Character.isValidCodePoint(character)) throw badEscape("\\" + escape, place);
    return Character.toString(character);
  }

  private static Refusal badEscape(String escape, Place place) {
    return new Refusal(
        place, "found " + Wording.quoted(escape) + " in a string, expected \\\", \\\\, \\n, \\t or \\u{1F427}");
  }

  /** Refuses what the chart's markup cannot hold. */
  private static void check(String text, Place place) {
    int characters = 0;
    int length;
    for (int at = 0; at < text.length(); at += length) {
      int character = text.codePointAt(at);
      length = Character.charCount(character);
      if (!isInMarkup(character)) {
        throw new Refusal(place.plus(characters),
            "found " + Wording.character(character) + ", which no chart can hold, expected another character");
      }
      ++characters;
    }
  }

  private static boolean isInMarkup(int character) {
    return character == '\t' || character == '\n' || character == '\r' || (character >= 0x20 && character <= 0xD7FF)
        || (character >= 0xE000 && character <= 0xFFFD) || character >= 0x10000;
  }
}
