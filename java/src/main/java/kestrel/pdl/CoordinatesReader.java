package kestrel.pdl;

import java.util.Set;
import kestrel.pdl.PdlParser.CoordinatesContext;
import kestrel.pdl.PdlParser.CoordinatesOptionContext;
import kestrel.pdl.PdlParser.PolarContext;
import kestrel.pdl.PdlParser.ReflectContext;
import kestrel.pdl.PdlParser.SameRatioContext;
import kestrel.pdl.PdlParser.TransposeContext;
import kestrel.pdl.PdlParser.ViewContext;
import kestrel.pdl.PdlParser.ViewOptionContext;

/** Reads the transforms of the coordinates. */
final class CoordinatesReader extends PdlBaseVisitor<Void> {
  private static final Set<String> ONCE = Set.of("transpose", "same", "polar", "view");

  private final boolean inSpace;
  private final Coordinates coordinates = new Coordinates();

  private CoordinatesReader(boolean inSpace) {
    this.inSpace = inSpace;
  }

  static Coordinates read(CoordinatesContext statement, boolean inSpace) {
    CoordinatesReader reader = new CoordinatesReader(inSpace);
    Once once = new Once();
    for (CoordinatesOptionContext option : statement.coordinatesOption()) {
      String word = option.getStart().getText();
      if (ONCE.contains(word)) once.say(word, option);
      reader.visit(option);
    }
    return reader.coordinates;
  }

  @Override
  public Void visitTranspose(TransposeContext option) {
    coordinates.transpose = true;
    return null;
  }

  @Override
  public Void visitReflect(ReflectContext option) {
    Dimension.Name dimension = Dimension.Name.of(option.dimension());
    boolean alternating = option.getStop().getText().equals("alternating");
    if (coordinates.reflections.put(dimension, alternating) != null) {
      throw new Refusal(
          Place.of(option), "found a second reflection of " + dimension.word() + ", expected one of each dimension");
    }
    if (dimension == Dimension.Name.Z && !inSpace) throw withoutSpace(option, "a reflection of z");
    return null;
  }

  @Override
  public Void visitSameRatio(SameRatioContext option) {
    coordinates.sameRatio = true;
    return null;
  }

  @Override
  public Void visitPolar(PolarContext option) {
    if (inSpace) {
      throw new Refusal(Place.of(option), "found polar coordinates of a chart with z, expected x and y alone");
    }
    coordinates.polar = true;
    return null;
  }

  @Override
  public Void visitView(ViewContext option) {
    if (!inSpace) throw withoutSpace(option, "a view");
    coordinates.view = new Coordinates.View();
    Once once = new Once();
    for (ViewOptionContext angle : option.viewOption()) {
      String word = angle.angle.getText();
      once.say(word, angle);
      switch (word) {
        case "distance" -> coordinates.view.distance = Literals.positive(angle.number(), "a distance");
        case "phi" -> coordinates.view.phi = Literals.number(angle.number());
        case "theta" -> coordinates.view.theta = Literals.number(angle.number());
        default -> coordinates.view.zeta = Literals.number(angle.number());
      }
    }
    return null;
  }

  private static Refusal withoutSpace(CoordinatesOptionContext option, String what) {
    return new Refusal(Place.of(option), "found " + what + " of a chart without z, expected one in space");
  }
}
