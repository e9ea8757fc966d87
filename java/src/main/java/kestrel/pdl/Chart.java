package kestrel.pdl;

import java.util.ArrayList;
import java.util.EnumMap;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/** A chart as its description says it, with every name found and every rule checked. */
final class Chart {
  String description;
  String language;
  String width;
  String height;
  Style pageStyle = new Style();
  final List<Heading> headings = new ArrayList<>();

  /** Ids of the sources. */
  List<String> sources = List.of();

  final List<Variable> variables = new ArrayList<>();
  final Map<Dimension.Name, Dimension> dimensions = new EnumMap<>(Dimension.Name.class);
  Coordinates coordinates = new Coordinates();
  final List<Element> elements = new ArrayList<>();
  final List<Guide> guides = new ArrayList<>();
  Panels panels = new Panels();
  final Map<Variable, Legend> legends = new LinkedHashMap<>();
  boolean hasLegends = true;

  Chart() {
    for (Dimension.Name name : Dimension.Name.values()) dimensions.put(name, new Dimension(name));
  }

  boolean isInSpace() {
    return !dimensions.get(Dimension.Name.Z).variables.isEmpty();
  }
}
