#include "kestrelhost/data_dump.h"

#include "data_stream_reader.h"

#include "kestrelhost/compression.h"
#include "model/chartstring.h"
#include "model/document.h"

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>
#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMText.hpp>
#include <xercesc/framework/MemBufFormatTarget.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLFormatter.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLException.hpp>

#include <string_view>

namespace kestrel::host {

namespace {

using xercesc::DOMElement;

constexpr char16_t const* embeddedSource = u"embeddedSource";
constexpr char16_t const* userSource = u"userSource";

/// A text that is no chart ends the parsing.
class Refusal final : public xercesc::HandlerBase {
 public:
  void error(xercesc::SAXParseException const& fault) override { throw fault; }
  void fatalError(xercesc::SAXParseException const& fault) override { throw fault; }
};

/// A parsed chart. Nothing outside of its text is read.
class ParsedChart {
 public:
  explicit ParsedChart(std::string const& text) {
    constexpr XMLSize_t mostEntities = 1000;
    mSecurity.setEntityExpansionLimit(mostEntities);
    mParser.setSecurityManager(&mSecurity);
    mParser.setDoNamespaces(true);
    mParser.setLoadExternalDTD(false);
    mParser.setDisableDefaultEntityResolution(true);
    mParser.setCreateEntityReferenceNodes(false);
    mParser.setErrorHandler(&mRefusal);
    auto const* const bytes = reinterpret_cast<XMLByte const*>(text.data());
    mParser.parse(xercesc::MemBufInputSource(bytes, text.size(), "chart"));
  }

  xercesc::DOMDocument& document() { return *mParser.getDocument(); }

 private:
  Refusal mRefusal;
  xercesc::SecurityManager mSecurity;
  xercesc::XercesDOMParser mParser;
};

bool isNamed(DOMElement const& element, char16_t const* name) {
  char16_t const* const local = element.getLocalName();
  return std::u16string_view(local != nullptr ? local : element.getTagName()) == name;
}

/// Puts sources into a chart.
class Embedding {
 public:
  explicit Embedding(xercesc::DOMDocument& document)
      : mDocument(&document), mRoot(document.getDocumentElement()) {}

  void add(StreamedSource const& source) {
    DOMElement& element = elementOf(source.name);
    for (std::string const& name : source.columns) {
      ChartString text;
      text.assignUTF8(name);
      addChild(element, u"column").setAttribute(u"name", text.xc_str());
    }
    addChild(element, u"data").appendChild(mDocument->createTextNode(rowsOf(source).xc_str()));
  }

 private:
  /// Children are in the namespace of the root, with its prefix.
  std::u16string qualified(char16_t const* name) const {
    char16_t const* const prefix = mRoot->getPrefix();
    return prefix == nullptr ? name : std::u16string(prefix) + u":" + name;
  }

  DOMElement& addChild(DOMElement& parent, char16_t const* name) const {
    DOMElement* const child = mDocument->createElementNS(mRoot->getNamespaceURI(), qualified(name).c_str());
    parent.appendChild(child);
    return *child;
  }

  /// The chart's own element for the source, under the name of sources that have their data with them.
  DOMElement& elementOf(std::string const& name) const {
    ChartString id;
    id.assignUTF8(name);
    for (DOMElement* each = mRoot->getFirstElementChild(); each != nullptr;
         each = each->getNextElementSibling()) {
      if (!id.equals(each->getAttribute(u"id"))) continue;
      if (isNamed(*each, embeddedSource)) return *each;
      if (!isNamed(*each, userSource)) continue;
      return static_cast<DOMElement&>(
          *mDocument->renameNode(each, mRoot->getNamespaceURI(), qualified(embeddedSource).c_str()));
    }
    DOMElement& added = addChild(*mRoot, embeddedSource);
    added.setAttribute(u"id", id.xc_str());
    return added;
  }

  static ChartString rowsOf(StreamedSource const& source) {
    ChartString text;
    // Rows of nothing have no text.
    if (source.columns.empty()) return text;
    for (StreamedBatch const& batch : source.batches) {
      for (std::size_t row = 0; row < batch.rows; ++row) {
        for (std::size_t at = 0; at < batch.columns.size(); ++at) {
          if (at > 0) text.append(u';');
          if (auto const value = batch.columns[at].cell(row)) text.appendDouble(*value);
        }
        text.append(u'\n');
      }
    }
    return text;
  }

  xercesc::DOMDocument* mDocument;
  DOMElement* mRoot;
};

bool isUtf8(ChartString const& encoding) {
  return encoding.empty() || encoding.equalsi(u"UTF-8") || encoding.equalsi(u"UTF8");
}

/// The same text with another declaration.
std::string encoded(std::string const& utf8, ChartString const& encoding) {
  constexpr std::string_view endOfDeclaration = "?>";
  ChartString text(u"<?xml version=\"1.0\" encoding=\"");
  text.append(encoding);
  text.append(u"\"?>");
  ChartString body;
  body.assignUTF8(utf8.substr(utf8.find(endOfDeclaration) + endOfDeclaration.size()));
  text.append(body);
  xercesc::MemBufFormatTarget target;
  xercesc::XMLFormatter formatter(encoding.xc_str(), nullptr, &target, xercesc::XMLFormatter::NoEscapes,
                                  xercesc::XMLFormatter::UnRep_CharRef);
  if (encoding.equalsi(u"UTF-16")) {
    // Without a mark nobody could tell the order of the bytes.
    constexpr char16_t mark = 0xFEFF;
    target.writeChars(reinterpret_cast<XMLByte const*>(&mark), sizeof mark, &formatter);
  }
  formatter.formatBuf(text.xc_str(), text.length());
  return {reinterpret_cast<char const*>(target.getRawBuffer()), target.getLen()};
}

std::string joined(std::string const& xml, std::vector<StreamedSource> const& sources,
                   ChartString const& encoding) {
  ParsedChart chart(xml);
  if (chart.document().getDocumentElement() == nullptr) return {};
  Embedding embedding(chart.document());
  for (StreamedSource const& source : sources) embedding.add(source);
  std::string text = LumoDocument(&chart.document()).AsUTF8();
  return isUtf8(encoding) ? text : encoded(text, encoding);
}

}  // namespace

std::string EmbeddedDataDump::join(std::string const& compressedXml, unsigned char const* stream,
                                   unsigned long size, char16_t const* encoding) {
  std::string xml;
  if (!decompress(compressedXml, xml) || (stream == nullptr && size > 0)) return {};
  auto const sources = readDataStream({reinterpret_cast<char const*>(stream), size});
  if (!sources) return {};
  LumoDocument::holdXmlLibrary();
  try {
    return joined(xml, *sources, ChartString(encoding));
  } catch (xercesc::SAXException const&) {
    return {};
  } catch (xercesc::XMLException const&) {
    return {};
  } catch (xercesc::DOMException const&) {
    return {};
  }
}

}  // namespace kestrel::host
