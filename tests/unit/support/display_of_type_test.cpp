#include "support/display_of_type.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace kestrel::test {
namespace {

TEST(DisplayOfType, IsThatOfTheHostsNumbers) {
  std::map<Display, std::vector<unsigned int>> types;
  for (unsigned int type = 0; type < 256; ++type) {
    if (displayOf(type) != Display::None) types[displayOf(type)].push_back(type);
  }
  EXPECT_EQ(types, (std::map<Display, std::vector<unsigned int>>{
                       {Display::Number, {3, 4, 5, 8, 9, 12, 15, 16, 17, 31, 32, 40}},
                       {Display::CustomCurrency, {33, 34, 35, 36, 37}},
                       {Display::Date, {20, 23, 24, 28, 29, 30, 38, 39}},
                       {Display::DateTime, {22, 86}},
                       {Display::Time, {21, 85}},
                       {Display::ElapsedTime, {25}},
                       {Display::DayOfWeek, {26}},
                       {Display::MonthOfYear, {27}},
                   }));
}

}  // namespace
}  // namespace kestrel::test
