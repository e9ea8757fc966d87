// Charts for the rendering engine of the client.

#include "xember.h"

#include "xember_data.h"

#include "support/content_message.h"

#include "host/files.h"

xEmber::xEmber() : mEngine(std::make_unique<xEmberData>()) { setEditor(EditorInteractive); }
xEmber::~xEmber() = default;

bool xEmber::setLumoJSON(std::string const& fileName) {
  mEngine->mLumoJSON = FetchFile().fetch(fileName, true, true);
  return !mEngine->mLumoJSON.empty();
}

void xEmber::setLumoJSONTemplate(std::string const& json) { mEngine->mLumoJSONTemplate = json; }
void xEmber::setOptions(std::string const& options) { mEngine->mOptions = options; }

bool xEmber::addGeoJSON(std::string const& fileName) { return mEngine->mGeoJSON.addFile(fileName); }

bool xEmber::addGeoJSON(std::string const& name, std::string const& content) {
  return mEngine->mGeoJSON.add(name, content);
}

bool xEmber::sendChart() const {
  if (!SendDescription()) return false;
  kestrel::SideContents contents([this](std::string const& content, ChartXMLContentType type) {
    return SendContent(content.data(), content.size(), type, kestrel::noSubType);
  });
  contents.sendCompressed(mEngine->mLumoJSON, CXT_EMBER_JSON);
  contents.sendCompressed(mEngine->mLumoJSONTemplate, CXT_EMBER_TEMPLATE);
  contents.sendPlain(mEngine->mOptions, CXT_OPTIONS);
  contents.sendAttachments(mEngine->mGeoJSON);
  SendDone();
  return contents.result();
}
