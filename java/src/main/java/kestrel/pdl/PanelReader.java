package kestrel.pdl;

import java.util.ArrayList;
import java.util.LinkedHashSet;
import java.util.List;
import java.util.Set;
import kestrel.pdl.PdlParser.NameContext;
import kestrel.pdl.PdlParser.PanelAspectContext;
import kestrel.pdl.PdlParser.PanelBlendContext;
import kestrel.pdl.PdlParser.PanelGapContext;
import kestrel.pdl.PdlParser.PanelOptionContext;
import kestrel.pdl.PdlParser.PanelVariablesContext;
import kestrel.pdl.PdlParser.PanelsContext;

/** Reads how a chart is split into panels. */
final class PanelReader extends PdlBaseVisitor<Void> {
  private final Scope scope;
  private final Panels panels = new Panels();
  private final Set<Variable> used = new LinkedHashSet<>();

  private PanelReader(Scope scope) {
    this.scope = scope;
  }

  static Panels read(PanelsContext statement, Scope scope) {
    PanelReader reader = new PanelReader(scope);
    Once once = new Once();
    for (PanelOptionContext option : statement.panelOption()) {
      String word = option.getStart().getText();
      if (word.equals("blend")) {
        once.sayWithout("columns", word, option);
        once.sayWithout("rows", word, option);
      } else if (option instanceof PanelVariablesContext) {
        once.sayWithout("blend", word, option);
      }
      once.say(word, option);
      reader.visit(option);
    }
    return reader.panels;
  }

  @Override
  public Void visitPanelVariables(PanelVariablesContext option) {
    Panels.Side side = option.direction.getText().equals("columns") ? panels.columns : panels.rows;
    side.nested = !option.algebra().nests.isEmpty();
    for (NameContext name : option.algebra().name()) {
      side.variables.add(unused(scope.categorical(name, "panels"), name));
    }
    return null;
  }

  @Override
  public Void visitPanelBlend(PanelBlendContext option) {
    List<Variable> blend = new ArrayList<>();
    for (NameContext name : option.name()) {
      Variable variable = unused(scope.measured(name, "a blend"), name);
      if (!blend.isEmpty() && variable.kind.measured() != blend.get(0).kind.measured()) {
        throw Scope.wrongKind(variable, Place.of(name),
            "one that is " + blend.get(0).kind.phrase() + " as " + Wording.quoted(blend.get(0).name));
      }
      blend.add(variable);
    }
    panels.blend = blend;
    return null;
  }

  private Variable unused(Variable variable, NameContext name) {
    if (used.add(variable)) return variable;
    throw new Refusal(
        Place.of(name), "found " + Wording.quoted(variable.name) + " twice in the panels, expected each variable once");
  }

  @Override
  public Void visitPanelGap(PanelGapContext option) {
    panels.gap = Literals.length(option.length());
    return null;
  }

  @Override
  public Void visitPanelAspect(PanelAspectContext option) {
    panels.aspect = Literals.positive(option.number(), "the width of a panel by its height");
    return null;
  }
}
