package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.List;
import java.util.Map;
import java.util.function.Function;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;
import kestrel.markup.Numbers;

/**
 * Groups by colour, pattern, shape, dash, size and transparency: attributes of a layer become aesthetics and cycles.
 */
final class Groupings {
  /** An aesthetic whose looks come from a cycle, and the property of its styles. */
  private record Cycled(
      String by, String looks, String aesthetic, String property, Function<String, String> reader, String wanted) {}

  private static final Cycled[] CYCLED = {
      new Cycled("colorby", "colors", "color", "color", Values::color, "a colour such as 0,114,178 or black"),
      new Cycled("patternby", "patterns", "pattern", "pattern", Groupings::count, "a whole number such as 5"),
      new Cycled("shapeby", "shapes", "shape", "symbol", Words.SHAPES::get, VariableRules.oneOf(Words.SHAPES)),
      new Cycled("dashby", "dashes", "dash", "stroke_dasharray", Words.DASHES::get, VariableRules.oneOf(Words.DASHES))};

  private final NewChart chart;
  private final OldElement layer;
  private final MarkupElement element;
  private final List<MarkupElement> added = new ArrayList<>();
  private Variable first;

  Groupings(NewChart chart, OldElement layer, MarkupElement element) {
    this.chart = chart;
    this.layer = layer;
    this.element = element;
  }

  void apply() throws ConversionException {
    for (Cycled row : CYCLED) cycled(row);
    spread("sizeby", "sizes", "size", Values::points, "a number of points such as 12");
    spread("transparencyby", "transparencies", "transparency", Groupings::part, "a percentage from 0 to 100");
    mappings("color", "colormap", "colorMapping", Values::color, "a colour such as 0,114,178 or black");
    mappings("shape", "shapemap", "symbolMapping", Words.SHAPES::get, VariableRules.oneOf(Words.SHAPES));
  }

  /** The variable that the layer's elements are grouped by in the first place; null where they are not. */
  Variable firstVariable() {
    return first;
  }

  List<MarkupElement> aesthetics() {
    return added;
  }

  private MarkupElement add(String by, String aesthetic) throws ConversionException {
    Variable variable = chart.variable(layer, by);
    if (variable == null) return null;
    if (first == null && variable.isCategorical()) first = variable;
    MarkupElement made = element.add(aesthetic).set("variable", variable.name());
    made.set("id", element.attribute("id") + "_" + aesthetic);
    added.add(made);
    return made;
  }

  private void cycled(Cycled row) throws ConversionException {
    MarkupElement aesthetic = add(row.by, row.aesthetic);
    if (aesthetic == null) return;
    List<String> looks = layer.list(row.looks, row.reader, row.wanted);
    if (looks.isEmpty()) return;
    String id = aesthetic.attribute("id") + "_cycle";
    MarkupElement styleCycle = chart.visualization().add("styleCycle").set("id", id);
    MarkupElement cycle = styleCycle.add("cycle");
    for (String look : looks) cycle.add("style").set(row.property, look);
    styleCycle.add("extension").set("aesthetic", row.aesthetic);
    aesthetic.set("cycle", id);
  }

  private void spread(String by, String bounds, String aesthetic, Function<String, String> reader, String wanted)
      throws ConversionException {
    MarkupElement made = add(by, aesthetic);
    if (made == null) return;
    List<String> values = layer.list(bounds, reader, wanted);
    if (values.isEmpty()) return;
    if (values.size() != 2)
      throw layer.malformed(bounds, layer.value(bounds), "it has to be the least and the greatest");
    made.set("low", values.get(0)).set("high", values.get(1));
  }

  private void mappings(String aesthetic, String attribute, String child, Function<String, String> reader,
      String wanted) throws ConversionException {
    MarkupElement made = element.find(aesthetic);
    if (made == null) return;
    for (Map.Entry<String, String> pair : layer.pairs(attribute).entrySet()) {
      String look = reader.apply(pair.getValue());
      if (look == null) throw layer.malformed(attribute, pair.getValue(), "each look has to be " + wanted);
      made.add(child).set("from", pair.getKey()).set("to", look);
    }
  }

  private static String count(String text) {
    Integer count = Values.count(text);
    return count == null ? null : count.toString();
  }

  private static String part(String text) {
    Double share = Values.share(text);
    return share == null ? null : Numbers.text(share / 100);
  }
}
