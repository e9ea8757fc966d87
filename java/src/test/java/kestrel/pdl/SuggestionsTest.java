package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertNull;

import java.util.List;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;

class SuggestionsTest {
  @ParameterizedTest
  @CsvSource(
      {"point,points,1", "point,piont,1", "point,oint,1", "point,paint,1", "point,,5", "ab,ba,1", "kitten,sitting,3"})
  void
  theDistanceCountsWhatIsToBeChanged(String from, String to, int distance) {
    assertEquals(distance, Suggestions.distance(from, to == null ? "" : to));
  }

  @Test
  void theNearestIsSuggestedAndOfEquallyNearOnesTheFirst() {
    assertEquals("bar", Suggestions.nearest("bra", List.of("box", "bar", "bat")));
    assertEquals("bat", Suggestions.nearest("baz", List.of("box", "bat", "bar")));
  }

  @Test
  void theCaseDoesNotCount() {
    assertEquals("Species", Suggestions.nearest("SPECIES", List.of("sex", "Species")));
    assertEquals("X", Suggestions.nearest("x", List.of("X")));
  }

  @Test
  void nothingIsSuggestedForWhatIsFarOrLongOrOneLetter() {
    assertNull(Suggestions.nearest("scatter", List.of("point", "path")));
    assertNull(Suggestions.nearest("a", List.of("b")));
    assertNull(Suggestions.nearest("n".repeat(61), List.of("n".repeat(60))));
    assertNull(Suggestions.nearest("", List.of("a")));
  }
}
