package kestrel.pdl;

import java.util.Arrays;
import java.util.Collection;
import java.util.Locale;

/** Finds what somebody may have meant by a word that is not known. */
final class Suggestions {
  private static final int LONGEST = 60;

  private Suggestions() {}

  /** "; did you mean "point"?", or nothing where no word is near. */
  static String hint(String word, Collection<String> known) {
    String nearest = nearest(word, known);
    return nearest == null ? "" : "; did you mean " + Wording.quoted(nearest) + "?";
  }

  /** The nearest of the known words, the first of several; null where none is near. */
  static String nearest(String word, Collection<String> known) {
    if (word.isEmpty() || word.length() > LONGEST) return null;
    // Every letter is near every other: of single ones only the case is forgiven.
    int bound = word.length() == 1 ? 0 : Math.max(1, word.length() / 3);
    String nearest = null;
    for (String candidate : known) {
      if (Math.abs(candidate.length() - word.length()) > bound) continue;
      int distance = distance(word.toLowerCase(Locale.ROOT), candidate.toLowerCase(Locale.ROOT));
      if (distance > bound) continue;
      nearest = candidate;
      // Only what is nearer than this one counts from now on.
      bound = distance - 1;
    }
    return nearest;
  }

  /** How many letters are to be changed, added, left out or swapped with their neighbour. */
  static int distance(String from, String to) {
    int[] beforeLast = new int[to.length() + 1];
    int[] last = new int[to.length() + 1];
    int[] current = new int[to.length() + 1];
    Arrays.setAll(last, at -> at);
    for (int row = 1; row <= from.length(); ++row) {
      current[0] = row;
      for (int column = 1; column <= to.length(); ++column) {
        boolean same = from.charAt(row - 1) == to.charAt(column - 1);
        int cost = Math.min(Math.min(last[column], current[column - 1]) + 1, last[column - 1] + (same ? 0 : 1));
        boolean swapped = row > 1 && column > 1 && from.charAt(row - 1) == to.charAt(column - 2)
            && from.charAt(row - 2) == to.charAt(column - 1);
        current[column] = swapped ? Math.min(cost, beforeLast[column - 2] + 1) : cost;
      }
      int[] free = beforeLast;
      beforeLast = last;
      last = current;
      current = free;
    }
    return last[to.length()];
  }
}
