package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/** Lists of variables, formulas, relabels, formats and categories become variables with children of their own. */
final class VariableRules {
  private static final Map<String, Variable.Kind> KINDS = kinds();

  private final OldChart old;
  private final NewChart chart;
  private final Report report;

  VariableRules(OldChart old, NewChart chart, Report report) {
    this.old = old;
    this.chart = chart;
    this.report = report;
  }

  void apply() throws ConversionException {
    for (OldElement each : old.all("variables")) list(each);
    for (OldElement each : old.all("formula")) formula(each);
    for (OldElement each : old.all("relabels")) relabels(each);
    for (OldElement each : old.all("format")) {
      each.required("variables");
      for (Variable variable : chart.variables(each, "variables")) Formats.apply(each, variable.element());
    }
    for (OldElement each : old.all("categories")) categories(each);
  }

  private void list(OldElement each) throws ConversionException {
    each.required("names");
    List<String> names = each.list("names");
    List<String> columns = perName(each, "columns", each.list("columns"), names, false);
    List<String> labels = perName(each, "labels", each.list("labels"), names, false);
    List<Variable.Kind> kinds = perName(each, "kinds", each.list("kinds", KINDS::get, oneOf(KINDS)), names, true);
    List<String> dates =
        perName(each, "dates", each.list("dates", Words.DATE_FORMS::get, oneOf(Words.DATE_FORMS)), names, true);
    String source = sourceOf(each);
    for (int at = 0; at < names.size(); ++at) {
      String name = checked(each, "names", names.get(at));
      Variable.Kind kind = kinds.isEmpty() ? Variable.Kind.NUMBER : kinds.get(at);
      String column = columns.isEmpty() ? name : columns.get(at);
      MarkupElement element = new MarkupElement("sourceVariable").set("source", source).set("sourceName", column);
      describe(element, name, labels.isEmpty() ? null : labels.get(at), kind);
      if (kind == Variable.Kind.DATE) showDates(element, dates.isEmpty() ? "yyyy-MM-dd" : dates.get(at));
      chart.add(new Variable(name, kind, column, element));
    }
  }

  private String sourceOf(OldElement each) throws ConversionException {
    String name = each.value("source");
    List<OldElement> sources = old.all("source");
    if (name == null && sources.size() == 1) name = sources.get(0).value("name");
    if (name == null) throw each.refusal("\"variables\" has to say in \"source\" which source they come from");
    for (OldElement source : sources) {
      if (name.equals(source.value("name"))) return name;
    }
    throw each.malformed("source", name, "the chart has no such source");
  }

  /** One item for each name; where `shared`, a single one holds for all. */
  private static <T> List<T> perName(
      OldElement each, String attribute, List<T> items, List<String> names, boolean shared) throws ConversionException {
    if (items.isEmpty() || items.size() == names.size()) return items;
    if (!shared || items.size() != 1) {
      throw each.malformed(
          attribute, each.value(attribute), "it has " + items.size() + " items, and \"names\" has " + names.size());
    }
    List<T> repeated = new ArrayList<>();
    for (int at = 0; at < names.size(); ++at) repeated.add(items.get(0));
    return repeated;
  }

  private String checked(OldElement each, String attribute, String name) throws ConversionException {
    if (name.isBlank()) throw each.malformed(attribute, each.value(attribute), "a name must not be empty");
    if (chart.hasVariable(name)) throw each.malformed(attribute, name, "another variable has this name");
    return name;
  }

  private static void describe(MarkupElement element, String name, String label, Variable.Kind kind) {
    element.set("id", name);
    element.set("label", label == null || label.isEmpty() ? null : label);
    element.set("categorical", kind == Variable.Kind.STRING ? "true" : "false");
    element.set("weight", kind == Variable.Kind.WEIGHT ? "true" : null);
    element.set("key", kind == Variable.Kind.CASE ? "true" : null);
  }

  private static void showDates(MarkupElement element, String pattern) {
    element.set("inputDateFormatPattern", pattern);
    element.add("format").set("pattern", pattern);
  }

  private void formula(OldElement each) throws ConversionException {
    String name = checked(each, "name", each.required("name"));
    String function = each.value("function");
    String expression = each.value("expression");
    if ((function == null) == (expression == null)) {
      throw each.refusal("\"formula\" needs one of the attributes \"function\" and \"expression\"");
    }
    Variable.Kind kind = each.word("kind", KINDS);
    if (kind == null) kind = Variable.Kind.NUMBER;
    MarkupElement element = function != null ? new MarkupElement("derivedVariable").set("value", function)
                                             : new MarkupElement("expressionVariable").set("expression", expression);
    describe(element, name, each.value("label"), kind);
    chart.add(new Variable(name, kind, null, element));
  }

  private void relabels(OldElement each) throws ConversionException {
    each.required("variable");
    each.required("values");
    MarkupElement format = chart.variable(each, "variable").element().findOrAdd("format");
    each.pairs("values").forEach((from, to) -> format.add("relabel").set("from", from).set("to", to));
  }

  private void categories(OldElement each) throws ConversionException {
    each.required("variable");
    Variable variable = chart.variable(each, "variable");
    if (variable.element().attribute("domain") != null) {
      report.lost(each, "an earlier one is about the same variable");
      return;
    }
    MarkupElement domain = chart.visualization().add("categoricalDomain").set("id", chart.nextId("categories_"));
    domain.add("variableReference").set("ref", variable.name());
    variable.element().set("domain", domain.attribute("id"));
    sort(each, domain);
    String left = joined(each, "leaveout");
    if (left != null) domain.add("categories").set("remove", "true").setText(left);
  }

  private void sort(OldElement each, MarkupElement domain) throws ConversionException {
    String descending = each.word("sort", Words.ORDERS);
    String order = joined(each, "order");
    if (descending == null && order == null) return;
    MarkupElement sort = domain.add("simpleSort");
    if (order == null) {
      sort.set("descending", descending).set("method", "2");
    } else {
      if (descending != null) report.lost(each, "sort", "the order is given in \"order\"");
      sort.add("categoryOrder").setText(order);
    }
  }

  /** Categories as the current markup lists them, in which none can hold the separator. */
  private String joined(OldElement each, String attribute) {
    List<String> kept = new ArrayList<>();
    for (String category : each.list(attribute)) {
      if (category.indexOf(';') < 0) {
        kept.add(category);
      } else {
        report.lost(each, attribute, "category \"" + OldElement.cut(category) + "\" has a semicolon");
      }
    }
    return kept.isEmpty() ? null : String.join(";", kept);
  }

  static String oneOf(Map<String, ?> words) {
    return "one of " + String.join(", ", words.keySet());
  }

  private static Map<String, Variable.Kind> kinds() {
    Map<String, Variable.Kind> kinds = new LinkedHashMap<>();
    for (Variable.Kind kind : Variable.Kind.values()) kinds.put(kind.name().toLowerCase(Locale.ROOT), kind);
    return kinds;
  }
}
