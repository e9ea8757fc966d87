package kestrel.support;

import java.io.ByteArrayInputStream;
import java.io.IOException;
import java.io.UncheckedIOException;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Map;
import java.util.concurrent.ConcurrentHashMap;
import javax.xml.XMLConstants;
import javax.xml.transform.stream.StreamSource;
import javax.xml.validation.Schema;
import javax.xml.validation.SchemaFactory;
import org.xml.sax.SAXException;

/** The source tree, and its schemas. */
public final class Schemas {
  private static final Map<String, Schema> SCHEMAS = new ConcurrentHashMap<>();

  private Schemas() {}

  public static Path sourceDirectory() {
    return Path.of(System.getProperty("kestrel.source.dir"));
  }

  public static byte[] read(Path file) {
    try {
      return Files.readAllBytes(file);
    } catch (IOException failure) {
      throw new UncheckedIOException(failure);
    }
  }

  /** Throws where the text is not valid against schema/`name`. */
  public static void validate(String name, byte[] text) throws SAXException {
    try {
      SCHEMAS.computeIfAbsent(name, Schemas::load)
          .newValidator()
          .validate(new StreamSource(new ByteArrayInputStream(text)));
    } catch (IOException failure) {
      throw new UncheckedIOException(failure);
    }
  }

  private static Schema load(String name) {
    try {
      return SchemaFactory.newInstance(XMLConstants.W3C_XML_SCHEMA_NS_URI)
          .newSchema(sourceDirectory().resolve("schema").resolve(name).toFile());
    } catch (SAXException failure) {
      throw new IllegalStateException(failure);
    }
  }
}
