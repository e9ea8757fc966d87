// The document of a service template, made by an XML library that is asked in the open. What it is asked by
// stays registered for the life of the process.

#include "chart_test.h"
#include "xgraphservice.h"

#include "model/chartstring.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOM.hpp>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;

/// Notes what is asked for, and leaves the answer to the library's own source.
class NotedFeatures : public xercesc::DOMImplementationSource {
 public:
  xercesc::DOMImplementation* getDOMImplementation(char16_t const* features) const override {
    asked.push_back(utf8(features));
    return nullptr;
  }
  xercesc::DOMImplementationList* getDOMImplementationList(char16_t const*) const override { return nullptr; }

  mutable std::vector<std::string> asked;
};

class ServiceTemplateDocument : public ChartTest {};

TEST_F(ServiceTemplateDocument, ComesFromTheImplementationThatLoadsAndSaves) {
  XGraphService service;
  // The library's own source comes with the first question, and the last source is asked first.
  xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS");
  // The registry does not own it, and cannot let go of it.
  static NotedFeatures features;
  xercesc::DOMImplementationRegistry::addSource(&features);
  service.createDocument(ChartString(u"s"));
  EXPECT_THAT(features.asked, ElementsAre("LS"));
}

}  // namespace
}  // namespace kestrel::test
