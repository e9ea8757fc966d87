package kestrel.adapter;

import java.util.Map;
import kestrel.adapter.Refusal.Kind;
import kestrel.converter.ConversionException;

/** A template that keeps the rules: its slots by their names, in their order, and its chart. */
record Template(String origin, Node chart, Map<String, Slot> slots, boolean needsMap) {
  Refusal invalid(Node at, String message) {
    return refusal(origin, Kind.TemplateInvalid, at, message);
  }

  static Refusal refusal(String origin, Kind kind, Node at, String message) {
    return new Refusal(kind, origin + ", " + ConversionException.where(at.line, at.column) + message);
  }
}
