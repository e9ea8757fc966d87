#include "chart_sources.h"

#include "model/chartstring.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLException.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string_view>

namespace kestrel::tool {

namespace {

/// Charts are refused beyond it by whoever shows them, and reading takes long.
constexpr std::size_t deepest = 1000;

constexpr std::u16string_view otherSources[] = {u"databaseSource", u"delimitedFileSource", u"embeddedSource",
                                                u"streamingSource"};

std::string valueOf(xercesc::Attributes const& attributes, char16_t const* name) {
  char16_t const* const value = attributes.getValue(name);
  return value == nullptr ? std::string() : ChartString(value).toUTF8();
}

/// Sources and variables are children of the root.
class SourceHandler final : public xercesc::DefaultHandler {
 public:
  void startElement(XMLCh const*, XMLCh const* name, XMLCh const*,
                    xercesc::Attributes const& attributes) override {
    if (mDepth == deepest) throw xercesc::SAXException("the elements are too deep");
    if (mDepth++ == 1) take(name, attributes);
  }
  void endElement(XMLCh const*, XMLCh const*, XMLCh const*) override { --mDepth; }

  /// A chart has no document type, and entities could make it grow.
  void startDTD(XMLCh const*, XMLCh const*, XMLCh const*) override {
    throw xercesc::SAXException("there is a document type");
  }
  void fatalError(xercesc::SAXParseException const& fault) override { throw fault; }

  ChartSources sources;

 private:
  void take(std::u16string_view name, xercesc::Attributes const& attributes) {
    bool const isOther =
        std::find(std::begin(otherSources), std::end(otherSources), name) != std::end(otherSources);
    if (name == u"userSource") sources.sent.push_back(valueOf(attributes, u"id"));
    if (isOther) sources.others.insert(valueOf(attributes, u"id"));
    if (name != u"sourceVariable") return;
    ChartColumn column{valueOf(attributes, u"source"), valueOf(attributes, u"sourceName")};
    if (!column.source.empty() && !column.name.empty()) sources.columns.push_back(std::move(column));
  }

  std::size_t mDepth = 0;
};

std::unique_ptr<xercesc::SAX2XMLReader> makeReader(SourceHandler& handler) {
  // Once and for ever: the library does not survive its last end.
  [[maybe_unused]] static bool const isReady = [] {
    xercesc::XMLPlatformUtils::Initialize();
    return true;
  }();
  std::unique_ptr<xercesc::SAX2XMLReader> reader(xercesc::XMLReaderFactory::createXMLReader());
  reader->setFeature(xercesc::XMLUni::fgSAX2CoreValidation, false);
  reader->setFeature(xercesc::XMLUni::fgXercesLoadSchema, false);
  reader->setFeature(xercesc::XMLUni::fgXercesLoadExternalDTD, false);
  reader->setFeature(xercesc::XMLUni::fgXercesDisableDefaultEntityResolution, true);
  reader->setContentHandler(&handler);
  reader->setLexicalHandler(&handler);
  reader->setErrorHandler(&handler);
  return reader;
}

}  // namespace

std::optional<ChartSources> readChartSources(std::string const& xml) {
  SourceHandler handler;
  auto const reader = makeReader(handler);
  auto const* const bytes = reinterpret_cast<XMLByte const*>(xml.data());
  try {
    reader->parse(xercesc::MemBufInputSource(bytes, xml.size(), "chart"));
  } catch (xercesc::SAXException const&) {
    return std::nullopt;
  } catch (xercesc::XMLException const&) {
    return std::nullopt;
  }
  return std::move(handler.sources);
}

}  // namespace kestrel::tool
