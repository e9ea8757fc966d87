package kestrel.pdl;

import kestrel.pdl.PdlParser.FormatContext;
import kestrel.pdl.PdlParser.FormatDecimalsContext;
import kestrel.pdl.PdlParser.FormatGroupingContext;
import kestrel.pdl.PdlParser.FormatMissingContext;
import kestrel.pdl.PdlParser.FormatOptionContext;
import kestrel.pdl.PdlParser.FormatPatternContext;
import kestrel.pdl.PdlParser.FormatPrefixContext;
import kestrel.pdl.PdlParser.FormatSuffixContext;

/** Reads how values are shown. */
final class FormatReader extends PdlBaseVisitor<Void> {
  private static final int MOST_DECIMALS = 20;

  private final Format format = new Format();

  static Format read(FormatContext format) {
    FormatReader reader = new FormatReader();
    Once once = new Once();
    for (FormatOptionContext option : format.formatOption()) {
      once.say(option.getStart().getText(), option);
      reader.visit(option);
    }
    return reader.format;
  }

  @Override
  public Void visitFormatDecimals(FormatDecimalsContext option) {
    format.minimumDecimals = Literals.whole(option.number(0), 0, MOST_DECIMALS, "decimals");
    format.maximumDecimals = format.minimumDecimals;
    if (option.number(1) != null) {
      format.maximumDecimals =
          Literals.whole(option.number(1), format.minimumDecimals, MOST_DECIMALS, "the most decimals");
    }
    return null;
  }

  @Override
  public Void visitFormatGrouping(FormatGroupingContext option) {
    format.grouping = true;
    return null;
  }

  @Override
  public Void visitFormatPrefix(FormatPrefixContext option) {
    format.prefix = Literals.text(option.text());
    return null;
  }

  @Override
  public Void visitFormatSuffix(FormatSuffixContext option) {
    format.suffix = Literals.text(option.text());
    return null;
  }

  @Override
  public Void visitFormatPattern(FormatPatternContext option) {
    format.pattern = Literals.text(option.text());
    return null;
  }

  @Override
  public Void visitFormatMissing(FormatMissingContext option) {
    format.missing = Literals.text(option.text());
    return null;
  }
}
