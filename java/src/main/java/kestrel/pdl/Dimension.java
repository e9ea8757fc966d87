package kestrel.pdl;

import java.util.LinkedHashSet;
import java.util.Set;

/** What a chart says of one of its directions. */
final class Dimension {
  /** A direction by its name. */
  enum Name {
    X,
    Y,
    Z;

    String word() {
      return name().toLowerCase(java.util.Locale.ROOT);
    }

    static Name of(PdlParser.DimensionContext dimension) {
      return valueOf(dimension.getText().toUpperCase(java.util.Locale.ROOT));
    }
  }

  final Name name;

  /** All that elements show along it, in the order of their first use. */
  final Set<Variable> variables = new LinkedHashSet<>();

  Scale scale;
  Axis axis;
  Axis secondAxis;

  /** Whose categories stand side by side at each place. */
  Variable cluster;

  /** Whether a statistic gives values along it. */
  boolean computed;

  Dimension(Name name) {
    this.name = name;
  }

  /** What it measures; null where no element shows a variable along it. */
  Kind kind() {
    return variables.isEmpty() ? null : variables.iterator().next().kind.measured();
  }
}
