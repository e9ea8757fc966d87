#include "template_command.h"

#include "chart/column_names.h"
#include "chart/column_types.h"
#include "chart/csv_table.h"
#include "files.h"
#include "kept_reports.h"
#include "problem.h"
#include "send/send_command.h"
#include "template_slots.h"
#include "xdocument.h"
#include "xlumotemplate.h"

#include "kestrelhost/host.h"
#include "model/chartstring.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <utility>

namespace kestrel::tool {

namespace {

using Assigned = std::pair<std::string, std::string>;

/// SLOT=VALUE. Names of slots have no equals sign.
Assigned assigned(VisualizationTemplate const& of, char const* option, std::string const& text) {
  std::size_t const equals = text.find('=');
  if (equals == std::string::npos || equals == 0) {
    throw Problem(
        std::string(option) + " " + inQuotes(text) + " is not written SLOT=VALUE, such as x=species",
        Exit::BadInput);
  }
  of.slot(text.substr(0, equals));
  return {text.substr(0, equals), text.substr(equals + 1)};
}

/// What goes with the columns of slots: one text for all columns of a slot, or one for each in their order.
class BesideColumns {
 public:
  BesideColumns(VisualizationTemplate const& of, char const* option, std::vector<std::string> const& texts)
      : mOption(option) {
    for (std::string const& text : texts) {
      auto const [slot, value] = assigned(of, option, text);
      if (!of.slot(slot).takesVariables())
        throw Problem(mOption + " goes with slots for columns; " + inQuotes(slot) + " takes a text",
                      Exit::BadInput);
      mTexts[slot].push_back(value);
    }
  }

  /// @param columns how many columns each slot has
  void requireColumns(std::map<std::string, std::size_t> const& columns) const {
    for (auto const& [slot, texts] : mTexts) {
      auto const found = columns.find(slot);
      if (found == columns.end())
        throw Problem(mOption + " is given for " + inQuotes(slot) + ", which no --slot fills",
                      Exit::BadInput);
      if (texts.size() == 1 || texts.size() == found->second) continue;
      throw Problem(mOption + " is given for " + inQuotes(slot) + " " + counted(texts.size(), "time") +
                        ", and it has " + counted(found->second, "column") +
                        "; give one for all, or one for each",
                    Exit::BadInput);
    }
  }

  /// Empty where there is none. Columns count from 0.
  std::string of(std::string const& slot, std::size_t column) const {
    auto const found = mTexts.find(slot);
    if (found == mTexts.end()) return {};
    return found->second.size() == 1 ? found->second.front() : found->second[column];
  }

 private:
  std::string mOption;
  std::map<std::string, std::vector<std::string>> mTexts;
};

constexpr std::pair<char const*, XLumoTemplate::LABEL_TYPE> labelTypes[] = {
    {"Title", XLumoTemplate::LABEL_TITLE},
    {"Subtitle", XLumoTemplate::LABEL_SUBTITLE},
    {"Subsubtitle", XLumoTemplate::LABEL_SUBSUBTITLE},
    {"Footnote", XLumoTemplate::LABEL_FOOTNOTE},
    {"Subfootnote", XLumoTemplate::LABEL_SUBFOOTNOTE},
};

void addText(XLumoTemplate& chart, Assigned const& slot) {
  for (auto const& [name, type] : labelTypes) {
    if (slot.first == name) {
      chart.addLabel(type, slot.second);
      return;
    }
  }
  chart.addStatistic(slot.first, slot.second, nullptr);
}

/// Puts the columns and texts of a request into the slots of its template.
class Slots {
 public:
  Slots(VisualizationRequest const& request, VisualizationTemplate const& of)
      : mRequest(request),
        mTemplate(of),
        mTable(readCsv(request.data, readFile(request.data))),
        mLabels(of, "--slot-label", request.slotLabels),
        mLabelings(of, "--labeling", request.labelings) {}

  void fill(XLumoTemplate& chart) const {
    std::map<std::string, std::size_t> columns;
    for (std::string const& text : mRequest.slots) {
      Assigned const slot = assigned(mTemplate, "--slot", text);
      if (mTemplate.slot(slot.first).takesVariables()) ++columns[slot.first];
    }
    mLabels.requireColumns(columns);
    mLabelings.requireColumns(columns);
    std::map<std::string, std::size_t> filled;
    for (std::string const& text : mRequest.slots) {
      Assigned const slot = assigned(mTemplate, "--slot", text);
      if (mTemplate.slot(slot.first).takesVariables()) {
        addVariable(chart, slot, filled[slot.first]++);
      } else {
        addText(chart, slot);
      }
    }
  }

 private:
  void addVariable(XLumoTemplate& chart, Assigned const& slot, std::size_t at) const {
    auto const& [name, column] = slot;
    std::string const label = mLabels.of(name, at);
    std::string const labeling = mLabelings.of(name, at);
    bool const categorical = !column.empty() && isCategorical(mTemplate.slot(name), column);
    if (!labeling.empty()) requireColumn(mTable, mRequest.data, labeling, "--labeling " + name);
    chart.addVariable(name, column, categorical, labeling, {}, nullptr,
                      label.empty() ? nullptr : label.c_str(), XLumoTemplate::VARIABLE_SINGLE, nullptr,
                      mTemplate.slot(name).kind == "weight", nullptr, false, nullptr, nullptr, nullptr);
  }

