package kestrel.converter;

/** A text is refused. The message is for the user: what is wrong, where, and what to do about it. */
public final class ConversionException extends Exception {
  private static final long serialVersionUID = 1L;

  public ConversionException(String message) {
    super(message);
  }

  public ConversionException(String message, Throwable cause) {
    super(message, cause);
  }

  /** Lines and columns count from 1. */
  public static ConversionException at(int line, int column, String message) {
    return new ConversionException(where(line, column) + message);
  }

  public static String where(int line, int column) {
    return "line " + line + ", column " + column + ": ";
  }
}
