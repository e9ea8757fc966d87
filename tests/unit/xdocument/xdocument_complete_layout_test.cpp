// Titles and footnotes of a completed chart have room for the fonts that its templates give them.

#include "xdocument.h"

#include "kestrelhost/recorder.h"
#include "kestrelhost/template_engine.h"
#include "model/chartstring.h"
#include "model/document.h"
#include "model/labels.h"

#include <gtest/gtest.h>

namespace kestrel::test {
namespace {

host::Host hostWithTemplates() {
  host::Host host = host::MemoryServices().host();
  host.templateEngine = std::make_shared<host::XmlTemplateEngine>();
  return host;
}

class LayoutOfACompletedChart : public testing::Test {
 protected:
  /// The side of a label frame, as its location says it.
  std::string side(std::size_t frame, LumoLocation::ENUM_part part) const {
    for (LumoLocation const* location :
         document.getVisualization()->getLabelFrames().at(frame)->getLocations()) {
      if (location->getPart() == part) return ChartString(location->getAttribute(u"value")).toUTF8();
    }
    return "(absent)";
  }

  host::ScopedHost scope{hostWithTemplates()};
  XDocument document{
      R"(<visualization xmlns="http://xml.vexa.example/visualization" version="2.8">)"
      R"(<labelFrame id="frame_title_1"><label><text>T</text></label></labelFrame>)"
      R"(<labelFrame id="frame_subtitle_1"><label><text>S</text></label></labelFrame></visualization>)"};
};

TEST_F(LayoutOfACompletedChart, HasRoomForTheFontsOfImmediateTemplates) {
  document.AddImmediateTemplate(R"(<setFont part="title" size="36pt"/>)");
  document.getChartXML();
  EXPECT_EQ(side(0, LumoLocation::PartTop), "0px");
  EXPECT_EQ(side(0, LumoLocation::PartHeight), "84px");
  EXPECT_EQ(side(1, LumoLocation::PartTop), "84px");
}

TEST_F(LayoutOfACompletedChart, IsTheSameTheSecondTime) {
  document.AddImmediateTemplate(R"(<setFont part="title" size="36pt"/>)");
  document.AddImmediateTemplate(R"(<setFont part="subtitle" size="18pt"/>)");
  std::string const once = document.getChartXML();
  EXPECT_EQ(document.getChartXML(), once);
}

TEST_F(LayoutOfACompletedChart, IsThatOfTheLastFontThatATemplateGives) {
  document.AddImmediateTemplate(R"(<setFont part="title" size="36pt"/>)");
  document.AddImmediateTemplate(R"(<setFont part="title" size="9pt"/>)");
  document.getChartXML();
  EXPECT_EQ(side(0, LumoLocation::PartHeight), "21px");
  EXPECT_EQ(side(1, LumoLocation::PartTop), "21px");
}

}  // namespace
}  // namespace kestrel::test
