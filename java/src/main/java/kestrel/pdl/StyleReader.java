package kestrel.pdl;

import java.util.List;
import java.util.Map;
import kestrel.markup.Numbers;
import kestrel.pdl.PdlParser.StyleContext;
import kestrel.pdl.PdlParser.StyleFlagContext;
import kestrel.pdl.PdlParser.StyleFontContext;
import kestrel.pdl.PdlParser.StyleLengthContext;
import kestrel.pdl.PdlParser.StyleNumberContext;
import kestrel.pdl.PdlParser.StyleOptionContext;
import kestrel.pdl.PdlParser.StyleTextContext;

/** Reads looks into properties of the markup. */
final class StyleReader extends PdlBaseVisitor<Void> {
  private static final int MOST_PATTERNS = 1000;
  private static final Map<String, String> LENGTHS =
      Map.of("stroke", "stroke_width", "size", "size", "width", "width", "padding", "padding");

  private final Style style = new Style();

  static Style read(StyleContext style) {
    StyleReader reader = new StyleReader();
    Once once = new Once();
    for (StyleOptionContext option : style.styleOption()) {
      once.say(option.getStart().getText(), option);
      reader.visit(option);
    }
    return reader.style;
  }

  /** The one style of a block that may have one. */
  static Style readFirst(List<StyleContext> styles) {
    Once once = new Once();
    styles.forEach(style -> once.say("style", style));
    return styles.isEmpty() ? new Style() : read(styles.get(0));
  }

  @Override
  public Void visitStyleText(StyleTextContext option) {
    String text = Literals.text(option.text());
    Place place = Place.of(option.text());
    switch (option.property.getText()) {
      case "color" -> style.with("color", Looks.color(text, place));
      case "outline" -> style.with("color2", Looks.color(text, place));
      case "dash" -> style.with("stroke_dasharray", Looks.dash(text, place));
      default -> style.with("symbol", Looks.symbol(text, place));
    }
    return null;
  }

  @Override
  public Void visitStyleLength(StyleLengthContext option) {
    style.with(LENGTHS.get(option.property.getText()), Literals.length(option.length()));
    return null;
  }

  @Override
  public Void visitStyleNumber(StyleNumberContext option) {
    if (option.property.getText().equals("pattern")) {
      style.with("pattern", String.valueOf(Literals.whole(option.number(), 0, MOST_PATTERNS, "a pattern")));
      return null;
    }
    double opacity = Literals.number(option.number());
    if (opacity < 0 || opacity > 1) {
      throw new Refusal(Place.of(option.number()),
          "found " + option.number().getText() + ", expected an opacity from 0 to 1");
    }
    style.with("opacity", Numbers.text(opacity));
    return null;
  }

  @Override
  public Void visitStyleFont(StyleFontContext option) {
    if (option.text() != null) style.with("font_family", Literals.text(option.text()));
    if (option.length() != null) style.with("font_size", Literals.length(option.length()));
    return null;
  }

  @Override
  public Void visitStyleFlag(StyleFlagContext option) {
    switch (option.flag.getText()) {
      case "bold" -> style.with("font_weight", "bold");
      case "italic" -> style.with("font_style", "italic");
      default -> style.with("visible", "false");
    }
    return null;
  }
}
