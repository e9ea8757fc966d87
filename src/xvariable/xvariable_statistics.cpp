// The statistic that a computed variable holds.

#include "xvariable.h"

#include "model/base.h"
#include "model/variables.h"

#include <iterator>

namespace {

/// Which arguments of the call a statistic takes.
enum class Arguments { None, Midpoints, Value, ValueAndMidpoints, Range };

struct StatisticRow {
  /// Its number in the chart, or 0 for a statistic that is not written.
  int number;
  Arguments arguments;
};

/// By the caller's number. From 13 to 15 the chart's numbers are out of step: relied upon.
constexpr StatisticRow statistics[] = {{1, Arguments::None},   {2, Arguments::None},
                                       {3, Arguments::None},   {4, Arguments::Midpoints},
                                       {5, Arguments::None},   {6, Arguments::None},
                                       {7, Arguments::None},   {8, Arguments::None},
                                       {9, Arguments::None},   {10, Arguments::None},
                                       {11, Arguments::None},  {12, Arguments::None},
                                       {13, Arguments::None},  {15, Arguments::Value},
                                       {16, Arguments::Value}, {14, Arguments::ValueAndMidpoints},
                                       {17, Arguments::Value}, {18, Arguments::Value},
                                       {19, Arguments::Range}, {20, Arguments::Range},
                                       {21, Arguments::Value}, {22, Arguments::Value},
                                       {23, Arguments::Value}, {24, Arguments::Value},
                                       {25, Arguments::Value}, {26, Arguments::Value},
                                       {27, Arguments::Value}, {28, Arguments::Value},
                                       {0, Arguments::None},   {30, Arguments::None},
                                       {31, Arguments::None}};
static_assert(std::size(statistics) == XVariable::Statistic30 + 1);

}  // namespace

void XVariable::setStatistic(ENUM_statistic statistic, double value, double minimum, double maximum,
                             bool groupedMidpoints) {
  // Made also for a statistic that is not written.
  LumoExtensionSV* extension = mImplementation->getExtension();
  if (extension == nullptr) extension = mImplementation->addExtension();
  if (statistic < 0 || statistic > Statistic30 || statistics[statistic].number == 0) return;
  StatisticRow const& row = statistics[statistic];
  extension->setStatistic(static_cast<LumoExtensionSV::ENUM_statistic>(row.number));
  Arguments const taken = row.arguments;
  if (taken == Arguments::Value || taken == Arguments::ValueAndMidpoints) extension->setValue(value);
  if (taken == Arguments::Midpoints || taken == Arguments::ValueAndMidpoints) {
    extension->setValuesAreGroupedMidpoints(groupedMidpoints);
  }
  if (taken == Arguments::Range) {
    extension->setMax(maximum);
    extension->setMin(minimum);
  }
}
