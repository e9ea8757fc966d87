package kestrel.markup;

import static org.junit.jupiter.api.Assertions.assertEquals;

import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

class NumbersTest {
  @ParameterizedTest
  @CsvSource({"1,1", "0.5,0.5", "-0.0,-0", "0,0", "2.8,2.8", "1e16,10000000000000000", "1e17,1e17", "1e-5,0.00001",
      "1.5e-7,1.5e-7", "-1.25e300,-1.25e300", "200.9152046783626,200.9152046783626", "4.9e-324,5e-324", "2e23,2e23",
      "5.684341886080802e-14,5.684341886080802e-14", "NaN,NaN", "Infinity,INF", "-Infinity,-INF", "120,120"})
  void
  writesTheShortestTextThatReadsBackTheSame(double number, String text) {
    assertEquals(text, Numbers.text(number));
  }
}
