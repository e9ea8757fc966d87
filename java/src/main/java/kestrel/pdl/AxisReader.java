package kestrel.pdl;

import java.util.List;
import kestrel.pdl.PdlParser.AxisContext;
import kestrel.pdl.PdlParser.AxisDerivedContext;
import kestrel.pdl.PdlParser.AxisGridlinesContext;
import kestrel.pdl.PdlParser.AxisHiddenContext;
import kestrel.pdl.PdlParser.AxisLabelContext;
import kestrel.pdl.PdlParser.AxisOppositeContext;
import kestrel.pdl.PdlParser.AxisOptionContext;
import kestrel.pdl.PdlParser.AxisStyleContext;
import kestrel.pdl.PdlParser.AxisTicksContext;
import kestrel.pdl.PdlParser.TickAngleContext;
import kestrel.pdl.PdlParser.TickEveryContext;
import kestrel.pdl.PdlParser.TickFormatContext;
import kestrel.pdl.PdlParser.TickLengthContext;
import kestrel.pdl.PdlParser.TickOptionContext;
import kestrel.pdl.PdlParser.TickStaggerContext;
import kestrel.pdl.PdlParser.TickStepContext;
import kestrel.pdl.PdlParser.TickStyleContext;

/** Reads one axis. */
final class AxisReader extends PdlBaseVisitor<Void> {
  private static final int MOST_TICKS = 10_000;
  private static final double FULL_TURN = 360;

  private final Dimension dimension;
  private final boolean second;
  private final Axis axis = new Axis();

  private AxisReader(Dimension dimension, boolean second) {
    this.dimension = dimension;
    this.second = second;
  }

  static void read(AxisContext statement, Dimension dimension) {
    boolean second = statement.getStart().getText().equals("second");
    if ((second ? dimension.secondAxis : dimension.axis) != null) {
      throw new Refusal(Place.of(statement),
          "found the " + (second ? "second " : "") + "axis of " + dimension.name.word()
              + " for the second time, expected it once");
    }
    AxisReader reader = new AxisReader(dimension, second);
    reader.read(statement.axisOption());
    if (second) {
      reader.axis.opposite = true;
      dimension.secondAxis = reader.axis;
    } else {
      dimension.axis = reader.axis;
    }
  }

  private void read(List<AxisOptionContext> options) {
    Once once = new Once();
    for (AxisOptionContext option : options) {
      once.say(option.getStart().getText(), option);
      visit(option);
    }
  }

  @Override
  public Void visitAxisLabel(AxisLabelContext option) {
    axis.label = Literals.text(option.text());
    return null;
  }

  @Override
  public Void visitAxisHidden(AxisHiddenContext option) {
    if (second) throw misplaced(option, "the first axis alone");
    axis.hidden = true;
    return null;
  }

  @Override
  public Void visitAxisOpposite(AxisOppositeContext option) {
    if (second) throw misplaced(option, "the first axis alone; the second one is always opposite");
    axis.opposite = true;
    return null;
  }

  @Override
  public Void visitAxisDerived(AxisDerivedContext option) {
    if (!second) throw misplaced(option, "a \"second axis\"");
    axis.derived = true;
    return null;
  }

  private static Refusal misplaced(AxisOptionContext option, String expected) {
    return new Refusal(Place.of(option), "found \"" + option.getStart().getText() + "\", expected it in " + expected);
  }

  @Override
  public Void visitAxisGridlines(AxisGridlinesContext option) {
    axis.gridlines = true;
    return null;
  }

  @Override
  public Void visitAxisStyle(AxisStyleContext option) {
    axis.style = StyleReader.read(option.style());
    return null;
  }

  @Override
  public Void visitAxisTicks(AxisTicksContext option) {
    Once once = new Once();
    for (TickOptionContext tick : option.tickOption()) {
      once.say(tick.getStart().getText(), tick);
      visit(tick);
    }
    return null;
  }

  @Override
  public Void visitTickStep(TickStepContext option) {
    if (dimension.kind() == Kind.CATEGORICAL) {
      throw Scope.wrongKind(dimension.variables.iterator().next(), Place.of(option),
          "a numeric variable for a \"step\"; \"every\" leaves labels out");
    }
    axis.ticks.step = Literals.positive(option.number(), "the step of ticks");
    return null;
  }

  @Override
  public Void visitTickEvery(TickEveryContext option) {
    axis.ticks.every = Literals.whole(option.number(), 1, MOST_TICKS, "how many ticks make a label");
    return null;
  }

  @Override
  public Void visitTickAngle(TickAngleContext option) {
    double angle = Literals.number(option.number());
    if (Math.abs(angle) > FULL_TURN) {
      throw new Refusal(
          Place.of(option.number()), "found " + option.number().getText() + ", expected an angle from -360 to 360");
    }
    axis.ticks.angle = angle;
    return null;
  }

  @Override
  public Void visitTickLength(TickLengthContext option) {
    axis.ticks.length = Literals.length(option.length());
    return null;
  }

  @Override
  public Void visitTickStagger(TickStaggerContext option) {
    axis.ticks.stagger = true;
    return null;
  }

  @Override
  public Void visitTickFormat(TickFormatContext option) {
    axis.ticks.format = FormatReader.read(option.format());
    return null;
  }

  @Override
  public Void visitTickStyle(TickStyleContext option) {
    axis.ticks.style = StyleReader.read(option.style());
    return null;
  }
}
