package kestrel.pdl;

import java.util.List;

/** Refuses elements that show nothing, or whose parts do not go together. */
final class ElementChecks {
  private final Element element;
  private final Panels panels;
  private final boolean hasY;

  private ElementChecks(Element element, Panels panels) {
    this.element = element;
    this.panels = panels;
    hasY = element.shows(Dimension.Name.Y) || !panels.blend.isEmpty();
  }

  static void check(Element element, Panels panels) {
    ElementChecks checks = new ElementChecks(element, panels);
    checks.checkPositions();
    checks.checkBins();
    checks.checkStatistic();
    checks.checkModifier();
    checks.checkCluster();
    checkOnly(element.only, panels);
  }

  static void checkOnly(Only only, Panels panels) {
    if (only == null || panels.levels().contains(only.variable())) return;
    throw new Refusal(only.place(),
        "found \"only\" for " + Wording.quoted(only.variable().name) + ", expected a variable of the panels"
            + Suggestions.hint(only.variable().name, panels.levels().stream().map(variable -> variable.name).toList()));
  }

  private void checkPositions() {
    if (!panels.blend.isEmpty() && element.shows(Dimension.Name.Y)) {
      throw refusal("with a y beside the blend of the panels", "no y: the blend is what it shows along y");
    }
    boolean computesY = element.statistic != null || element.bins != null || element.isDots();
    if (!element.shows(Dimension.Name.X) && element.kind != ElementKind.BOX) {
      throw refusal("without x", "\"x\" and the name of a variable");
    }
    if (hasY || (computesY && element.kind != ElementKind.BOX)) return;
    throw refusal("without y",
        "\"y\" and the name of a variable"
            + (element.kind == ElementKind.BOX ? "" : ", or a \"statistic\" such as count"));
  }

  private void checkBins() {
    if (element.bins == null) return;
    checkMeasured(Dimension.Name.X, "bins");
    if (element.statistic == null && hasY) {
      throw refusal("with bins and y", "a \"statistic\" of y, such as mean, or no y");
    }
    if (element.statistic == null) element.statistic = Statistic.COUNT;
  }

  private void checkStatistic() {
    if (element.kind == ElementKind.BOX) {
      checkMeasured(Dimension.Name.Y, "boxes");
      if (element.statistic != null) throw refusal("with a statistic", "none: a box has its own");
    }
    if (element.statistic == null) return;
    String words = "the statistic \"" + element.statistic.words() + "\"";
    if (element.statistic.countsRows()) {
      if (hasY) throw refusal("with y and " + words, "no y: it is what the statistic gives");
      if (element.statistic == Statistic.DENSITY) checkMeasured(Dimension.Name.X, words);
    } else {
      if (!hasY) throw refusal("without y", "\"y\" and the name of a variable for " + words);
      checkMeasured(Dimension.Name.Y, words);
    }
    if (element.statistic == Statistic.ERROR && element.kind != ElementKind.BAR) {
      throw refusal("with " + words, "a bar");
    }
  }

  private void checkMeasured(Dimension.Name dimension, String use) {
    for (Variable variable : element.positions.getOrDefault(dimension, List.of())) {
      if (variable.kind.isCategorical()) {
        throw Scope.wrongKind(variable, element.positionPlaces.get(dimension),
            "a numeric variable on " + dimension.word() + " for " + use);
      }
    }
  }

  private void checkModifier() {
    if (element.modifier == null) return;
    String word = "\"" + element.modifier.words() + "\"";
    if (element.isDots()) {
      if (element.kind != ElementKind.POINT) throw refusal("with " + word, "a point");
      if (hasY) throw refusal("with y and " + word, "no y: the dots stand on each other along it");
      checkMeasured(Dimension.Name.X, word);
      return;
    }
    boolean stackable = element.kind == ElementKind.BAR || element.kind == ElementKind.AREA;
    if (element.modifier == Element.Modifier.STACK && !stackable) {
      throw refusal("with " + word, "a bar or an area");
    }
    if (element.aesthetics.stream().noneMatch(aesthetic -> aesthetic.variable.kind.isCategorical())) {
      throw refusal("with " + word + " and no parts", "a look by a categorical variable, such as \"color\"");
    }
  }

  private void checkCluster() {
    if (element.cluster == null) return;
    if (element.kind != ElementKind.BAR && element.kind != ElementKind.BOX) {
      throw refusal("with clusters", "a bar or a box");
    }
    for (Variable variable : element.positions.getOrDefault(Dimension.Name.X, List.of())) {
      if (!variable.kind.isCategorical()) {
        throw Scope.wrongKind(
            variable, element.positionPlaces.get(Dimension.Name.X), "a categorical variable on x for clusters");
      }
    }
    if (!element.shows(Dimension.Name.X)) throw refusal("with clusters and no x", "\"x\" with a categorical variable");
  }

  private Refusal refusal(String found, String expected) {
    return new Refusal(element.place, "found " + element.kind.phrase() + " " + found + ", expected " + expected);
  }
}
