package kestrel.adapter;

import java.io.StringWriter;
import java.nio.file.Path;
import java.util.List;
import java.util.Map;
import javax.xml.transform.OutputKeys;
import javax.xml.transform.Transformer;
import javax.xml.transform.TransformerException;
import javax.xml.transform.sax.SAXSource;
import javax.xml.transform.stream.StreamResult;
import kestrel.adapter.Refusal.Kind;
import kestrel.adapter.Request.Location;
import kestrel.converter.ConversionException;
import kestrel.converter.SafeXml;
import kestrel.markup.MarkupElement;
import kestrel.markup.MarkupWriter;
import kestrel.pdl.Wording;
import kestrel.stylesheet.StyleSheets;

/** Answers requests for charts from visualization templates. */
public final class TemplateAdapter {
  static final String TEMPLATE_ENDING = ".lumotemplate";
  private static final String SHEET_ENDING = ".xsl";

  private final Stores stores;

  private TemplateAdapter(Stores stores) {
    this.stores = stores;
  }

  /** The reply, in UTF-8. Empty texts stand for a host that has no such store. */
  public static byte[] convert(byte[] request, String localStore, String repository) {
    MarkupElement reply = new MarkupElement("lumoTemplate").set("type", "reply");
    try {
      new TemplateAdapter(new Stores(localStore, repository)).answer(Request.read(request), reply);
    } catch (Refusal invalid) {
      reply.add(refused("Lumoml", invalid));
    }
    return MarkupWriter.write(reply, Vocabulary.REQUEST_NAMESPACE);
  }

  /** The reply to a request that is not even read. */
  public static byte[] refuse(String message) {
    MarkupElement reply = new MarkupElement("lumoTemplate").set("type", "reply");
    reply.add(refused("Lumoml", new Refusal(Kind.RequestInvalid, message)));
    return MarkupWriter.write(reply, Vocabulary.REQUEST_NAMESPACE);
  }

  private void answer(Request request, MarkupElement reply) {
    Request.TemplateWanted template = request.template();
    if (template != null && template.map() != null) reply.add(new Maps(stores).info(template.map()));
    if (request.styleSheet() != null) reply.add(styleSheet(request.styleSheet()));
    if (template != null) reply.add(chart(template));
  }

  private MarkupElement chart(Request.TemplateWanted wanted) {
    try {
      Template template = template(wanted);
      Map<String, List<Filling>> filled = Assignment.of(template, wanted.mappings());
      if (template.needsMap() && wanted.map() == null) {
        throw new Refusal(Kind.MapMissing, "the template shows a map, and the request names none");
      }
      MarkupElement chart = new MarkupElement("Lumoml").set("success", "true");
      chart.add(ChartMaker.make(template, filled, wanted));
      return chart;
    } catch (Refusal refusal) {
      return refused("Lumoml", refusal);
    }
  }

  private Template template(Request.TemplateWanted wanted) throws Refusal {
    if (wanted.contents() != null) return TemplateReader.read("the template in the request", wanted.contents());
    if (wanted.location() == Location.FILE) {
      throw new Refusal(Kind.TemplateMissing, "the request has no template in it; its file could not be read");
    }
    Store store = stores.of("template", wanted.location(), wanted.folder());
    Path file = store.find(wanted.name(), TEMPLATE_ENDING);
    if (file == null) {
      throw new Refusal(Kind.TemplateNotFound, store.absent("template", wanted.name(), TEMPLATE_ENDING));
    }
    String origin = "the template " + Wording.quoted(wanted.name());
    return TemplateReader.read(origin, parsed(origin, store.read(file, Kind.TemplateNotWellFormed)));
  }

  private static Node parsed(String origin, byte[] text) throws Refusal {
    try {
      return TreeReader.read(text, "template");
    } catch (ConversionException malformed) {
      throw new Refusal(Kind.TemplateNotWellFormed, origin + ", " + malformed.getMessage());
    }
  }

  private MarkupElement styleSheet(Request.SheetWanted wanted) {
    try {
      Store store = stores.of("style-sheets", wanted.location(), wanted.folder());
      Path file = store.find(wanted.name(), SHEET_ENDING);
      if (file == null) {
        throw new Refusal(Kind.StyleSheetNotFound, store.absent("style sheet", wanted.name(), SHEET_ENDING));
      }
      byte[] sheet = store.read(file, Kind.StyleSheetInvalid);
      StyleSheets.check(sheet);
      return new MarkupElement("styleSheet").set("success", "true").setText(text(sheet));
    } catch (Refusal refusal) {
      return refused("styleSheet", refusal);
    } catch (ConversionException invalid) {
      return refused("styleSheet", new Refusal(Kind.StyleSheetInvalid, invalid.getMessage()));
    }
  }

  /** As characters, so without a declaration of its encoding. */
  private static String text(byte[] sheet) throws ConversionException {
    StringWriter text = new StringWriter();
    try {
      Transformer copier = SafeXml.newTransformerFactory().newTransformer();
      copier.setOutputProperty(OutputKeys.OMIT_XML_DECLARATION, "yes");
      copier.transform(new SAXSource(SafeXml.newReader(), SafeXml.sourceOf(sheet)), new StreamResult(text));
      return text.toString();
    } catch (TransformerException failure) {
      throw new ConversionException("the style sheet cannot be copied: " + failure.getMessage(), failure);
    }
  }

  private static MarkupElement refused(String element, Refusal refusal) {
    return new MarkupElement(element).set("success", "false").set("errorCode", refusal.code());
  }
}
