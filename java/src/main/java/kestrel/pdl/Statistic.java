package kestrel.pdl;

import java.util.Locale;

/** What is computed of the values at each place, by the numbers that the markup has for it. */
enum Statistic {
  SUM("1"),
  MEAN("2"),
  PERCENT("3"),
  MEDIAN("4"),
  MINIMUM("5"),
  MAXIMUM("6"),
  ERROR("7"),
  COUNT("10"),
  CUMULATIVE_COUNT("11"),
  CUMULATIVE_PERCENT("12"),
  /** An element of its own in the markup. */
  DENSITY(null);

  private final String number;

  Statistic(String number) {
    this.number = number;
  }

  static Statistic of(PdlParser.StatisticContext statistic) {
    String word = statistic.method.getText().toUpperCase(Locale.ROOT);
    return valueOf(statistic.cumulative == null ? word : "CUMULATIVE_" + word);
  }

  String number() {
    return number;
  }

  String words() {
    return name().toLowerCase(Locale.ROOT).replace('_', ' ');
  }

  /** Whether it is about how many rows there are, and not about the values of a variable. */
  boolean countsRows() {
    return switch (this) {
      case COUNT, PERCENT, CUMULATIVE_COUNT, CUMULATIVE_PERCENT, DENSITY -> true;
      default -> false;
    };
  }
}
