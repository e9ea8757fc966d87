// Requests that the Java adapter answers, with the templates that come with the host.

#include "schema_validator.h"
#include "template_fixture.h"
#include "xdocument.h"

#include "kestrelhost/host.h"
#include "kestrelhost/recorder.h"
#include "model/document.h"

#include <gmock/gmock.h>

#include <string>

namespace kestrel::test {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

class AnsweredRequest : public testing::Test {
 protected:
  AnsweredRequest() {
    Variable y;
    y.slotName = "y";
    y.slotValue = "mass";
    y.categorical = false;
    Variable x = y;
    x.slotName = "x";
    x.slotValue = "length";
    addTo(chart, x);
    addTo(chart, y);
  }

  /// The chart that comes back, with its message to the user where there is none.
  std::string converted() {
    std::string styleSheet;
    EXPECT_TRUE(chart.convert(markup, styleSheet));
    std::string told;
    for (auto const& message : recorder.userMessages()) told += message.text + "\n";
    return told;
  }

  void expectScatter() {
    EXPECT_EQ(converted(), "");
    EXPECT_THAT(schemaErrors(markup), IsEmpty()) << markup;
    XDocument const document(markup);
    ASSERT_TRUE(document.implementationExists());
    EXPECT_THAT(markup, HasSubstr("sourceName=\"length\""));
    EXPECT_THAT(markup, HasSubstr("sourceName=\"mass\""));
  }

  // The services of a plain host, but with what they are asked noted.
  host::Recorder recorder{host::Host()};
  host::ScopedHost scope{recorder.host()};
  XLumoTemplate chart;
  std::string markup;
};

TEST_F(AnsweredRequest, FindsATemplateOfTheProductByItsInternalName) {
  chart.setTemplateInternalName("grouped_scatter");
  expectScatter();
}

TEST_F(AnsweredRequest, FindsATemplateInTheLocalStoreByItsName) {
  ChartString name("grouped_scatter");
  chart.setTemplateName(name, XLumoTemplate::LOCATION_LOCAL);
  expectScatter();
}

// What the adapter encodes, the library decodes: every character that has a code, and those that have none.
TEST_F(AnsweredRequest, GetsBackTheNamesOfMapsInFiles) {
  std::string const name = "/nowhere/ <#{}|^~[]`>'\"&+100%\xC3\x9F\xE4\xB8\x96.map";
  ChartString where("grouped_scatter");
  chart.setTemplateName(where, XLumoTemplate::LOCATION_LOCAL);
  chart.setDataMapName(name, XLumoTemplate::LOCATION_FILE);
  EXPECT_THAT(converted(), HasSubstr("/nowhere/"));
  EXPECT_EQ(chart.getDataMapFileName(), name);
}

TEST_F(AnsweredRequest, TellsTheUserOfASlotThatTheTemplateHasNot) {
  ChartString name("grouped_scatter");
  chart.setTemplateName(name, XLumoTemplate::LOCATION_LOCAL);
  Variable other;
  other.slotName = "sideways";
  addTo(chart, other);
  EXPECT_THAT(converted(), HasSubstr("sideways"));
}

}  // namespace
}  // namespace kestrel::test
