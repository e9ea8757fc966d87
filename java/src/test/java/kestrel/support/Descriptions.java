package kestrel.support;

import static org.junit.jupiter.api.Assertions.assertThrows;

import java.io.IOException;
import java.io.UncheckedIOException;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.List;
import java.util.stream.Stream;
import kestrel.converter.ConversionException;
import kestrel.converter.Converter;
import org.xml.sax.SAXException;

/** Descriptions in PDL and what becomes of them. */
public final class Descriptions {
  private static final String SUFFIX = ".pdl";

  /** What the statements of `markup` can use: two numbers, two categories, a date. */
  private static final String VARIABLES = "variable a numeric variable b numeric { label \"B\" }"
      + " variable c categorical { label \"C\" categories \"p\", \"q\", \"r\" } variable e categorical variable d date ";

  private Descriptions() {}

  public static Path folder() {
    return Schemas.sourceDirectory().resolve("examples/pdl");
  }

  /** The names of the examples. */
  public static List<String> names() {
    try (Stream<Path> files = Files.list(folder())) {
      return files.map(file -> file.getFileName().toString())
          .filter(name -> name.endsWith(SUFFIX))
          .map(name -> name.substring(0, name.length() - SUFFIX.length()))
          .sorted()
          .toList();
    } catch (IOException failure) {
      throw new UncheckedIOException(failure);
    }
  }

  public static String example(String name) {
    return text(Schemas.read(folder().resolve(name + SUFFIX)));
  }

  public static String text(byte[] utf8) {
    return new String(utf8, StandardCharsets.UTF_8);
  }

  /** The chart with these statements behind the usual variables. It is valid. */
  public static String markup(String statements) throws ConversionException, SAXException {
    return translated("chart { " + VARIABLES + statements + " }");
  }

  /** The same, with points for a statement that draws nothing. */
  public static String markupWithPoints(String statements) throws ConversionException, SAXException {
    return markup("point { x a y b } " + statements);
  }

  public static String translated(String description) throws ConversionException, SAXException {
    byte[] markup = Converter.pdlToXml(description);
    Schemas.validate("lumoml.xsd", markup);
    return text(markup);
  }

  /** The message with which a description is refused. */
  public static String refusal(String description) {
    return assertThrows(ConversionException.class, () -> Converter.pdlToXml(description)).getMessage();
  }
}
