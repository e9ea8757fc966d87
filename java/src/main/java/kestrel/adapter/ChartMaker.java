package kestrel.adapter;

import java.util.LinkedHashSet;
import java.util.List;
import java.util.Locale;
import java.util.Map;
import java.util.Set;
import java.util.stream.Collectors;
import kestrel.markup.MarkupElement;

/** Makes the chart of a template and of what its slots hold. */
final class ChartMaker {
  private static final String SOURCE = "userSource";
  private static final Set<String> SOURCES =
      Set.of(SOURCE, "databaseSource", "delimitedFileSource", "embeddedSource", "streamingSource");

  private final Template template;
  private final Map<String, List<Filling>> filled;
  private final Node chart;

  private ChartMaker(Template template, Map<String, List<Filling>> filled) {
    this.template = template;
    this.filled = filled;
    chart = template.chart();
  }

  /** The template's own chart becomes the chart, so that the template is used up. */
  static MarkupElement make(Template template, Map<String, List<Filling>> filled, Request.TemplateWanted wanted)
      throws Refusal {
    ChartMaker maker = new ChartMaker(template, filled);
    Pruning.prune(maker.chart, filled);
    for (Slot slot : template.slots().values()) {
      if (slot.kind().takesVariables()) Repetition.repeat(maker.chart, slot, filled.get(slot.name()));
    }
    maker.writeTexts();
    maker.tieSources();
    if (!wanted.locale().isEmpty()) maker.chart.attributes.putIfAbsent("lang", wanted.locale());
    if (wanted.map() != null) maker.noteMap(wanted.map());
    return markup(maker.chart).set("xmlns", MarkupElement.NAMESPACE);
  }

  private void writeTexts() {
    for (Node node : chart.all()) {
      node.attributes.keySet().removeIf(name -> !Vocabulary.isOwn(name));
      node.attributes.replaceAll((name, value) -> Placeholders.replaced(value, this::content));
      node.text = Placeholders.replaced(node.text, this::content);
    }
  }

  private String content(String placeholder) {
    String slot = Placeholders.slotOf(placeholder);
    List<Filling> fillings = filled.get(slot);
    if (Placeholders.inWords(placeholder)) return capitalized(fillings.get(0).value());
    Slot.Kind kind = template.slots().get(slot).kind();
    if (kind == Slot.Kind.STATISTIC) return Vocabulary.STATISTICS.get(fillings.get(0).value());
    if (kind == Slot.Kind.LABEL) return fillings.stream().map(Filling::value).collect(Collectors.joining("\n"));
    return labels(fillings);
  }

  private static String capitalized(String words) {
    return words.substring(0, 1).toUpperCase(Locale.ROOT) + words.substring(1);
  }

  private static String labels(List<Filling> fillings) {
    return fillings.stream()
        .map(filling -> filling.set() != null ? filling.set().label() : filling.label())
        .distinct()
        .collect(Collectors.joining(", "));
  }

  /** Each variable reads a source that is there; a source of the template that nothing reads goes. */
  private void tieSources() {
    List<Node> variables = chart.children.stream().filter(child -> child.name.equals("sourceVariable")).toList();
    Node first = chart.children.stream().filter(child -> SOURCES.contains(child.name)).findFirst().orElse(null);
    String usual = first == null || first.id().isEmpty() ? "source0" : first.id();
    for (Node variable : variables) variable.attributes.putIfAbsent("source", usual);
    Set<String> missing = new LinkedHashSet<>();
    for (Node variable : variables) missing.add(variable.get("source"));
    Set<String> read = Set.copyOf(missing);
    for (Node child : chart.children) {
      if (SOURCES.contains(child.name)) missing.remove(child.id());
    }
    for (String source : missing) {
      makeWay(source);
      addSource(first, source);
    }
    if (variables.isEmpty()) return;
    chart.children.stream()
        .filter(child -> child.name.equals(SOURCE) && !read.contains(child.id()))
        .toList()
        .forEach(Node::remove);
  }

  /** A data set's name is the id of its source; what else in the template has that id gets another. */
  private void makeWay(String source) {
    List<Node> all = chart.all();
    Set<String> ids = all.stream().map(Node::id).collect(Collectors.toSet());
    if (!ids.contains(source)) return;
    String fresh = source + "_";
    while (ids.contains(fresh)) fresh += "_";
    Map<String, String> other = Map.of(source, fresh);
    for (Node node : all) {
      node.attributes.replaceAll((name, value) -> isOtherThanSource(name) ? other.getOrDefault(value, value) : value);
    }
  }

  private static boolean isOtherThanSource(String name) {
    return name.equals("id") || (Vocabulary.isReference(name) && !name.equals("source"));
  }

  private void addSource(Node behind, String id) {
    Node source = Node.inChart(SOURCE, chart).set("id", id);
    if (behind == null) {
      chart.add(source);
    } else {
      behind.addBehind(source);
    }
  }

  /** What the client needs to know beside the map itself. */
  private void noteMap(Request.MapWanted map) {
    Node extension = chart.childOrNew("extension");
    if (!map.key().isEmpty()) extension.set("mapKey", map.key());
    extension.set("showAllFeatures", Boolean.toString(map.showAllFeatures()));
  }

  private static MarkupElement markup(Node node) {
    MarkupElement element = new MarkupElement(node.name);
    node.attributes.forEach(element::set);
    for (Node child : node.children) element.add(markup(child));
    boolean meant = node.children.isEmpty() && (!node.text.isBlank() || node.name.equals("text"));
    return meant ? element.setText(node.text) : element;
  }
}
