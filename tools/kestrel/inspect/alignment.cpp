#include "alignment.h"

#include <algorithm>

namespace kestrel::tool {

namespace {

using Equal = std::function<bool(std::size_t, std::size_t)>;
using Signed = std::ptrdiff_t;

std::size_t index(Signed value) { return static_cast<std::size_t>(value); }

/// A shortest way from one list to the other, found by how far one gets along each diagonal (left minus
/// right) with 0, 1, 2 ... edits.
class ShortestWay {
 public:
  ShortestWay(std::size_t left, std::size_t right, Equal const& equal)
      : mLeft(static_cast<Signed>(left)), mRight(static_cast<Signed>(right)), mEqual(&equal) {}

  /// False where it takes more edits.
  bool find(std::size_t mostEdits) {
    auto const most = std::min(static_cast<Signed>(mostEdits), mLeft + mRight);
    for (Signed edits = 0; edits <= most; ++edits) {
      mReached.emplace_back(index(2 * edits + 1));
      for (Signed diagonal = -edits; diagonal <= edits; diagonal += 2) {
        Signed const at = followEquals(start(edits, diagonal), diagonal);
        mReached.back()[index(diagonal + edits)] = at;
        if (at >= mLeft && at - diagonal >= mRight) return true;
      }
    }
    return false;
  }

  /// The way, backwards from the end of both lists.
  std::vector<Pairing> backwards() const {
    std::vector<Pairing> way;
    Signed left = mLeft;
    Signed right = mRight;
    for (auto edits = static_cast<Signed>(mReached.size()) - 1; edits >= 0; --edits) {
      Signed const diagonal = left - right;
      Signed const begin = edits == 0 ? 0 : start(edits, diagonal);
      for (; left > begin && right > begin - diagonal;) way.push_back({index(--left), index(--right)});
      if (edits == 0) break;
      if (comesFromRight(edits, diagonal)) {
        way.push_back({std::nullopt, index(--right)});
      } else {
        way.push_back({index(--left), std::nullopt});
      }
    }
    return way;
  }

 private:
  Signed reached(Signed edits, Signed diagonal) const {
    bool const known = edits >= 0 && diagonal >= -edits && diagonal <= edits;
    return known ? mReached[index(edits)][index(diagonal + edits)] : -1;
  }

  /// Whether the last edit on the way to that diagonal takes an item of the right list.
  bool comesFromRight(Signed edits, Signed diagonal) const {
    return diagonal == -edits ||
           (diagonal != edits && reached(edits - 1, diagonal - 1) < reached(edits - 1, diagonal + 1));
  }

  Signed start(Signed edits, Signed diagonal) const {
    if (edits == 0) return 0;
    return comesFromRight(edits, diagonal) ? reached(edits - 1, diagonal + 1)
                                           : reached(edits - 1, diagonal - 1) + 1;
  }

  Signed followEquals(Signed at, Signed diagonal) const {
    while (at < mLeft && at - diagonal < mRight && (*mEqual)(index(at), index(at - diagonal))) ++at;
    return at;
  }

  Signed mLeft;
  Signed mRight;
  Equal const* mEqual;
  /// By the number of edits, then by the diagonal.
  std::vector<std::vector<Signed>> mReached;
};

/// Nothing has a counterpart.
std::vector<Pairing> apart(std::size_t left, std::size_t right) {
  std::vector<Pairing> pairings;
  for (std::size_t at = 0; at < left; ++at) pairings.push_back({at, std::nullopt});
  for (std::size_t at = 0; at < right; ++at) pairings.push_back({std::nullopt, at});
  return pairings;
}

/// What lies between what both lists have in common at their starts and ends.
std::vector<Pairing> alignMiddle(std::size_t left, std::size_t right, Equal const& equal,
                                 std::size_t mostEdits) {
  ShortestWay way(left, right, equal);
  if (!way.find(mostEdits)) return apart(left, right);
  std::vector<Pairing> pairings = way.backwards();
  std::reverse(pairings.begin(), pairings.end());
  return pairings;
}

}  // namespace

std::vector<Pairing> align(std::size_t left, std::size_t right, Equal const& equal, std::size_t mostEdits) {
  std::size_t head = 0;
  while (head < left && head < right && equal(head, head)) ++head;
  std::size_t tail = 0;
  while (head + tail < left && head + tail < right && equal(left - tail - 1, right - tail - 1)) ++tail;
  std::vector<Pairing> pairings;
  for (std::size_t at = 0; at < head; ++at) pairings.push_back({at, at});
  auto const shifted = [&](std::size_t one, std::size_t other) { return equal(head + one, head + other); };
  for (Pairing pairing : alignMiddle(left - head - tail, right - head - tail, shifted, mostEdits)) {
    if (pairing.left) *pairing.left += head;
    if (pairing.right) *pairing.right += head;
    pairings.push_back(pairing);
  }
  for (std::size_t at = tail; at > 0; --at) pairings.push_back({left - at, right - at});
  return pairings;
}

}  // namespace kestrel::tool
