package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.ArrayList;
import java.util.List;
import kestrel.support.Descriptions;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.Arguments;
import org.junit.jupiter.params.provider.MethodSource;
import org.junit.jupiter.params.provider.ValueSource;

/** What is wrong with a description is told with its place, what was found, and what was expected. */
class RefusalTest {
  private static final String BEGIN = "chart { variable a numeric point { x a y a } title ";

  static List<Arguments> refusals() {
    List<Arguments> refusals = new ArrayList<>();
    String description = "";
    String table = "java/src/test/resources/pdl/refusals.txt";
    for (String line : Descriptions.text(Schemas.read(Schemas.sourceDirectory().resolve(table))).split("\n")) {
      if (line.startsWith("=> ")) refusals.add(Arguments.of(description, line.substring(3)));
      description = line.replace("\\N", "\n").replace("\\0", "\0");
    }
    return refusals;
  }

  @Test
  void theTableIsRead() {
    assertTrue(refusals().size() > 150);
  }

  @ParameterizedTest
  @MethodSource("refusals")
  void saysWhereWhatWasFoundAndWhatWasExpected(String description, String message) {
    assertEquals(message, Descriptions.refusal(description));
  }

  @ParameterizedTest
  @MethodSource("refusals")
  void theFirstColonIsTheOneBehindThePlace(String description, String message) {
    assertTrue(message.matches("line [0-9]+, column [0-9]+: found .*, expected .*"), message);
  }

  @ParameterizedTest
  @ValueSource(strings = {"", " \n ", "# nothing", "\uFEFF"})
  void anEmptyDescriptionIsNoChart(String description) {
    assertTrue(Descriptions.refusal(description).endsWith("found the end of the description, expected \"chart\""));
  }

  @Test
  void halfASurrogatePairIsRefusedAtItsPlace() {
    String message = "found the character U+D83D, which no chart can hold, expected another character";
    assertEquals("line 1, column 54: " + message, Descriptions.refusal(BEGIN + "\"\uD83D\uDC27\uD83D\" }"));
    assertEquals("line 1, column 53: " + message, Descriptions.refusal(BEGIN + "\"\uD83D\" }"));
  }

  @Test
  void halfASurrogatePairOutsideOfStringsIsAStrangeCharacter() {
    assertTrue(Descriptions.refusal(BEGIN + "\uDC27 }").startsWith("line 1, column 52: found the character U+DC27, "));
  }

  @Test
  void whatIsFoundIsShownOnOneLineAndCutShort() {
    String message = Descriptions.refusal(BEGIN + "n".repeat(1000) + " }");
    assertEquals("line 1, column 52: found \""
            + "n".repeat(40) + "...\", expected a string in double quotes",
        message);
  }
}
