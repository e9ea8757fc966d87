#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kestrel::tool {

/// Bytes that are not what they should be end the reading.
struct BadBytes {
  std::size_t offset;
  std::string text;
};

/// Bytes of a larger text, with their offset in it. Every access is checked, and throws BadBytes.
class Span {
 public:
  Span(std::string_view bytes, std::size_t offset) : mBytes(bytes), mOffset(offset) {}

  std::size_t size() const { return mBytes.size(); }

  [[noreturn]] void fail(std::size_t at, std::string text) const {
    throw BadBytes{mOffset + at, std::move(text)};
  }

  std::string_view take(std::size_t at, std::size_t count) const;
  Span part(std::size_t at, std::size_t count) const { return {take(at, count), mOffset + at}; }

  std::uint16_t half(std::size_t at) const;
  std::uint32_t number(std::size_t at) const;
  std::int64_t longNumber(std::size_t at) const;

  /// Offsets in the metadata count from where they stand.
  std::size_t follow(std::size_t at) const { return at + number(at); }

  std::string_view text(std::size_t at) const { return take(at + 4, number(at)); }

 private:
  std::string_view mBytes;
  std::size_t mOffset;
};

/// Items of one size that stand behind each other.
struct ItemList {
  std::size_t start;
  std::size_t count;
};

/// A table of the metadata: fields by number, each of which may be absent.
class MetadataTable {
 public:
  MetadataTable(Span const& span, std::size_t at);

  /// Where the field's value stands, or nothing.
  std::optional<std::size_t> find(std::size_t field) const;

  std::string_view text(std::size_t field) const;
  std::int64_t longNumber(std::size_t field) const;
  std::int32_t number(std::size_t field) const;
  std::uint16_t half(std::size_t field) const;
  unsigned char byte(std::size_t field) const;
  std::optional<MetadataTable> table(std::size_t field) const;

  /// A list of items of that size, which are all there; empty where the field is absent.
  ItemList items(std::size_t field, std::size_t size) const;

  /// Calls `visit` with each table of a list.
  template <typename Visit>
  void each(std::size_t field, Visit visit) const {
    ItemList const list = items(field, 4);
    for (std::size_t i = 0; i < list.count; ++i) {
      visit(MetadataTable(mSpan, mSpan.follow(list.start + 4 * i)));
    }
  }

 private:
  Span mSpan;
  std::size_t mAt;
  std::size_t mFields = 0;
  std::size_t mFieldsSize = 0;
};

}  // namespace kestrel::tool
