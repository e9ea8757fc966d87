package kestrel.lumoml14;

import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;
import kestrel.markup.Numbers;

/** Looks that old charts say by value, attribute by attribute, and new ones in a style of their own. */
final class Looks {
  private interface Reader {
    String read(OldElement element, String attribute) throws ConversionException;
  }

  private record Row(String attribute, String property, Reader reader) {}

  private static final Row[] ELEMENT = {new Row("color", "color", OldElement::color),
      new Row("outline", "color2", OldElement::color), new Row("size", "size", OldElement::points),
      new Row("width", "width", OldElement::percent), new Row("linewidth", "stroke_width", OldElement::points),
      new Row("dash", "stroke_dasharray", Looks::dash), new Row("shape", "symbol", Looks::shape),
      new Row("pattern", "pattern", Looks::pattern), new Row("transparency", "opacity", Looks::opacity),
      new Row("depth", "depth", OldElement::points)};

  private static final Row[] LINE = {new Row("color", "color", OldElement::color),
      new Row("linewidth", "stroke_width", OldElement::points), new Row("dash", "stroke_dasharray", Looks::dash)};

  private static final Row[] TEXT = {new Row("font", "font_family", OldElement::value),
      new Row("size", "font_size", OldElement::points), new Row("color", "color", OldElement::color),
      new Row("bold", "font_weight", Looks::weight), new Row("italic", "font_style", Looks::slant),
      new Row("align", "textAlignment", Looks::alignment)};

  private static final Row[] BOX = {
      new Row("background", "color", OldElement::color), new Row("frame", "color2", OldElement::color)};

  private Looks() {}

  static void ofElement(OldElement element, MarkupElement style) throws ConversionException {
    apply(ELEMENT, element, style);
  }

  static void ofLine(OldElement element, MarkupElement style) throws ConversionException {
    apply(LINE, element, style);
  }

  static void ofText(OldElement element, MarkupElement style) throws ConversionException {
    apply(TEXT, element, style);
  }

  static void ofBox(OldElement element, MarkupElement style) throws ConversionException {
    apply(BOX, element, style);
  }

  private static void apply(Row[] rows, OldElement element, MarkupElement style) throws ConversionException {
    for (Row row : rows) style.set(row.property, row.reader.read(element, row.attribute));
  }

  static String dash(OldElement element, String attribute) throws ConversionException {
    return element.word(attribute, Words.DASHES);
  }

  static String weight(OldElement element, String attribute) throws ConversionException {
    return chosen(element.truth(attribute), "bold", "normal");
  }

  private static String slant(OldElement element, String attribute) throws ConversionException {
    return chosen(element.truth(attribute), "italic", "normal");
  }

  private static String alignment(OldElement element, String attribute) throws ConversionException {
    return element.word(attribute, Words.ALIGNMENTS);
  }

  private static String shape(OldElement element, String attribute) throws ConversionException {
    return element.word(attribute, Words.SHAPES);
  }

  private static String pattern(OldElement element, String attribute) throws ConversionException {
    Integer pattern = element.count(attribute);
    return pattern == null ? null : pattern.toString();
  }

  private static String opacity(OldElement element, String attribute) throws ConversionException {
    Double transparency = element.share(attribute);
    return transparency == null ? null : Numbers.text((100 - transparency) / 100);
  }

  private static String chosen(String truth, String yes, String no) {
    if (truth == null) return null;
    return truth.equals("true") ? yes : no;
  }
}
