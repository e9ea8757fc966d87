package kestrel.pdl;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import kestrel.markup.MarkupElement;

/** Writes what stands around the data: the page, headings and legends. */
final class PageMarkup {
  private static final String MARKUP_VERSION = "2.8";
  private static final String WIDTH = "4";
  private static final String HEIGHT = "5";

  private final Parts parts;
  private final Chart chart;

  PageMarkup(Parts parts, Chart chart) {
    this.parts = parts;
    this.chart = chart;
  }

  /** `elements` has written the aesthetics that the legends explain. */
  void write(ElementMarkup elements) {
    parts.root.set("id", "frame_graph_1")
        .set("version", MARKUP_VERSION)
        .set("lang", chart.language)
        .set("description", chart.description);
    parts.graph.set("id", "frame_data_1");
    if (!chart.pageStyle.attributes.isEmpty()) parts.root.set("style", parts.style("frame_graph_1s", chart.pageStyle));
    if (chart.hasLegends) writeLegends(elements);
    if (chart.width != null) writeExtent(WIDTH, chart.width);
    if (chart.height != null) writeExtent(HEIGHT, chart.height);
    chart.headings.forEach(this::writeHeading);
  }

  private void writeExtent(String part, String value) {
    parts.root.add("location").set("part", part).set("method", "0").set("value", value);
  }

  private void writeHeading(Heading heading) {
    String word = heading.kind().word();
    String numbered = parts.idFrom1(word + "_");
    String frameId = "frame_" + numbered;
    MarkupElement frame = parts.root.add("labelFrame").set("id", frameId).set("style", parts.style(frameId + "s"));
    MarkupElement label = frame.add("label").set("style", parts.style("label_" + numbered + "s", heading.style()));
    label.add("text").setText(heading.text());
    // "title1", "footnote2", but "subtitle" alone.
    parts.extension.set(heading.kind().most() == 1 ? word : numbered.replace("_", ""), frameId);
  }

  /** One legend for each variable, which explains all that the variable changes. */
  private void writeLegends(ElementMarkup elements) {
    Map<Variable, List<Aesthetic>> looks = new LinkedHashMap<>();
    for (Element element : chart.elements) {
      for (Aesthetic aesthetic : element.aesthetics) {
        looks.computeIfAbsent(aesthetic.variable, variable -> new ArrayList<>()).add(aesthetic);
      }
    }
    looks.forEach((variable, aesthetics) -> {
      Legend said = chart.legends.get(variable);
      if (said == null || !said.hidden) writeLegend(variable, aesthetics, said, elements);
    });
  }

  private void writeLegend(Variable variable, List<Aesthetic> aesthetics, Legend said, ElementMarkup elements) {
    String id = parts.idFrom1("frame_legend_");
    parts.extension.set(id.replace("frame_legend_", "legend"), id);
    MarkupElement legend = parts.root.add("legend")
                               .set("id", id)
                               .set("style", parts.style(id + "s"))
                               .set("tickTextStyle", parts.style(id + "_legend_1s"));
    for (int at = 0; at < aesthetics.size(); ++at) {
      legend.add("legendTarget").set("id", id + "_legendTarget" + at).set("target", elements.idOf(aesthetics.get(at)));
    }
    String title = said == null || said.title == null ? variable.labelOrName() : said.title;
    if (title.isEmpty()) return;
    String labelId = id + "_legend_1_label_1";
    legend.add("label").set("id", labelId).set("style", parts.style(labelId + "s")).add("text").setText(title);
  }
}
