package kestrel.lumoml14;

import java.util.Arrays;
import java.util.LinkedHashMap;
import java.util.LinkedHashSet;
import java.util.Map;
import java.util.Set;

/** What LumoML 1.4 consists of, and what of it has no counterpart in the current markup. */
final class Vocabulary {
  /** The one element that has a text. */
  static final String WITH_TEXT = "source";

  private static final String FONT = " font size color bold italic align";
  private static final String PLACE = " left top width height";
  private static final String FORMAT = " decimals leastdecimals grouping prefix suffix pattern";

  private static final Map<String, Set<String>> ELEMENTS = elements(
      "graph: version name description creator date language width height background frame plotbackground plotframe"
          + " transpose polar mirror mirrorpanels sameunits animation",
      "heading: kind text background frame href" + FONT + PLACE, "source: name kind columns",
      "variables: source names columns labels kinds dates", "formula: name label function expression kind",
      "relabels: variable values", "format: variables errorcharacter" + FORMAT,
      "categories: variable order leaveout sort",
      "layer: kind name x y z colorby patternby shapeby dashby sizeby transparencyby colors patterns shapes dashes sizes"
          + " transparencies colormap shapemap arrange gap statistic bins binwidth binstart errorbars labelsby labellines"
          + " overlap color outline size width linewidth dash shape pattern transparency depth boxcolor mediancolor"
          + " whiskercolor outliercolor extremecolor errors level smooth tooltip href",
      "axis: of second label min max exact step start scale logbase reverse origin side ticks ticklength ticklabels angle"
          + " stagger every grid gridcolor griddash color linewidth labelcolor labelsize labelfont labelbold ticksize"
          + " tickcolor margins nice" + FORMAT,
      "legend: title position explains background frame titlesize titlecolor font size color" + PLACE,
      "panels: columns rows method gap labels topdown aspect", "reference: axis at name color linewidth dash tooltip",
      "curve: function name color linewidth dash smooth", "view: distance phi theta zeta frame",
      "picture: file" + PLACE, "script: event language code");

  /** By "element" or "element/attribute". */
  private static final Map<String, String> WITHOUT_COUNTERPART =
      Map.ofEntries(Map.entry("picture", "charts hold no pictures from outside their text"),
          Map.entry("script", "charts run no programs"), Map.entry("graph/animation", "charts stand still"),
          Map.entry("heading/href", "texts of a chart are no links"),
          Map.entry("layer/href", "elements of a chart are no links"),
          Map.entry("layer/tooltip", "the client makes its own"),
          Map.entry("layer/smooth", "lines run straight from point to point"),
          Map.entry("layer/errors", "the client computes the bars"),
          Map.entry("layer/level", "the client computes the bars"),
          Map.entry("reference/tooltip", "the client makes its own"),
          Map.entry("curve/smooth", "a function is drawn as it is"));

  private Vocabulary() {}

  static Set<String> elements() {
    return ELEMENTS.keySet();
  }

  static boolean hasElement(String element) {
    return ELEMENTS.containsKey(element);
  }

  static Set<String> attributesOf(String element) {
    return ELEMENTS.get(element);
  }

  /** Why nothing comes of an attribute that no rule asked for. */
  static String whyLost(String element, String attribute) {
    String reason = WITHOUT_COUNTERPART.get(element + "/" + attribute);
    if (reason != null) return reason;
    return ELEMENTS.get(element).contains(attribute) ? "it says nothing together with the other attributes"
                                                     : "it is not part of LumoML 1.4";
  }

  /** Why nothing comes of an element; null where something does. */
  static String whyLost(String element) {
    return WITHOUT_COUNTERPART.get(element);
  }

  private static Map<String, Set<String>> elements(String... rows) {
    Map<String, Set<String>> elements = new LinkedHashMap<>();
    for (String row : rows) {
      int colon = row.indexOf(':');
      elements.put(row.substring(0, colon), new LinkedHashSet<>(Arrays.asList(row.substring(colon + 2).split(" "))));
    }
    return elements;
  }
}
