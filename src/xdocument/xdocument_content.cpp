// The content channel: what goes to the client as typed messages.

#include "xdocument.h"

#include "content_buffer.h"
#include "xdocument_data.h"

#include "support/dictionary.h"

#include "host/channel.h"
#include "host/chartbase.h"
#include "host/data_store.h"
#include "host/templates.h"
#include "model/chartstring.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace {

using kestrel::noSubType;

bool put(unsigned char const* message, std::size_t length) {
  std::int64_t const identifier = kestrel::chart_content::messageIdentifier;
  std::int64_t const zero = 0;
  auto const size = static_cast<std::int64_t>(length);
  return IpcPutC(&identifier, &zero, &size, message, &zero) == 0;
}

/// The client's size fields are 32 bits wide.
unsigned long announced(std::string const& text) { return static_cast<std::uint32_t>(text.size()); }

}  // namespace

bool XDocument::SendContent(char const* data, unsigned long size, ChartXMLContentType type,
                            ChartXMLContentSubType subType) const {
  namespace layout = kestrel::chart_content;
  // Cleared once, as far as the first and longest message goes and nothing is copied there: behind the
  // payload of a last, shorter chunk the trailer repeats what the chunk before left there. Receivers ignore
  // it.
  std::array<unsigned char, layout::bufferSize> buffer;
  unsigned long const longestChunk = std::min<unsigned long>(layout::longestPayload, size);
  std::memset(buffer.data(), 0, layout::payloadOffset);
  if (data == nullptr) std::memset(&buffer[layout::payloadOffset], 0, longestChunk);
  std::memset(&buffer[layout::payloadOffset + longestChunk], 0, layout::trailerSize);
  buffer[layout::typeOffset] = static_cast<unsigned char>(type);
  buffer[layout::subTypeOffset] = static_cast<unsigned char>(subType);
  bool success = true;
  for (unsigned long offset = 0; success && offset < size;) {
    auto const chunk =
        static_cast<std::uint32_t>(std::min<unsigned long>(layout::longestPayload, size - offset));
    std::memcpy(&buffer[layout::chunkSizeOffset], &chunk, sizeof chunk);
    if (data != nullptr) std::memcpy(&buffer[layout::payloadOffset], data + offset, chunk);
    success = put(buffer.data(), layout::payloadOffset + chunk + layout::trailerSize);
    offset += chunk;
  }
  return success;
}

bool XDocument::SendDescription() const {
  if (mData->mDescription.empty()) {
    mData->mDescription = kestrel::ChartDictionary().text("Description not set");
  }
  std::string const text = mData->mDescription.toUTF8();
  bool success = SendContent(text.data(), text.size(), CXT_DESCRIPTION, noSubType);
  if (success) {
    std::string const english = mData->mDescription.toUTF8ForEng();
    success = SendContent(english.data(), english.size(), CXT_DESCRIPTION_ENG, noSubType);
  }
  ChartBase::printDebugInfo(text);
  return success;
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
  std::string compressed;
  zlib1213vexa::compressString(xml, compressed);
  SendContent(nullptr, announced(xml), CXT_XML_SIZE, noSubType);
  SendContent(nullptr, announced(compressed), CXT_XML_COMPRESSED_SIZE, noSubType);
  if (std::getenv("DumpChartXMLPath") != nullptr) dumpChart(mData->chartData(), xml, compressed);
  return SendContent(compressed.data(), compressed.size(), CXT_XML, noSubType);
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
