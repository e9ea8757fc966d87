// What fails around a conversion, and the order of its steps.

#include "template_fixture.h"
#include "xlumotemplate_data.h"

#include "support/chart_parser.h"

#include "host/java.h"
#include "host/messages.h"

#include <gmock/gmock.h>
#include <xercesc/dom/DOMDocument.hpp>

#include <cstdlib>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char templateFailed[] = "Failed to convert visualization template... ^1.";

class Conversion : public LumoTemplateTest {};

TEST_F(Conversion, AsksTheHostInOrder) {
  ::unsetenv("DumpChartXMLPath");
  replies("<Lumoml success=\"true\"/>");
  EXPECT_TRUE(convert());
  EXPECT_THAT(recorder.lines(),
              ElementsAre("VexaMBDefaultLocaleName_A()",
                          "ChartBase::printDebugInfo(line=\"Before calling ConvertClientLumoTemplate()\")",
                          ::testing::StartsWith("ClientAdapter::ConvertClientLumoTemplate(request="),
                          "ChartBase::printDebugInfo(line=\"After calling ConvertClientLumoTemplate()\")"));
}

/// The steps in which the converter is called.
class ConverterCall : public LumoTemplateTest,
                      public ::testing::WithParamInterface<std::pair<Operation, int>> {
 protected:
  template <typename Failure>
  void fail(Failure failure) {
    recorder.throwAt(GetParam().first, static_cast<unsigned int>(GetParam().second), failure);
  }
};

TEST_P(ConverterCall, ThatFailsIsReported) {
  fail(OrdinaryFailure());
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message(templateFailed, {" ", false}, 3)));
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_P(ConverterCall, ThatFailsInJavaIsReported) {
  fail(JException("no converter"));
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message(templateFailed, {" ", false}, 3)));
}

TEST_P(ConverterCall, ThatFailsInJavaByAPointerIsReported) {
  static JException failure("kept");
  fail(&failure);
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message(templateFailed, {" ", false}, 3)));
}

TEST_P(ConverterCall, LetsTheUnwindingSignalThrough) {
  fail(VexaGoToCaller());
  EXPECT_THROW(convert(), VexaGoToCaller);
  expectNoReport(recorder);
}

INSTANTIATE_TEST_SUITE_P(At, ConverterCall,
                         ::testing::Values(std::pair{Operation::PrintDebugInfo, 1},
                                           std::pair{Operation::ConvertTemplate, 1},
                                           std::pair{Operation::PrintDebugInfo, 2}));

TEST_F(Conversion, WithoutAConverterHasAnEmptyReply) {
  recorder.failEvery(Operation::ConvertTemplate);
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(),
              ElementsAre(message(templateFailed, {"Reading the XML file has failed ...", true}, 3)));
}

TEST_F(Conversion, WhoseParseThrowsIsReported) {
  replies("<reply>");
  recorder.throwAt(Operation::Error, 1, OrdinaryFailure());
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(),
              ElementsAre(message(templateFailed, {"parseDocument exception", true}, 3)));
}

TEST_F(Conversion, WhoseParseIsUnwoundIsReportedToo) {
  replies("<reply>");
  recorder.throwAt(Operation::PrintString, 1, VexaGoToCaller());
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.userMessages(),
              ElementsAre(message(templateFailed, {"parseDocument exception", true}, 3)));
}

/// Host calls outside of the handlers, by the reply that leads to them.
struct OpenCall {
  char const* name;
  Operation operation;
  void (*arrange)(XLumoTemplate& chart);
  char const* reply;
};
void PrintTo(OpenCall const& call, std::ostream* out) { *out << call.name; }

