#include "arrow_stream.h"

#include "arrow_metadata.h"
#include "capture_reader.h"
#include "problem.h"

#include <algorithm>
#include <array>
#include <bit>

namespace kestrel::tool {

namespace {

// Numbers of the fields, as the format has them.
enum MessageField { Version = 0, HeaderType = 1, Header = 2, BodyLength = 3 };
enum SchemaField { Endianness = 0, SchemaFields = 1, SchemaMetadata = 2 };
enum FieldField { FieldName = 0, FieldTypeKind = 2, FieldType = 3 };
enum IntegerField { BitWidth = 0, IsSigned = 1 };
enum FloatField { Precision = 0 };
enum KeyValueField { Key = 0, Value = 1 };
enum BatchField { BatchLength = 0, BatchNodes = 1, BatchBuffers = 2, BatchCompression = 3 };
enum HeaderKind { SchemaHeader = 1, BatchHeader = 3 };

constexpr std::uint32_t continuation = 0xFFFFFFFF;
constexpr std::uint16_t version5 = 4;
constexpr std::uint16_t littleEndian = 0;
constexpr std::size_t frameSize = 8;
constexpr std::size_t alignment = 8;
constexpr std::size_t cellSize = 8;
/// Of a column's node and of a buffer: two numbers of eight bytes each.
constexpr std::size_t pairSize = 16;

constexpr std::size_t integerKind = 2;
constexpr std::size_t floatKind = 3;
constexpr char const* requiredType = "float64";

/// By the number that the format gives a type.
constexpr std::array<char const*, 27> typeNames = {"none",
                                                   "null",
                                                   "int",
                                                   "float",
                                                   "binary",
                                                   "utf8",
                                                   "bool",
                                                   "decimal",
                                                   "date",
                                                   "time",
                                                   "timestamp",
                                                   "interval",
                                                   "list",
                                                   "struct",
                                                   "union",
                                                   "fixed-size binary",
                                                   "fixed-size list",
                                                   "map",
                                                   "duration",
                                                   "large binary",
                                                   "large utf8",
                                                   "large list",
                                                   "run-end encoded",
                                                   "binary view",
                                                   "utf8 view",
                                                   "list view",
                                                   "large list view"};

std::string integerName(MetadataTable const& type) {
  return (type.byte(IsSigned) != 0 ? "int" : "uint") + std::to_string(type.number(BitWidth));
}

std::string floatName(MetadataTable const& type) {
  constexpr std::array<char const*, 3> names = {"float16", "float32", requiredType};
  std::size_t const precision = type.half(Precision);
  return precision < names.size() ? names[precision] : "float";
}

std::string typeName(MetadataTable const& field) {
  std::size_t const kind = field.byte(FieldTypeKind);
  auto const type = field.table(FieldType);
  if (type && kind == integerKind) return integerName(*type);
  if (type && kind == floatKind) return floatName(*type);
  return kind < typeNames.size() ? typeNames[kind] : "type " + std::to_string(kind);
}

std::string columnText(ArrowColumn const& column) { return "column " + inQuotes(column.name); }

/// Reads the messages of one stream behind each other.
class StreamReader {
 public:
  StreamReader(Span const& bytes, std::size_t start, std::size_t mostCells)
      : mBytes(bytes), mAt(start), mMostCells(mostCells) {}

  ArrowTable read() {
    if (!readMessage()) mBytes.fail(mStart, "a stream without a schema");
    readSchema(header(SchemaHeader, "a schema was expected"));
    if (!readMessage()) mBytes.fail(mStart, "a stream without a record batch");
    readBatch(header(BatchHeader, "a record batch was expected"));
    if (readMessage()) mBytes.fail(mStart, "the end of the stream was expected");
    return std::move(mTable);
  }

  /// Behind what was read.
  std::size_t end() const { return mAt; }

 private:
  [[noreturn]] void fail(std::string text) const { mBytes.fail(mStart, std::move(text)); }

  /// False at the mark that ends a stream.
  bool readMessage();
  void readBody();
  MetadataTable header(HeaderKind kind, char const* expected) const;
  void readSchema(MetadataTable const& schema);
  void readBatch(MetadataTable const& batch);
  void readColumn(ArrowColumn& column, std::size_t node, std::size_t buffers);
  std::string_view readBuffer(std::size_t at);

  /// Takes a name, of which all together are no longer than what they stand in: a name that many columns
  /// share would make much out of few bytes.
  std::string name(std::string_view text);

