#include "kestrelhost/frame_layout.h"

#include "frame_roles.h"
#include "label_height.h"
#include "length_units.h"

#include "model/chartstring.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/tokens.h"

#include <xercesc/dom/DOMElement.hpp>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrel::host {

namespace {

// --- Whose locations they are

constexpr char16_t mark[] = u"packed_";

bool isOwn(LumoLocation const& location) {
  std::u16string_view const id(location.getId() != nullptr ? location.getId() : u"");
  constexpr std::size_t stem = std::size(mark) - 1;
  return id.starts_with(mark) && id.size() > stem &&
         id.find_first_not_of(u"0123456789", stem) == std::u16string_view::npos;
}

/// By somebody else than this layout.
template <typename Part>
bool isPlaced(Part const& part) {
  auto const locations = part.getLocations();
  return !std::all_of(locations.begin(), locations.end(),
                      [](LumoLocation const* each) { return isOwn(*each); });
}

template <typename Part>
void takeLocationsBack(std::vector<Part*> const& parts) {
  for (Part* part : parts) {
    if (!part->getLocations().empty() && !isPlaced(*part)) part->removeLocations();
  }
}

template <typename Part>
bool hasOwn(std::vector<Part*> const& parts) {
  return std::any_of(parts.begin(), parts.end(), [](Part const* part) {
    auto const locations = part->getLocations();
    return std::any_of(locations.begin(), locations.end(),
                       [](LumoLocation const* each) { return isOwn(*each); });
  });
}

/// Writes locations and numbers them through the chart. Numbers whose id somebody else has are left out.
class Locations {
 public:
  explicit Locations(LumoVisualization const& visualization) : mVisualization(visualization) {}

  template <typename Part>
  void setValue(Part& part, LumoLocation::ENUM_part side, char const* value) {
    add(part, side, LumoLocation::MethodValue).setValue(ChartString(value).xc_str());
  }
  template <typename Part>
  void setPixels(Part& part, LumoLocation::ENUM_part side, int pixels) {
    setValue(part, side, (std::to_string(pixels) + "px").c_str());
  }
  template <typename Part>
  void setTarget(Part& part, LumoLocation::ENUM_part side, LumoLabelFrame const& frame) {
    add(part, side, LumoLocation::Method3).setTarget(frame);
  }

  bool any() const { return mLastNumber > 0; }

 private:
  template <typename Part>
  LumoLocation& add(Part& part, LumoLocation::ENUM_part side, LumoLocation::ENUM_method method) {
    ChartString const id = freeId();
    LumoLocation& location = *part.addLocation(side);
    location.setId(id.xc_str());
    location.setMethod(method);
    return location;
  }

  ChartString freeId() {
    ChartString id;
    do {
      id.assign(mark);
      id.append(++mLastNumber);
    } while (mVisualization.doesIdExist(id.xc_str()));
    return id;
  }

  LumoVisualization const& mVisualization;
  unsigned long mLastNumber = 0;
};

// --- The parts of a page

/// The chart itself, or a container.
struct Page {
  std::vector<LumoLabelFrame*> frames;
  std::vector<LumoGraph*> graphs;
  std::vector<LumoLegend*> legends;
  std::vector<LumoContainer*> containers;
};

template <typename Part>
Part* append(std::vector<Part*>& parts, xercesc::DOMElement const& element, char16_t const* tag) {
  auto* const part = dynamic_cast<Part*>(static_cast<LumoBaseElement*>(element.getUserData(tag)));
  if (part != nullptr) parts.push_back(part);
  return part;
}

class Pages {
 public:
  explicit Pages(LumoVisualization& visualization) : mVisualization(visualization) {
    collect(*visualization.getImplementation());
  }

  std::vector<Page> const& all() const { return mPages; }

  /// References go by id, and an id means the first frame that has it.
  bool canBeTarget(LumoLabelFrame const& frame) const {
    auto const named = mFirstOfId.find(ChartString(frame.getId()));
    return named == mFirstOfId.end() || named->second == &frame;
  }

