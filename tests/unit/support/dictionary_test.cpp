#include "support/dictionary.h"

#include "chart_test.h"

#include "host/log.h"

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

class Dictionary : public ChartTest {};

TEST_F(Dictionary, IsOpenedOnTheHostsPathForTheProcedureOfCharts) {
  recorder.services().paths->dictionary = "/base/pl/";
  ChartDictionary().text("Sunday");
  EXPECT_EQ(recorder.lines(), (std::vector<std::string>{
                                  "PathInstance::getDictionaryPath(kind=3)",
                                  "FacSTDictionary::FacSTDictionary(path=\"/base/pl/\")",
                                  "FacSTDictionary::SetProcedure(procedure=\"GRAPH\")",
                                  "FacSTDictionary::LookUp(key=\"Sunday\")",
                                  "OLang::GetLanguageCode()",
                              }));
}

TEST_F(Dictionary, GivesTheTranslation) {
  recorder.services().texts->texts["Sunday"] = "niedziela";
  EXPECT_EQ(ChartDictionary().text("Sunday").toUTF8(), "niedziela");
}

TEST_F(Dictionary, ReadsTranslationsInTheLocalCodePage) {
  recorder.services().texts->texts["March"] = "Mär";
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  EXPECT_EQ(ChartDictionary().text("March").toUTF8(), "Mär");
}

TEST_F(Dictionary, GivesAnEmptyTranslationAsItIs) {
  recorder.services().texts->texts["Sunday"] = "";
  EXPECT_TRUE(ChartDictionary().text("Sunday").empty());
}

TEST_F(Dictionary, GivesTheKeyWhereTheHostHasNoTranslation) {
  EXPECT_EQ(ChartDictionary().text("Sunday").toUTF8(), "Sunday");
}

}  // namespace
}  // namespace kestrel::test
