#pragma once

#include "kestrel_export.h"

#include "model/chartstring.h"

#include <memory>
#include <vector>

class LumoBaseElement;
class LumoDocument;
class LumoStyle;

/// Brings a finished chart up to the library's standard, in place. Nothing is guarded: failures of the model
/// pass to the caller, and what was done before them stays.
class KESTREL_API ChartUpdater {
 public:
  /// Finds the chart's container style, the first one of its id, or makes it.
  /// @param document not owned; must outlive the updater
  explicit ChartUpdater(LumoDocument& document);
  ChartUpdater(ChartUpdater const&) = delete;
  ChartUpdater& operator=(ChartUpdater const&) = delete;
  ~ChartUpdater();

  /// What every chart gets: today's date, the repository of style cycles, the record of its special parts,
  /// and the settings of its facet layouts and bins.
  void AddDefaultLooks();

  /// For a chart that was converted from PDL; ends with `AddDefaultLooks`.
  void AddDefaultPDLLooks();

  /// For a chart that was upgraded from LumoML 1.4; ends with `AddDefaultLooks`. Above version 2.0 that is
  /// all.
  void AddDefaultLUMOMLLooks();

  /// Translates the label texts of all label frames and records the chart's titles, footnotes, legends and
  /// repository of style cycles.
  void addExtensions();

  /// False, also for a chart with a polar transform: hosts rely on it.
  bool isChartPie() const;

  /// Whether the list has this id.
  bool idExists(ChartString const& id, std::vector<ChartString>& ids) const;

  /// Copies all attributes but the id.
  /// @return how many
  int duplicateAttributes(LumoBaseElement const& from, LumoBaseElement& to) const;

  /// Leaves of a style nothing but its id.
  void removeAllStyleValues(LumoStyle& style);

 private:
  struct ChartUpdaterData;

  std::unique_ptr<ChartUpdaterData> mData;
};
