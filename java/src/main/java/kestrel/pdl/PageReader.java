package kestrel.pdl;

import java.util.List;
import java.util.Locale;
import kestrel.pdl.PdlParser.HeadingContext;
import kestrel.pdl.PdlParser.LegendHiddenContext;
import kestrel.pdl.PdlParser.LegendOfContext;
import kestrel.pdl.PdlParser.LegendOptionContext;
import kestrel.pdl.PdlParser.LegendTitleContext;
import kestrel.pdl.PdlParser.NoLegendsContext;
import kestrel.pdl.PdlParser.PageContext;
import kestrel.pdl.PdlParser.PageHeightContext;
import kestrel.pdl.PdlParser.PageOptionContext;
import kestrel.pdl.PdlParser.PageStyleContext;
import kestrel.pdl.PdlParser.PageWidthContext;

/** Reads what stands around the data: the page, headings and legends. */
final class PageReader extends PdlBaseVisitor<Void> {
  private final Scope scope;
  private final Chart chart;
  private Legend legend;

  PageReader(Scope scope, Chart chart) {
    this.scope = scope;
    this.chart = chart;
  }

  @Override
  public Void visitPage(PageContext statement) {
    Once once = new Once();
    for (PageOptionContext option : statement.pageOption()) {
      once.say(option.getStart().getText(), option);
      visit(option);
    }
    return null;
  }

  @Override
  public Void visitPageWidth(PageWidthContext option) {
    chart.width = Literals.length(option.length());
    return null;
  }

  @Override
  public Void visitPageHeight(PageHeightContext option) {
    chart.height = Literals.length(option.length());
    return null;
  }

  @Override
  public Void visitPageStyle(PageStyleContext option) {
    chart.pageStyle = StyleReader.read(option.style());
    return null;
  }

  @Override
  public Void visitHeading(HeadingContext statement) {
    Heading.Kind kind = Heading.Kind.valueOf(statement.kind.getText().toUpperCase(Locale.ROOT));
    List<Heading> before = chart.headings.stream().filter(heading -> heading.kind() == kind).toList();
    if (before.size() == kind.most()) {
      throw new Refusal(Place.of(statement),
          "found one " + kind.word() + " too many, expected no more than " + kind.most()
              + (kind.most() == 1 ? "" : " of them"));
    }
    chart.headings.add(new Heading(kind, Literals.text(statement.text()), StyleReader.readFirst(statement.style())));
    return null;
  }

  @Override
  public Void visitNoLegends(NoLegendsContext statement) {
    chart.hasLegends = false;
    return null;
  }

  @Override
  public Void visitLegendOf(LegendOfContext statement) {
    Variable variable = scope.variable(statement.name());
    legend = new Legend(Place.of(statement));
    if (chart.legends.put(variable, legend) != null) {
      throw new Refusal(legend.place, "found a second legend of " + Wording.quoted(variable.name) + ", expected one");
    }
    boolean shown = chart.elements.stream()
                        .flatMap(element -> element.aesthetics.stream())
                        .anyMatch(aesthetic -> aesthetic.variable == variable);
    if (!shown) {
      throw new Refusal(Place.of(statement.name()),
          "found a legend of " + Wording.quoted(variable.name)
              + ", expected a variable that an element shows by its color, shape or another look");
    }
    Once once = new Once();
    for (LegendOptionContext option : statement.legendOption()) {
      once.say(option.getStart().getText(), option);
      visit(option);
    }
    return null;
  }

  @Override
  public Void visitLegendTitle(LegendTitleContext option) {
    legend.title = Literals.text(option.text());
    return null;
  }

  @Override
  public Void visitLegendHidden(LegendHiddenContext option) {
    legend.hidden = true;
    return null;
  }
}
