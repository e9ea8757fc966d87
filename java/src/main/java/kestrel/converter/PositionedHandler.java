package kestrel.converter;

import org.xml.sax.Attributes;
import org.xml.sax.Locator;
import org.xml.sax.SAXException;
import org.xml.sax.SAXParseException;
import org.xml.sax.ext.DefaultHandler2;

/**
 * A handler that knows where each element begins. The parser only says where an event ends, which for an element is
 * behind its attributes; the end of the event before it is where it begins.
 */
public abstract class PositionedHandler extends DefaultHandler2 {
  private Locator locator;
  private int line = 1;
  private int column = 1;
  private boolean seenAny;

  /** The position of the element's `&lt;`; for the root, of the end of its start tag. Counts from 1. */
  protected abstract void open(String uri, String name, Attributes attributes, int atLine, int atColumn)
      throws SAXException;

  protected abstract void close() throws SAXException;

  protected abstract void text(String content, int atLine, int atColumn) throws SAXException;

  /** A comment or a processing instruction, which `what` says. */
  protected abstract void aside(String what, int atLine, int atColumn) throws SAXException;

  @Override
  public final void setDocumentLocator(Locator documentLocator) {
    locator = documentLocator;
  }

  @Override
  public final void startElement(String uri, String localName, String qName, Attributes attributes)
      throws SAXException {
    // Before the root there may be white space, of which the parser says nothing.
    if (!seenAny) mark(0);
    seenAny = true;
    open(uri, localName, attributes, line, column);
    mark(0);
  }

  @Override
  public final void endElement(String uri, String localName, String qName) throws SAXException {
    close();
    mark(0);
  }

  @Override
  public final void characters(char[] characters, int start, int length) throws SAXException {
    text(new String(characters, start, length), line, column);
    // By now the parser has taken the '<' behind the text.
    mark(1);
  }

  @Override
  public final void startCDATA() {
    mark(0);
  }

  @Override
  public final void endCDATA() {
    mark(0);
  }

  @Override
  public final void comment(char[] characters, int start, int length) throws SAXException {
    aside("comment", line, column);
    mark(0);
  }

  @Override
  public final void processingInstruction(String target, String data) throws SAXException {
    aside("processing instruction", line, column);
    mark(0);
  }

  @Override
  public final void error(SAXParseException failure) throws SAXException {
    throw failure;
  }

  @Override
  public final void fatalError(SAXParseException failure) throws SAXException {
    throw failure;
  }

  private void mark(int back) {
    line = locator.getLineNumber();
    column = Math.max(1, locator.getColumnNumber() - back);
  }
}
