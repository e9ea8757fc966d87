package kestrel.pdl;

import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.Set;
import kestrel.markup.Numbers;
import kestrel.pdl.PdlParser.NameContext;
import kestrel.pdl.PdlParser.TextContext;
import kestrel.pdl.PdlParser.ValueContext;
import kestrel.pdl.PdlParser.VariableCategoriesContext;
import kestrel.pdl.PdlParser.VariableColumnContext;
import kestrel.pdl.PdlParser.VariableContext;
import kestrel.pdl.PdlParser.VariableExcludeContext;
import kestrel.pdl.PdlParser.VariableFormatContext;
import kestrel.pdl.PdlParser.VariableInputContext;
import kestrel.pdl.PdlParser.VariableLabelContext;
import kestrel.pdl.PdlParser.VariableOptionContext;
import kestrel.pdl.PdlParser.VariableOrderContext;
import kestrel.pdl.PdlParser.VariableShowContext;
import kestrel.pdl.PdlParser.VariableSortContext;
import kestrel.pdl.PdlParser.VariableSourceContext;
import kestrel.pdl.PdlParser.VariableWeightContext;

/** Reads the variables of a chart. */
final class VariableReader extends PdlBaseVisitor<Void> {
  /** What the columns of a source have, by their kinds. */
  private static final Map<Kind, List<String>> OPTIONS = Map.of(Kind.CATEGORICAL,
      List.of("from", "column", "label", "categories", "show", "order", "sort", "exclude", "format"), Kind.NUMERIC,
      List.of("from", "column", "label", "show", "weight", "format"), Kind.DATE,
      List.of("from", "column", "label", "input", "format"), Kind.CASE, List.of("from", "label", "format"));

  private static final List<String> OPTIONS_OF_DERIVED = List.of("label", "show", "format");
  private static final Map<String, String> EITHER_OR =
      Map.of("order", "sort", "sort", "order", "categories", "show", "show", "categories");
  private static final String ISO_DATE = "yyyy-MM-dd";

  private final Scope scope;
  private final Variable variable;

  /** Categories may be named by texts that only a later option gives. */
  private final List<Runnable> whenCategoriesAreKnown = new ArrayList<>();

  private VariableReader(Scope scope, Variable variable) {
    this.scope = scope;
    this.variable = variable;
  }

  /** `number` is how many variables of its sort there were before. */
  static Variable read(VariableContext statement, Scope scope, int number) {
    scope.checkFree(statement.name());
    String name = Literals.name(statement.name());
    Variable variable;
    if (statement.sum() != null) {
      variable = new Variable(name, "derivedVariable" + number, Kind.NUMERIC);
      variable.expression = Expressions.text(statement.sum(), used -> idIn(scope, used));
    } else {
      variable = new Variable(
          name, "sourceVariable" + number, Kind.valueOf(statement.kind.getText().toUpperCase(Locale.ROOT)));
      variable.source = scope.defaultSource();
      variable.column = variable.kind == Kind.CASE ? Variable.CASE_COLUMN : name;
    }
    new VariableReader(scope, variable).readOptions(statement.variableOption());
    scope.declare(variable);
    return variable;
  }

  private static String idIn(Scope scope, NameContext name) {
    return scope.numeric(name, "a computation").id;
  }

  private void readOptions(List<VariableOptionContext> options) {
    Once once = new Once();
    for (VariableOptionContext option : options) {
      String word = option.getStart().getText();
      once.sayWithout(EITHER_OR.get(word), word, option);
      if (!word.equals("show")) once.say(word, option);
      checkKind(word, option);
      visit(option);
    }
    whenCategoriesAreKnown.forEach(Runnable::run);
    if (variable.kind == Kind.DATE) completeDate();
  }

  private void checkKind(String word, VariableOptionContext option) {
    List<String> options = variable.isDerived() ? OPTIONS_OF_DERIVED : OPTIONS.get(variable.kind);
    if (options.contains(word)) return;
    throw new Refusal(Place.of(option),
        "found " + Wording.quoted(word) + " of a variable that is "
            + (variable.isDerived() ? "derived" : variable.kind.phrase()) + ", expected "
            + Wording.anyOf(options.stream().map(Wording::quoted).toList()));
  }

  private void completeDate() {
    if (variable.input == null) variable.input = ISO_DATE;
    if (variable.format == null) variable.format = new Format();
    if (variable.format.pattern == null) variable.format.pattern = variable.input;
  }

  @Override
  public Void visitVariableSource(VariableSourceContext option) {
    variable.source = scope.source(option.name());
    return null;
  }

  @Override
  public Void visitVariableColumn(VariableColumnContext option) {
    variable.column = Literals.text(option.text());
    if (variable.column.isEmpty() || variable.column.startsWith("$")) {
      throw new Refusal(Place.of(option.text()),
          "found " + Wording.quoted(variable.column)
              + ", expected the name of a column, which is not empty and does not begin with a dollar sign");
    }
    return null;
  }

  @Override
  public Void visitVariableLabel(VariableLabelContext option) {
    variable.label = Literals.text(option.text());
    return null;
  }

  @Override
  public Void visitVariableCategories(VariableCategoriesContext option) {
    for (TextContext text : option.text()) {
      String category = Literals.text(text);
      String code = String.valueOf(variable.relabels.size() + 1);
      if (variable.codes.putIfAbsent(category, code) != null) {
        throw new Refusal(
            Place.of(text), "found the category " + Wording.quoted(category) + " twice, expected it once");
      }
      variable.relabels.put(code, category);
    }
    return null;
  }

  @Override
  public Void visitVariableShow(VariableShowContext option) {
    String code = Numbers.text(Literals.number(option.number()));
    String text = Literals.text(option.text());
    variable.codes.putIfAbsent(text, code);
    if (variable.relabels.putIfAbsent(code, text) != null) {
      throw new Refusal(Place.of(option.number()), "found a second text for the value " + code + ", expected one");
    }
    return null;
  }

  @Override
  public Void visitVariableOrder(VariableOrderContext option) {
    whenCategoriesAreKnown.add(() -> variable.order = codes(option.value()));
    return null;
  }

  @Override
  public Void visitVariableSort(VariableSortContext option) {
    variable.descending = option.direction.getText().equals("descending");
    return null;
  }

  @Override
  public Void visitVariableExclude(VariableExcludeContext option) {
    whenCategoriesAreKnown.add(() -> variable.excluded = codes(option.value()));
    return null;
  }

  private List<String> codes(List<ValueContext> values) {
    Set<String> codes = new LinkedHashSet<>();
    for (ValueContext value : values) {
      if (!codes.add(Scope.code(variable, value))) {
        throw new Refusal(Place.of(value), "found the category " + value.getText() + " twice, expected it once");
      }
    }
    return List.copyOf(codes);
  }

  @Override
  public Void visitVariableInput(VariableInputContext option) {
    variable.input = Literals.text(option.text());
    return null;
  }

  @Override
  public Void visitVariableWeight(VariableWeightContext option) {
    variable.weight = true;
    return null;
  }

  @Override
  public Void visitVariableFormat(VariableFormatContext option) {
    variable.format = FormatReader.read(option.format());
    return null;
  }
}
