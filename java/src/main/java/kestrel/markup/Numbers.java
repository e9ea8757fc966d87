package kestrel.markup;

import java.math.BigDecimal;
import java.math.MathContext;

/** Numbers as the chart markup writes them, whatever the locale. */
public final class Numbers {
  private static final double PLAIN_FROM = 1e-5;
  private static final double PLAIN_TO = 1e16;

  private Numbers() {}

  /** The shortest text that reads back the same: plain from 0.00001 to 10000000000000000, else with an exponent. */
  public static String text(double number) {
    if (Double.isNaN(number)) return "NaN";
    if (Double.isInfinite(number)) return number > 0 ? "INF" : "-INF";
    if (number == 0) return 1 / number < 0 ? "-0" : "0";
    BigDecimal shortest = shortest(number).stripTrailingZeros();
    double magnitude = Math.abs(number);
    if (magnitude >= PLAIN_FROM && magnitude <= PLAIN_TO) return shortest.toPlainString();
    int exponent = shortest.precision() - shortest.scale() - 1;
    return shortest.movePointLeft(exponent).toPlainString() + "e" + exponent;
  }

  // Not Double.toString, which before Java 19 gives a digit too many for some numbers.
  private static BigDecimal shortest(double number) {
    BigDecimal exact = new BigDecimal(number);
    for (int digits = 1; digits < 17; ++digits) {
      BigDecimal rounded = exact.round(new MathContext(digits));
      if (rounded.doubleValue() == number) return rounded;
    }
    return exact.round(new MathContext(17));
  }
}
