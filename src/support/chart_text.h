#pragma once

#include "model/chartstring.h"

#include <cstddef>
#include <initializer_list>

namespace kestrel {

/// Whether a caller's text says nothing: null counts as empty.
inline bool isEmpty(char16_t const* text) { return text == nullptr || *text == u'\0'; }

inline char16_t const* orEmpty(char16_t const* text) { return text == nullptr ? u"" : text; }

/// A number as the chart text has it: up to 16 significant digits.
inline ChartString numberText(double value) {
  ChartString text;
  text.assignDouble(value, 16);
  return text;
}

/// The parts of an id, one behind the other; a null part is empty.
inline ChartString joined(std::initializer_list<char16_t const*> parts) {
  ChartString text;
  for (char16_t const* part : parts) text.append(part);
  return text;
}

/// An id that ends in a number.
inline ChartString numbered(ChartString text, std::size_t number) {
  text.appendInteger(static_cast<long>(number));
  return text;
}

}  // namespace kestrel
