#pragma once

#include <cstddef>
#include <string>

namespace kestrel::test {

/// The charts of a soak differ in their description and in their data, so that one that is lost, or gets
/// another one's data, shows.
constexpr std::size_t soakRows = 100;
constexpr std::size_t soakColumns = 3;

std::string soakDescription(std::size_t chart);
double soakCell(std::size_t chart, std::size_t row, std::size_t column);

/// The template that each chart goes through.
std::string soakTemplate();
constexpr char const* soakTemplateName = "looks.xml";

/// Makes a clustered bar chart with a title, two axes and a legend, completes it, and sends it.
bool sendSoakChart(std::size_t chart);

}  // namespace kestrel::test
