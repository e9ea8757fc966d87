package kestrel.adapter;

import java.util.ArrayDeque;
import kestrel.converter.ConversionException;
import kestrel.converter.PositionedHandler;
import kestrel.converter.SafeXml;
import org.xml.sax.Attributes;
import org.xml.sax.SAXException;

/** Reads an XML text into nodes. */
final class TreeReader extends PositionedHandler {
  private static final String XML_SCHEMA_INSTANCE = "http://www.w3.org/2001/XMLSchema-instance";
  private static final String XML = "http://www.w3.org/XML/1998/namespace";

  /** Stands for the namespace of attributes that belong nowhere. */
  static final String FOREIGN = "?";

  /** Elements of a text; no request or template comes near it. */
  private static final int MAXIMUM_ELEMENTS = 1_000_000;

  private int elements;
  private Node root;
  private Node current;
  /** What stands in the open elements so far, the innermost first. */
  private final ArrayDeque<StringBuilder> texts = new ArrayDeque<>();

  private TreeReader() {}

  /** `what` names the text in messages. */
  static Node read(byte[] bytes, String what) throws ConversionException {
    TreeReader reader = new TreeReader();
    SafeXml.read(bytes, what, reader);
    return reader.root;
  }

  @Override
  protected void open(String uri, String name, Attributes attributes, int atLine, int atColumn) throws SAXException {
    if (++elements > MAXIMUM_ELEMENTS) throw new SAXException("there are more than " + MAXIMUM_ELEMENTS + " elements");
    texts.push(new StringBuilder());
    Node node = new Node(Vocabulary.Space.of(uri), name, atLine, atColumn);
    for (int at = 0; at < attributes.getLength(); ++at) {
      String prefix = prefixOf(attributes.getURI(at));
      if (prefix != null) node.set(prefix + attributes.getLocalName(at), attributes.getValue(at));
    }
    if (root == null) {
      root = node;
    } else {
      current.add(node);
    }
    current = node;
  }

  /** Null for attributes that mean nothing to the chart. */
  private static String prefixOf(String uri) {
    return switch (uri) {
      case "" -> "";
      case Vocabulary.TEMPLATE_NAMESPACE -> ":";
      case XML, XML_SCHEMA_INSTANCE -> null;
      default -> FOREIGN;
    };
  }

  @Override
  protected void close() {
    current.text = texts.pop().toString();
    current = current.parent();
  }

  @Override
  protected void text(String content, int atLine, int atColumn) {
    if (!texts.isEmpty()) texts.peek().append(content);
  }

  @Override
  protected void aside(String what, int atLine, int atColumn) {}
}
