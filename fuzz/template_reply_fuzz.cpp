// The reply to a request for a chart from a visualization template, of any content: what it fails for is told
// to the user, no files are asked for but those of its maps, and the chart that it gives is well formed.

#include "xdocument.h"
#include "xlumotemplate.h"

#include "kestrelhost/recorder.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using kestrel::host::Entry;
using kestrel::host::Operation;
using kestrel::host::Recorder;
using kestrel::host::ScopedHost;

namespace {

using xercesc::DOMDocument;
using xercesc::DOMImplementation;
using xercesc::MemoryManager;

void require(bool holds) {
  if (!holds) std::abort();
}

/// The library's own implementation, but one that releases the documents of requests, which nobody else does.
class ReleasingImplementation final : public DOMImplementation {
 public:
  explicit ReleasingImplementation(DOMImplementation& own) : mOwn(own) {}

  void release() {
    for (DOMDocument* document : mDocuments) document->release();
    mDocuments.clear();
  }

  bool hasFeature(char16_t const* feature, char16_t const* version) const override {
    return mOwn.hasFeature(feature, version);
  }
  xercesc::DOMDocumentType* createDocumentType(char16_t const* name, char16_t const* publicId,
                                               char16_t const* systemId) override {
    return mOwn.createDocumentType(name, publicId, systemId);
  }
  DOMDocument* createDocument(char16_t const* uri, char16_t const* name, xercesc::DOMDocumentType* type,
                              MemoryManager* memory) override {
    return mDocuments.emplace_back(mOwn.createDocument(uri, name, type, memory));
  }
  void* getFeature(char16_t const* feature, char16_t const* version) const override {
    return mOwn.getFeature(feature, version);
  }
  DOMDocument* createDocument(MemoryManager* memory) override { return mOwn.createDocument(memory); }
  xercesc::DOMLSParser* createLSParser(DOMImplementationLSMode mode, char16_t const* type,
                                       MemoryManager* memory, xercesc::XMLGrammarPool* grammars) override {
    return mOwn.createLSParser(mode, type, memory, grammars);
  }
  xercesc::DOMLSSerializer* createLSSerializer(MemoryManager* memory) override {
    return mOwn.createLSSerializer(memory);
  }
  xercesc::DOMLSInput* createLSInput(MemoryManager* memory) override { return mOwn.createLSInput(memory); }
  xercesc::DOMLSOutput* createLSOutput(MemoryManager* memory) override { return mOwn.createLSOutput(memory); }

 private:
  DOMImplementation& mOwn;
  std::vector<DOMDocument*> mDocuments;
};

class Source final : public xercesc::DOMImplementationSource {
 public:
  explicit Source(ReleasingImplementation& implementation) : mImplementation(implementation) {}
  DOMImplementation* getDOMImplementation(char16_t const*) const override { return &mImplementation; }
  xercesc::DOMImplementationList* getDOMImplementationList(char16_t const*) const override { return nullptr; }

 private:
  ReleasingImplementation& mImplementation;
};

/// In force before the library's own, for the life of the process.
ReleasingImplementation& implementation() {
  static ReleasingImplementation& made = []() -> ReleasingImplementation& {
    xercesc::XMLPlatformUtils::Initialize();
    DOMImplementation* const own = xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS");
    require(own != nullptr);
    auto& releasing = *new ReleasingImplementation(*own);
    xercesc::DOMImplementationRegistry::addSource(new Source(releasing));
    return releasing;
  }();
  return made;
}

Recorder& hostInForce() {
  static Recorder recorder;
  static ScopedHost const scope(recorder.host());
  recorder.clear();
  return recorder;
}

/// An element, and none whose names only XML 1.1 allows.
bool isElement(std::string const& text, std::string const& reply) {
  return text.size() > 1 && text[0] == '<' && text[1] != '!' && text[1] != '?' &&
         reply.find("1.1") == std::string::npos;
}

void requireWellFormed(std::string const& text) {
  xercesc::XercesDOMParser parser;
  std::string errorText;
  require(XDocument::parseDocument(text, errorText, &parser) != nullptr);
}

void requireOnlyMapsFetched(Recorder const& recorder, XLumoTemplate const& chart) {
  std::vector<Entry> const fetched = recorder.entries(Operation::Fetch);
  require(fetched.empty() || fetched.size() == 2);
  if (fetched.empty()) return;
  require(fetched[0].text("name") == chart.getDataMapFileName());
  require(fetched[1].text("name") == chart.getRefMapFileName());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  ReleasingImplementation& requests = implementation();
  Recorder& recorder = hostInForce();
  std::string const reply(reinterpret_cast<char const*>(data), size);
  recorder.services().java->templates = [&reply](std::string const&) { return reply; };
  XLumoTemplate chart;
  std::string lumoML;
  std::string styleSheet;
  bool const converted = chart.convert(lumoML, styleSheet);
  auto const told = recorder.userMessages();
  require(converted || (!told.empty() && told.back().level == 3));
  requireOnlyMapsFetched(recorder, chart);
  if (isElement(lumoML, reply)) requireWellFormed(lumoML);
  requests.release();
  return 0;
}
