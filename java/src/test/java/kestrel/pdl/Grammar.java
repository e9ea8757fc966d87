package kestrel.pdl;

import java.util.Set;
import java.util.TreeSet;
import java.util.regex.MatchResult;
import java.util.regex.Pattern;
import java.util.stream.Collectors;
import kestrel.support.Descriptions;
import kestrel.support.Schemas;

/** The words of the grammar. */
final class Grammar {
  private static final Pattern WORD = Pattern.compile("'([a-z]+)'");

  private Grammar() {}

  static Set<String> words() {
    String grammar =
        Descriptions.text(Schemas.read(Schemas.sourceDirectory().resolve("java/src/main/antlr/kestrel/pdl/Pdl.g4")));
    return wordsIn(grammar.substring(0, grammar.indexOf("// --- words ---")), WORD);
  }

  static Set<String> wordsIn(String text, Pattern word) {
    return word.matcher(text)
        .results()
        .map((MatchResult found) -> found.group(1))
        .collect(Collectors.toCollection(TreeSet::new));
  }
}
