package kestrel.pdl;

import java.util.List;
import java.util.Map;

/** Gathers what all elements together show along each dimension, and refuses what does not go together. */
final class DimensionChecks {
  private DimensionChecks() {}

  static void gather(Chart chart) {
    for (Element element : chart.elements) {
      for (Map.Entry<Dimension.Name, List<Variable>> position : element.positions.entrySet()) {
        gather(chart.dimensions.get(position.getKey()), position.getValue(), element);
      }
      Dimension y = chart.dimensions.get(Dimension.Name.Y);
      if ((element.statistic != null || element.bins != null) && !element.shows(Dimension.Name.Y)) y.computed = true;
      if (element.cluster != null) cluster(chart.dimensions.get(Dimension.Name.X), element);
    }
    if (!chart.panels.blend.isEmpty()) chart.dimensions.get(Dimension.Name.Y).computed = true;
  }

  private static void gather(Dimension dimension, List<Variable> variables, Element element) {
    for (Variable variable : variables) {
      Kind kind = dimension.kind();
      if (kind != null && kind != variable.kind.measured()) {
        Variable first = dimension.variables.iterator().next();
        throw new Refusal(element.positionPlaces.get(dimension.name),
            "found " + dimension.name.word() + " with " + Wording.quoted(variable.name) + ", which is "
                + variable.kind.phrase() + ", expected a variable that is " + first.kind.phrase() + " as "
                + Wording.quoted(first.name) + " of another element is");
      }
      dimension.variables.add(variable);
    }
  }

  private static void cluster(Dimension x, Element element) {
    if (x.cluster != null && x.cluster != element.cluster) {
      throw new Refusal(element.place,
          "found clusters by " + Wording.quoted(element.cluster.name) + ", expected clusters by "
              + Wording.quoted(x.cluster.name) + " as those of another element");
    }
    x.cluster = element.cluster;
  }
}
