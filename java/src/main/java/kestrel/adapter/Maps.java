package kestrel.adapter;

import java.util.Map;
import kestrel.adapter.Request.FileWanted;
import kestrel.adapter.Request.Location;
import kestrel.markup.MarkupElement;

/** Finds the maps that a request names, and tells where they are. */
final class Maps {
  private static final String ENDING = ".map";
  private static final String NOT_FOUND = "Map ^1 not found";
  private static final String REFUSED = "The name of map ^1 is not allowed";

  /** What readers of the address take for the character. They take no other code for what it means elsewhere. */
  private static final Map<Character, String> CODES =
      Map.ofEntries(Map.entry(' ', "%20"), Map.entry('<', "%3C"), Map.entry('#', "%23"), Map.entry('{', "%7B"),
          Map.entry('}', "%7D"), Map.entry('|', "%7C"), Map.entry('\\', "%5C"), Map.entry('^', "%5E"),
          Map.entry('~', "%7E"), Map.entry('[', "%5B"), Map.entry(']', "%5D"), Map.entry('`', "%60"));

  private final Stores stores;

  Maps(Stores stores) {
    this.stores = stores;
  }

  /** The `mapInfo` of a reply. */
  MarkupElement info(Request.MapWanted wanted) {
    MarkupElement info = new MarkupElement("mapInfo");
    try {
      info.set("dataMapURI", uri(wanted.data())).set("refMapURI", uri(wanted.reference()));
      return info.set("errorCode", "");
    } catch (Missing missing) {
      return new MarkupElement("mapInfo").set("errorCode", missing.getMessage());
    }
  }

  private String uri(FileWanted wanted) throws Missing {
    if (wanted == null) return "";
    // Whoever asks reads a file itself, and need not be on this machine.
    String path = wanted.location() == Location.FILE ? wanted.name() : found(wanted);
    // Slashes that stand together would become fewer, and these would become other characters.
    if (path.contains("%") || path.contains("file:") || path.contains("///") || path.startsWith("+")) {
      throw new Missing(REFUSED, wanted);
    }
    StringBuilder uri = new StringBuilder("file:");
    for (char character : path.toCharArray()) uri.append(CODES.getOrDefault(character, String.valueOf(character)));
    return uri.toString();
  }

  private String found(FileWanted wanted) throws Missing {
    try {
      var file = stores.of("maps", wanted.location(), wanted.folder()).find(wanted.name(), ENDING);
      if (file != null) return file.toString();
    } catch (Refusal refused) {
      throw new Missing(REFUSED, wanted);
    }
    throw new Missing(NOT_FOUND, wanted);
  }

  /** The message is a template of messages, a colon, and what stands in its place. */
  private static final class Missing extends Exception {
    private static final long serialVersionUID = 1L;

    Missing(String message, FileWanted wanted) {
      super(message + ":" + wanted.name());
    }
  }
}
