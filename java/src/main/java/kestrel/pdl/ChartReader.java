package kestrel.pdl;

import java.util.ArrayList;
import java.util.List;
import java.util.function.Function;
import kestrel.pdl.PdlParser.DescriptionContext;
import kestrel.pdl.PdlParser.DimensionContext;
import kestrel.pdl.PdlParser.StatementContext;
import org.antlr.v4.runtime.ParserRuleContext;

/**
 * Reads a whole description, in the order in which its parts build upon each other: data and the page first, then
 * elements, which say what the dimensions measure, then what stands around them. So statements may stand in any order,
 * except that variables are declared before others are derived of them.
 */
final class ChartReader {
  private final List<StatementContext> statements;
  private final Scope scope = new Scope();
  private final Chart chart = new Chart();

  private ChartReader(List<StatementContext> statements) {
    this.statements = statements;
  }

  static Chart read(DescriptionContext description) {
    ChartReader reader = new ChartReader(description.statement());
    if (description.text() != null) reader.chart.description = Literals.text(description.text());
    reader.readData();
    reader.readPage();
    reader.readElements(Place.of(description.getStop()));
    reader.readFrame();
    return reader.chart;
  }

  private void readData() {
    all(StatementContext::source).forEach(source -> scope.declareSource(source.name()));
    chart.sources = scope.sourceIds();
    int derived = 0;
    for (var statement : all(StatementContext::variable)) {
      boolean isDerived = statement.sum() != null;
      int number = isDerived ? derived : chart.variables.size() - derived;
      chart.variables.add(VariableReader.read(statement, scope, number));
      if (isDerived) ++derived;
    }
    scope.complete();
  }

  private void readPage() {
    var language = once(StatementContext::language, "language");
    if (language != null) chart.language = Literals.text(language.text());
    PageReader reader = new PageReader(scope, chart);
    var page = once(StatementContext::page, "page");
    if (page != null) reader.visit(page);
    all(StatementContext::heading).forEach(reader::visit);
  }

  private void readElements(Place end) {
    var panels = once(StatementContext::panels, "panels");
    if (panels != null) chart.panels = PanelReader.read(panels, scope);
    for (var statement : all(StatementContext::element)) {
      Element element = ElementReader.read(statement, scope);
      ElementChecks.check(element, chart.panels);
      chart.elements.add(element);
    }
    if (chart.elements.isEmpty()) {
      throw new Refusal(end, "found no element, expected at least one, such as \"point\" or \"bar\"");
    }
    DimensionChecks.gather(chart);
  }

  private void readFrame() {
    for (var statement : all(StatementContext::scale)) {
      DimensionReader.readScale(statement, shown(statement.dimension(), "scale"));
    }
    for (var statement : all(StatementContext::axis)) {
      AxisReader.read(statement, shown(statement.dimension(), "axis"));
    }
    var coordinates = once(StatementContext::coordinates, "coordinates");
    if (coordinates != null) chart.coordinates = CoordinatesReader.read(coordinates, chart.isInSpace());
    for (var statement : all(StatementContext::guide)) {
      Guide guide = GuideReader.read(statement, scope, chart);
      ElementChecks.checkOnly(guide.only, chart.panels);
      chart.guides.add(guide);
    }
    all(StatementContext::legend).forEach(new PageReader(scope, chart)::visit);
  }

  private Dimension shown(DimensionContext dimension, String what) {
    Dimension found = chart.dimensions.get(Dimension.Name.of(dimension));
    if (found.name != Dimension.Name.Z || chart.isInSpace()) return found;
    throw new Refusal(Place.of(dimension), "found the " + what + " of z, expected x or y: no element shows a z");
  }

  private <T extends ParserRuleContext> List<T> all(Function<StatementContext, T> part) {
    List<T> found = new ArrayList<>();
    for (StatementContext statement : statements) {
      T one = part.apply(statement);
      if (one != null) found.add(one);
    }
    return found;
  }

  /** The one statement of its sort, or null. */
  private <T extends ParserRuleContext> T once(Function<StatementContext, T> part, String what) {
    Once once = new Once();
    List<T> found = all(part);
    found.forEach(one -> once.say(what, one));
    return found.isEmpty() ? null : found.get(0);
  }
}
