package kestrel.pdl;

import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.Set;
import org.antlr.v4.runtime.BaseErrorListener;
import org.antlr.v4.runtime.Parser;
import org.antlr.v4.runtime.RecognitionException;
import org.antlr.v4.runtime.Recognizer;
import org.antlr.v4.runtime.Token;
import org.antlr.v4.runtime.Vocabulary;

/** Refuses a description at its first word that cannot stand where it stands: what was found, and what was expected. */
final class SyntaxErrors extends BaseErrorListener {
  private static final String UNCLOSED_STRING =
      "found a string that is not closed, expected a double quote before the end of the line";
  private static final String UNCLOSED_NAME =
      "found a name that is not closed, expected a backquote before the end of the line";

  private static final Map<Integer, String> KINDS =
      Map.of(Token.EOF, "the end of the description", PdlParser.NAME, "a name", PdlParser.NUMBER, "a number",
          PdlParser.LENGTH, "a length such as 5pt", PdlParser.STRING, "a string in double quotes");

  private static final Set<Integer> VALUES = Set.of(PdlParser.NUMBER, PdlParser.LENGTH, PdlParser.STRING);

  @Override
  public void syntaxError(Recognizer<?, ?> recognizer, Object offendingSymbol, int line, int column, String message,
      RecognitionException failure) {
    Token found = (Token) offendingSymbol;
    throw new Refusal(Place.of(found), switch (found.getType()) {
      case PdlParser.OPEN_STRING -> UNCLOSED_STRING;
      case PdlParser.OPEN_NAME -> UNCLOSED_NAME;
      default -> "found " + describe(found) + ", expected " + expected((Parser) recognizer, found)
          + commaHint((Parser) recognizer, found);
    });
  }

  private static String describe(Token found) {
    String text = found.getText();
    return switch (found.getType()) {
      case Token.EOF -> "the end of the description";
      case PdlParser.STRING -> "the string " + Wording.quoted(text.substring(1, text.length() - 1));
      case PdlParser.BAD_NUMBER -> Wording.quoted(text)
          + " (neither a number nor a length; the units of lengths are px, pt, mm, cm, in and %)";
      case PdlParser.STRANGE -> Wording.character(text.codePointAt(0));
      default -> Wording.quoted(text);
    };
  }

  private static String expected(Parser parser, Token found) {
    Vocabulary vocabulary = parser.getVocabulary();
    List<Integer> types = parser.getExpectedTokens().toList();
    // Every word is a name, too: they would hide what is meant.
    boolean name = types.contains(PdlParser.NAME);
    List<String> parts = new ArrayList<>();
    List<String> words = new ArrayList<>();
    for (int type : types) {
          String literal = type == Token.EOF ? null : vocabulary.getLiteralName(type);
          boolean word = literal != null && Character.isLetter(literal.charAt(1));
          if (type == PdlParser.QUOTED_NAME || (word && name)) continue;
          if (word) words.add(unquoted(literal));
          parts.add(literal == null ? KINDS.get(type) : "\"" + unquoted(literal) + "\"");
        }
        return Wording.anyOf(parts) + Suggestions.hint(found.getText(), words);
  }

  /** Behind a value no second one follows without a comma. */
  private static String commaHint(Parser parser, Token found) {
      if (!VALUES.contains(found.getType()) || found.getTokenIndex() == 0) return "";
      Token before = parser.getTokenStream().get(found.getTokenIndex() - 1);
      return before.getType() == found.getType() ? "; in a list a comma stands between two values" : "";
  }

  private static String unquoted(String literal) {
      return literal.substring(1, literal.length() - 1);
  }
  }
