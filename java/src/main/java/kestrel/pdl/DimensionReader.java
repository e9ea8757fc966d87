package kestrel.pdl;

import java.time.LocalDate;
import java.time.LocalDateTime;
import java.time.format.DateTimeParseException;
import kestrel.markup.Numbers;
import kestrel.pdl.PdlParser.ScaleBoundContext;
import kestrel.pdl.PdlParser.ScaleContext;
import kestrel.pdl.PdlParser.ScaleCurvedContext;
import kestrel.pdl.PdlParser.ScaleEndsContext;
import kestrel.pdl.PdlParser.ScaleExactContext;
import kestrel.pdl.PdlParser.ScaleLinearContext;
import kestrel.pdl.PdlParser.ScaleMarginsContext;
import kestrel.pdl.PdlParser.ScaleOptionContext;
import kestrel.pdl.PdlParser.ScaleOriginContext;
import kestrel.pdl.PdlParser.ScaleReverseContext;
import kestrel.pdl.PdlParser.ValueContext;

/** Reads the scale of a dimension, once it is known what the dimension measures. */
final class DimensionReader extends PdlBaseVisitor<Void> {
  private final Dimension dimension;
  private final Scale scale;
  private final Once once = new Once();

  private DimensionReader(Dimension dimension, Scale scale) {
    this.dimension = dimension;
    this.scale = scale;
  }

  static void readScale(ScaleContext statement, Dimension dimension) {
    if (dimension.scale != null) {
      throw new Refusal(Place.of(statement),
          "found a second scale of " + dimension.name.word() + ", expected one; the first is in line "
              + dimension.scale.place.line());
    }
    dimension.scale = new Scale(Place.of(statement));
    DimensionReader reader = new DimensionReader(dimension, dimension.scale);
    for (ScaleOptionContext option : statement.scaleOption()) reader.visit(option);
    reader.checkBounds(statement);
  }

  /** A place along a dimension, as the markup has it: a number, a date, or the code of a category. */
  static String position(Dimension dimension, ValueContext value) {
    Kind kind = dimension.kind();
    if (kind == Kind.CATEGORICAL) return Scope.code(dimension.variables.iterator().next(), value);
    if (kind == Kind.DATE) return date(value);
    if (value.number() != null) return Numbers.text(Literals.number(value.number()));
    throw new Refusal(Place.of(value),
        "found the string " + Wording.quoted(Literals.text(value.text())) + ", expected a number, because "
            + dimension.name.word() + " shows no dates and no categories");
  }

  private static String date(ValueContext value) {
    String text = value.text() == null ? value.getText() : Literals.text(value.text());
    try {
      if (text.contains("T")) {
        LocalDateTime.parse(text);
      } else {
        LocalDate.parse(text);
      }
      if (value.text() != null) return text;
    } catch (DateTimeParseException notADate) {
      // Told below.
    }
    throw new Refusal(Place.of(value),
        "found " + Wording.quoted(text) + ", expected a date such as \"2012-06-30\" or \"2012-06-30T12:00:00\"");
  }

  private void setMethod(ScaleOptionContext option, Scale.Method method) {
    if (scale.method != null) {
      throw new Refusal(Place.of(option), "found a second kind of scale, expected only one");
    }
    if (dimension.kind() == Kind.CATEGORICAL || (dimension.kind() == Kind.DATE && method != Scale.Method.LINEAR)) {
      Variable variable = dimension.variables.iterator().next();
      throw new Refusal(Place.of(option),
          "found a " + option.getStart().getText() + " scale over " + Wording.quoted(variable.name) + ", which is "
              + variable.kind.phrase() + ", expected a numeric variable");
    }
    scale.method = method;
  }

  @Override
  public Void visitScaleLinear(ScaleLinearContext option) {
    setMethod(option, Scale.Method.LINEAR);
    return null;
  }

  @Override
  public Void visitScaleCurved(ScaleCurvedContext option) {
    boolean symmetric = option.getStart().getText().equals("symmetric");
    if (option.curve.getText().equals("log")) {
      setMethod(option, symmetric ? Scale.Method.SYMMETRIC_LOG : Scale.Method.LOG);
      scale.base = option.number() == null ? 10 : Literals.positive(option.number(), "the base of logarithms");
      if (scale.base == 1) {
        throw new Refusal(Place.of(option.number()), "found the base 1, expected another one for logarithms");
      }
    } else {
      setMethod(option, symmetric ? Scale.Method.SYMMETRIC_POWER : Scale.Method.POWER);
      scale.base = Literals.positive(option.number(), "an exponent");
    }
    return null;
  }

  @Override
  public Void visitScaleReverse(ScaleReverseContext option) {
    once.say("reverse", option);
    scale.reverse = true;
    return null;
  }

  @Override
  public Void visitScaleOrigin(ScaleOriginContext option) {
    once.say("origin", option);
    checkMeasured(option);
    scale.origin = position(dimension, option.value());
    return null;
  }

  @Override
  public Void visitScaleBound(ScaleBoundContext option) {
    String bound = option.bound.getText();
    once.say(bound, option);
    checkMeasured(option);
    String position = position(dimension, option.value());
    if (bound.equals("minimum")) {
      scale.minimum = position;
    } else {
      scale.maximum = position;
    }
    return null;
  }

  @Override
  public Void visitScaleExact(ScaleExactContext option) {
    once.say("exact", option);
    checkMeasured(option);
    scale.exact = true;
    return null;
  }

  @Override
  public Void visitScaleEnds(ScaleEndsContext option) {
    once.sayWithout(option.ends.getText().equals("nice") ? "tight" : "nice", option.ends.getText(), option);
    once.say(option.ends.getText(), option);
    scale.nice = option.ends.getText().equals("nice");
    return null;
  }

  @Override
  public Void visitScaleMargins(ScaleMarginsContext option) {
    once.say("margins", option);
    scale.lowerMargin = Literals.length(option.length(0));
    scale.upperMargin = Literals.length(option.length(1));
    return null;
  }

  private void checkMeasured(ScaleOptionContext option) {
    if (dimension.kind() != Kind.CATEGORICAL) return;
    throw Scope.wrongKind(dimension.variables.iterator().next(), Place.of(option),
        "a numeric variable or a date for \"" + option.getStart().getText() + "\"");
  }

  /** A logarithm has no place for zero and less. */
  private void checkPositive(ScaleContext statement, String bound) {
    if (scale.method != Scale.Method.LOG || bound == null || Double.parseDouble(bound) > 0) return;
    throw new Refusal(Place.of(statement), "found the bound " + bound + " of a log scale, expected a positive number");
  }

  private void checkBounds(ScaleContext statement) {
    if (scale.exact && !scale.hasRange()) {
      throw new Refusal(Place.of(statement), "found \"exact\" alone, expected a \"minimum\" or a \"maximum\" with it");
    }
    checkPositive(statement, scale.minimum);
    checkPositive(statement, scale.maximum);
    if (scale.minimum == null || scale.maximum == null) return;
    boolean rising = dimension.kind() == Kind.DATE
        ? scale.minimum.compareTo(scale.maximum) < 0
        : Double.parseDouble(scale.minimum) < Double.parseDouble(scale.maximum);
    if (rising) return;
    throw new Refusal(Place.of(statement),
        "found the minimum " + scale.minimum + " and the maximum " + scale.maximum
            + ", expected a minimum below the maximum");
  }
}
