#include "kestrelhost/frame_layout.h"

#include "frame_roles.h"
#include "label_height.h"

#include "kestrelhost/chart_services.h"
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
  char16_t const* const id = location.getId();
  return id != nullptr && std::u16string_view(id).rfind(mark, 0) == 0;
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

/// Writes locations and numbers them through the chart.
class Locations {
 public:
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

  bool any() const { return mCount > 0; }

 private:
  template <typename Part>
  LumoLocation& add(Part& part, LumoLocation::ENUM_part side, LumoLocation::ENUM_method method) {
    LumoLocation& location = *part.addLocation(side);
    ChartString id(mark);
    id.append(++mCount);
    location.setId(id.xc_str());
    location.setMethod(method);
    return location;
  }

  unsigned long mCount = 0;
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
    if (!ChartString(frame.getId()).empty()) return;
    frame.setId(UsualChartTexts().createUniqueId(FrameRoles::idOf(role), mVisualization).xc_str());
  }

 private:
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

/// Where a fixed frame lies, if that can be told without the size of the page.
std::optional<Band> bandOf(Stacked const& fixed) {
  std::optional<double> const top = valueOf(*fixed.frame, LumoLocation::PartTop);
  std::optional<double> const bottom = valueOf(*fixed.frame, LumoLocation::PartBottom);
  double const height = valueOf(*fixed.frame, LumoLocation::PartHeight).value_or(fixed.height);
  if (top) return Band{*top, bottom.value_or(*top + height)};
  if (bottom) return Band{*bottom - height, *bottom};
  return std::nullopt;
}

/// The least top from `from` on at which a frame of that height touches no band.
int freeTop(std::vector<Band> const& bands, int from, int height) {
  int top = from;
  for (Band const& band : bands) {
    if (top < band.bottom && top + height > band.top) top = static_cast<int>(std::ceil(band.bottom));
  }
  return top;
}

/// Does a fixed frame lie on another one, or for null at the end of the page?
bool liesOn(LumoLabelFrame const& frame, LumoLabelFrame const* other) {
  for (LumoLocation const* location : frame.getLocations()) {
    if (location->getPart() != LumoLocation::PartBottom) continue;
    ChartString const value(location->getAttribute(u"value"));
    ChartString const target(location->getAttribute(u"target"));
    if (location->getMethod() == LumoLocation::MethodValue && other == nullptr) return value.equals(u"100%");
    if (location->getMethod() == LumoLocation::Method3 && other != nullptr)
      return target.equals(other->getId());
  }
  return false;
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
    std::optional<FramePlace> const place = roles.of(frame);
    int const height = place ? heightOf(frame) : 0;
    if (height > 0) mStack.push_back({&frame, *place, height, isPlaced(frame)});
  }

  std::vector<Band> fixedBands() const {
    std::vector<Band> bands;
    for (Stacked const& each : mStack) {
      std::optional<Band> const band = each.fixed ? bandOf(each) : std::nullopt;
      if (band) bands.push_back(*band);
    }
    std::sort(bands.begin(), bands.end(),
              [](Band const& left, Band const& right) { return left.top < right.top; });
    return bands;
  }

  void setWidth(LumoLabelFrame& frame) {
    mLocations.setValue(frame, LumoLocation::PartLeft, "0%");
    mLocations.setValue(frame, LumoLocation::PartRight, "100%");
  }

  /// Says where the stack ends.
  int stackFromTop() {
    std::vector<Band> const bands = fixedBands();
    int end = 0;
    for (Stacked const& each : mStack) {
      if (each.fixed || !isOnTop(each)) continue;
      int const top = freeTop(bands, end, each.height);
      setWidth(*each.frame);
      mLocations.setPixels(*each.frame, LumoLocation::PartTop, top);
      mLocations.setPixels(*each.frame, LumoLocation::PartHeight, each.height);
      end = std::min(top + each.height, farthest);
    }
    return freeTop(bands, end, 1);
  }

  /// The fixed frame that others can lie on, the last of those that lie at the end of the page.
  LumoLabelFrame* fixedFloor() {
    LumoLabelFrame* floor = nullptr;
    std::vector<Stacked> left;
    std::copy_if(mStack.begin(), mStack.end(), std::back_inserter(left),
                 [this](Stacked const& each) { return each.fixed && mPages.canBeTarget(*each.frame); });
    for (bool found = true; found;) {
      auto const next = std::find_if(left.begin(), left.end(),
                                     [&](Stacked const& each) { return liesOn(*each.frame, floor); });
      found = next != left.end();
      if (!found) break;
      floor = next->frame;
      mPages.makeTarget(*floor, next->place.role);
      left.erase(next);
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
  Locations locations;
  for (Page const& page : pages.all()) PageLayout(page, pages, roles, locations).run();
  return locations.any();
}

}  // namespace kestrel::host
