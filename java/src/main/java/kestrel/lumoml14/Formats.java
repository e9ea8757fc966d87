package kestrel.lumoml14;

import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/** How numbers are shown: attributes in old charts, a child in new ones. */
final class Formats {
  private Formats() {}

  /** Adds a format to `owner`, or to the format it has, where the element says something about one. */
  static void apply(OldElement element, MarkupElement owner) throws ConversionException {
    MarkupElement format = new MarkupElement("format");
    Integer most = element.count("decimals");
    Integer least = element.count("leastdecimals");
    if (most != null && least != null && least > most) {
      throw element.malformed("leastdecimals", least.toString(), "it has to be at most \"decimals\", " + most);
    }
    format.set("maximumFractionDigits", most == null ? null : most.toString());
    format.set("minimumFractionDigits", least == null ? null : least.toString());
    format.set("useGrouping", element.truth("grouping"));
    format.set("prefix", element.value("prefix"));
    format.set("suffix", element.value("suffix"));
    format.set("pattern", element.value("pattern"));
    format.set("errorCharacter", element.value("errorcharacter"));
    for (String attribute : format.attributeNames()) {
      owner.findOrAdd("format").set(attribute, format.attribute(attribute));
    }
  }
}
