package kestrel.adapter;

import static kestrel.support.TemplateRequests.chart;
import static kestrel.support.TemplateRequests.found;
import static kestrel.support.TemplateRequests.refusal;
import static kestrel.support.TemplateRequests.reply;
import static kestrel.support.TemplateRequests.root;
import static kestrel.support.TemplateRequests.specification;
import static kestrel.support.TemplateRequests.template;
import static kestrel.support.TemplateRequests.text;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.io.IOException;
import java.io.RandomAccessFile;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import org.junit.jupiter.api.BeforeEach;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.CsvSource;
import org.junit.jupiter.params.provider.ValueSource;
import org.w3c.dom.Element;

/** Templates, maps and style sheets by their names, and that no name leads anywhere else. */
class StoreTest {
  private static final String TEMPLATE = template("L label", "<extension a='{L}'/>");
  private static final String SHEET = "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>"
      + "<xsl:template match='/'><a>\u00e4</a></xsl:template></xsl:stylesheet>";

  @TempDir private Path folder;
  private Path store;
  private Path repository;

  @BeforeEach
  void fill() throws IOException {
    store = Files.createDirectories(folder.resolve("store"));
    repository = Files.createDirectories(folder.resolve("repository"));
    write(store, "template/one.lumotemplate", TEMPLATE);
    write(repository, "team/charts/two.lumotemplate", TEMPLATE);
    write(folder, "secret.lumotemplate", TEMPLATE);
  }

  private static Path write(Path root, String name, String content) throws IOException {
    Path file = root.resolve(name);
    Files.createDirectories(file.getParent());
    return Files.writeString(file, content);
  }

  private Element answer(String request) {
    return reply(request, store.toString(), repository.toString());
  }

  private Element local(String name) {
    return answer(specification("templateName='" + name + "' locale='' location='local'", text("L", "x")));
  }

  private Element shared(String name, String where) {
    return answer(specification(
        "templateName='" + name + "' locale='' location='KOS' repositoryFolderSpec='" + where + "'", text("L", "x")));
  }

  private Element map(String attributes) {
    Element reply = answer(specification("templateName='one' locale='' location='local'",
        "<map " + attributes + " showAllFeatures='false'/>" + text("L", "x")));
    return found(reply, "mapInfo");
  }

  private Element sheet(String attributes) {
    return found(answer(root("<styleSheetSpecification " + attributes + "/>")), "styleSheet");
  }

  @Test
  void aLocalTemplateIsFoundByItsNameWithAndWithoutTheEnding() {
    assertTrue(chart(local("one")).contains("a=\"x\""));
    assertTrue(chart(local("one.lumotemplate")).contains("a=\"x\""));
  }

  @Test
  void aTemplateOfTheRepositoryIsFoundInItsFolder() throws IOException {
    assertTrue(chart(shared("two", "team/charts")).contains("a=\"x\""));
    write(repository, "top.lumotemplate", TEMPLATE);
    String above = specification("templateName='top' locale='' location='KOS'", text("L", "x"));
    assertTrue(chart(answer(above)).contains("a=\"x\""));
  }

  @Test
  void aTemplateThatIsNotThereIsToldWithThoseThatAre() {
    assertEquals(
        "TemplateNotFound: there is no template \"two\" in the local store; it has one", refusal(local("two")));
    assertEquals(
        "TemplateNotFound: there is no template \"one\" in the folder \"team/charts\" of the repository; it has two",
        refusal(shared("one", "team/charts")));
    assertEquals("TemplateNotFound: there is no template \"one\" in the folder \"none\" of the repository",
        refusal(shared("one", "none")));
    String request = specification("templateName='two' locale='' location='KOS'", "");
    assertEquals("TemplateNotFound: there is no template \"two\" in the repository, which this host does not have",
        refusal(reply(request, store.toString(), "")));
  }

  @ParameterizedTest
  @ValueSource(strings = {"../secret", "..", ".", "a/b", "/etc/passwd", "a\\b", ".hidden", "C:x", "a&#10;b", "", " ",
                   "template/one"})
  void
  aNameThatIsNotPlainIsRefused(String name) {
    for (Element reply : new Element[] {local(name), shared(name, "team/charts")}) {
      assertTrue(refusal(reply).startsWith("NameRefused: "), refusal(reply));
      assertTrue(refusal(reply).contains(" is no plain name in the "), refusal(reply));
    }
  }

  @ParameterizedTest
  @ValueSource(strings = {"..", "../store", "team/../..", "/", "/team", "team/", "team//charts", "./team", "a\\b"})
  void aFolderThatIsNotPlainIsRefused(String where) {
    assertTrue(refusal(shared("two", where)).startsWith("NameRefused: "), refusal(shared("two", where)));
  }

