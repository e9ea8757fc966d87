#include "arrow_stream.h"
#include "content_types.h"
#include "data_listing.h"
#include "listing.h"
#include "order_rules.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <optional>
#include <utility>

namespace kestrel::tool {

namespace {

using Json = nlohmann::ordered_json;

template <typename List, typename Convert>
Json listJson(List const& list, Convert convert) {
  Json result = Json::array();
  for (auto const& item : list) result.push_back(convert(item));
  return result;
}

Json messageJson(ListedMessage const& listed) {
  WireMessage const& message = *listed.message;
  return {{"number", message.captured.number},
          {"offset", message.captured.offset},
          {"identifier", message.captured.identifier},
          {"type", message.type},
          {"name", listed.typeName},
          {"subtype", message.subtype ? Json(*message.subtype) : Json(nullptr)},
          {"chunk", message.chunkSize},
          {"trailer", listed.trailer},
          {"total", listed.total}};
}

/// JSON has no number for NaN and the infinities, and null is a missing value.
Json cellJson(std::optional<double> cell) {
  if (!cell) return nullptr;
  return std::isfinite(*cell) ? Json(*cell) : Json(cellText(cell));
}

Json columnJson(ArrowColumn const& column, std::size_t mostCells) {
  Json result = {{"name", column.name}, {"type", column.type}, {"missing", column.missing}};
  if (mostCells > 0) result["cells"] = listJson(column.cells, cellJson);
  return result;
}

Json tablesJson(Content const& data, std::size_t mostCells) {
  auto const convertColumn = [&](ArrowColumn const& column) { return columnJson(column, mostCells); };
  return listJson(readArrowStreams(data.bytes(), mostCells).tables, [&](ArrowTable const& table) -> Json {
    return {
        {"source", table.source}, {"rows", table.rows}, {"columns", listJson(table.columns, convertColumn)}};
  });
}

Json sendJson(Send const& send, std::size_t mostCells) {
  Json contents = Json::array();
  for (Content const& content : send.contents) {
    contents.push_back(
        {{"type", content.type()}, {"messages", content.messages.size()}, {"bytes", content.size()}});
  }
  Json result = {{"kind", kindOf(send)}, {"contents", std::move(contents)}};
  if (Content const* const data = send.find(Data)) result["data"] = tablesJson(*data, mostCells);
  return result;
}

Json faultJson(Fault const& fault) {
  return {{"offset", fault.offset},
          {"message", fault.message ? Json(*fault.message) : Json(nullptr)},
          {"text", fault.text}};
}

}  // namespace

std::string jsonListing(std::string const& name, Inspection const& inspection, std::size_t mostCells,
                        std::vector<std::string> const& written) {
  auto const convertSend = [&](Send const& send) { return sendJson(send, mostCells); };
  Json const listing = {{"capture", name},
                        {"good", inspection.faults().empty()},
                        {"messages", listJson(listMessages(inspection), messageJson)},
                        {"sends", listJson(inspection.sends(), convertSend)},
                        {"faults", listJson(inspection.faults(), faultJson)},
                        {"extracted", written}};
  // Names within a capture may be in any code page.
  return listing.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kestrel::tool
