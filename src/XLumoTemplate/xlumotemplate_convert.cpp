// The way of a request to the converter, and what becomes of the reply.

#include "xlumotemplate.h"

#include "xdocument.h"
#include "xlumotemplate_data.h"

#include "support/chart_parser.h"
#include "support/failure.h"

#include "host/chartbase.h"
#include "host/files.h"
#include "host/java.h"
#include "host/messages.h"

#include <xercesc/dom/DOM.hpp>

#include <cstdlib>
#include <utility>

using xercesc::DOMDocument;
using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

constexpr char16_t successful[] = u"true";

void tellOfTemplate(BpString const& what) {
  kestrel::tellUser("Failed to convert visualization template... ^1.", what, BpLevelSevere);
}

std::string fetch(std::string const& name) { return FetchFile().fetch(name, true, true); }

void dump(std::string const& content, char const* prefix, unsigned long& number) {
  if (std::getenv("DumpChartXMLPath") == nullptr) return;
  if (!ChartBase::willPrintString(ChartBase::PrintConversion)) return;
  ChartBase::printString(content, prefix, ".xml", number, ChartBase::PrintConversion);
  ++number;
}

/// Has the converter answer.
/// @return false where it fails, which is reported
bool converted(std::string const& request, std::string& reply) {
  try {
    ClientAdapter& adapter = kestrel::present(GetAdapter(), "client adapter");
    ChartBase::printDebugInfo("Before calling ConvertClientLumoTemplate()");
    reply = adapter.ConvertClientLumoTemplate(request);
    ChartBase::printDebugInfo("After calling ConvertClientLumoTemplate()");
    return true;
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    tellOfTemplate(BpString(" ", false));
    return false;
  }
}

/// The first element of that name, wherever it stands; null where there is none.
DOMElement const* firstOf(DOMDocument const& reply, char16_t const* name) {
  return static_cast<DOMElement const*>(reply.getElementsByTagName(name)->item(0));
}

ChartString attribute(DOMElement const& element, char16_t const* name) { return element.getAttribute(name); }

bool isSuccessful(DOMElement const& element) { return attribute(element, u"success").equals(successful); }

std::string fileNameOf(ChartString const& uri) {
  ChartString name(uri);
  XLumoTemplate::Data::replaceSpecialChars(name);
  return name.toUTF8();
}

void tellIfMissing(std::string const& fileName, std::string const& contents) {
  if (!fileName.empty() && contents.empty()) kestrel::tellUser(kestrel::noAccess, fileName);
}

/// The code is a pattern, a colon, and what takes the place in the pattern.
void tellOfMaps(std::string const& code) {
  std::size_t const colon = code.find(':');
  std::string const detail = colon == std::string::npos ? std::string() : code.substr(colon + 1);
  kestrel::tellUser(code.substr(0, colon).c_str(), BpString(detail, false), BpLevelSevere);
}

}  // namespace

bool XLumoTemplate::convert(std::string& lumoML, std::string& styleSheet) {
  static unsigned long filenumber = 1;
  std::string request;
  if (!mData->convertToString(request)) return false;
  dump(request, "lumoTemplate_", filenumber);
  std::string reply;
  if (!converted(request, reply)) return false;
  if (reply.empty()) {
    tellOfTemplate(BpString("Reading the XML file has failed ...", true));
    return false;
  }
  dump(reply, "returnedLumo", filenumber);
  auto const parser = kestrel::makeChartParser();
  DOMDocument const* document = nullptr;
  try {
    std::string errorText;
    document = XDocument::parseDocument(reply, errorText, parser.get());
  } catch (...) {
    // The host's unwinding signal ends here too: relied upon.
    tellOfTemplate(BpString("parseDocument exception", true));
    return false;
  }
  if (document != nullptr) return mData->takeReply(*document, lumoML, styleSheet);
  tellOfTemplate(BpString("returnedDoc exception", true));
  // Unlike an empty reply: relied upon.
  return true;
}

bool XLumoTemplate::Data::takeReply(DOMDocument const& reply, std::string& lumoML, std::string& styleSheet) {
  bool const hasChart = takeChart(reply, lumoML);
  if (!takeMaps(reply)) return false;
  if (mStyleSheetLocation == LOCATION_FILE) {
    styleSheet = fetch(mStyleSheetName);
  } else if (hasChart) {
    takeStyleSheet(reply, styleSheet);
  }
  return true;
}

/// False where the converter says that it has failed, which is reported.
bool XLumoTemplate::Data::takeChart(DOMDocument const& reply, std::string& lumoML) const {
  DOMElement const* const holder = firstOf(reply, u"Lumoml");
  if (holder == nullptr) return true;
  if (!isSuccessful(*holder)) {
    tellOfTemplate(BpString(attribute(*holder, u"errorCode").toUTF8(), false));
    return false;
  }
  DOMNode const* chart = holder->getFirstElementChild();
  if (chart == nullptr) chart = holder->getFirstChild();
  if (chart != nullptr) lumoML = AsUTF8(*chart);
  return true;
}

/// False where the converter has not found the maps, which is reported.
bool XLumoTemplate::Data::takeMaps(DOMDocument const& reply) {
  DOMElement const* const maps = firstOf(reply, u"mapInfo");
  if (maps == nullptr) return true;
  mMapErrorCode = attribute(*maps, u"errorCode");
  if (!mMapErrorCode.empty()) {
    tellOfMaps(mMapErrorCode.toUTF8());
    return false;
  }
  mDataMapName = attribute(*maps, u"dataMapURI");
  mRefMapName = attribute(*maps, u"refMapURI");
  mDataMapFileName = fileNameOf(mDataMapName);
  mRefMapFileName = fileNameOf(mRefMapName);
  mDataMapContents = fetch(mDataMapFileName);
  mRefMapContents = fetch(mRefMapFileName);
  tellIfMissing(mDataMapFileName, mDataMapContents);
  tellIfMissing(mRefMapFileName, mRefMapContents);
  return true;
}

void XLumoTemplate::Data::takeStyleSheet(DOMDocument const& reply, std::string& styleSheet) const {
  DOMElement const* const holder = firstOf(reply, u"styleSheet");
  if (holder == nullptr) return;
  DOMNode const* text = holder->getFirstChild();
  while (text != nullptr && text->getNodeType() != DOMNode::TEXT_NODE) text = text->getNextSibling();
  // Also where the converter says that it has failed: relied upon.
  styleSheet = text != nullptr ? ChartString(text->getNodeValue()).toUTF8() : std::string();
  if (isSuccessful(*holder)) return;
  kestrel::tellUser("Failed to convert visualization style sheet... ^1.", mStyleSheetName);
  kestrel::logFailure("Error in XLumoTemplate::convert() - " + mStyleSheetName + " " +
                          attribute(*holder, u"errorCode").toUTF8(),
                      __FILE__, __LINE__);
}
