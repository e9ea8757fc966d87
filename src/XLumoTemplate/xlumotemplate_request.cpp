// The request as the converter gets it.

#include "request_memory.h"
#include "xlumotemplate_data.h"

#include "support/chart_parser.h"
#include "support/display_of_type.h"
#include "support/failure.h"

#include "host/chartbase.h"
#include "host/files.h"
#include "host/locale.h"
#include "host/messages.h"
#include "model/printing.h"
#include "model/variables.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <algorithm>
#include <sstream>

using xercesc::DOMDocument;
using xercesc::DOMElement;

namespace {

constexpr char16_t requestNamespace[] = u"http://xml.vexa.example/vexa/viewer/lumoTemplate";
constexpr char16_t schemaInstanceNamespace[] = u"http://www.w3.org/2001/XMLSchema-instance";
constexpr char16_t schemaLocation[] =
    u"http://xml.vexa.example/vexa/viewer/lumoTemplate "
    u"http://xml.vexa.example/vexa/viewer/lumoTemplate-1.2.xsd";
constexpr char16_t chartNamespace[] = u"http://xml.vexa.example/visualization";

constexpr char16_t local[] = u"local";
constexpr char16_t repository[] = u"KOS";
constexpr char16_t file[] = u"file";

void set(DOMElement& element, char16_t const* name, char16_t const* value) {
  element.setAttribute(name, value);
}

void set(DOMElement& element, char16_t const* name, ChartString const& value) {
  set(element, name, value.xc_str());
}

void set(DOMElement& element, char16_t const* name, std::string const& value) {
  ChartString text;
  text.assignUTF8(value);
  set(element, name, text);
}

void set(DOMElement& element, char16_t const* name, bool value) {
  set(element, name, value ? u"true" : u"false");
}

template <typename Text>
void setUnlessEmpty(DOMElement& element, char16_t const* name, Text const& value) {
  if (!value.empty()) set(element, name, value);
}

/// The new last child of `parent`.
DOMElement& append(xercesc::DOMNode& parent, char16_t const* name) {
  DOMElement& element = *parent.getOwnerDocument()->createElement(name);
  parent.appendChild(&element);
  return element;
}

/// Such as "en-US".
ChartString localeText() {
  constexpr int size = 124;
  // One more than the host is told of: one that fills it may leave no end.
  char buffer[size + 1] = {};
  std::string name;
  if (VexaMBDefaultLocaleName_A(buffer, size) > 0) name = buffer;
  name.erase(std::min(name.rfind('.'), name.size()));
  if (name.empty())
    kestrel::logFailure("VexaMBDefaultLocaleName() returned empty string.", __FILE__, __LINE__);
  ChartString locale;
  locale.assignUTF8(name);
  locale.replaceChars(u'_', u'-');
  return locale;
}

// --- Formats

/// Null for a type that has no display.
auto fillerOf(kestrel::Display display) -> bool (*)(LumoFormat&, Vexa_Format&) {
  switch (display) {
    case kestrel::Display::None:
      return nullptr;
    case kestrel::Display::Number:
      return &ChartBase::FormatNumber;
    case kestrel::Display::CustomCurrency:
      return &ChartBase::FormatCustomCurrency;
    case kestrel::Display::ElapsedTime:
      return &ChartBase::FormatElapsedTime;
    case kestrel::Display::Date:
    case kestrel::Display::DateTime:
    case kestrel::Display::Time:
    case kestrel::Display::DayOfWeek:
    case kestrel::Display::MonthOfYear:
      return &ChartBase::FormatDate;
  }
  return nullptr;
}

void addFormat(DOMElement& element, Vexa_Format format) {
  LumoFormat display(&element);
  display.setErrorCharacter(u"*");
  if (auto* const fill = fillerOf(kestrel::displayOf(format.TypeEx()))) fill(display, format);
}

// --- Mappings

std::string orEmpty(std::vector<std::string> const& texts, std::size_t index) {
  return index < texts.size() ? texts[index] : std::string();
}

void addMultipleResponseInfo(DOMElement& mapping, XLumoTemplate::Data::variableMapping const& variable) {
  DOMElement& info = append(mapping, u"multipleResponseInfo");
  set(info, u"MRSetName", variable.mMRSetName);
  set(info, u"enhancedDichotomy", variable.mEnhancedDichotomy);
  for (std::size_t index = 0; index < variable.mVariableNames.size(); ++index) {
    DOMElement& member = append(info, u"variable");
    set(member, u"varName", variable.mVariableNames[index]);
    set(member, u"varLabel", orEmpty(variable.mVariableLabels, index));
    set(member, u"labelingVariableName", orEmpty(variable.mLabelingVariableNames, index));
  }
  if (variable.mVariableType == XLumoTemplate::VARIABLE_MULTIPLE_DICHOTOMY)
    set(info, u"countedValue", variable.mCountedValue);
}

DOMElement& addMapping(DOMElement& specification, XLumoTemplate::Data::TemplateMapping const& mapping) {
  DOMElement& element = append(specification, u"mapping");
  set(element, u"slotName", mapping.mSlotName);
  set(element, u"slotValue", mapping.mSlotValue);
  return element;
}

/// Null for a single variable.
char16_t const* nameOf(XLumoTemplate::VARIABLE_TYPE type) {
  if (type == XLumoTemplate::VARIABLE_MULTIPLE_DICHOTOMY) return u"MultipleDichotomy";
  return type == XLumoTemplate::VARIABLE_MULTIPLE_CATEGORY ? u"MultipleCategory" : nullptr;
}

void addVariableMapping(DOMElement& specification, XLumoTemplate::Data::variableMapping const& variable) {
  DOMElement& mapping = addMapping(specification, variable);
  set(mapping, u"categorical", variable.mCategorical);
  setUnlessEmpty(mapping, u"labelingVariableName", variable.mLabelingVariableName);
  setUnlessEmpty(mapping, u"dataSetName", variable.mDataSetName);
  setUnlessEmpty(mapping, u"slotLabel", variable.mSlotLabel);
  if (variable.mWeight) set(mapping, u"weight", true);
  if (char16_t const* const type = nameOf(variable.mVariableType)) {
    set(mapping, u"variableType", type);
    addMultipleResponseInfo(mapping, variable);
  }
  if (variable.mHasFormat) addFormat(append(mapping, u"lumoml:format"), variable.mFormat);
}

// --- Maps

/// A value that is no location counts as a file here, and as the repository for a template: relied upon.
char16_t const* mapLocation(XLumoTemplate::LOCATION location) {
  if (location == XLumoTemplate::LOCATION_LOCAL) return local;
  return location == XLumoTemplate::LOCATION_KOS ? repository : file;
}

}  // namespace

