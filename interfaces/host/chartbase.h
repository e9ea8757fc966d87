#pragma once

#include "export.h"

#include "../model/chartstring.h"

#include <string>

class FacSTDictionary;
class LumoFormat;
class LumoVisualization;
class Vexa_Format;

/// What the chart code needs of its host beside the model: trace, dumps, ids, display formats and the ids of
/// well-known nodes.
class VEXA_API ChartBase {
 public:
  /// The category of a dump. Open: a host may give other values a meaning.
  enum PRINTTYPE : int {
    PrintChart = 0,            ///< chart text, and text that failed to parse
    PrintConversion = 1,       ///< texts on their way to and from a converter
    PrintBeforeTemplate = 2,   ///< the chart before a template
    PrintAfterTemplate = 3,    ///< the chart after a template
    PrintTemplate = 6,         ///< the text of a template
    PrintCompressedChart = 9,  ///< the chart as it is sent
  };

  /// Writes one line of progress trace.
  static void printDebugInfo(std::string const& line);

  /// True where dumps of that category are wanted.
  static bool willPrintString(PRINTTYPE type);

  /// Writes `content` to a dump named from prefix, number and suffix, if dumps of that category are wanted.
  static void printString(std::string const& content, std::string const& prefix, std::string const& suffix,
                          unsigned long number, PRINTTYPE type);

  /// The id itself where the chart has no such id yet, otherwise the id with a number that makes it unique.
  static ChartString CreateUniqueId(ChartString const& id, LumoVisualization& visualization);

  /// @{
  /// Each fills the display attributes of a format element from a print format, and is false where the host
  /// has no display for the type; the element then stays as it was.
  static bool FormatNumber(LumoFormat& element, Vexa_Format& format);
  static bool FormatCustomCurrency(LumoFormat& element, Vexa_Format& format);
  static bool FormatDate(LumoFormat& element, Vexa_Format& format);
  static bool FormatElapsedTime(LumoFormat& element, Vexa_Format& format);
  /// @}

  /// Rewrites a text in place: where the dictionary knows the whole text as a key, its translation takes the
  /// place. Any other text stays, and so does every text with a null dictionary. `encoding` is the code page
  /// of the language, for hosts whose dictionaries are not in the local one.
  static void updateText(ChartString& text, FacSTDictionary* dictionary, std::string const& encoding);

  /// @{
  /// Ids of well-known nodes of a chart and other fixed words, each the name behind the underscore, but for
  /// three: `_default_style` is "s", which makes the id of a style out of that of its element, `_percent` is
  /// the percent sign, and `_utf8` is "UTF-8".
  static char16_t const _container[];
  static char16_t const _default_style[];
  static char16_t const _frame_data_1[];
  static char16_t const _frame_graph_1[];
  static char16_t const _frame_title_1[];
  static char16_t const _frame_title_2[];
  static char16_t const _frame_subtitle_1[];
  static char16_t const _frame_footnote_1[];
  static char16_t const _frame_footnote_2[];
  static char16_t const _frame_footnote_3[];
  static char16_t const _frame_statistics_summary_1[];
  static char16_t const _matrixscatter[];
  static char16_t const _percent[];
  static char16_t const _styleCyclePattern[];
  static char16_t const _styleCycleRepository[];
  static char16_t const _utf8[];
  /// @}
};
