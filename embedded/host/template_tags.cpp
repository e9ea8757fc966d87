#include "template_tags.h"

#include <algorithm>
#include <utility>

namespace kestrel::host {

namespace {

/// Every byte of the text can be read as UTF-8 as far as its declaration goes.
bool isReadable(std::string_view text) {
  if (text.substr(0, 4).find('\0') != std::string_view::npos) return false;
  if (!text.empty() && static_cast<unsigned char>(text[0]) >= 0xF0) return false;
  std::string_view const declaration = text.substr(0, text.find("?>"));
  std::size_t const encoding = declaration.substr(0, 200).find("encoding");
  if (!text.starts_with("<?xml") || encoding == std::string_view::npos) return true;
  std::size_t const value = declaration.find_first_of("\"'", encoding);
  if (value == std::string_view::npos) return true;
  std::string_view const name = declaration.substr(value + 1, 5);
  return name == "UTF-8" || name == "utf-8" || name == "US-AS" || name == "us-as";
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
