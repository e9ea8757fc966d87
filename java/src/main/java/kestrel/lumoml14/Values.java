package kestrel.lumoml14;

import java.time.DateTimeException;
import java.time.LocalDate;
import java.time.LocalDateTime;
import java.time.ZoneOffset;
import java.util.ArrayList;
import java.util.HexFormat;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.regex.Pattern;
import kestrel.markup.Numbers;

/** The forms in which LumoML 1.4 writes values. Each reader gives null for a text that does not have its form. */
final class Values {
  private static final Pattern NUMBER =
      Pattern.compile("[+-]?(\\d{1,400}(\\.\\d{0,400})?|\\.\\d{1,400})([eE][+-]?\\d{1,3})?");
  private static final Pattern COUNT = Pattern.compile("\\d{1,9}");
  private static final Pattern PART = Pattern.compile("\\d{1,3}");
  private static final double LONGEST = 100_000;
  private static final HexFormat HEX = HexFormat.of().withUpperCase();

  /** At most 15 digits, from 0.00001 on: what is written so is its own shortest form. */
  private static final Pattern SHORTEST = Pattern.compile("-?(0|[1-9]\\d{0,7})(\\.(?!00000)\\d{0,6}[1-9])?");

  private static final Map<String, String> NAMED_COLORS =
      Map.ofEntries(Map.entry("none", "transparent"), Map.entry("black", "#000000"), Map.entry("white", "#FFFFFF"),
          Map.entry("grey", "#808080"), Map.entry("lightgrey", "#D3D3D3"), Map.entry("darkgrey", "#404040"),
          Map.entry("red", "#FF0000"), Map.entry("green", "#008000"), Map.entry("blue", "#0000FF"),
          Map.entry("yellow", "#FFFF00"), Map.entry("orange", "#FFA500"), Map.entry("purple", "#800080"),
          Map.entry("brown", "#A52A2A"), Map.entry("cyan", "#00FFFF"), Map.entry("magenta", "#FF00FF"));

  private Values() {}

  static Double number(String text) {
    if (!NUMBER.matcher(text).matches()) return null;
    double number = Double.parseDouble(text);
    return Double.isFinite(number) ? number : null;
  }

  /** A number in the form of the current markup. */
  static String numberText(String text) {
    if (SHORTEST.matcher(text).matches()) return text;
    Double number = number(text);
    return number == null ? null : Numbers.text(number);
  }

  static Integer count(String text) {
    return COUNT.matcher(text).matches() ? Integer.valueOf(text) : null;
  }

  /** A number of points as a length. */
  static String points(String text) {
    Double number = number(text);
    return number == null || number < 0 || number > LONGEST ? null : Numbers.text(number) + "pt";
  }

  /** A number from 0 to 100 as a length. */
  static String percent(String text) {
    Double number = share(text);
    return number == null ? null : Numbers.text(number) + "%";
  }

  /** A number from 0 to 100. */
  static Double share(String text) {
    Double number = number(text);
    return number == null || number < 0 || number > 100 ? null : number;
  }

  /** Red, green and blue from 0 to 255 with commas between them, or the name of a colour. */
  static String color(String text) {
    String named = NAMED_COLORS.get(text);
    if (named != null) return named;
    String[] parts = text.split(",", -1);
    if (parts.length != 3) return null;
    StringBuilder color = new StringBuilder("#");
    for (String part : parts) {
      if (!PART.matcher(part.strip()).matches() || Integer.parseInt(part.strip()) > 255) return null;
      int value = Integer.parseInt(part.strip());
      color.append(HEX.toHighHexDigit((byte) value)).append(HEX.toLowHexDigit((byte) value));
    }
    return color.toString();
  }

  /** A date such as 2012-01-31, or with a time such as 2012-01-31T12:30, as seconds since 1970. */
  static String seconds(String text) {
    try {
      LocalDateTime time = text.indexOf('T') < 0 ? LocalDate.parse(text).atStartOfDay() : LocalDateTime.parse(text);
      return Long.toString(time.toEpochSecond(ZoneOffset.UTC));
    } catch (DateTimeException malformed) {
      return null;
    }
  }

  /** The items of a list with `|` between them; `\` takes the meaning from the character behind it. Never null. */
  static List<String> list(String text) {
    List<String> items = new ArrayList<>();
    StringBuilder item = new StringBuilder();
    for (int at = 0; at < text.length(); ++at) {
      char character = text.charAt(at);
      if (character == '\\' && at + 1 < text.length()) {
        item.append(text.charAt(++at));
      } else if (character == '|') {
        items.add(item.toString());
        item.setLength(0);
      } else {
        item.append(character);
      }
    }
    items.add(item.toString());
    return items;
  }

  /** A list of `from=to`; a second item for the same `from` makes it malformed. */
  static Map<String, String> pairs(String text) {
    Map<String, String> pairs = new LinkedHashMap<>();
    int start = 0;
    int equals = -1;
    for (int at = 0; at <= text.length(); ++at) {
      char character = at < text.length() ? text.charAt(at) : '|';
      if (character == '\\') {
        ++at;
      } else if (character == '=' && equals < 0) {
        equals = at;
      } else if (character == '|') {
        if (equals < 0) return null;
        String from = list(text.substring(start, equals)).get(0);
        String to = list(text.substring(equals + 1, Math.min(at, text.length()))).get(0);
        if (pairs.putIfAbsent(from, to) != null) return null;
        start = at + 1;
        equals = -1;
      }
    }
    return equals < 0 ? pairs : null;
  }
}
