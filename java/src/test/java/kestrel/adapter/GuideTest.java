package kestrel.adapter;

import static kestrel.support.TemplateRequests.chart;
import static kestrel.support.TemplateRequests.request;
import static kestrel.support.TemplateRequests.text;
import static kestrel.support.TemplateRequests.variable;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.nio.charset.StandardCharsets;
import java.util.Arrays;
import java.util.Set;
import java.util.TreeSet;
import java.util.regex.Pattern;
import java.util.stream.Collectors;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;

/** What the guide says of templates holds. */
class GuideTest {
  private static final String GUIDE = new String(
      Schemas.read(Schemas.sourceDirectory().resolve("docs/guide/visualization-templates.md")), StandardCharsets.UTF_8);

  private static String firstTemplate() {
    int start = GUIDE.indexOf("<visualization");
    return GUIDE.substring(start, GUIDE.indexOf("```", start));
  }

  private static Set<String> namesIn(String pattern, String text) {
    return Pattern.compile(pattern)
        .matcher(text)
        .results()
        .map(found -> found.group(1))
        .collect(Collectors.toCollection(TreeSet::new));
  }

  @Test
  void theFirstTemplateIsValidAndMakesAChart() throws Exception {
    Schemas.validate("visualization-template.xsd", firstTemplate().getBytes(StandardCharsets.UTF_8));
    String plain = chart(request(firstTemplate(), variable("x", "species", true), variable("y", "mass", false)));
    assertFalse(plain.contains("legend1") || plain.contains("<legend") || plain.contains("<labelFrame"), plain);
    String whole = chart(request(firstTemplate(), variable("x", "species", true), variable("y", "mass", false),
        variable("color", "sex", true), text("Title", "Penguins")));
    assertTrue(whole.contains("<text>Mean of mass</text>"), whole);
    assertTrue(whole.contains("title1=\"frame_title_1\""), whole);
    assertTrue(whole.contains("<legendTarget target=\"element_bar_1_color1\"/>"), whole);
  }

  @Test
  void theGuideTellsAllErrorCodes() {
    Set<String> codes =
        Arrays.stream(Refusal.Kind.values()).map(Enum::name).collect(Collectors.toCollection(TreeSet::new));
    String table = GUIDE.substring(GUIDE.indexOf("| word |"), GUIDE.indexOf("For a template that came in a request"));
    assertEquals(codes, namesIn("`([A-Z][a-z]+[A-Z]\\w+)`", table));
  }

  @Test
  void theGuideTellsAllStatisticsAndKinds() {
    String table = GUIDE.substring(GUIDE.indexOf("| `kind` | takes"), GUIDE.indexOf("Each slot has a place"));
    for (String statistic : Vocabulary.STATISTICS.keySet())
      assertTrue(table.contains("`" + statistic + "`"), statistic);
    assertEquals(Set.of(Slot.Kind.words().split(", ")), namesIn("(?m)^\\| `(\\w+)` \\| (?!takes)", table));
  }
}
