// What the document adds to a finished chart: the style sheet's work, and the record of the client's maps.

#include "xdocument_data.h"

#include "support/failure.h"

#include "host/chartbase.h"
#include "host/java.h"
#include "host/messages.h"

#include <cstdint>
#include <string>

bool XDocument::XDocumentData::applyStyleSheet(std::string& text) const {
  if (mStyleSheet.empty()) return false;
  try {
    plotDeskConverter& converter =
        kestrel::present(plotDeskConverter::GetInstance(), "style sheet converter");
    ChartBase::printDebugInfo("Before calling applyStyleSheet()");
    std::string const reworked = converter.applyStyleSheet(mStyleSheet, text);
    if (!reworked.empty()) text = reworked;
    ChartBase::printDebugInfo("After calling applyStyleSheet()");
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    kestrel::tellUser("Error occurred while applying a stylesheet ^1.", mStyleSheetName);
    kestrel::logFailure("Error in XDocument::applyStyleSheet() - " + mStyleSheetName, __FILE__, __LINE__);
  }
  return false;
}

namespace {

template <typename Integer>
void appendRaw(std::string& record, Integer value) {
  record.append(reinterpret_cast<char const*>(&value), sizeof value);
}

/// A text behind its length, which is cut to the width of its field.
template <typename Length>
void appendCounted(std::string& record, std::string const& text) {
  appendRaw(record, static_cast<Length>(text.size()));
  record += text;
}

}  // namespace

std::string XDocument::XDocumentData::getMapInfo() const {
  constexpr std::uint16_t recordVersion = 1;
  constexpr std::size_t roomForFields = 100;
  std::string record;
  if (mDataMap.empty() && mRefMap.empty() && mDataMapName.empty() && mRefMapName.empty()) return record;
  record.reserve(mDataMap.size() + mDataMapName.size() + mRefMap.size() + mRefMapName.size() + roomForFields);
  appendRaw(record, recordVersion);
  appendCounted<std::uint32_t>(record, mDataMap);
  appendCounted<std::uint16_t>(record, mDataMapName);
  appendCounted<std::uint32_t>(record, mRefMap);
  appendCounted<std::uint16_t>(record, mRefMapName);
  return record;
}
