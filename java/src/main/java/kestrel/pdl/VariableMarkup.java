package kestrel.pdl;

import kestrel.markup.MarkupElement;

/** Writes sources, variables and what variables say of their categories. */
final class VariableMarkup {
  private static final String CASE_CREATOR = "external_system";
  private static final String COLUMN_CREATOR = "external_datasource";

  private final Parts parts;

  VariableMarkup(Parts parts) {
    this.parts = parts;
  }

  void write(Chart chart) {
    for (String source : chart.sources) parts.root.add("userSource").set("id", source);
    for (Variable variable : chart.variables) {
      MarkupElement written = variable.isDerived() ? derived(variable) : column(variable);
      written.set("categorical", String.valueOf(variable.kind.isCategorical())).set("label", variable.labelOrName());
      writeFormat(variable, written);
      if (variable.hasOwnDomain()) writeCategories(variable, written);
    }
    if (!chart.panels.blend.isEmpty()) writeBlend(chart.panels);
  }

  private MarkupElement derived(Variable variable) {
    return parts.root.add("derivedVariable").set("id", variable.id).set("value", variable.expression);
  }

  private MarkupElement column(Variable variable) {
    return parts.root.add("sourceVariable")
        .set("id", variable.id)
        .set("source", variable.source)
        .set("sourceName", variable.column)
        .set("creator", variable.kind == Kind.CASE ? CASE_CREATOR : COLUMN_CREATOR)
        .set("inputDateFormatPattern", variable.input)
        .set("weight", variable.weight ? "true" : null);
  }

  private static void writeFormat(Variable variable, MarkupElement written) {
    if (variable.format == null && variable.relabels.isEmpty()) return;
    MarkupElement format = written.add("format");
    if (variable.format != null) variable.format.writeTo(format);
    variable.relabels.forEach((code, text) -> format.add("relabel").set("from", code).set("to", text));
  }

  private void writeCategories(Variable variable, MarkupElement written) {
    String id = parts.idFrom0("categoricalDomain");
    written.set("domain", id);
    MarkupElement domain = parts.root.add("categoricalDomain").set("id", id);
    domain.add("variableReference").set("ref", variable.id);
    if (variable.descending != null) {
      // By the values themselves.
      domain.add("simpleSort").set("method", "2").set("descending", variable.descending.toString());
    }
    if (!variable.order.isEmpty()) {
      domain.add("simpleSort").add("categoryOrder").setText(String.join(";", variable.order));
    }
    if (!variable.excluded.isEmpty()) {
      domain.add("categories").set("remove", "true").setText(String.join(";", variable.excluded));
    }
  }

  /** A constant beside each variable names it in its panel. */
  private void writeBlend(Panels panels) {
    StringBuilder expression = new StringBuilder();
    for (Variable variable : panels.blend) {
      String label = variable.id + "label";
      MarkupElement constant = parts.root.add("derivedVariable")
                                   .set("id", label)
                                   .set("categorical", "true")
                                   .set("label", label)
                                   .set("value", "constant(label" + variable.id + ")");
      constant.add("format").add("relabel").set("from", "label" + variable.id).set("to", variable.labelOrName());
      if (expression.length() > 0) expression.append(" + ");
      expression.append(variable.id).append('/').append(label);
    }
    parts.root.add("expressionVariable")
        .set("id", ElementMarkup.BLEND)
        .set("categorical", "false")
        .set("expression", expression.toString())
        .set("shortLabel", "Y Axis")
        .add("format");
  }
}
