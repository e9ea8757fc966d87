#include "data.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace kestrel::gallery {

namespace {

/// Where it was installed, then where it was built.
std::filesystem::path dataFolder() {
  std::filesystem::path const installed = KESTREL_EXAMPLES_INSTALL_DIR;
  return std::filesystem::exists(installed) ? installed : KESTREL_EXAMPLES_DIR;
}

/// The cells of a row; the tables have no quotes.
std::vector<std::string> cellsOf(std::string const& line) {
  std::vector<std::string> cells;
  std::istringstream rest(line);
  for (std::string cell; std::getline(rest, cell, ',');) cells.push_back(cell);
  if (line.ends_with(',')) cells.emplace_back();
  return cells;
}

/// All rows behind the one with the names.
std::vector<std::vector<std::string>> rowsOf(std::string const& name, std::size_t columns) {
  std::filesystem::path const path = dataFolder() / name;
  std::ifstream file(path);
  std::vector<std::vector<std::string>> rows;
  std::string line;
  std::getline(file, line);
  while (std::getline(file, line)) {
    rows.push_back(cellsOf(line));
    if (rows.back().size() != columns) throw std::runtime_error(path.string() + ": not a table: " + line);
  }
  if (rows.empty()) throw std::runtime_error(path.string() + ": cannot be read");
  return rows;
}

double numberOf(std::string const& cell) {
  return cell.empty() ? systemMissing : std::strtod(cell.c_str(), nullptr);
}

/// Of yyyy-MM-dd.
double secondsOf(std::string const& date) {
  using namespace std::chrono;
  year_month_day const day{year(std::stoi(date.substr(0, 4))),
                           month(static_cast<unsigned int>(std::stoul(date.substr(5, 2)))),
                           std::chrono::day(static_cast<unsigned int>(std::stoul(date.substr(8, 2))))};
  return static_cast<double>(seconds(sys_days(day).time_since_epoch()).count());
}

}  // namespace

std::vector<Penguin> penguins() {
  std::vector<Penguin> all;
  for (auto const& row : rowsOf("penguins.csv", 7)) {
    all.push_back(
        {row[0], row[1], numberOf(row[2]), numberOf(row[3]), numberOf(row[4]), numberOf(row[5]), row[6]});
  }
  return all;
}

std::vector<Day> seattleWeather() {
  std::vector<Day> all;
  for (auto const& row : rowsOf("seattle-weather.csv", 6)) {
    all.push_back(
        {secondsOf(row[0]), numberOf(row[1]), numberOf(row[2]), numberOf(row[3]), numberOf(row[4]), row[5]});
  }
  return all;
}

double Categories::code(std::string const& text) {
  if (text.empty()) return systemMissing;
  auto const found = std::find(mTexts.begin(), mTexts.end(), text);
  auto const number = static_cast<double>(found - mTexts.begin() + 1);
  if (found == mTexts.end()) mTexts.push_back(text);
  return number;
}

void Categories::relabel(XVariable& variable) const {
  unsigned int number = 0;
  for (std::string const& text : mTexts) {
    ChartString shown;
    shown.assignUTF8(text);
    variable.addRelabel(++number, shown.xc_str());
  }
}

}  // namespace kestrel::gallery
