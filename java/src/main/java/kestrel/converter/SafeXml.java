package kestrel.converter;

import java.io.ByteArrayInputStream;
import java.io.IOException;
import javax.xml.XMLConstants;
import javax.xml.parsers.ParserConfigurationException;
import javax.xml.parsers.SAXParserFactory;
import javax.xml.transform.Source;
import javax.xml.transform.TransformerConfigurationException;
import javax.xml.transform.TransformerException;
import javax.xml.transform.TransformerFactory;
import org.xml.sax.InputSource;
import org.xml.sax.SAXException;

/**
 * The one place that makes parsers of XML and engines of style sheets. None of them loads anything from outside the
 * text that it was given, accepts a document type declaration, or goes deeper than {@link #MAXIMUM_DEPTH} elements.
 */
public final class SafeXml {
  /** Levels of elements in a text, the root being the first. */
  public static final int MAXIMUM_DEPTH = 1000;

  /** Bytes of a text. */
  public static final int MAXIMUM_SIZE = 128 << 20;

  /** A feature of the parser, which its message names in every language where it refuses a text for this. */
  static final String NO_DOCTYPE = "http://apache.org/xml/features/disallow-doctype-decl";

  private static final String LEXICAL_HANDLER = "http://xml.org/sax/properties/lexical-handler";

  private SafeXml() {}

  /** A reader that is aware of namespaces. Each text needs its own. */
  public static SafeReader newReader() {
    try {
      SAXParserFactory factory = SAXParserFactory.newDefaultInstance();
      factory.setNamespaceAware(true);
      factory.setFeature(XMLConstants.FEATURE_SECURE_PROCESSING, true);
      factory.setFeature(NO_DOCTYPE, true);
      factory.setFeature("http://xml.org/sax/features/external-general-entities", false);
      factory.setFeature("http://xml.org/sax/features/external-parameter-entities", false);
      factory.setFeature("http://apache.org/xml/features/nonvalidating/load-external-dtd", false);
      var parser = factory.newSAXParser();
      parser.setProperty(XMLConstants.ACCESS_EXTERNAL_DTD, "");
      parser.setProperty(XMLConstants.ACCESS_EXTERNAL_SCHEMA, "");
      SafeReader reader = new SafeReader(parser.getXMLReader());
      reader.setEntityResolver(SafeXml::refuseEntity);
      return reader;
    } catch (ParserConfigurationException | SAXException failure) {
      throw new IllegalStateException("The XML parser of this Java VM lacks a safety feature.", failure);
    }
  }

  /** An engine that compiles style sheets. */
  public static TransformerFactory newTransformerFactory() {
    try {
      TransformerFactory factory = TransformerFactory.newDefaultInstance();
      factory.setFeature(XMLConstants.FEATURE_SECURE_PROCESSING, true);
      factory.setAttribute(XMLConstants.ACCESS_EXTERNAL_DTD, "");
      factory.setAttribute(XMLConstants.ACCESS_EXTERNAL_STYLESHEET, "");
      factory.setURIResolver(SafeXml::refuseAddress);
      return factory;
    } catch (TransformerConfigurationException failure) {
      throw new IllegalStateException("The style sheet engine of this Java VM lacks a safety feature.", failure);
    }
  }

  /** Reads a text through `handler`. `what` names the text in messages: "chart", "style sheet". */
  public static void read(byte[] text, String what, PositionedHandler handler) throws ConversionException {
    checkSize(text, what);
    SafeReader reader = newReader();
    reader.setContentHandler(handler);
    reader.setErrorHandler(handler);
    try {
      reader.setProperty(LEXICAL_HANDLER, handler);
      reader.parse(sourceOf(text));
    } catch (SAXException | IOException failure) {
      throw reader.refusal(what, "");
    }
  }

  public static InputSource sourceOf(byte[] text) {
    return new InputSource(new ByteArrayInputStream(text));
  }

  public static void checkSize(byte[] text, String what) throws ConversionException {
    if (text.length == 0) throw new ConversionException("the " + what + " is empty");
    if (text.length > MAXIMUM_SIZE) {
      throw new ConversionException(
          "the " + what + " has " + text.length + " bytes; no more than " + MAXIMUM_SIZE + " are read");
    }
  }

  private static InputSource refuseEntity(String publicId, String systemId) throws SAXException {
    throw new SAXException("nothing outside the text is read: \"" + systemId + "\"");
  }

  public static Source refuseAddress(String href, String base) throws TransformerException {
    throw new TransformerException("nothing outside the text is read: \"" + href + "\"");
  }
}
