#include "inspect/arrow_stream.h"

#include "capture_builder.h"
#include "inspect/capture_reader.h"

#include "host/data_store.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>

using kestrel::tool::readArrowStreams;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::string streamOf(VarDataProcessor& store) {
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
  return {reinterpret_cast<char const*>(stream.get()), size};
}

TEST(ArrowStreams, TellSourceColumnsAndRows) {
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  store.AddVariable("source0", "sourceVariable0_SN", nullptr);
  store.AddVariable("source0", "\xC3\xA9", nullptr);
  store.SetVariableValue("source0", "\xC3\xA9", 99, 1);
  auto const streams = readArrowStreams(streamOf(store));
  EXPECT_FALSE(streams.fault);
  ASSERT_THAT(streams.tables, SizeIs(1));
  EXPECT_EQ(streams.tables[0].source, "source0");
  ASSERT_THAT(streams.tables[0].columns, SizeIs(2));
  EXPECT_EQ(streams.tables[0].columns[0].name, "sourceVariable0_SN");
  EXPECT_EQ(streams.tables[0].columns[1].name, "\xC3\xA9");
  EXPECT_EQ(streams.tables[0].columns[1].type, "float64");
  EXPECT_EQ(streams.tables[0].columns[1].missing, 99u);
  EXPECT_EQ(streams.tables[0].rows, 100u);
}

TEST(ArrowStreams, FollowEachOther) {
  VarDataProcessor store;
  store.AddDataSource("source0", 3);
  store.AddDataSource("source1", 0);
  store.AddVariable("source1", "a", nullptr);
  auto const streams = readArrowStreams(streamOf(store));
  EXPECT_FALSE(streams.fault);
  ASSERT_THAT(streams.tables, SizeIs(2));
  EXPECT_EQ(streams.tables[0].source, "source0");
  EXPECT_THAT(streams.tables[0].columns, IsEmpty());
  EXPECT_EQ(streams.tables[1].source, "source1");
  EXPECT_EQ(streams.tables[1].rows, 0u);
}

TEST(ArrowStreams, MayBeNone) {
  auto const streams = readArrowStreams("");
  EXPECT_FALSE(streams.fault);
  EXPECT_THAT(streams.tables, IsEmpty());
}

TEST(ArrowStreams, AreCutAnywhereElseThanAtTheEndOfAStream) {
  std::string const one = dataStream(20);
  std::string const both = one + one;
  for (std::size_t size = 1; size < both.size(); ++size) {
    EXPECT_EQ(readArrowStreams(both.substr(0, size)).fault.has_value(), size != one.size()) << size;
  }
}

TEST(ArrowStreams, AreReadAsFarAsTheyAreSound) {
  std::string const one = dataStream(2);
  auto const streams = readArrowStreams(one + "rubbish");
  EXPECT_THAT(streams.tables, SizeIs(1));
  ASSERT_TRUE(streams.fault);
  EXPECT_EQ(streams.fault->offset, one.size());
}

TEST(ArrowStreams, WithAnyByteChangedAreReadWithoutHarm) {
  std::string const sound = dataStream(3);
  for (std::size_t at = 0; at < sound.size(); ++at) {
    for (char const change : {'\x01', '\x80', '\xFF'}) {
      std::string changed = sound;
      changed[at] = static_cast<char>(changed[at] ^ change);
      auto const streams = readArrowStreams(changed);
      EXPECT_TRUE(streams.fault || !streams.tables.empty());
    }
  }
}

/// Two columns of three rows, the second of which lacks its second value.
std::string twoColumns() {
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  store.AddVariable("source0", "a", nullptr);
  store.AddVariable("source0", "b", nullptr);
  for (unsigned int row : {0U, 1U, 2U}) store.SetVariableValue("source0", "a", row, row + 0.5);
  for (unsigned int row : {0U, 2U}) store.SetVariableValue("source0", "b", row, -1.0 * row);
  return streamOf(store);
}

