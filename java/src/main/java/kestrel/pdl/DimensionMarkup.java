package kestrel.pdl;

import kestrel.markup.MarkupElement;
import kestrel.markup.Numbers;

/** Writes coordinates, dimensions, domains and axes. */
final class DimensionMarkup {
  private final Parts parts;
  private final Chart chart;

  DimensionMarkup(Parts parts, Chart chart) {
    this.parts = parts;
    this.chart = chart;
  }

  void write() {
    MarkupElement coordinates = parts.graph.add("coordinates").set("id", "coordinates0");
    for (Dimension dimension : chart.dimensions.values()) {
      if (dimension.name != Dimension.Name.Z || chart.isInSpace()) writeDimension(dimension, coordinates);
    }
    writeTransforms(coordinates);
  }

  private void writeDimension(Dimension dimension, MarkupElement coordinates) {
    MarkupElement written = coordinates.add("dimension");
    written.set("domain", writeDomain(dimension));
    if (dimension.cluster != null) {
      written.set("clusterVariable", dimension.cluster.id)
          .set("clusterGap", "10%")
          .set("lowerMargin", "5%")
          .set("upperMargin", "5%");
    }
    if (dimension.scale != null) writeScale(dimension.scale, written);
    boolean measures = !dimension.variables.isEmpty() || dimension.computed;
    if (dimension.axis == null ? measures : !dimension.axis.hidden) {
      writeAxis(dimension, dimension.axis == null ? new Axis() : dimension.axis, 1, written);
    }
    if (dimension.secondAxis != null) writeAxis(dimension, dimension.secondAxis, 2, written);
  }

  /** Gives the id of the domain; null for a dimension that needs none. */
  private String writeDomain(Dimension dimension) {
    boolean range = dimension.scale != null && dimension.scale.hasRange();
    if (dimension.variables.isEmpty() && !range) return null;
    String tag = dimension.kind() == Kind.CATEGORICAL ? "categoricalDomain" : "intervalDomain";
    String id = parts.idFrom0(tag);
    MarkupElement domain = parts.root.add(tag).set("id", id).set("date", dimension.kind() == Kind.DATE ? "true" : null);
    for (Variable variable : dimension.variables) domain.add("variableReference").set("ref", variable.id);
    if (range) {
      domain.add("range")
          .set("exact", String.valueOf(dimension.scale.exact))
          .set("min", dimension.scale.minimum)
          .set("max", dimension.scale.maximum);
    }
    return id;
  }

  private static void writeScale(Scale scale, MarkupElement dimension) {
    if (scale.lowerMargin != null) {
      dimension.set("lowerMargin", scale.lowerMargin).set("upperMargin", scale.upperMargin);
    }
    if (scale.nice != null) {
      dimension.set("niceLowerMapping", scale.nice.toString()).set("niceUpperMapping", scale.nice.toString());
    }
    if (!scale.isScale()) return;
    Scale.Method method = scale.method == null ? Scale.Method.LINEAR : scale.method;
    dimension.add("scale")
        .set("method", method.number())
        .set("base", text(scale.base))
        .set("invert", scale.reverse ? "true" : null)
        .set("origin", scale.origin);
  }

  private void writeAxis(Dimension dimension, Axis axis, int number, MarkupElement written) {
    String style = parts.style("axis_axis" + dimension.name.word() + "_" + number + "s", axis.style);
    MarkupElement drawn = written.add("axis")
                              .set("combineAxisLabels", "true")
                              .set("repeat", "0")
                              .set("style", style)
                              .set("opposite", axis.opposite ? "true" : null)
                              .set("transform", axis.derived ? "1" : null);
    writeTicks(axis, drawn.add("majorTicks"));
    String label = axis.label != null ? axis.label : number == 1 ? ownLabel(dimension) : "";
    if (label.isEmpty()) return;
    drawn.add("label").set("style", parts.style("label")).add("text").setText(label);
  }

  private void writeTicks(Axis axis, MarkupElement written) {
    Axis.Ticks ticks = axis.ticks;
    written.set("style", parts.style("tickStyle", ticks.style))
        .set("markStyle", parts.style("markStyle"))
        .set("tickFrameStyle", parts.style("tickLabelStyle", new Style().with("visible", "false")))
        .set("delta", text(ticks.step))
        .set("labelAngle", text(ticks.angle))
        .set("labelFrequency", ticks.every == null ? null : ticks.every.toString())
        .set("length", ticks.length)
        .set("stagger", ticks.stagger ? "true" : null);
    if (ticks.format != null) ticks.format.writeTo(written.add("format"));
    if (axis.gridlines) written.add("gridline");
  }

  /** That of the one variable that the dimension shows. */
  private static String ownLabel(Dimension dimension) {
    return dimension.variables.size() == 1 ? dimension.variables.iterator().next().labelOrName() : "";
  }

  private void writeTransforms(MarkupElement coordinates) {
    Coordinates transforms = chart.coordinates;
    if (transforms.transpose) coordinates.add("transposeTransform");
    transforms.reflections.forEach((dimension, alternating)
                                       -> coordinates.add("reflectionTransform")
                                              .set("dimension", String.valueOf(dimension.ordinal()))
                                              .set("alternating", alternating.toString()));
    if (transforms.sameRatio) coordinates.add("sameRatioTransform").set("center", "true");
    if (transforms.polar) coordinates.add("polarTransform");
    if (!chart.isInSpace()) return;
    Coordinates.View view = transforms.view == null ? new Coordinates.View() : transforms.view;
    coordinates.add("rectangularTransform")
        .set("distance", Numbers.text(view.distance))
        .set("phi", Numbers.text(view.phi))
        .set("theta", Numbers.text(view.theta))
        .set("zeta", Numbers.text(view.zeta));
  }

  private static String text(Double number) {
    return number == null ? null : Numbers.text(number);
  }
}
