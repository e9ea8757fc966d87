#include "utf8.h"

#include <gtest/gtest.h>

using kestrel::tool::endOfByteOrderMark;
using kestrel::tool::findBadUtf8;

namespace {

constexpr std::size_t none = std::string_view::npos;

TEST(Utf8, AsciiIsWellFormed) { EXPECT_EQ(findBadUtf8("Adelie, 39.1\r\n"), none); }

TEST(Utf8, CharactersOfEachLengthAreWellFormed) {
  EXPECT_EQ(findBadUtf8("\xC3\xA9\xE2\x82\xAC\xF0\x9F\x90\xA7"), none);
}

TEST(Utf8, FirstAndLastCharacterOfEachLengthAreWellFormed) {
  EXPECT_EQ(findBadUtf8("\xC2\x80\xDF\xBF"), none);
  EXPECT_EQ(findBadUtf8("\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"), none);
  EXPECT_EQ(findBadUtf8("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), none);
}

TEST(Utf8, ALoneContinuationByteIsBad) { EXPECT_EQ(findBadUtf8("ab\x80"), 2u); }

TEST(Utf8, ALetterOfALatinCodePageIsBad) { EXPECT_EQ(findBadUtf8("caf\xE9,1"), 3u); }

TEST(Utf8, ACharacterThatIsCutIsBadWhereItBegins) {
  EXPECT_EQ(findBadUtf8("a\xC3"), 1u);
  EXPECT_EQ(findBadUtf8("a\xE2\x82"), 1u);
  EXPECT_EQ(findBadUtf8("a\xF0\x9F\x90"), 1u);
}

TEST(Utf8, OverlongFormsAreBad) {
  EXPECT_EQ(findBadUtf8("\xC0\x80"), 0u);
  EXPECT_EQ(findBadUtf8("\xC1\xBF"), 0u);
  EXPECT_EQ(findBadUtf8("\xE0\x9F\xBF"), 0u);
  EXPECT_EQ(findBadUtf8("\xF0\x8F\xBF\xBF"), 0u);
}

TEST(Utf8, SurrogatesAreBad) { EXPECT_EQ(findBadUtf8("x\xED\xA0\x80"), 1u); }

TEST(Utf8, WhatLiesBeyondUnicodeIsBad) {
  EXPECT_EQ(findBadUtf8("\xF4\x90\x80\x80"), 0u);
  EXPECT_EQ(findBadUtf8("\xF5\x80\x80\x80"), 0u);
  EXPECT_EQ(findBadUtf8("\xFF\xFE"), 0u);
}

TEST(Utf8, AByteOrderMarkHasThreeBytes) {
  EXPECT_EQ(endOfByteOrderMark("\xEF\xBB\xBF"
                               "a"),
            3u);
  EXPECT_EQ(endOfByteOrderMark("a\xEF\xBB\xBF"), 0u);
  EXPECT_EQ(endOfByteOrderMark(""), 0u);
}

}  // namespace
