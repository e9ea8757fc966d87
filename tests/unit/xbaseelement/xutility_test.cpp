#include "xutility.h"

#include "chart_test.h"

#include <string>

namespace kestrel::test {
namespace {

using host::Operation;

class ColorText : public ::testing::Test {};
class LocalText : public ChartTest {};
class DictionaryText : public ChartTest {};

TEST_F(ColorText, HasTwoLowerCaseDigitsForEachComponentInTheOrderRedGreenBlue) {
  EXPECT_EQ(XUtility::chartStringFromRGB(255, 0, 16).toUTF8(), "#ff0010");
  EXPECT_EQ(XUtility::chartStringFromRGB(1, 35, 69).toUTF8(), "#012345");
  EXPECT_EQ(XUtility::chartStringFromRGB(103, 137, 171).toUTF8(), "#6789ab");
  EXPECT_EQ(XUtility::chartStringFromRGB(205, 239, 0).toUTF8(), "#cdef00");
}

TEST_F(ColorText, CountsAComponentAbove255As255) {
  EXPECT_EQ(XUtility::chartStringFromRGB(300, 1, 2).toUTF8(), "#ff0102");
  EXPECT_EQ(XUtility::chartStringFromRGB(0, 256, 4294967295U).toUTF8(), "#00ffff");
}

TEST_F(LocalText, IsReadInTheLocalCodePage) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  EXPECT_EQ(XUtility::ChartStringFromLocalCodePage("M\xE4rz").toUTF8(), "März");
}

TEST_F(LocalText, IsReadAsUTF8WhereTheHostSaysNothingElse) {
  EXPECT_EQ(XUtility::ChartStringFromLocalCodePage("März").toUTF8(), "März");
}

TEST_F(LocalText, IsEmptyForANullText) {
  EXPECT_TRUE(XUtility::ChartStringFromLocalCodePage(nullptr).empty());
}

TEST_F(LocalText, AsksTheHostForNoLanguage) {
  XUtility::ChartStringFromLocalCodePage("text");
  EXPECT_EQ(recorder.count(Operation::LanguageCode), 0u);
}

TEST_F(DictionaryText, AsksTheHostForTheLanguageOnce) {
  XUtility::ChartStringFromOLANG("text");
  EXPECT_EQ(recorder.count(Operation::LanguageCode), 1u);
}

TEST_F(DictionaryText, IsReadInTheLocalCodePageWhateverTheLanguageIs) {
  recorder.services().locale->page = "windows-1252";
  host::ScopedHost const scope(recorder.host());
  for (char const* language : {"ru", "pl", "zh-tw", "zh-cn", "ko", "ja", "en", "RU", ""}) {
    recorder.services().locale->language = language;
    EXPECT_EQ(XUtility::ChartStringFromOLANG("M\xE4rz").toUTF8(), "März") << language;
  }
}

TEST_F(DictionaryText, IsEmptyForANullText) { EXPECT_TRUE(XUtility::ChartStringFromOLANG(nullptr).empty()); }

}  // namespace
}  // namespace kestrel::test
