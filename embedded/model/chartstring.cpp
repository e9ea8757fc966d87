#include "model/chartstring.h"

#include "code_page.h"
#include "number_text.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <utility>

namespace {

std::u16string_view viewOf(char16_t const* text) noexcept {
  return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

void appendAscii(std::u16string& text, std::string_view ascii) { text.append(ascii.begin(), ascii.end()); }

template <typename Integer>
void appendDigits(std::u16string& text, Integer value) {
  std::array<char, 24> buffer;
  auto const result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  appendAscii(text, {buffer.data(), static_cast<std::size_t>(result.ptr - buffer.data())});
}

bool isSpace(char16_t character) noexcept {
  return character == u' ' || character == u'\t' || character == u'\n' || character == u'\r';
}

bool equalsFolded(std::u16string_view left, std::u16string_view right) {
  if (left == right) return true;
  // An empty text may be a null pointer, which the comparison refuses with a result that says equal.
  if (left.empty() || right.empty()) return false;
  UErrorCode status = U_ZERO_ERROR;
  return u_strCaseCompare(left.data(), static_cast<int32_t>(left.size()), right.data(),
                          static_cast<int32_t>(right.size()), U_FOLD_CASE_DEFAULT, &status) == 0;
}

}  // namespace

ChartString::ChartString() noexcept = default;
ChartString::ChartString(ChartString const& other) = default;
ChartString::ChartString(ChartString&& other) noexcept = default;
ChartString::ChartString(char const* text) { append(text); }
ChartString::ChartString(char16_t const* text) : text_(viewOf(text)) {}
ChartString::ChartString(unsigned long value) { append(value); }
ChartString::~ChartString() = default;

ChartString& ChartString::operator=(ChartString const& other) = default;
ChartString& ChartString::operator=(ChartString&& other) noexcept = default;

ChartString& ChartString::operator=(char const* text) {
  assign(text);
  return *this;
}

ChartString& ChartString::operator=(char16_t const* text) {
  assign(text);
  return *this;
}

ChartString& ChartString::operator=(unsigned long value) {
  assign(value);
  return *this;
}

void ChartString::assign(ChartString const& other) { text_ = other.text_; }

void ChartString::assign(char const* text) {
  text_.clear();
  append(text);
}

void ChartString::assign(char16_t const* text) { text_.assign(viewOf(text)); }

void ChartString::assign(unsigned long value) {
  text_.clear();
  append(value);
}

void ChartString::assign(unsigned int value) { assign(static_cast<unsigned long>(value)); }

void ChartString::assign(char16_t character) { text_.assign(1, character); }

void ChartString::assign(char16_t const* first, char16_t const* last) {
  if (first == nullptr || last == nullptr || last <= first) {
    text_.clear();
  } else {
    text_.assign(first, static_cast<std::size_t>(last - first));
  }
}

void ChartString::append(ChartString const& other) { text_.append(other.text_); }

void ChartString::append(char const* text) {
  if (text != nullptr) kestrel::model::appendLocal(text_, text);
}

void ChartString::append(char16_t const* text) { text_.append(viewOf(text)); }
void ChartString::append(char16_t character) { text_.push_back(character); }
void ChartString::append(unsigned long value) { appendDigits(text_, value); }
void ChartString::append(unsigned int value) { appendDigits(text_, value); }
void ChartString::appendInteger(long value) { appendDigits(text_, value); }

void ChartString::assignInteger(long value) {
  text_.clear();
  appendInteger(value);
}

void ChartString::appendDouble(double value) {
  appendAscii(text_, kestrel::model::NumberText::shortest(value).view());
}

void ChartString::assignDouble(double value, unsigned int precision) {
  text_.clear();
  appendAscii(text_, kestrel::model::NumberText::rounded(value, precision).view());
}

void ChartString::assignUTF8(std::string const& text) {
  text_.clear();
  kestrel::model::appendUtf8(text_, text);
}

std::string ChartString::toUTF8() const { return kestrel::model::toUtf8(text_); }
std::string ChartString::toUTF8ForEng() const { return kestrel::model::toAscii(text_); }

char16_t const* ChartString::xc_str() const noexcept { return text_.c_str(); }
bool ChartString::empty() const noexcept { return text_.empty(); }
std::size_t ChartString::length() const noexcept { return text_.size(); }

bool ChartString::equals(ChartString const& other) const noexcept { return text_ == other.text_; }
bool ChartString::equals(char16_t const* text) const noexcept { return text_ == viewOf(text); }
bool ChartString::equalsi(ChartString const& other) const { return equalsFolded(text_, other.text_); }
bool ChartString::equalsi(char16_t const* text) const { return equalsFolded(text_, viewOf(text)); }

bool ChartString::ContainsString(char16_t const* text) const noexcept {
  return text_.find(viewOf(text)) != std::u16string::npos;
}

void ChartString::replaceChars(char16_t from, char16_t to) noexcept {
  std::replace(text_.begin(), text_.end(), from, to);
}

void ChartString::replaceSubstring(char16_t const* from, char16_t const* to) {
  std::u16string_view const wanted = viewOf(from);
  if (wanted.empty()) return;
  std::size_t found = text_.find(wanted);
  if (found == std::u16string::npos) return;
  std::u16string result;
  std::size_t copied = 0;
  for (; found != std::u16string::npos; found = text_.find(wanted, copied)) {
    result.append(text_, copied, found - copied).append(viewOf(to));
    copied = found + wanted.size();
  }
  result.append(text_, copied);
  text_ = std::move(result);
}

void ChartString::trimSpaces(bool leading) {
  while (!text_.empty() && isSpace(text_.back())) text_.pop_back();
  if (leading) text_.erase(text_.begin(), std::find_if_not(text_.begin(), text_.end(), isSpace));
}

void ChartString::truncateString(unsigned int count) {
  std::size_t kept = text_.size() - std::min<std::size_t>(count, text_.size());
  bool const splits =
      kept > 0 && kept < text_.size() && U16_IS_LEAD(text_[kept - 1]) && U16_IS_TRAIL(text_[kept]);
  text_.resize(splits ? kept - 1 : kept);
}

bool operator<(ChartString const& left, ChartString const& right) noexcept {
  return left.text_ < right.text_;
}

void ChartString::setLocalCodePage(std::string const& name) { kestrel::model::setLocalCodePage(name); }
std::string ChartString::localCodePage() { return kestrel::model::localCodePage(); }

ChartString ChartString::fromCodePage(std::string_view bytes, std::string const& codePage) {
  ChartString result;
  result.text_ = kestrel::model::decode(bytes, codePage);
  return result;
}
