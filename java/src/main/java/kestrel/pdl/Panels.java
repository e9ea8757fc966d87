package kestrel.pdl;

import java.util.ArrayList;
import java.util.List;

/** How a chart is split. */
final class Panels {
  /** The variables of one direction. */
  static final class Side {
    List<Variable> variables = new ArrayList<>();
    boolean nested;
  }

  final Side columns = new Side();
  final Side rows = new Side();

  /** Variables that are laid side by side along y, a panel for each. */
  List<Variable> blend = List.of();

  String gap;
  Double aspect;

  boolean isSplit() {
    return !columns.variables.isEmpty() || !rows.variables.isEmpty();
  }

  /** The panel variables in the order of their levels: the outermost columns, the outermost rows, and so on. */
  List<Variable> levels() {
    List<Variable> levels = new ArrayList<>();
    int column = 0;
    int row = 0;
    while (column < columns.variables.size() || row < rows.variables.size()) {
      column = take(columns, column, levels);
      row = take(rows, row, levels);
    }
    return levels;
  }

  private static int take(Side side, int at, List<Variable> levels) {
    if (at == side.variables.size()) return at;
    int end = side.nested ? side.variables.size() : at + 1;
    levels.addAll(side.variables.subList(at, end));
    return end;
  }
}
