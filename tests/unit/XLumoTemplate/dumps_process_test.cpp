// The dumps of a conversion and their number, which counts through the life of a process.

#include "template_fixture.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedDump;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TemplateDumps : public LumoTemplateTest {
 protected:
  TemplateDumps() {
    ::setenv("DumpChartXMLPath", "", 1);
    services.dumps->categories = {ChartBase::PrintConversion};
  }

  /// Prefix, suffix, number and category of each dump.
  std::vector<std::string> names() const {
    std::vector<std::string> result;
    for (RecordedDump const& dump : recorder.dumps())
      result.push_back(dump.prefix + std::to_string(dump.number) + dump.suffix + " " +
                       std::to_string(dump.type));
    return result;
  }
};

TEST_F(TemplateDumps, HoldTheRequestAndTheReply) {
  replies("<reply/>");
  EXPECT_TRUE(convert());
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{requestOf({}), "lumoTemplate_", ".xml", 1, 1},
                                                         {"<reply/>", "returnedLumo", ".xml", 2, 1}}));
}

TEST_F(TemplateDumps, CountOnOverTemplates) {
  convert();
  XLumoTemplate another;
  another.convert(lumoML, styleSheet);
  EXPECT_THAT(names(), ElementsAre("lumoTemplate_1.xml 1", "returnedLumo2.xml 1", "lumoTemplate_3.xml 1",
                                   "returnedLumo4.xml 1"));
}

TEST_F(TemplateDumps, StandAroundTheConverter) {
  convert();
  std::vector<std::string> order;
  for (host::Entry const& entry : recorder.entries()) {
    if (entry.operation == Operation::PrintString || entry.operation == Operation::PrintDebugInfo ||
        entry.operation == Operation::WillPrintString || entry.operation == Operation::ConvertTemplate)
      order.emplace_back(nameOf(entry.operation));
  }
  EXPECT_THAT(order,
              ElementsAre("ChartBase::willPrintString", "ChartBase::printString", "ChartBase::printDebugInfo",
                          "ClientAdapter::ConvertClientLumoTemplate", "ChartBase::printDebugInfo",
                          "ChartBase::willPrintString", "ChartBase::printString"));
}

TEST_F(TemplateDumps, AreNotMadeWhereNobodyWantsThemAndNotCounted) {
  services.dumps->categories.clear();
  convert();
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_EQ(recorder.count(Operation::WillPrintString), 2u);
  services.dumps->categories = {ChartBase::PrintConversion};
  convert();
  EXPECT_THAT(names(), ElementsAre("lumoTemplate_1.xml 1", "returnedLumo2.xml 1"));
}

TEST_F(TemplateDumps, AreNotEvenAskedForWithoutTheVariable) {
  ::unsetenv("DumpChartXMLPath");
  convert();
  EXPECT_THAT(names(), IsEmpty());
  EXPECT_EQ(recorder.count(Operation::WillPrintString), 0u);
}

TEST_F(TemplateDumps, HoldARequestWithoutAReply) {
  replies("");
  EXPECT_FALSE(convert());
  EXPECT_THAT(names(), ElementsAre("lumoTemplate_1.xml 1"));
  recorder.throwAt(Operation::ConvertTemplate, 1, OrdinaryFailure());
  EXPECT_FALSE(convert());
  EXPECT_THAT(names(), ElementsAre("lumoTemplate_1.xml 1", "lumoTemplate_2.xml 1"));
}

TEST_F(TemplateDumps, HoldAReplyThatIsNoXml) {
  replies("<reply>");
  EXPECT_TRUE(convert());
  EXPECT_THAT(names(), ElementsAre("lumoTemplate_1.xml 1", "returnedLumo2.xml 1", "parseError_0.xml 0"));
}

TEST_F(TemplateDumps, ThatFailLeaveTheNumber) {
  recorder.throwAt(Operation::PrintString, 1, OrdinaryFailure());
  EXPECT_THROW(convert(), OrdinaryFailure);
  recorder.clear();
  convert();
  EXPECT_THAT(names(), ElementsAre("lumoTemplate_1.xml 1", "returnedLumo2.xml 1"));
}

TEST_F(TemplateDumps, AreNotMadeOfARequestThatCannotBeMade) {
  services.files->content["a"] = "<template>";
  chooseTemplate("a", XLumoTemplate::LOCATION_FILE);
  EXPECT_FALSE(convert());
  EXPECT_THAT(names(), ElementsAre("parseError_0.xml 0"));
}

}  // namespace
}  // namespace kestrel::test
