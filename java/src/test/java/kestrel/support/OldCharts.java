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

/** Charts in LumoML 1.4 and what becomes of them. */
public final class OldCharts {
  private static final String OLD = ".old.xml";

  private OldCharts() {}

  public static Path folder() {
    return Schemas.sourceDirectory().resolve("tests/golden/lumoml14");
  }

  /** The names of the charts in the folder. */
  public static List<String> names() {
    try (Stream<Path> files = Files.list(folder())) {
      return files.map(file -> file.getFileName().toString())
          .filter(name -> name.endsWith(OLD))
          .map(name -> name.substring(0, name.length() - OLD.length()))
          .sorted()
          .toList();
    } catch (IOException failure) {
      throw new UncheckedIOException(failure);
    }
  }

  public static byte[] old(String name) {
    return Schemas.read(folder().resolve(name + OLD));
  }

  public static byte[] bytes(String text) {
    return text.getBytes(StandardCharsets.UTF_8);
  }

  public static String text(byte[] text) {
    return new String(text, StandardCharsets.UTF_8);
  }

  /** The chart with these elements, upgraded. It is valid. */
  public static String upgraded(String elements) throws ConversionException, SAXException {
    byte[] upgraded = Converter.upgrade(bytes("<graph>" + elements + "</graph>"));
    Schemas.validate("lumoml.xsd", upgraded);
    return text(upgraded);
  }

  public static String report(String elements) throws ConversionException {
    return text(Converter.upgradeWithReport(bytes("<graph>" + elements + "</graph>"))[1]);
  }

  /** The message with which a chart is refused. */
  public static String refusal(byte[] chart) {
    return assertThrows(ConversionException.class, () -> Converter.upgrade(chart)).getMessage();
  }

  /** The message with which a chart of these elements is refused; they stand on line 2. */
  public static String refusal(String elements) {
    return refusal(bytes("<graph>\n" + elements + "</graph>"));
  }
}
