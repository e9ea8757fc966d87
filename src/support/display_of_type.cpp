#include "support/display_of_type.h"

#include <algorithm>
#include <iterator>

namespace kestrel {

namespace {

struct DisplayOfType {
  unsigned int type;
  Display display;
};

constexpr DisplayOfType displays[] = {
    {3, Display::Number},          {4, Display::Number},          {5, Display::Number},
    {8, Display::Number},          {9, Display::Number},          {12, Display::Number},
    {15, Display::Number},         {16, Display::Number},         {17, Display::Number},
    {31, Display::Number},         {32, Display::Number},         {40, Display::Number},
    {33, Display::CustomCurrency}, {34, Display::CustomCurrency}, {35, Display::CustomCurrency},
    {36, Display::CustomCurrency}, {37, Display::CustomCurrency}, {20, Display::Date},
    {23, Display::Date},           {24, Display::Date},           {28, Display::Date},
    {29, Display::Date},           {30, Display::Date},           {38, Display::Date},
    {39, Display::Date},           {22, Display::DateTime},       {86, Display::DateTime},
    {21, Display::Time},           {85, Display::Time},           {25, Display::ElapsedTime},
    {26, Display::DayOfWeek},      {27, Display::MonthOfYear},
};

}  // namespace

Display displayOf(unsigned int type) {
  auto const* const row =
      std::find_if(std::begin(displays), std::end(displays),
                   [type](DisplayOfType const& candidate) { return candidate.type == type; });
  return row != std::end(displays) ? row->display : Display::None;
}

}  // namespace kestrel