void nothing(XLumoTemplate&) {}
void templateFile(XLumoTemplate& chart) {
  ChartString name("gone");
  chart.setTemplateName(name, XLumoTemplate::LOCATION_FILE);
}
void styleSheetFile(XLumoTemplate& chart) { chart.setstyleSheetName("a", XLumoTemplate::LOCATION_FILE); }
void formattedVariable(XLumoTemplate& chart) {
  Vexa_Format format(Vexa_Format::FormatNumber, 8, 2);
  ChartString name("pie");
  chart.setTemplateName(name, XLumoTemplate::LOCATION_LOCAL);
  addTo(chart, {.format = &format});
}

class CallInTheOpen : public LumoTemplateTest, public ::testing::WithParamInterface<OpenCall> {
 protected:
  CallInTheOpen() {
    GetParam().arrange(chart);
    replies(GetParam().reply);
  }
};

TEST_P(CallInTheOpen, PassesItsFailureOn) {
  recorder.throwAt(GetParam().operation, 1, OrdinaryFailure());
  EXPECT_THROW(convert(), OrdinaryFailure);
}

TEST_P(CallInTheOpen, PassesTheUnwindingSignalOn) {
  recorder.throwAt(GetParam().operation, 1, VexaGoToCaller());
  EXPECT_THROW(convert(), VexaGoToCaller);
}

INSTANTIATE_TEST_SUITE_P(
    Of, CallInTheOpen,
    ::testing::Values(
        OpenCall{"Locale", Operation::LocaleName, nothing, "<r/>"},
        OpenCall{"TemplateFile", Operation::Fetch, templateFile, "<r/>"},
        OpenCall{"TemplateMessage", Operation::BpError, templateFile, "<r/>"},
        OpenCall{"Format", Operation::FormatNumber, formattedVariable, "<r/>"},
        OpenCall{"EmptyReply", Operation::BpError, nothing, ""},
        OpenCall{"FailedTemplate", Operation::BpError, nothing, "<Lumoml success=\"false\"/>"},
        OpenCall{"Map", Operation::Fetch, nothing, "<mapInfo dataMapURI=\"a\"/>"},
        OpenCall{"MapMessage", Operation::BpError, nothing, "<mapInfo dataMapURI=\"a\"/>"},
        OpenCall{"MapCode", Operation::BpError, nothing, "<mapInfo errorCode=\"a\"/>"},
        OpenCall{"StyleSheetFile", Operation::Fetch, styleSheetFile, "<r/>"},
        OpenCall{"StyleSheetMessage", Operation::BpError, nothing, "<styleSheet success=\"false\"/>"},
        OpenCall{"StyleSheetLog", Operation::Error, nothing, "<styleSheet success=\"false\"/>"}));

TEST_F(Conversion, OfAFormatThatTheHostRefusesGoesOn) {
  formattedVariable(chart);
  recorder.failEvery(Operation::FormatNumber);
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\">",
                                     "  <lumoml:format errorCharacter=\"*\"/>", "</mapping>"}));
}

TEST_F(Conversion, KeepsTheMapCode) {
  XLumoTemplate::Data data;
  std::unique_ptr<xercesc::XercesDOMParser> const parser = makeChartParser();
  std::string errorText;
  auto const take = [&](std::string const& reply) {
    data.takeReply(*parsedText(reply, "reply", errorText, *parser), lumoML, styleSheet);
    return data.mMapErrorCode.toUTF8();
  };
  EXPECT_EQ(take("<mapInfo errorCode=\"a:b\"/>"), "a:b");
  EXPECT_EQ(take("<mapInfo/>"), "");
}

TEST_F(Conversion, ReadsTheTemplateUnderItsMisspeltName) {
  std::unique_ptr<xercesc::XercesDOMParser> const parser = makeChartParser();
  std::string errorText;
  auto const* const parsed = XLumoTemplate::Data::parsedTemplate("<a/>", errorText, *parser);
  ASSERT_NE(parsed, nullptr);
  EXPECT_EQ(utf8(parsed->getDocumentURI()), "ChartBasf");
}

static_assert(std::has_virtual_destructor_v<XLumoTemplate>);
static_assert(!std::is_copy_constructible_v<XLumoTemplate>);

}  // namespace
}  // namespace kestrel::test
