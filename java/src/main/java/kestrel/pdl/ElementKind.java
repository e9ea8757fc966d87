package kestrel.pdl;

import static kestrel.pdl.Aesthetic.Kind.COLOR;
import static kestrel.pdl.Aesthetic.Kind.DASH;
import static kestrel.pdl.Aesthetic.Kind.PATTERN;
import static kestrel.pdl.Aesthetic.Kind.SHAPE;
import static kestrel.pdl.Aesthetic.Kind.SIZE;
import static kestrel.pdl.Aesthetic.Kind.TRANSPARENCY;

import java.util.EnumSet;
import java.util.Locale;
import java.util.Set;

/** The kinds of graphic elements: their tags, how their ids begin, and the aesthetics that they have. */
enum ElementKind {
  POINT("point", "element_point_", EnumSet.of(COLOR, SHAPE, SIZE, TRANSPARENCY)),
  LINE("line", "element_simpleline_", EnumSet.of(COLOR, SHAPE, DASH, SIZE, TRANSPARENCY)),
  PATH("path", "element_path_", EnumSet.of(COLOR, SHAPE, DASH, SIZE, TRANSPARENCY)),
  BAR("interval", "element_bar_", EnumSet.of(COLOR, PATTERN, SIZE, TRANSPARENCY)),
  AREA("area", "element_area_", EnumSet.of(COLOR, PATTERN, DASH, TRANSPARENCY)),
  BOX("schema", "elementGroup_boxplot_1", EnumSet.of(COLOR, PATTERN, TRANSPARENCY)),
  EDGE("edge", "element_edge_", EnumSet.of(COLOR, DASH, SIZE, TRANSPARENCY)),
  POLYGON("polygon", "element_polygon_", EnumSet.of(COLOR, PATTERN, TRANSPARENCY));

  private final String tag;
  private final String idPrefix;
  private final Set<Aesthetic.Kind> aesthetics;

  ElementKind(String tag, String idPrefix, Set<Aesthetic.Kind> aesthetics) {
    this.tag = tag;
    this.idPrefix = idPrefix;
    this.aesthetics = aesthetics;
  }

  static ElementKind of(String word) {
    return valueOf(word.toUpperCase(Locale.ROOT));
  }

  String word() {
    return name().toLowerCase(Locale.ROOT);
  }

  /** "a point", "an area". */
  String phrase() {
    return (this == AREA || this == EDGE ? "an " : "a ") + word();
  }

  String tag() {
    return tag;
  }

  String idPrefix() {
    return idPrefix;
  }

  Set<Aesthetic.Kind> aesthetics() {
    return aesthetics;
  }
}
