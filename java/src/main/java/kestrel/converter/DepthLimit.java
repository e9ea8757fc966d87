package kestrel.converter;

import org.xml.sax.Attributes;
import org.xml.sax.Locator;
import org.xml.sax.SAXException;
import org.xml.sax.SAXParseException;
import org.xml.sax.XMLReader;
import org.xml.sax.helpers.XMLFilterImpl;

/** Refuses a text whose elements are nested too deeply for those who walk its tree. */
final class DepthLimit extends XMLFilterImpl {
  private Locator locator;
  private int depth;

  DepthLimit(XMLReader reader) {
    super(reader);
  }

  @Override
  public void setDocumentLocator(Locator documentLocator) {
    locator = documentLocator;
    super.setDocumentLocator(documentLocator);
  }

  @Override
  public void startDocument() throws SAXException {
    depth = 0;
    super.startDocument();
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
}
