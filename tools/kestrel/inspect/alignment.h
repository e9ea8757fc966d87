#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

namespace kestrel::tool {

/// What stands side by side in two lists: two that are equal, or one that has no counterpart.
struct Pairing {
  std::optional<std::size_t> left;
  std::optional<std::size_t> right;

  bool operator==(Pairing const&) const = default;
};

/// Lays two lists, of `left` and `right` items, side by side with as few items without a counterpart as
/// possible; of a run of those the left ones come first. Beyond `mostEdits` such items it gives up on what
/// lies between the first and the last of them: none has a counterpart there.
std::vector<Pairing> align(std::size_t left, std::size_t right,
                           std::function<bool(std::size_t, std::size_t)> const& equal,
                           std::size_t mostEdits = 1000);

}  // namespace kestrel::tool
