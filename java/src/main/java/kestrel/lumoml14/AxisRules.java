package kestrel.lumoml14;

import java.util.HashSet;
import java.util.List;
import java.util.Set;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/**
 * Axes: one old element holds what is now a dimension, its domain and scale, the axis, its label, ticks and gridlines.
 */
final class AxisRules {
  private final OldChart old;
  private final NewChart chart;
  private final Dimensions dimensions;
  private final Set<Integer> withAxis = new HashSet<>();

  AxisRules(OldChart old, NewChart chart, Dimensions dimensions) {
    this.old = old;
    this.chart = chart;
    this.dimensions = dimensions;
  }

  void apply() throws ConversionException {
    for (OldElement each : old.all("axis")) axis(each);
  }

  private void axis(OldElement each) throws ConversionException {
    each.required("of");
    int number = each.word("of", Words.DIMENSIONS);
    boolean second = each.says("second");
    MarkupElement dimension = dimensions.need(number);
    if (!second) {
      if (!withAxis.add(number)) throw each.malformed("of", each.value("of"), "another axis is of it; see \"second\"");
      bounds(each, number);
      scale(each, dimension);
      margins(each, dimension);
    }
    String id = chart.nextId("axis_axis" + each.value("of").strip() + "_");
    MarkupElement axis = dimension.add("axis").set("id", id).set("style", id + "s");
    MarkupElement style = chart.addStyle(id + "s");
    style.set("color", each.color("color")).set("stroke_width", each.points("linewidth"));
    String side = each.word("side", Words.SIDES);
    axis.set("opposite", side == null && second ? "true" : side).set("transform", second ? "1" : null);
    label(each, axis);
    ticks(each, axis);
  }

  private void bounds(OldElement each, int number) throws ConversionException {
    if (!each.has("min") && !each.has("max")) return;
    if (dimensions.isCategorical(number)) {
      throw each.refusal("\"min\" and \"max\" are for axes of numbers and dates, and this one has categories");
    }
    String min = bound(each, "min", number);
    String max = bound(each, "max", number);
    String exact = each.truth("exact");
    dimensions.domainOf(number)
        .add("range")
        .set("min", min)
        .set("max", max)
        .set("exact", exact == null ? "true" : exact);
  }

  private String bound(OldElement each, String attribute, int number) throws ConversionException {
    if (!dimensions.isDate(number)) return each.number(attribute);
    String date = each.value(attribute);
    if (date != null && Values.seconds(date) == null) {
      throw each.malformed(attribute, date, "it has to be a date such as 2012-01-31");
    }
    return date;
  }

  private static void scale(OldElement each, MarkupElement dimension) throws ConversionException {
    String method = each.word("scale", Words.SCALES);
    String base = each.number("logbase");
    String reverse = each.truth("reverse");
    String origin = each.number("origin");
    if (method == null && base == null && reverse == null && origin == null) return;
    dimension.add("scale")
        .set("method", method == null ? "1" : method)
        .set("base", base)
        .set("invert", reverse)
        .set("origin", origin);
  }

  private static void margins(OldElement each, MarkupElement dimension) throws ConversionException {
    List<String> margins = each.list("margins", Values::percent, "a percentage from 0 to 100");
    if (margins.size() > 2) throw each.malformed("margins", each.value("margins"), "it has to be one margin or two");
    if (!margins.isEmpty()) {
      dimension.set("lowerMargin", margins.get(0)).set("upperMargin", margins.get(margins.size() - 1));
    }
    String nice = each.truth("nice");
    dimension.set("niceLowerMapping", nice).set("niceUpperMapping", nice);
  }

  private void label(OldElement each, MarkupElement axis) throws ConversionException {
    String text = each.value("label");
    if (text == null) return;
    String id = axis.attribute("id") + "_label";
    axis.add("label").set("style", id).add("text").setText(text);
    chart.addStyle(id)
        .set("color", each.color("labelcolor"))
        .set("font_size", each.points("labelsize"))
        .set("font_family", each.value("labelfont"))
        .set("font_weight", Looks.weight(each, "labelbold"));
  }

  private void ticks(OldElement each, MarkupElement axis) throws ConversionException {
    MarkupElement ticks = axis.add("majorTicks");
    Integer every = each.count("every");
    ticks.set("delta", each.number("step"))
        .set("base", each.number("start"))
        .set("length", each.points("ticklength"))
        .set("labelAngle", each.number("angle"))
        .set("stagger", each.truth("stagger"))
        .set("labelFrequency", every == null ? null : every.toString());
    style(axis, ticks, "markStyle").set("visible", each.truth("ticks"));
    style(axis, ticks, "style")
        .set("visible", each.truth("ticklabels"))
        .set("color", each.color("tickcolor"))
        .set("font_size", each.points("ticksize"));
    style(axis, ticks, "tickFrameStyle").set("visible", "false");
    Formats.apply(each, ticks);
    grid(each, axis, ticks);
  }

  private MarkupElement style(MarkupElement axis, MarkupElement ticks, String attribute) {
    String id = axis.attribute("id") + "_" + attribute;
    ticks.set(attribute, id);
    return chart.addStyle(id);
  }

  private void grid(OldElement each, MarkupElement axis, MarkupElement ticks) throws ConversionException {
    if (!each.says("grid")) return;
    String id = axis.attribute("id") + "_grid";
    ticks.add("gridline").set("style", id);
    chart.addStyle(id).set("color", each.color("gridcolor")).set("stroke_dasharray", Looks.dash(each, "griddash"));
  }
}
