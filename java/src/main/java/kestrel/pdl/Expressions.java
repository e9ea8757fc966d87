package kestrel.pdl;

import java.util.List;
import java.util.Map;
import java.util.function.Function;
import kestrel.markup.Numbers;
import kestrel.pdl.PdlParser.ExponentContext;
import kestrel.pdl.PdlParser.GroupTermContext;
import kestrel.pdl.PdlParser.NameContext;
import kestrel.pdl.PdlParser.NameTermContext;
import kestrel.pdl.PdlParser.NumberTermContext;
import kestrel.pdl.PdlParser.PowerContext;
import kestrel.pdl.PdlParser.PrimaryContext;
import kestrel.pdl.PdlParser.ProductContext;
import kestrel.pdl.PdlParser.SignedContext;
import kestrel.pdl.PdlParser.SumContext;

/** Expressions as the markup writes them: "log(sourceVariable1) + 0.5*x". */
final class Expressions {
  /** Functions, and how many arguments they have; 0 stands for two and more. */
  private static final Map<String, Integer> FUNCTIONS =
      Map.ofEntries(Map.entry("abs", 1), Map.entry("ceiling", 1), Map.entry("cos", 1), Map.entry("exp", 1),
          Map.entry("floor", 1), Map.entry("log", 1), Map.entry("log10", 1), Map.entry("max", 0), Map.entry("min", 0),
          Map.entry("round", 1), Map.entry("sin", 1), Map.entry("sqrt", 1), Map.entry("tan", 1));

  /** Sorted, so that of functions that are equally near always the same is suggested. */
  private static final List<String> FUNCTION_NAMES = FUNCTIONS.keySet().stream().sorted().toList();

  private final Function<NameContext, String> variables;
  private final StringBuilder text = new StringBuilder();

  private Expressions(Function<NameContext, String> variables) {
    this.variables = variables;
  }

  /** `variables` gives the text that stands for a name, or refuses it. */
  static String text(SumContext sum, Function<NameContext, String> variables) {
    Expressions expressions = new Expressions(variables);
    expressions.sum(sum);
    return expressions.text.toString();
  }

  // Lists of parts are taken once: a tree looks each part up from its beginning.
  private void sum(SumContext sum) {
    List<ProductContext> products = sum.product();
    for (int at = 0; at < products.size(); ++at) {
      if (at > 0) text.append(' ').append(sum.operators.get(at - 1).getText()).append(' ');
      product(products.get(at));
    }
  }

  private void product(ProductContext product) {
    List<SignedContext> factors = product.signed();
    for (int at = 0; at < factors.size(); ++at) {
      if (at > 0) text.append(product.operators.get(at - 1).getText());
      text.append("-".repeat(factors.get(at).signs.size() % 2));
      power(factors.get(at).power());
    }
  }

  private void power(PowerContext power) {
    primary(power.primary());
    for (ExponentContext exponent : power.exponents) {
      text.append('^').append("-".repeat(exponent.signs.size() % 2));
      primary(exponent.primary());
    }
  }

  private void primary(PrimaryContext primary) {
    if (primary instanceof NumberTermContext number) {
      text.append(Numbers.text(Literals.finite(number.getText(), Place.of(number))));
    } else if (primary instanceof GroupTermContext group) {
      parentheses(List.of(group.sum()));
    } else if (primary instanceof NameTermContext name) {
      name(name);
    }
  }

  private void name(NameTermContext term) {
    if (term.sum().isEmpty()) {
      text.append(variables.apply(term.name()));
      return;
    }
    String function = Literals.name(term.name());
    Integer arguments = FUNCTIONS.get(function);
    if (arguments == null) {
      throw new Refusal(Place.of(term),
          "found the function " + Wording.quoted(function) + ", expected " + Wording.anyOf(FUNCTION_NAMES)
              + Suggestions.hint(function, FUNCTION_NAMES));
    }
    int given = term.sum().size();
    if (arguments == 0 ? given < 2 : given != arguments) {
      throw new Refusal(Place.of(term),
          "found " + Wording.quoted(function) + " with " + given + (given == 1 ? " argument" : " arguments")
              + ", expected " + (arguments == 0 ? "two or more" : "one"));
    }
    text.append(function);
    parentheses(term.sum());
  }

  private void parentheses(List<SumContext> sums) {
    text.append('(');
    for (int at = 0; at < sums.size(); ++at) {
      if (at > 0) text.append(", ");
      sum(sums.get(at));
    }
    text.append(')');
  }
}
