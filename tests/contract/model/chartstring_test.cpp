#include "chart.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

std::string text(ChartString const& string) { return string.toUTF8(); }

TEST(ChartString, IsEmptyByItself) {
  ChartString const string;
  EXPECT_TRUE(string.empty());
  EXPECT_EQ(string.length(), 0U);
  ASSERT_NE(string.xc_str(), nullptr);
  EXPECT_EQ(*string.xc_str(), u'\0');
}

TEST(ChartString, FromNullIsEmpty) {
  EXPECT_TRUE(ChartString(static_cast<char const*>(nullptr)).empty());
  EXPECT_TRUE(ChartString(static_cast<char16_t const*>(nullptr)).empty());
}

TEST(ChartString, IsMadeOfEveryKindOfText) {
  EXPECT_EQ(text(ChartString("narrow")), "narrow");
  EXPECT_EQ(text(ChartString(u"wide")), "wide");
  EXPECT_EQ(text(ChartString(18446744073709551615UL)), "18446744073709551615");
  ChartString const original(u"copied");
  ChartString const copy(original);
  EXPECT_EQ(text(copy), "copied");
}

TEST(ChartString, MovesItsText) {
  ChartString original(u"a text that is long enough to stand on the heap");
  char16_t const* const place = original.xc_str();
  ChartString const moved(std::move(original));
  EXPECT_EQ(moved.xc_str(), place);
}

TEST(ChartString, TakesEveryKindOfTextByAssignment) {
  ChartString string(u"before");
  string = u"wide";
  EXPECT_EQ(text(string), "wide");
  string = "narrow";
  EXPECT_EQ(text(string), "narrow");
  string = 7UL;
  EXPECT_EQ(text(string), "7");
  string = ChartString(u"other");
  EXPECT_EQ(text(string), "other");
  string = static_cast<char16_t const*>(nullptr);
  EXPECT_TRUE(string.empty());
}

TEST(ChartString, TakesEveryKindOfTextByAssign) {
  ChartString string(u"before");
  string.assign(u"wide");
  EXPECT_EQ(text(string), "wide");
  string.assign("narrow");
  EXPECT_EQ(text(string), "narrow");
  string.assign(70UL);
  EXPECT_EQ(text(string), "70");
  string.assign(71U);
  EXPECT_EQ(text(string), "71");
  string.assign(ChartString(u"other"));
  EXPECT_EQ(text(string), "other");
  string.assign(u'c');
  EXPECT_EQ(text(string), "c");
  string.assign(static_cast<char const*>(nullptr));
  EXPECT_TRUE(string.empty());
}

TEST(ChartString, TakesARange) {
  char16_t const* const all = u"abcdef";
  ChartString string(u"before");
  string.assign(all + 1, all + 4);
  EXPECT_EQ(text(string), "bcd");
  string.assign(all, all);
  EXPECT_TRUE(string.empty());
  string.assign(u"before");
  string.assign(all + 2, all + 1);
  EXPECT_TRUE(string.empty());
  string.assign(u"before");
  string.assign(static_cast<char16_t const*>(nullptr), static_cast<char16_t const*>(nullptr));
  EXPECT_TRUE(string.empty());
}

TEST(ChartString, AppendsEveryKindOfText) {
  ChartString string;
  string.append(ChartString(u"a"));
  string.append("b");
  string.append(u"c");
  string.append(u'd');
  string.append(5UL);
  string.append(6U);
  string.appendInteger(-7);
  string.append(static_cast<char16_t const*>(nullptr));
  string.append(static_cast<char const*>(nullptr));
  EXPECT_EQ(text(string), "abcd56-7");
}

TEST(ChartString, AppendsItself) {
  ChartString string(u"0123456789");
  for (int i = 0; i < 3; ++i) string.append(string.xc_str());
  string.append(string);
  EXPECT_EQ(string.length(), 160U);
  EXPECT_EQ(text(string).substr(150), "0123456789");
}

TEST(ChartString, AssignsAPartOfItself) {
  ChartString string(u"0123456789");
  string.assign(string.xc_str() + 5);
  EXPECT_EQ(text(string), "56789");
  string.assign(string);
  EXPECT_EQ(text(string), "56789");
}

TEST(ChartString, WritesIntegersOfEverySize) {
  ChartString string(u"before");
  string.assignInteger(-9223372036854775807L - 1);
  EXPECT_EQ(text(string), "-9223372036854775808");
  string.assignInteger(0);
  EXPECT_EQ(text(string), "0");
}

