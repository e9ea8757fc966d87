package kestrel.lumoml14;

import java.util.HashMap;
import java.util.HashSet;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/** Sources, and the rows of those that have their data with them. */
final class SourceRules {
  private static final String EMBEDDED = "embeddedSource";

  private final OldChart old;
  private final NewChart chart;
  private final Report report;

  SourceRules(OldChart old, NewChart chart, Report report) {
    this.old = old;
    this.chart = chart;
    this.report = report;
  }

  /** Before the variables, which refer to sources. */
  Map<OldElement, MarkupElement> addSources() throws ConversionException {
    Map<OldElement, MarkupElement> sources = new LinkedHashMap<>();
    Set<String> names = new HashSet<>();
    for (OldElement each : old.all("source")) {
      String name = each.required("name");
      if (!names.add(name)) throw each.malformed("name", name, "another source has this name");
      chart.takeName(name);
      String kind = each.word("kind", Words.SOURCES);
      sources.put(each, chart.visualization().add(kind == null ? "userSource" : kind).set("id", name));
    }
    return sources;
  }

  /** After the variables, which say of what kind the columns are. */
  void addRows(Map<OldElement, MarkupElement> sources) throws ConversionException {
    for (Map.Entry<OldElement, MarkupElement> each : sources.entrySet()) {
      boolean hasRows = each.getKey().hasText();
      if (each.getValue().name().equals(EMBEDDED)) {
        if (each.getKey().has("columns"))
          addRows(each.getKey(), each.getValue());
        else if (hasRows)
          each.getKey().required("columns");
      } else if (hasRows) {
        OldElement source = each.getKey();
        report.lost(source.line(), source.column(), "the text of \"source\"", "only an embedded source has rows");
      }
    }
  }

  private void addRows(OldElement each, MarkupElement source) throws ConversionException {
    each.required("columns");
    List<String> columns = each.list("columns");
    Map<String, Variable> byColumn = new HashMap<>();
    for (Variable variable : chart.variables()) {
      if (source.attribute("id").equals(variable.element().attribute("source"))) {
        byColumn.put(variable.sourceName(), variable);
      }
    }
    for (String column : columns) source.add("column").set("name", column);
    source.add("data").setText(new EmbeddedRows(each, columns, byColumn).converted());
  }
}
