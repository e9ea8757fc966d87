#include "host/data_store.h"
#include "kestrelhost/missing.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr double missing = kestrel::host::systemMissing;
constexpr std::uint32_t continuation = 0xFFFFFFFF;

std::string streamOf(VarDataProcessor& store) {
  unsigned int size = 1;
  std::unique_ptr<unsigned char[]> const bytes(store.GetDataStream(size));
  return {reinterpret_cast<char const*>(bytes.get()), size};
}

std::uint32_t wordAt(std::string const& stream, std::size_t at) {
  std::uint32_t word = 0;
  std::memcpy(&word, stream.data() + at, sizeof word);
  return word;
}

/// The positions of the messages of one stream: schema, batch and end.
struct Frames {
  explicit Frames(std::string const& stream, std::size_t start = 0) {
    EXPECT_EQ(wordAt(stream, start), continuation);
    batch = start + 8 + wordAt(stream, start + 4);
    EXPECT_EQ(wordAt(stream, batch), continuation);
    body = batch + 8 + wordAt(stream, batch + 4);
  }

  std::size_t batch;
  std::size_t body;
};

double cellAt(std::string const& stream, std::size_t at) {
  double cell = 0;
  std::memcpy(&cell, stream.data() + at, sizeof cell);
  return cell;
}

void fill(VarDataProcessor& store, std::string const& source, std::string const& column, unsigned int rows) {
  store.AddVariable(source, column, nullptr);
  for (unsigned int row = 0; row < rows; ++row) store.SetVariableValue(source, column, row, row + 0.5);
}

TEST(DataStreamTest, OfAnEmptyStoreHasNoBytes) {
  VarDataProcessor store;
  unsigned int size = 1;
  std::unique_ptr<unsigned char[]> const bytes(store.GetDataStream(size));
  EXPECT_EQ(size, 0u);
  EXPECT_NE(bytes, nullptr);
}

TEST(DataStreamTest, HasSchemaCellsAndEnd) {
  VarDataProcessor store;
  fill(store, "source0", "x", 3);
  std::string const stream = streamOf(store);
  Frames const frames(stream);
  EXPECT_EQ(static_cast<unsigned char>(stream[frames.body]), 0b111);
  EXPECT_EQ(cellAt(stream, frames.body + 8), 0.5);
  EXPECT_EQ(cellAt(stream, frames.body + 24), 2.5);
  std::size_t const end = frames.body + 8 + 24;
  EXPECT_EQ(wordAt(stream, end), continuation);
  EXPECT_EQ(wordAt(stream, end + 4), 0u);
  EXPECT_EQ(stream.size(), end + 8);
}

TEST(DataStreamTest, MarksMissingCells) {
  VarDataProcessor store;
  fill(store, "source0", "x", 10);
  store.SetVariableValue("source0", "x", 9, missing);
  store.SetVariableValue("source0", "x", 1, missing);
  std::string const stream = streamOf(store);
  Frames const frames(stream);
  EXPECT_EQ(static_cast<unsigned char>(stream[frames.body]), 0b11111101);
  EXPECT_EQ(static_cast<unsigned char>(stream[frames.body + 1]), 0b00000001);
}

TEST(DataStreamTest, AlignsEveryPart) {
  for (unsigned int rows : {0u, 1u, 63u, 64u, 65u, 1000u}) {
    VarDataProcessor store;
    fill(store, "a source", "a column", rows);
    fill(store, "a source", "another", rows);
    std::string const stream = streamOf(store);
    Frames const frames(stream);
    EXPECT_EQ(frames.batch % 8, 0u);
    EXPECT_EQ(frames.body % 8, 0u);
    EXPECT_EQ(stream.size() % 8, 0u);
    std::size_t const column = (std::size_t{rows} + 63) / 64 * 8 + rows * std::size_t{8};
    EXPECT_EQ(stream.size(), frames.body + 2 * column + 8) << rows;
  }
}

TEST(DataStreamTest, FollowsTheOrderOfTheSources) {
  VarDataProcessor store;
  fill(store, "source1", "x", 2);
  fill(store, "source0", "x", 1);
  std::string const stream = streamOf(store);
  Frames const first(stream);
  std::size_t const second = first.body + 8 + 16 + 8;
  Frames const frames(stream, second);
  EXPECT_NE(stream.substr(0, first.batch).find("source1"), std::string::npos);
  EXPECT_NE(stream.substr(second, frames.batch - second).find("source0"), std::string::npos);
  EXPECT_EQ(stream.size(), frames.body + 8 + 8 + 8);
}

TEST(DataStreamTest, HasSourcesWithoutColumns) {
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  std::string const stream = streamOf(store);
  Frames const frames(stream);
  EXPECT_EQ(stream.size(), frames.body + 8);
}

TEST(DataStreamTest, IsTheSameWhenWrittenAgain) {
  VarDataProcessor store;
  fill(store, "source0", "x", 100);
  store.AddVariable("source0", "y", nullptr);
  EXPECT_EQ(streamOf(store), streamOf(store));
}

}  // namespace
