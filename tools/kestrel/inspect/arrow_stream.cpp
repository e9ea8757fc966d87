#include "arrow_stream.h"

#include "capture_reader.h"

#include <utility>

namespace kestrel::tool {

namespace {

/// Bytes that are not where they should be end the reading.
struct BadBytes {
  std::size_t offset;
  std::string text;
};

/// Bytes of a larger text, with their offset in it. Every access is checked.
class Span {
 public:
  Span(std::string_view bytes, std::size_t offset) : mBytes(bytes), mOffset(offset) {}

  std::size_t size() const { return mBytes.size(); }

  [[noreturn]] void fail(std::size_t at, std::string text) const {
    throw BadBytes{mOffset + at, std::move(text)};
  }

  std::string_view take(std::size_t at, std::size_t count) const {
    if (at > mBytes.size() || count > mBytes.size() - at) fail(mBytes.size(), "the stream is cut");
    return mBytes.substr(at, count);
  }

  Span part(std::size_t at, std::size_t count) const { return {take(at, count), mOffset + at}; }

  std::uint16_t half(std::size_t at) const {
    std::string_view const bytes = take(at, 2);
    return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[0]) |
                                      static_cast<unsigned char>(bytes[1]) << 8);
  }
  std::uint32_t number(std::size_t at) const { return word(take(at, 4)); }
  std::int64_t longNumber(std::size_t at) const { return longWord(take(at, 8)); }

  /// Offsets in the metadata count from where they stand.
  std::size_t follow(std::size_t at) const { return at + number(at); }

  std::string text(std::size_t at) const { return std::string(take(at + 4, number(at))); }

 private:
  std::string_view mBytes;
  std::size_t mOffset;
};

/// A table of the metadata: fields by number, each of which may be absent.
class MetadataTable {
 public:
  MetadataTable(Span const& span, std::size_t at) : mSpan(span), mAt(at) {
    auto const toFields = static_cast<std::int32_t>(span.number(at));
    auto const fields = static_cast<std::int64_t>(at) - toFields;
    if (fields < 0) span.fail(at, "the metadata is corrupt");
    mFields = static_cast<std::size_t>(fields);
    mFieldsSize = span.half(mFields);
  }

  /// Where the field's value stands, or nothing.
  std::optional<std::size_t> find(std::size_t field) const {
    std::size_t const slot = 4 + 2 * field;
    if (slot + 2 > mFieldsSize) return std::nullopt;
    std::uint16_t const offset = mSpan.half(mFields + slot);
    if (offset == 0) return std::nullopt;
    return mAt + offset;
  }

  std::string text(std::size_t field) const {
    auto const at = find(field);
    return at ? mSpan.text(mSpan.follow(*at)) : std::string();
  }

  std::int64_t longNumber(std::size_t field) const {
    auto const at = find(field);
    return at ? mSpan.longNumber(*at) : 0;
  }

  unsigned char byte(std::size_t field) const {
    auto const at = find(field);
    return at ? static_cast<unsigned char>(mSpan.take(*at, 1)[0]) : static_cast<unsigned char>(0);
  }

  std::optional<MetadataTable> table(std::size_t field) const {
    auto const at = find(field);
    if (!at) return std::nullopt;
    return MetadataTable(mSpan, mSpan.follow(*at));
  }

  /// Calls `visit` with each table of a list.
  template <typename Visit>
  void each(std::size_t field, Visit visit) const {
    auto const at = find(field);
    if (!at) return;
    std::size_t const list = mSpan.follow(*at);
    std::size_t const count = mSpan.number(list);
    for (std::size_t i = 0; i < count; ++i) visit(MetadataTable(mSpan, mSpan.follow(list + 4 + 4 * i)));
  }

 private:
  Span mSpan;
  std::size_t mAt;
  std::size_t mFields = 0;
  std::size_t mFieldsSize = 0;
};

// Numbers of the fields, as the format has them.
enum MessageField { HeaderType = 1, Header = 2, BodyLength = 3 };
enum SchemaField { SchemaFields = 1, SchemaMetadata = 2 };
enum FieldField { FieldName = 0 };
enum KeyValueField { Key = 0, Value = 1 };
enum BatchField { BatchLength = 0 };
enum HeaderKind { SchemaHeader = 1, BatchHeader = 3 };

constexpr std::uint32_t continuation = 0xFFFFFFFF;
constexpr std::size_t frameSize = 8;
constexpr std::size_t alignment = 8;

ArrowTable readSchema(MetadataTable const& schema) {
  ArrowTable table;
  schema.each(SchemaFields,
              [&](MetadataTable const& field) { table.columns.push_back(field.text(FieldName)); });
  schema.each(SchemaMetadata, [&](MetadataTable const& pair) {
    if (pair.text(Key) == "source") table.source = pair.text(Value);
  });
  return table;
}

/// The size of the metadata at `at`; 0 is the mark that ends a stream.
std::size_t readFrame(Span const& bytes, std::size_t at) {
  if (bytes.number(at) != continuation) bytes.fail(at, "the mark FF FF FF FF was expected");
  std::size_t const size = bytes.number(at + 4);
  if (size % alignment != 0) bytes.fail(at + 4, "the size of the metadata is no multiple of 8");
  return size;
}

/// The length of the body behind the metadata that ends at `end`.
std::size_t readBodyLength(Span const& bytes, MetadataTable const& message, std::size_t end) {
  std::int64_t const length = message.longNumber(BodyLength);
  if (length < 0 || length % static_cast<std::int64_t>(alignment) != 0) {
    bytes.fail(end, "the length of the body is corrupt");
  }
  return bytes.take(end, static_cast<std::size_t>(length)).size();
}

/// Reads one stream and moves `at` behind it.
ArrowTable readStream(Span const& bytes, std::size_t& at) {
  std::optional<ArrowTable> table;
  while (std::size_t const size = readFrame(bytes, at)) {
    std::size_t const start = at + frameSize;
    Span const metadata = bytes.part(start, size);
    MetadataTable const message(metadata, metadata.follow(0));
    auto const header = message.table(Header);
    unsigned char const kind = message.byte(HeaderType);
    if (header && kind == SchemaHeader && !table) {
      table = readSchema(*header);
    } else if (header && kind == BatchHeader && table) {
      table->rows += header->longNumber(BatchLength);
    } else {
      bytes.fail(start, table ? "a record batch was expected" : "a schema was expected");
    }
    at = start + size;
    at += readBodyLength(bytes, message, at);
  }
  if (!table) bytes.fail(at, "a stream without a schema");
  at += frameSize;
  return *table;
}

}  // namespace

ArrowStreams readArrowStreams(std::string_view bytes) {
  ArrowStreams streams;
  try {
    for (std::size_t at = 0; at < bytes.size();) streams.tables.push_back(readStream(Span(bytes, 0), at));
  } catch (BadBytes const& bad) {
    streams.fault = ArrowFault{bad.offset, bad.text};
  }
  return streams;
}

}  // namespace kestrel::tool
