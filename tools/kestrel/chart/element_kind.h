#pragma once

#include <array>
#include <cstddef>

namespace kestrel::tool {

/// How the data is drawn.
enum class ElementKind { Point, Bar, Line, Histogram, Box, ErrorBar, Pyramid };

/// The words of the kinds, in their order.
constexpr std::array<char const*, 7> elementNames = {"point", "bar",      "line",   "histogram",
                                                     "box",   "errorbar", "pyramid"};

/// Some of the kinds, as one bit for each.
using ElementKinds = unsigned int;

template <typename... Kinds>
constexpr ElementKinds these(Kinds... kinds) {
  return ((1U << static_cast<unsigned int>(kinds)) | ...);
}

constexpr bool isAmong(ElementKind kind, ElementKinds kinds) { return (kinds & these(kind)) != 0; }

/// The client bins the column of X and counts its rows, so that there is no column of Y.
constexpr ElementKinds countingKinds = these(ElementKind::Histogram, ElementKind::Pyramid);
/// The client computes figures of the column of Y.
constexpr ElementKinds summarisingKinds = these(ElementKind::Box, ElementKind::ErrorBar);
/// Several can stand side by side at one place of X.
constexpr ElementKinds clusteringKinds = these(ElementKind::Bar, ElementKind::Box, ElementKind::ErrorBar);
/// Several can stand on each other at one place of X.
constexpr ElementKinds stackingKinds = these(ElementKind::Bar, ElementKind::Histogram, ElementKind::Pyramid);

}  // namespace kestrel::tool
