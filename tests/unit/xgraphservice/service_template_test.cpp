// The document of a service template.

#include "chart_test.h"
#include "schema_validator.h"
#include "xgraphservice_data.h"

#include "model/chartstring.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOM.hpp>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace kestrel::test {
namespace {

using ::testing::IsEmpty;
using ::testing::Not;

/// Knows when the node that it was put to is deleted.
class Deletions final : public xercesc::DOMUserDataHandler {
 public:
  void handle(DOMOperationType operation, XMLCh const*, void*, xercesc::DOMNode const*,
              xercesc::DOMNode*) override {
    if (operation == NODE_DELETED) ++count;
  }
  unsigned int count = 0;
};

class ServiceTemplate : public ChartTest {
 protected:
  void watch(Deletions& deletions) { data->mDocument->setUserData(u"deletions", this, &deletions); }

  /// For the XML library, which lives as long as a document does.
  XGraphService document;
  std::unique_ptr<XGraphService::Data> data = std::make_unique<XGraphService::Data>();
};

TEST_F(ServiceTemplate, HasNoText) { EXPECT_EQ(data->print(), ""); }

TEST_F(ServiceTemplate, IsNotThereAtFirst) { EXPECT_EQ(data->mDocument, nullptr); }

TEST_F(ServiceTemplate, HasItsRootInNoNamespace) {
  data->createDocument(ChartString(u"s"));
  xercesc::DOMElement const& root = *data->mDocument->getDocumentElement();
  EXPECT_EQ(root.getNamespaceURI(), nullptr);
  EXPECT_EQ(root.getPrefix(), nullptr);
  EXPECT_EQ(utf8(root.getTagName()), "serviceTemplate");
}

TEST_F(ServiceTemplate, HasNoDocumentType) {
  data->createDocument(ChartString(u"s"));
  EXPECT_EQ(data->mDocument->getDoctype(), nullptr);
}

TEST_F(ServiceTemplate, HasNoOtherAttributes) {
  data->createDocument(ChartString(u"s"));
  data->addVariable("age", 1);
  xercesc::DOMElement const& root = *data->mDocument->getDocumentElement();
  EXPECT_EQ(root.getAttributes()->getLength(), 1u);
  xercesc::DOMElement const& variable = *root.getFirstElementChild();
  EXPECT_EQ(utf8(variable.getTagName()), "sourceVariable");
  EXPECT_EQ(variable.getNamespaceURI(), nullptr);
  EXPECT_EQ(variable.getAttributes()->getLength(), 2u);
  EXPECT_EQ(attribute(&variable, u"name"), "age");
  EXPECT_EQ(attribute(&variable, u"index"), "1");
}

TEST_F(ServiceTemplate, IsReleasedWithItsRecord) {
  Deletions deletions;
  data->createDocument(ChartString(u"s"));
  watch(deletions);
  EXPECT_EQ(deletions.count, 0u);
  data.reset();
  EXPECT_EQ(deletions.count, 1u);
}

TEST_F(ServiceTemplate, IsReleasedForTheNextOne) {
  Deletions deletions;
  data->createDocument(ChartString(u"s"));
  watch(deletions);
  data->createDocument(ChartString(u"t"));
  EXPECT_EQ(deletions.count, 1u);
}

/// A copy: later options leave it as it is.
static_assert(
    std::is_same_v<decltype(std::declval<XGraphService::Data const&>().getChartOptions()), std::string>);

// --- The schema

std::string withVariable(std::string const& attributes) {
  return "<serviceTemplate source=\"s\"><sourceVariable " + attributes + "/></serviceTemplate>";
}

TEST(ServiceTemplateSchema, KnowsServiceTemplatesFromOtherTexts) {
  EXPECT_THAT(serviceTemplateSchemaErrors("<serviceTemplate source=\"\"/>"), IsEmpty());
  EXPECT_THAT(serviceTemplateSchemaErrors(withVariable("name=\"\" index=\"0\"")), IsEmpty());
  EXPECT_THAT(serviceTemplateSchemaErrors(withVariable("name=\"a\" index=\"18446744073709551615\"")),
              IsEmpty());
  for (std::string const& wrong :
       {std::string("<serviceTemplate/>"), std::string("<serviceTemplate source=\"s\" a=\"\"/>"),
        std::string("<serviceTemplate xmlns=\"urn:a\" source=\"s\"/>"),
        std::string("<serviceTemplate source=\"s\">text</serviceTemplate>"),
        std::string("<serviceTemplate source=\"s\"><variable/></serviceTemplate>"),
        std::string("<sourceVariable name=\"a\" index=\"1\"/>"), withVariable("name=\"a\""),
        withVariable("index=\"1\""), withVariable("name=\"a\" index=\"-1\""),
        withVariable("name=\"a\" index=\"01\""), withVariable("name=\"a\" index=\"\"")}) {
    EXPECT_THAT(serviceTemplateSchemaErrors(wrong), Not(IsEmpty())) << wrong;
  }
}

}  // namespace
}  // namespace kestrel::test
