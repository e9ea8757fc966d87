package kestrel.adapter;

import java.util.List;
import kestrel.adapter.Refusal.Kind;
import kestrel.converter.ConversionException;
import kestrel.pdl.Wording;

/** What a host asks for: a chart from a template, a style sheet, or both. What it does not ask for is null. */
record Request(TemplateWanted template, SheetWanted styleSheet) {
  /** Where a named file lives. */
  enum Location { LOCAL, REPOSITORY, FILE }

  /** `contents` is the template itself, or null. `map` is null where the request has none. */
  record TemplateWanted(String name, String locale, Location location, String folder, Node contents, MapWanted map,
      List<Node> mappings) {}

  record MapWanted(FileWanted data, FileWanted reference, String key, boolean showAllFeatures) {}

  /** `folder` is one of the repository. */
  record FileWanted(String name, Location location, String folder) {}

  record SheetWanted(String name, Location location, String folder) {}

  private static final String ROOT = "lumoTemplate";
  private static final String REPOSITORY_FOLDER = "repositoryFolderSpec";

  static Request read(byte[] text) throws Refusal {
    try {
      return of(TreeReader.read(text, "request"));
    } catch (ConversionException malformed) {
      throw new Refusal(Kind.RequestInvalid, malformed.getMessage());
    }
  }

  private static Request of(Node root) throws Refusal {
    if (!root.is(Vocabulary.Space.REQUEST, ROOT)) {
      throw new Refusal(
          Kind.RequestInvalid, "the root is no " + ROOT + " in the namespace " + Vocabulary.REQUEST_NAMESPACE);
    }
    if (!root.get("type").equals("request")) {
      throw new Refusal(
          Kind.RequestInvalid, "the root's type is " + Wording.quoted(root.get("type")) + ", not \"request\"");
    }
    RequestRules.check(root);
    Node template = root.child(Vocabulary.Space.REQUEST, "templateSpecification");
    Node sheet = root.child(Vocabulary.Space.REQUEST, "styleSheetSpecification");
    return new Request(template == null ? null : template(template), sheet == null ? null : sheet(sheet));
  }

  private static TemplateWanted template(Node wanted) {
    Node contents = wanted.child(Vocabulary.Space.REQUEST, "templateContents");
    Node map = wanted.child(Vocabulary.Space.REQUEST, "map");
    return new TemplateWanted(wanted.get("templateName"), wanted.get("locale"), location(wanted, "location"),
        wanted.get(REPOSITORY_FOLDER), contents == null ? null : contents.children.get(0),
        map == null ? null : map(map),
        wanted.children.stream().filter(child -> child.is(Vocabulary.Space.REQUEST, "mapping")).toList());
  }

  private static MapWanted map(Node map) {
    return new MapWanted(mapFile(map, "dataFile", "dataMapLocation", "dataMapRepositoryFolderSpec"),
        mapFile(map, "referenceMap", "referenceMapLocation", "refMapRepositoryFolderSpec"), map.get("mapKey"),
        map.get("showAllFeatures").equals("true"));
  }

  private static FileWanted mapFile(Node map, String name, String location, String folder) {
    return map.get(name).isEmpty() ? null : new FileWanted(map.get(name), location(map, location), map.get(folder));
  }

  private static SheetWanted sheet(Node sheet) {
    return new SheetWanted(sheet.get("styleSheetName"), location(sheet, "location"), sheet.get(REPOSITORY_FOLDER));
  }

  private static Location location(Node node, String attribute) {
    return switch (node.get(attribute)) {
      case "local" -> Location.LOCAL;
      case "KOS" -> Location.REPOSITORY;
      default -> Location.FILE;
    };
  }

  static Refusal at(Kind kind, Node node, String message) {
    return new Refusal(kind, "the request, " + ConversionException.where(node.line, node.column) + message);
  }
}
