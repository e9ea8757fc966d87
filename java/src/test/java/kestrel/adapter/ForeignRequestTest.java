package kestrel.adapter;

import static kestrel.support.TemplateRequests.found;
import static kestrel.support.TemplateRequests.parsed;
import static kestrel.support.TemplateRequests.refusal;
import static kestrel.support.TemplateRequests.reply;
import static kestrel.support.TemplateRequests.request;
import static kestrel.support.TemplateRequests.root;
import static kestrel.support.TemplateRequests.specification;
import static kestrel.support.TemplateRequests.template;
import static kestrel.support.TemplateRequests.text;
import static kestrel.support.TemplateRequests.variable;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTimeout;
import static org.junit.jupiter.api.Assertions.assertTrue;

import com.sun.net.httpserver.HttpServer;
import java.io.IOException;
import java.net.InetAddress;
import java.net.InetSocketAddress;
import java.nio.charset.StandardCharsets;
import java.nio.file.Files;
import java.nio.file.Path;
import java.time.Duration;
import java.util.Arrays;
import java.util.Random;
import java.util.concurrent.atomic.AtomicInteger;
import kestrel.converter.Converter;
import org.junit.jupiter.api.Test;
import org.junit.jupiter.api.io.TempDir;
import org.junit.jupiter.params.ParameterizedTest;
import org.junit.jupiter.params.provider.ValueSource;

/** Requests from anywhere: each gets a reply, and nothing outside its text is loaded. */
class ForeignRequestTest {
  private static final String WHOLE = request(
      template("x scale several='true'; s statistic default='mean'; L label",
          "<graph><line style='k'><x variable='v'/><summaryStatistic method='{s}'/></line></graph>"
              + "<sourceVariable id='v' t:slot='x'/><labelFrame id='f' t:if='L'><label><text>{L}</text></label></labelFrame>"
              + "<extension title1='f'/><style id='k'/>"),
      variable("x", "a", false, "", "<lumoml:format prefix='$'/>"), variable("x", "b", false), text("L", "\u00e4 {"));

  @Test
  void theWholeRequestIsGranted() {
    assertEquals("true", found(reply(WHOLE), "Lumoml").getAttribute("success"));
  }

  @Test
  void whatIsNoRequestIsRefusedInAReply() {
    assertTrue(refusal("").startsWith("RequestInvalid: the request is empty"));
    assertTrue(refusal("nonsense").startsWith("RequestInvalid: line 1, column 1: "));
    assertTrue(refusal("<request/>").startsWith("RequestInvalid: the root is no lumoTemplate in the namespace "));
    assertTrue(refusal(root("").replace("lumoTemplate'", "other'")).startsWith("RequestInvalid: the root is no "));
    assertEquals("RequestInvalid: the root's type is \"reply\", not \"request\"",
        refusal(root("").replace("'request'", "'reply'")));
    assertTrue(refusal(specification("templateName='a' locale='' location='web'", ""))
                   .endsWith("location is \"web\"; it is local, KOS or file"));
    assertTrue(refusal(specification("templateName='a' locale='' location='local'", "<templateContents/>"))
                   .endsWith("templateContents holds one element, the template"));
  }

