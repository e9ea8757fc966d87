package kestrel.converter;

import kestrel.adapter.TemplateAdapter;
import kestrel.lumoml14.Upgrade;
import kestrel.pdl.Pdl;
import kestrel.stylesheet.StyleSheets;

/**
 * The only class that the library calls. XML documents cross as bytes, because their declaration names the encoding;
 * what comes back is UTF-8. All operations may be called from several threads at once. A text that is refused is a
 * ConversionException; anything else that is thrown is a fault of the converter.
 */
public final class Converter {
  private Converter() {}

  /** The chart in the current markup. `chart` is in LumoML 1.4. */
  public static byte[] upgrade(byte[] chart) throws ConversionException {
    return upgradeWithReport(chart)[0];
  }

  /** The chart in the current markup, and a report with a line for each thing that could not be carried over. */
  public static byte[][] upgradeWithReport(byte[] chart) throws ConversionException {
    return bounded("chart", () -> Upgrade.upgrade(chart));
  }

  /** The chart as the style sheet reworks it; empty where the sheet gives nothing. */
  public static byte[] applyStyleSheet(byte[] styleSheet, byte[] chart) throws ConversionException {
    return bounded("style sheet", () -> StyleSheets.apply(styleSheet, chart));
  }

  /** The current markup, in UTF-8, of a description in PDL. */
  public static byte[] pdlToXml(String description) throws ConversionException {
    return bounded("description", () -> Pdl.toXml(description));
  }

  /**
   * The reply to a request for a chart from a visualization template. What is wrong with the request or the template is
   * told in the reply. The folders are the host's own, with a folder for each kind of file, and the repository; an
   * empty text stands for none.
   */
  public static byte[] convertTemplate(byte[] request, String localStore, String repository) {
    try {
      return bounded("request", () -> TemplateAdapter.convert(request, localStore, repository));
    } catch (ConversionException exhausted) {
      return TemplateAdapter.refuse(exhausted.getMessage());
    }
  }

  private interface Conversion<T> {
    T run() throws ConversionException;
  }

  /** A text that asks for more than this Java VM has is refused as any other; the VM itself is unharmed. */
  private static <T> T bounded(String what, Conversion<T> conversion) throws ConversionException {
    try {
      return conversion.run();
    } catch (OutOfMemoryError exhausted) {
      throw new ConversionException("the " + what + " needs more memory than the Java VM was given ("
              + (Runtime.getRuntime().maxMemory() >> 20) + " MB)",
          exhausted);
    } catch (StackOverflowError exhausted) {
      throw new ConversionException("the " + what + " nests or recurses too deeply", exhausted);
    }
  }
}
