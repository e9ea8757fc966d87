package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTimeoutPreemptively;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.time.Duration;
import kestrel.support.Descriptions;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.function.ThrowingSupplier;

/** Whatever a description is, it is refused or translated soon, and without exhausting stack or memory. */
class LimitTest {
  private static final String BEGIN = "chart { variable a numeric point { x a y a } ";
  private static final Duration BOUND = Duration.ofSeconds(60);

  private static <T> T soon(ThrowingSupplier<T> work) {
    return assertTimeoutPreemptively(BOUND, work);
  }

  @Test
  void aHundredParenthesesAreRead() throws Exception {
    String expression = "(".repeat(100) + "a"
        + ")".repeat(100);
    String value = "value=\""
        + "(".repeat(100) + "sourceVariable0"
        + ")".repeat(100) + "\"";
    assertTrue(Descriptions.translated(BEGIN + "variable b = " + expression + " }").contains(value));
  }

  @Test
  void aHundredThousandParenthesesAreRefused() {
    assertEquals("line 1, column 159: found 101 parentheses within each other, expected no more than 100",
        soon(()
                 -> Descriptions.refusal(BEGIN + "variable b = "
                     + "(".repeat(100_000) + "a")));
  }

  @Test
  void aHundredThousandCallsAreRefused() {
    assertTrue(soon(()
                        -> Descriptions.refusal(BEGIN + "function "
                            + "log(".repeat(100_000)))
                   .endsWith("found 101 parentheses within each other, expected no more than 100"));
  }

  @Test
  void aHundredThousandBracesAreRefused() {
    assertTrue(soon(()
                        -> Descriptions.refusal("chart "
                            + "{".repeat(100_000)))
                   .endsWith("found more than 100000 words and signs, expected fewer"));
  }

  @Test
  void fiftyMegabytesAreRefused() {
    assertEquals("line 1, column 1: found a description of 50000000 characters, expected no more than 1000000",
        soon(() -> Descriptions.refusal("#".repeat(50_000_000))));
  }

  @Test
  void aLongSumTakesNoLongerThanItsLength() throws Exception {
    String sum = soon(()
                          -> Descriptions.translated(BEGIN + "variable b = a"
                              + " + a".repeat(40_000) + " }"));
    assertTrue(sum.contains("sourceVariable0 + sourceVariable0 + "));
  }

  @Test
  void manySignsAndPowersDoNotNest() throws Exception {
    String signs = "-".repeat(20_001) + "a"
        + "^2".repeat(20_000);
    assertTrue(soon(() -> Descriptions.translated(BEGIN + "variable b = " + signs + " }"))
                   .contains("value=\"-sourceVariable0^2^2"));
  }

  @Test
  void manyCategoriesAreFoundByTheirTexts() throws Exception {
    StringBuilder categories = new StringBuilder("categories \"0\"");
    StringBuilder order = new StringBuilder("order \"19999\"");
    for (int at = 1; at < 20_000; ++at) {
      categories.append(", \"").append(at).append('"');
      order.append(", \"").append(19_999 - at).append('"');
    }
    String description = BEGIN + "variable c categorical { " + order + " " + categories + " } }";
    assertTrue(soon(() -> Descriptions.translated(description)).contains("<categoryOrder>20000;19999;"));
  }

  @Test
  void aLongNumberIsReadAsItsNearest() throws Exception {
    assertTrue(soon(()
                        -> Descriptions.translated(BEGIN + "reference x 0."
                            + "3".repeat(900_000) + " }"))
                   .contains("x=\"0.3333333333333333\""));
  }
}
