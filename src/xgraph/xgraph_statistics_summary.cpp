// The label frame that shows the figures of a histogram.

#include "xgraph.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "model/document.h"
#include "model/labels.h"
#include "model/variables.h"

#include <iterator>
#include <optional>

using kestrel::guarded;
using kestrel::joined;
using kestrel::numbered;

namespace {

struct SummaryFigure {
  LumoDescription::ENUM_name name;
  unsigned int maximumFractionDigits;
  std::optional<unsigned int> minimumFractionDigits;
};

/// In the order in which they are read: 5, 7, 6. The last one is a whole number, and sets no minimum.
constexpr SummaryFigure figures[] = {{LumoDescription::Name5, 2, 0},
                                     {LumoDescription::Name7, 2, 0},
                                     {LumoDescription::Name6, 0, std::nullopt}};

void addFigure(LumoDescriptionGroup& group, SummaryFigure const& figure, char16_t const* text) {
  group.addText()->setText(text);
  LumoFormat& format = *group.addDescription(figure.name)->addFormat();
  format.setMaximumFractionDigits(figure.maximumFractionDigits);
  if (figure.minimumFractionDigits) format.setMinimumFractionDigits(*figure.minimumFractionDigits);
}

}  // namespace

void XGraph::AddHistogramStatisticsSummary(XElement const& element, char16_t const* firstText,
                                           char16_t const* secondText, char16_t const* thirdText) {
  guarded("Error in XGraph::AddHistogramStatisticsSummary()", [&] {
    // Titles and footnotes are label frames too, and count.
    ChartString const suffix = numbered(u"_statistics_summary_", mVisualization->getLabelFrames().size() + 1);
    ChartString const frameId = joined({u"frame", suffix.xc_str()});
    LumoLabelFrame& frame = *mVisualization->addLabelFrame(frameId.xc_str());
    frame.setStyle(*addStyle(joined({frameId.xc_str(), ChartBase::_default_style})));
    LumoLabel& label = *frame.addLabel();
    ChartString const labelId = joined({u"label", suffix.xc_str()});
    label.setId(labelId.xc_str());
    label.setStyle(*addStyle(joined({labelId.xc_str(), ChartBase::_default_style})));
    LumoDescriptionGroup& group = *label.addDescriptionGroup(*element.getImplementation());
    char16_t const* const texts[] = {firstText, secondText, thirdText};
    for (std::size_t at = 0; at < std::size(texts); ++at) {
      if (texts[at] != nullptr) addFigure(group, figures[at], texts[at]);
    }
  });
}
