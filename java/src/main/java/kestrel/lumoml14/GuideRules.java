package kestrel.lumoml14;

import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/** Reference lines, curves, and the view of a chart in space. */
final class GuideRules {
  private final OldChart old;
  private final NewChart chart;
  private final Report report;

  GuideRules(OldChart old, NewChart chart, Report report) {
    this.old = old;
    this.chart = chart;
    this.report = report;
  }

  void apply() throws ConversionException {
    for (OldElement each : old.all("reference")) {
      each.required("axis");
      if (each.word("axis", Words.DIMENSIONS) > 1) {
        report.lost(each, "reference lines are of x and y");
      } else {
        guide(each, "lineGuide").set(each.value("axis").strip(), each.required("at"));
      }
    }
    for (OldElement each : old.all("curve")) guide(each, "functionGuide").set("value", each.required("function"));
    views();
  }

  private MarkupElement guide(OldElement each, String kind) throws ConversionException {
    String id = chart.nextId(kind);
    Looks.ofLine(each, chart.addStyle(id + "s"));
    return chart.graph().add(kind).set("id", id).set("name", each.value("name")).set("style", id + "s");
  }

  private void views() throws ConversionException {
    boolean done = false;
    for (OldElement each : old.all("view")) {
      if (done) {
        report.lost(each, "a chart is seen from one point");
        continue;
      }
      done = true;
      chart.coordinates()
          .add("rectangularTransform")
          .set("distance", each.number("distance"))
          .set("phi", each.number("phi"))
          .set("theta", each.number("theta"))
          .set("zeta", each.number("zeta"));
      if (each.says("frame")) chart.graph().add("frameGuide").set("complete", "true");
    }
  }
}
