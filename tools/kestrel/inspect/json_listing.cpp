#include "arrow_stream.h"
#include "content_types.h"
#include "listing.h"
#include "order_rules.h"

#include <nlohmann/json.hpp>

namespace kestrel::tool {

namespace {

using Json = nlohmann::ordered_json;

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

Json tablesJson(Content const& data) {
  Json tables = Json::array();
  for (ArrowTable const& table : readArrowStreams(data.bytes()).tables) {
    tables.push_back({{"source", table.source}, {"rows", table.rows}, {"columns", table.columns}});
  }
  return tables;
}

Json sendJson(Send const& send) {
  Json contents = Json::array();
  for (Content const& content : send.contents) {
    contents.push_back(
        {{"type", content.type()}, {"messages", content.messages.size()}, {"bytes", content.size()}});
  }
  Json result = {{"kind", kindOf(send)}, {"contents", std::move(contents)}};
  if (Content const* const data = send.find(Data)) result["data"] = tablesJson(*data);
  return result;
}

Json faultJson(Fault const& fault) {
  return {{"offset", fault.offset},
          {"message", fault.message ? Json(*fault.message) : Json(nullptr)},
          {"text", fault.text}};
}

template <typename List, typename Convert>
Json listJson(List const& list, Convert convert) {
  Json result = Json::array();
  for (auto const& item : list) result.push_back(convert(item));
  return result;
}

}  // namespace

std::string jsonListing(std::string const& name, Inspection const& inspection,
                        std::vector<std::string> const& written) {
  Json const listing = {{"capture", name},
                        {"good", inspection.faults().empty()},
                        {"messages", listJson(listMessages(inspection), messageJson)},
                        {"sends", listJson(inspection.sends(), sendJson)},
                        {"faults", listJson(inspection.faults(), faultJson)},
                        {"extracted", written}};
  // Names within a capture may be in any code page.
  return listing.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace kestrel::tool
