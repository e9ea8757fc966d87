#include "support/side_content.h"

#include "host/channel.h"
#include "host/files.h"

namespace kestrel {

bool GeoJsonList::addFile(std::string const& fileName) {
  std::string content = FetchFile().fetch(fileName, true, true);
  if (content.empty()) return false;
  mPairs.emplace_back(fileName, std::move(content));
  return true;
}

bool GeoJsonList::add(std::string const& name, std::string const& content) {
  if (name.empty() || content.empty()) return false;
  mPairs.emplace_back(name, content);
  return true;
}

void SideContents::sendPlain(std::string const& text, ChartXMLContentType type) {
  if (!text.empty()) mResult = mSend(text, type);
}

void SideContents::sendCompressed(std::string const& text, ChartXMLContentType type) {
  if (!text.empty()) mResult = mSend(compressed(text), type);
}

void SideContents::sendAttachments(GeoJsonList const& attachments) {
  for (auto const& [name, content] : attachments.pairs()) {
    std::string const bytes = compressed(content);
    mSend(name, CXT_GEOJSON_NAME);
    mResult = mSend(bytes, CXT_GEOJSON);
  }
}

std::string compressed(std::string const& content) {
  std::string bytes;
  zlib1213vexa::compressString(content, bytes);
  return bytes;
}

}  // namespace kestrel
