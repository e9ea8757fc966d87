package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.HashMap;
import java.util.List;
import java.util.Map;
import kestrel.converter.ConversionException;
import kestrel.converter.PositionedHandler;
import kestrel.converter.SafeXml;
import org.xml.sax.Attributes;
import org.xml.sax.SAXException;

/** A chart in LumoML 1.4: the root with its attributes, and one flat level of elements. */
final class OldChart {
  private static final String ROOT = "graph";

  /** What an element and what becomes of it take up in memory, measured with headings and layers. */
  private static final int BYTES_OF_ELEMENT = 1000;
  private static final int BYTES_OF_ATTRIBUTE = 250;

  private final OldElement root;
  private final Map<String, List<OldElement>> elements;

  private OldChart(Reader reader) {
    root = reader.root;
    elements = reader.elements;
  }

  static OldChart read(byte[] chart, Report report) throws ConversionException {
    Reader reader = new Reader(report);
    SafeXml.read(chart, "chart", reader);
    return new OldChart(reader);
  }

  OldElement root() {
    return root;
  }

  /** The elements of a name, in document order. */
  List<OldElement> all(String name) {
    return elements.getOrDefault(name, List.of());
  }

  private static final class Reader extends PositionedHandler {
    private final Report report;
    private final Map<String, List<OldElement>> elements = new HashMap<>();
    private String namespace;
    private OldElement root;
    private OldElement current;
    private int depth;
    private long room = Runtime.getRuntime().maxMemory() / 4 * 3;

    Reader(Report report) {
      this.report = report;
    }

    @Override
    protected void open(String uri, String name, Attributes attributes, int atLine, int atColumn) throws SAXException {
      ++depth;
      if (depth == 1) {
        root = begin(uri, name, attributes, atLine, atColumn);
      } else if (depth == 2) {
        current = child(uri, name, attributes, atLine, atColumn);
      } else if (depth == 3) {
        report.lost(
            atLine, atColumn, "element \"" + OldElement.cut(name) + "\"", "LumoML 1.4 has no elements within others");
      }
    }

    private OldElement begin(String uri, String name, Attributes attributes, int atLine, int atColumn)
        throws SAXException {
      if (!name.equals(ROOT)) {
        throw new SAXException(ConversionException.at(atLine, atColumn,
            "the root element is \"" + OldElement.cut(name) + "\"; a chart in LumoML 1.4 begins with \"" + ROOT
                + "\""));
      }
      namespace = uri;
      return made(name, attributes, atLine, atColumn);
    }

    private OldElement child(String uri, String name, Attributes attributes, int atLine, int atColumn)
        throws SAXException {
      if (!uri.equals(namespace) || !Vocabulary.hasElement(name)) {
        report.lost(atLine, atColumn, "element \"" + OldElement.cut(name) + "\"", "it is not part of LumoML 1.4");
        return null;
      }
      takeRoom(attributes, atLine, atColumn);
      OldElement element = made(name, attributes, atLine, atColumn);
      elements.computeIfAbsent(name, unused -> new ArrayList<>()).add(element);
      return element;
    }

    /** Long before a Java VM gives up for want of memory it does little else but look for some. */
    private void takeRoom(Attributes attributes, int atLine, int atColumn) throws SAXException {
      room -= BYTES_OF_ELEMENT + (long) attributes.getLength() * BYTES_OF_ATTRIBUTE;
      if (room < 0) {
        throw new SAXException(ConversionException.at(atLine, atColumn,
            "the chart has more elements than the memory of "
                + "the Java VM holds, " + (Runtime.getRuntime().maxMemory() >> 20) + " MB"));
      }
    }

    private OldElement made(String name, Attributes attributes, int atLine, int atColumn) {
      List<String> names = new ArrayList<>();
      List<String> values = new ArrayList<>();
      for (int at = 0; at < attributes.getLength(); ++at) {
        if (attributes.getURI(at).isEmpty()) {
          names.add(attributes.getLocalName(at));
          values.add(attributes.getValue(at));
        } else {
          report.lost(atLine, atColumn,
              "attribute \"" + OldElement.cut(attributes.getQName(at)) + "\" of \"" + name + "\"",
              "it is not part of LumoML 1.4");
        }
      }
      return new OldElement(name, atLine, atColumn, names, values);
    }

    @Override
    protected void close() {
      if (--depth == 1) current = null;
    }

    @Override
    protected void text(String content, int atLine, int atColumn) {
      if (depth == 2 && current != null && current.name().equals(Vocabulary.WITH_TEXT)) {
        current.addText(content, atLine);
      } else if (depth <= 2 && (depth == 1 || current != null) && !content.isBlank()) {
        report.lost(atLine, atColumn, "text \"" + OldElement.cut(content.strip()) + "\"", "texts stand in attributes");
      }
    }

    @Override
    protected void aside(String what, int atLine, int atColumn) {
      report.lost(atLine, atColumn, what, "only the chart itself is");
    }
  }
}
