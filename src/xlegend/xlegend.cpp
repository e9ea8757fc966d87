#include "xlegend.h"

#include "xelement.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "model/labels.h"
#include "model/tokens.h"

using kestrel::guarded;
using kestrel::joined;
using kestrel::numbered;
using kestrel::present;

XLegend::XLegend(LumoLegend& legend) : XBaseElement(legend), mImplementation(&legend) {}

void XLegend::AddLabel(char16_t const* text) {
  guarded("Error in XLegend::AddLabel()", [&] {
    LumoLabel* label = mImplementation->addLabel();
    // A constant suffix, not a count: a second label has the same id, which is relied upon.
    label->setId(joined({mImplementation->getId(), u"_label_1"}).xc_str());
    auto* labelText = label->addText();
    ChartString shown(text);
    replaceNewline(shown);
    labelText->setText(shown.xc_str());
  });
}

void XLegend::addLegendElement(XElement const& element) {
  guarded("Error in XLegend::addLegendElement()", [&] {
    ChartString const id = numbered(joined({mImplementation->getId(), u"_", LumoUni::_legendTarget, u"_"}),
                                    mImplementation->getLegendTargets().size());
    mImplementation->addLegendTarget(id.xc_str(), present(element.getImplementation(), "element"));
  });
}
