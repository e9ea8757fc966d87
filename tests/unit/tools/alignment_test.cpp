#include "inspect/alignment.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>
#include <string>

using kestrel::tool::align;
using kestrel::tool::Pairing;
using testing::IsEmpty;

namespace {

/// The two texts side by side: a letter that both have, or one with the mark of its side.
std::string aligned(std::string const& left, std::string const& right, std::size_t mostEdits = 1000) {
  auto const equal = [&](std::size_t one, std::size_t other) { return left[one] == right[other]; };
  std::string text;
  for (Pairing const& pairing : align(left.size(), right.size(), equal, mostEdits)) {
    if (!pairing.right) text += '-';
    if (!pairing.left) text += '+';
    text += pairing.left ? left[*pairing.left] : right[*pairing.right];
  }
  return text;
}

TEST(Alignment, OfEqualLists) { EXPECT_EQ(aligned("abc", "abc"), "abc"); }
TEST(Alignment, OfEmptyLists) { EXPECT_EQ(aligned("", ""), ""); }
TEST(Alignment, OfAListAndNothing) {
  EXPECT_EQ(aligned("ab", ""), "-a-b");
  EXPECT_EQ(aligned("", "ab"), "+a+b");
}
TEST(Alignment, OfListsWithNothingInCommon) { EXPECT_EQ(aligned("ab", "xy"), "-a-b+x+y"); }
TEST(Alignment, PutsWhatWasReplacedFirst) { EXPECT_EQ(aligned("abc", "axc"), "a-b+xc"); }
TEST(Alignment, FindsWhatIsLeftOut) { EXPECT_EQ(aligned("abcd", "acd"), "a-bcd"); }
TEST(Alignment, FindsWhatIsPutIn) { EXPECT_EQ(aligned("acd", "abcd"), "a+bcd"); }
TEST(Alignment, FindsSeveralChanges) { EXPECT_EQ(aligned("abcdefg", "xbcdfgy"), "-a+xbcd-efg+y"); }
TEST(Alignment, GivesUpBeyondItsLimitButKeepsTheEnds) {
  EXPECT_EQ(aligned("a123b", "ax2yb", 4), "a-1+x2-3+yb");
  EXPECT_EQ(aligned("a123b", "ax2yb", 3), "a-1-2-3+x+2+yb");
}

/// The number of items that two lists have in common in order, by the table that everybody knows.
std::size_t mostInCommon(std::string const& left, std::string const& right) {
  std::vector<std::vector<std::size_t>> table(left.size() + 1, std::vector<std::size_t>(right.size() + 1));
  for (std::size_t i = 0; i < left.size(); ++i) {
    for (std::size_t j = 0; j < right.size(); ++j) {
      table[i + 1][j + 1] =
          left[i] == right[j] ? table[i][j] + 1 : std::max(table[i][j + 1], table[i + 1][j]);
    }
  }
  return table[left.size()][right.size()];
}

TEST(Alignment, HasEachItemOnceInOrderAndAsManyPairsAsPossible) {
  std::minstd_rand random(7);
  auto const text = [&] {
    std::string letters(random() % 12, ' ');
    for (char& letter : letters) letter = static_cast<char>('a' + random() % 3);
    return letters;
  };
  for (int i = 0; i < 2000; ++i) {
    std::string const left = text();
    std::string const right = text();
    std::string leftAgain;
    std::string rightAgain;
    std::size_t pairs = 0;
    auto const equal = [&](std::size_t one, std::size_t other) { return left[one] == right[other]; };
    for (Pairing const& pairing : align(left.size(), right.size(), equal)) {
      if (pairing.left) leftAgain += left.at(*pairing.left);
      if (pairing.right) rightAgain += right.at(*pairing.right);
      if (!pairing.left || !pairing.right) continue;
      ++pairs;
      EXPECT_EQ(left[*pairing.left], right[*pairing.right]);
    }
    ASSERT_EQ(leftAgain, left);
    ASSERT_EQ(rightAgain, right);
    ASSERT_EQ(pairs, mostInCommon(left, right)) << left << " " << right;
  }
}

}  // namespace
