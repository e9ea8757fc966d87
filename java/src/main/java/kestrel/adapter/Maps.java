package kestrel.adapter;

import java.util.Map;
import java.util.stream.Collectors;
import java.util.stream.Stream;
import kestrel.adapter.Request.FileWanted;
import kestrel.adapter.Request.Location;
import kestrel.markup.MarkupElement;

/** Finds the maps that a request names, and tells where they are. */
final class Maps {
  private static final String ENDING = ".map";
  private static final String NOT_FOUND = "Map ^1 not found";
  private static final String REFUSED = "The name of map ^1 is not allowed";
  private static final String UNREACHABLE = "The folder of map ^1 has a name that is not allowed";

  /** What readers of the address put in the place of what, in this order; not all is what the code means elsewhere. */
  private static final String[][] READ = {{"///", "//"}, {"%20", " "}, {"%22", "'"}, {"%3C", "<"}, {"%3E", "<"},
      {"%23", "#"}, {"%25", "<"}, {"%7B", "{"}, {"%7D", "}"}, {"%7C", "|"}, {"%5C", "\\"}, {"%5E", "^"}, {"%7E", "~"},
      {"%5B", "["}, {"%5D", "]"}, {"%60", "`"}};

  /** The codes that readers take for what they mean. */
  private static final Map<Character, String> CODES =
      Stream.of(READ)
          .filter(row -> row[0].equals(String.format("%%%02X", (int) row[1].charAt(0))))
          .collect(Collectors.toMap(row -> row[1].charAt(0), row -> row[0]));

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
    String uri = written(path);
    if (read(uri).equals(path)) return uri;
    boolean named = read(written(wanted.name())).equals(wanted.name());
    throw new Missing(named ? UNREACHABLE : REFUSED, wanted);
  }

  private static String written(String path) {
    StringBuilder uri = new StringBuilder("file:");
    for (char character : path.toCharArray()) uri.append(CODES.getOrDefault(character, String.valueOf(character)));
    return uri.toString();
  }

  /** The path that readers make of the address. */
  private static String read(String uri) {
    String path = uri.replace("file:", "");
    for (String[] row : READ) path = path.replace(row[0], row[1]);
    return path;
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
