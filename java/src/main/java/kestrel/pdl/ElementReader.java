package kestrel.pdl;

import java.util.ArrayList;
import java.util.List;
import kestrel.markup.Numbers;
import kestrel.pdl.Element.Modifier;
import kestrel.pdl.PdlParser.BinOptionContext;
import kestrel.pdl.PdlParser.ElementAestheticContext;
import kestrel.pdl.PdlParser.ElementBinsContext;
import kestrel.pdl.PdlParser.ElementClusterContext;
import kestrel.pdl.PdlParser.ElementContext;
import kestrel.pdl.PdlParser.ElementLabelContext;
import kestrel.pdl.PdlParser.ElementModifierContext;
import kestrel.pdl.PdlParser.ElementNameContext;
import kestrel.pdl.PdlParser.ElementOnlyContext;
import kestrel.pdl.PdlParser.ElementOptionContext;
import kestrel.pdl.PdlParser.ElementPositionContext;
import kestrel.pdl.PdlParser.ElementStackedDotsContext;
import kestrel.pdl.PdlParser.ElementStatisticContext;
import kestrel.pdl.PdlParser.ElementStyleContext;
import kestrel.pdl.PdlParser.NameContext;
import kestrel.pdl.PdlParser.OnlyContext;

/** Reads one graphic element. */
final class ElementReader extends PdlBaseVisitor<Void> {
  private static final int MOST_BINS = 10_000;

  private final Scope scope;
  private final Element element;
  private final Once once = new Once();

  private ElementReader(Scope scope, Element element) {
    this.scope = scope;
    this.element = element;
  }

  static Element read(ElementContext statement, Scope scope) {
    Element element = new Element(Place.of(statement), ElementKind.of(statement.kind.getText()));
    ElementReader reader = new ElementReader(scope, element);
    for (ElementOptionContext option : statement.elementOption()) reader.visit(option);
    return element;
  }

  static Only readOnly(OnlyContext only, Scope scope) {
    Variable variable = scope.categorical(only.name(), "panels");
    return new Only(Place.of(only.name()), variable, Scope.code(variable, only.value()));
  }

  @Override
  public Void visitElementPosition(ElementPositionContext option) {
    Dimension.Name dimension = Dimension.Name.of(option.dimension());
    once.say(dimension.word(), option);
    List<Variable> variables = new ArrayList<>();
    for (NameContext name : option.name()) variables.add(scope.variable(name));
    if (variables.size() == 2) checkReach(dimension, option);
    element.positions.put(dimension, variables);
    element.positionPlaces.put(dimension, Place.of(option.name(0)));
    return null;
  }

  private void checkReach(Dimension.Name dimension, ElementPositionContext option) {
    boolean reaches = switch (element.kind) {
      case BAR, AREA -> dimension == Dimension.Name.Y;
      case EDGE -> true;
      default -> false;
    };
    if (!reaches) {
      throw new Refusal(Place.of(option.name(1)), "found a second variable for " + dimension.word() + " of "
          + element.kind.phrase()
          + ", expected one; only y of a bar or an area and all of an edge reach from one to another");
    }
    scope.measured(option.name(0), "a reach");
    scope.measured(option.name(1), "a reach");
  }

  @Override
  public Void visitElementStatistic(ElementStatisticContext option) {
    once.say("statistic", option);
    element.statistic = Statistic.of(option.statistic());
    return null;
  }

  @Override
  public Void visitElementBins(ElementBinsContext option) {
    once.say("bins", option);
    element.bins = new Element.Bins();
    Once settings = new Once();
    for (BinOptionContext setting : option.binOption()) {
          settings.say(setting.setting.getText(), setting);
          readBins(setting);
        }
        if (element.bins.count != null && element.bins.width != null) {
          throw new Refusal(Place.of(option), "found both a count and a width of bins, expected only one of them");
        }
        return null;
    }

    private void readBins(BinOptionContext setting) {
      switch (setting.setting.getText()) {
      case "count" -> element.bins.count = String.valueOf(Literals.whole(setting.number(), 1, MOST_BINS, "bins"));
      case "width" -> element.bins.width = Numbers.text(Literals.positive(setting.number(), "the width of bins"));
      default -> element.bins.start = Numbers.text(Literals.number(setting.number()));
    }
  }

  @Override
  public Void visitElementModifier(ElementModifierContext option) {
    modify(option, switch (option.modifier.getText()) {
      case "stack" -> Modifier.STACK;
      case "dodge" -> Modifier.DODGE;
      default -> Modifier.DOTS;
    });
    return null;
  }

  @Override
  public Void visitElementStackedDots(ElementStackedDotsContext option) {
    modify(option, Modifier.STACKED_DOTS);
    return null;
  }

  private void modify(ElementOptionContext option, Modifier modifier) {
    if (element.modifier != null) {
      throw new Refusal(Place.of(option), "found \"" + modifier.words() + "\" beside \"" + element.modifier.words()
          + "\", expected only one of them");
    }
    element.modifier = modifier;
  }

  @Override
  public Void visitElementCluster(ElementClusterContext option) {
    once.say("cluster", option);
    element.cluster = scope.categorical(option.name(), "clusters");
    return null;
  }

  @Override
  public Void visitElementAesthetic(ElementAestheticContext option) {
    Aesthetic.Kind kind = Aesthetic.Kind.of(option.aesthetic().kind.getText());
    once.say(kind.word(), option);
    if (!element.kind.aesthetics().contains(kind)) {
      throw new Refusal(Place.of(option), "found \"" + kind.word() + "\" of " + element.kind.phrase() + ", expected "
          + Wording.anyOf(element.kind.aesthetics().stream().map(Aesthetic.Kind::word).toList()));
    }
    element.aesthetics.add(AestheticReader.read(option.aesthetic(), kind, scope));
    return null;
  }

  @Override
  public Void visitElementLabel(ElementLabelContext option) {
    once.say("label", option);
    element.label = scope.variable(option.name());
    Once formats = new Once();
    option.format().forEach(format -> formats.say("format", format));
    if (!option.format().isEmpty()) element.labelFormat = FormatReader.read(option.format(0));
    return null;
  }

  @Override
  public Void visitElementName(ElementNameContext option) {
    once.say("name", option);
    element.name = Literals.text(option.text());
    return null;
  }

  @Override
  public Void visitElementOnly(ElementOnlyContext option) {
    once.say("only", option);
    element.only = readOnly(option.only(), scope);
    return null;
  }

  @Override
  public Void visitElementStyle(ElementStyleContext option) {
    once.say("style", option);
    element.style = StyleReader.read(option.style());
    return null;
  }
}
