package kestrel.converter;

import static kestrel.support.OldCharts.bytes;
import static kestrel.support.OldCharts.refusal;
import static kestrel.support.OldCharts.text;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.sun.net.httpserver.HttpServer;
import java.io.IOException;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.nio.charset.Charset;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.concurrent.atomic.AtomicInteger;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;

/** Charts from anywhere: nothing outside their text is loaded, and what is no chart is refused. */
class ForeignTextTest {
  private static final String CHART = "<graph><heading kind='title' text='\u00e4\uD83D\uDE00'/></graph>";

  @TempDir private Path folder;
  private HttpServer server;
  private final AtomicInteger asked = new AtomicInteger();

  @BeforeEach
  void listen() throws IOException {
    server = HttpServer.create(new InetSocketAddress(InetAddress.getLoopbackAddress(), 0), 0);
    server.createContext("/", exchange -> {
      asked.incrementAndGet();
      exchange.sendResponseHeaders(200, -1);
      exchange.close();
    });
    server.start();
  }

  @AfterEach
  void stop() {
    server.stop(0);
  }

  private String address() {
    return "http://" + server.getAddress().getHostString() + ":" + server.getAddress().getPort() + "/x";
  }

  @ParameterizedTest
  @ValueSource(
      strings = {"<!DOCTYPE graph><graph/>", "<!DOCTYPE graph SYSTEM 'ADDRESS'><graph/>",
          "<!DOCTYPE graph [<!ENTITY e SYSTEM 'ADDRESS'>]><graph name='x'>&e;</graph>",
          "<!DOCTYPE graph [<!ENTITY % p SYSTEM 'ADDRESS'> %p;]><graph/>",
          "<!DOCTYPE graph [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;&a;&a;&a;&a;&a;'>]><graph name='&b;'/>"})
  void
  aDocumentTypeIsRefusedAndNothingIsFetched(String chart) {
    String message = refusal(bytes(chart.replace("ADDRESS", address())));
    assertTrue(message.matches("line 1, column \\d+: a document type declaration is not allowed"), message);
    assertEquals(0, asked.get());
  }

  @Test
  void aDocumentTypeThatNamesAFileIsRefused() throws IOException {
    Path secret = Files.writeString(folder.resolve("secret"), "read-from-a-file");
    String message = refusal(bytes("<!DOCTYPE graph [<!ENTITY e SYSTEM '" + secret.toUri()
        + "'>]><graph><heading kind='title' text='a'/>&e;</graph>"));
    assertFalse(message.contains("read-from-a-file"), message);
  }

  @Test
  void aSchemaLocationIsOnlyReported() throws ConversionException {
    byte[][] upgraded =
        Converter.upgradeWithReport(bytes("<graph xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
            + "xsi:noNamespaceSchemaLocation='" + address() + "'/>"));
    assertEquals(0, asked.get());
    assertTrue(
        text(upgraded[1]).contains("attribute \"xsi:noNamespaceSchemaLocation\" of \"graph\" is not carried over"));
  }

  @Test
  void anInstructionToIncludeIsOnlyReported() throws ConversionException {
    byte[][] upgraded = Converter.upgradeWithReport(
        bytes("<graph><i:include href='" + address() + "' xmlns:i='http://www.w3.org/2001/XInclude'/></graph>"));
    assertEquals(0, asked.get());
    assertEquals(
        "line 1, column 8: element \"include\" is not carried over: it is not part of LumoML 1.4\n", text(upgraded[1]));
  }

  @ParameterizedTest
  @ValueSource(strings = {"UTF-8", "UTF-16", "UTF-16LE", "UTF-16BE"})
  void aChartMayComeInUnicode(String name) throws ConversionException {
    boolean marked = name.endsWith("E");
    byte[] chart = ((marked ? "\uFEFF" : "") + CHART).getBytes(Charset.forName(name));
    assertTrue(text(Converter.upgrade(chart)).contains("<text>\u00e4\uD83D\uDE00</text>"));
  }

  @Test
  void aMarkInFrontOfUtf8IsNoText() throws ConversionException {
    assertTrue(text(Converter.upgrade(bytes("\uFEFF" + CHART))).contains("<text>\u00e4\uD83D\uDE00</text>"));
  }

  @Test
  void theDeclaredEncodingHolds() throws ConversionException {
    byte[] chart =
        "<?xml version='1.0' encoding='windows-1252'?><graph><heading kind='title' text='\u20ac'/></graph>".getBytes(
            Charset.forName("windows-1252"));
    assertTrue(text(Converter.upgrade(chart)).contains("<text>\u20ac</text>"));
  }

  @Test
  void aWrongDeclaredEncodingIsRefusedWithItsPlace() {
    byte[] chart =
        "<?xml version='1.0' encoding='UTF-8'?>\n<graph name='\u00e4'/>".getBytes(StandardCharsets.ISO_8859_1);
    String message = refusal(chart);
    assertTrue(message.matches("line 2, column \\d+: the chart is not in the encoding that it declares .*"), message);
  }

  @Test
  void anUnknownEncodingIsRefusedWithAWayOut() {
    String message = refusal(bytes("<?xml version='1.0' encoding='klingon'?><graph/>"));
    assertTrue(message.matches("line 1, column \\d+: .*klingon.*UTF-8"), message);
  }

  @ParameterizedTest
  @ValueSource(strings = {"<graph>", "<graph/><graph/>", "graph", "<graph name='a' name='b'/>", "<graph name=a/>",
                   "<a:graph/>", "<graph>&nothing;</graph>", "<graph>\u0000</graph>", "<graph name='&#0;'/>",
                   "\n<?xml version='1.0'?><graph/>"})
  void
  whatIsNoXmlIsRefusedWithItsPlace(String chart) {
    String message = refusal(bytes(chart));
    assertTrue(message.matches("(?s)line \\d, column \\d+: .+"), message);
  }

  @Test
  void anEmptyTextIsRefused() {
    assertEquals("the chart is empty", refusal(new byte[0]));
  }

  @Test
  void controlCharactersThatXml11AllowsAreLeftOut() throws ConversionException {
    byte[] chart = bytes("<?xml version='1.1'?><graph><heading kind='title' text='a&#1;b'/></graph>");
    assertTrue(text(Converter.upgrade(chart)).contains("<text>ab</text>"));
  }

  @Test
  void aChartMayHaveANamespaceAndAPrefix() throws ConversionException {
    byte[] chart =
        bytes("<l:graph xmlns:l='urn:l'><l:heading kind='title' text='a'/><heading kind='note' text='b'/></l:graph>");
    byte[][] upgraded = Converter.upgradeWithReport(chart);
    assertTrue(text(upgraded[0]).contains("<text>a</text>"));
    assertEquals("line 1, column 60: element \"heading\" is not carried over: it is not part of LumoML 1.4\n",
        text(upgraded[1]));
  }
}
