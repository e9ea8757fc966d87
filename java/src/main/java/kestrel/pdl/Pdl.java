package kestrel.pdl;

import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;
import kestrel.markup.MarkupWriter;

/** The chart description language. */
public final class Pdl {
  private Pdl() {}

  /** The markup, in UTF-8, of the chart that a description describes. */
  public static byte[] toXml(String description) throws ConversionException {
    return MarkupWriter.write(translate(description));
  }

  static MarkupElement translate(String description) throws ConversionException {
    try {
      return write(ChartReader.read(DescriptionParser.parse(description)));
    } catch (Refusal refusal) {
      throw refusal.toConversionException();
    }
  }

  private static MarkupElement write(Chart chart) {
    Parts parts = new Parts();
    ElementMarkup elements = new ElementMarkup(parts, chart);
    elements.write();
    new VariableMarkup(parts).write(chart);
    new DimensionMarkup(parts, chart).write();
    new GuideMarkup(parts, chart).write();
    new PanelMarkup(parts, chart).write();
    new PageMarkup(parts, chart).write(elements);
    return parts.root;
  }
}
