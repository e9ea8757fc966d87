package kestrel.adapter;

import java.util.List;
import java.util.Map;
import java.util.Set;
import kestrel.markup.MarkupElement;

/** The names that requests, replies, templates and charts have in common here. */
final class Vocabulary {
  static final String REQUEST_NAMESPACE = "http://xml.vexa.example/vexa/viewer/lumoTemplate";
  static final String TEMPLATE_NAMESPACE = "http://xml.vexa.example/visualization-template";

  /** Which namespace a name is from. */
  enum Space {
    REQUEST,
    TEMPLATE,
    CHART,
    OTHER;

    static Space of(String uri) {
      return switch (uri) {
        case REQUEST_NAMESPACE -> REQUEST;
        case TEMPLATE_NAMESPACE -> TEMPLATE;
        case MarkupElement.NAMESPACE -> CHART;
        default -> OTHER;
      };
    }
  }

  /** Attributes of the chart markup that hold the id of another element. */
  private static final Set<String> REFERENCES =
      Set.of("variable", "ref", "target", "domain", "clusterVariable", "style", "cellStyle", "markStyle",
          "tickFrameStyle", "tickTextStyle", "textFrameStyle", "coordinates", "cycle", "styleCycle", "source",
          "extremeStyle", "fenceStyle", "hingeStyle", "medianStyle", "outlierStyle", "title1", "title2", "subtitle",
          "footnote1", "footnote2", "footnote3", "styleCycleRepository");

  /** Those without which the element that has them means nothing. */
  private static final Set<String> ESSENTIAL = Set.of("variable", "ref", "target");

  /** Elements that mean nothing without one of these children. */
  static final Map<String, Set<String>> NEEDED =
      Map.of("categoricalDomain", Set.of("variableReference"), "intervalDomain", Set.of("variableReference"), "legend",
          Set.of("legendTarget"), "label", Set.of("text", "descriptionGroup"), "labelFrame", Set.of("label"), "faceting", Set.of("cross"), "cross",
          Set.of("cross", "nest", "unity", "variableReference"), "nest", Set.of("variableReference"));

  /** What a graph draws of its data. */
  static final Set<String> LAYERS =
      Set.of("area", "edge", "interval", "line", "path", "point", "polygon", "schema");

  /** What a statistic slot takes, with the numbers of the markup. */
  static final Map<String, String> STATISTICS = Map.of("sum", "1", "mean", "2", "percent", "3", "median", "4",
      "minimum", "5", "maximum", "6", "error", "7", "count", "10", "cumulative count", "11", "cumulative percent", "12");

  private Vocabulary() {}

  /** The words of all statistics in their order. */
  static List<String> statistics() {
    return STATISTICS.keySet().stream().sorted().toList();
  }

  /** Whether an attribute belongs to the element itself, and not to templates or to nobody. */
  static boolean isOwn(String attribute) {
    return !attribute.startsWith(":") && !attribute.startsWith(TreeReader.FOREIGN);
  }

  static boolean isReference(String attribute) {
    return REFERENCES.contains(attribute) || isNumbered(attribute, "legend")
        || isNumbered(attribute, "statisticsSummary");
  }

  static boolean isEssential(String attribute) {
    return ESSENTIAL.contains(attribute);
  }

  private static boolean isNumbered(String attribute, String stem) {
    return attribute.length() > stem.length() && attribute.startsWith(stem)
        && attribute.chars().skip(stem.length()).allMatch(digit -> digit >= '0' && digit <= '9');
  }
}
