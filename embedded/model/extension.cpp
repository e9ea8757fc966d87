#include "access.h"

#include "model/base.h"
#include "model/chartstring.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/util/XMLChar.hpp>
#include <xercesc/util/XMLString.hpp>

using namespace kestrel::model;

namespace {

ChartString slotName(char16_t const* slot, long number) {
  ChartString name(slot);
  name.appendInteger(number);
  return name;
}

}  // namespace

LumoExtension::~LumoExtension() = default;

void LumoExtension::setAttribute(char16_t const* name, char16_t const* value) {
  // A name with a colon would need a namespace that nobody declares.
  if (name == nullptr || !xercesc::XMLChar1_0::isValidNCName(name, xercesc::XMLString::stringLen(name)) ||
      sameText(name, u"xmlns")) {
    throw xercesc::DOMException(xercesc::DOMException::INVALID_CHARACTER_ERR);
  }
  if (sameText(name, LumoUni::_id)) {
    setId(value);
  } else {
    write(*this, name, value);
  }
}

LumoExtensionSV::~LumoExtensionSV() = default;
void LumoExtensionSV::setMax(double max) { write(*this, u"max", max); }
void LumoExtensionSV::setMin(double min) { write(*this, u"min", min); }
void LumoExtensionSV::setStatistic(ENUM_statistic statistic) { write(*this, u"statistic", statistic); }
void LumoExtensionSV::setValue(double value) { write(*this, u"value", value); }
void LumoExtensionSV::setValuesAreGroupedMidpoints(bool grouped) {
  write(*this, u"valuesAreGroupedMidpoints", grouped);
}

LumoExtensionVis::~LumoExtensionVis() = default;
void LumoExtensionVis::setAttribute(ChartString const& name, ChartString const& value) {
  setAttribute(name.xc_str(), value.xc_str());
}
LumoLabelFrame* LumoExtensionVis::getTitle1() const { return referred<LumoLabelFrame>(*this, u"title1"); }
LumoLabelFrame* LumoExtensionVis::getTitle2() const { return referred<LumoLabelFrame>(*this, u"title2"); }
LumoLabelFrame* LumoExtensionVis::getSubtitle() const { return referred<LumoLabelFrame>(*this, u"subtitle"); }
LumoLabelFrame* LumoExtensionVis::getFootnote1() const {
  return referred<LumoLabelFrame>(*this, u"footnote1");
}
LumoLabelFrame* LumoExtensionVis::getFootnote2() const {
  return referred<LumoLabelFrame>(*this, u"footnote2");
}
LumoLabelFrame* LumoExtensionVis::getFootnote3() const {
  return referred<LumoLabelFrame>(*this, u"footnote3");
}
void LumoExtensionVis::setTitle1(LumoLabelFrame const& frame) { refer(*this, u"title1", frame); }
void LumoExtensionVis::setTitle2(LumoLabelFrame const& frame) { refer(*this, u"title2", frame); }
void LumoExtensionVis::setSubtitle(LumoLabelFrame const& frame) { refer(*this, u"subtitle", frame); }
void LumoExtensionVis::setFootnote1(LumoLabelFrame const& frame) { refer(*this, u"footnote1", frame); }
void LumoExtensionVis::setFootnote2(LumoLabelFrame const& frame) { refer(*this, u"footnote2", frame); }
void LumoExtensionVis::setFootnote3(LumoLabelFrame const& frame) { refer(*this, u"footnote3", frame); }
void LumoExtensionVis::removeTitle1() { erase(*this, u"title1"); }
void LumoExtensionVis::removeTitle2() { erase(*this, u"title2"); }
void LumoExtensionVis::removeFootnote1() { erase(*this, u"footnote1"); }
LumoLegend* LumoExtensionVis::getLegend(unsigned int slot) const {
  return referred<LumoLegend>(*this, slotName(LumoUni::_legend, slot).xc_str());
}
void LumoExtensionVis::setLegend(unsigned int slot, LumoLegend const& legend) {
  refer(*this, slotName(LumoUni::_legend, slot).xc_str(), legend);
}
LumoLegend* LumoExtensionVis::getLegend1() const { return referred<LumoLegend>(*this, u"legend1"); }
LumoLegend* LumoExtensionVis::getLegend2() const { return referred<LumoLegend>(*this, u"legend2"); }
void LumoExtensionVis::setLegend1(LumoLegend const& legend) { refer(*this, u"legend1", legend); }
void LumoExtensionVis::setLegend2(LumoLegend const& legend) { refer(*this, u"legend2", legend); }
LumoLabelFrame* LumoExtensionVis::getStatisticsSummary(long index) const {
  return referred<LumoLabelFrame>(*this, slotName(u"statisticsSummary", index).xc_str());
}
void LumoExtensionVis::setStatisticsSummary(LumoLabelFrame const& frame, long index) {
  refer(*this, slotName(u"statisticsSummary", index).xc_str(), frame);
}
LumoStyleCycle* LumoExtensionVis::getStyleCycleRepository() const {
  return referred<LumoStyleCycle>(*this, u"styleCycleRepository");
}
void LumoExtensionVis::setStyleCycleRepository(LumoStyleCycle const& cycle) {
  refer(*this, u"styleCycleRepository", cycle);
}
void LumoExtensionVis::setPreserveLocations(bool preserve) { write(*this, u"preserveLocations", preserve); }
