#include "xdocument.h"

#include "xdocument_data.h"

#include "support/chart_parser.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "host/files.h"
#include "host/log.h"
#include "model/document.h"

#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLUni.hpp>

using kestrel::present;

XDocument::XDocument() : mData(std::make_unique<XDocumentData>(new LumoDocument, true)) { initialize(); }

XDocument::XDocument(LumoDocument& document) : mData(std::make_unique<XDocumentData>(&document, false)) {
  initialize();
}

XDocument::XDocument(std::string const& text) : mData(std::make_unique<XDocumentData>(nullptr, true)) {
  // No initialize() here: the conversion starts the XML library itself, once it has seen that there is a
  // text.
  convertFromLumoML(text);
}

XDocument::XDocument(std::string const& text, USE_UTF8)
    : mData(std::make_unique<XDocumentData>(nullptr, true)) {
  initialize();
  mData->mParser = kestrel::makeChartParser();
  mData->mUseUTF8 = true;
  convertXML(text, ConvertFromPDL, true);
}

XDocument::XDocument(std::string const& text, bool fromPDL, bool reportErrors)
    : mData(std::make_unique<XDocumentData>(nullptr, true)) {
  initialize();
  mData->mParser = kestrel::makeChartParser();
  convertXML(text, fromPDL ? ConvertFromPDL : ConvertFromLumoML14, reportErrors);
}

XDocument::XDocument(std::string const& name, int) : mData(std::make_unique<XDocumentData>(nullptr, true)) {
  initialize();
  std::string const content = fetchTemplateFile(name);
  // Starts the XML library a second time, against one terminate(): the counts are uneven and stay so.
  if (!content.empty()) convertFromLumoML(content);
}

XDocument::~XDocument() {
  mData.reset();
  terminate();
  ChartBase::printDebugInfo("XDocument destructor finished.");
}

void XDocument::initialize() {
  ChartBase::printDebugInfo("Starting Chart Creation");
  try {
    xercesc::XMLPlatformUtils::Initialize(xercesc::XMLUni::fgXercescDefaultLocale, nullptr, nullptr, nullptr);
  } catch (xercesc::XMLException const& failure) {
    ChartErrorHandler handler;
    handler.error(failure);
  }
}

void XDocument::terminate() {
  try {
    xercesc::XMLPlatformUtils::Terminate();
  } catch (xercesc::XMLException const& failure) {
    ChartErrorHandler handler;
    handler.error(failure);
  }
}

bool XDocument::implementationExists() const { return mData->mDocument != nullptr; }

std::string XDocument::AsUTF8() const {
  return implementationExists() ? mData->mDocument->AsUTF8() : std::string();
}

LumoVisualization* XDocument::getVisualization() const {
  return present(mData->mDocument, "document").getVisualization();
}

void XDocument::requireDocument() const {
  // The words belong to another operation; clients know them.
  if (!implementationExists()) kestrel::reportAndThrow("Failed to send chart done message");
}

XGraph* XDocument::getGraph() {
  requireDocument();
  if (mData->mGraph == nullptr) {
    LumoVisualization& visualization = present(getVisualization(), "visualization");
    visualization.setId(ChartBase::_frame_graph_1);
    visualization.setVersion(2.8);
    if (mData->mChartData == nullptr) {
      mData->mMadeData = std::make_unique<VarDataProcessor>();
      mData->mChartData = mData->mMadeData.get();
    }
    mData->mGraph = std::make_unique<XGraph>(visualization, mData->mChartData);
    mData->mGraphData = mData->mChartData;
  }
  return mData->mGraph.get();
}

XGraph* XDocument::getExternalGraph() {
  requireDocument();
  if (mData->mGraph == nullptr) {
    mData->mGraph = std::make_unique<XGraph>(present(getVisualization(), "visualization"));
  }
  return mData->mGraph.get();
}