bool XLumoTemplate::Data::convertMapInfoToDOM(DOMDocument& document, DOMElement& specification) const {
  if (mDataMapName.empty() && mRefMapName.empty()) return false;
  DOMElement& map = *document.createElement(u"map");
  specification.appendChild(&map);
  // The folders are there even where they are empty, unlike a template's: relied upon.
  if (!mDataMapName.empty()) {
    set(map, u"dataFile", mDataMapName);
    if (mDataMapLocation == LOCATION_KOS) set(map, u"dataMapRepositoryFolderSpec", mDataMapKosDirectory);
    set(map, u"dataMapLocation", mapLocation(mDataMapLocation));
  }
  if (!mRefMapName.empty()) {
    set(map, u"referenceMap", mRefMapName);
    if (mRefMapLocation == LOCATION_KOS) set(map, u"refMapRepositoryFolderSpec", mRefMapKosDirectory);
    set(map, u"referenceMapLocation", mapLocation(mRefMapLocation));
  }
  setUnlessEmpty(map, u"mapKey", mMapKey);
  set(map, u"showAllFeatures", mShowAllFeatures);
  return true;
}

// --- The document

bool XLumoTemplate::Data::createDocument(XML_ENCODING) {
  try {
    auto& xml = kestrel::present(xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS"),
                                 "XML implementation");
    mDocument = xml.createDocument(requestNamespace, u"lumoTemplate", nullptr, &kestrel::requestMemory());
    mDocument->setStrictErrorChecking(true);
    mDocument->setXmlStandalone(false);
    mDocument->setXmlVersion(u"1.0");
    mRoot = mDocument->getDocumentElement();
    set(*mRoot, u"xmlns", requestNamespace);
    set(*mRoot, u"xmlns:xsi", schemaInstanceNamespace);
    set(*mRoot, u"xsi:schemaLocation", schemaLocation);
    set(*mRoot, u"xmlns:lumoml", chartNamespace);
    set(*mRoot, u"type", u"request");
    return true;
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    return false;
  }
}

