// The content channel: what goes to the client as typed messages.

#include "xdocument.h"

#include "xdocument_data.h"

#include "support/content_message.h"
#include "support/description.h"
#include "support/side_content.h"

#include "host/chartbase.h"
#include "host/data_store.h"
#include "host/templates.h"
#include "model/chartstring.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

using kestrel::noSubType;

/// The client's size fields are 32 bits wide.
unsigned long announced(std::string const& text) { return static_cast<std::uint32_t>(text.size()); }

}  // namespace

bool XDocument::SendContent(char const* data, unsigned long size, ChartXMLContentType type,
                            ChartXMLContentSubType subType) const {
  std::array<unsigned char, 4> const head = {static_cast<unsigned char>(type),
                                             static_cast<unsigned char>(subType)};
  return kestrel::putContent(kestrel::chartContentMessage, head, data, size);
}

bool XDocument::SendDescription() const {
  if (mData->mDescription.empty()) mData->mDescription = kestrel::missingDescription();
  return kestrel::sendDescription(mData->mDescription,
                                  [this](std::string const& content, ChartXMLContentType type) {
                                    return SendContent(content.data(), content.size(), type, noSubType);
                                  });
}

namespace {

/// The chart text and the data of the store in one text. Nobody frees the stream: relied upon.
void dumpWithData(VarDataProcessor& store, std::string const& compressed, unsigned long number) {
  unsigned int size = 0;
  unsigned char const* const stream = store.GetDataStream(size);
  ChartTransformer transformer(compressed, stream, size);
  ChartBase::printString(transformer.getEntireXML(ChartBase::_utf8), "xml_data_final_", ".xml", number,
                         ChartBase::PrintChart);
}

void dumpChart(VarDataProcessor* store, std::string const& xml, std::string const& compressed) {
  static unsigned long number = 1;
  if (store == nullptr) {
    // Not asked for first: whoever has no store gets both dumps.
    ChartBase::printString(xml, "xml_data_final_", ".xml", number, ChartBase::PrintChart);
    ChartBase::printString(compressed, "final_xml_", ".cmp", number, ChartBase::PrintCompressedChart);
  } else if (ChartBase::willPrintString(ChartBase::PrintChart)) {
    dumpWithData(*store, compressed, number);
  }
  ++number;
}

}  // namespace

bool XDocument::SendXML(std::string const& xml) const {
  std::string const content = kestrel::compressed(xml);
  SendContent(nullptr, announced(xml), CXT_XML_SIZE, noSubType);
  SendContent(nullptr, announced(content), CXT_XML_COMPRESSED_SIZE, noSubType);
  if (std::getenv("DumpChartXMLPath") != nullptr) dumpChart(mData->chartData(), xml, content);
  return SendContent(content.data(), content.size(), CXT_XML, noSubType);
}

bool XDocument::SendData() const {
  VarDataProcessor* const store = mData->chartData();
  if (store == nullptr) return true;
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store->GetDataStream(size));
  SendContent(nullptr, size, CXT_DATA_SIZE, noSubType);
  return SendContent(reinterpret_cast<char const*>(stream.get()), size, CXT_DATA, noSubType);
}

bool XDocument::SendDone() const {
  std::array<std::int32_t, 2> const record = {mData->mEditable, mData->mEditor};
  char bytes[sizeof record];
  std::memcpy(bytes, record.data(), sizeof bytes);
  return SendContent(bytes, sizeof bytes, CXT_DONE, noSubType);
}

bool XDocument::SendCount(unsigned int, ChartXMLContentType) const { return false; }
