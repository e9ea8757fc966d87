package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertArrayEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.List;
import java.util.Random;
import java.util.stream.IntStream;
import kestrel.converter.ConversionException;
import kestrel.converter.Converter;
import kestrel.support.Descriptions;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/** A description is refused with its place or becomes a valid chart; there is nothing between. */
class RobustnessTest {
  private static final int CHANGES_OF_EACH = 150;

  static List<String> names() {
    return Descriptions.names();
  }

  private static void refusedOrValid(String description) throws Exception {
    try {
      Schemas.validate("lumoml.xsd", Converter.pdlToXml(description));
    } catch (ConversionException refused) {
      assertTrue(refused.getMessage().matches("(?s)line [0-9]+, column [0-9]+: found .*, expected .*"),
          () -> refused.getMessage() + " for " + description);
    }
  }

  @Test
  void everyBeginningOfADescription() throws Exception {
    String description = Descriptions.example("scatter");
    for (int end = 0; end < description.length(); ++end) refusedOrValid(description.substring(0, end));
  }

  @ParameterizedTest
  @MethodSource("names")
  void wordsThatAreLeftOutDoubledOrSwapped(String name) throws Exception {
    String[] words = Descriptions.example(name).replaceAll("#.*\n", "").split("(?<=[\\s{}()])|(?=[{}()])");
    Random random = new Random(words.length);
    for (int change = 0; change < CHANGES_OF_EACH; ++change) {
      String[] changed = words.clone();
      int one = random.nextInt(words.length);
      int other = random.nextInt(words.length);
      switch (random.nextInt(3)) {
        case 0 -> changed[one] = "";
        case 1 -> changed[one] += " " + words[one];
        default -> changed[one] = words[other] + " ";
      }
      refusedOrValid(String.join("", changed));
    }
  }

  @ParameterizedTest
  @MethodSource("names")
  void charactersThatAreChanged(String name) throws Exception {
    String description = Descriptions.example(name);
    Random random = new Random(description.length());
    String strange = "\0\uD800\uDC00\uFFFE\"`#{}()\\/-+%9x\n\u00E9";
    for (int change = 0; change < CHANGES_OF_EACH; ++change) {
      StringBuilder changed = new StringBuilder(description);
      changed.setCharAt(random.nextInt(description.length()), strange.charAt(random.nextInt(strange.length())));
      refusedOrValid(changed.toString());
    }
  }

  @Test
  void manyThreadsGetWhatOneGets() throws Exception {
    byte[] alone = Converter.pdlToXml(Descriptions.example("bubbles"));
    List<byte[]> together = IntStream.range(0, 200).parallel().mapToObj(run -> {
      try {
        return Converter.pdlToXml(Descriptions.example("bubbles"));
      } catch (ConversionException failure) {
        throw new IllegalStateException(failure);
      }
    }).toList();
    for (byte[] each : together) assertArrayEquals(alone, each);
      }
    }
