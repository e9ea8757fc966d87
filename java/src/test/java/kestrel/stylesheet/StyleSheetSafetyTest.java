package kestrel.stylesheet;

import static kestrel.stylesheet.StyleSheetsTest.refusal;
import static kestrel.stylesheet.StyleSheetsTest.sheet;
import static kestrel.support.OldCharts.bytes;
import static kestrel.support.OldCharts.text;
import static org.junit.jupiter.api.Assertions.assertDoesNotThrow;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.ByteArrayInputStream;
import java.io.IOException;
import java.io.StringReader;
import java.io.StringWriter;
import java.nio.file.Files;
import java.nio.file.Path;
import java.util.Arrays;
import javax.xml.transform.TransformerException;
import javax.xml.transform.TransformerFactory;
import javax.xml.transform.stream.StreamResult;
import javax.xml.transform.stream.StreamSource;
import kestrel.converter.ConversionException;
import kestrel.converter.Converter;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;

/** A style sheet reads nothing but the chart, writes nothing but the result, and calls nobody. */
class StyleSheetSafetyTest {
  private static final String SECRET = "wherever-this-is-found-something-was-read";

  @TempDir private Path folder;
  private Path secret;
  private Path victim;

  @BeforeEach
  void writeSecret() throws IOException {
    secret = folder.resolve("secret.xml");
    victim = folder.resolve("victim.xml");
    String sheet = text(sheet("<xsl:template match='/'><a>" + SECRET + "</a></xsl:template>"));
    Files.writeString(secret, sheet);
  }

  /** What the sheet gives, or why it is refused. */
  private String outcome(byte[] sheet) {
    try {
      return text(Converter.applyStyleSheet(sheet, bytes("<v/>")));
    } catch (ConversionException refusal) {
      return refusal.getMessage();
    }
  }

  private String outcome(String content) {
    return outcome(addressed(content));
  }

  /** What the sheet gives where nothing is secured, so that a test can tell that there is something to secure. */
  private String unsecured(String content) throws TransformerException {
    StringWriter result = new StringWriter();
    TransformerFactory.newDefaultInstance()
        .newTransformer(new StreamSource(new ByteArrayInputStream(addressed(content))))
        .transform(new StreamSource(new StringReader("<v/>")), new StreamResult(result));
    return result.toString();
  }

  private byte[] addressed(String content) {
    String address = secret.toUri().toString();
    int half = address.length() / 2;
    return sheet(content.replace("SECRET", address)
                     .replace("FRONT", address.substring(0, half))
                     .replace("BACK", address.substring(half))
                     .replace("VICTIM", victim.toString()));
  }

  @ParameterizedTest
  @ValueSource(
      strings = {"<xsl:include href='SECRET'/>", "<xsl:import href='SECRET'/>",
          "<xsl:template match='/'><a><xsl:copy-of select=\"document('SECRET')\"/></a></xsl:template>",
          "<xsl:template match='/'><a><xsl:copy-of select=\"document(concat('FRONT', 'BACK'))\"/></a></xsl:template>"})
  void
  readsNothingFromOutside(String content) throws TransformerException {
    assertFalse(outcome(content).contains(SECRET), content);
    assertTrue(unsecured(content).contains(SECRET), content);
  }

  @Test
  void readsNoEntityFromOutside() {
    String sheet = text(sheet("<xsl:template match='/'><a>&e;</a></xsl:template>"));
    String outcome = outcome(bytes("<!DOCTYPE x [<!ENTITY e SYSTEM '" + secret.toUri() + "'>]>" + sheet));
    assertTrue(
        outcome.matches("line 1, column \\d+: the style sheet is refused: a document type declaration is not allowed"),
        outcome);
  }

  @ParameterizedTest
  @ValueSource(
      strings =
          {"<xsl:template match='/'><r:write file='VICTIM' xmlns:r='http://xml.apache.org/xalan/redirect'><a/></r:write>"
                  + "</xsl:template>",
              "<xsl:template match='/'><x:output file='VICTIM' xmlns:x='http://xml.apache.org/xalan/xsltc'><a/></x:output>"
                  + "</xsl:template>"})
  void
  writesNoFile(String content) throws TransformerException {
    outcome(content);
    assertFalse(Files.exists(victim));
    unsecured(content);
    assertTrue(Files.exists(victim));
  }

  @ParameterizedTest
  @ValueSource(
      strings = {"<xsl:template match='/' xmlns:j='http://xml.apache.org/xalan/java/java.lang.System'>"
              + "<a><xsl:value-of select=\"j:getProperty('java.version')\"/></a></xsl:template>",
          "<xsl:template match='/' xmlns:j='http://xml.apache.org/xalan/java'>"
              + "<a><xsl:value-of select=\"j:java.lang.System.getProperty('java.version')\"/></a></xsl:template>",
          "<xsl:template match='/' xmlns:j='http://xml.apache.org/xslt/java'>"
              + "<a><xsl:value-of select=\"j:java.lang.System.getProperty('java.version')\"/></a></xsl:template>"})
  void
  callsNoJava(String content) throws TransformerException {
    assertFalse(outcome(content).contains(System.getProperty("java.version")), outcome(content));
    assertTrue(unsecured(content).contains(System.getProperty("java.version")), content);
  }

