#include "template_tags.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace kestrel::host {

namespace {

/// In small letters; UTF-8 where the text declares none, and nothing for EBCDIC or one that takes two bytes
/// or more for each character.
std::string encodingOf(std::string_view text) {
  constexpr char const* usual = "utf-8";
  if (text.substr(0, 4).find('\0') != std::string_view::npos) return {};
  // Byte order marks of UTF-16, and a declaration in EBCDIC.
  for (std::string_view const begin : {"\xFE\xFF", "\xFF\xFE", "\x4C\x6F\xA7\x94"}) {
    if (text.starts_with(begin)) return {};
  }
  std::string_view const declaration = text.substr(0, text.find("?>"));
  std::size_t const encoding = declaration.substr(0, 200).find("encoding");
  if (!text.starts_with("<?xml") || encoding == std::string_view::npos) return usual;
  std::size_t const value = declaration.find_first_of("\"'", encoding);
  if (value == std::string_view::npos) return usual;
  std::string_view const rest = declaration.substr(value + 1);
  std::string name(rest.substr(0, rest.find_first_of("\"'")));
  std::transform(name.begin(), name.end(), name.begin(), [](char each) {
    return each >= 'A' && each <= 'Z' ? static_cast<char>(each + 'a' - 'A') : each;
  });
  return name;
}

bool isUtf8(std::string_view text) { return encodingOf(text) == "utf-8"; }

/// Every byte of the text can be read as UTF-8 as far as its declaration goes.
bool isReadable(std::string_view text) { return isUtf8(text) || encodingOf(text) == "us-ascii"; }

/// Of the character that the text, which is not empty, begins with; 0 where that is none.
std::size_t lengthOfCharacter(std::string_view text) {
  // By length: the first byte's bits that say so, and the least character that needs it.
  struct Form {
    unsigned char mask;
    unsigned char mark;
    char32_t least;
  };
  static constexpr Form forms[] = {
      {0x80, 0x00, 0}, {0xE0, 0xC0, 0x80}, {0xF0, 0xE0, 0x800}, {0xF8, 0xF0, 0x10000}};
  auto const first = static_cast<unsigned char>(text[0]);
  auto const* const form = std::find_if(std::begin(forms), std::end(forms), [first](Form const& each) {
    return (first & each.mask) == each.mark;
  });
  auto const length = static_cast<std::size_t>(form - std::begin(forms)) + 1;
  if (form == std::end(forms) || text.size() < length) return 0;
  char32_t character = first & static_cast<unsigned char>(~form->mask);
  for (std::size_t at = 1; at < length; ++at) {
    auto const byte = static_cast<unsigned char>(text[at]);
    if ((byte & 0xC0U) != 0x80U) return 0;
    character = (character << 6U) | (byte & 0x3FU);
  }
  bool const isSurrogate = character >= 0xD800 && character <= 0xDFFF;
  return character < form->least || character > 0x10FFFF || isSurrogate ? 0 : length;
}

/// How many bytes at the beginning are white space or a remark; 0 where there is text.
std::size_t lengthOfNothing(std::string_view text) {
  static constexpr std::pair<std::string_view, std::string_view> remarks[] = {{"<!--", "-->"}, {"<?", "?>"}};
  for (auto const& [begin, close] : remarks) {
    if (!text.starts_with(begin)) continue;
    std::size_t const found = text.find(close, begin.size());
    return found == std::string_view::npos ? text.size() : found + close.size();
  }
  return std::min(text.find_first_not_of(" \t\r\n"), text.size());
}

}  // namespace

TagStarts::TagStarts(std::string_view text) : mText(text), mIsReadable(isReadable(text)) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (mText.starts_with(mark)) mText.remove_prefix(mark.size());
}

bool TagStarts::isBefore(TemplatePosition end) const {
  if (mAt >= mText.size()) return false;
  return mPosition.line != end.line ? mPosition.line < end.line : mPosition.column < end.column;
}

void TagStarts::step() {
  auto const byte = static_cast<unsigned char>(mText[mAt++]);
  if (byte == '<') mTag = mPosition;
  bool const endsLine = byte == '\n' || (byte == '\r' && (mAt == mText.size() || mText[mAt] != '\n'));
  if (endsLine) {
    mPosition = {mPosition.line + 1, 1};
  } else if (byte != '\r' && (byte & 0xC0U) != 0x80U) {
    // Columns count UTF-16 units.
    mPosition.column += byte >= 0xF0U ? 2 : 1;
  }
}

std::optional<TemplatePosition> TagStarts::badUtf8(std::string_view text) {
  if (!isUtf8(text)) return std::nullopt;
  TagStarts ahead(text);
  while (ahead.mAt < ahead.mText.size()) {
    std::size_t const length = lengthOfCharacter(ahead.mText.substr(ahead.mAt));
    if (length == 0) return ahead.mPosition;
    for (std::size_t step = 0; step < length; ++step) ahead.step();
  }
  return std::nullopt;
}

TemplatePosition TagStarts::textBefore(TemplatePosition end) const {
  TagStarts ahead(*this);
  while (mIsReadable && ahead.isBefore(end)) {
    std::size_t const length = lengthOfNothing(mText.substr(ahead.mAt));
    if (length == 0) return ahead.mPosition;
    for (std::size_t step = 0; step < length; ++step) ahead.step();
  }
  return end;
}

TemplatePosition TagStarts::before(TemplatePosition end) {
  if (!mIsReadable) return end;
  while (isBefore(end)) step();
  return mTag.line == 0 ? end : mTag;
}

}  // namespace kestrel::host
