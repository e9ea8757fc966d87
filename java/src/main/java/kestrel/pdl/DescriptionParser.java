package kestrel.pdl;

import java.util.ArrayList;
import java.util.List;
import org.antlr.v4.runtime.CharStreams;
import org.antlr.v4.runtime.CommonTokenStream;
import org.antlr.v4.runtime.ListTokenSource;
import org.antlr.v4.runtime.Token;
import org.antlr.v4.runtime.atn.PredictionMode;

/** Reads the text of a description into a tree, within bounds that hold whatever the text is. */
final class DescriptionParser {
  /** UTF-16 code units of a description. */
  static final int MAXIMUM_LENGTH = 1_000_000;

  /** Words, values and signs of a description. */
  static final int MAXIMUM_WORDS = 100_000;

  /** Parentheses within parentheses. */
  static final int MAXIMUM_DEPTH = 100;

  private DescriptionParser() {}

  static PdlParser.DescriptionContext parse(String description) {
    if (description.length() > MAXIMUM_LENGTH) {
      throw new Refusal(new Place(1, 1),
          "found a description of " + description.length() + " characters, expected no more than " + MAXIMUM_LENGTH);
    }
    PdlLexer lexer = new PdlLexer(CharStreams.fromString(description));
    PdlParser parser = new PdlParser(new CommonTokenStream(new ListTokenSource(wordsOf(lexer))));
    parser.removeErrorListeners();
    parser.addErrorListener(new SyntaxErrors());
    parser.getInterpreter().setPredictionMode(PredictionMode.SLL);
    return parser.description();
  }

  private static List<Token> wordsOf(PdlLexer lexer) {
    List<Token> words = new ArrayList<>();
    int depth = 0;
    Token word;
    do {
      word = lexer.nextToken();
      words.add(word);
      if (words.size() > MAXIMUM_WORDS) {
        throw new Refusal(Place.of(word), "found more than " + MAXIMUM_WORDS + " words and signs, expected fewer");
      }
      if (word.getText().equals("(")) ++depth;
      if (word.getText().equals(")")) --depth;
      if (depth > MAXIMUM_DEPTH) {
        throw new Refusal(Place.of(word),
            "found " + depth + " parentheses within each other, expected no more than " + MAXIMUM_DEPTH);
      }
    } while (word.getType() != Token.EOF);
    return words;
  }
}
