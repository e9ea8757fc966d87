#pragma once

#include <string>
#include <string_view>

namespace kestrel::model {

/// The text of `bytes` in UTF-8; what is none becomes U+FFFD.
void appendUtf8(std::u16string& text, std::string_view bytes);
/// The UTF-8 of `text`; half a surrogate pair becomes U+FFFD.
std::string toUtf8(std::u16string_view text);

/// The text of `bytes` in the local code page.
void appendLocal(std::u16string& text, std::string_view bytes);
/// Throws std::invalid_argument for an unknown code page.
std::u16string decode(std::string_view bytes, std::string const& codePage);
void setLocalCodePage(std::string const& name);
std::string localCodePage();

/// ASCII only: transliterated, what has no Latin form dropped.
std::string toAscii(std::u16string_view text);

}  // namespace kestrel::model
