// Display texts on their way to the converter, and file names of URIs.

#include "template_fixture.h"
#include "xlumotemplate_data.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;

using Data = XLumoTemplate::Data;

// --- Display texts

struct EncodingCase {
  char const* folder;
  char const* encoding;
};
void PrintTo(EncodingCase const& test, std::ostream* out) { *out << test.folder; }

class Encoding : public LumoTemplateTest, public ::testing::WithParamInterface<EncodingCase> {};

TEST_P(Encoding, FollowsFromTheFolderBehindTheBasePath) {
  services.paths->base = "/product/";
  services.paths->dictionary = std::string("/product/") + GetParam().folder;
  Data::updateText("age");
  ASSERT_EQ(recorder.count(Operation::UpdateText), 1u);
  EXPECT_EQ(recorder.entries(Operation::UpdateText)[0].text("encoding"), GetParam().encoding);
}

INSTANTIATE_TEST_SUITE_P(Of, Encoding,
                         ::testing::Values(EncodingCase{"ru/", "CP1251"}, EncodingCase{"pl/", "CP1250"},
                                           EncodingCase{"zh_tw/", "CP950"}, EncodingCase{"zh-cn/", "CP936"},
                                           EncodingCase{"ko/", "CP949"}, EncodingCase{"ja/", "CP932"},
                                           EncodingCase{"en/", "CP1252"}, EncodingCase{"", "CP1252"},
                                           EncodingCase{"zh-tw/", "CP1252"}, EncodingCase{"RU/", "CP1252"},
                                           EncodingCase{"ru", "CP1251"}, EncodingCase{"ru/pl/", "CP1251"},
                                           EncodingCase{"/ru/", "CP1252"}));

class DisplayText : public LumoTemplateTest {};

TEST_F(DisplayText, IsLookedUpInTheDictionaryOfNoProcedure) {
  Data::updateText("\xC3\xA9t\xC3\xA9");
  EXPECT_THAT(
      recorder.lines(),
      ElementsAre("PathInstance::getDictionaryPath(kind=3)",
                  "FacSTDictionary::FacSTDictionary(path=\"/base/en/\")", "PathInstance::getBasePath(kind=3)",
                  "ChartBase::updateText(text=\"\xC3\xA9t\xC3\xA9\", encoding=\"CP1252\")",
                  "FacSTDictionary::LookUp(key=\"\xC3\xA9t\xC3\xA9\")"));
}

TEST_F(DisplayText, BecomesTheHostsOne) {
  services.texts->texts["age"] = "\xC3\xA2ge";
  EXPECT_EQ(Data::updateText("age"), "\xC3\xA2ge");
}

TEST_F(DisplayText, ThatTheHostDoesNotKnowStays) { EXPECT_EQ(Data::updateText("a\xC3\xA9"), "a\xC3\xA9"); }

TEST_F(DisplayText, OfADictionaryOutsideTheBaseHasTheUsualEncoding) {
  services.paths->base = "/a/very/long/base/";
  services.paths->dictionary = "/ru/";
  Data::updateText("age");
  EXPECT_EQ(recorder.entries(Operation::UpdateText).at(0).text("encoding"), "CP1252");
}

TEST_F(DisplayText, ThatFailsLeavesTheVariableOut) {
  chooseTemplate("pie");
  recorder.throwAt(Operation::UpdateText, 1, OrdinaryFailure());
  EXPECT_THROW(add({}), OrdinaryFailure);
  recorder.throwAt(Operation::UpdateText, 1, OrdinaryFailure());
  EXPECT_THROW(chart.addLabel(XLumoTemplate::LABEL_TITLE, "Ages"), OrdinaryFailure);
  expectNoReport(recorder);
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"local\" templateName=\"pie\"/>"}));
}

// --- URIs

struct UriCase {
  char const* uri;
  char const* file;
};
void PrintTo(UriCase const& test, std::ostream* out) { *out << test.uri; }

class Uri : public ::testing::TestWithParam<UriCase> {};

TEST_P(Uri, BecomesAFileName) {
  ChartString uri;
  uri.assignUTF8(GetParam().uri);
  Data::replaceSpecialChars(uri);
  EXPECT_EQ(uri.toUTF8(), GetParam().file);
}

INSTANTIATE_TEST_SUITE_P(WithoutItsScheme, Uri,
                         ::testing::Values(UriCase{"", ""}, UriCase{"+file:/C:/a%20b.map", "C:/a b.map"},
                                           UriCase{"file:///tmp/a.map", "//tmp/a.map"},
                                           UriCase{"file:/tmp/a.map", "/tmp/a.map"},
                                           UriCase{"+file:/a+file:/b", "ab"}, UriCase{"file:afile:b", "ab"},
                                           // A mark takes the form without one out of play.
                                           UriCase{"+a/file:b", "+a/file:b"}, UriCase{"a+file:/b", "a+/b"},
                                           UriCase{"FILE:/a", "FILE:/a"},
                                           UriCase{"http://a/b", "http://a/b"}));

INSTANTIATE_TEST_SUITE_P(WithEachEscape, Uri,
                         ::testing::Values(UriCase{"a///b///c", "a//b//c"}, UriCase{"////", "///"},
                                           UriCase{"a%20b%20", "a b "}, UriCase{"%22", "'"},
                                           UriCase{"%3C", "<"}, UriCase{"%3E", "<"}, UriCase{"%23", "#"},
                                           UriCase{"%25", "<"}, UriCase{"%7B", "{"}, UriCase{"%7D", "}"},
                                           UriCase{"%7C", "|"}, UriCase{"%5C", "\\"}, UriCase{"%5E", "^"},
                                           UriCase{"%7E", "~"}, UriCase{"%5B", "["}, UriCase{"%5D", "]"},
                                           UriCase{"%60", "`"}));

INSTANTIATE_TEST_SUITE_P(ByWholeReplacementsInTheirOrder, Uri,
                         ::testing::Values(UriCase{"%253E", "<3E"}, UriCase{"%2%205", "%2 5"},
                                           // Slashes come first: those that an escape leaves are not joined.
                                           UriCase{"/%2F//", "/%2F//"}, UriCase{"%3c%7b", "%3c%7b"},
                                           UriCase{"%41", "%41"}, UriCase{"%C3%A9", "%C3%A9"},
                                           UriCase{"\xC3\xA9", "\xC3\xA9"}));

}  // namespace
}  // namespace kestrel::test
