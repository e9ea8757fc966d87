package kestrel.adapter;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import kestrel.adapter.Refusal.Kind;
import kestrel.pdl.Wording;

/** Puts the mappings of a request into the slots of a template. */
final class Assignment {
  /** Variables or texts of one slot. */
  private static final int MAXIMUM_FILLINGS = 100;

  private final Template template;
  private final Map<String, List<Filling>> filled = new LinkedHashMap<>();
  private final Map<String, Boolean> given = new LinkedHashMap<>();

  private Assignment(Template template) {
    this.template = template;
  }

  /** What each slot of the template holds; an empty list for one that holds nothing. */
  static Map<String, List<Filling>> of(Template template, List<Node> mappings) throws Refusal {
    Assignment assignment = new Assignment(template);
    for (String slot : template.slots().keySet()) assignment.filled.put(slot, new ArrayList<>());
    for (Node mapping : mappings) assignment.add(mapping);
    for (Slot slot : template.slots().values()) assignment.finish(slot);
    return assignment.filled;
  }

  private void add(Node mapping) throws Refusal {
    String name = mapping.get("slotName");
    Slot slot = template.slots().get(name);
    if (slot == null) {
      throw new Refusal(Kind.SlotUnknown,
          "the template has no slot " + Wording.quoted(name) + "; its slots are "
              + String.join(", ", template.slots().keySet()));
    }
    // Only the mapping of a variable says this.
    boolean variable = mapping.has("categorical");
    if (variable != slot.kind().takesVariables()) {
      throw new Refusal(Kind.SlotKind,
          "the slot " + Wording.quoted(name) + " takes " + slot.kind().meaning() + ", not "
              + (variable ? "a variable" : "a text"));
    }
    List<Filling> fillings = variable ? variables(mapping, slot) : text(mapping, slot);
    if (fillings.isEmpty()) return;
    if (given.put(name, true) != null && !slot.several()) {
      throw new Refusal(
          Kind.SlotFilledTwice, "the slot " + Wording.quoted(name) + " takes one thing, and is filled twice");
    }
    filled.get(name).addAll(fillings);
    if (filled.get(name).size() > MAXIMUM_FILLINGS) {
      throw new Refusal(Kind.RequestInvalid,
          "the slot " + Wording.quoted(name) + " is filled more than " + MAXIMUM_FILLINGS + " times");
    }
  }

  private void finish(Slot slot) throws Refusal {
    List<Filling> fillings = filled.get(slot.name());
    if (!fillings.isEmpty()) return;
    if (slot.required()) {
      throw new Refusal(
          Kind.SlotEmpty, "the slot " + Wording.quoted(slot.name()) + " is empty; it needs " + slot.wanted());
    }
    if (slot.fallback() != null) fillings.add(Filling.ofText(slot.fallback()));
  }

  private static List<Filling> text(Node mapping, Slot slot) throws Refusal {
    String value = mapping.get("slotValue");
    if (value.isEmpty()) return List.of();
    if (slot.kind() == Slot.Kind.LABEL) return List.of(Filling.ofText(value));
    String word = value.strip().toLowerCase(Locale.ROOT);
    if (slot.takes(word)) return List.of(Filling.ofText(word));
    throw new Refusal(Kind.ValueUnknown,
        "the slot " + Wording.quoted(slot.name()) + " takes " + slot.wanted() + ", not " + Wording.quoted(value));
  }

  private static List<Filling> variables(Node mapping, Slot slot) throws Refusal {
    boolean set = mapping.has("variableType");
    if (!set && mapping.get("slotValue").isEmpty()) return List.of();
    boolean categorical = mapping.get("categorical").equals("true");
    if (set && !slot.sets()) {
      throw new Refusal(Kind.SetRefused,
          "the slot " + Wording.quoted(slot.name()) + " takes no multiple response set, which "
              + Wording.quoted(mapping.get("slotValue")) + " is");
    }
    boolean fits = slot.kind() == Slot.Kind.VARIABLE || (slot.kind() == Slot.Kind.CATEGORICAL) == categorical;
    if (!fits) {
      throw new Refusal(Kind.VariableKind,
          "the slot " + Wording.quoted(slot.name()) + " takes " + slot.kind().meaning() + "; "
              + Wording.quoted(mapping.get("slotValue")) + " is " + (categorical ? "categorical" : "scale"));
    }
    return set ? members(mapping) : List.of(variable(mapping, categorical));
  }

  private static Filling variable(Node mapping, boolean categorical) throws Refusal {
    String name = mapping.get("slotValue");
    return new Filling(name, either(mapping.get("slotLabel"), name), categorical, mapping.get("weight").equals("true"),
        mapping.get("dataSetName"), mapping.get("labelingVariableName"),
        mapping.child(Vocabulary.Space.CHART, "format"), null);
  }

  private static List<Filling> members(Node mapping) throws Refusal {
    Node info = mapping.child(Vocabulary.Space.REQUEST, "multipleResponseInfo");
    Filling all = variable(mapping, mapping.get("categorical").equals("true"));
    String label = either(mapping.get("slotLabel"), either(info.get("MRSetName"), mapping.get("slotValue")));
    Filling.ResponseSet set = new Filling.ResponseSet(info.get("MRSetName"), label, info.attributes.get("countedValue"),
        info.get("enhancedDichotomy").equals("true"));
    List<Filling> members = new ArrayList<>();
    for (Node member : info.children) {
      String name = member.get("varName");
      if (name.isEmpty()) throw Request.at(Kind.RequestInvalid, member, "varName is empty");
      members.add(new Filling(name, either(member.get("varLabel"), name), all.categorical(), all.weight(),
          all.dataSet(), either(member.get("labelingVariableName"), all.labeling()), all.format(), set));
    }
    return members;
  }

  private static String either(String first, String second) {
    return first.isEmpty() ? second : first;
  }
}
