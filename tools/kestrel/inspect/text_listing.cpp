#include "arrow_stream.h"
#include "content_types.h"
#include "data_listing.h"
#include "listing.h"
#include "order_rules.h"
#include "problem.h"

#include <algorithm>
#include <array>

namespace kestrel::tool {

namespace {

struct TableColumn {
  char const* title;
  std::size_t width;
  bool toTheRight;
};

constexpr std::array<TableColumn, 8> tableColumns{{
    {"no", 5, true},
    {"id", 3, true},
    {"type", 4, true},
    {"name", 19, false},
    {"sub", 3, true},
    {"chunk", 6, true},
    {"trailer", 8, false},
    {"total", 10, true},
}};

std::string row(std::array<std::string, tableColumns.size()> const& cells) {
  std::string text;
  for (std::size_t at = 0; at < cells.size(); ++at) {
    TableColumn const& column = tableColumns[at];
    std::string const padding(column.width - std::min(column.width, cells[at].size()), ' ');
    text += at == 0 ? "" : "  ";
    text += column.toTheRight ? padding + cells[at] : cells[at] + padding;
  }
  return text + "\n";
}

std::string headRow() {
  std::array<std::string, tableColumns.size()> titles;
  std::transform(tableColumns.begin(), tableColumns.end(), titles.begin(),
                 [](TableColumn const& column) { return column.title; });
  return row(titles);
}

std::string messageRow(ListedMessage const& listed) {
  WireMessage const& message = *listed.message;
  return row({std::to_string(message.captured.number), std::to_string(message.captured.identifier),
              std::to_string(message.type), listed.typeName,
              message.subtype ? std::to_string(*message.subtype) : std::string("-"),
              std::to_string(message.chunkSize), listed.trailer, std::to_string(listed.total)});
}

/// What a send was, in a line.
std::string sendText(Send const& send) {
  std::string text = kindOf(send) + ": " + counted(send.contents.size(), "content");
  constexpr std::size_t endRecordSize = 8;
  Content const* const done = send.find(Done);
  if (done != nullptr && done->size() == endRecordSize) {
    std::string const record = done->bytes();
    text +=
        ", editable " + std::to_string(word(record)) + ", editor " + std::to_string(word(record.substr(4)));
  }
  return text + "\n";
}

std::string dataText(Send const& send, std::size_t mostCells) {
  std::string text;
  for (Content const& content : send.contents) {
    if (content.type() != Data) continue;
    for (ArrowTable const& table : readArrowStreams(content.bytes(), mostCells).tables)
      text += tableText(table);
  }
  return text;
}

}  // namespace

std::string textListing(std::string const& name, Inspection const& inspection, std::size_t mostCells) {
  std::string text = printable(name) + ": " + counted(inspection.messages().size(), "message") + "\n";
  if (!inspection.messages().empty()) text += headRow();
  for (ListedMessage const& listed : listMessages(inspection)) text += messageRow(listed);
  for (Send const& send : inspection.sends()) {
    text += sendText(send) + dataText(send, mostCells);
  }
  if (inspection.faults().empty()) text += "The capture keeps all rules.\n";
  return text;
}

}  // namespace kestrel::tool
