package kestrel.pdl;

/** A title, subtitle or footnote. */
record Heading(Kind kind, String text, Style style) {
  /** Kinds, and how many of each a chart has. */
  enum Kind {
    TITLE(2),
    SUBTITLE(1),
    FOOTNOTE(3);

    private final int most;

    Kind(int most) {
      this.most = most;
    }

    int most() {
      return most;
    }

    String word() {
      return name().toLowerCase(java.util.Locale.ROOT);
    }
  }
}