struct Shortest {
  double value;
  char const* text;
};

class ShortestNumber : public testing::TestWithParam<Shortest> {};

TEST_P(ShortestNumber, IsAppended) {
  ChartString string(u"=");
  string.appendDouble(GetParam().value);
  EXPECT_EQ(text(string), std::string("=") + GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Model, ShortestNumber,
                         testing::Values(Shortest{1, "1"}, Shortest{0.5, "0.5"}, Shortest{-0.0, "-0"},
                                         Shortest{2.8, "2.8"}, Shortest{0, "0"}, Shortest{-3.25, "-3.25"},
                                         Shortest{100, "100"}, Shortest{0.1 + 0.2, "0.30000000000000004"},
                                         Shortest{1e-5, "0.00001"}, Shortest{1.5e-5, "0.000015"},
                                         Shortest{9.9e-6, "9.9e-6"}, Shortest{1e15, "1000000000000000"},
                                         Shortest{123456789012345678.0, "1.2345678901234568e17"},
                                         Shortest{9999999999999998.0, "9999999999999998"},
                                         Shortest{1e16, "10000000000000000"}, Shortest{2e16, "2e16"},
                                         Shortest{-1e17, "-1e17"},
                                         Shortest{1.7976931348623157e308, "1.7976931348623157e308"},
                                         Shortest{5e-324, "5e-324"}, Shortest{1234.5678, "1234.5678"}));

struct Rounded {
  double value;
  unsigned int digits;
  char const* text;
};

class RoundedNumber : public testing::TestWithParam<Rounded> {};

TEST_P(RoundedNumber, IsAssigned) {
  ChartString string(u"before");
  string.assignDouble(GetParam().value, GetParam().digits);
  EXPECT_EQ(text(string), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Model, RoundedNumber,
                         testing::Values(Rounded{0.1 + 0.2, 16, "0.3"}, Rounded{1.5, 16, "1.5"},
                                         Rounded{10, 16, "10"}, Rounded{-0.0, 16, "-0"},
                                         Rounded{2.0 / 3, 16, "0.6666666666666666"},
                                         Rounded{123456, 3, "123000"}, Rounded{0.00012345, 2, "0.00012"},
                                         Rounded{9.99, 2, "10"}, Rounded{99999, 1, "100000"},
                                         Rounded{1e16, 16, "10000000000000000"}, Rounded{3e16, 16, "3e16"},
                                         Rounded{1e-6, 16, "1e-6"}, Rounded{9.9999e-6, 2, "0.00001"},
                                         Rounded{1.25, 0, "1"}, Rounded{0.1, 17, "0.10000000000000001"},
                                         Rounded{0.1, 40, "0.10000000000000001"}, Rounded{253, 16, "253"}));

TEST(ChartString, WritesWhatIsNoNumber) {
  ChartString string;
  string.appendDouble(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(text(string), "NaN");
  string.assignDouble(std::numeric_limits<double>::infinity(), 16);
  EXPECT_EQ(text(string), "INF");
  string.assignDouble(-std::numeric_limits<double>::infinity(), 16);
  EXPECT_EQ(text(string), "-INF");
}

TEST(ChartString, NumbersIgnoreTheLocale) {
  char const* const before = std::setlocale(LC_ALL, nullptr);
  std::string const kept(before);
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  ChartString string;
  string.appendDouble(1234.5);
  std::setlocale(LC_ALL, kept.c_str());
  EXPECT_EQ(text(string), "1234.5");
}

TEST(ChartString, ReadsAndWritesUtf8) {
  std::string const utf8Text = "A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
  ChartString string;
  string.assignUTF8(utf8Text);
  EXPECT_EQ(string.length(), 5U);
  EXPECT_TRUE(string.equals(u"A\u00E4\u20AC\U0001F600"));
  EXPECT_EQ(text(string), utf8Text);
}

TEST(ChartString, KeepsEveryCharacterThroughUtf8) {
  std::u16string all;
  for (char32_t code = 1; code < 0x110000; code += 0x53) {
    if (code >= 0xD800 && code <= 0xDFFF) continue;
    if (code < 0x10000) {
      all.push_back(static_cast<char16_t>(code));
    } else {
      all.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
      all.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
    }
  }
  ChartString const original(all.c_str());
  ChartString back;
  back.assignUTF8(original.toUTF8());
  EXPECT_TRUE(back.equals(original));
}

TEST(ChartString, WhatIsNoUtf8BecomesTheReplacementCharacter) {
  constexpr char bad[] = "\xEF\xBF\xBD";
  for (std::string const bytes :
       {"\x80", "\xC3", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\xFF"}) {
    ChartString string;
    string.assignUTF8("a" + bytes + "b");
    EXPECT_TRUE(text(string).starts_with(std::string("a") + bad)) << text(string);
    EXPECT_TRUE(text(string).ends_with("b")) << text(string);
  }
}

TEST(ChartString, AnEmbeddedZeroEndsNothing) {
  ChartString string;
  string.assignUTF8(std::string("a\0b", 3));
  EXPECT_EQ(string.length(), 3U);
  EXPECT_EQ(string.toUTF8(), std::string("a\0b", 3));
}

TEST(ChartString, HalfASurrogatePairBecomesTheReplacementCharacter) {
  char16_t const halves[] = {0xDC00, u'a', 0xD83D, 0};
  EXPECT_EQ(text(ChartString(halves)),
            "\xEF\xBF\xBD"
            "a\xEF\xBF\xBD");
}

TEST(ChartString, ComparesExactly) {
  ChartString const string(u"Source0");
  EXPECT_TRUE(string.equals(u"Source0"));
  EXPECT_FALSE(string.equals(u"source0"));
  EXPECT_FALSE(string.equals(u"Source01"));
  EXPECT_TRUE(string.equals(ChartString("Source0")));
  EXPECT_TRUE(string == ChartString("Source0"));
  EXPECT_TRUE(ChartString(u"a") < ChartString(u"b"));
  EXPECT_FALSE(ChartString(u"b") < ChartString(u"b"));
}

TEST(ChartString, ComparesWithoutRegardToCase) {
  EXPECT_TRUE(ChartString(u"Source0").equalsi(u"sOURCE0"));
  EXPECT_FALSE(ChartString(u"Source0").equalsi(u"source1"));
  EXPECT_FALSE(ChartString(u"Source0").equalsi(u"source"));
  EXPECT_TRUE(ChartString(u"\u00C4\u0416").equalsi(ChartString(u"\u00E4\u0436")));
}

TEST(ChartString, NullComparesAsEmpty) {
  EXPECT_TRUE(ChartString().equals(static_cast<char16_t const*>(nullptr)));
  EXPECT_FALSE(ChartString(u"a").equals(static_cast<char16_t const*>(nullptr)));
  EXPECT_TRUE(ChartString().equalsi(static_cast<char16_t const*>(nullptr)));
  EXPECT_FALSE(ChartString(u"a").equalsi(static_cast<char16_t const*>(nullptr)));
  EXPECT_FALSE(ChartString().equalsi(u"a"));
}

TEST(ChartString, FindsWhatItContains) {
  ChartString const string(u"element_errorbar_1");
  EXPECT_TRUE(string.ContainsString(u"errorbar"));
  EXPECT_TRUE(string.ContainsString(u"element_errorbar_1"));
  EXPECT_FALSE(string.ContainsString(u"ErrorBar"));
  EXPECT_FALSE(string.ContainsString(u"element_errorbar_12"));
  EXPECT_TRUE(string.ContainsString(u""));
}

TEST(ChartString, ReplacesCharacters) {
  ChartString string(u"en_US_x");
  string.replaceChars(u'_', u'-');
  EXPECT_EQ(text(string), "en-US-x");
}

TEST(ChartString, ReplacesEveryOccurrence) {
  ChartString string(u"a\\nb\\n\\nc");
  string.replaceSubstring(u"\\n", u"\n");
  EXPECT_EQ(text(string), "a\nb\n\nc");
}

TEST(ChartString, ReplacesFromLeftToRightWithoutOverlap) {
  ChartString string(u"aaaaa");
  string.replaceSubstring(u"aa", u"a");
  EXPECT_EQ(text(string), "aaa");
}

TEST(ChartString, ReplacesByLongerShorterAndNothing) {
  ChartString string(u"a b");
  string.replaceSubstring(u" ", u"   ");
  EXPECT_EQ(text(string), "a   b");
  string.replaceSubstring(u"   ", u"");
  EXPECT_EQ(text(string), "ab");
  string.replaceSubstring(u"a", nullptr);
  EXPECT_EQ(text(string), "b");
}

TEST(ChartString, ReplacesNothingForAnEmptyText) {
  ChartString string(u"ab");
  string.replaceSubstring(u"", u"x");
  string.replaceSubstring(nullptr, u"x");
  EXPECT_EQ(text(string), "ab");
}

TEST(ChartString, TrimsBothEnds) {
  ChartString string(u" \t\r\n a b \n ");
  string.trimSpaces(true);
  EXPECT_EQ(text(string), "a b");
}

TEST(ChartString, TrimsItsEndAlone) {
  ChartString string(u"  a  ");
  string.trimSpaces(false);
  EXPECT_EQ(text(string), "  a");
}

TEST(ChartString, OfBlanksTrimsToNothing) {
  for (bool const leading : {true, false}) {
    ChartString string(u" \t ");
    string.trimSpaces(leading);
    EXPECT_TRUE(string.empty());
  }
}

TEST(ChartString, DropsItsLastCharacters) {
  ChartString string(u"sourceVariable0c");
  string.truncateString(1);
  EXPECT_EQ(text(string), "sourceVariable0");
  string.truncateString(0);
  EXPECT_EQ(text(string), "sourceVariable0");
  string.truncateString(100);
  EXPECT_TRUE(string.empty());
  string.truncateString(1);
  EXPECT_TRUE(string.empty());
}

TEST(ChartString, DropsNoHalfOfAPair) {
  ChartString string(u"a\U0001F600");
  string.truncateString(1);
  EXPECT_EQ(text(string), "a");
}

TEST(ChartString, TransliteratesForEnglish) {
  EXPECT_EQ(ChartString(u"plain ASCII, 1").toUTF8ForEng(), "plain ASCII, 1");
  EXPECT_EQ(ChartString(u"\u00C4rger \u0416\u0443\u043A").toUTF8ForEng(), "Arger Zuk");
  EXPECT_EQ(ChartString(u"a\U0001F600b").toUTF8ForEng(), "ab");
}

/// Puts the code page back.
class CodePages : public testing::Test {
 protected:
  ~CodePages() override { ChartString::setLocalCodePage(before); }
  std::string before = ChartString::localCodePage();
};

TEST_F(CodePages, AreUtf8ByThemselves) {
  EXPECT_EQ(ChartString::localCodePage(), "UTF-8");
  EXPECT_TRUE(ChartString("\xC3\xA4").equals(u"\u00E4"));
}

TEST_F(CodePages, DecodeNarrowText) {
  ChartString::setLocalCodePage("CP1252");
  EXPECT_EQ(ChartString::localCodePage(), "CP1252");
  ChartString string("\xE4\x80");
  EXPECT_TRUE(string.equals(u"\u00E4\u20AC"));
  string.append("\xE4");
  string.assign("\xDF");
  EXPECT_TRUE(string.equals(u"\u00DF"));
}

TEST_F(CodePages, LeaveUtf8TextAlone) {
  ChartString::setLocalCodePage("CP1251");
  ChartString string;
  string.assignUTF8("\xC3\xA4");
  EXPECT_TRUE(string.equals(u"\u00E4"));
}

TEST_F(CodePages, OfSeveralBytesAreDecoded) {
  EXPECT_TRUE(ChartString::fromCodePage("\x93\xFA\x96\x7B", "CP932").equals(u"\u65E5\u672C"));
  EXPECT_TRUE(ChartString::fromCodePage("\xD6\xD0", "CP936").equals(u"\u4E2D"));
  EXPECT_TRUE(ChartString::fromCodePage("\xA4\xA4", "CP950").equals(u"\u4E2D"));
  EXPECT_TRUE(ChartString::fromCodePage("\xB0\xA1", "CP949").equals(u"\uAC00"));
}

TEST_F(CodePages, KeepTheBackslashOfKorean) {
  EXPECT_TRUE(ChartString::fromCodePage("\\n", "CP949").equals(u"\\n"));
}

TEST_F(CodePages, TurnBadBytesIntoTheReplacementCharacter) {
  EXPECT_TRUE(ChartString::fromCodePage("a\xFF", "CP932").ContainsString(u"\uFFFD"));
}

TEST_F(CodePages, ThatAreUnknownAreRefused) {
  ChartString::setLocalCodePage("CP1252");
  EXPECT_THROW(ChartString::setLocalCodePage("no such page"), std::invalid_argument);
  EXPECT_THROW(ChartString::setLocalCodePage(""), std::invalid_argument);
  EXPECT_THROW(ChartString::fromCodePage("a", "no such page"), std::invalid_argument);
  EXPECT_EQ(ChartString::localCodePage(), "CP1252");
}

TEST_F(CodePages, DecodeLongText) {
  EXPECT_EQ(ChartString::fromCodePage(std::string(100'000, '\xE4'), "CP1252").length(), 100'000U);
}

}  // namespace
