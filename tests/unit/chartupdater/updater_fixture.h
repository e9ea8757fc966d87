#pragma once

#include "built_chart.h"
#include "chartupdater.h"
#include "every_failure.h"

#include "model/aesthetics.h"
#include "model/elements.h"
#include "model/style.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace kestrel::test {

/// A chart with a style container and a graph that is finished by an updater.
class UpdaterTest : public BuiltChartTest {
 protected:
  /// The record of the chart's special parts.
  LumoExtensionVis& record() { return *visualization.getExtension(); }

  ChartUpdater updater{document};
};

/// What the default looks write into a chart that has nothing yet, in order, with the date as "today".
std::vector<std::string> defaultLooks();

/// Puts "today" in the place of every date.
std::vector<std::string> withoutDate(std::vector<std::string> lines);

/// The lines without those at the end that the default looks write; a failure of the test where they are not
/// there.
std::vector<std::string> beforeDefaultLooks(std::vector<std::string> const& lines);

LumoSummaryStatistic& addSummary(CTElementType& element, int method);

}  // namespace kestrel::test
