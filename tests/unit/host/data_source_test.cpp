#include "kestrelhost/data_source.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace kestrel::host;

namespace {

std::string bytesOf(OBS const* cell, std::size_t count) {
  return {reinterpret_cast<char const*>(cell), count};
}

TEST(MemoryDataSourceTest, FindsVariablesByName) {
  MemoryDataSource source;
  source.addNumbers("body_mass_g", {1});
  source.addNumbers("species", {2});
  source.addNumbers("species", {3});
  Vexa_DataSource const& host = source;
  EXPECT_EQ(host.FindVarIndex("body_mass_g", 0), 0);
  EXPECT_EQ(host.FindVarIndex("species", 0), 1);
  EXPECT_EQ(host.FindVarIndex("Species", 0), -1);
  EXPECT_EQ(host.FindVarIndex("", 0), -1);
  EXPECT_EQ(host.FindVarIndex(nullptr, 0), -1);
}

TEST(MemoryDataSourceTest, GivesNameLabelAndFormat) {
  MemoryDataSource source;
  MemoryVariable& variable = source.addNumbers("age", {1}, Vexa_Format(Vexa_Format::FormatNumber, 6, 1));
  EXPECT_STREQ(variable.GetLabel(), "");
  variable.setLabel("Age in years");
  EXPECT_STREQ(variable.GetName(), "age");
  EXPECT_STREQ(variable.GetLabel(), "Age in years");
  EXPECT_EQ(variable.GetFormat().Width(), 6);
  EXPECT_EQ(variable.GetFormat().Decimals(), 1);
}

TEST(MemoryDataSourceTest, WalksItsCases) {
  MemoryDataSource source;
  source.addNumbers("x", {1.5, systemMissing});
  source.addNumbers("y", {-2, 3});
  MemoryCaseIterator iterator(source);
  ASSERT_TRUE(iterator.next());
  EXPECT_EQ(iterator.GetObsPointer(0)->number(), 1.5);
  EXPECT_EQ(iterator.GetObsPointer(1)->number(), -2);
  ASSERT_TRUE(iterator.next());
  EXPECT_EQ(iterator.GetObsPointer(0)->number(), systemMissing);
  EXPECT_FALSE(iterator.next());
  EXPECT_FALSE(iterator.next());
}

TEST(MemoryDataSourceTest, CountsItsCasesFromOne) {
  MemoryDataSource source;
  source.addNumbers("x", {1, 2});
  MemoryCaseIterator iterator(source);
  EXPECT_EQ(iterator.GetCaseNumber(), 0);
  iterator.next();
  EXPECT_EQ(iterator.GetCaseNumber(), 1);
  iterator.next();
  ProcDSIterator const& host = iterator;
  EXPECT_EQ(host.GetCaseNumber(), 2);
}

TEST(MemoryDataSourceTest, HasNoCellOutsideItsCasesAndVariables) {
  MemoryDataSource source;
  source.addNumbers("x", {1});
  MemoryCaseIterator iterator(source);
  EXPECT_EQ(iterator.GetObsPointer(0), nullptr);
  iterator.next();
  EXPECT_NE(iterator.GetObsPointer(0), nullptr);
  EXPECT_EQ(iterator.GetObsPointer(1), nullptr);
  iterator.next();
  EXPECT_EQ(iterator.GetObsPointer(0), nullptr);
}

TEST(MemoryDataSourceTest, BacksTextsByTheirWholeWidth) {
  MemoryDataSource source;
  MemoryVariable const& variable = source.addTexts("name", {"ab", "a longer name"}, 20);
  EXPECT_EQ(variable.GetFormat().TypeEx(), 1u);
  EXPECT_EQ(variable.GetFormat().Width(), 20);
  MemoryCaseIterator iterator(source);
  iterator.next();
  EXPECT_EQ(bytesOf(iterator.GetObsPointer(0), 20), "ab                  ");
  iterator.next();
  EXPECT_EQ(bytesOf(iterator.GetObsPointer(0), 20), "a longer name       ");
}

TEST(MemoryDataSourceTest, MakesATextAsWideAsItsLongestValue) {
  MemoryDataSource source;
  EXPECT_EQ(source.addTexts("a", {"", "abc"}).GetFormat().Width(), 3);
  EXPECT_EQ(source.addTexts("b", {"", ""}).GetFormat().Width(), 1);
}

TEST(MemoryDataSourceTest, RefusesATextThatIsTooLong) {
  MemoryDataSource source;
  EXPECT_THROW(source.addTexts("a", {"abc"}, 2), std::length_error);
  EXPECT_THROW(source.addTexts("a", {std::string(65536, 'x')}), std::length_error);
  EXPECT_EQ(source.variableCount(), 0u);
}

TEST(MemoryDataSourceTest, RefusesAColumnOfAnotherLength) {
  MemoryDataSource source;
  source.addNumbers("x", {1, 2});
  EXPECT_THROW(source.addNumbers("y", {1}), std::invalid_argument);
  EXPECT_THROW(source.addTexts("z", {"a", "b", "c"}), std::invalid_argument);
  EXPECT_EQ(source.variableCount(), 1u);
}

TEST(MemoryDataSourceTest, RefusesAFormatThatDoesNotFit) {
  MemoryDataSource source;
  Vexa_Format const text(Vexa_Format::FormatString, 8, 0);
  EXPECT_THROW(source.addNumbers("x", {1}, text), std::invalid_argument);
  EXPECT_THROW(source.addNumbers("x", {1}).setFormat(text), std::invalid_argument);
  EXPECT_THROW(source.addTexts("y", {"a"}, 4).setFormat(text), std::invalid_argument);
}

TEST(MemoryDataSourceTest, HasDates) {
  MemoryDataSource source;
  EXPECT_EQ(source.addNumbers("day", {0}, MemoryDataSource::usualDate).GetFormat().TypeEx(), 20u);
}

std::vector<std::pair<double, std::string>> labelsOf(Vexa_Variable const& variable) {
  Vexa_ValueLabelMap const map(variable.GetValueLabels());
  std::vector<std::pair<double, std::string>> pairs;
  OBS const* value = nullptr;
  char const* label = nullptr;
  while (map.GetNextPair(value, label) != 0) pairs.emplace_back(value->number(), label);
  return pairs;
}

TEST(MemoryDataSourceTest, HasValueLabels) {
  MemoryDataSource source;
  MemoryVariable& variable = source.addNumbers("answer", {1});
  EXPECT_TRUE(labelsOf(variable).empty());
  variable.addValueLabel(2, "No");
  variable.addValueLabel(1, "Yes");
  std::vector<std::pair<double, std::string>> const expected = {{2, "No"}, {1, "Yes"}};
  EXPECT_EQ(labelsOf(variable), expected);
}

TEST(MemoryDataSourceTest, HasValueLabelsOfTexts) {
  MemoryDataSource source;
  MemoryVariable& variable = source.addTexts("code", {"a"}, 12);
  variable.addValueLabel("ab", "First");
  variable.addValueLabel("a text that is too long", "Second");
  Vexa_ValueLabelMap const map(variable.GetValueLabels());
  OBS const* value = nullptr;
  char const* label = nullptr;
  ASSERT_EQ(map.GetNextPair(value, label), 1);
  EXPECT_EQ(bytesOf(value, 12), "ab          ");
  EXPECT_STREQ(label, "First");
  ASSERT_EQ(map.GetNextPair(value, label), 1);
  EXPECT_EQ(bytesOf(value, 12), "a text that ");
}

TEST(MemoryDataSourceTest, RefusesAValueLabelOfTheOtherKind) {
  MemoryDataSource source;
  EXPECT_THROW(source.addNumbers("x", {1}).addValueLabel("a", "b"), std::invalid_argument);
  EXPECT_THROW(source.addTexts("y", {"a"}).addValueLabel(1, "b"), std::invalid_argument);
}

TEST(MemoryDataSourceTest, MakesCategoriesOfTexts) {
  MemoryDataSource source;
  MemoryVariable const& variable = source.addCategories("species", {"Gentoo", "Adelie", "", "Gentoo"});
  std::vector<std::pair<double, std::string>> const expected = {{1, "Gentoo"}, {2, "Adelie"}};
  EXPECT_EQ(labelsOf(variable), expected);
  EXPECT_EQ(variable.cell(0)->number(), 1);
  EXPECT_EQ(variable.cell(1)->number(), 2);
  EXPECT_EQ(variable.cell(2)->number(), systemMissing);
  EXPECT_EQ(variable.cell(3)->number(), 1);
  EXPECT_EQ(variable.GetFormat().Decimals(), 0);
}

}  // namespace
