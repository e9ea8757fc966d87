package kestrel.pdl;

import kestrel.converter.ConversionException;

/** A description is refused. Travels unchecked through the parser, and leaves the package as a ConversionException. */
final class Refusal extends RuntimeException {
  private static final long serialVersionUID = 1L;

  private final transient Place place;

  Refusal(Place place, String message) {
    super(message, null, false, false);
    this.place = place;
  }

  ConversionException toConversionException() {
    return ConversionException.at(place.line(), place.column(), getMessage());
  }
}
