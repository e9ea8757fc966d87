package kestrel.stylesheet;

import java.io.ByteArrayOutputStream;
import java.math.BigDecimal;
import java.nio.charset.StandardCharsets;
import java.security.MessageDigest;
import java.security.NoSuchAlgorithmException;
import java.time.Duration;
import java.util.HexFormat;
import java.util.LinkedHashMap;
import java.util.Map;
import java.util.concurrent.ExecutionException;
import java.util.concurrent.TimeoutException;
import java.util.regex.Matcher;
import java.util.regex.Pattern;
import javax.xml.transform.ErrorListener;
import javax.xml.transform.OutputKeys;
import javax.xml.transform.Templates;
import javax.xml.transform.Transformer;
import javax.xml.transform.TransformerConfigurationException;
import javax.xml.transform.TransformerException;
import javax.xml.transform.TransformerFactory;
import javax.xml.transform.sax.SAXSource;
import javax.xml.transform.stream.StreamResult;
import kestrel.converter.ConversionException;
import kestrel.converter.SafeReader;
import kestrel.converter.SafeXml;

/**
 * Applies style sheets (XSLT 1.0) to charts. A sheet is compiled once for as long as it is among the last used ones.
 */
public final class StyleSheets {
  private static final int CACHED = 16;
  static final Duration TIME_LIMIT = Duration.ofSeconds(20);
  private static volatile Duration timeLimit = TIME_LIMIT;

  private static final String DECLARATION = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";

  private static final String NOT_APPLIED = "the style sheet could not be applied: ";
  private static final String REFUSED = "the style sheet is refused: ";

  /** The engine says no more of a place in a sheet than this. */
  private static final Pattern LINE = Pattern.compile("line (\\d{1,9}): (.*)", Pattern.DOTALL);

  private static final Map<String, Templates> compiled = new LinkedHashMap<>(CACHED, 0.75F, true) {
    private static final long serialVersionUID = 1L;

    @Override
    protected boolean removeEldestEntry(Map.Entry<String, Templates> eldest) {
      return size() > CACHED;
    }
  };

  private StyleSheets() {}

  /** The chart as the sheet reworks it, in UTF-8; empty where the sheet gives nothing. */
  public static byte[] apply(byte[] styleSheet, byte[] chart) throws ConversionException {
    SafeXml.checkSize(styleSheet, "style sheet");
    SafeXml.checkSize(chart, "chart");
    Templates sheet = sheetOf(styleSheet);
    FirstFailure failures = new FirstFailure();
    SafeReader reader = SafeXml.newReader();
    try {
      Transformer transformer = sheet.newTransformer();
      transformer.setErrorListener(failures);
      transformer.setURIResolver(SafeXml::refuseAddress);
      boolean declared = declares(transformer);
      // Whether anything came out can be told only without the declaration.
      transformer.setOutputProperty(OutputKeys.OMIT_XML_DECLARATION, "yes");
      transformer.setOutputProperty(OutputKeys.ENCODING, StandardCharsets.UTF_8.name());
      ByteArrayOutputStream result = new ByteArrayOutputStream(chart.length);
      transform(transformer, new SAXSource(reader, SafeXml.sourceOf(chart)), new StreamResult(result));
      return finished(result.toByteArray(), declared);
    } catch (RuntimeException | LinkageError failure) {
      throw fault(failure);
    } catch (TransformerException failure) {
      throw refusal(reader.refusal("chart", NOT_APPLIED), NOT_APPLIED, failures.firstOr(failure));
    }
  }

  /** How long a sheet may take for a chart. */
  static void setTimeLimit(Duration limit) {
    timeLimit = limit;
  }

