// The request's document, made by an XML library whose implementation is watched. It stays registered for the
// life of the process.

#include "template_fixture.h"
#include "xlumotemplate_data.h"

#include "host/messages.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOM.hpp>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;

/// Is asked before the library's own implementations.
class WatchedSource : public xercesc::DOMImplementationSource {
 public:
  explicit WatchedSource(std::function<void(std::string const& features)> watch) : mWatch(std::move(watch)) {}

  xercesc::DOMImplementation* getDOMImplementation(char16_t const* features) const override {
    mWatch(utf8(features));
    return nullptr;
  }
  xercesc::DOMImplementationList* getDOMImplementationList(char16_t const*) const override { return nullptr; }

 private:
  std::function<void(std::string const&)> mWatch;
};

class RequestDocument : public LumoTemplateTest {
 protected:
  /// The library's own source must be there first.
  RequestDocument() { xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS"); }

  static void watch(std::function<void(std::string const&)> action) {
    // The registry does not own it, and cannot let go of it.
    static WatchedSource source(std::move(action));
    xercesc::DOMImplementationRegistry::addSource(&source);
  }
};

TEST_F(RequestDocument, ThatCannotBeMadeEndsTheConversionSilently) {
  watch([](std::string const&) { throw OrdinaryFailure(); });
  EXPECT_FALSE(convert());
  expectNoReport(recorder);
  EXPECT_EQ(recorder.count(Operation::LocaleName), 0u);
  EXPECT_EQ(recorder.count(Operation::ConvertTemplate), 0u);
}

TEST_F(RequestDocument, LetsTheUnwindingSignalThrough) {
  watch([](std::string const&) { throw VexaGoToCaller(); });
  EXPECT_THROW(convert(), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(RequestDocument, ComesFromTheImplementationThatLoadsAndSaves) {
  std::vector<std::string> asked;
  watch([&asked](std::string const& features) { asked.push_back(features); });
  EXPECT_TRUE(convert());
  ASSERT_FALSE(asked.empty());
  EXPECT_EQ(asked.front(), "LS");
}

TEST_F(RequestDocument, IsStrictAndDependsOnNothingElse) {
  XLumoTemplate::Data data;
  ASSERT_TRUE(data.createDocument(XLumoTemplate::Data::EncodingDefault));
  EXPECT_TRUE(data.mDocument->getStrictErrorChecking());
  EXPECT_FALSE(data.mDocument->getXmlStandalone());
  EXPECT_EQ(utf8(data.mDocument->getXmlVersion()), "1.0");
  EXPECT_EQ(data.mDocument->getDoctype(), nullptr);
  EXPECT_EQ(data.mDocument->getDocumentElement(), data.mRoot);
  EXPECT_EQ(utf8(data.mRoot->getNamespaceURI()), "http://xml.vexa.example/vexa/viewer/lumoTemplate");
}

TEST_F(RequestDocument, IsReplacedByTheNextOneAndStays) {
  XLumoTemplate::Data data;
  ASSERT_TRUE(data.createDocument(XLumoTemplate::Data::EncodingDefault));
  xercesc::DOMElement const* const before = data.mRoot;
  ASSERT_TRUE(data.createDocument(XLumoTemplate::Data::EncodingDefault));
  EXPECT_NE(data.mRoot, before);
  EXPECT_EQ(utf8(before->getTagName()), "lumoTemplate");
}

TEST_F(RequestDocument, OutlivesItsTemplate) {
  auto data = std::make_unique<XLumoTemplate::Data>();
  ASSERT_TRUE(data->createDocument(XLumoTemplate::Data::EncodingDefault));
  xercesc::DOMElement const* const root = data->mRoot;
  data.reset();
  EXPECT_EQ(utf8(root->getTagName()), "lumoTemplate");
}

}  // namespace
}  // namespace kestrel::test