  @Test
  void aNameThatNoFileCanHaveIsNotFound() {
    assertTrue(refusal(local("x".repeat(5000))).startsWith("TemplateNotFound: "));
  }

  @Test
  void aLinkOutOfTheStoreIsRefused() throws IOException {
    Path templates = store.resolve("template");
    Files.createSymbolicLink(templates.resolve("out.lumotemplate"), folder.resolve("secret.lumotemplate"));
    Files.createSymbolicLink(repository.resolve("up"), folder);
    Files.createSymbolicLink(templates.resolve("nowhere.lumotemplate"), folder.resolve("nowhere"));
    assertEquals(
        "NameRefused: \"out\" leads out of the local store", refusal(local("out")).replace(".lumotemplate", ""));
    assertTrue(refusal(shared("secret", "up")).startsWith("NameRefused: "), refusal(shared("secret", "up")));
    assertTrue(refusal(local("nowhere")).startsWith("TemplateNotFound: "));
  }

  @Test
  void aLinkWithinTheStoreIsFollowed() throws IOException {
    Files.createSymbolicLink(store.resolve("template/same.lumotemplate"), Path.of("one.lumotemplate"));
    assertTrue(chart(local("same")).contains("a=\"x\""));
  }

  @Test
  void whatIsNoRegularFileIsNotFound() throws Exception {
    Path templates = store.resolve("template");
    Files.createDirectory(templates.resolve("folder.lumotemplate"));
    assertTrue(refusal(local("folder")).startsWith("TemplateNotFound: "));
    Process made = new ProcessBuilder("mkfifo", templates.resolve("pipe.lumotemplate").toString()).start();
    assertEquals(0, made.waitFor());
    assertTrue(refusal(local("pipe")).startsWith("TemplateNotFound: "));
  }

  @Test
  void aTemplateThatIsTooLargeIsNotRead() throws IOException {
    try (var file = new RandomAccessFile(store.resolve("template/big.lumotemplate").toFile(), "rw")) {
      file.setLength(200L << 20);
    }
    assertEquals("TemplateNotWellFormed: \"big.lumotemplate\" in the local store has more than 134217728 bytes",
        refusal(local("big")));
  }

  @Test
  void aTemplateThatIsNoXmlIsToldWithThePlace() throws IOException {
    write(store, "template/bad.lumotemplate", "<visualization>\n<graph>");
    assertTrue(refusal(local("bad")).startsWith("TemplateNotWellFormed: the template \"bad\", line 2, column "));
    write(store, "template/empty.lumotemplate", "");
    assertEquals("TemplateNotWellFormed: the template \"empty\", the template is empty", refusal(local("empty")));
  }

  @ParameterizedTest
  @ValueSource(strings = {"<!DOCTYPE v><v/>", "<!DOCTYPE v [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><v>&e;</v>"})
  void aTemplateWithADocumentTypeIsRefused(String text) throws IOException {
    write(store, "template/typed.lumotemplate", text);
    assertTrue(
        refusal(local("typed")).matches("(?s)TemplateNotWellFormed: .*a document type declaration is not allowed.*"));
  }

  @Test
  void mapsAreFoundByTheirNames() throws IOException {
    Path map = write(store, "maps/my world.map", "m");
    Path reference = write(repository, "geo/roads.map", "r");
    Element info = map("dataFile='my world' dataMapLocation='local' referenceMap='roads.map' "
        + "refMapRepositoryFolderSpec='geo' referenceMapLocation='KOS'");
    assertEquals("", info.getAttribute("errorCode"));
    assertEquals("file:" + map.toRealPath().toString().replace(" ", "%20"), info.getAttribute("dataMapURI"));
    assertEquals("file:" + reference.toRealPath(), info.getAttribute("refMapURI"));
  }

  @Test
  void theFileOfAMapIsForTheReaderToFind() {
    Element info = map("dataFile='C:/maps/a#b|{c}.map' dataMapLocation='file'");
    assertEquals("file:C:/maps/a%23b%7C%7Bc%7D.map", info.getAttribute("dataMapURI"));
    String codes = map("dataFile=' &lt;#{}|\\^~[]`' dataMapLocation='file'").getAttribute("dataMapURI");
    assertEquals("file:%20%3C%23%7B%7D%7C%5C%5E%7E%5B%5D%60", codes);
    String plain = map("dataFile=\"+100%/'&gt;&quot;\u00e9\u4e16\" dataMapLocation='file'").getAttribute("dataMapURI");
    assertEquals("file:+100%/'>\"\u00e9\u4e16", plain);
    assertEquals("", info.getAttribute("refMapURI"));
  }

