#include "explanation.h"

#include "problem.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

namespace kestrel::tool {

namespace {

using Json = nlohmann::ordered_json;

constexpr std::array kindNames = {"builder", "default looks", "template"};

char const* nameOf(Origin const& origin) { return kindNames[static_cast<std::size_t>(origin.kind)]; }

std::string originText(Origin const& origin) {
  if (origin.kind != Origin::Kind::Template) return nameOf(origin);
  return origin.file + ":" + std::to_string(origin.line) + ":" + std::to_string(origin.column);
}

/// An empty value shows as one.
std::string shown(std::string const& value) { return value.empty() ? "\"\"" : value; }

/// Who gave the value; with `all` first everybody whose value was overwritten, with that.
std::string givenText(std::vector<GivenValue> const& given, bool all) {
  std::string text;
  if (all) {
    for (std::size_t at = 0; at + 1 < given.size(); ++at)
      text += originText(given[at].origin) + " (" + shown(given[at].value) + "), ";
  }
  return text + originText(given.back().origin);
}

std::string headText(ExplainedElement const& element) {
  std::string text = element.path;
  if (!element.isStyle) return text;
  if (element.uses.empty()) return text + ", which nothing uses";
  char const* separator = " of ";
  for (ExplainedElement::Use const& use : element.uses) {
    text += separator + use.path + (use.attribute == "style" ? "" : " (" + use.attribute + ")");
    separator = ", ";
  }
  return text;
}

std::string padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

/// How many values each kind of origin gave.
std::string summaryText(Explanation const& explanation) {
  std::size_t values = 0;
  std::array<std::size_t, kindNames.size()> counts{};
  for (ExplainedElement const& element : explanation.elements) {
    values += element.values.size();
    for (auto const& value : element.values)
      ++counts[static_cast<std::size_t>(value.given.back().origin.kind)];
  }
  std::string text = explanation.chart + ": " + counted(values, "value");
  constexpr std::array givers = {"the builder", "the default looks", "templates"};
  for (std::size_t at = 0; at < givers.size(); ++at)
    text += (at == 0 ? ": " : ", ") + grouped(counts[at]) + " from " + givers[at];
  return printable(text) + "\n";
}

Json givenJson(GivenValue const& given) {
  Json json = {{"origin", nameOf(given.origin)}};
  if (given.origin.kind == Origin::Kind::Template) {
    json["file"] = given.origin.file;
    json["line"] = given.origin.line;
    json["column"] = given.origin.column;
  }
  return json;
}

Json valueJson(Provenance::Explained const& value, bool all) {
  Json json = {{"name", value.name}, {"value", value.value}};
  json.update(givenJson(value.given.back()));
  if (!all) return json;
  Json given = Json::array();
  for (GivenValue const& each : value.given) {
    Json entry = {{"value", each.value}};
    entry.update(givenJson(each));
    given.push_back(std::move(entry));
  }
  json["all"] = std::move(given);
  return json;
}

Json elementJson(ExplainedElement const& element, bool all) {
  Json json = {{"element", element.path}};
  if (element.isStyle) {
    Json uses = Json::array();
    for (ExplainedElement::Use const& use : element.uses)
      uses.push_back({{"element", use.path}, {"attribute", use.attribute}});
    json["uses"] = std::move(uses);
  }
  Json values = Json::array();
  for (auto const& value : element.values) values.push_back(valueJson(value, all));
  json["values"] = std::move(values);
  return json;
}

}  // namespace

std::vector<ExplainedElement> explainElements(LumoVisualization const& chart, Provenance const& provenance) {
  StyleUses const styleUses(chart);
  ElementPaths const paths(chart);
  std::vector<ExplainedElement> elements;
  xercesc::DOMElement const* before = nullptr;
  for (Provenance::Explained& value : provenance.explain(chart)) {
    xercesc::DOMElement const& element = *value.element;
    if (&element != before) {
      elements.push_back({paths.of(element), isStyle(element), {}, {}});
      for (StyleUse const& use : styleUses.of(element))
        elements.back().uses.push_back({paths.of(*use.user), use.attribute});
    }
    before = &element;
    elements.back().values.push_back(std::move(value));
  }
  return elements;
}

std::string explanationText(Explanation const& explanation, bool all) {
  std::size_t nameWidth = 0;
  std::size_t valueWidth = 0;
  for (ExplainedElement const& element : explanation.elements) {
    for (auto const& value : element.values) {
      nameWidth = std::max(nameWidth, value.name.size());
      valueWidth = std::max(valueWidth, value.value.size());
    }
  }
  constexpr std::size_t widestValue = 24;
  valueWidth = std::min(valueWidth, widestValue);
  std::string text = summaryText(explanation);
  for (ExplainedElement const& element : explanation.elements) {
    text += printable(headText(element)) + "\n";
    for (auto const& value : element.values) {
      text += printable("  " + padded(value.name, nameWidth) + "  " + padded(shown(value.value), valueWidth) +
                        "  " + givenText(value.given, all)) +
              "\n";
    }
  }
  return text;
}

std::string explanationJson(Explanation const& explanation, bool all) {
  Json templates = Json::array();
  for (TemplateFile const& file : explanation.templates) templates.push_back(file.path);
  Json elements = Json::array();
  for (ExplainedElement const& element : explanation.elements) elements.push_back(elementJson(element, all));
  Json const json = {
      {"chart", explanation.chart}, {"templates", std::move(templates)}, {"elements", std::move(elements)}};
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kestrel::tool
