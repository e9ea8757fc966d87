#include "host/data_store.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

constexpr double missing = std::numeric_limits<double>::lowest();

using Names = std::vector<std::string>;

class DataStoreTest : public testing::Test {
 protected:
  DataStoreTest() {
    store.AddDataSource("source0", 0);
    store.AddVariable("source0", "x", nullptr);
    store.AddVariable("source0", "y", nullptr);
  }

  bool set(std::string const& column, unsigned int row, double value) {
    return store.SetVariableValue("source0", column, row, value);
  }

  std::vector<double> cells(std::string const& column) {
    double const* const first = store.GetDataPointer("source0", column);
    return {first, first + store.GetRowCount("source0")};
  }

  Names columns(std::string const& source) const {
    Names names = {"left from before"};
    store.GetVariableNames(source, names);
    return names;
  }

  Names sources() const {
    Names names = {"left from before"};
    store.GetSourceNames(names);
    return names;
  }

  VarDataProcessor store;
};

TEST_F(DataStoreTest, KeepsCells) {
  EXPECT_TRUE(set("x", 0, 1.5));
  EXPECT_TRUE(set("y", 0, -2));
  EXPECT_TRUE(set("x", 1, 3));
  EXPECT_TRUE(set("y", 1, 4));
  EXPECT_EQ(cells("x"), (std::vector<double>{1.5, 3}));
  EXPECT_EQ(cells("y"), (std::vector<double>{-2, 4}));
}

TEST_F(DataStoreTest, ReadsCellsThatNobodyWroteAsMissing) {
  set("x", 0, 1);
  set("y", 3, 2);
  EXPECT_EQ(cells("x"), (std::vector<double>{1, missing, missing, missing}));
  EXPECT_EQ(cells("y"), (std::vector<double>{missing, missing, missing, 2}));
}

TEST_F(DataStoreTest, HasAsManyRowsAsTheHighestRowSays) {
  EXPECT_EQ(store.GetRowCount("source0"), 0u);
  set("x", 6, 1);
  EXPECT_EQ(store.GetRowCount("source0"), 7u);
  set("y", 2, 1);
  EXPECT_EQ(store.GetRowCount("source0"), 7u);
}

TEST_F(DataStoreTest, OverwritesACell) {
  set("x", 0, 1);
  set("x", 0, 2);
  EXPECT_EQ(cells("x"), std::vector<double>{2});
}

TEST_F(DataStoreTest, KeepsEveryNumberAsItIs) {
  set("x", 0, -0.0);
  set("x", 1, std::numeric_limits<double>::infinity());
  set("x", 2, std::numeric_limits<double>::quiet_NaN());
  set("x", 3, missing);
  double const* const read = store.GetDataPointer("source0", "x");
  EXPECT_TRUE(std::signbit(read[0]));
  EXPECT_TRUE(std::isinf(read[1]));
  EXPECT_TRUE(std::isnan(read[2]));
  EXPECT_EQ(read[3], missing);
}

TEST_F(DataStoreTest, TakesRowsInAnyOrder) {
  for (unsigned int row = 300; row-- > 0;) set("x", row, row);
  std::vector<double> const read = cells("x");
  ASSERT_EQ(read.size(), 300u);
  for (unsigned int row = 0; row < 300; ++row) EXPECT_EQ(read[row], row);
}

TEST_F(DataStoreTest, TakesColumnsInAnyOrder) {
  for (char const* column : {"z", "a", "k"}) store.AddVariable("source0", column, nullptr);
  for (unsigned int row = 0; row < 50; ++row) {
    for (char const* column : {"k", "x", "a", "y", "z", "x"})
      ASSERT_TRUE(set(column, row, row + column[0] * 1000.0));
  }
  for (char const* column : {"k", "x", "a", "y", "z"})
    EXPECT_EQ(cells(column)[49], 49 + column[0] * 1000.0) << column;
}

TEST_F(DataStoreTest, RefusesCellsOfColumnsThatWereNotAdded) {
  EXPECT_FALSE(set("z", 0, 1));
  EXPECT_FALSE(store.SetVariableValue("source1", "x", 0, 1));
  EXPECT_EQ(store.GetRowCount("source0"), 0u);
  EXPECT_EQ(columns("source0"), (Names{"x", "y"}));
  EXPECT_EQ(sources(), Names{"source0"});
}

TEST_F(DataStoreTest, TakesAColumnWithAnEmptyName) {
  EXPECT_FALSE(set("", 0, 1));
  EXPECT_TRUE(store.AddVariable("source0", "", nullptr));
  EXPECT_TRUE(set("", 0, 1));
  EXPECT_EQ(cells(""), std::vector<double>{1});
}

TEST_F(DataStoreTest, ListsSourcesAndColumnsInTheOrderOfTheirCreation) {
  store.AddDataSource("source1", 0);
  store.AddDataSource("a", 0);
  store.AddVariable("source0", "b", nullptr);
  EXPECT_EQ(sources(), (Names{"source0", "source1", "a"}));
  EXPECT_EQ(columns("source0"), (Names{"x", "y", "b"}));
}

