#include "xbaseelement.h"

#include "xutility.h"

#include "support/guard.h"

#include "host/chartbase.h"
#include "model/base.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/printing.h"
#include "model/style.h"

#include <vector>

using kestrel::guarded;
using kestrel::present;

XBaseElement::XBaseElement(LumoBaseElement& element) : mElement(&element) {}

XBaseElement::~XBaseElement() = default;

std::string XBaseElement::AsUTF8() const { return mElement->AsUTF8(); }

LumoStyle* XBaseElement::AddStyle(ChartString const& id, bool unique) {
  ChartString styleId = id;
  if (unique) {
    styleId = ChartBase::CreateUniqueId(id, present(mElement->getVisualization(), "visualization"));
  }
  if (mElement->doesIdExist(styleId.xc_str())) return mElement->getStyleById(styleId.xc_str());
  LumoStyle& container = present(mElement->getStyleById(ChartBase::_container), "style container");
  LumoStyle* style = container.addStyle();
  style->setId(styleId.xc_str());
  return style;
}

ChartString XBaseElement::getStyleId(char16_t const* id) {
  ChartString styleId(id);
  styleId.append(u's');
  return styleId;
}

ChartString XBaseElement::ChartStringFromOLANG(char const* text) {
  return XUtility::ChartStringFromOLANG(text);
}

ChartString XBaseElement::ChartStringFromLocalCodePage(char const* text) {
  return XUtility::ChartStringFromLocalCodePage(text);
}

void XBaseElement::replaceNewline(ChartString& text) const { text.replaceSubstring(u"\\n", u"\n"); }

void XBaseElement::LogError(std::string const& message, std::string const& file,
                            unsigned int const& line) const {
  LumoException const failure(message, file, line);
  LumoErrorHandler handler;
  handler.error(failure);
}

namespace {

/// The dimension at `index` where at least `needed` exist; otherwise, with `create`, the last one of those
/// that are added to reach that number.
LumoDimension* findOrMakeDimension(LumoCoordinates& coordinates, bool create, std::size_t needed,
                                   std::size_t index) {
  std::vector<LumoDimension*> const dimensions = coordinates.getDimensions();
  if (dimensions.size() >= needed) return dimensions[index];
  LumoDimension* added = nullptr;
  if (create) {
    for (std::size_t count = dimensions.size(); count < needed; ++count) added = coordinates.addDimension();
  }
  return added;
}

}  // namespace

LumoDimension* XBaseElement::getXDimension(LumoCoordinates& coordinates, bool create) {
  LumoDimension* dimension = nullptr;
  guarded("Error in XBaseElement::getXDimension()",
          [&] { dimension = findOrMakeDimension(coordinates, create, 1, 0); });
  return dimension;
}

LumoDimension* XBaseElement::getYDimension(LumoCoordinates& coordinates, bool create) {
  LumoDimension* dimension = nullptr;
  guarded("Error in XBaseElement::getYDimension()",
          [&] { dimension = findOrMakeDimension(coordinates, create, 2, 1); });
  return dimension;
}

LumoDimension* XBaseElement::getZDimension(LumoCoordinates& coordinates, bool create) {
  LumoDimension* dimension = nullptr;
  // Index 1, not 2, where all three exist: relied upon.
  guarded("Error in XBaseElement::getZDimension()",
          [&] { dimension = findOrMakeDimension(coordinates, create, 3, 1); });
  return dimension;
}
