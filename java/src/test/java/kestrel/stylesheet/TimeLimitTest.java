package kestrel.stylesheet;

import static kestrel.stylesheet.StyleSheetsTest.refusal;
import static kestrel.stylesheet.StyleSheetsTest.sheet;
import static kestrel.support.OldCharts.bytes;
import static kestrel.support.OldCharts.text;
import static org.junit.jupiter.api.Assertions.assertEquals;
import static org.junit.jupiter.api.Assertions.assertFalse;
import static org.junit.jupiter.api.Assertions.assertTimeoutPreemptively;
import static org.junit.jupiter.api.Assertions.assertTrue;

import java.time.Duration;
import java.util.List;
import kestrel.converter.ConversionException;
import kestrel.converter.Converter;
import org.junit.jupiter.api.AfterEach;
import org.junit.jupiter.api.Test;

/** A style sheet may take only so long for a chart. */
class TimeLimitTest {
  /** Neither deep nor large, and done when the world is long over. */
  private static final byte[] ENDLESS = sheet("<xsl:template match='/'><xsl:call-template name='x'/></xsl:template>"
      + "<xsl:template name='x'><xsl:param name='n' select='100'/><xsl:if test='$n &gt; 0'>"
      + "<xsl:call-template name='x'><xsl:with-param name='n' select='$n - 1'/></xsl:call-template>"
      + "<xsl:call-template name='x'><xsl:with-param name='n' select='$n - 1'/></xsl:call-template>"
      + "</xsl:if></xsl:template>");

  @AfterEach
  void restore() {
    StyleSheets.setTimeLimit(StyleSheets.TIME_LIMIT);
  }

  private static List<Thread> workers() {
    return Thread.getAllStackTraces()
        .keySet()
        .stream()
        .filter(each -> each.getName().equals(TimedWork.THREAD))
        .toList();
  }

  @Test
  void aSheetThatTakesLongerIsRefused() {
    StyleSheets.setTimeLimit(Duration.ofMillis(200));
    assertEquals("the style sheet could not be applied: it takes longer than 0.2 seconds",
        assertTimeoutPreemptively(Duration.ofSeconds(60), () -> refusal(ENDLESS, "<v/>")));
  }

  @Test
  void itsThreadIsStoppedWhereThePlatformCanDoSoAndKeepsNoVmAlive() throws InterruptedException {
    StyleSheets.setTimeLimit(Duration.ofMillis(50));
    assertTimeoutPreemptively(Duration.ofSeconds(60), () -> refusal(ENDLESS, "<v/>"));
    boolean canStop = Runtime.version().feature() < 20;
    for (Thread worker : workers()) {
      assertTrue(worker.isDaemon());
      if (canStop) worker.join(60_000);
      assertEquals(canStop, !worker.isAlive());
    }
  }

  @Test
  void theNextSheetIsAppliedAllTheSame() throws ConversionException {
    StyleSheets.setTimeLimit(Duration.ofMillis(50));
    assertTimeoutPreemptively(Duration.ofSeconds(60), () -> refusal(ENDLESS, "<v/>"));
    StyleSheets.setTimeLimit(StyleSheets.TIME_LIMIT);
    byte[] copy = sheet("<xsl:template match='/'><xsl:copy-of select='*'/></xsl:template>");
    assertTrue(text(Converter.applyStyleSheet(copy, bytes("<v/>"))).endsWith("<v/>"));
  }

  @Test
  void aThreadThatIsInterruptedWaitsNoLonger() throws InterruptedException {
    String[] message = new String[1];
    boolean[] isStillInterrupted = new boolean[1];
    Thread caller = new Thread(() -> {
      message[0] = refusal(ENDLESS, "<v/>");
      isStillInterrupted[0] = Thread.currentThread().isInterrupted();
    });
    caller.start();
    caller.interrupt();
    caller.join(10_000);
    assertFalse(caller.isAlive());
    assertEquals("the style sheet could not be applied: the thread that waits for it was interrupted", message[0]);
    assertTrue(isStillInterrupted[0]);
  }

  @Test
  void theUsualLimitIsTwentySeconds() {
    assertEquals(Duration.ofSeconds(20), StyleSheets.TIME_LIMIT);
  }
}
