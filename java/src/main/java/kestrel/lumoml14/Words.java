package kestrel.lumoml14;

import java.util.LinkedHashMap;
import java.util.Map;

/** The words that LumoML 1.4 has where the current markup has numbers, patterns or names of its own. */
final class Words {
  static final Map<String, String> TRUTH = table("yes", "true", "no", "false");

  static final Map<String, String> SOURCES = table("user", "userSource", "database", "databaseSource", "file",
      "delimitedFileSource", "stream", "streamingSource", "embedded", "embeddedSource");

  static final Map<String, String> DATE_FORMS = table("ymd", "yyyy-MM-dd", "dmy", "dd.MM.yyyy", "mdy", "MM/dd/yyyy",
      "ym", "yyyy-MM", "y", "yyyy", "time", "HH:mm:ss", "datetime", "yyyy-MM-dd HH:mm:ss");

  static final Map<String, String> DASHES = table(
      "solid", "", "dotted", "2pt,2pt", "dashed", "6pt,3pt", "longdashed", "12pt,3pt", "dashdotted", "8pt,2pt,2pt,2pt");

  static final Map<String, String> SHAPES = table("circle", "circle", "square", "square", "triangle", "triangle",
      "diamond", "diamond", "cross", "cross", "plus", "plus", "star", "star", "ibeam", "ibeam");

  static final Map<String, String> SCALES = table("linear", "1", "log", "2", "power", "3");

  static final Map<String, String> ARRANGEMENTS =
      table("overlap", "", "stack", "3", "pile", "7", "dots", "8", "cluster", "cluster");

  static final Map<String, String> STATISTICS =
      table("none", "", "percent", "3", "count", "10", "sum", "1", "mean", "2", "median", "4", "deviation", null);

  static final Map<String, Integer> DIMENSIONS = dimensions();

  static final Map<String, String> ALIGNMENTS = table("left", "left", "center", "center", "right", "right");

  static final Map<String, String> PLACES = table("right", "", "none", "none", "left", "0", "top", "2", "bottom", "3");

  static final Map<String, String> SIDES = table("near", "false", "far", "true");

  static final Map<String, String> ORDERS = table("ascending", "false", "descending", "true");

  static final Map<String, String> PANEL_METHODS = table("cross", "cross", "nest", "nest");

  static final Map<String, String> REFLECTIONS = table("every", "false", "second", "true");

  static final Map<String, String> OVERLAPS = table("hide", "2", "show", "1");

  private Words() {}

  /** In their order, so that messages list them so. A word without a counterpart stands for {@link #LOST}. */
  private static Map<String, String> table(String... wordsAndMeanings) {
    Map<String, String> table = new LinkedHashMap<>();
    for (int at = 0; at < wordsAndMeanings.length; at += 2) {
      String meaning = wordsAndMeanings[at + 1];
      table.put(wordsAndMeanings[at], meaning == null ? LOST : meaning);
    }
    return table;
  }

  static final String LOST = "lost";

  private static Map<String, Integer> dimensions() {
    Map<String, Integer> table = new LinkedHashMap<>();
    table.put("x", 0);
    table.put("y", 1);
    table.put("z", 2);
    return table;
  }
}
