#pragma once

#include "export.h"

#include <cstddef>
#include <string>
#include <string_view>

/// The UTF-16 text of the chart model. A null text counts as empty wherever one is taken. Lengths and
/// positions are in UTF-16 units. Narrow text (`char const*`) is in the local code page, which is UTF-8
/// unless the host says otherwise; bytes that are no character of it become U+FFFD.
class LUMO_API ChartString {
 public:
  /// The empty text.
  ChartString() noexcept;

  /// @{
  /// The same text.
  ChartString(ChartString const& other);
  ChartString(ChartString&& other) noexcept;
  ChartString(char const* text);
  ChartString(char16_t const* text);
  /// @}

  /// The decimal digits of `value`.
  explicit ChartString(unsigned long value);
  ~ChartString();

  /// @{
  /// Replaces the text, as `assign` does.
  ChartString& operator=(ChartString const& other);
  ChartString& operator=(ChartString&& other) noexcept;
  ChartString& operator=(char const* text);
  ChartString& operator=(char16_t const* text);
  ChartString& operator=(unsigned long value);
  /// @}

  /// @{
  /// Replaces the text: by another, by the decimal digits of a number, by one UTF-16 unit.
  void assign(ChartString const& other);
  void assign(char const* text);
  void assign(char16_t const* text);
  void assign(unsigned long value);
  void assign(unsigned int value);
  void assign(char16_t character);
  /// @}

  /// The characters from `first` up to, not including, `last`; nothing when either is null or `last` is not
  /// behind `first`.
  void assign(char16_t const* first, char16_t const* last);

  /// @{
  /// Adds to the end of the text what `assign` would replace it by. A text may be appended to itself, in
  /// whole or in part.
  void append(ChartString const& other);
  void append(char const* text);
  void append(char16_t const* text);
  void append(char16_t character);
  void append(unsigned long value);
  void append(unsigned int value);
  /// @}

  /// @{
  /// The decimal digits of a number, with its sign where it is negative.
  void appendInteger(long value);
  void assignInteger(long value);
  /// @}

  /// The shortest digits that read back as the same number, whatever the locale: plain notation from 1e-5 up
  /// to 1e16, an exponent beyond ("1e17"), "NaN", "INF" and "-INF" for what is no number.
  void appendDouble(double value);
  /// At most `precision` significant digits (1 to 17) without trailing zeros, in the notation of
  /// appendDouble.
  void assignDouble(double value, unsigned int precision);

  /// Replaces the text. Bytes that are not UTF-8 become U+FFFD.
  void assignUTF8(std::string const& text);
  /// Half a surrogate pair becomes U+FFFD.
  std::string toUTF8() const;
  /// The text in plain ASCII: letters of other scripts are transliterated, what has no Latin form is dropped.
  std::string toUTF8ForEng() const;

  /// Zero-terminated, never null, valid until the text changes.
  char16_t const* xc_str() const noexcept;
  /// Whether the length is 0.
  bool empty() const noexcept;
  /// In UTF-16 units.
  std::size_t length() const noexcept;

  /// @{
  /// Equal unit by unit.
  bool equals(ChartString const& other) const noexcept;
  bool equals(char16_t const* text) const noexcept;
  /// @}

  /// @{
  /// Equal by Unicode default case folding.
  bool equalsi(ChartString const& other) const;
  bool equalsi(char16_t const* text) const;
  /// @}

  /// The empty text stands in every text.
  bool ContainsString(char16_t const* text) const noexcept;

  /// Replaces every occurrence of a UTF-16 unit.
  void replaceChars(char16_t from, char16_t to) noexcept;
  /// Replaces every occurrence, from left to right; an empty `from` replaces nothing.
  void replaceSubstring(char16_t const* from, char16_t const* to);
  /// Cuts blanks, tabs and line ends at the end of the text, and with `leading` at its start too.
  void trimSpaces(bool leading);
  /// Drops the last `count` characters, all of them if there are fewer. A surrogate pair that the cut would
  /// split goes as a whole.
  void truncateString(unsigned int count);

  /// Equal unit by unit.
  friend bool operator==(ChartString const& left, ChartString const& right) noexcept {
    return left.equals(right);
  }
  /// In the order of the UTF-16 units.
  LUMO_API friend bool operator<(ChartString const& left, ChartString const& right) noexcept;

  /// The code page of narrow text, for the whole process. Names as ICU has them; "CP949" and "CP950" mean the
  /// Windows code pages of that number. Throws std::invalid_argument for a name that stands for none, and
  /// changes nothing.
  static void setLocalCodePage(std::string const& name);
  /// The name that was set, "UTF-8" at first.
  static std::string localCodePage();
  /// The text of `bytes` in the named code page. Throws std::invalid_argument as setLocalCodePage does.
  static ChartString fromCodePage(std::string_view bytes, std::string const& codePage);

 private:
  std::u16string text_;
};
