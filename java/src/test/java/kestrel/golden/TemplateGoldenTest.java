package kestrel.golden;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.IOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.TreeSet;
import kestrel.converter.Converter;
import kestrel.support.Goldens;
import kestrel.support.Schemas;
import kestrel.support.TemplateRequests;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/** The shipped templates: what they make of a request that fills only what is needed, and of one that fills all. */
class TemplateGoldenTest {
  private static final String REQUEST = ".request.xml";
  private static final String TEMPLATE = ".lumotemplate";

  private static Path share() {
    return Schemas.sourceDirectory().resolve("share");
  }

  private static Path goldens() {
    return Schemas.sourceDirectory().resolve("tests/golden/visualization_templates");
  }

  private static List<String> namesIn(Path folder, String ending) throws IOException {
    try (var files = Files.list(folder)) {
      return files.map(file -> file.getFileName().toString())
          .filter(name -> name.endsWith(ending))
          .map(name -> name.substring(0, name.length() - ending.length()))
          .sorted()
          .toList();
    }
  }

  static List<String> requests() throws IOException {
    return namesIn(goldens(), REQUEST);
  }

  static List<String> templates() throws IOException {
    return namesIn(share().resolve("template"), TEMPLATE);
  }

  @Test
  void thereAreEightTemplatesAndEachHasAPlainAndAFullRequest() throws Exception {
    assertEquals(8, templates().size());
    TreeSet<String> missing = new TreeSet<>();
    for (String name : templates()) {
      missing.add(name);
      missing.add(name + "_plain");
    }
    missing.removeAll(requests());
    assertEquals(new TreeSet<>(), missing);
  }

  @ParameterizedTest
  @MethodSource("templates")
  void theTemplateIsValid(String name) throws Exception {
    Path file = share().resolve("template").resolve(name + TEMPLATE);
    Schemas.validate("visualization-template.xsd", Schemas.read(file));
  }

  @ParameterizedTest
  @MethodSource("requests")
  void theRequestGetsItsChart(String name) throws Exception {
    byte[] request = Schemas.read(goldens().resolve(name + REQUEST));
    Schemas.validate("template-request.xsd", request);
    byte[] reply = Converter.convertTemplate(request, share().toString(), "");
    TemplateRequests.chart(TemplateRequests.parsed(reply));
    Goldens.compare(
        goldens().resolve(name + ".reply.xml"), Goldens.indented(new String(reply, StandardCharsets.UTF_8)));
  }
}
