package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/** The page: what the root says of it, headings, and the legend. */
final class PageRules {
  private static final String VERSION = "1.4";

  /** The slots of the page that each kind of heading has, in their order. */
  private static final Map<String, List<String>> SLOTS = slots();

  /** Sides and extents by their number in the current markup. */
  private static final String[][] PLACES = {{"left", "0"}, {"top", "2"}, {"width", "4"}, {"height", "5"}};

  private final OldChart old;
  private final NewChart chart;
  private final Report report;

  PageRules(OldChart old, NewChart chart, Report report) {
    this.old = old;
    this.chart = chart;
    this.report = report;
  }

  void root() throws ConversionException {
    OldElement root = old.root();
    String version = root.value("version");
    if (version != null && !version.strip().equals(VERSION)) {
      throw root.malformed("version", version, "only LumoML " + VERSION + " can be upgraded");
    }
    MarkupElement page = chart.visualization();
    for (String same : List.of("name", "description", "creator", "date")) page.set(same, root.value(same));
    page.set("lang", root.value("language"));
    page.set("style", box(root, "background", "frame", "page_s"));
    chart.graph().set("cellStyle", box(root, "plotbackground", "plotframe", "plot_s"));
    place(root, page);
    transforms(root);
  }

  private String box(OldElement root, String background, String frame, String id) throws ConversionException {
    String inside = root.color(background);
    String around = root.color(frame);
    if (inside == null && around == null) return null;
    return chart.addStyle(id).set("color", inside).set("color2", around).attribute("id");
  }

  private void transforms(OldElement root) throws ConversionException {
    MarkupElement coordinates = chart.coordinates();
    if (root.says("transpose")) coordinates.add("transposeTransform");
    if (root.says("polar")) coordinates.add("polarTransform");
    if (root.says("sameunits")) coordinates.add("sameRatioTransform");
    Integer mirror = root.word("mirror", Words.DIMENSIONS);
    if (mirror != null) {
      coordinates.add("reflectionTransform")
          .set("dimension", mirror.toString())
          .set("alternating", root.word("mirrorpanels", Words.REFLECTIONS));
    }
  }

  void headings() throws ConversionException {
    Map<String, Integer> used = new LinkedHashMap<>();
    for (OldElement each : old.all("heading")) {
      each.required("kind");
      List<String> slots = each.word("kind", SLOTS);
      String text = each.required("text");
      if (slots.isEmpty()) {
        frame(each, chart.nextId("note_"), text);
        continue;
      }
      int number = used.merge(each.value("kind").strip(), 1, Integer::sum);
      if (number > slots.size()) {
        report.lost(each, "a chart has at most " + slots.size() + " of its kind");
      } else {
        String slot = slots.get(number - 1);
        chart.extension().set(slot, frame(each, frameId(slot), text).attribute("id"));
      }
    }
  }

  /** The library's own ids: "title1" is frame_title_1, "subtitle" is frame_subtitle_1. */
  private static String frameId(String slot) {
    boolean numbered = Character.isDigit(slot.charAt(slot.length() - 1));
    return "frame_" + (numbered ? slot.replaceAll("(\\d)$", "_$1") : slot + "_1");
  }

  private MarkupElement frame(OldElement each, String id, String text) throws ConversionException {
    MarkupElement frame = chart.visualization().add("labelFrame").set("id", id).set("style", id + "s");
    Looks.ofBox(each, chart.addStyle(id + "s"));
    String label = id + "_label";
    frame.add("label").set("style", label).add("text").setText(text);
    Looks.ofText(each, chart.addStyle(label));
    place(each, frame);
    return frame;
  }

  void legends() throws ConversionException {
    for (OldElement each : old.all("legend")) legend(each);
  }

  private void legend(OldElement each) throws ConversionException {
    String place = each.word("position", Words.PLACES);
    List<MarkupElement> targets = targets(each);
    if ("none".equals(place)) return;
    if (targets.isEmpty()) {
      report.lost(each, "no layer has groups or a name that it could explain");
      return;
    }
    String id = chart.nextId("frame_legend_");
    MarkupElement legend = chart.visualization().add("legend").set("id", id);
    chart.extension().set(id.replace("frame_legend_", "legend"), id);
    legend.set("style", id + "s").set("tickTextStyle", id + "_texts");
    Looks.ofBox(each, chart.addStyle(id + "s"));
    chart.addStyle(id + "_texts")
        .set("color", each.color("color"))
        .set("font_size", each.points("size"))
        .set("font_family", each.value("font"));
    for (MarkupElement target : targets) legend.add("legendTarget").set("target", target.attribute("id"));
    title(each, legend);
    if (place != null && !place.isEmpty()) {
      legend.add("location").set("part", place).set("method", "0").set("value", place.equals("3") ? "100%" : "0%");
    }
    place(each, legend);
  }

  private void title(OldElement each, MarkupElement legend) throws ConversionException {
    String text = each.value("title");
    if (text == null) return;
    String id = legend.attribute("id") + "_label";
    legend.add("label").set("style", id).add("text").setText(text);
    chart.addStyle(id).set("color", each.color("titlecolor")).set("font_size", each.points("titlesize"));
  }

  private List<MarkupElement> targets(OldElement each) throws ConversionException {
    Map<String, String> aesthetics = new LinkedHashMap<>();
    for (String name : List.of("color", "pattern", "shape", "dash", "size", "transparency")) aesthetics.put(name, name);
    List<String> wanted = each.list("explains", aesthetics::get, VariableRules.oneOf(aesthetics));
    if (wanted.isEmpty()) return chart.explained();
    List<MarkupElement> targets = new ArrayList<>();
    for (MarkupElement explained : chart.explained()) {
      if (wanted.contains(explained.name())) targets.add(explained);
    }
    return targets;
  }

  private void place(OldElement each, MarkupElement part) throws ConversionException {
    for (String[] place : PLACES) {
      String value = each.points(place[0]);
      if (value != null) part.add("location").set("part", place[1]).set("method", "0").set("value", value);
    }
  }

  private static Map<String, List<String>> slots() {
    Map<String, List<String>> slots = new LinkedHashMap<>();
    slots.put("title", List.of("title1", "title2"));
    slots.put("subtitle", List.of("subtitle"));
    slots.put("footnote", List.of("footnote1", "footnote2", "footnote3"));
    slots.put("note", List.of());
    return slots;
  }
}
