#include "template_cycles.h"

#include "host/chartbase.h"
#include "model/tokens.h"

#include <algorithm>
#include <set>

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

/// An aesthetic that takes its looks from a cycle, or could.
struct Cycled {
  std::string_view aesthetic;
  LumoStyleCycle* cycle;
  CTAesthetic* object;
  void (*attach)(CTAesthetic&, LumoStyleCycle const&);
};

template <typename Aesthetic>
bool read(LumoBaseElement& object, std::string_view aesthetic, Cycled& result) {
  auto* const found = dynamic_cast<Aesthetic*>(&object);
  if (found == nullptr) return false;
  result = {aesthetic, found->getCycle(), found, [](CTAesthetic& owner, LumoStyleCycle const& cycle) {
              dynamic_cast<Aesthetic&>(owner).setCycle(cycle);
            }};
  return true;
}

template <>
bool read<LumoStyleBy>(LumoBaseElement& object, std::string_view, Cycled& result) {
  auto* const found = dynamic_cast<LumoStyleBy*>(&object);
  if (found == nullptr) return false;
  LumoStyleCycle* const cycle = found->getStyleCycle();
  result = {aestheticOf(cycle), cycle, found, [](CTAesthetic& owner, LumoStyleCycle const& own) {
              dynamic_cast<LumoStyleBy&>(owner).setStyleCycle(own);
            }};
  return true;
}

/// The aesthetics of a graph, in document order.
std::vector<Cycled> cycledIn(TemplatedChart::Graph const& graph) {
  std::vector<Cycled> found;
  for (CTElementType* const element : graph.elements) {
    forEachElement(*element, [&found](LumoBaseElement& object) {
      Cycled each{};
      if (read<LumoColor>(object, color, each) || read<LumoPattern>(object, "pattern", each) ||
          read<LumoShape>(object, "shape", each) || read<LumoDash>(object, "dash", each) ||
          read<LumoStyleBy>(object, {}, each)) {
        found.push_back(each);
      }
    });
  }
  return found;
}

/// The colouring aesthetic of that number in each graph that has so many.
std::vector<Cycled> colored(TemplatedChart const& chart, unsigned int number) {
  std::vector<Cycled> found;
  for (TemplatedChart::Graph const& graph : chart.graphs) {
    unsigned int count = 0;
    for (Cycled const& each : cycledIn(graph)) {
      if (each.aesthetic == color && ++count == number) found.push_back(each);
    }
  }
  return found;
}

/// The last one, as all that write into it take it.
LumoStyleCycle* repositoryOf(LumoVisualization const& chart) {
  LumoStyleCycle* found = nullptr;
  for (LumoStyleCycle* const cycle : chart.getStyleCycles()) {
    if (same(cycle->getId(), ChartBase::_styleCycleRepository)) found = cycle;
  }
  return found;
}

LumoStyleCycle& makeRepository(LumoVisualization& chart) {
  LumoStyleCycle& repository = *chart.addStyleCycle(ChartBase::_styleCycleRepository);
  LumoExtensionVis* const extension = chart.getExtension();
  (extension != nullptr ? extension : chart.addExtension())->setStyleCycleRepository(repository);
  return repository;
}

/// The cycle of an aesthetic in the repository goes by its id.
LumoCycle& cycleIn(LumoStyleCycle& repository, Kind const& kind) {
  std::u16string const id = u"cycle_" + std::u16string(kind.token);
  for (LumoCycle* const cycle : repository.getCycles()) {
    if (same(cycle->getId(), id.c_str())) return *cycle;
  }
  LumoCycle& cycle = *repository.addCycle();
  cycle.setId(id.c_str());
  return cycle;
}

/// The model has no operation for it. The id goes first, so that nothing finds the style any more.
void remove(LumoStyle& style) {
  style.setId(nullptr);
  xercesc::DOMElement* const element = style.getImplementation();
  element->getParentNode()->removeChild(element);
}

/// As many styles as there are entries: those that stand there take a look over, the others are made or go.
void fill(LumoCycle& cycle, TemplateWriter& writer, std::vector<TemplateNode> const& entries) {
  std::vector<LumoStyle*> const styles = cycle.getStyles();
  for (std::size_t at = 0; at < entries.size(); ++at) {
    writer.write(at < styles.size() ? *styles[at] : *cycle.addStyle(), lookOf(entries[at]));
  }
  for (std::size_t at = entries.size(); at < styles.size(); ++at) remove(*styles[at]);
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

}  // namespace

std::string_view cycleProperty(std::string_view aesthetic) { return kindOf(aesthetic).property; }

void makeColorCycles(TemplatedChart const& chart, TemplateWriter& writer, unsigned int number) {
  LumoStyleCycle const* const repository = repositoryOf(chart.visualization);
  for (Cycled const& each : colored(chart, number)) {
    if (each.cycle != nullptr && each.cycle != repository) continue;
    each.attach(*each.object, makeColorCycle(chart.visualization, writer));
  }
}

void setColors(TemplatedChart const& chart, TemplateWriter& writer, unsigned int number,
               TemplateNode const& cycle) {
  for (Cycled const& each : colored(chart, number)) {
    if (each.cycle != nullptr) fill(*each.cycle, each.aesthetic, writer, cycle.children);
  }
}

void setCycles(TemplatedChart const& chart, TemplateWriter& writer, std::string_view aesthetic,
               TemplateNode const& cycle) {
  LumoStyleCycle* repository = repositoryOf(chart.visualization);
  if (repository == nullptr) repository = &makeRepository(chart.visualization);
  fill(cycleIn(*repository, kindOf(aesthetic)), writer, cycle.children);
  std::set<LumoStyleCycle const*> filled = {repository, nullptr};
  for (TemplatedChart::Graph const& graph : chart.graphs) {
    for (Cycled const& each : cycledIn(graph)) {
      bool const meant = each.aesthetic == aesthetic && filled.insert(each.cycle).second;
      if (meant) fill(*each.cycle, aesthetic, writer, cycle.children);
    }
  }
}

}  // namespace kestrel::host