  void makeTarget(LumoLabelFrame& frame, FrameRole role) {
    if (ChartString(frame.getId()).empty()) frame.setId(freeId(role).xc_str());
  }

 private:
  /// As UsualChartTexts has it, but without trying again what an earlier frame of the role has taken.
  ChartString freeId(FrameRole role) {
    ChartString const usual(FrameRoles::idOf(role));
    ChartString id(usual);
    while (mVisualization.doesIdExist(id.xc_str())) {
      id = usual;
      id.append(u'_');
      id.append(++mLastNumbers[role]);
    }
    return id;
  }

  void collect(xercesc::DOMElement const& holder) {
    Page page;
    for (auto const* child = holder.getFirstElementChild(); child != nullptr;
         child = child->getNextElementSibling()) {
      if (auto* const frame = append(page.frames, *child, LumoUni::_labelFrame)) remember(*frame);
      append(page.graphs, *child, LumoUni::_graph);
      append(page.legends, *child, LumoUni::_legend);
      if (append(page.containers, *child, LumoUni::_container) != nullptr) collect(*child);
    }
    mPages.push_back(std::move(page));
  }

  void remember(LumoLabelFrame& frame) {
    ChartString const id(frame.getId());
    if (!id.empty()) mFirstOfId.emplace(id, &frame);
  }

  LumoVisualization& mVisualization;
  std::vector<Page> mPages;
  std::map<ChartString, LumoLabelFrame const*> mFirstOfId;
  std::map<FrameRole, unsigned long> mLastNumbers;
};

// --- The frames of a page

struct Stacked {
  LumoLabelFrame* frame;
  FramePlace place;
  int height;
  bool fixed;
};

/// No page is as high, in pixels, and sums stay within whole numbers.
constexpr int farthest = 10'000'000;

/// In pixels from the top of the page; the bottom does not belong to it.
struct Band {
  double top;
  double bottom;
};

std::optional<double> valueOf(LumoLabelFrame const& frame, LumoLocation::ENUM_part side) {
  for (LumoLocation const* location : frame.getLocations()) {
    if (location->getPart() != side || location->getMethod() != LumoLocation::MethodValue) continue;
    std::optional<double> const pixels = pixelsOf(location->getAttribute(u"value"));
    return pixels ? std::optional<double>(std::clamp<double>(*pixels, -farthest, farthest)) : std::nullopt;
  }
  return std::nullopt;
}

bool hasSide(LumoLabelFrame const& frame, LumoLocation::ENUM_part side) {
  auto const locations = frame.getLocations();
  return std::any_of(locations.begin(), locations.end(),
                     [side](LumoLocation const* each) { return each->getPart() == side; });
}

/// Where a fixed frame lies, if that can be told without the size of the page.
std::optional<Band> bandOf(Stacked const& fixed) {
  LumoLabelFrame const& frame = *fixed.frame;
  std::optional<double> const top = valueOf(frame, LumoLocation::PartTop);
  std::optional<double> const bottom = valueOf(frame, LumoLocation::PartBottom);
  std::optional<double> const height = valueOf(frame, LumoLocation::PartHeight);
  // What is no title may be a text across the page or over the data, which is no line to keep clear of.
  if (fixed.place.role == FrameRole::Other) {
    bool const isKnown = (top || !hasSide(frame, LumoLocation::PartTop)) &&
                         (bottom || !hasSide(frame, LumoLocation::PartBottom)) &&
                         (height || !hasSide(frame, LumoLocation::PartHeight));
    if (!isKnown) return std::nullopt;
  }
  double const room = height.value_or(fixed.height);
  if (top) return Band{*top, bottom.value_or(*top + room)};
  if (bottom) return Band{*bottom - room, *bottom};
  return std::nullopt;
}

/// Looks for room from the top to the bottom of a page.
class FreeRoom {
 public:
  void take(Band const& band) { mBands.push_back(band); }
  void sort() {
    std::sort(mBands.begin(), mBands.end(),
              [](Band const& left, Band const& right) { return left.top < right.top; });
  }