  /// Numbers can be categories; texts are nothing else.
  bool isCategorical(TemplateSlot const& slot, std::string const& column) const {
    std::size_t const index = requireColumn(mTable, mRequest.data, column, "the slot " + inQuotes(slot.name));
    return slot.kind == "categorical" || readColumn(mTable, index, false).type == ColumnType::Text;
  }

  VisualizationRequest const& mRequest;
  VisualizationTemplate const& mTemplate;
  CsvTable mTable;
  BesideColumns mLabels;
  BesideColumns mLabelings;
};

XLumoTemplate::LOCATION locationOf(std::string const& name) {
  bool const plain = name.find_first_of("/.") == std::string::npos;
  return plain ? XLumoTemplate::LOCATION_LOCAL : XLumoTemplate::LOCATION_FILE;
}

/// The library goes on without a file that it cannot read: here that is a fault of the command line.
XLumoTemplate::LOCATION checkedLocation(std::string const& name) {
  XLumoTemplate::LOCATION const location = locationOf(name);
  if (location == XLumoTemplate::LOCATION_FILE && readFile(name).empty()) throw badInput(name, "is empty");
  return location;
}

void nameFiles(XLumoTemplate& chart, VisualizationRequest const& request, VisualizationTemplate const& of) {
  ChartString name;
  name.assignUTF8(of.file.empty() ? of.name : of.file);
  chart.setTemplateName(name, of.file.empty() ? XLumoTemplate::LOCATION_LOCAL : XLumoTemplate::LOCATION_FILE);
  if (!request.styleSheet.empty())
    chart.setstyleSheetName(request.styleSheet, checkedLocation(request.styleSheet));
  if (!request.map.empty()) chart.setDataMapName(request.map, checkedLocation(request.map));
  if (!request.referenceMap.empty())
    chart.setRefMapName(request.referenceMap, checkedLocation(request.referenceMap));
  if (!request.mapKey.empty()) chart.setMapKey(request.mapKey);
}

/// The text of the chart. Throws a Problem with what the library says where there is none; where there is
/// one, that is told.
std::string convert(XLumoTemplate& chart, VisualizationTemplate const& of, std::string const& sheetName,
                    std::string& styleSheet) {
  auto const messages = std::make_shared<KeptMessages>();
  auto const log = std::make_shared<KeptLog>();
  host::Host host;
  host.messages = messages;
  host.log = log;
  host::ScopedHost const scope(host);
  std::string text;
  bool const converted = chart.convert(text, styleSheet);
  if (!converted || text.empty())
    throw badInput(of.name, behind("gives no chart: " + joined(messages->all), log->notes));
  if (!sheetName.empty() && styleSheet.empty())
    throw badInput(sheetName,
                   behind(behind("gives no style sheet: " + joined(messages->all), log->errors), log->notes));
  for (std::string const& message : messages->all) tell(behind(message, log->notes));
  return text;
}

std::unique_ptr<XDocument> documentOf(VisualizationRequest const& request, VisualizationTemplate const& of) {
  XLumoTemplate chart;
  nameFiles(chart, request, of);
  Slots(request, of).fill(chart);
  std::string styleSheet;
  auto document = std::make_unique<XDocument>(convert(chart, of, request.styleSheet, styleSheet));
  if (!styleSheet.empty()) document->setStyleSheet(nameInChart(request.styleSheet), styleSheet);
  if (!chart.getDataMapContents().empty())
    document->setLUMOMap(nameInChart(chart.getDataMapFileName()), chart.getDataMapContents());
  if (!chart.getRefMapContents().empty())
    document->setLUMORefMap(nameInChart(chart.getRefMapFileName()), chart.getRefMapContents());
  return document;
}

std::string describe(TemplateSlot const& slot, std::size_t width) {
  std::string line = "  " + slot.name + std::string(width - slot.name.size() + 2, ' ') + slot.kind;
  if (slot.required) line += ", required";
  if (slot.several) line += ", several";
  if (slot.sets) line += ", sets";
  if (!slot.values.empty()) line += " (" + slot.values + ")";
  if (!slot.fallback.empty()) line += ", else " + slot.fallback;
  return line + (slot.meaning.empty() ? "" : ": " + slot.meaning);
}

std::string describe(VisualizationTemplate const& shown) {
  std::size_t width = 0;
  for (TemplateSlot const& slot : shown.slots) width = std::max(width, slot.name.size());
  std::string text =
      printable(shown.name) + (shown.title.empty() ? "" : ": " + printable(shown.title)) + "\n";
  for (TemplateSlot const& slot : shown.slots) text += printable(describe(slot, width)) + "\n";
  return text;
}

void listTemplates(std::string const& name) {
  std::vector<std::string> const names =
      name.empty() ? shippedVisualizationTemplates() : std::vector<std::string>{name};
  std::string text;
  for (std::string const& one : names) text += describe(readVisualizationTemplate(one));
  print(text);
}

}  // namespace

void runTemplate(VisualizationRequest const& request) {
  if (request.list) {
    listTemplates(request.name);
    return;
  }
  if (request.name.empty())
    throw Problem("name a template, or list those that there are: kestrel template --list", Exit::BadInput);
  if (request.data.empty()) throw Problem("give --data FILE, the table of the chart", Exit::BadInput);
  SendRequest send;
  send.data = {request.data};
  send.output = request.output;
  send.send = request.send;
  requireWay(send);
  ChartTemplates const templates(request.templates);
  std::unique_ptr<XDocument> const document = documentOf(request, readVisualizationTemplate(request.name));
  sendChart(*document, send, templates);
}

}  // namespace kestrel::tool
