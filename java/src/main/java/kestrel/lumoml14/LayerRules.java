package kestrel.lumoml14;

import java.util.LinkedHashMap;
import java.util.Map;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/** Layers become elements: their statistics, positions, looks and labels stand in attributes, and now in children. */
final class LayerRules {
  private static final String BAR = "bar";
  private static final String BOX = "box";
  private static final String ERROR_BAR = "errorbar";
  private static final String HISTOGRAM = "histogram";

  private static final String METHOD_ERROR_BAR = "7";
  private static final String METHOD_HISTOGRAM = "10";
  private static final String STACKED_DOTS = "7";

  /** The element for each kind of layer. */
  private static final Map<String, String> KINDS = kinds();

  /** The styles of the parts of a box. */
  private static final String[][] BOX_PARTS = {{"boxcolor", "hingeStyle", "tukeyHinges"},
      {"mediancolor", "medianStyle", "median"}, {"whiskercolor", "fenceStyle", "tukeyInnerFence"},
      {"outliercolor", "outlierStyle", "tukeyOutliers"}, {"extremecolor", "extremeStyle", "tukeyExtremes"}};

  private final OldChart old;
  private final NewChart chart;
  private final Report report;
  private final Dimensions dimensions;

  LayerRules(OldChart old, NewChart chart, Dimensions dimensions, Report report) {
    this.old = old;
    this.chart = chart;
    this.dimensions = dimensions;
    this.report = report;
  }

  void apply() throws ConversionException {
    for (OldElement each : old.all("layer")) layer(each);
  }

  private void layer(OldElement each) throws ConversionException {
    each.required("kind");
    String element = each.word("kind", KINDS);
    String kind = each.value("kind").strip();
    MarkupElement made = add(each, element, kind);
    position(each, made);
    if (kind.equals(HISTOGRAM)) bins(each, made);
    if (kind.equals("dot")) made.set("positionModifier", STACKED_DOTS).add("binStatistic").set("gridType", "1");
    if (kind.equals(BOX)) box(each, made);
    if (kind.equals(ERROR_BAR)) errorBar(made);
    statistic(each, made);
    Groupings groupings = new Groupings(chart, each, made);
    groupings.apply();
    arrange(each, made, groupings);
    labels(each, made);
    if (kind.equals(BAR) && each.says("errorbars")) addErrorBars(each);
    chart.explained().addAll(groupings.aesthetics());
    if (groupings.aesthetics().isEmpty() && each.has("name")) chart.explained().add(made);
  }

  private MarkupElement add(OldElement each, String element, String kind) throws ConversionException {
    String id = chart.nextId("element_" + kind + "_");
    MarkupElement made = chart.graph().add(element).set("id", id).set("style", id + "s");
    made.set("name", each.value("name"));
    Looks.ofElement(each, chart.addStyle(id + "s"));
    made.set("labelCollisionHandling", each.word("overlap", Words.OVERLAPS));
    return made;
  }

  private void position(OldElement each, MarkupElement made) throws ConversionException {
    for (Map.Entry<String, Integer> dimension : Words.DIMENSIONS.entrySet()) {
      Variable variable = chart.variable(each, dimension.getKey());
      if (variable == null) continue;
      made.add(dimension.getKey()).set("variable", variable.name());
      dimensions.show(dimension.getValue(), variable);
    }
    if (made.find("x") == null && made.find("y") == null) {
      throw each.refusal("\"layer\" needs one of the attributes \"x\" and \"y\"");
    }
  }

  private static void bins(OldElement each, MarkupElement made) throws ConversionException {
    Integer count = each.count("bins");
    String width = each.number("binwidth");
    made.add("binStatistic")
        .set("binCount", count == null ? null : forEachDirection(count.toString()))
        .set("binStart", forEachDirection(each.number("binstart")))
        .set("binWidth", width == null ? null : forEachDirection(width + "d"));
    made.add("summaryStatistic").set("method", METHOD_HISTOGRAM);
  }

  private static String forEachDirection(String text) {
    return text == null ? null : text + ";" + text + ";" + text;
  }

  private void box(OldElement each, MarkupElement made) throws ConversionException {
    made.add("tukeyStatistic");
    for (String[] part : BOX_PARTS) {
      String color = each.color(part[0]);
      if (color == null) continue;
      String id = chart.nextId("element_" + part[2] + "_") + "s";
      chart.addStyle(id).set("color", color);
      made.set(part[1], id);
    }
  }

  private void errorBar(MarkupElement made) {
    made.add("summaryStatistic").set("method", METHOD_ERROR_BAR);
    MarkupElement style = chart.styleOf(made);
    if (style.attribute("symbol") == null) style.set("symbol", "ibeam");
    if (style.attribute("width") == null) style.set("width", "25%");
  }

  /** The bars that an old layer drew over its own are a further element. */
  private void addErrorBars(OldElement each) throws ConversionException {
    String id = chart.nextId("element_" + ERROR_BAR + "_");
    MarkupElement made = chart.graph().add("interval").set("id", id).set("style", id + "s");
    chart.addStyle(id + "s");
    errorBar(made);
    position(each, made);
  }

  private void statistic(OldElement each, MarkupElement made) throws ConversionException {
    if (made.find("summaryStatistic") != null) return;
    String method = each.word("statistic", Words.STATISTICS);
    if (method == null || method.isEmpty()) return;
    if (method.equals(Words.LOST)) {
      report.lost(each, "statistic", "values are drawn as they are in the data");
    } else {
      made.add("summaryStatistic").set("method", method);
    }
  }

  private void arrange(OldElement each, MarkupElement made, Groupings groupings) throws ConversionException {
    String modifier = each.word("arrange", Words.ARRANGEMENTS);
    if (modifier == null || modifier.isEmpty()) return;
    if (!modifier.equals("cluster")) {
      made.set("positionModifier", modifier);
    } else if (groupings.firstVariable() == null) {
      throw each.malformed("arrange", "cluster", "it needs groups, such as a string variable in \"colorby\"");
    } else if (!dimensions.cluster(groupings.firstVariable(), each.percent("gap"))) {
      report.lost(each, "arrange", "another layer is clustered by another variable");
    }
  }

  private void labels(OldElement each, MarkupElement made) throws ConversionException {
    Variable variable = chart.variable(each, "labelsby");
    if (variable == null) return;
    made.add("labeling")
        .set("variable", variable.name())
        .set("dimension", "0")
        .set("connectingLines", each.truth("labellines"));
  }

  private static Map<String, String> kinds() {
    Map<String, String> kinds = new LinkedHashMap<>();
    kinds.put("point", "point");
    kinds.put("dot", "point");
    kinds.put("line", "line");
    kinds.put("path", "path");
    kinds.put("area", "area");
    kinds.put(BAR, "interval");
    kinds.put(HISTOGRAM, "interval");
    kinds.put(ERROR_BAR, "interval");
    kinds.put(BOX, "schema");
    return kinds;
  }
}
