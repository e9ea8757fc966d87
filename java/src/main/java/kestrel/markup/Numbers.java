package kestrel.markup;

import java.math.BigDecimal;
import java.math.MathContext;
import java.math.RoundingMode;

/** Numbers as the chart markup writes them, whatever the locale. */
public final class Numbers {
  private static final double PLAIN_FROM = 1e-5;
  private static final double PLAIN_TO = 1e16;

  private static final RoundingMode[] MODES = {RoundingMode.HALF_EVEN, RoundingMode.UP, RoundingMode.DOWN};

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

  // Double.toString gives a digit too many for some numbers before Java 19, so it only says where to begin.
  private static BigDecimal shortest(double number) {
    BigDecimal exact = new BigDecimal(number);
    BigDecimal found = new BigDecimal(Double.toString(number)).stripTrailingZeros();
    for (int digits = found.precision(); digits > 0; --digits) {
      BigDecimal shorter = rounded(exact, number, digits);
      if (shorter == null) return found;
      found = shorter;
    }
    return found;
  }

  /** With so many digits the number that reads back the same; null where there is none. */
  private static BigDecimal rounded(BigDecimal exact, double number, int digits) {
    // At a power of two the nearest text may miss the number where its neighbour does not.
    for (RoundingMode mode : MODES) {
      BigDecimal rounded = exact.round(new MathContext(digits, mode));
      if (rounded.doubleValue() == number) return rounded;
    }
    return null;
  }
}