  private static void transform(Transformer transformer, SAXSource chart, StreamResult result)
      throws ConversionException, TransformerException {
    Duration limit = timeLimit;
    try {
      TimedWork.within(limit, () -> {
        transformer.transform(chart, result);
        return null;
      });
    } catch (ExecutionException failure) {
      Throwable cause = failure.getCause();
      if (cause instanceof Error) throw(Error) cause;
      if (cause instanceof RuntimeException) throw(RuntimeException) cause;
      throw(TransformerException) cause;
    } catch (TimeoutException late) {
      throw new ConversionException(NOT_APPLIED + "it takes longer than "
              + BigDecimal.valueOf(limit.toMillis(), 3).stripTrailingZeros().toPlainString() + " seconds",
          late);
    } catch (InterruptedException interrupted) {
      Thread.currentThread().interrupt();
      throw new ConversionException(NOT_APPLIED + "the thread that waits for it was interrupted", interrupted);
    }
  }

  /** Throws where it is no style sheet. */
  public static void check(byte[] styleSheet) throws ConversionException {
    SafeXml.checkSize(styleSheet, "style sheet");
    sheetOf(styleSheet);
  }

  /** How many compiled sheets are kept at the moment. */
  static int cached() {
    synchronized (compiled) {
      return compiled.size();
    }
  }

  static Templates sheetOf(byte[] styleSheet) throws ConversionException {
    String key = digest(styleSheet);
    synchronized (compiled) {
      Templates known = compiled.get(key);
      if (known != null) return known;
    }
    Templates sheet = compile(styleSheet);
    synchronized (compiled) {
      compiled.put(key, sheet);
    }
    return sheet;
  }

  private static Templates compile(byte[] styleSheet) throws ConversionException {
    TransformerFactory factory = SafeXml.newTransformerFactory();
    factory.setErrorListener(new FirstFailure());
    SafeReader reader = SafeXml.newReader();
    try {
      Templates sheet = factory.newTemplates(new SAXSource(reader, SafeXml.sourceOf(styleSheet)));
      if (sheet == null) throw new TransformerConfigurationException("it cannot be compiled");
      return sheet;
    } catch (RuntimeException | LinkageError failure) {
      throw fault(failure);
    } catch (TransformerConfigurationException failure) {
      // Of several failures in a sheet the last one, which is thrown, says most.
      throw refusal(reader.refusal("style sheet", REFUSED), REFUSED, failure);
    }
  }

  private static boolean declares(Transformer transformer) {
    return "xml".equals(transformer.getOutputProperty(OutputKeys.METHOD))
        && !"yes".equals(transformer.getOutputProperty(OutputKeys.OMIT_XML_DECLARATION));
  }

  private static byte[] finished(byte[] result, boolean declared) {
    String text = new String(result, StandardCharsets.UTF_8);
    if (text.isBlank()) return new byte[0];
    return declared ? (DECLARATION + text).getBytes(StandardCharsets.UTF_8) : result;
  }

  /** The engine compiles sheets to classes, and stumbles over some that are not well made or too large for a class. */
  private static ConversionException fault(Throwable failure) {
    return new ConversionException("the style sheet engine failed: " + failure, failure);
  }

  private static ConversionException refusal(
      ConversionException ofReader, String context, TransformerException failure) {
    if (ofReader != null) return ofReader;
    Matcher placed = LINE.matcher(String.valueOf(failure.getMessage()));
    return placed.matches() ? ConversionException.at(Integer.parseInt(placed.group(1)), 1, context + placed.group(2))
                            : new ConversionException(context + failure.getMessage(), failure);
  }

  private static String digest(byte[] styleSheet) {
    try {
      return HexFormat.of().formatHex(MessageDigest.getInstance("SHA-256").digest(styleSheet));
    } catch (NoSuchAlgorithmException missing) {
      throw new IllegalStateException("Every Java platform has SHA-256.", missing);
    }
  }

  /** The engine tells a listener what went wrong, and throws something that says less. */
  private static final class FirstFailure implements ErrorListener {
    private TransformerException first;

    @Override
    public void warning(TransformerException warning) {}

    @Override
    public void error(TransformerException failure) {
      if (first == null) first = failure;
    }

    @Override
    public void fatalError(TransformerException failure) {
      if (first == null) first = failure;
    }

    TransformerException firstOr(TransformerException thrown) {
      return first != null ? first : thrown;
    }
  }
}
