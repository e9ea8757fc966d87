#pragma once

#include "schema_validator.h"

#include "kestrelhost/frame_layout.h"
#include "model/chartstring.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/style.h"

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace kestrel::test {

inline constexpr double pageWidth = 600;
inline constexpr double pageHeight = 500;

struct Box {
  double left = 0;
  double right = pageWidth;
  double top = 0;
  double bottom = pageHeight;
};

inline std::ostream& operator<<(std::ostream& out, Box const& box) {
  return out << box.left << ".." << box.right << ", " << box.top << ".." << box.bottom;
}

inline bool overlap(Box const& left, Box const& right) {
  return left.left < right.right && right.left < left.right && left.top < right.bottom &&
         right.top < left.bottom;
}

/// A client's reading of locations, on a page of fixed size: a value is a place, from the left or the top,
/// and a target is the frame that the side lies against.
class Reader {
 public:
  template <typename Part>
  Box boxOf(Part const& part) {
    Box box;
    std::map<int, double> sides;
    for (LumoLocation const* location : part.getLocations()) sides[location->getPart()] = placeOf(*location);
    auto const known = [&sides](int side) { return sides.count(side) != 0; };
    if (known(0)) box.left = sides[0];
    if (known(1)) box.right = sides[1];
    if (known(2)) box.top = sides[2];
    if (known(3)) box.bottom = sides[3];
    if (known(5) && !known(2)) box.top = box.bottom - sides[5];
    if (known(5) && !known(3)) box.bottom = box.top + sides[5];
    return box;
  }

 private:
  double placeOf(LumoLocation const& location) {
    bool const across = location.getPart() < 2 || location.getPart() == 4;
    if (location.getMethod() == LumoLocation::Method3) return placeOf(location, across);
    std::string const value = ChartString(location.getAttribute(u"value")).toUTF8();
    double const number = std::stod(value);
    if (value.back() == '%') return number / 100 * (across ? pageWidth : pageHeight);
    EXPECT_EQ(value.substr(value.size() - 2), "px");
    return number;
  }

  /// By id, as a client has it.
  double placeOf(LumoLocation const& location, bool across) {
    ChartString const id(location.getAttribute(u"target"));
    for (LumoLabelFrame const* frame : location.getVisualization()->getLabelFrames()) {
      if (!id.equals(frame->getId())) continue;
      Box const box = boxOf(*frame);
      return across ? (location.getPart() == 0 ? box.right : box.left)
                    : (location.getPart() == 2 ? box.bottom : box.top);
    }
    ADD_FAILURE() << "no frame " << id.toUTF8();
    return 0;
  }
};

/// By somebody else than the layout.
inline void place(LumoLabelFrame& frame, LumoLocation::ENUM_part part, char16_t const* value) {
  LumoLocation& location = *frame.addLocation(part);
  location.setMethod(LumoLocation::MethodValue);
  location.setValue(value);
}

inline void layOn(LumoLabelFrame& frame, LumoLabelFrame const& lower) {
  LumoLocation& bottom = *frame.addLocation(LumoLocation::PartBottom);
  bottom.setMethod(LumoLocation::Method3);
  bottom.setTarget(lower);
}

class FrameLayoutTest : public testing::Test {
 protected:
  ~FrameLayoutTest() override { EXPECT_EQ(schemaErrors(document.AsUTF8()), std::vector<std::string>()); }

  LumoVisualization& chart() { return *document.getVisualization(); }

  template <typename Holder>
  LumoLabelFrame& addFrame(Holder& holder, char16_t const* id, char16_t const* text) {
    LumoLabelFrame& frame = *holder.addLabelFrame(id);
    frame.addLabel()->addText()->setText(text);
    return frame;
  }
  LumoLabelFrame& addFrame(char16_t const* id, char16_t const* text = u"Text") {
    return addFrame(chart(), id, text);
  }

  LumoLabelFrame& addFrame(LumoLabel::ENUM_purpose purpose, char16_t const* id = u"other") {
    LumoLabelFrame& frame = addFrame(id);
    frame.getLabel()->setPurpose(purpose);
    return frame;
  }

  LumoExtensionVis& record() {
    LumoExtensionVis* const there = chart().getExtension();
    return there != nullptr ? *there : *chart().addExtension();
  }

  void setFontSize(LumoLabelFrame& frame, char16_t const* size) {
    LumoStyle& style = *chart().addStyle();
    style.setId(u"font");
    style.setFontSize(size, u"", u"");
    frame.getLabel()->setStyle(style);
  }

  bool pack() { return host::StackedFrames().pack(chart(), nullptr); }

  template <typename Part>
  Box boxOf(Part const& part) {
    return Reader().boxOf(part);
  }
  double heightOf(LumoLabelFrame const& frame) {
    Box const box = boxOf(frame);
    return box.bottom - box.top;
  }

  template <typename First, typename Second, typename... Others>
  void expectBelowEachOther(First const& upper, Second const& lower, Others const&... others) {
    EXPECT_LE(boxOf(upper).bottom, boxOf(lower).top);
    if constexpr (sizeof...(others) > 0) expectBelowEachOther(lower, others...);
  }

  void expectNoOverlap() {
    std::vector<LumoLabelFrame*> const frames = chart().getLabelFrames();
    for (std::size_t at = 0; at < frames.size(); ++at) {
      if (frames[at]->getLocations().empty()) continue;
      Box const box = boxOf(*frames[at]);
      EXPECT_LT(box.top, box.bottom) << at;
      EXPECT_GE(box.top, 0) << at;
      EXPECT_LE(box.bottom, pageHeight) << at;
      for (std::size_t other = 0; other < at; ++other) {
        if (frames[other]->getLocations().empty()) continue;
        EXPECT_FALSE(overlap(box, boxOf(*frames[other])))
            << at << ": " << box << ", " << other << ": " << boxOf(*frames[other]);
      }
      for (LumoGraph const* graph : chart().getGraphs()) EXPECT_FALSE(overlap(box, boxOf(*graph))) << at;
      for (LumoLegend const* legend : chart().getLegends()) EXPECT_FALSE(overlap(box, boxOf(*legend))) << at;
    }
  }

  LumoDocument document;
};

}  // namespace kestrel::test
