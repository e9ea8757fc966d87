#include "host/text.h"
#include "kestrelhost/host.h"
#include "model/document.h"

#include <limits>

namespace kestrel::host {

ChartTexts::~ChartTexts() = default;

ChartString UsualChartTexts::createUniqueId(ChartString const& id, LumoVisualization& visualization) {
  ChartString unique(id);
  for (unsigned long number = 1; visualization.doesIdExist(unique.xc_str()); ++number) {
    unique = id;
    unique.append(u'_');
    unique.append(number);
  }
  return unique;
}

void UsualChartTexts::updateText(ChartString& text, FacSTDictionary* dictionary, std::string const&) {
  if (dictionary == nullptr || text.empty()) return;
  constexpr unsigned long unknown = std::numeric_limits<unsigned long>::max();
  unsigned long index = unknown;
  std::string const translation = dictionary->LookUp(text.toUTF8(), index);
  if (index != unknown) text.assign(translation.c_str());
}

}  // namespace kestrel::host
