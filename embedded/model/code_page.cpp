#include "code_page.h"

#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <mutex>
#include <new>
#include <stdexcept>

namespace kestrel::model {
namespace {

constexpr char16_t replacement = 0xFFFD;

struct CloseConverter {
  void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, CloseConverter>;

bool isUtf8(std::string const& codePage) { return ucnv_compareNames(codePage.c_str(), "UTF-8") == 0; }

/// ICU knows other tables under these two names.
std::string tableName(std::string const& codePage) {
  if (ucnv_compareNames(codePage.c_str(), "CP949") == 0) return "windows-949";
  if (ucnv_compareNames(codePage.c_str(), "CP950") == 0) return "windows-950";
  return codePage;
}

Converter openConverter(std::string const& codePage) {
  UErrorCode status = U_ZERO_ERROR;
  // An empty name would give the platform's own code page.
  Converter converter(codePage.empty() ? nullptr : ucnv_open(tableName(codePage).c_str(), &status));
  if (!converter || U_FAILURE(status)) throw std::invalid_argument("Unknown code page: " + codePage);
  return converter;
}

std::u16string convert(UConverter* converter, std::string_view bytes) {
  std::u16string text;
  std::u16string buffer(std::max<std::size_t>(bytes.size(), 16) + 16, u'\0');
  char const* source = bytes.data();
  char const* const end = source + bytes.size();
  UErrorCode status = U_BUFFER_OVERFLOW_ERROR;
  ucnv_resetToUnicode(converter);
  while (status == U_BUFFER_OVERFLOW_ERROR) {
    status = U_ZERO_ERROR;
    char16_t* target = buffer.data();
    ucnv_toUnicode(converter, &target, buffer.data() + buffer.size(), &source, end, nullptr, true, &status);
    text.append(buffer.data(), target);
  }
  // ICU's own sign for a bad byte is a control character, which no chart can hold.
  std::replace(text.begin(), text.end(), u'\x1A', replacement);
  return text;
}

struct LocalCodePage {
  std::mutex mutex;
  std::string name = "UTF-8";
  /// None for UTF-8.
  Converter converter;
};

LocalCodePage& local() {
  static LocalCodePage page;
  return page;
}

bool isAscii(std::string_view bytes) {
  return std::all_of(bytes.begin(), bytes.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

/// The continuation bytes that the lead byte calls for, and the least code point that needs so many.
struct Lead {
  unsigned int more;
  char32_t bits;
  char32_t least;
};

Lead leadOf(unsigned char byte) {
  if (byte >= 0xC2 && byte <= 0xDF) return {1, byte & 0x1FU, 0x80};
  if (byte >= 0xE0 && byte <= 0xEF) return {2, byte & 0x0FU, 0x800};
  if (byte >= 0xF0 && byte <= 0xF4) return {3, byte & 0x07U, 0x10000};
  return {0, 0, 0};
}

void appendCodePoint(std::u16string& text, char32_t code) {
  if (code < 0x10000) {
    text.push_back(static_cast<char16_t>(code));
    return;
  }
  text.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
  text.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
}

/// Reads one character that is not ASCII and gives the position behind it.
std::size_t appendMultibyte(std::u16string& text, std::string_view bytes, std::size_t position) {
  Lead const lead = leadOf(static_cast<unsigned char>(bytes[position++]));
  char32_t code = lead.bits;
  unsigned int read = 0;
  while (read < lead.more && position < bytes.size() &&
         (static_cast<unsigned char>(bytes[position]) & 0xC0U) == 0x80) {
    code = (code << 6) | (static_cast<unsigned char>(bytes[position]) & 0x3FU);
    ++position;
    ++read;
  }
  bool const isCharacter = lead.more > 0 && read == lead.more && code >= lead.least && code <= 0x10FFFF &&
                           (code < 0xD800 || code > 0xDFFF);
  appendCodePoint(text, isCharacter ? code : char32_t{replacement});
  return position;
}

void appendUtf8Of(std::string& bytes, char32_t code) {
  auto const put = [&bytes](char32_t byte) {
    bytes.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
  };
  if (code < 0x800) {
    put(0xC0 | (code >> 6));
  } else if (code < 0x10000) {
    put(0xE0 | (code >> 12));
    put(0x80 | ((code >> 6) & 0x3F));
  } else {
    put(0xF0 | (code >> 18));
    put(0x80 | ((code >> 12) & 0x3F));
    put(0x80 | ((code >> 6) & 0x3F));
  }
  put(0x80 | (code & 0x3F));
}

bool isHigh(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLow(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

/// It takes long to make, so there is one for the process.
icu::Transliterator const& transliterator() {
  static std::unique_ptr<icu::Transliterator> const instance = [] {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> made(icu::Transliterator::createInstance(
        "Any-Latin; Latin-ASCII; [:^ASCII:] Remove", UTRANS_FORWARD, status));
    if (!made || U_FAILURE(status)) throw std::runtime_error("No transliteration to Latin letters");
    return made;
  }();
  return *instance;
}

}  // namespace

void appendUtf8(std::u16string& text, std::string_view bytes) {
  text.reserve(text.size() + bytes.size());
  std::size_t position = 0;
  while (position < bytes.size()) {
    auto const byte = static_cast<unsigned char>(bytes[position]);
    if (byte < 0x80) {
      text.push_back(byte);
      ++position;
    } else {
      position = appendMultibyte(text, bytes, position);
    }
  }
}

std::string toUtf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t code = text[i];
    if (code < 0x80) {
      bytes.push_back(static_cast<char>(code));
      continue;
    }
    if (isHigh(text[i]) && i + 1 < text.size() && isLow(text[i + 1])) {
      code = 0x10000 + ((code - 0xD800) << 10) + (char32_t{text[++i]} - 0xDC00);
    } else if (isHigh(text[i]) || isLow(text[i])) {
      code = replacement;
    }
    appendUtf8Of(bytes, code);
  }
  return bytes;
}

void appendLocal(std::u16string& text, std::string_view bytes) {
  LocalCodePage& page = local();
  // A converter has a state, so that two threads cannot share it.
  std::unique_lock const lock(page.mutex);
  if (!page.converter) {
    appendUtf8(text, bytes);
  } else {
    text += convert(page.converter.get(), bytes);
  }
}

std::u16string decode(std::string_view bytes, std::string const& codePage) {
  if (!isUtf8(codePage)) return convert(openConverter(codePage).get(), bytes);
  std::u16string text;
  appendUtf8(text, bytes);
  return text;
}

void setLocalCodePage(std::string const& name) {
  Converter converter = isUtf8(name) ? Converter() : openConverter(name);
  std::unique_lock const lock(local().mutex);
  local().name = name;
  local().converter = std::move(converter);
}

std::string localCodePage() {
  std::unique_lock const lock(local().mutex);
  return local().name;
}

std::string toAscii(std::u16string_view text) {
  std::string bytes = toUtf8(text);
  if (isAscii(bytes)) return bytes;
  icu::UnicodeString letters = icu::UnicodeString::fromUTF8(bytes);
  transliterator().transliterate(letters);
  std::string ascii;
  letters.toUTF8String(ascii);
  return ascii;
}

}  // namespace kestrel::model
