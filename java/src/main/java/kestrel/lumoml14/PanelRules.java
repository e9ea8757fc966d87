package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.List;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/** Panels: lists of variables become a tree of crossed or nested ones, and a level of axes for each. */
final class PanelRules {
  private final OldChart old;
  private final NewChart chart;
  private final Report report;

  PanelRules(OldChart old, NewChart chart, Report report) {
    this.old = old;
    this.chart = chart;
    this.report = report;
  }

  void apply() throws ConversionException {
    boolean done = false;
    for (OldElement each : old.all("panels")) {
      if (done) {
        report.lost(each, "a chart has one set of panels");
      } else {
        panels(each);
        done = true;
      }
    }
  }

  private void panels(OldElement each) throws ConversionException {
    List<Variable> columns = chart.variables(each, "columns");
    List<Variable> rows = chart.variables(each, "rows");
    if (columns.isEmpty() && rows.isEmpty()) {
      throw each.refusal("\"panels\" needs one of the attributes \"columns\" and \"rows\"");
    }
    String method = each.word("method", Words.PANEL_METHODS);
    MarkupElement faceting = chart.graph().add("faceting").set("id", "faceting0");
    faceting.set("method", method == null ? "cross" : method);
    MarkupElement cross = faceting.add("cross");
    List<Variable> inOrder = "nest".equals(method) ? nested(cross, columns, rows) : crossed(cross, columns, rows);
    layout(each, inOrder);
  }

  /** Columns and rows take turns; a direction that has run out of variables is a unity. */
  private static List<Variable> crossed(MarkupElement cross, List<Variable> columns, List<Variable> rows) {
    List<Variable> inOrder = new ArrayList<>();
    for (int at = 0; at < Math.max(columns.size(), rows.size()); ++at) {
      for (List<Variable> direction : List.of(columns, rows)) {
        if (at < direction.size()) {
          refer(cross, direction.get(at));
          inOrder.add(direction.get(at));
        } else {
          cross.add("unity");
        }
      }
    }
    return inOrder;
  }

  private static List<Variable> nested(MarkupElement cross, List<Variable> columns, List<Variable> rows) {
    List<Variable> inOrder = new ArrayList<>();
    for (List<Variable> direction : List.of(columns, rows)) {
      MarkupElement place = cross.add(direction.isEmpty() ? "unity" : "nest");
      for (Variable variable : direction) refer(place, variable);
      inOrder.addAll(direction);
    }
    return inOrder;
  }

  private static void refer(MarkupElement place, Variable variable) {
    place.add("variableReference").set("ref", variable.name());
  }

  private void layout(OldElement each, List<Variable> variables) throws ConversionException {
    String topDown = each.truth("topdown");
    MarkupElement layout = chart.graph().add("facetLayout").set("method", "1");
    layout.set("topDown", topDown == null ? "true" : topDown).set("cellAspect", each.number("aspect"));
    String gap = each.percent("gap");
    boolean labelled = !"false".equals(each.truth("labels"));
    for (int at = 0; at < variables.size(); ++at) {
      String id = chart.nextId("facetLabel_panel_");
      MarkupElement level = layout.add("facetLevel").set("id", id).set("level", Integer.toString(at + 1));
      MarkupElement axis = level.set("gap", gap == null ? "5%" : gap).add("axis").set("opposite", "true");
      axis.set("style", id + "s");
      chart.addStyle(id + "s").set("visible", labelled ? null : "false");
      String label = variables.get(at).label();
      if (labelled && label != null) axis.add("label").add("text").setText(label);
    }
  }
}
