package kestrel.pdl;

import java.util.List;

/** How messages show what stands in a description. */
public final class Wording {
  private static final int LONGEST = 40;

  private Wording() {}

  /** In double quotes, on one line, and not longer than a line bears. */
  public static String quoted(String text) {
    StringBuilder shown = new StringBuilder("\"");
    int characters = 0;
    int length;
    for (int at = 0; at < text.length(); at += length) {
      int character = text.codePointAt(at);
      length = Character.charCount(character);
      if (++characters > LONGEST) return shown.append("...\"").toString();
      shown.append(isShown(character) ? Character.toString(character) : codeOf(character));
    }
    return shown.append('"').toString();
  }

  /** "the character "%" (U+0025)". */
  static String character(int character) {
    String code = codeOf(character);
    return "the character " + (isShown(character) ? "\"" + Character.toString(character) + "\" (" + code + ")" : code);
  }

  static String codeOf(int character) {
    return String.format("U+%04X", character);
  }

  /** "a, b or c". */
  public static String anyOf(List<String> parts) {
    int last = parts.size() - 1;
    return last <= 0 ? String.join("", parts) : String.join(", ", parts.subList(0, last)) + " or " + parts.get(last);
  }

  private static boolean isShown(int character) {
    return switch (Character.getType(character)) {
      case Character.CONTROL, Character.SURROGATE, Character.UNASSIGNED, Character.LINE_SEPARATOR,
          Character.PARAGRAPH_SEPARATOR, Character.FORMAT, Character.PRIVATE_USE -> false;
      default -> true;
    };
  }
}
