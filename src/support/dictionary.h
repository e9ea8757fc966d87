#pragma once

#include "host/text.h"
#include "model/chartstring.h"

#include <string>

namespace kestrel {

/// The host's table of translated chart texts, in the output language.
class ChartDictionary {
 public:
  ChartDictionary();

  /// The translation of a key, as the table gives it, empty or not.
  ChartString text(char const* key);
  /// The same by way of the table's positions, as names of days and months are asked for.
  ChartString indexedText(char const* key);

 private:
  FacSTDictionary mTable;
};

}  // namespace kestrel
