package kestrel.pdl;

import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;

/** A variable of the chart: a column of a source, or derived of other variables. */
final class Variable {
  /** The column that counts the rows, which every source has of itself. */
  static final String CASE_COLUMN = "$CASENUM";

  final String name;
  final String id;
  final Kind kind;

  /** What it is derived by, with ids for names; null for a column. */
  String expression;

  /** The id of its source; null for one that is derived. */
  String source;

  String column;
  String label;

  /** The text of each code. */
  final Map<String, String> relabels = new LinkedHashMap<>();

  /** The first code of each text. */
  final Map<String, String> codes = new LinkedHashMap<>();

  /** Codes in their order; empty where none is given. */
  List<String> order = List.of();

  /** Null where the categories are not sorted. */
  Boolean descending;

  /** Codes that are left out. */
  List<String> excluded = List.of();

  /** How dates are written in the data. */
  String input;

  Format format;
  boolean weight;

  Variable(String name, String id, Kind kind) {
    this.name = name;
    this.id = id;
    this.kind = kind;
  }

  boolean isDerived() {
    return expression != null;
  }

  String labelOrName() {
    return label != null ? label : name;
  }

  boolean hasOwnDomain() {
    return !order.isEmpty() || descending != null || !excluded.isEmpty();
  }
}
