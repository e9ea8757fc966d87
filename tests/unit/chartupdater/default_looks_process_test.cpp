// The date in processes of different time zones.

#include "chart_test.h"
#include "chartupdater.h"

#include "model/document.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <ctime>
#include <string>

namespace kestrel::test {
namespace {

using ::testing::AnyOf;

/// The date at a place that many hours east of Greenwich.
std::string dayAt(int hours) {
  std::time_t const there = std::time(nullptr) + hours * 3600;
  std::tm parts{};
  gmtime_r(&there, &parts);
  char text[] = "yyyy-mm-dd";
  std::strftime(text, sizeof text, "%Y-%m-%d", &parts);
  return text;
}

class DateOfTheLooks : public ChartTest, public ::testing::WithParamInterface<int> {
 protected:
  /// The names of such zones count to the west.
  void goTo(int hours) {
    setenv("TZ", ("<here>" + std::to_string(-hours)).c_str(), 1);
    tzset();
  }

  LumoDocument document;
};

TEST_P(DateOfTheLooks, IsThatOfThePlace) {
  goTo(GetParam());
  std::string const before = dayAt(GetParam());
  ChartUpdater(document).AddDefaultLooks();
  EXPECT_THAT(attribute(document.getVisualization(), u"date"), AnyOf(before, dayAt(GetParam())));
}

// At any time the date at one of the two is not that of Greenwich.
INSTANTIATE_TEST_SUITE_P(Places, DateOfTheLooks, ::testing::Values(12, -12));

}  // namespace
}  // namespace kestrel::test