bool XLumoTemplate::Data::convertToString(std::string& out) {
  if (!createDocument(EncodingDefault)) return false;
  ChartString const locale = localeText();
  // Without a template neither maps nor mappings are sent: relied upon.
  bool const hasTemplate = !mTemplateName.empty() || !mTemplatePath.empty();
  if (hasTemplate && !addTemplateSpecification(locale)) return false;
  addStyleSheetSpecification();
  out = AsUTF8(*mRoot);
  return true;
}

bool XLumoTemplate::Data::addTemplateSpecification(ChartString const& locale) {
  DOMElement& specification = append(*mRoot, u"templateSpecification");
  set(specification, u"templateName", mTemplateName);
  set(specification, u"locale", locale);
  if (mTemplateLocation == LOCATION_LOCAL) {
    set(specification, u"location", local);
  } else if (mTemplateLocation == LOCATION_FILE) {
    set(specification, u"location", file);
    if (!addTemplateContents(specification)) return false;
  } else {
    set(specification, u"location", repository);
    setUnlessEmpty(specification, u"repositoryFolderSpec", mTemplateKosDirectory);
  }
  convertMapInfoToDOM(*mDocument, specification);
  addMappings(specification);
  return true;
}

/// A file that cannot be read is reported, and the request goes on without it; one that is no XML ends it.
bool XLumoTemplate::Data::addTemplateContents(DOMElement& specification) {
  std::string const name = mTemplateName.toUTF8();
  std::string const content = FetchFile().fetch(name.empty() ? mTemplatePath : name, true, true);
  if (content.empty()) {
    // Names no file where the template was chosen by its path: relied upon.
    kestrel::tellUser(kestrel::noAccess, name);
    return true;
  }
  auto const parser = kestrel::makeChartParser();
  std::string errorText;
  DOMDocument const* const parsed = parsedTemplate(content, errorText, *parser);
  if (parsed == nullptr) return false;
  append(specification, u"templateContents")
      .appendChild(mDocument->importNode(parsed->getDocumentElement(), true));
  return true;
}

/// The parser knows the text by a name that is misspelt: relied upon.
DOMDocument* XLumoTemplate::Data::parsedTemplate(std::string const& content, std::string& errorText,
                                                 xercesc::XercesDOMParser& parser) {
  return kestrel::parsedText(content, "ChartBasf", errorText, parser);
}

void XLumoTemplate::Data::addMappings(DOMElement& specification) {
  for (variableMapping const& variable : mVariables) addVariableMapping(specification, variable);
  for (TemplateMapping const& statistic : mStatistics) addMapping(specification, statistic);
  for (TemplateMapping const& label : mLabels) addMapping(specification, label);
}

void XLumoTemplate::Data::addStyleSheetSpecification() {
  if (mStyleSheetName.empty() || mStyleSheetLocation == LOCATION_FILE) return;
  DOMElement& specification = append(*mRoot, u"styleSheetSpecification");
  set(specification, u"styleSheetName", mStyleSheetName);
  set(specification, u"location", mStyleSheetLocation == LOCATION_LOCAL ? local : repository);
  if (mStyleSheetLocation == LOCATION_KOS)
    setUnlessEmpty(specification, u"repositoryFolderSpec", mStyleSheetKosDirectory);
}

std::string XLumoTemplate::Data::AsUTF8(xercesc::DOMNode const& node) {
  ChartPrinter printer;
  printer.setPrintWhiteSpace(true);
  std::ostringstream stream;
  printer.Print(&node, stream, false);
  return stream.str();
}