TEST(ArrowStreams, HaveTheCellsOfAsManyRowsAsAreAskedFor) {
  auto const table = readArrowStreams(twoColumns(), 2).tables.at(0);
  EXPECT_EQ(table.rows, 3u);
  EXPECT_THAT(table.columns.at(0).cells, ElementsAre(0.5, 1.5));
  EXPECT_THAT(table.columns.at(1).cells, ElementsAre(0.0, std::nullopt));
  EXPECT_EQ(table.columns.at(0).missing, 0u);
  EXPECT_EQ(table.columns.at(1).missing, 1u);
}

TEST(ArrowStreams, HaveAllCellsWhereMoreAreAskedForThanThereAre) {
  auto const table = readArrowStreams(twoColumns(), 1'000'000).tables.at(0);
  EXPECT_THAT(table.columns.at(0).cells, ElementsAre(0.5, 1.5, 2.5));
  EXPECT_THAT(table.columns.at(1).cells, ElementsAre(0.0, std::nullopt, -2.0));
}

TEST(ArrowStreams, HaveNoCellsUnlessTheyAreAskedFor) {
  EXPECT_THAT(readArrowStreams(twoColumns()).tables.at(0).columns.at(0).cells, IsEmpty());
}

std::string faultOf(std::string const& stream) {
  auto const fault = readArrowStreams(stream).fault;
  return fault ? fault->text : "";
}

std::string numbers(std::initializer_list<std::uint64_t> values) {
  std::string bytes;
  for (std::uint64_t const value : values) bytes += littleEndian(value, 8);
  return bytes;
}

/// A column's rows and missing values, the place and the length of a buffer, or what counts them, in the
/// metadata of twoColumns(); and the fault with others there.
struct Disagreement {
  char const* name;
  std::string before;
  std::string after;
  char const* fault;
};

void PrintTo(Disagreement const& row, std::ostream* out) { *out << row.name; }

class ArrowStreamsThatDisagree : public testing::TestWithParam<Disagreement> {};

TEST_P(ArrowStreamsThatDisagree, AreFaulty) {
  std::string stream = twoColumns();
  std::size_t const at = stream.find(GetParam().before);
  ASSERT_NE(at, std::string::npos);
  ASSERT_EQ(stream.find(GetParam().before, at + 1), std::string::npos);
  EXPECT_EQ(faultOf(stream), "");
  stream.replace(at, GetParam().before.size(), GetParam().after);
  EXPECT_EQ(faultOf(stream), GetParam().fault);
}

constexpr char const* outside = "a buffer lies outside the body or in another one";

INSTANTIATE_TEST_SUITE_P(
    Numbers, ArrowStreamsThatDisagree,
    testing::Values(
        Disagreement{"RowsOfAColumn", numbers({3, 1}), numbers({2, 1}),
                     "column 'b' has 2 rows, its record batch 3"},
        Disagreement{"MissingValues", numbers({3, 1}), numbers({3, 2}),
                     "column 'b' lacks 1 value, but says 2"},
        Disagreement{"NoBitmap", numbers({32, 8}), numbers({32, 0}), "column 'b' lacks 0 values, but says 1"},
        Disagreement{"ShortValues", numbers({40, 24}), numbers({40, 16}),
                     "column 'b' has too few bytes for 3 rows"},
        Disagreement{"ValuesBehindTheBody", numbers({40, 24}), numbers({48, 24}), outside},
        Disagreement{"ValuesFarBehindTheBody", numbers({40, 24}), numbers({~std::uint64_t{7}, 24}), outside},
        Disagreement{"ValuesWithoutEnd", numbers({40, 24}), numbers({40, ~std::uint64_t{0}}), outside},
        Disagreement{"SharedBytes", numbers({32, 8}), numbers({24, 8}), outside},
        Disagreement{"Columns", littleEndian(2, 4) + numbers({3, 0}), littleEndian(1, 4) + numbers({3, 0}),
                     "the record batch has 1 column, the schema 2"},
        Disagreement{"ColumnsBeyondTheMetadata", littleEndian(2, 4) + numbers({3, 0}),
                     littleEndian(0xFFFFFFFF, 4) + numbers({3, 0}), "the stream is cut"},
        Disagreement{"Buffers", littleEndian(4, 4) + numbers({0, 8}), littleEndian(3, 4) + numbers({0, 8}),
                     "the record batch has 3 buffers for 2 columns"}),
    [](auto const& each) { return each.param.name; });