  @Test
  void aRequestWithADocumentTypeIsRefusedAndNothingIsFetched(@TempDir Path folder) throws IOException {
    AtomicInteger asked = new AtomicInteger();
    HttpServer server = HttpServer.create(new InetSocketAddress(InetAddress.getLoopbackAddress(), 0), 0);
    server.createContext("/", exchange -> {
      asked.incrementAndGet();
      exchange.sendResponseHeaders(200, -1);
      exchange.close();
    });
    server.start();
    String address = "http://" + server.getAddress().getHostString() + ":" + server.getAddress().getPort() + "/x";
    String secret = Files.writeString(folder.resolve("secret"), "read-from-a-file").toUri().toString();
    for (String type : new String[] {"", " SYSTEM '" + address + "'", " [<!ENTITY e SYSTEM '" + secret + "'>]",
             " [<!ENTITY % p SYSTEM '" + address + "'> %p;]", " [<!ENTITY a 'aaaa'><!ENTITY b '&a;&a;&a;&a;'>]"}) {
      String code = refusal("<!DOCTYPE lumoTemplate" + type + ">" + WHOLE.replace("{L}</text>", "{L}&e;</text>"));
      assertTrue(
          code.matches("(?s)RequestInvalid: line 1, column \\d+: a document type declaration is not allowed.*"), code);
      assertFalse(code.contains("read-from-a-file"), code);
    }
    String located = WHOLE.replace("<lumoTemplate ",
        "<lumoTemplate xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance' "
            + "xsi:schemaLocation='http://xml.vexa.example/vexa/viewer/lumoTemplate " + address + "' ");
    assertEquals("true", found(reply(located), "Lumoml").getAttribute("success"));
    server.stop(0);
    assertEquals(0, asked.get());
  }

  @Test
  void aRequestThatIsTooLargeIsRefused() {
    byte[] large = new byte[200 << 20];
    Arrays.fill(large, (byte) ' ');
    assertEquals("RequestInvalid: the request has 209715200 bytes; no more than 134217728 are read",
        refusal(reply(large, "", "")));
  }

  @Test
  void aRequestWithTooManyElementsIsRefused() {
    // With white space between them half an hour, were the text of their parent put together anew at each.
    assertTimeout(Duration.ofSeconds(60),
        ()
            -> assertTrue(
                refusal(root("<a/>          ".repeat(1_000_000))).endsWith("there are more than 1000000 elements")));
  }

  @Test
  void aRequestThatIsTooDeepIsRefused() {
    assertTrue(refusal(root("<a>".repeat(1000) + "</a>".repeat(1000)))
                   .endsWith("elements are nested more than 1000 levels deep"));
    int left = 1000 - 4;
    String deep = template("L label", "<graph id='{L}'>".repeat(left) + "</graph>".repeat(left));
    assertEquals("true", found(reply(request(deep, text("L", "x"))), "Lumoml").getAttribute("success"));
  }

  @ParameterizedTest
  @ValueSource(longs = {1, 2, 3})
  void brokenBytesGetAReply(long seed) {
    Random random = new Random(seed);
    byte[] whole = WHOLE.getBytes(StandardCharsets.UTF_8);
    for (int round = 0; round < 1500; ++round) {
      byte[] broken = whole.clone();
      for (int change = random.nextInt(4); change >= 0; --change) {
        broken[random.nextInt(broken.length)] = (byte) random.nextInt(256);
      }
      parsed(Converter.convertTemplate(broken, "", ""));
    }
  }

  @Test
  void halfARequestGetsAReply() {
    byte[] whole = WHOLE.getBytes(StandardCharsets.UTF_8);
    for (int length = 0; length < whole.length; ++length) {
      refusal(reply(Arrays.copyOf(whole, length), "", ""));
    }
  }

  /** Words of the request change places, so that it stays XML. */
  @ParameterizedTest
  @ValueSource(longs = {1, 2, 3})
  void swappedPartsGetAReply(long seed) {
    Random random = new Random(seed);
    String[] words = WHOLE.split("(?<=[' ><{}/])|(?=[' ><{}/])");
    for (int round = 0; round < 1500; ++round) {
      String[] swapped = words.clone();
      for (int change = random.nextInt(3); change >= 0; --change) {
        swapped[random.nextInt(words.length)] = words[random.nextInt(words.length)];
      }
      parsed(Converter.convertTemplate(String.join("", swapped).getBytes(StandardCharsets.UTF_8), "", ""));
    }
  }

  @Test
  void longTextsOfARequestAreCutInMessages() {
    assertTrue(
        refusal(request(template("L label", "<extension a='{L}'/>"), text("x".repeat(10_000), "a"))).length() < 200);
  }
}
