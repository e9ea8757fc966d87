#include "updater_fixture.h"

#include <algorithm>
#include <regex>

namespace kestrel::test {

std::vector<std::string> defaultLooks() {
  return {"visualization date=today",
          "visualization adds styleCycle",
          "styleCycle id=styleCycleRepository",
          "styleCycle adds cycle",
          "cycle adds style",
          "visualization adds extension",
          "extension styleCycleRepository=styleCycleRepository"};
}

std::vector<std::string> withoutDate(std::vector<std::string> lines) {
  static std::regex const date("^visualization date=[-0-9]+$");
  for (std::string& line : lines) line = std::regex_replace(line, date, "visualization date=today");
  return lines;
}

std::vector<std::string> beforeDefaultLooks(std::vector<std::string> const& lines) {
  auto all = withoutDate(lines);
  auto const looks = defaultLooks();
  auto const size = static_cast<std::ptrdiff_t>(looks.size());
  if (all.size() < looks.size() || !std::equal(looks.begin(), looks.end(), all.end() - size)) {
    ADD_FAILURE() << "the default looks do not come last";
    return all;
  }
  all.erase(all.end() - size, all.end());
  return all;
}

LumoSummaryStatistic& addSummary(CTElementType& element, int method) {
  LumoSummaryStatistic& statistic = *element.addSummaryStatistic();
  statistic.setMethod(static_cast<LumoSummaryStatistic::ENUM_method>(method));
  return statistic;
}

}  // namespace kestrel::test
