// The sequence in which a chart goes to the client, and what survives a failure at each step.

#include "xdocument.h"

#include "xdocument_data.h"
#include "xgraph.h"

#include "support/content_message.h"
#include "support/failure.h"

#include "host/chartbase.h"
#include "host/files.h"
#include "host/messages.h"
#include "model/chartstring.h"
#include "model/document.h"

#include <string>

using kestrel::logFailure;
using kestrel::noSubType;
using kestrel::tellUser;

namespace {

constexpr char const* sendError = "Chart XML Send Error";

void report(char const* message, unsigned int line = __builtin_LINE()) {
  logFailure(message, __FILE__, line);
}

/// What every chart that is made here says of its kind.
ChartString chartType() {
  ChartString type;
  type.appendInteger(31000000);
  return type;
}

}  // namespace

bool XDocument::SendChart(bool ignoredFlag, bool alreadyComplete, bool clearDataAfterSend) {
  if (!implementationExists()) {
    tellUser(sendError);
    report("Error in XDocument::SendChart() - no LumoDocument");
    return false;
  }
  bool success = false;
  try {
    LumoVisualization& visualization = kestrel::present(getVisualization(), "visualization");
    if (!mData->mDoNotModify) stamp(visualization);
    if (!alreadyComplete) {
      if (fleshOutData() < 0) return false;
      CompleteChart(ignoredFlag);
    }
    std::string text = AsUTF8();
    mData->applyStyleSheet(text);
    success = sendAll(visualization, text);
    releaseData(clearDataAfterSend);
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    report("Failed to send chart.");
    tellUser(sendError);
    success = false;
  }
  return success;
}

void XDocument::stamp(LumoVisualization& visualization) {
  visualization.setDescription(mData->mDescription.xc_str());
  visualization.setType(chartType().xc_str());
  if (!mData->mComment.empty()) visualization.setComment(mData->mComment.xc_str());
}

bool XDocument::sendAll(LumoVisualization& visualization, std::string const& text) {
  if (!SendDescription()) {
    report("Failed to send chart description");
    return false;
  }
  bool success = false;
  try {
    success = sendContents(visualization, text);
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    report("Failed to send chart XML or data");
    ChartBase::printDebugInfo("Failed to send chart XML or data");
    success = false;
  }
  // The end record goes out after any failure but that of the description, so that the client can close the
  // chart.
  if (!SendDone()) {
    report("Failed to send chart done message");
    success = false;
  }
  return success;
}

bool XDocument::sendContents(LumoVisualization& visualization, std::string const& text) {
  if (!SendXML(text)) {
    report("Failed to send chart XML");
    return false;
  }
  ChartBase::printDebugInfo("Done Sending XML");
  bool success = true;
  if (!visualization.getUserSources().empty()) {
    if (!SendData()) {
      report("Failed to send chart data");
      success = false;
    }
    ChartBase::printDebugInfo("Done Sending Data");
  }
  std::string const maps = mData->getMapInfo();
  if (!maps.empty()) {
    // In the place of the result so far, so that it hides a failure of the data: relied upon.
    success = SendContent(maps.data(), maps.size(), CXT_MAP_INFO, noSubType);
    ChartBase::printDebugInfo("Done Sending Map Info");
  }
  for (std::string const& name : mData->mCSVFiles) sendCsvFile(name, success);
  return success;
}

void XDocument::sendCsvFile(std::string const& name, bool& success) {
  std::string const content = FetchFile().fetch(name, true, true);
  if (content.empty()) {
    tellUser("^1 not a valid file name...", name);
  } else {
    // Each send replaces the result: the last one of the last file decides.
    success = SendContent(name.data(), name.size(), CXT_CSV_NAME, noSubType);
    success = SendContent(content.data(), content.size(), CXT_CSV_CONTENT, noSubType);
  }
  mData->mEditable = EditableDefault;
  mData->mEditor = EditorAttachedFile;
}

void XDocument::releaseData(bool clear) {
  if (clear && mData->chartData() != nullptr && mData->mGraph != nullptr) mData->mGraph->clearData();
  mData->mChartData = nullptr;
}
