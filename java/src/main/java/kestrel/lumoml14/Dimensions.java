package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import kestrel.markup.MarkupElement;

/** The dimensions of the coordinates, and which variables each of them shows. */
final class Dimensions {
  private static final int ALWAYS = 2;

  private static final class Dimension {
    private final MarkupElement element = new MarkupElement("dimension");
    private final Set<Variable> variables = new LinkedHashSet<>();
    private MarkupElement domain;
  }

  private final NewChart chart;
  private final List<Dimension> dimensions = new ArrayList<>();
  private Variable clustered;

  Dimensions(NewChart chart) {
    this.chart = chart;
    for (int each = 0; each < ALWAYS; ++each) need(each);
  }

  /** Makes sure that the dimension is there. */
  MarkupElement need(int dimension) {
    while (dimensions.size() <= dimension) {
      dimensions.add(new Dimension());
      chart.coordinates().add(dimensions.get(dimensions.size() - 1).element);
    }
    return dimensions.get(dimension).element;
  }

  void show(int dimension, Variable variable) {
    need(dimension);
    dimensions.get(dimension).variables.add(variable);
  }

  /** False where the chart is clustered by another variable. */
  boolean cluster(Variable variable, String gap) {
    if (clustered != null) return clustered == variable;
    clustered = variable;
    need(0).set("clusterVariable", variable.name()).set("clusterGap", gap == null ? "10%" : gap);
    need(0).set("lowerMargin", "5%").set("upperMargin", "5%");
    return true;
  }

  boolean isCategorical(int dimension) {
    return dimensions.get(dimension).variables.stream().anyMatch(Variable::isCategorical);
  }

  boolean isDate(int dimension) {
    return dimensions.get(dimension).variables.stream().anyMatch(each -> each.kind() == Variable.Kind.DATE);
  }

  /** Gives each dimension that shows variables the domain of these. */
  void addDomains() {
    for (int at = 0; at < dimensions.size(); ++at) {
      if (!dimensions.get(at).variables.isEmpty()) domainOf(at);
    }
  }

  /** The domain of a dimension, which is made where there is none. */
  MarkupElement domainOf(int at) {
    Dimension dimension = dimensions.get(at);
    if (dimension.domain != null) return dimension.domain;
    String kind = isCategorical(at) ? "categoricalDomain" : "intervalDomain";
    dimension.domain = chart.visualization().add(kind).set("id", chart.nextId("domain_"));
    if (!isCategorical(at) && isDate(at)) dimension.domain.set("date", "true");
    for (Variable variable : dimension.variables) {
      dimension.domain.add("variableReference").set("ref", variable.name());
    }
    dimension.element.set("domain", dimension.domain.attribute("id"));
    return dimension.domain;
  }
}