  Span mBytes;
  std::size_t mAt;
  std::size_t mMostCells;
  ArrowTable mTable;
  // Of the message that was read last.
  std::size_t mStart = 0;
  Span mMetadata{{}, 0};
  Span mBody{{}, 0};
  std::size_t mNamesSize = 0;
  std::size_t mBuffersEnd = 0;
};

bool StreamReader::readMessage() {
  mStart = mAt;
  if (mBytes.number(mAt) != continuation) mBytes.fail(mAt, "the mark FF FF FF FF was expected");
  std::size_t const size = mBytes.number(mAt + 4);
  if (size % alignment != 0) mBytes.fail(mAt + 4, "the size of the metadata is no multiple of 8");
  mMetadata = mBytes.part(mAt + frameSize, size);
  mAt += frameSize + size;
  if (size != 0) readBody();
  return size != 0;
}

void StreamReader::readBody() {
  std::int64_t const length = MetadataTable(mMetadata, mMetadata.follow(0)).longNumber(BodyLength);
  if (length < 0 || length % static_cast<std::int64_t>(alignment) != 0) {
    mBytes.fail(mAt, "the length of the body is corrupt");
  }
  mBody = mBytes.part(mAt, static_cast<std::size_t>(length));
  mAt += mBody.size();
}

MetadataTable StreamReader::header(HeaderKind kind, char const* expected) const {
  MetadataTable const message(mMetadata, mMetadata.follow(0));
  auto const header = message.table(Header);
  if (!header || message.byte(HeaderType) != kind) fail(expected);
  if (message.half(Version) != version5) fail("the metadata is not of version V5");
  return *header;
}

std::string StreamReader::name(std::string_view text) {
  mNamesSize += text.size();
  if (mNamesSize > mMetadata.size()) fail("the metadata is corrupt");
  return std::string(text);
}

void StreamReader::readSchema(MetadataTable const& schema) {
  if (schema.half(Endianness) != littleEndian) fail("the numbers are not little-endian");
  schema.each(SchemaFields, [this](MetadataTable const& field) {
    ArrowColumn& column = mTable.columns.emplace_back();
    column.name = name(field.text(FieldName));
    column.type = typeName(field);
    if (column.type != requiredType)
      fail(columnText(column) + " is " + column.type + ", not " + requiredType);
  });
  bool isNamed = false;
  schema.each(SchemaMetadata, [&](MetadataTable const& pair) {
    if (pair.text(Key) != "source") return;
    mTable.source = name(pair.text(Value));
    isNamed = true;
  });
  if (!isNamed) fail("the schema names no source");
}

void StreamReader::readBatch(MetadataTable const& batch) {
  std::int64_t const rows = batch.longNumber(BatchLength);
  if (rows < 0) fail("the record batch has " + std::to_string(rows) + " rows");
  if (batch.find(BatchCompression)) fail("the record batch is compressed");
  mTable.rows = static_cast<std::size_t>(rows);
  ItemList const nodes = batch.items(BatchNodes, pairSize);
  ItemList const buffers = batch.items(BatchBuffers, pairSize);
  std::size_t const columns = mTable.columns.size();
  if (nodes.count != columns) {
    fail("the record batch has " + counted(nodes.count, "column") + ", the schema " + grouped(columns));
  }
  if (buffers.count != 2 * columns) {
    fail("the record batch has " + counted(buffers.count, "buffer") + " for " + counted(columns, "column"));
  }
  mBuffersEnd = 0;
  for (std::size_t at = 0; at < columns; ++at) {
    readColumn(mTable.columns[at], nodes.start + at * pairSize, buffers.start + 2 * at * pairSize);
  }
}

std::string_view StreamReader::readBuffer(std::size_t at) {
  auto const offset = static_cast<std::uint64_t>(mMetadata.longNumber(at));
  auto const length = static_cast<std::uint64_t>(mMetadata.longNumber(at + 8));
  // In their order, so that no bytes are the cells of several columns.
  bool const isWithin = offset >= mBuffersEnd && offset <= mBody.size() && length <= mBody.size() - offset;
  if (!isWithin) fail("a buffer lies outside the body or in another one");
  mBuffersEnd = static_cast<std::size_t>(offset + length);
  return mBody.take(static_cast<std::size_t>(offset), static_cast<std::size_t>(length));
}

/// Whether the row has a value; all have one where there is no bitmap.
bool isPresent(std::string_view validity, std::size_t row) {
  return validity.empty() || (static_cast<unsigned char>(validity[row / 8]) >> (row % 8) & 1) != 0;
}

void StreamReader::readColumn(ArrowColumn& column, std::size_t node, std::size_t buffers) {
  std::size_t const rows = mTable.rows;
  auto const length = static_cast<std::uint64_t>(mMetadata.longNumber(node));
  if (length != rows) {
    fail(columnText(column) + " has " + counted(length, "row") + ", its record batch " + grouped(rows));
  }
  std::string_view const validity = readBuffer(buffers);
  std::string_view const values = readBuffer(buffers + pairSize);
  if (values.size() / cellSize < rows || (!validity.empty() && validity.size() < (rows + 7) / 8)) {
    fail(columnText(column) + " has too few bytes for " + counted(rows, "row"));
  }
  for (std::size_t row = 0; row < rows; ++row) {
    bool const present = isPresent(validity, row);
    column.missing += present ? 0 : 1;
    if (row >= mMostCells) continue;
    auto const bits = present ? longWord(values.substr(row * cellSize)) : 0;
    column.cells.push_back(present ? std::optional(std::bit_cast<double>(bits)) : std::nullopt);
  }
  auto const told = static_cast<std::uint64_t>(mMetadata.longNumber(node + 8));
  if (told != column.missing) {
    fail(columnText(column) + " lacks " + counted(column.missing, "value") + ", but says " + grouped(told));
  }
}

}  // namespace

ArrowStreams readArrowStreams(std::string_view bytes, std::size_t mostCells) {
  ArrowStreams streams;
  try {
    for (std::size_t at = 0; at < bytes.size();) {
      StreamReader reader(Span(bytes, 0), at, mostCells);
      streams.tables.push_back(reader.read());
      at = reader.end();
    }
  } catch (BadBytes const& bad) {
    streams.fault = ArrowFault{bad.offset, bad.text};
  }
  return streams;
}

}  // namespace kestrel::tool
