package kestrel.pdl;

import java.util.ArrayList;
import java.util.List;
import kestrel.markup.Numbers;
import kestrel.pdl.PdlParser.AestheticContext;
import kestrel.pdl.PdlParser.AestheticOptionContext;
import kestrel.pdl.PdlParser.AestheticRangeContext;
import kestrel.pdl.PdlParser.AestheticValueContext;
import kestrel.pdl.PdlParser.AestheticValuesContext;
import kestrel.pdl.PdlParser.LookContext;

/** Reads how a variable changes the look of an element. */
final class AestheticReader extends PdlBaseVisitor<Void> {
  private static final int MOST_PATTERNS = 1000;

  private final Aesthetic aesthetic;

  private AestheticReader(Aesthetic aesthetic) {
    this.aesthetic = aesthetic;
  }

  static Aesthetic read(AestheticContext statement, Aesthetic.Kind kind, Scope scope) {
    Variable variable = switch (kind) {
      case SHAPE, PATTERN, DASH -> scope.categorical(statement.name(), kind.word());
      case SIZE, TRANSPARENCY -> scope.measured(statement.name(), kind.word());
      case COLOR -> scope.variable(statement.name());
    };
    AestheticReader reader = new AestheticReader(new Aesthetic(kind, variable));
    Once once = new Once();
    for (AestheticOptionContext option : statement.aestheticOption()) {
          String word = option.getStart().getText();
          if (!word.equals("value")) once.say(word, option);
          reader.checkFits(option);
          reader.visit(option);
        }
        return reader.aesthetic;
    }

    private void checkFits(AestheticOptionContext option) {
      boolean range = option instanceof AestheticRangeContext;
      boolean ranged = aesthetic.kind.property() == null;
      boolean mapped = aesthetic.kind == Aesthetic.Kind.COLOR || aesthetic.kind == Aesthetic.Kind.SHAPE;
      if (range == ranged && (mapped || !(option instanceof AestheticValueContext))) return;
      throw new Refusal(Place.of(option),
          "found \"" + option.getStart().getText() + "\" for " + aesthetic.kind.word() + ", expected "
              + (ranged        ? "\"range\""
                      : mapped ? "\"values\" or \"value\""
                               : "\"values\""));
    }

    @Override
    public Void visitAestheticValues(AestheticValuesContext option) {
      List<String> values = new ArrayList<>();
      for (LookContext look : option.look()) values.add(read(look));
      aesthetic.values = values;
      return null;
    }

    @Override
    public Void visitAestheticValue(AestheticValueContext option) {
      if (!aesthetic.variable.kind.isCategorical()) {
        throw Scope.wrongKind(aesthetic.variable, Place.of(option), "a categorical variable for \"value\"");
      }
      String code = Scope.code(aesthetic.variable, option.value());
      if (aesthetic.mappings.putIfAbsent(code, read(option.look())) != null) {
        throw new Refusal(Place.of(option.value()),
            "found a second look for the category " + option.value().getText() + ", expected one");
      }
      return null;
    }

    @Override
    public Void visitAestheticRange(AestheticRangeContext option) {
      aesthetic.low = read(option.look(0));
      aesthetic.high = read(option.look(1));
      return null;
    }

    private String read(LookContext look) {
      return switch (aesthetic.kind) {
      case COLOR -> Looks.color(text(look), Place.of(look));
      case SHAPE -> Looks.symbol(text(look), Place.of(look));
      case DASH -> Looks.dash(text(look), Place.of(look));
      case PATTERN -> String.valueOf((int) number(look, 0, MOST_PATTERNS, true, "a pattern, a whole number"));
      case TRANSPARENCY -> Numbers.text(number(look, 0, 1, false, "a transparency"));
      case SIZE -> length(look);
    };
  }

  private static String text(LookContext look) {
    if (look.text() == null) throw wrong(look, "a string in double quotes");
    return Literals.text(look.text());
  }

  private static double number(LookContext look, double least, double most, boolean whole, String what) {
    String expected = what + " from " + Numbers.text(least) + " to " + Numbers.text(most);
    if (look.number() == null) throw wrong(look, expected);
    double value = Literals.number(look.number());
    if (value < least || value > most || (whole && value != Math.rint(value))) throw wrong(look, expected);
    return value;
  }

  private static String length(LookContext look) {
    if (look.length() == null) throw wrong(look, "a length such as 5pt");
    return Literals.length(look.length());
  }

  private static Refusal wrong(LookContext look, String expected) {
    return new Refusal(Place.of(look), "found " + Wording.quoted(look.getText()) + ", expected " + expected);
  }
}
