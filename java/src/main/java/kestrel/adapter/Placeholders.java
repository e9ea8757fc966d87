package kestrel.adapter;

import java.util.ArrayList;
import java.util.List;
import java.util.function.UnaryOperator;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/**
 * `{slot}` in the texts of a template, and `{slot.words}` for a statistic in words; braces that are meant as such stand
 * twice.
 */
final class Placeholders {
  private static final Pattern PART = Pattern.compile("\\{\\{|\\}\\}|\\{([A-Za-z][A-Za-z0-9_]*(?:\\.words)?)\\}|[{}]");

  private static final String WORDS = ".words";

  private Placeholders() {}

  /** The slot that stands between the braces. */
  static String slotOf(String placeholder) {
    return inWords(placeholder) ? placeholder.substring(0, placeholder.length() - WORDS.length()) : placeholder;
  }

  static boolean inWords(String placeholder) {
    return placeholder.endsWith(WORDS);
  }

  /** What stands between braces in a text; null where a brace stands alone. */
  static List<String> in(String text) {
    List<String> names = new ArrayList<>();
    Matcher part = PART.matcher(text);
    while (part.find()) {
      if (part.group(1) != null) {
        names.add(part.group(1));
      } else if (part.group().length() == 1) {
        return null;
      }
    }
    return names;
  }

  /** The slots of a condition, which stand side by side. */
  static List<String> names(String condition) {
    return List.of(condition.strip().split("\\s+"));
  }

  /** The text with what stands for each placeholder. */
  static String replaced(String text, UnaryOperator<String> content) {
    return PART.matcher(text).replaceAll(part -> {
      String placeholder = part.group(1);
      return Matcher.quoteReplacement(placeholder != null ? content.apply(placeholder) : part.group().substring(0, 1));
    });
  }

  /** The text as a template has it. */
  static String meant(String content) {
    return content.replace("{", "{{").replace("}", "}}");
  }

  /** The template's text with one slot's content put in; what else there is to replace stays. */
  static String replacedOne(String text, String slot, String content) {
    String kept = meant(content);
    return PART.matcher(text).replaceAll(
        part -> Matcher.quoteReplacement(slot.equals(part.group(1)) ? kept : part.group()));
  }
}
