package kestrel.pdl;

import java.util.List;
import kestrel.markup.MarkupElement;

/** Writes guides. */
final class GuideMarkup {
  private static final List<String> PLANES = List.of("guide_yzplane_", "guide_xzplane_", "guide_xyplane_");

  private final Parts parts;
  private final Chart chart;

  GuideMarkup(Parts parts, Chart chart) {
    this.parts = parts;
    this.chart = chart;
  }

  void write() {
    for (Guide guide : chart.guides) {
      MarkupElement written = switch (guide.kind) {
        case REFERENCE -> add("lineGuide", "lineGuide").set(guide.dimension.word(), guide.value);
        case FUNCTION -> add("functionGuide", "functionGuide").set("value", guide.value);
        case PLANE -> add("planeGuide", PLANES.get(Integer.parseInt(guide.value))).set("normal", guide.value);
        case FRAME -> add("frameGuide", "guide_frame_").set("complete", "false");
      };
      written.set("name", guide.name).set("style", parts.style(written.attribute("id") + "s", guide.style));
      parts.only(written, guide.only, chart.panels);
    }
  }

  private MarkupElement add(String tag, String idPrefix) {
    return parts.graph.add(tag).set("id", parts.idFrom1(idPrefix));
  }
}
