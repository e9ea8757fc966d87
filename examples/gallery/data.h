#pragma once

#include "xvariable.h"

#include "kestrelhost/missing.h"

#include <string>
#include <vector>

/// The data of the gallery: the tables of examples/data, read into records.
namespace kestrel::gallery {

using host::systemMissing;

/// A number that was not measured is system-missing; a text that was not noted is empty.
struct Penguin {
  std::string species;
  std::string island;
  double billLength;     ///< mm
  double billDepth;      ///< mm
  double flipperLength;  ///< mm
  double bodyMass;       ///< g
  std::string sex;
};
std::vector<Penguin> penguins();

struct Day {
  double date;           ///< seconds since 1970-01-01T00:00:00
  double precipitation;  ///< mm
  double warmest;        ///< degrees Celsius
  double coldest;        ///< degrees Celsius
  double wind;           ///< m/s
  std::string weather;
};
/// The weather of Seattle, day by day from 2012 to 2015.
std::vector<Day> seattleWeather();

/// Numbers texts 1, 2, ... in the order in which they are first met: the store of a chart holds numbers.
class Categories {
 public:
  /// The number of a text; system-missing for an empty one.
  double code(std::string const& text);
  /// Shows each number as its text.
  void relabel(XVariable& variable) const;

 private:
  std::vector<std::string> mTexts;
};

}  // namespace kestrel::gallery
