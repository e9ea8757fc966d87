package kestrel.lumoml14;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import java.util.List;
import java.util.Map;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.ValueSource;

class ValuesTest {
  @ParameterizedTest
  @CsvSource({"1,1", "-0.5,-0.5", "+.25,0.25", "2.,2", "1e3,1000", "1E-2,0.01"})
  void readsNumbers(String text, double number) {
    assertEquals(number, Values.number(text));
  }

  @ParameterizedTest
  @CsvSource({"12,12", "-0,-0", "0.5,0.5", "0.50,0.5", "007,7", "+1,1", "99999999.9999999,99999999.9999999", "1e3,1000",
      "0.00001,0.00001", "0.000001,1e-6", "123456789012345678,1.2345678901234568e17", ".5,0.5", "5.,5"})
  void
  writesNumbersAsTheCurrentMarkupDoes(String text, String written) {
    assertEquals(written, Values.numberText(text));
  }

  @ParameterizedTest
  @ValueSource(strings = {"", ".", "1.2.3", "1e", "NaN", "Infinity", "1e999", "0x10", "1f", "1 000", "\u0661", "--1"})
  void refusesWhatIsNoNumber(String text) {
    assertNull(Values.number(text));
  }

  @ParameterizedTest
  @CsvSource({"5,5pt", "0.5,0.5pt", "0,0pt", "1e2,100pt"})
  void lengthsAreNumbersOfPoints(String text, String length) {
    assertEquals(length, Values.points(text));
  }

  @ParameterizedTest
  @ValueSource(strings = {"-1", "100001", "5pt", "5px"})
  void refusesWhatIsNoNumberOfPoints(String text) {
    assertNull(Values.points(text));
  }

  @ParameterizedTest
  @ValueSource(strings = {"-0.1", "100.1", "50%"})
  void refusesSharesBeyondTheWhole(String text) {
    assertNull(Values.share(text));
  }

  @ParameterizedTest
  @CsvSource(
      delimiter = ';', value = {"0,114,178;#0072B2", "255, 255 ,255;#FFFFFF", "none;transparent", "grey;#808080"})
  void
  readsColors(String text, String color) {
    assertEquals(color, Values.color(text));
  }

  @ParameterizedTest
  @ValueSource(strings = {"0,114", "0,114,256", "0,114,178,1", "#0072B2", "-1,0,0", "Red", "", "1,2,0003", "1.5,0,0"})
  void refusesWhatIsNoColor(String text) {
    assertNull(Values.color(text));
  }

  @Test
  void aBackslashTakesTheMeaningFromTheBar() {
    assertEquals(List.of("a|b", "", "c\\", "d"), Values.list("a\\|b||c\\\\|d"));
  }

  @Test
  void aBackslashAtTheEndStandsForItself() {
    assertEquals(List.of("a\\"), Values.list("a\\"));
  }

  @Test
  void anEmptyListHasAnEmptyItem() {
    assertEquals(List.of(""), Values.list(""));
  }

  @Test
  void pairsEndAtTheFirstEqualsSign() {
    assertEquals(Map.of("1", "a=b", "x=y", "z|", "", ""), Values.pairs("1=a=b|x\\=y=z\\||="));
  }

  @ParameterizedTest
  @ValueSource(strings = {"", "1", "1=a|", "1=a|2", "1=a|1=b", "1=a|2=b\\"})
  void refusesWhatAreNoPairs(String text) {
    assertNull(Values.pairs(text));
  }

  @ParameterizedTest
  @CsvSource({"1970-01-01,0", "2012-01-31,1327968000", "1969-12-31T23:59:59,-1"})
  void datesAreSeconds(String text, String seconds) {
    assertEquals(seconds, Values.seconds(text));
  }

  @ParameterizedTest
  @ValueSource(strings = {"2012-02-30", "31.01.2012", "2012-01-31T", "2012"})
  void refusesWhatIsNoDate(String text) {
    assertNull(Values.seconds(text));
  }
}
