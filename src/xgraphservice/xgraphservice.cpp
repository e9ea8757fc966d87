// What a client needs to make a chart itself.

#include "xgraphservice.h"

#include "xgraphservice_data.h"
#include "xutility.h"

#include "support/content_message.h"
#include "support/failure.h"

#include "model/chartstring.h"
#include "model/printing.h"

#include <xercesc/dom/DOM.hpp>

#include <sstream>

namespace {

/// Tells options of this kind from others.
constexpr ChartXMLContentSubType optionsSubType{4};

}  // namespace

XGraphService::XGraphService() : mService(std::make_unique<Data>()) {}
XGraphService::~XGraphService() = default;

bool XGraphService::createDocument(ChartString const& source) {
  mService->createDocument(source);
  return true;
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the interface is fixed
void XGraphService::addVariable(std::string name, int index) {
  if (mService->mDocument != nullptr) mService->addVariable(name, index);
}

bool XGraphService::setChartOptions(std::string const& options) {
  mService->mChartOptions = options;
  return !options.empty();
}

bool XGraphService::sendChartOptions() const {
  if (!SendDescription()) return false;
  std::string const options = mService->getChartOptions();
  bool success = SendContent(options.data(), options.size(), CXT_CHART_OPTIONS, optionsSubType);
  std::string const text = mService->print();
  if (!text.empty()) {
    // Its result is gone with that of the data, as that of the options is with this one: relied upon.
    SendContent(text.data(), text.size(), CXT_SERVICE_TEMPLATE, kestrel::noSubType);
    success = SendData();
  }
  SendDone();
  return success;
}

// --- The service template

void XGraphService::Data::createDocument(ChartString const& source) {
  auto& xml =
      kestrel::present(xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS"), "XML implementation");
  mDocument.reset(xml.createDocument(nullptr, u"serviceTemplate", nullptr));
  mDocument->setStrictErrorChecking(true);
  mDocument->getDocumentElement()->setAttribute(u"source", source.xc_str());
}

void XGraphService::Data::addVariable(std::string const& name, int index) {
  xercesc::DOMElement& variable = *mDocument->createElement(u"sourceVariable");
  variable.setAttribute(u"name", XUtility::ChartStringFromOLANG(name.c_str()).xc_str());
  // A number below 0 is written as the large one that it is without its sign: relied upon.
  variable.setAttribute(u"index", ChartString(static_cast<unsigned long>(index)).xc_str());
  mDocument->getDocumentElement()->appendChild(&variable);
}

std::string XGraphService::Data::print() const {
  std::ostringstream stream;
  if (mDocument) DOMPrinter().Print(mDocument->getDocumentElement(), stream, true);
  return stream.str();
}