  @ParameterizedTest
  @CsvSource({"local,world,Map ^1 not found:world", "local,../secret,The name of map ^1 is not allowed:../secret",
      "file,a%20b,The name of map ^1 is not allowed:a%20b", "file,a///b,The name of map ^1 is not allowed:a///b",
      "file,file:a,The name of map ^1 is not allowed:file:a"})
  void
  aMapThatCannotBeHadIsAMessageAndWhatItIsAbout(String location, String name, String code) {
    Element info = map("referenceMap='" + name + "' referenceMapLocation='" + location + "'");
    assertEquals(code, info.getAttribute("errorCode"));
    assertFalse(info.hasAttribute("dataMapURI"));
  }

  @Test
  void aMapInAFolderThatReadersWouldMistakeIsNotHandedOut(@TempDir Path above) throws IOException {
    Path below = Files.createDirectory(above.resolve("my%20store"));
    write(below, "maps/world.map", "m");
    Path plain = Files.createDirectory(above.resolve("100% ours"));
    write(plain, "maps/world.map", "m");
    String request = specification("templateName='one' locale='' location='local'",
        "<map dataFile='world' dataMapLocation='local' showAllFeatures='true'/>");
    assertEquals("The folder of map ^1 has a name that is not allowed:world",
        found(reply(request, below.toString(), ""), "mapInfo").getAttribute("errorCode"));
    assertTrue(found(reply(request, plain.toString(), ""), "mapInfo")
                   .getAttribute("dataMapURI")
                   .endsWith("/100%%20ours/maps/world.map"));
  }

  @Test
  void theChartTellsTheClientHowToReadTheMap() {
    String chart = chart(answer(specification("templateName='one' locale='' location='local'",
        "<map dataFile='a' dataMapLocation='file' mapKey='state' showAllFeatures='true'/>" + text("L", "x"))));
    assertTrue(chart.contains("<extension a=\"x\" mapKey=\"state\" showAllFeatures=\"true\"/>"), chart);
  }

  @Test
  void aTemplateMayNeedAMap() {
    String contents = "<templateContents>" + TEMPLATE.replace("version='1.0'", "version='1.0' map='required'")
        + "</templateContents>";
    String attributes = "templateName='' locale='' location='file'";
    assertEquals("MapMissing: the template shows a map, and the request names none",
        refusal(specification(attributes, contents)));
    assertTrue(
        chart(specification(attributes, contents + "<map dataFile='a' dataMapLocation='file' showAllFeatures='true'/>"))
            .contains("showAllFeatures"));
  }

  @Test
  void aStyleSheetIsHandedBackAsText() throws IOException {
    write(store, "style-sheets/plain.xsl", SHEET);
    Files.write(repository.resolve("latin.xsl"),
        ("<?xml version='1.0' encoding='ISO-8859-1'?>" + SHEET).getBytes(StandardCharsets.ISO_8859_1));
    for (String attributes :
        new String[] {"styleSheetName='plain' location='local'", "styleSheetName='latin.xsl' location='KOS'"}) {
      Element sheet = sheet(attributes);
      assertEquals("true", sheet.getAttribute("success"), sheet.getAttribute("errorCode"));
      assertTrue(sheet.getTextContent().startsWith("<xsl:stylesheet "), sheet.getTextContent());
      assertTrue(sheet.getTextContent().contains("<a>\u00e4</a>"), sheet.getTextContent());
      assertEquals(1, sheet.getChildNodes().getLength());
    }
  }

  @ParameterizedTest
  @CsvSource({"none,StyleSheetNotFound: there is no style sheet \"none\" in the local store; it has bad",
      "../x,NameRefused: \"../x\" is no plain name in the local store", "bad,StyleSheetInvalid: line 1"})
  void
  aStyleSheetThatCannotBeHadIsTold(String name, String start) throws IOException {
    write(store, "style-sheets/bad.xsl", "<xsl:stylesheet");
    Element sheet = sheet("styleSheetName='" + name + "' location='local'");
    assertEquals("false", sheet.getAttribute("success"));
    assertTrue(sheet.getAttribute("errorCode").startsWith(start), sheet.getAttribute("errorCode"));
    assertEquals("", sheet.getTextContent());
  }

  @Test
  void aStyleSheetAloneGetsNoChart() throws IOException {
    write(store, "style-sheets/plain.xsl", SHEET);
    Element reply = answer(root("<styleSheetSpecification styleSheetName='plain' location='local'/>"));
    assertEquals(0, reply.getElementsByTagName("Lumoml").getLength());
    assertEquals(0, answer(root("")).getChildNodes().getLength());
  }
}
