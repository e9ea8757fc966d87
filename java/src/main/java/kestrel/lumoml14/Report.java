package kestrel.lumoml14;

import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Comparator;
import java.util.List;
import kestrel.converter.ConversionException;

/** What could not be carried over: a line for each thing, in the order of the old chart. */
final class Report {
  /** A chart of nothing but unknown things has no use for a report as long as itself. */
  private static final int LONGEST = 1000;

  private final List<Entry> entries = new ArrayList<>();
  private int more;

  void lost(int line, int column, String what, String why) {
    if (entries.size() == LONGEST) {
      ++more;
    } else {
      entries.add(new Entry(line, column, what + " is not carried over: " + why));
    }
  }

  /** The whole element, and thereby all its attributes. */
  void lost(OldElement element, String why) {
    element.askAll();
    lost(element.line(), element.column(), "element \"" + OldElement.cut(element.name()) + "\"", why);
  }

  void lost(OldElement element, String attribute, String why) {
    lost(element.line(), element.column(),
        "attribute \"" + OldElement.cut(attribute) + "\" of \"" + OldElement.cut(element.name()) + "\"", why);
  }

  /** In UTF-8; empty where all was carried over. */
  byte[] text() {
    entries.sort(Comparator.comparingInt(Entry::line).thenComparingInt(Entry::column));
    StringBuilder text = new StringBuilder();
    for (Entry entry : entries) {
      text.append(ConversionException.where(entry.line, entry.column)).append(entry.message).append('\n');
    }
    if (more > 0) text.append("and ").append(more).append(" further things\n");
    return text.toString().getBytes(StandardCharsets.UTF_8);
  }

  private record Entry(int line, int column, String message) {}
}
