#include "template_cycles.h"

#include "host/chartbase.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <xercesc/dom/DOMNamedNodeMap.hpp>

#include <algorithm>
#include <map>
#include <set>

using xercesc::DOMNamedNodeMap;
using xercesc::DOMNode;

namespace kestrel::host {

namespace {

constexpr std::string_view color = "color";

struct Kind {
  std::string_view aesthetic;
  char16_t const* token;
  std::string_view property;
  char16_t const* attribute;
};

constexpr Kind kinds[] = {{color, u"color", "color", u"color"},
                          {"pattern", u"pattern", "pattern", u"pattern"},
                          {"shape", u"shape", "symbol", u"symbol"},
                          {"dash", u"dash", "stroke_dasharray", u"stroke_dasharray"}};

Kind const& kindOf(std::string_view aesthetic) {
  return *std::find_if(std::begin(kinds), std::end(kinds),
                       [aesthetic](Kind const& kind) { return kind.aesthetic == aesthetic; });
}

bool same(char16_t const* text, char16_t const* other) {
  return text != nullptr && std::u16string_view(text) == other;
}

bool hasStyleWith(LumoStyleCycle const& cycle, char16_t const* attribute) {
  for (LumoCycle const* each : cycle.getCycles()) {
    for (LumoStyle const* style : each->getStyles()) {
      if (style->getAttribute(attribute) != nullptr) return true;
    }
  }
  return false;
}

/// What a cycle of whole styles varies: as its extension says, else as its styles show, else colours.
std::string_view aestheticOf(LumoStyleCycle const* cycle) {
  if (cycle == nullptr) return color;
  LumoExtension const* const extension = cycle->getExtension();
  for (Kind const& kind : kinds) {
    if (extension != nullptr && same(extension->getAttribute(LumoUni::_aesthetic), kind.token)) {
      return kind.aesthetic;
    }
  }
  for (Kind const& kind : kinds) {
    if (hasStyleWith(*cycle, kind.attribute)) return kind.aesthetic;
  }
  return color;
}

/// An aesthetic that has a cycle, or could have one.
struct Cycled {
  std::string_view aesthetic;
  LumoStyleCycle* cycle;
  CTAesthetic* object;
  void (*attach)(CTAesthetic&, LumoStyleCycle const&);
  /// The categories of its variable take the values of the cycle one after the other. Else the cycle says
  /// between which colours numbers lie, or the values have looks of their own.
  bool takesTurns;
};

bool isCategorical(CTAesthetic const& aesthetic) {
  CTVariableType const* const variable = aesthetic.getVariable();
  if (variable == nullptr || variable->getCategorical()) return true;
  CTDomainType const* const own = aesthetic.getDomain();
  return dynamic_cast<LumoCategoricalDomain const*>(own != nullptr ? own : variable->getDomain()) != nullptr;
}

bool hasMappings(LumoColor const& aesthetic) { return !aesthetic.getColorMappings().empty(); }
bool hasMappings(LumoShape const& aesthetic) { return !aesthetic.getSymbolMappings().empty(); }
bool hasMappings(CTAesthetic const&) { return false; }

template <typename Aesthetic>
bool read(LumoBaseElement& object, std::string_view aesthetic, Cycled& result) {
  auto* const found = dynamic_cast<Aesthetic*>(&object);
  if (found == nullptr) return false;
  result = {aesthetic, found->getCycle(), found,
            [](CTAesthetic& owner, LumoStyleCycle const& cycle) {
              dynamic_cast<Aesthetic&>(owner).setCycle(cycle);
            },
            isCategorical(*found) && !hasMappings(*found)};
  return true;
}

/// Whole styles have nothing between them: they always take turns.
template <>
bool read<LumoStyleBy>(LumoBaseElement& object, std::string_view, Cycled& result) {
  auto* const found = dynamic_cast<LumoStyleBy*>(&object);
  if (found == nullptr) return false;
  LumoStyleCycle* const cycle = found->getStyleCycle();
  result = {aestheticOf(cycle), cycle, found,
            [](CTAesthetic& owner, LumoStyleCycle const& own) {
              dynamic_cast<LumoStyleBy&>(owner).setStyleCycle(own);
            },
            true};
  return true;
}

bool read(LumoBaseElement& object, Cycled& result) {
  return read<LumoColor>(object, color, result) || read<LumoPattern>(object, "pattern", result) ||
         read<LumoShape>(object, "shape", result) || read<LumoDash>(object, "dash", result) ||
         read<LumoStyleBy>(object, {}, result);
}

/// As they are now: cycles come and change.
std::vector<Cycled> cycledIn(std::vector<CTAesthetic*> const& graph) {
  std::vector<Cycled> found(graph.size());
  for (std::size_t at = 0; at < graph.size(); ++at) read(*graph[at], found[at]);
  return found;
}

/// The colouring aesthetic of that number in each graph that has so many, where it takes turns.
std::vector<Cycled> colored(CycledAesthetics const& aesthetics, unsigned int number) {
  std::vector<Cycled> found;
  for (std::vector<CTAesthetic*> const& graph : aesthetics.graphs()) {
    unsigned int count = 0;
    for (Cycled const& each : cycledIn(graph)) {
      if (each.aesthetic == color && ++count == number && each.takesTurns) found.push_back(each);
    }
  }
  return found;
}

/// The aesthetics of that kind that take turns.
std::vector<Cycled> turning(CycledAesthetics const& aesthetics, std::string_view aesthetic) {
  std::vector<Cycled> found;
  for (std::vector<CTAesthetic*> const& graph : aesthetics.graphs()) {
    for (Cycled const& each : cycledIn(graph)) {
      if (each.aesthetic == aesthetic && each.takesTurns) found.push_back(each);
    }
  }
  return found;
}

/// The last one of the id, as all that write into it take it. Where something else has the id, the chart says
/// which one it is.
LumoStyleCycle* repositoryOf(LumoVisualization const& chart) {
  LumoStyleCycle* found = nullptr;
  for (LumoStyleCycle* const cycle : chart.getStyleCycles()) {
    if (same(cycle->getId(), ChartBase::_styleCycleRepository)) found = cycle;
  }
  LumoExtensionVis const* const extension = chart.getExtension();
  return found != nullptr || extension == nullptr ? found : extension->getStyleCycleRepository();
}

LumoStyleCycle& makeRepository(LumoVisualization& chart, TemplateWriter& writer) {
  LumoStyleCycle& repository =
      *chart.addStyleCycle(writer.uniqueId(ChartBase::_styleCycleRepository).xc_str());
  LumoExtensionVis* const extension = chart.getExtension();
  (extension != nullptr ? extension : chart.addExtension())->setStyleCycleRepository(repository);
  return repository;
}

/// The cycle of an aesthetic in the repository goes by its id, or by the next one that was free.
LumoCycle& cycleIn(LumoStyleCycle& repository, Kind const& kind, TemplateWriter& writer) {
  std::u16string const id = u"cycle_" + std::u16string(kind.token);
  LumoCycle* variant = nullptr;
  for (LumoCycle* const cycle : repository.getCycles()) {
    if (same(cycle->getId(), id.c_str())) return *cycle;
    if (variant == nullptr && isVariantOf(cycle->getId(), id)) variant = cycle;
  }
  if (variant != nullptr && repository.doesIdExist(id.c_str())) return *variant;
  LumoCycle& cycle = *repository.addCycle();
  cycle.setId(writer.uniqueId(id).xc_str());
  return cycle;
}

/// As many styles as there are entries: those that stand there take a look over, the others are made or go.
void fill(LumoCycle& cycle, TemplateWriter& writer, std::vector<TemplateNode> const& entries) {
  std::vector<LumoStyle*> const styles = cycle.getStyles();
  for (std::size_t at = 0; at < entries.size(); ++at) {
    LumoStyle& style = at < styles.size() ? writer.ownStyle(cycle, *styles[at]) : *cycle.addStyle();
    writer.write(style, lookOf(entries[at]));
  }
  for (std::size_t at = entries.size(); at < styles.size(); ++at) writer.removeFromCycle(*styles[at]);
}

/// The cycle says from now on what it varies: its styles may look like those of another kind afterwards.
void fill(LumoStyleCycle& cycle, std::string_view aesthetic, TemplateWriter& writer,
          std::vector<TemplateNode> const& entries) {
  LumoExtension* const extension = cycle.getExtension();
  (extension != nullptr ? extension : cycle.addExtension())
      ->setAttribute(LumoUni::_aesthetic, kindOf(aesthetic).token);
  std::vector<LumoCycle*> const cycles = cycle.getCycles();
  fill(cycles.empty() ? *cycle.addCycle() : *cycles.front(), writer, entries);
}

LumoStyleCycle& makeColorCycle(LumoVisualization& chart, TemplateWriter& writer) {
  LumoStyleCycle& cycle = *chart.addStyleCycle(writer.uniqueId(u"template_colorCycle").xc_str());
  cycle.addExtension()->setAttribute(LumoUni::_aesthetic, LumoUni::_color);
  return cycle;
}

/// With the same looks, under an id of its own.
LumoStyleCycle& copyOf(LumoStyleCycle const& cycle, LumoVisualization& chart, TemplateWriter& writer) {
  char16_t const* const id = cycle.getId();
  LumoStyleCycle& copy =
      *chart.addStyleCycle(writer.uniqueId(id != nullptr ? id : u"template_cycle").xc_str());
  if (LumoExtension const* const extension = cycle.getExtension()) {
    DOMNamedNodeMap const& attributes = *extension->getImplementation()->getAttributes();
    LumoExtension& own = *copy.addExtension();
    for (XMLSize_t at = 0; at < attributes.getLength(); ++at) {
      DOMNode const& attribute = *attributes.item(at);
      if (same(attribute.getNodeName(), LumoUni::_id)) continue;
      own.setAttribute(attribute.getNodeName(), attribute.getNodeValue());
    }
  }
  for (LumoCycle const* const each : cycle.getCycles()) {
    LumoCycle& own = *copy.addCycle();
    for (LumoStyle const* const style : each->getStyles()) writer.addCopy(own, *style);
  }
  return copy;
}

/// Gives these aesthetics cycles that no other aesthetic has.
void separate(CycledAesthetics const& aesthetics, TemplateWriter& writer, std::vector<Cycled> const& meant) {
  std::map<LumoStyleCycle const*, std::size_t> others;
  for (std::vector<CTAesthetic*> const& graph : aesthetics.graphs()) {
    for (Cycled const& each : cycledIn(graph)) ++others[each.cycle];
  }
  for (Cycled const& each : meant) --others[each.cycle];
  // These are nobody's own.
  others[nullptr] = others[repositoryOf(aesthetics.chart())] = 0;
  std::map<LumoStyleCycle const*, LumoStyleCycle const*> copies;
  for (Cycled const& each : meant) {
    if (others[each.cycle] == 0) continue;
    LumoStyleCycle const*& copy = copies[each.cycle];
    if (copy == nullptr) copy = &copyOf(*each.cycle, aesthetics.chart(), writer);
    each.attach(*each.object, *copy);
  }
}

}  // namespace

std::string_view cycleProperty(std::string_view aesthetic) { return kindOf(aesthetic).property; }

CycledAesthetics::CycledAesthetics(TemplatedChart const& chart) : mChart(chart.visualization) {
  for (TemplatedChart::Graph const& graph : chart.graphs) {
    std::vector<CTAesthetic*>& found = mGraphs.emplace_back();
    for (CTElementType* const element : graph.elements) {
      forEachElement(*element, [&found](LumoBaseElement& object) {
        auto* const aesthetic = dynamic_cast<CTAesthetic*>(&object);
        Cycled each{};
        if (aesthetic != nullptr && read(*aesthetic, each)) found.push_back(aesthetic);
      });
    }
  }
}

std::size_t CycledAesthetics::count() const {
  std::size_t count = 0;
  for (std::vector<CTAesthetic*> const& graph : mGraphs) count += graph.size();
  return count;
}

void makeColorCycles(CycledAesthetics const& aesthetics, TemplateWriter& writer, unsigned int number) {
  LumoStyleCycle const* const repository = repositoryOf(aesthetics.chart());
  for (Cycled const& each : colored(aesthetics, number)) {
    if (each.cycle != nullptr && each.cycle != repository) continue;
    each.attach(*each.object, makeColorCycle(aesthetics.chart(), writer));
  }
  separate(aesthetics, writer, colored(aesthetics, number));
}

void separateCycles(CycledAesthetics const& aesthetics, TemplateWriter& writer, std::string_view aesthetic) {
  separate(aesthetics, writer, turning(aesthetics, aesthetic));
}

void setColors(CycledAesthetics const& aesthetics, TemplateWriter& writer, unsigned int number,
               TemplateNode const& cycle) {
  std::set<LumoStyleCycle const*> filled = {nullptr};
  for (Cycled const& each : colored(aesthetics, number)) {
    if (filled.insert(each.cycle).second) fill(*each.cycle, each.aesthetic, writer, cycle.children);
  }
}

void setCycles(CycledAesthetics const& aesthetics, TemplateWriter& writer, std::string_view aesthetic,
               TemplateNode const& cycle) {
  LumoStyleCycle* repository = repositoryOf(aesthetics.chart());
  if (repository == nullptr) repository = &makeRepository(aesthetics.chart(), writer);
  fill(cycleIn(*repository, kindOf(aesthetic), writer), writer, cycle.children);
  std::set<LumoStyleCycle const*> filled = {repository, nullptr};
  for (Cycled const& each : turning(aesthetics, aesthetic)) {
    if (filled.insert(each.cycle).second) fill(*each.cycle, aesthetic, writer, cycle.children);
  }
}

}  // namespace kestrel::host