TEST_F(DataStoreTest, GivesEmptyListsForAnUnknownSource) {
  EXPECT_EQ(columns("source7"), Names());
  EXPECT_EQ(store.GetRowCount("source7"), 0u);
  EXPECT_EQ(store.GetDataPointer("source7", "x"), nullptr);
  EXPECT_EQ(store.GetDataPointer("source0", "z"), nullptr);
}

TEST_F(DataStoreTest, KeepsASourceThatIsAddedAgain) {
  set("x", 1, 5);
  store.AddDataSource("source0", 0);
  EXPECT_EQ(sources(), Names{"source0"});
  EXPECT_EQ(cells("x"), (std::vector<double>{missing, 5}));
}

TEST_F(DataStoreTest, KeepsAColumnThatIsAddedAgain) {
  set("x", 0, 5);
  EXPECT_TRUE(store.AddVariable("source0", "x", nullptr));
  EXPECT_EQ(columns("source0"), (Names{"x", "y"}));
  EXPECT_EQ(cells("x"), std::vector<double>{5});
}

TEST_F(DataStoreTest, OpensTheSourceOfAColumn) {
  EXPECT_TRUE(store.AddVariable("source9", "x", nullptr));
  EXPECT_EQ(sources(), (Names{"source0", "source9"}));
  EXPECT_TRUE(store.SetVariableValue("source9", "x", 0, 1));
}

TEST_F(DataStoreTest, KeepsSourcesApart) {
  store.AddDataSource("source1", 0);
  store.AddVariable("source1", "x", nullptr);
  set("x", 0, 1);
  EXPECT_TRUE(store.SetVariableValue("source1", "x", 1, 2));
  set("x", 1, 3);
  EXPECT_EQ(cells("x"), (std::vector<double>{1, 3}));
  EXPECT_EQ(store.GetDataPointer("source1", "x")[1], 2);
}

TEST_F(DataStoreTest, MayStartASourceWithRows) {
  store.AddDataSource("source1", 2);
  store.AddVariable("source1", "x", nullptr);
  EXPECT_EQ(store.GetRowCount("source1"), 2u);
  EXPECT_EQ(store.GetDataPointer("source1", "x")[1], missing);
}

TEST_F(DataStoreTest, DoesNotStartASourceWithAbsurdlyManyRows) {
  store.AddDataSource("source1", std::numeric_limits<unsigned int>::max());
  EXPECT_EQ(store.GetRowCount("source1"), VarDataProcessor::gapLimit);
}

TEST_F(DataStoreTest, GivesAPointerAlsoToAColumnWithoutRows) {
  EXPECT_NE(store.GetDataPointer("source0", "x"), nullptr);
}

TEST_F(DataStoreTest, MakesAColumnOfALaterVariableAsLongAsTheRows) {
  set("x", 2, 1);
  store.AddVariable("source0", "late", nullptr);
  EXPECT_EQ(cells("late"), (std::vector<double>{missing, missing, missing}));
}

TEST_F(DataStoreTest, LetsTheCallerWriteThroughThePointer) {
  set("x", 0, 1);
  store.GetDataPointer("source0", "x")[0] = 9;
  EXPECT_EQ(cells("x"), std::vector<double>{9});
}

TEST_F(DataStoreTest, RefusesAbsurdRows) {
  set("x", 0, 1);
  EXPECT_FALSE(set("x", std::numeric_limits<unsigned int>::max(), 1));
  EXPECT_FALSE(set("x", VarDataProcessor::rowLimit, 1));
  EXPECT_FALSE(set("x", 1 + VarDataProcessor::gapLimit + 1, 1));
  EXPECT_EQ(store.GetRowCount("source0"), 1u);
}

TEST_F(DataStoreTest, TakesTheFurthestRowWithinTheGap) {
  set("x", 0, 1);
  EXPECT_TRUE(set("y", 1 + VarDataProcessor::gapLimit, 7));
  EXPECT_EQ(store.GetRowCount("source0"), VarDataProcessor::gapLimit + 2);
  EXPECT_EQ(store.GetDataPointer("source0", "y")[VarDataProcessor::gapLimit + 1], 7);
}

TEST_F(DataStoreTest, IsNeverCopied) {
  EXPECT_FALSE(std::is_copy_constructible_v<VarDataProcessor>);
  EXPECT_FALSE(std::is_copy_assignable_v<VarDataProcessor>);
}

TEST_F(DataStoreTest, GrowsToManyRows) {
  constexpr unsigned int rows = 200000;
  for (unsigned int row = 0; row < rows; ++row) {
    ASSERT_TRUE(set("x", row, row));
    ASSERT_TRUE(set("y", row, -1.0 * row));
  }
  std::vector<double> const x = cells("x");
  std::vector<double> const y = cells("y");
  for (unsigned int row = 0; row < rows; ++row) {
    ASSERT_EQ(x[row], row);
    ASSERT_EQ(y[row], -1.0 * row);
  }
}

}  // namespace
