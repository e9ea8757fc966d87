package kestrel.pdl;

import org.antlr.v4.runtime.ParserRuleContext;
import org.antlr.v4.runtime.Token;

/** Where something stands in a description. Lines and columns count from 1, columns in characters. */
record Place(int line, int column) {
  static Place of(Token token) {
    return new Place(token.getLine(), token.getCharPositionInLine() + 1);
  }

  static Place of(ParserRuleContext part) {
    return of(part.getStart());
  }

  /** So many characters further on in the same line. */
  Place plus(int characters) {
    return new Place(line, column + characters);
  }
}
