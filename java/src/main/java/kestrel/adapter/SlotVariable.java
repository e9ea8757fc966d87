package kestrel.adapter;

import java.util.ArrayList;

/** A variable of the chart that a slot fills. Its texts are still those of a template, in which braces stand twice. */
final class SlotVariable {
  private SlotVariable() {}

  static void fill(Node variable, Filling filling, Slot slot) {
    variable.attributes.remove(":slot");
    variable.set("sourceName", Placeholders.meant(filling.value()))
        .set("label", Placeholders.meant(filling.label()))
        .set("categorical", Boolean.toString(filling.categorical()));
    variable.attributes.putIfAbsent("creator", "external_datasource");
    if (filling.weight() || slot.kind() == Slot.Kind.WEIGHT) variable.set("weight", "true");
    read(variable, filling);
    if (filling.format() != null) format(variable, filling.format());
    if (filling.set() != null) join(variable, filling);
  }

  /** A variable that labels the cases. Without a name it keeps its own column. */
  static void label(Node variable, Filling filling) {
    variable.attributes.remove(":labeling");
    read(variable, filling);
    if (filling.labeling().isEmpty()) return;
    variable.set("sourceName", Placeholders.meant(filling.labeling()))
        .set("label", Placeholders.meant(filling.labeling()))
        .set("categorical", "true");
    // What the template named instead may have been the client's own.
    variable.set("creator", "external_datasource");
  }

  /** Columns of a data set are read from the source of its name. */
  private static void read(Node variable, Filling filling) {
    if (!filling.dataSet().isEmpty()) variable.set("source", Placeholders.meant(filling.dataSet()));
  }

  /** The request's format stands for the template's. */
  private static void format(Node variable, Node format) {
    for (Node child : new ArrayList<>(variable.children)) {
      if (child.name.equals("format")) child.remove();
    }
    Node copy = variable.add(format.copy());
    for (Node part : copy.all()) part.attributes.replaceAll((name, value) -> Placeholders.meant(value));
  }

  private static void join(Node variable, Filling filling) {
    Filling.ResponseSet set = filling.set();
    Node extension = variable.childOrNew("extension").set("MRSetName", Placeholders.meant(set.name()));
    if (set.counted() == null) return;
    extension.set("countedValue", Placeholders.meant(set.counted()))
        .set("enhancedDichotomy", Boolean.toString(set.enhanced()));
    // The one category that counts is the member itself, unless its own label is the better name.
    if (set.enhanced()) return;
    Node format = variable.childOrNew("format");
    format.add(Node.inChart("relabel", format))
        .set("from", Placeholders.meant(set.counted()))
        .set("to", Placeholders.meant(filling.label()));
  }
}