  /// The least top from `from` on at which a frame of that height touches no band. No call may begin above
  /// the one before it.
  int topFrom(int from, int height) {
    int top = from;
    for (; mPassed < mBands.size(); ++mPassed) {
      Band const& band = mBands[mPassed];
      if (top >= band.bottom) continue;
      if (top + height <= band.top) break;
      top = static_cast<int>(std::ceil(band.bottom));
    }
    return top;
  }

 private:
  std::vector<Band> mBands;
  std::size_t mPassed = 0;
};

/// Where a fixed frame ends: at the end of the page, or on another frame.
struct Rest {
  bool isEnd = false;
  ChartString frame;
};

Rest restOf(LumoLabelFrame const& frame) {
  Rest rest;
  bool hasValue = false;
  for (LumoLocation const* location : frame.getLocations()) {
    if (location->getPart() != LumoLocation::PartBottom) continue;
    bool const isFirstValue = location->getMethod() == LumoLocation::MethodValue && !hasValue;
    if (isFirstValue) rest.isEnd = ChartString(location->getAttribute(u"value")).equals(u"100%");
    hasValue = hasValue || isFirstValue;
    bool const isFirstTarget = location->getMethod() == LumoLocation::Method3 && rest.frame.empty();
    if (isFirstTarget) rest.frame.assign(location->getAttribute(u"target"));
  }
  return rest;
}

class PageLayout {
 public:
  PageLayout(Page const& page, Pages& pages, FrameRoles const& roles, Locations& locations)
      : mPage(page), mPages(pages), mLocations(locations) {
    for (LumoLabelFrame* frame : page.frames) add(*frame, roles);
    std::stable_sort(mStack.begin(), mStack.end(),
                     [](Stacked const& left, Stacked const& right) { return left.place < right.place; });
  }

  void run() {
    int const end = stackFromTop();
    LumoLabelFrame const* const floor = stackFromBottom();
    fill(mPage.graphs, end, floor);
    fill(mPage.legends, end, floor);
    fill(mPage.containers, end, floor);
  }

 private:
  static bool isOnTop(Stacked const& stacked) { return stacked.place.role <= FrameRole::Subtitle; }

  void add(LumoLabelFrame& frame, FrameRoles const& roles) {
    int const height = heightOf(frame);
    if (height > 0) mStack.push_back({&frame, roles.of(frame), height, isPlaced(frame)});
  }

  template <typename Condition>
  FreeRoom roomBeside(Condition const& counts) const {
    FreeRoom room;
    for (Stacked const& each : mStack) {
      std::optional<Band> const band = each.fixed && counts(each) ? bandOf(each) : std::nullopt;
      if (band) room.take(*band);
    }
    room.sort();
    return room;
  }

  void setWidth(LumoLabelFrame& frame) {
    mLocations.setValue(frame, LumoLocation::PartLeft, "0%");
    mLocations.setValue(frame, LumoLocation::PartRight, "100%");
  }

  /// Says where the stack ends.
  int stackFromTop() {
    FreeRoom room = roomBeside([](Stacked const&) { return true; });
    int end = 0;
    for (Stacked const& each : mStack) {
      if (each.fixed || !isOnTop(each)) continue;
      int const top = room.topFrom(end, each.height);
      setWidth(*each.frame);
      mLocations.setPixels(*each.frame, LumoLocation::PartTop, top);
      mLocations.setPixels(*each.frame, LumoLocation::PartHeight, each.height);
      end = std::min(top + each.height, farthest);
    }
    // Somebody who places a text without a role may well want it over the data.
    return roomBeside([](Stacked const& each) { return each.place.role != FrameRole::Other; })
        .topFrom(end, 1);
  }

