package kestrel.pdl;

import java.util.HashMap;
import java.util.List;
import java.util.Map;
import kestrel.markup.MarkupElement;

/** Writes graphic elements with their statistics and aesthetics. */
final class ElementMarkup {
  /** The id of the variable that lays others side by side. */
  static final String BLEND = "expressionVariable1";

  /** The styles of the parts of a box plot: the attribute, and the id. */
  private static final List<Map.Entry<String, String>> BOX_STYLES =
      List.of(Map.entry("extremeStyle", "element_tukeyExtremes_1s"),
          Map.entry("fenceStyle", "element_tukeyInnerFence_1s"), Map.entry("hingeStyle", "element_tukeyHinges_1s"),
          Map.entry("medianStyle", "element_median_1s"), Map.entry("outlierStyle", "element_tukeyOutliers_1s"));

  private static final Style ERROR_BAR = new Style().with("symbol", "ibeam").with("width", "25%");

  private final Parts parts;
  private final Chart chart;

  /** The ids of all aesthetics, which legends explain. */
  private final Map<Aesthetic, String> aestheticIds = new HashMap<>();

  ElementMarkup(Parts parts, Chart chart) {
    this.parts = parts;
    this.chart = chart;
  }

  void write() {
    chart.elements.forEach(this::write);
  }

  String idOf(Aesthetic aesthetic) {
    return aestheticIds.get(aesthetic);
  }

  private void write(Element element) {
    // Numbered by the tag: bars of all sorts are one sequence.
    String id = idPrefix(element) + (parts.number("element " + element.kind.tag()) + 1);
    MarkupElement written = parts.graph.add(element.kind.tag()).set("id", id).set("name", element.name);
    Style style = element.statistic == Statistic.ERROR ? element.style.over(ERROR_BAR) : element.style;
    written.set("style", parts.style(id + "s", style))
        .set("labelCollisionHandling", labelsMayCollide(element) ? "1" : "2")
        .set("positionModifier", element.modifier == null ? null : element.modifier.number());
    if (element.kind == ElementKind.BOX) writeBox(written, id);
    if (isPyramid(element)) written.set("dot", "false").set("showCollidingLabels", "true");
    writeStatistics(element, written);
    if (element.label != null) writeLabels(element, written, id);
    writePositions(element, written);
    for (Aesthetic aesthetic : element.aesthetics) writeAesthetic(aesthetic, written, id);
    parts.only(written, element.only, chart.panels);
  }

  private String idPrefix(Element element) {
    if (element.kind != ElementKind.BAR) return element.kind.idPrefix();
    if (isPyramid(element)) return "element_populationPyramid_";
    if (element.bins != null) return "element_histogram_";
    if (element.statistic == Statistic.ERROR) return "element_errorbar_";
    return element.cluster != null ? "element_clusteredbar_" : element.kind.idPrefix();
  }

  private boolean isPyramid(Element element) {
    return element.kind == ElementKind.BAR && element.bins != null && chart.coordinates.isMirrored();
  }

  private boolean labelsMayCollide(Element element) {
    return element.kind == ElementKind.POINT || element.kind == ElementKind.BOX || isPyramid(element);
  }

  private void writeBox(MarkupElement box, String id) {
    if (box.attribute("name") == null) box.set("name", id);
    box.set("showCollidingLabels", "true");
    BOX_STYLES.forEach(part -> box.set(part.getKey(), parts.style(part.getValue())));
    box.add("tukeyStatistic");
  }

  private static void writeStatistics(Element element, MarkupElement written) {
    if (element.isDots()) written.add("binStatistic").set("gridType", "1");
    if (element.bins != null) {
      written.add("binStatistic")
          .set("binCount", forAllDimensions(element.bins.count, ""))
          .set("binStart", forAllDimensions(element.bins.start, ""))
          .set("binWidth", forAllDimensions(element.bins.width, "d"));
    }
    if (element.statistic == Statistic.DENSITY) {
      written.add("distributionStatistic");
    } else if (element.statistic != null) {
      written.add("summaryStatistic").set("method", element.statistic.number());
    }
  }

  private static String forAllDimensions(String setting, String mark) {
    if (setting == null) return null;
    String marked = setting + mark;
    return marked + ";" + marked + ";" + marked;
  }

  private void writeLabels(Element element, MarkupElement written, String id) {
    MarkupElement labeling = written.add("labeling")
                                 .set("connectingLines", "false")
                                 .set("dimension", "0")
                                 .set("variable", element.label.id)
                                 .set("style", parts.style(id + "_labelStyle"))
                                 .set("textFrameStyle",
                                     parts.style(id + "_textFrameStyle",
                                         new Style().with("color", "transparent").with("color2", "transparent")));
    if (element.labelFormat != null) element.labelFormat.writeTo(labeling.add("format"));
  }

  private void writePositions(Element element, MarkupElement written) {
    for (Dimension.Name dimension : Dimension.Name.values()) {
      for (Variable variable : element.positions.getOrDefault(dimension, List.of())) {
        written.add(dimension.word()).set("variable", variable.id);
      }
    }
    if (!chart.panels.blend.isEmpty()) written.add("y").set("variable", BLEND);
  }

  private void writeAesthetic(Aesthetic aesthetic, MarkupElement written, String elementId) {
    String id = elementId + "_" + aesthetic.kind.word() + "1";
    aestheticIds.put(aesthetic, id);
    MarkupElement look = written.add(aesthetic.kind.word())
                             .set("id", id)
                             .set("variable", aesthetic.variable.id)
                             .set("low", aesthetic.low)
                             .set("high", aesthetic.high);
    if (!aesthetic.values.isEmpty()) look.set("cycle", writeCycle(aesthetic));
    String mapping = aesthetic.kind == Aesthetic.Kind.COLOR ? "colorMapping" : "symbolMapping";
    aesthetic.mappings.forEach((code, value) -> look.add(mapping).set("from", code).set("to", value));
  }

  private String writeCycle(Aesthetic aesthetic) {
    String id = parts.idFrom1("styleCycle_");
    MarkupElement styleCycle = parts.root.add("styleCycle").set("id", id);
    MarkupElement cycle = styleCycle.add("cycle");
    for (String value : aesthetic.values) cycle.add("style").set(aesthetic.kind.property(), value);
    styleCycle.add("extension").set("aesthetic", aesthetic.kind.word());
    return id;
  }
}
