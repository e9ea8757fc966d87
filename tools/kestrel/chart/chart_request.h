#pragma once

#include <array>
#include <string>
#include <vector>

namespace kestrel::tool {

enum class ElementKind { Point, Bar, Line };

/// The words of the kinds, in their order.
constexpr std::array<char const*, 3> elementNames = {"point", "bar", "line"};

/// What the command line asks of a chart. An empty text was not given.
struct ChartRequest {
  std::string data;
  ElementKind element = ElementKind::Point;
  std::string x;
  std::string y;
  std::string z;
  std::string color;
  std::vector<std::string> categorical;
  std::string title;
  std::string title2;
  std::string subtitle;
  std::vector<std::string> footnotes;
  std::string xLabel;
  std::string yLabel;
  std::string zLabel;
  std::string description;
  std::string name;
  std::vector<std::string> attachments;
  std::string output;
};

}  // namespace kestrel::tool