  /// What is no footnote and begins at a place of its own is no line at the end of the page.
  bool canBeFloor(Stacked const& stacked) const {
    bool const isLine =
        stacked.place.role != FrameRole::Other || !hasSide(*stacked.frame, LumoLocation::PartTop);
    return stacked.fixed && isLine && mPages.canBeTarget(*stacked.frame);
  }

  /// The fixed frame that others can lie on, the last of those that lie at the end of the page.
  LumoLabelFrame* fixedFloor() {
    Stacked const* next = nullptr;
    std::map<ChartString, Stacked const*> lyingOn;
    for (Stacked const& each : mStack) {
      if (!canBeFloor(each)) continue;
      Rest const rest = restOf(*each.frame);
      if (rest.isEnd && next == nullptr) {
        next = &each;
      } else if (!rest.frame.empty()) {
        lyingOn.emplace(rest.frame, &each);
      }
    }
    LumoLabelFrame* floor = nullptr;
    while (next != nullptr) {
      floor = next->frame;
      mPages.makeTarget(*floor, next->place.role);
      auto const found = lyingOn.find(ChartString(floor->getId()));
      next = found != lyingOn.end() ? found->second : nullptr;
      if (next != nullptr) lyingOn.erase(found);
    }
    return floor;
  }

  /// Says what lies on top, null for nothing. A frame that nothing could be laid on is left out.
  LumoLabelFrame const* stackFromBottom() {
    LumoLabelFrame* floor = fixedFloor();
    for (auto each = mStack.rbegin(); each != mStack.rend(); ++each) {
      if (each->fixed || isOnTop(*each) || !mPages.canBeTarget(*each->frame)) continue;
      setWidth(*each->frame);
      setBottom(*each->frame, floor);
      mLocations.setPixels(*each->frame, LumoLocation::PartHeight, each->height);
      floor = each->frame;
      mPages.makeTarget(*floor, each->place.role);
    }
    return floor;
  }

  template <typename Part>
  void setBottom(Part& part, LumoLabelFrame const* floor) {
    if (floor != nullptr) {
      mLocations.setTarget(part, LumoLocation::PartBottom, *floor);
    } else {
      mLocations.setValue(part, LumoLocation::PartBottom, "100%");
    }
  }

  template <typename Part>
  void fill(std::vector<Part*> const& parts, int top, LumoLabelFrame const* floor) {
    for (Part* part : parts) {
      if (isPlaced(*part)) continue;
      if (top > 0) mLocations.setPixels(*part, LumoLocation::PartTop, top);
      if (floor != nullptr) setBottom(*part, floor);
    }
  }

  Page const& mPage;
  Pages& mPages;
  Locations& mLocations;
  std::vector<Stacked> mStack;
};

bool preservesLocations(LumoVisualization const& visualization) {
  LumoExtensionVis const* const record = visualization.getExtension();
  ChartString const said(record != nullptr ? record->getAttribute(u"preserveLocations") : nullptr);
  return said.equals(u"true") || said.equals(u"1");
}

}  // namespace

bool StackedFrames::pack(LumoVisualization& visualization, LumoDocument*) {
  if (preservesLocations(visualization)) return false;
  FrameRoles const roles(visualization);
  Pages pages(visualization);
  for (Page const& page : pages.all()) {
    takeLocationsBack(page.frames);
    takeLocationsBack(page.graphs);
    takeLocationsBack(page.legends);
    takeLocationsBack(page.containers);
  }
  Locations locations(visualization);
  for (Page const& page : pages.all()) PageLayout(page, pages, roles, locations).run();
  return locations.any();
}

void StackedFrames::refit(LumoVisualization& visualization) {
  Pages const pages(visualization);
  bool const isPacked = std::any_of(pages.all().begin(), pages.all().end(), [](Page const& page) {
    return hasOwn(page.frames) || hasOwn(page.graphs) || hasOwn(page.legends) || hasOwn(page.containers);
  });
  if (isPacked) pack(visualization, nullptr);
}

}  // namespace kestrel::host
