package kestrel.support;

import static org.junit.jupiter.api.Assertions.assertEquals;

import java.io.ByteArrayInputStream;
import java.io.StringWriter;
import java.nio.charset.StandardCharsets;
import javax.xml.parsers.DocumentBuilderFactory;
import javax.xml.transform.OutputKeys;
import javax.xml.transform.TransformerFactory;
import javax.xml.transform.dom.DOMSource;
import javax.xml.transform.stream.StreamResult;
import kestrel.converter.Converter;
import org.w3c.dom.Element;
import org.w3c.dom.Node;

/** Requests with templates in them, and what is in the replies, which are valid. */
public final class TemplateRequests {
  private static final String NAMESPACES = "xmlns='http://xml.vexa.example/visualization' "
      + "xmlns:t='http://xml.vexa.example/visualization-template'";

  private TemplateRequests() {}

  /** A template with those slots, written `name kind more`, and that chart. */
  public static String template(String slots, String chart) {
    StringBuilder declared = new StringBuilder("<t:template version='1.0'>");
    for (String slot : slots.split("; ")) {
      String[] parts = slot.strip().split(" ", 3);
      declared.append("<t:slot name='").append(parts[0]).append("' kind='").append(parts[1]).append("' ");
      declared.append(parts.length > 2 ? parts[2] : "").append("/>");
    }
    return whole(declared + "</t:template>" + chart);
  }

  public static String whole(String content) {
    return "<visualization " + NAMESPACES + ">" + content + "</visualization>";
  }

  public static String variable(String slot, String value, boolean categorical) {
    return variable(slot, value, categorical, "", "");
  }

  public static String variable(String slot, String value, boolean categorical, String attributes, String content) {
    return "<mapping slotName='" + slot + "' slotValue='" + value + "' categorical='" + categorical + "' " + attributes
        + ">" + content + "</mapping>";
  }

  public static String text(String slot, String value) {
    return "<mapping slotName='" + slot + "' slotValue='" + value + "'/>";
  }

  /** A request with the template in it. */
  public static String request(String template, String... mappings) {
    return specification("templateName='' locale='' location='file'",
        "<templateContents>" + template + "</templateContents>" + String.join("", mappings));
  }

  public static String specification(String attributes, String content) {
    return root("<templateSpecification " + attributes + ">" + content + "</templateSpecification>");
  }

  public static String root(String content) {
    return "<lumoTemplate xmlns='http://xml.vexa.example/vexa/viewer/lumoTemplate' "
        + "xmlns:lumoml='http://xml.vexa.example/visualization' type='request'>" + content + "</lumoTemplate>";
  }

  public static Element reply(String request) {
    return reply(request, "", "");
  }

  public static Element reply(String request, String store, String repository) {
    return reply(request.getBytes(StandardCharsets.UTF_8), store, repository);
  }

  public static Element reply(byte[] request, String store, String repository) {
    return parsed(Converter.convertTemplate(request, store, repository));
  }

  public static Element parsed(byte[] reply) {
    try {
      Schemas.validate("template-reply.xsd", reply);
      DocumentBuilderFactory factory = DocumentBuilderFactory.newDefaultInstance();
      factory.setNamespaceAware(true);
      return factory.newDocumentBuilder().parse(new ByteArrayInputStream(reply)).getDocumentElement();
    } catch (Exception failure) {
      throw new AssertionError("no reply: " + new String(reply, StandardCharsets.UTF_8), failure);
    }
  }

  /** The element that a reader of the reply finds. */
  public static Element found(Element reply, String name) {
    return (Element) reply.getElementsByTagName(name).item(0);
  }

  /** The error code of a request that is refused. */
  public static String refusal(String request) {
    return refusal(reply(request));
  }

  public static String refusal(Element reply) {
    Element chart = found(reply, "Lumoml");
    assertEquals("false", chart.getAttribute("success"), () -> written(chart));
    return chart.getAttribute("errorCode");
  }

  /** The chart of a request that is granted: valid, and without its root's own tags. */
  public static String chart(String request) {
    return chart(reply(request));
  }

  public static String chart(Element reply) {
    Element result = found(reply, "Lumoml");
    assertEquals("true", result.getAttribute("success"), result.getAttribute("errorCode"));
    String chart = written(result.getFirstChild());
    try {
      Schemas.validate("lumoml.xsd", chart.getBytes(StandardCharsets.UTF_8));
    } catch (Exception invalid) {
      throw new AssertionError(chart, invalid);
    }
    return chart;
  }

  public static String written(Node node) {
    try {
      var printer = TransformerFactory.newDefaultInstance().newTransformer();
      printer.setOutputProperty(OutputKeys.OMIT_XML_DECLARATION, "yes");
      StringWriter text = new StringWriter();
      printer.transform(new DOMSource(node), new StreamResult(text));
      return text.toString();
    } catch (Exception failure) {
      throw new AssertionError(failure);
    }
  }
}
