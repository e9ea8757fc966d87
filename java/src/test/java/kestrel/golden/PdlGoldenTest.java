package kestrel.golden;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.nio.file.Path;
import java.util.List;
import kestrel.support.Descriptions;
import kestrel.support.Goldens;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/** The examples of the description language, and the charts that they describe. */
class PdlGoldenTest {
  static List<String> names() {
    return Descriptions.names();
  }

  @Test
  void thereAreTwentyExamples() {
    assertEquals(20, names().size());
  }

  @ParameterizedTest
  @MethodSource("names")
  void theDescriptionBecomesAValidChart(String name) throws Exception {
    Path expected = Schemas.sourceDirectory().resolve("tests/golden/pdl").resolve(name + ".xml");
    Goldens.compare(expected, Goldens.indented(Descriptions.translated(Descriptions.example(name))));
  }
}
