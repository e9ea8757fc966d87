#include "data_stream.h"

#include "arrow_generated.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kestrel::host {

namespace {

static_assert(std::endian::native == std::endian::little, "cells are copied as they stand in memory");

using flatbuffers::DetachedBuffer;
using flatbuffers::FlatBufferBuilder;

constexpr std::size_t alignment = 8;  // of every part of a stream
constexpr std::uint32_t continuation = 0xFFFFFFFF;
constexpr std::size_t prefixSize = 8;  // of a message, and of the mark that ends a stream
constexpr std::uint32_t cellsInWord = 64;

std::size_t aligned(std::size_t size) { return (size + alignment - 1) / alignment * alignment; }

/// The parts of a stream's body for each column: a bit for each cell, set where there is a value, then the
/// cells.
struct Layout {
  explicit Layout(std::uint32_t rows)
      : validity(aligned((std::size_t{rows} + 7) / 8)), values(std::size_t{rows} * sizeof(double)) {}

  std::size_t column() const { return validity + values; }

  std::size_t validity;
  std::size_t values;
};

DetachedBuffer schemaMessage(DataTable const& table) {
  FlatBufferBuilder builder;
  std::vector<flatbuffers::Offset<arrow::Field>> fields;
  std::vector<flatbuffers::Offset<arrow::Field>> const noChildren;
  for (Column const& column : table.columns()) {
    auto const type = arrow::CreateFloatingPoint(builder, arrow::Precision::Double).Union();
    auto const name = builder.CreateString(column.name);
    auto const children = builder.CreateVector(noChildren);
    fields.push_back(arrow::CreateField(builder, name, true, arrow::Type::FloatingPoint, type, 0, children));
  }
  auto const key = builder.CreateString("source");
  std::vector<flatbuffers::Offset<arrow::KeyValue>> const metadata = {
      arrow::CreateKeyValue(builder, key, builder.CreateString(table.name()))};
  auto const schema = arrow::CreateSchemaDirect(builder, arrow::Endianness::Little, &fields, &metadata);
  builder.Finish(arrow::CreateMessage(builder, arrow::MetadataVersion::V5, arrow::MessageHeader::Schema,
                                      schema.Union(), 0));
  return builder.Release();
}

/// `missing` has the number of missing cells of each column; whatever they are, the message has the same
/// size.
DetachedBuffer batchMessage(DataTable const& table, std::vector<std::int64_t> const& missing) {
  Layout const layout(table.rows());
  std::vector<arrow::FieldNode> nodes;
  std::vector<arrow::Buffer> buffers;
  std::size_t offset = 0;
  for (std::int64_t const count : missing) {
    nodes.emplace_back(table.rows(), count);
    buffers.emplace_back(static_cast<std::int64_t>(offset), static_cast<std::int64_t>(layout.validity));
    buffers.emplace_back(static_cast<std::int64_t>(offset + layout.validity),
                         static_cast<std::int64_t>(layout.values));
    offset += layout.column();
  }
  FlatBufferBuilder builder;
  auto const batch = arrow::CreateRecordBatchDirect(builder, table.rows(), &nodes, &buffers);
  builder.Finish(arrow::CreateMessage(builder, arrow::MetadataVersion::V5, arrow::MessageHeader::RecordBatch,
                                      batch.Union(), static_cast<std::int64_t>(offset)));
  return builder.Release();
}

std::size_t sizeOf(DetachedBuffer const& message) { return prefixSize + aligned(message.size()); }

unsigned char* put(unsigned char* at, std::uint32_t number) {
  std::memcpy(at, &number, sizeof number);
  return at + sizeof number;
}

unsigned char* put(unsigned char* at, DetachedBuffer const& message) {
  std::size_t const size = aligned(message.size());
  at = put(put(at, continuation), static_cast<std::uint32_t>(size));
  std::memcpy(at, message.data(), message.size());
  std::memset(at + message.size(), 0, size - message.size());
  return at + size;
}

/// A bit for each of up to 64 cells, set where there is a value.
std::uint64_t presence(double const* cells, std::uint32_t count) {
  std::uint64_t word = 0;
  std::uint32_t at = 0;
#ifdef __SSE2__
  // Two cells at a time: bit by bit, marking the cells takes longer than copying them.
  __m128d const missing = _mm_set1_pd(systemMissing);
  for (; at + 2 <= count; at += 2) {
    int const pair = _mm_movemask_pd(_mm_cmpneq_pd(_mm_loadu_pd(cells + at), missing));
    word |= static_cast<std::uint64_t>(pair) << at;
  }
#endif
  for (; at < count; ++at) word |= std::uint64_t{cells[at] != systemMissing} << at;
  return word;
}

/// Copies the cells and marks those that have a value. The number of missing ones.
std::int64_t copyCells(double const* cells, std::uint32_t rows, unsigned char* validity,
                       unsigned char* values) {
  std::int64_t present = 0;
  for (std::uint32_t start = 0; start < rows; start += cellsInWord) {
    std::uint32_t const count = std::min(cellsInWord, rows - start);
    std::uint64_t const word = presence(cells + start, count);
    std::memcpy(values + std::size_t{start} * sizeof(double), cells + start, count * sizeof(double));
    std::memcpy(validity + start / 8, &word, sizeof word);
    present += std::popcount(word);
  }
  return std::int64_t{rows} - present;
}

struct Stream {
  explicit Stream(DataTable const& source)
      : table(&source),
        schema(schemaMessage(source)),
        batchSize(sizeOf(batchMessage(source, std::vector<std::int64_t>(source.columns().size())))) {}

  std::size_t size() const {
    std::size_t const body = Layout(table->rows()).column() * table->columns().size();
    return sizeOf(schema) + batchSize + body + prefixSize;
  }

  /// Returns the end of what it wrote.
  unsigned char* write(unsigned char* at) const {
    unsigned char* const batch = put(at, schema);
    unsigned char* body = batch + batchSize;
    Layout const layout(table->rows());
    std::vector<std::int64_t> missing;
    for (Column const& column : table->columns()) {
      missing.push_back(copyCells(column.cells.data(), table->rows(), body, body + layout.validity));
      body += layout.column();
    }
    put(batch, batchMessage(*table, missing));
    return put(put(body, continuation), 0);
  }

  DataTable const* table;
  DetachedBuffer schema;
  std::size_t batchSize;
};

}  // namespace

unsigned char* writeDataStream(std::vector<DataTable*> const& tables, unsigned int& size) {
  std::vector<Stream> streams;
  std::size_t total = 0;
  for (DataTable const* table : tables) total += streams.emplace_back(*table).size();
  if (total > std::numeric_limits<unsigned int>::max()) {
    throw std::length_error("the data of the chart is too large for one stream");
  }
  std::unique_ptr<unsigned char[]> bytes(
      new unsigned char[total]);  // not filled: every byte is written below
  unsigned char* at = bytes.get();
  for (Stream const& stream : streams) at = stream.write(at);
  size = static_cast<unsigned int>(total);
  return bytes.release();
}

}  // namespace kestrel::host
