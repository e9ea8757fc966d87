package kestrel.pdl;

import java.util.EnumMap;
import java.util.Map;

/** The transforms of the coordinates. */
final class Coordinates {
  boolean transpose;
  boolean sameRatio;
  boolean polar;

  /** Each reflected dimension, and whether only every second panel is. */
  final Map<Dimension.Name, Boolean> reflections = new EnumMap<>(Dimension.Name.class);

  /** Null where no view is given. */
  View view;

  boolean isMirrored() {
    return reflections.containsValue(true);
  }

  /** From where a chart in space is looked at; angles in degrees. */
  static final class View {
    double distance = 20;
    double phi = 45;
    double theta = 30;
    double zeta;
  }
}
