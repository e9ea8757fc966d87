package kestrel.adapter;

import java.io.IOException;
import java.nio.file.DirectoryStream;
import java.nio.file.Files;
import java.nio.file.InvalidPathException;
import java.nio.file.LinkOption;
import java.nio.file.Path;
import java.util.ArrayList;
import java.util.Collections;
import java.util.List;
import kestrel.adapter.Refusal.Kind;
import kestrel.converter.SafeXml;
import kestrel.pdl.Wording;

/**
 * A folder of files that go by their names. Names come from outside: none of them leads out of the folder, neither by
 * what it says nor by a symbolic link.
 */
final class Store {
  private static final int LISTED = 20;

  private final String what;
  private final Path root;
  private final Path folder;

  /** `what` names the store in messages. An empty root stands for a host without such a store. */
  Store(String what, String root, String folder) throws Refusal {
    this.what = what;
    this.root = root.isEmpty() ? null : path(root);
    Path below = this.root;
    if (below != null && !folder.isEmpty()) {
      for (String part : folder.split("/", -1)) below = below.resolve(plain(part));
    }
    this.folder = below;
  }

  /** The file of the name, or of the name with the ending; null where there is none. */
  Path find(String name, String ending) throws Refusal {
    plain(name);
    if (folder == null) return null;
    Path found = regular(name);
    return found != null || name.endsWith(ending) ? found : regular(name + ending);
  }

  /** The bytes of a file that was found. */
  byte[] read(Path file, Kind kind) throws Refusal {
    try {
      if (Files.size(file) > SafeXml.MAXIMUM_SIZE) {
        throw new Refusal(kind,
            Wording.quoted(file.getFileName().toString()) + " in " + what + " has more than " + SafeXml.MAXIMUM_SIZE
                + " bytes");
      }
      try (var in = Files.newInputStream(file, LinkOption.NOFOLLOW_LINKS)) {
        return in.readNBytes(SafeXml.MAXIMUM_SIZE + 1);
      }
    } catch (IOException unreadable) {
      throw new Refusal(kind, Wording.quoted(file.getFileName().toString()) + " in " + what + " cannot be read");
    }
  }

  /** Says that a file is not there, and what is. */
  String absent(String kind, String name, String ending) {
    String absent = "there is no " + kind + " " + Wording.quoted(name) + " in " + what;
    if (root == null) return absent + ", which this host does not have";
    List<String> names = names(ending);
    return absent + (names.isEmpty() ? "" : "; it has " + String.join(", ", names));
  }

  private List<String> names(String ending) {
    List<String> names = new ArrayList<>();
    try (DirectoryStream<Path> files = Files.newDirectoryStream(folder)) {
      for (Path file : files) {
        String name = file.getFileName().toString();
        if (name.endsWith(ending)) names.add(name.substring(0, name.length() - ending.length()));
      }
    } catch (IOException unreadable) {
      return List.of();
    }
    Collections.sort(names);
    return names.size() > LISTED ? names.subList(0, LISTED) : names;
  }

  private Path regular(String name) throws Refusal {
    Path file = folder.resolve(path(name));
    try {
      if (!Files.exists(file, LinkOption.NOFOLLOW_LINKS)) return null;
      Path real = file.toRealPath();
      if (!real.startsWith(root.toRealPath())) {
        throw new Refusal(Kind.NameRefused, Wording.quoted(name) + " leads out of " + what);
      }
      return Files.isRegularFile(real, LinkOption.NOFOLLOW_LINKS) ? real : null;
    } catch (IOException broken) {
      return null;
    }
  }

  private String plain(String name) throws Refusal {
    boolean plain = !name.isBlank() && !name.startsWith(".") && name.chars().noneMatch(Store::isSteering);
    if (plain) return name;
    throw new Refusal(Kind.NameRefused, Wording.quoted(name) + " is no plain name in " + what);
  }

  private static boolean isSteering(int character) {
    return character == '/' || character == '\\' || character == ':' || Character.isISOControl(character);
  }

  private static Path path(String name) throws Refusal {
    try {
      return Path.of(name);
    } catch (InvalidPathException invalid) {
      throw new Refusal(Kind.NameRefused, Wording.quoted(name) + " is no name of a file");
    }
  }
}
