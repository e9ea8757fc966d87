package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.function.Function;
import kestrel.converter.ConversionException;

/**
 * An element of an old chart. It remembers which of its attributes were asked for, so that the others can be reported.
 * The readers of attributes give null where the attribute is absent, and refuse one whose value is malformed.
 */
final class OldElement {
  private static final int QUOTED = 60;

  private final String name;
  private final int line;
  private final int column;
  private final String[] names;
  private final String[] values;
  private final boolean[] asked;
  private StringBuilder text;
  private int textLine;

  OldElement(String name, int line, int column, List<String> names, List<String> values) {
    this.name = name;
    this.line = line;
    this.column = column;
    this.names = names.toArray(String[] ::new);
    this.values = values.toArray(String[] ::new);
    asked = new boolean[this.names.length];
    textLine = line;
  }

  String name() {
    return name;
  }

  int line() {
    return line;
  }

  int column() {
    return column;
  }

  void addText(String more, int atLine) {
    if (text == null) {
      text = new StringBuilder();
      textLine = atLine;
    }
    text.append(more);
  }

  CharSequence text() {
    return text == null ? "" : text;
  }

  /** Whether there is more than white space. */
  boolean hasText() {
    return text != null && text.chars().anyMatch(character -> !Character.isWhitespace(character));
  }

  /** The line on which the text begins. */
  int textLine() {
    return textLine;
  }

  /** Attributes that nobody has asked for. */
  List<String> unasked() {
    List<String> unasked = new ArrayList<>();
    for (int at = 0; at < names.length; ++at) {
      if (!asked[at]) unasked.add(names[at]);
    }
    return unasked;
  }

  boolean has(String attribute) {
    return find(attribute) >= 0;
  }

  /** For an element that is done with as a whole. */
  void askAll() {
    Arrays.fill(asked, true);
  }

  String value(String attribute) {
    int at = find(attribute);
    if (at < 0) return null;
    asked[at] = true;
    return values[at];
  }

  private int find(String attribute) {
    for (int at = 0; at < names.length; ++at) {
      if (names[at].equals(attribute)) return at;
    }
    return -1;
  }

  String required(String attribute) throws ConversionException {
    String value = value(attribute);
    if (value == null || value.isBlank()) {
      throw refusal("\"" + name + "\" needs the attribute \"" + attribute + "\"");
    }
    return value;
  }

  /** A number in the form of the markup. */
  String number(String attribute) throws ConversionException {
    return read(attribute, Values::numberText, "a number such as 2.5");
  }

  Integer count(String attribute) throws ConversionException {
    return read(attribute, Values::count, "a whole number such as 5");
  }

  String points(String attribute) throws ConversionException {
    return read(attribute, Values::points, "a number of points such as 12");
  }

  String percent(String attribute) throws ConversionException {
    return read(attribute, Values::percent, "a percentage from 0 to 100");
  }

  Double share(String attribute) throws ConversionException {
    return read(attribute, Values::share, "a percentage from 0 to 100");
  }

  String color(String attribute) throws ConversionException {
    return read(attribute, Values::color, "a colour such as 0,114,178 or black");
  }

  /** Whether the attribute says yes. */
  boolean says(String attribute) throws ConversionException {
    return "true".equals(truth(attribute));
  }

  /** "true" or "false". */
  String truth(String attribute) throws ConversionException {
    return word(attribute, Words.TRUTH);
  }

  /** What the word in the attribute stands for. */
  <T> T word(String attribute, Map<String, T> words) throws ConversionException {
    return read(attribute, words::get, "one of " + String.join(", ", words.keySet()));
  }

  /** Never null: an absent list is empty. */
  List<String> list(String attribute) {
    String value = value(attribute);
    return value == null ? List.of() : Values.list(value);
  }

  /** Each item of a list by a reader. Never null: an absent list is empty. */
  <T> List<T> list(String attribute, Function<String, T> reader, String wanted) throws ConversionException {
    List<T> values = new ArrayList<>();
    for (String item : list(attribute)) {
      T value = reader.apply(item);
      if (value == null) throw malformed(attribute, item, "each item has to be " + wanted);
      values.add(value);
    }
    return values;
  }

  /** Never null: an absent list is empty. */
  Map<String, String> pairs(String attribute) throws ConversionException {
    Map<String, String> pairs = read(attribute, Values::pairs, "a list of different values such as 1=male|2=female");
    return pairs == null ? Map.of() : pairs;
  }

  private <T> T read(String attribute, Function<String, T> reader, String wanted) throws ConversionException {
    String value = value(attribute);
    if (value == null) return null;
    T result = reader.apply(value.strip());
    if (result == null) throw malformed(attribute, value, "it has to be " + wanted);
    return result;
  }

  ConversionException malformed(String attribute, String value, String advice) {
    return refusal("attribute \"" + attribute + "\" of \"" + name + "\" is \"" + cut(value) + "\"; " + advice);
  }

  ConversionException refusal(String message) {
    return ConversionException.at(line, column, message);
  }

  /** A value short enough for a message. */
  static String cut(String value) {
    return value.length() <= QUOTED ? value : value.substring(0, QUOTED) + "...";
  }
}
