package kestrel.lumoml14;

import java.util.Map;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;
import kestrel.markup.MarkupWriter;

/** Brings a chart in LumoML 1.4 to the current markup. */
public final class Upgrade {
  private Upgrade() {}

  /** {the chart, the report of what could not be carried over}, both in UTF-8. */
  public static byte[][] upgrade(byte[] chart) throws ConversionException {
    Report report = new Report();
    OldChart old = OldChart.read(chart, report);
    NewChart upgraded = new NewChart();
    convert(old, upgraded, report);
    reportRest(old, report);
    return new byte[][] {MarkupWriter.write(upgraded.finished()), report.text()};
  }

  /** In the old chart elements may stand in any order: each rule finds its own. */
  private static void convert(OldChart old, NewChart chart, Report report) throws ConversionException {
    PageRules page = new PageRules(old, chart, report);
    Dimensions dimensions = new Dimensions(chart);
    page.root();
    SourceRules sources = new SourceRules(old, chart, report);
    Map<OldElement, MarkupElement> made = sources.addSources();
    new VariableRules(old, chart, report).apply();
    sources.addRows(made);
    new LayerRules(old, chart, dimensions, report).apply();
    new AxisRules(old, chart, dimensions).apply();
    dimensions.addDomains();
    new PanelRules(old, chart, report).apply();
    new GuideRules(old, chart, report).apply();
    page.headings();
    page.legends();
  }

  /** What no rule has asked for. */
  private static void reportRest(OldChart old, Report report) {
    reportRest(old.root(), report);
    for (String name : Vocabulary.elements()) {
      for (OldElement each : old.all(name)) {
        String whyLost = Vocabulary.whyLost(name);
        if (whyLost != null)
          report.lost(each, whyLost);
        else
          reportRest(each, report);
      }
    }
  }

  private static void reportRest(OldElement each, Report report) {
    for (String attribute : each.unasked()) {
      report.lost(each, attribute, Vocabulary.whyLost(each.name(), attribute));
    }
  }
}
