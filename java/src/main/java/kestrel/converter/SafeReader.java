package kestrel.converter;

import java.io.CharConversionException;
import java.io.IOException;
import java.io.UnsupportedEncodingException;
import org.xml.sax.Attributes;
import org.xml.sax.InputSource;
import org.xml.sax.Locator;
import org.xml.sax.SAXException;
import org.xml.sax.SAXParseException;
import org.xml.sax.XMLReader;
import org.xml.sax.helpers.XMLFilterImpl;

/**
 * Reads one text, and refuses it where its elements are nested too deeply for those who walk its tree. It remembers why
 * it failed, which those in between, such as an engine of style sheets, do not tell in full.
 */
public final class SafeReader extends XMLFilterImpl {
  private Locator locator;
  private int depth;
  private Exception failure;

  SafeReader(XMLReader reader) {
    super(reader);
  }

  /**
   * Why the text is refused, where the reader failed; else null. `what` names the text: "chart", "style sheet". Behind
   * the place stands `context`.
   */
  public ConversionException refusal(String what, String context) {
    if (failure == null) return null;
    ConversionException ours = causeOf(ConversionException.class);
    if (ours != null) return ours;
    IOException unreadable = causeOf(IOException.class);
    SAXParseException placed = causeOf(SAXParseException.class);
    String message = context + (unreadable != null ? message(unreadable, what) : message(failure));
    if (placed != null && placed.getLineNumber() > 0) {
      return at(placed.getLineNumber(), placed.getColumnNumber(), message);
    }
    return locator == null ? at(1, 1, message) : at(locator.getLineNumber(), locator.getColumnNumber(), message);
  }

  private <T extends Throwable> T causeOf(Class<T> kind) {
    for (Throwable cause = failure; cause != null; cause = cause.getCause()) {
      if (kind.isInstance(cause)) return kind.cast(cause);
    }
    return null;
  }

  @Override
  public void parse(InputSource input) throws SAXException, IOException {
    try {
      super.parse(input);
    } catch (SAXException | IOException thrown) {
      failure = thrown;
      throw thrown;
    }
  }

  @Override
  public void setDocumentLocator(Locator documentLocator) {
    locator = documentLocator;
    super.setDocumentLocator(documentLocator);
  }

  @Override
  public void startElement(String uri, String localName, String qName, Attributes attributes) throws SAXException {
    if (++depth > SafeXml.MAXIMUM_DEPTH) {
      throw new SAXParseException("elements are nested more than " + SafeXml.MAXIMUM_DEPTH + " levels deep", locator);
    }
    super.startElement(uri, localName, qName, attributes);
  }

  @Override
  public void endElement(String uri, String localName, String qName) throws SAXException {
    --depth;
    super.endElement(uri, localName, qName);
  }

  private ConversionException at(int line, int column, String message) {
    return new ConversionException(
        ConversionException.where(Math.max(1, line), Math.max(1, column)) + message, failure);
  }

  private static String message(Exception failure) {
    String message = String.valueOf(failure.getMessage());
    // What the parser says is for those who program it.
    return message.contains(SafeXml.NO_DOCTYPE) ? "a document type declaration is not allowed" : message;
  }

  private static String message(IOException failure, String what) {
    if (failure instanceof UnsupportedEncodingException) {
      return "the " + what + " declares an encoding that is not known here, " + failure.getMessage()
          + "; write it in UTF-8";
    }
    if (failure instanceof CharConversionException) {
      return "the " + what + " is not in the encoding that it declares (without a declaration: UTF-8); "
          + failure.getMessage();
    }
    return failure.getMessage();
  }
}
