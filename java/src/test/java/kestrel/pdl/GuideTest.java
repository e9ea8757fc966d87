package kestrel.pdl;

import static org.junit.jupiter.api.Assertions.assertDoesNotThrow;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.util.List;
import java.util.Map;
import java.util.Set;
import java.util.TreeMap;
import java.util.TreeSet;
import java.util.regex.Pattern;
import kestrel.support.Descriptions;
import kestrel.support.Schemas;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.MethodSource;

/** The guide says what the language is: its examples are the files, its grammar has the words of the parser's. */
class GuideTest {
  private static final Pattern EXAMPLE = Pattern.compile("### ([a-z_]+)\\.pdl\n\n```pdl\n(.*?)```\n", Pattern.DOTALL);
  private static final Pattern DESCRIPTION = Pattern.compile("```pdl\n(.*?)```\n", Pattern.DOTALL);
  private static final Pattern EBNF = Pattern.compile("```ebnf\n(.*?)```\n", Pattern.DOTALL);

  private static final Pattern ELEMENT = Pattern.compile("(point|line|bar|area|box) \\{");

  /** What the parts of charts in the guide are about. */
  private static final Map<String, String> VARIABLES = Map.of("flipper", "numeric", "mass", "numeric", "warmest",
      "numeric", "coldest", "numeric", "species", "categorical { categories \"Adelie\", \"Chinstrap\", \"Gentoo\" }",
      "island", "categorical", "sex", "categorical", "day", "date");

  private static String guide() {
    return Descriptions.text(Schemas.read(Schemas.sourceDirectory().resolve("docs/guide/pdl.md")));
  }

  static List<String> descriptions() {
    return DESCRIPTION.matcher(guide()).results().map(found -> found.group(1)).toList();
  }

  @Test
  void itsExamplesAreTheFiles() {
    Map<String, String> examples = new TreeMap<>();
    EXAMPLE.matcher(guide()).results().forEach(found -> examples.put(found.group(1), found.group(2)));
    Map<String, String> files = new TreeMap<>();
    Descriptions.names().forEach(name -> files.put(name, Descriptions.example(name)));
    assertEquals(files, examples);
  }

  @ParameterizedTest
  @MethodSource("descriptions")
  void allThatItShowsCanBeRead(String description) {
    assertDoesNotThrow(
        () -> Descriptions.translated(description.contains("chart ") ? description : chartOf(description)));
  }

  /** A part of a chart with the variables and the element that it lacks. */
  private static String chartOf(String part) {
    StringBuilder chart = new StringBuilder("chart { ");
    VARIABLES.forEach((name, kind) -> {
      if (part.contains("variable " + name + " ")) return;
      chart.append("variable ").append(name).append(' ').append(kind).append(' ');
    });
    if (!ELEMENT.matcher(part).find()) chart.append("point { x flipper y mass } ");
    return chart.append(part).append('}').toString();
  }

  @Test
  void itsGrammarHasTheWordsOfTheParser() {
    var ebnf = EBNF.matcher(guide());
    assertTrue(ebnf.find());
    Set<String> words = Grammar.wordsIn(ebnf.group(1), Pattern.compile("\"([a-z]+)\""));
    Set<String> notWords = Set.of("e", "n", "t", "px", "pt", "mm", "cm", "in");
    Set<String> expected = new TreeSet<>(Grammar.words());
    words.removeAll(notWords);
    assertEquals(expected, words);
  }
}
