package kestrel.pdl;

import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;
import kestrel.markup.Numbers;
import kestrel.pdl.PdlParser.NameContext;
import kestrel.pdl.PdlParser.ValueContext;

/** The names that a description has declared so far. */
final class Scope {
  private static final String UNNAMED_SOURCE = "source0";

  private final Map<String, Place> places = new LinkedHashMap<>();

  /** Declared sources; the markup knows them by the same names. */
  private final Map<String, String> sources = new LinkedHashMap<>();

  private final Map<String, Variable> variables = new LinkedHashMap<>();

  private boolean complete;

  /** From now on every declaration is known. */
  void complete() {
    complete = true;
  }

  void declareSource(NameContext name) {
    String declared = Literals.name(name);
    declare("source", declared, Place.of(name));
    sources.put(declared, declared);
  }

  /** Refuses a name that another variable has. */
  void checkFree(NameContext name) {
    declare("variable", Literals.name(name), Place.of(name));
  }

  void declare(Variable variable) {
    variables.put(variable.name, variable);
  }

  List<String> sourceIds() {
    return sources.isEmpty() ? List.of(UNNAMED_SOURCE) : List.copyOf(sources.values());
  }

  /** The first source, or the one that a description without a source has. */
  String defaultSource() {
    return sourceIds().get(0);
  }

  String source(NameContext name) {
    String id = sources.get(Literals.name(name));
    return id != null ? id : unknown("source", name, sources);
  }

  Variable variable(NameContext name) {
    Variable variable = variables.get(Literals.name(name));
    return variable != null ? variable : unknown("variable", name, variables);
  }

  Variable categorical(NameContext name, String use) {
    Variable variable = variable(name);
    if (variable.kind.isCategorical()) return variable;
    throw wrongKind(variable, Place.of(name), "a categorical variable for " + use);
  }

  Variable measured(NameContext name, String use) {
    Variable variable = variable(name);
    if (!variable.kind.isCategorical()) return variable;
    throw wrongKind(variable, Place.of(name), "a numeric variable for " + use);
  }

  /** A number, whose unit does not depend on how a host counts time. */
  Variable numeric(NameContext name, String use) {
    Variable variable = measured(name, use);
    if (variable.kind != Kind.DATE) return variable;
    throw wrongKind(variable, Place.of(name), "a numeric variable for " + use);
  }

  static Refusal wrongKind(Variable variable, Place place, String expected) {
    return new Refusal(place,
        "found " + Wording.quoted(variable.name) + ", which is " + variable.kind.phrase() + ", expected " + expected);
  }

  /** The code of a category that is named by its text, or by the code itself. */
  static String code(Variable variable, ValueContext value) {
    if (value.number() != null) return Numbers.text(Literals.number(value.number()));
    String text = Literals.text(value.text());
    String code = variable.codes.get(text);
    if (code != null) return code;
    Set<String> known = variable.codes.keySet();
    throw new Refusal(Place.of(value),
        "found " + Wording.quoted(text) + ", expected one of the categories of " + Wording.quoted(variable.name)
            + (known.isEmpty() ? ", for which no \"categories\" are given" : "") + Suggestions.hint(text, known));
  }

  private void declare(String what, String name, Place place) {
    Place first = places.putIfAbsent(what + " " + name, place);
    if (first != null) {
      throw new Refusal(place,
          "found a second " + what + " " + Wording.quoted(name) + ", expected another name; the first is in line "
              + first.line() + ", column " + first.column());
    }
  }

  private <T> T unknown(String what, NameContext name, Map<String, T> known) {
    String unknown = Literals.name(name);
    throw new Refusal(Place.of(name),
        "found " + Wording.quoted(unknown) + ", expected the name of a " + what
            + (complete || what.equals("source") ? "" : " that is declared before it is used")
            + Suggestions.hint(unknown, known.keySet()));
  }
}