  @ParameterizedTest
  @ValueSource(strings = {"<?xml-stylesheet type='text/xsl' href='SECRET'?><v/>",
                   "<v xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' xsi:noNamespaceSchemaLocation='SECRET'/>"})
  void
  theChartNamesNothingThatIsRead(String chart) throws ConversionException {
    byte[] copy = sheet("<xsl:template match='/'><xsl:copy-of select='*'/></xsl:template>");
    byte[] result = Converter.applyStyleSheet(copy, bytes(chart.replace("SECRET", secret.toUri().toString())));
    assertFalse(text(result).contains(SECRET));
  }

  @Test
  void aDoctypeInTheChartIsRefused() {
    String message =
        refusal(sheet("<xsl:template match='/'><a/></xsl:template>"), "<!DOCTYPE v [<!ENTITY e 'x'>]><v>&e;</v>");
    assertTrue(message.matches("line 1, column \\d+: the style sheet could not be applied: a document type declaration "
                   + "is not allowed"),
        message);
  }

  @Test
  void aSheetThatCallsItselfForEverIsRefused() {
    String message = refusal(sheet("<xsl:template match='/' name='again'><a><xsl:call-template name='again'/></a>"
                                 + "</xsl:template>"),
        "<v/>");
    assertTrue(message.contains("recurses too deeply"), message);
  }

  @Test
  void aChartAsDeepAsAllowedIsReworked() throws ConversionException {
    String chart = "<a>".repeat(1000) + "</a>".repeat(1000);
    byte[] copy = sheet("<xsl:template match='*'><b><xsl:apply-templates/></b></xsl:template>");
    assertTrue(text(Converter.applyStyleSheet(copy, bytes(chart))).contains("<b>".repeat(999) + "<b/>"));
  }

  @Test
  void aChartThatIsDeeperIsRefused() {
    String message = refusal(sheet("<xsl:template match='/'/>"), "<a>".repeat(1001) + "</a>".repeat(1001));
    assertTrue(message.contains("elements are nested more than 1000 levels deep"), message);
  }

  @Test
  void aSheetAsDeepAsAllowedIsNoFault() {
    outcome(sheet("<xsl:template match='/'>"
        + "<a>".repeat(998) + "</a>".repeat(998) + "</xsl:template>"));
    outcome(sheet("<xsl:template match='/'>"
        + "<xsl:if test='1'>".repeat(998) + "</xsl:if>".repeat(998) + "</xsl:template>"));
  }

  @Test
  void aSheetThatIsDeeperIsRefused() {
    String outcome = outcome(sheet("<xsl:template match='/'>"
        + "<a>".repeat(99_999) + "</a>".repeat(99_999) + "</xsl:template>"));
    assertTrue(outcome.contains("elements are nested more than 1000 levels deep"), outcome);
  }

  @ParameterizedTest
  @ValueSource(ints = {0x01, 0x04, 0x10, 0x80})
  void everyByteOfASheetMayBeFlipped(int mask) {
    byte[] sheet = sheet("<xsl:variable name='v' select=\"//c:a[@b='1']/@c\"/><xsl:template match='c:a|@*'>"
        + "<xsl:for-each select='c:b'><xsl:sort select='@n'/><x y='{@z}'><xsl:value-of select='sum(c:d) + 1'/></x>"
        + "</xsl:for-each></xsl:template>");
    for (int at = 0; at < sheet.length; ++at) {
      sheet[at] ^= (byte) mask;
      survives(sheet);
      sheet[at] ^= (byte) mask;
    }
  }

  @Test
  void aSheetMayEndAnywhere() {
    byte[] sheet = sheet("<xsl:template match='/'><a><xsl:value-of select='@b'/></a></xsl:template>");
    for (int length = 0; length < sheet.length; ++length) survives(Arrays.copyOf(sheet, length));
  }

  private void survives(byte[] sheet) {
    assertDoesNotThrow(() -> outcome(sheet));
  }

  @Test
  void aSheetOfTooManyOperationsIsRefused() {
    String outcome = outcome(sheet("<xsl:template match='/'><xsl:value-of select='1"
        + "+1".repeat(20_000) + "'/></xsl:template>"));
    assertTrue(outcome.startsWith("the style sheet is refused: "), outcome);
  }

  @Test
  void aSheetThatWantsTooMuchMemoryIsRefused() {
    String message =
        refusal(sheet("<xsl:template match='/'><xsl:call-template name='x'/></xsl:template>"
                    + "<xsl:template name='x'><xsl:param name='s' select=\"'aaaaaaaaaa'\"/><xsl:call-template name='x'>"
                    + "<xsl:with-param name='s' select='concat($s, $s)'/></xsl:call-template></xsl:template>"),
            "<v/>");
    assertTrue(message.startsWith("the style sheet needs more memory than the Java VM was given ("), message);
  }
}
