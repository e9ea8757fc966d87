#include "chart/nearest_name.h"
#include "inspect/safe_name.h"
#include "problem.h"

#include <gtest/gtest.h>

using kestrel::tool::counted;
using kestrel::tool::grouped;
using kestrel::tool::NameList;
using kestrel::tool::nearestName;
using kestrel::tool::printable;
using kestrel::tool::safeName;

namespace {

std::vector<std::string> const columns = {"species", "bill_length_mm", "bill_depth_mm", "body_mass_g", "sex"};

TEST(NearestName, IsOneWithATypingError) { EXPECT_EQ(nearestName("speces", columns), "species"); }

TEST(NearestName, IsOneInAnotherCase) { EXPECT_EQ(nearestName("SEX", columns), "sex"); }

TEST(NearestName, IsOneThatTheTextIsPartOf) { EXPECT_EQ(nearestName("body_mass", columns), "body_mass_g"); }

TEST(NearestName, IsTheNearerOfTwo) { EXPECT_EQ(nearestName("bill_depth", columns), "bill_depth_mm"); }

TEST(NearestName, IsNoneWhereNothingIsNear) { EXPECT_EQ(nearestName("year", columns), ""); }

TEST(NearestName, IsNoneThatIsOnlyAShortPart) { EXPECT_EQ(nearestName("elevation", {"a", "on"}), ""); }

TEST(NearestName, IsNoneWithoutOneLetterInCommon) { EXPECT_EQ(nearestName("x", {"a", "b"}), ""); }

TEST(NearestName, IsNoneForAnEmptyText) { EXPECT_EQ(nearestName("", {"", "a"}), ""); }

TEST(SafeName, KeepsAPlainName) { EXPECT_EQ(safeName("penguins-2.csv", "usual"), "penguins-2.csv"); }

TEST(SafeName, IsTheLastPartOfAPath) {
  EXPECT_EQ(safeName("/etc/passwd", "usual"), "passwd");
  EXPECT_EQ(safeName("..\\..\\boot.ini", "usual"), "boot.ini");
  EXPECT_EQ(safeName("a/b\\c.csv", "usual"), "c.csv");
}

TEST(SafeName, NeverLeadsUpOrHides) {
  EXPECT_EQ(safeName("..", "usual"), "usual");
  EXPECT_EQ(safeName(".", "usual"), "usual");
  EXPECT_EQ(safeName("../..", "usual"), "usual");
  EXPECT_EQ(safeName(".profile", "usual"), "profile");
}

TEST(SafeName, IsTheUsualOneWhereNothingIsLeft) {
  EXPECT_EQ(safeName("", "usual"), "usual");
  EXPECT_EQ(safeName("dir/", "usual"), "usual");
  EXPECT_EQ(safeName("\xFF\xFF", "usual"), "usual");
}

TEST(SafeName, HasNoCharactersThatMeanSomething) {
  EXPECT_EQ(safeName(std::string("a b\n\0c:*?\"<>|$`;.csv", 20), "usual"), "a_b__c__________.csv");
}

TEST(SafeName, KeepsLettersOfOtherScripts) {
  EXPECT_EQ(safeName("d\xC3\xA9j\xC3\xA0.csv", "usual"), "d\xC3\xA9j\xC3\xA0.csv");
}

TEST(SafeName, IsNotTooLongAndEndsWithAWholeCharacter) {
  EXPECT_EQ(safeName(std::string(500, 'x'), "usual"), std::string(120, 'x'));
  EXPECT_EQ(safeName(std::string(119, 'x') + "\xC3\xA9", "usual"), std::string(119, 'x'));
}

TEST(NameList, GivesEachNameOnce) {
  NameList names;
  EXPECT_EQ(names.take("a.csv"), "a.csv");
  EXPECT_EQ(names.take("a.csv"), "a-2.csv");
  EXPECT_EQ(names.take("a.csv"), "a-3.csv");
  EXPECT_EQ(names.take("image-4"), "image-4");
  EXPECT_EQ(names.take("image-4"), "image-4-2");
}

TEST(NameList, TakesLettersOfEitherCaseForTheSame) {
  NameList names;
  names.take("chart.xml");
  EXPECT_EQ(names.take("Chart.XML"), "Chart-2.XML");
}

TEST(NameList, PassesByANameThatIsTakenAlready) {
  NameList names;
  names.take("a-2.csv");
  names.take("a.csv");
  EXPECT_EQ(names.take("a.csv"), "a-3.csv");
}

TEST(UserText, HasNoControlCharacters) { EXPECT_EQ(printable("a\x1B[31m\r\nb\x7F"), "a?[31m??b?"); }

TEST(UserText, CountsInGroupsOfThreeDigits) {
  EXPECT_EQ(grouped(0), "0");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1000), "1,000");
  EXPECT_EQ(grouped(1234567), "1,234,567");
  EXPECT_EQ(counted(1, "row"), "1 row");
  EXPECT_EQ(counted(0, "row"), "0 rows");
}

}  // namespace
