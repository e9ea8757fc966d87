#include "arrow_metadata.h"

#include "capture_reader.h"

namespace kestrel::tool {

std::string_view Span::take(std::size_t at, std::size_t count) const {
  if (at > mBytes.size() || count > mBytes.size() - at) fail(mBytes.size(), "the stream is cut");
  return mBytes.substr(at, count);
}

std::uint16_t Span::half(std::size_t at) const { return shortWord(take(at, 2)); }
std::uint32_t Span::number(std::size_t at) const { return word(take(at, 4)); }
std::int64_t Span::longNumber(std::size_t at) const { return longWord(take(at, 8)); }

MetadataTable::MetadataTable(Span const& span, std::size_t at) : mSpan(span), mAt(at) {
  auto const toFields = static_cast<std::int32_t>(span.number(at));
  auto const fields = static_cast<std::int64_t>(at) - toFields;
  if (fields < 0) span.fail(at, "the metadata is corrupt");
  mFields = static_cast<std::size_t>(fields);
  mFieldsSize = span.half(mFields);
}

std::optional<std::size_t> MetadataTable::find(std::size_t field) const {
  std::size_t const slot = 4 + 2 * field;
  if (slot + 2 > mFieldsSize) return std::nullopt;
  std::uint16_t const offset = mSpan.half(mFields + slot);
  if (offset == 0) return std::nullopt;
  return mAt + offset;
}

std::string_view MetadataTable::text(std::size_t field) const {
  auto const at = find(field);
  return at ? mSpan.text(mSpan.follow(*at)) : std::string_view();
}

std::int64_t MetadataTable::longNumber(std::size_t field) const {
  auto const at = find(field);
  return at ? mSpan.longNumber(*at) : 0;
}

std::int32_t MetadataTable::number(std::size_t field) const {
  auto const at = find(field);
  return at ? static_cast<std::int32_t>(mSpan.number(*at)) : 0;
}

std::uint16_t MetadataTable::half(std::size_t field) const {
  auto const at = find(field);
  return at ? mSpan.half(*at) : std::uint16_t{0};
}

unsigned char MetadataTable::byte(std::size_t field) const {
  auto const at = find(field);
  return at ? static_cast<unsigned char>(mSpan.take(*at, 1)[0]) : static_cast<unsigned char>(0);
}

std::optional<MetadataTable> MetadataTable::table(std::size_t field) const {
  auto const at = find(field);
  if (!at) return std::nullopt;
  return MetadataTable(mSpan, mSpan.follow(*at));
}

ItemList MetadataTable::items(std::size_t field, std::size_t size) const {
  auto const at = find(field);
  if (!at) return {0, 0};
  std::size_t const list = mSpan.follow(*at);
  std::size_t const count = mSpan.number(list);
  mSpan.take(list + 4, count * size);
  return {list + 4, count};
}

}  // namespace kestrel::tool
