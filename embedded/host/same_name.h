#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace kestrel::host {

template <typename Word>
Word wordAt(char const* text) {
  Word word = 0;
  std::memcpy(&word, text, sizeof word);
  return word;
}

/// Word by word, for texts of at least a word; the last word may overlap the one before it.
template <typename Word>
bool sameWords(char const* left, char const* right, std::size_t size) {
  std::size_t const last = size - sizeof(Word);
  for (std::size_t position = 0; position < last; position += sizeof(Word)) {
    if (wordAt<Word>(left + position) != wordAt<Word>(right + position)) return false;
  }
  return wordAt<Word>(left + last) == wordAt<Word>(right + last);
}

/// Equality of names, in line: each cell that is written is found by two of them, and a call for each would
/// take as long as all the rest.
inline bool sameName(std::string const& left, std::string const& right) {
  std::size_t const size = left.size();
  if (size != right.size()) return false;
  if (size >= sizeof(std::uint64_t)) return sameWords<std::uint64_t>(left.data(), right.data(), size);
  if (size >= sizeof(std::uint32_t)) return sameWords<std::uint32_t>(left.data(), right.data(), size);
  return size == 0 || sameWords<unsigned char>(left.data(), right.data(), size);
}

}  // namespace kestrel::host
