package kestrel.adapter;

import java.util.Arrays;
import java.util.List;
import java.util.regex.Pattern;
import java.util.stream.Collectors;

/**
 * A place of a template that a request fills. `values` are what a statistic slot takes, where it does not take all;
 * `fallback` is what stands there where the request has nothing, or null.
 */
record Slot(
    String name, Kind kind, boolean required, boolean several, boolean sets, List<String> values, String fallback) {
  private static final Pattern NUMBER = Pattern.compile("-?\\d{1,15}(\\.\\d{1,15})?");

  /** What a slot takes. */
  enum Kind {
    VARIABLE("variable", "a variable"),
    CATEGORICAL("categorical", "a categorical variable"),
    SCALE("scale", "a scale variable"),
    WEIGHT("weight", "a variable that weights the cases"),
    STATISTIC("statistic", "a statistic"),
    NUMBER("number", "a number"),
    LABEL("label", "a text");

    private final String word;
    private final String meaning;

    Kind(String word, String meaning) {
      this.word = word;
      this.meaning = meaning;
    }

    static Kind of(String word) {
      return Arrays.stream(values()).filter(kind -> kind.word.equals(word)).findFirst().orElse(null);
    }

    static String words() {
      return Arrays.stream(values()).map(kind -> kind.word).collect(Collectors.joining(", "));
    }

    String meaning() {
      return meaning;
    }

    boolean takesVariables() {
      return this == VARIABLE || this == CATEGORICAL || this == SCALE || this == WEIGHT;
    }
  }

  /** Whether a text that is no variable fills the slot. */
  boolean takes(String value) {
    return switch (kind) {
      case STATISTIC -> Vocabulary.STATISTICS.containsKey(value) && (values.isEmpty() || values.contains(value));
      case NUMBER -> NUMBER.matcher(value).matches();
      default -> true;
    };
  }

  /** What the slot takes, for the user. */
  String wanted() {
    if (kind != Kind.STATISTIC) return kind.meaning();
    return "one of " + String.join(", ", values.isEmpty() ? Vocabulary.statistics() : values);
    }
  }
