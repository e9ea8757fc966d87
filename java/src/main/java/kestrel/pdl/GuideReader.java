package kestrel.pdl;

import java.util.List;
import kestrel.pdl.PdlParser.FrameGuideContext;
import kestrel.pdl.PdlParser.FunctionGuideContext;
import kestrel.pdl.PdlParser.GuideContext;
import kestrel.pdl.PdlParser.GuideNameContext;
import kestrel.pdl.PdlParser.GuideOnlyContext;
import kestrel.pdl.PdlParser.GuideOptionContext;
import kestrel.pdl.PdlParser.GuideStyleContext;
import kestrel.pdl.PdlParser.NameContext;
import kestrel.pdl.PdlParser.PlaneGuideContext;
import kestrel.pdl.PdlParser.ReferenceGuideContext;

/** Reads one guide, once it is known what the dimensions measure. */
final class GuideReader extends PdlBaseVisitor<Void> {
  private final Scope scope;
  private final Chart chart;
  private Guide guide;

  private GuideReader(Scope scope, Chart chart) {
    this.scope = scope;
    this.chart = chart;
  }

  static Guide read(GuideContext statement, Scope scope, Chart chart) {
    GuideReader reader = new GuideReader(scope, chart);
    reader.visit(statement);
    return reader.guide;
  }

  @Override
  public Void visitReferenceGuide(ReferenceGuideContext statement) {
    guide = new Guide(Place.of(statement), Guide.Kind.REFERENCE);
    guide.dimension = Dimension.Name.of(statement.dimension());
    if (guide.dimension == Dimension.Name.Z) {
      throw new Refusal(Place.of(statement.dimension()), "found a reference line at z, expected one at x or y");
    }
    guide.value = DimensionReader.position(chart.dimensions.get(guide.dimension), statement.value());
    return readOptions(statement.guideOption());
  }

  @Override
  public Void visitFunctionGuide(FunctionGuideContext statement) {
    guide = new Guide(Place.of(statement), Guide.Kind.FUNCTION);
    guide.value = Expressions.text(statement.sum(), GuideReader::onlyX);
    return readOptions(statement.guideOption());
  }

  private static String onlyX(NameContext name) {
    String word = Literals.name(name);
    if (word.equals("x")) return word;
    throw new Refusal(Place.of(name),
        "found " + Wording.quoted(word)
            + " in a function line, expected \"x\", which stands for the place along the x dimension");
  }

  @Override
  public Void visitPlaneGuide(PlaneGuideContext statement) {
    guide = new Guide(Place.of(statement), Guide.Kind.PLANE);
    checkInSpace("a plane");
    guide.value = switch (statement.plane.getText()) {
      case "yz" -> "0";
      case "xz" -> "1";
      default -> "2";
    };
    return readOptions(statement.guideOption());
  }

  @Override
  public Void visitFrameGuide(FrameGuideContext statement) {
    guide = new Guide(Place.of(statement), Guide.Kind.FRAME);
    checkInSpace("a frame");
    return readOptions(statement.guideOption());
  }

  private void checkInSpace(String what) {
    if (chart.isInSpace()) return;
    throw new Refusal(guide.place, "found " + what + " in a chart without z, expected one in space");
  }

  private Void readOptions(List<GuideOptionContext> options) {
    Once once = new Once();
    for (GuideOptionContext option : options) {
          once.say(option.getStart().getText(), option);
          visit(option);
        }
        return null;
    }

    @Override
    public Void visitGuideName(GuideNameContext option) {
      guide.name = Literals.text(option.text());
      return null;
    }

    @Override
    public Void visitGuideOnly(GuideOnlyContext option) {
      guide.only = ElementReader.readOnly(option.only(), scope);
      return null;
    }

    @Override
    public Void visitGuideStyle(GuideStyleContext option) {
      guide.style = StyleReader.read(option.style());
      return null;
    }
  }
