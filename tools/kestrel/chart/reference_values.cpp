#include "reference_values.h"

#include "cell_values.h"
#include "problem.h"

namespace kestrel::tool {

namespace {

double readReference(std::string const& option, std::string const& text, bool isDate) {
  if (isDate) {
    auto const moment = readMoment(text);
    if (moment) return moment->seconds;
    throw Problem(option + " " + inQuotes(text) +
                      " is no date; its axis shows dates: write it as yyyy-MM-dd, with or without a time",
                  Exit::BadInput);
  }
  auto const number = readNumber(text);
  if (number) return number->value;
  throw Problem(option + " " + inQuotes(text) + " is no number; its axis shows numbers, such as 12.5",
                Exit::BadInput);
}

}  // namespace

std::vector<double> readReferences(std::string const& option, std::vector<std::string> const& texts,
                                   Column const* column) {
  if (!texts.empty() && column != nullptr && column->categorical) {
    throw Problem(option + " needs an axis of numbers or dates, but column " + inQuotes(column->name) +
                      " has categories; leave it out, or choose another column for the axis",
                  Exit::BadInput);
  }
  bool const isDate = column != nullptr && column->type != ColumnType::Number;
  std::vector<double> values;
  values.reserve(texts.size());
  for (std::string const& text : texts) values.push_back(readReference(option, text, isDate));
  return values;
}

}  // namespace kestrel::tool