/// All faults that come of one byte with another value.
std::set<std::string> faultsWith(char before, char after) {
  std::set<std::string> faults;
  std::string const sound = twoColumns();
  for (std::size_t at = 0; at < sound.size(); ++at) {
    std::string changed = sound;
    if (changed[at] != before) continue;
    changed[at] = after;
    faults.insert(faultOf(changed));
  }
  return faults;
}

TEST(ArrowStreams, HaveColumnsOfDoubles) {
  // The precision, and the type itself.
  EXPECT_THAT(faultsWith(2, 1), testing::Contains("column 'a' is float32, not float64"));
  EXPECT_THAT(faultsWith(3, 5), testing::Contains("column 'b' is utf8, not float64"));
}

TEST(ArrowStreams, AreOfTheirVersion) {
  EXPECT_THAT(faultsWith(4, 3), testing::Contains("the metadata is not of version V5"));
}

TEST(ArrowStreams, NameTheirSource) {
  EXPECT_THAT(faultsWith('s', 'S'), testing::Contains("the schema names no source"));
}

TEST(ArrowStreams, HaveABatchBehindTheSchema) {
  EXPECT_THAT(faultsWith(3, 2), testing::Contains("a record batch was expected"));
}

TEST(ArrowStreams, AreNotCompressed) {
  // The table of the batch seems to have one field more.
  EXPECT_THAT(faultsWith(10, 12), testing::Contains("the record batch is compressed"));
}

TEST(ArrowStreams, HaveNoNegativeNumberOfRows) {
  EXPECT_THAT(faultsWith(3, '\xFF'), testing::Contains("column 'a' has 3 rows, its record batch 255"));
  std::string stream = twoColumns();
  // Of the three numbers of rows the one that is no column's.
  std::size_t at = stream.find(numbers({3}));
  while (stream.compare(at, 16, numbers({3, 0})) == 0 || stream.compare(at, 16, numbers({3, 1})) == 0) {
    at = stream.find(numbers({3}), at + 1);
  }
  EXPECT_EQ(faultOf(stream.replace(at + 7, 1, "\x80")), "the record batch has -9223372036854775805 rows");
}

/// The place of the message behind the first one.
std::size_t secondMessage(std::string const& stream) { return stream.find("\xFF\xFF\xFF\xFF", 1); }

TEST(ArrowStreams, HaveOneBatch) {
  std::string const stream = twoColumns();
  std::size_t const at = secondMessage(stream);
  std::string const end = stream.substr(stream.size() - 8);
  std::string const schema = stream.substr(0, at);
  std::string const batch = stream.substr(at, stream.size() - 8 - at);
  EXPECT_EQ(faultOf(schema + batch + end), "");
  EXPECT_EQ(faultOf(schema + batch + batch + end), "the end of the stream was expected");
  EXPECT_EQ(faultOf(schema + end), "a stream without a record batch");
  EXPECT_EQ(faultOf(end), "a stream without a schema");
  EXPECT_EQ(faultOf(batch + end), "a schema was expected");
}

TEST(ArrowStreams, DoNotShareANameAmongColumns) {
  constexpr std::size_t columns = 40;
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  store.AddVariable("source0", std::string(1000, 'n').c_str(), nullptr);
  for (std::size_t column = 1; column < columns; ++column) {
    store.AddVariable("source0", std::to_string(column), nullptr);
  }
  std::string stream = streamOf(store);
  EXPECT_EQ(faultOf(stream), "");
  // All fields are the first one: their distances, counted from where they stand.
  std::size_t const list = stream.find(littleEndian(columns, 4)) + 4;
  std::uint32_t const first = kestrel::tool::word(std::string_view(stream).substr(list));
  for (std::size_t column = 1; column < columns; ++column) {
    stream.replace(list + 4 * column, 4, littleEndian(first - 4 * column, 4));
  }
  EXPECT_EQ(faultOf(stream), "the metadata is corrupt");
}

}  // namespace
