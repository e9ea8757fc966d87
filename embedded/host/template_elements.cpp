// The kinds of graphic elements that a template addresses, and how a chart's elements are told apart.

#include "template_elements.h"

#include "host/chartbase.h"
#include "model/tokens.h"

#include <algorithm>
#include <string_view>

namespace kestrel::host {

namespace {

struct Element {
  CTElementType const& element;
  bool isInSpace;

  template <typename Kind>
  bool isA() const {
    return dynamic_cast<Kind const*>(&element) != nullptr;
  }
  bool hasId(std::u16string_view part) const {
    char16_t const* const id = element.getId();
    return id != nullptr && std::u16string_view(id).find(part) != std::u16string_view::npos;
  }
  int positionModifier() const {
    char16_t const* const text = element.getAttribute(u"positionModifier");
    return text != nullptr && text[0] != u'\0' && text[1] == u'\0' ? text[0] - u'0' : 0;
  }
};

/// Does it draw its data in several looks?
bool isSplit(Element const& each) {
  CTElementType const& element = each.element;
  return !element.getColors().empty() || !element.getPatterns().empty() || !element.getShapes().empty() ||
         !element.getDashs().empty() || !element.getStyleBys().empty();
}
bool isSimple(Element const& each) { return !isSplit(each); }
bool isStacked(Element const& each) {
  return each.positionModifier() == CTElementType::PositionModifierStack;
}
bool isClustered(Element const& each) { return isSplit(each) && !isStacked(each); }
bool isDots(Element const& each) {
  int const modifier = each.positionModifier();
  return modifier == CTElementType::PositionModifierStackedDot ||
         modifier == CTElementType::PositionModifierDot;
}
bool isMatrix(Element const& each) { return each.hasId(ChartBase::_matrixscatter); }
bool isInSpace(Element const& each) { return each.isInSpace; }
bool isAny(Element const&) { return true; }

bool isErrorBar(Element const& each) {
  if (!each.isA<LumoInterval>()) return false;
  auto const statistics = each.element.getSummaryStatistics();
  return std::any_of(statistics.begin(), statistics.end(), [](LumoSummaryStatistic const* statistic) {
    return statistic->getMethod() == LumoSummaryStatistic::MethodErrorBar;
  });
}
bool isHistogram(Element const& each) {
  return each.isA<LumoInterval>() && !each.element.getBinStatistics().empty();
}
/// From one y to another, or by its id.
bool isRange(Element const& each) {
  if (!each.isA<LumoInterval>() || isHistogram(each) || isErrorBar(each)) return false;
  auto count = 0;
  xercesc::DOMElement const* child = each.element.getImplementation()->getFirstElementChild();
  for (; child != nullptr; child = child->getNextElementSibling()) {
    char16_t const* const name = child->getLocalName();
    if (name != nullptr && std::u16string_view(name) == LumoUni::_y) ++count;
  }
  return count > 1 || each.hasId(u"range");
}
bool isBar(Element const& each) {
  return each.isA<LumoInterval>() && !isHistogram(each) && !isErrorBar(each) && !isRange(each);
}
template <typename Kind>
bool isOf(Element const& each) {
  return each.isA<Kind>();
}

struct Subtype {
  std::string_view name;
  bool (*fits)(Element const&);
  char16_t const* attribute = LumoUni::_style;
  void (*attach)(LumoBaseElement&, LumoStyle const&) = attachTo<CTElementType, &CTElementType::setStyle>;
};

// clang-format off
constexpr Subtype simple   {"simple",    isSimple};
constexpr Subtype grouped  {"grouped",   isSplit};
constexpr Subtype clustered{"clustered", isClustered};
constexpr Subtype stacked  {"stacked",   isStacked};
constexpr Subtype dot      {"dot",       isDots};
constexpr Subtype matrix   {"matrix",    isMatrix};
constexpr Subtype space    {"3D",        isInSpace};
/// A line looks the same in the plane and in space: the name stands for every line of one look.
constexpr Subtype line     {"3D",        isSimple};
constexpr Subtype extreme  {"extremeStyle", isAny, u"extremeStyle", attachTo<LumoSchema, &LumoSchema::setExtremeStyle>};
constexpr Subtype fence    {"fenceStyle",   isAny, u"fenceStyle",   attachTo<LumoSchema, &LumoSchema::setFenceStyle>};
constexpr Subtype hinge    {"hingeStyle",   isAny, u"hingeStyle",   attachTo<LumoSchema, &LumoSchema::setHingeStyle>};
constexpr Subtype median   {"medianStyle",  isAny, u"medianStyle",  attachTo<LumoSchema, &LumoSchema::setMedianStyle>};
constexpr Subtype outlier  {"outlierStyle", isAny, u"outlierStyle", attachTo<LumoSchema, &LumoSchema::setOutlierStyle>};

struct Type {
  std::string_view name;
  bool (*fits)(Element const&);
  std::vector<Subtype> subtypes;
};

std::vector<Type> const& types() {
  static std::vector<Type> const rows = {
      {"all",       isAny,             {simple, grouped, space}},
      {"scatter",   isOf<LumoPoint>,   {simple, grouped, dot, matrix, space}},
      {"histogram", isHistogram,       {simple, grouped, space}},
      {"bar",       isBar,             {simple, clustered, stacked, space}},
      {"range",     isRange,           {simple, clustered, space}},
      {"errorBar",  isErrorBar,        {simple, clustered}},
      {"line",      isOf<LumoLine>,    {simple, grouped, line}},
      {"schema",    isOf<LumoSchema>,  {simple, clustered, extreme, fence, hinge, median, outlier}},
      {"area",      isOf<LumoArea>,    {simple, grouped, stacked, space}},
      {"edge",      isOf<LumoEdge>,    {simple, grouped}},
      {"path",      isOf<LumoPath>,    {simple, grouped}},
      {"polygon",   isOf<LumoPolygon>, {simple, grouped}},
  };
  return rows;
}
// clang-format on

Type const& typeOf(std::string_view name) {
  return *std::find_if(types().begin(), types().end(),
                       [name](Type const& type) { return type.name == name; });
}

Subtype const* find(Type const& type, std::string_view subtype) {
  auto const found = std::find_if(type.subtypes.begin(), type.subtypes.end(),
                                  [subtype](Subtype const& each) { return each.name == subtype; });
  return found == type.subtypes.end() ? nullptr : &*found;
}

}  // namespace

Names elementTypes() {
  Names names;
  for (Type const& type : types()) names.push_back(type.name);
  return names;
}

Names elementSubtypes() {
  Names names;
  for (Type const& type : types()) {
    for (Subtype const& subtype : type.subtypes) {
      if (std::find(names.begin(), names.end(), subtype.name) == names.end()) names.push_back(subtype.name);
    }
  }
  return names;
}

std::string subtypeFault(std::string_view name, std::string_view subtype) {
  Type const& type = typeOf(name);
  if (subtype.empty() || find(type, subtype) != nullptr) return {};
  std::string known;
  for (Subtype const& each : type.subtypes) (known += known.empty() ? "" : ", ") += each.name;
  return "the type " + std::string(name) + " has no subtype " + std::string(subtype) + "; it has " + known;
}

StyleSlots slotsOfElements(TemplatedChart const& chart, std::string_view name, std::string_view subtypeName) {
  static constexpr Subtype whole{"", isAny};
  Type const& type = typeOf(name);
  Subtype const& subtype = subtypeName.empty() ? whole : *find(type, subtypeName);
  StyleSlots slots;
  for (TemplatedChart::Graph const& graph : chart.graphs) {
    for (CTElementType* const element : graph.elements) {
      Element const each{*element, graph.isInSpace};
      if (type.fits(each) && subtype.fits(each))
        slots.push_back({element, subtype.attribute, subtype.attach});
    }
  }
  return slots;
}

}  // namespace kestrel::host
