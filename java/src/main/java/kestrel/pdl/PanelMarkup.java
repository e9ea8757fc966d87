package kestrel.pdl;

import java.util.List;
import kestrel.markup.MarkupElement;
import kestrel.markup.Numbers;

/** Writes panels: how they cross and nest, and the axes around them. */
final class PanelMarkup {
  private static final String USUAL_GAP = "5%";

  /** The halves of a pyramid touch, its rows keep a distance. */
  private static final String GAP_OF_HALVES = "0%";

  private static final String GAP_OF_PYRAMIDS = "10%";

  private final Parts parts;
  private final Panels panels;
  private final Coordinates coordinates;

  PanelMarkup(Parts parts, Chart chart) {
    this.parts = parts;
    panels = chart.panels;
    coordinates = chart.coordinates;
  }

  void write() {
    boolean pyramid = coordinates.isMirrored() && panels.columns.variables.size() == 1;
    if (panels.isSplit()) {
      if (pyramid) {
        writePyramid();
      } else {
        writeSplit();
      }
    }
    boolean aspect = panels.aspect != null || coordinates.sameRatio;
    if (!panels.isSplit() && panels.blend.isEmpty() && !aspect) return;
    MarkupElement layout = parts.graph.add("facetLayout").set("topDown", "true");
    if (panels.isSplit() || aspect) layout.set("method", "1");
    if (aspect) layout.set("cellAspect", panels.aspect == null ? "1" : Numbers.text(panels.aspect));
    List<Variable> levels = panels.levels();
    for (int level = 1; level <= levels.size(); ++level) writeLevel(layout, levels.get(level - 1), level, pyramid);
    if (!panels.blend.isEmpty()) writeBlendLevel(layout);
  }

  private void writeSplit() {
    boolean nested = panels.columns.nested || panels.rows.nested;
    MarkupElement cross =
        parts.graph.add("faceting").set("id", "faceting0").set("method", nested ? "nest" : "cross").add("cross");
    int column = 0;
    int row = 0;
    while (column < panels.columns.variables.size() || row < panels.rows.variables.size()) {
      column = takeTurn(cross, panels.columns, column);
      row = takeTurn(cross, panels.rows, row);
    }
  }

  /** A direction's next variable, all of them where they nest, or a filler where they have run out. */
  private static int takeTurn(MarkupElement cross, Panels.Side side, int next) {
    if (next == side.variables.size()) {
      cross.add("unity");
      return next;
    }
    if (!side.nested) {
      refer(cross, side.variables.get(next));
      return next + 1;
    }
    MarkupElement nest = cross.add("nest");
    side.variables.forEach(variable -> refer(nest, variable));
    return side.variables.size();
  }

  /** A cross within the cross; every second row variable opens one more, behind a filler. */
  private void writePyramid() {
    MarkupElement cross = parts.graph.add("faceting").set("method", "cross").add("cross").add("cross");
    refer(cross, panels.columns.variables.get(0));
    List<Variable> rows = panels.rows.variables;
    MarkupElement place = panels.rows.nested ? cross.add("nest") : cross;
    for (int at = 0; at < rows.size(); ++at) {
      if (at % 2 == 1 && !panels.rows.nested) {
        place = place.add("cross");
        place.add("unity");
      }
      refer(place, rows.get(at));
    }
  }

  private static void refer(MarkupElement place, Variable variable) {
    place.add("variableReference").set("ref", variable.id);
  }

  private void writeLevel(MarkupElement layout, Variable variable, int level, boolean pyramid) {
    boolean row = panels.rows.variables.contains(variable);
    String usual = !pyramid ? USUAL_GAP : row ? GAP_OF_PYRAMIDS : GAP_OF_HALVES;
    MarkupElement axis = layout.add("facetLevel")
                             .set("gap", panels.gap == null ? usual : panels.gap)
                             .set("id", "facetLabel_panel_" + level)
                             .set("level", String.valueOf(level))
                             .add("axis");
    axis.set("opposite", "true").set("style", parts.style("axis_panel_" + level + "s"));
    MarkupElement label = axis.add("label")
                              .set("style", parts.style("label_panel_" + level + "s"))
                              .set("textFrameStyle", parts.style("textFrame_panel_" + level + "s", hidden()));
    label.add("text").setText(variable.labelOrName());
    writeTicks(axis, "majorTicks_axis_panel_" + level, hidden()).set("labelAngle", row && !pyramid ? "90" : null);
  }

  private void writeBlendLevel(MarkupElement layout) {
    MarkupElement axis =
        layout.add("facetLevel").set("id", "facetLabel_matrixscatterx_1").set("level", "1").add("axis");
    axis.set("style", parts.style("axis_matrixscatterx_1s"));
    writeTicks(axis, "majorTicks_axis_matrixscatterx_1", new Style())
        .set("base", "0")
        .set("labelAngle", "0")
        .set("length", "0.0px")
        .set("stagger", "false");
  }

  private MarkupElement writeTicks(MarkupElement axis, String id, Style frame) {
    return axis.add("majorTicks")
        .set("markStyle", parts.style(id + "markStyle"))
        .set("style", parts.style(id + "tickLabelStyle"))
        .set("tickFrameStyle", parts.style(id + "tickFrameStyle", frame));
  }

  private static Style hidden() {
    return new Style().with("visible", "false");
  }
}
