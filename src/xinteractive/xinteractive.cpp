// Interactive pages.

#include "xinteractive.h"

#include "xinteractive_data.h"

#include "support/content_message.h"
#include "support/description.h"

#include <array>
#include <cstdint>
#include <cstring>

xInteractive::xInteractive() : mInteractive(std::make_unique<xInteractiveData>()) {
  setEditor(EditorInteractive);
}
xInteractive::~xInteractive() = default;

void xInteractive::setInteractiveJSON(std::string const& json) { mInteractive->mInteractiveJSON = json; }
void xInteractive::setProcedureName(std::string const& name) { mInteractive->mProcedureName = name; }
void xInteractive::setJSONPath(std::string const& path) { mInteractive->mJSONPath = path; }
void xInteractive::setOptions(std::string const& options) { mInteractive->mOptions = options; }

bool xInteractive::addGeoJSON(std::string const& fileName) {
  return mInteractive->mGeoJSON.addFile(fileName);
}

bool xInteractive::addGeoJSON(std::string const& name, std::string const& content) {
  return mInteractive->mGeoJSON.add(name, content);
}

bool xInteractive::sendInteractive() const {
  xInteractiveData& data = *mInteractive;
  data.mDescription = GetDescription();
  if (data.mDescription.empty()) data.mDescription = kestrel::missingDescription();
  if (!data.SendDescription()) return false;
  kestrel::SideContents contents(data.sender());
  contents.sendCompressed(data.mInteractiveJSON, CXT_INTERACTIVE_JSON);
  contents.sendPlain(data.mProcedureName, CXT_PROCEDURE_NAME);
  contents.sendPlain(data.mJSONPath, CXT_JSON_PATH);
  contents.sendPlain(data.mOptions, CXT_OPTIONS);
  contents.sendAttachments(data.mGeoJSON);
  // The one chart content message of the send: relied upon.
  SendDone();
  return contents.result();
}

// --- Interactive content messages

bool xInteractive::xInteractiveData::SendInteractiveContent(char const* data, unsigned long size,
                                                            ChartXMLContentType type) const {
  std::array<std::uint32_t, 2> const words = {1, type};
  std::array<unsigned char, sizeof words> head;
  std::memcpy(head.data(), words.data(), head.size());
  return kestrel::putContent(kestrel::interactiveContentMessage, head, data, size);
}

bool xInteractive::xInteractiveData::SendDescription() const {
  return kestrel::sendDescription(mDescription, sender());
}

kestrel::SideContents::Send xInteractive::xInteractiveData::sender() const {
  return [this](std::string const& content, ChartXMLContentType type) {
    return SendInteractiveContent(content.data(), content.size(), type);
  };
}
