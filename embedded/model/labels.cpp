#include "model/labels.h"

#include "access.h"

#include <vector>

using namespace kestrel::model;

LumoLocation::~LumoLocation() = default;
LumoLocation::ENUM_method LumoLocation::getMethod() const { return readEnum<ENUM_method>(*this, u"method"); }
LumoLocation::ENUM_part LumoLocation::getPart() const { return readEnum<ENUM_part>(*this, u"part"); }
void LumoLocation::setMethod(ENUM_method method) { write(*this, u"method", method); }
void LumoLocation::setTarget(LumoGraph const& graph) { refer(*this, u"target", graph); }
void LumoLocation::setTarget(LumoLabelFrame const& frame) { refer(*this, u"target", frame); }
void LumoLocation::setValue(char16_t const* value) { write(*this, u"value", value); }

CTTextType::~CTTextType() = default;
char16_t const* CTTextType::getText() const { return LumoBinding::treeOf(*this).text(*this); }
void CTTextType::setText(char16_t const* text) { LumoBinding::treeOf(*this).writeText(*this, text); }

LumoText::~LumoText() = default;

CTLabelType::~CTLabelType() = default;

LumoDescriptionGroup* CTLabelType::addDescriptionGroup(LumoBaseElement const& target) {
  LumoDescriptionGroup* const group = add<LumoDescriptionGroup>(*this);
  refer(*group, u"target", target);
  return group;
}

LumoText* CTLabelType::addText() { return add<LumoText>(*this); }
std::vector<LumoDescriptionGroup*> CTLabelType::getDescriptionGroups() const {
  return children<LumoDescriptionGroup>(*this);
}
std::vector<LumoText*> CTLabelType::getTexts() const { return children<LumoText>(*this); }
void CTLabelType::removeTexts() { removeAll<LumoText>(*this); }
LumoStyle* CTLabelType::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
LumoStyle* CTLabelType::getTextFrameStyle() const { return referred<LumoStyle>(*this, u"textFrameStyle"); }
void CTLabelType::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }
void CTLabelType::setTextFrameStyle(LumoStyle const& style) { refer(*this, u"textFrameStyle", style); }

LumoLabel::~LumoLabel() = default;
LumoLabel::ENUM_purpose LumoLabel::getPurpose() const { return readEnum<ENUM_purpose>(*this, u"purpose"); }
void LumoLabel::setPurpose(ENUM_purpose purpose) { write(*this, u"purpose", purpose); }

LumoLabelFrame::~LumoLabelFrame() = default;
LumoExtension* LumoLabelFrame::addExtension() { return add<LumoExtension>(*this); }
LumoLabel* LumoLabelFrame::addLabel() { return add<LumoLabel>(*this); }
LumoLocation* LumoLabelFrame::addLocation(LumoLocation::ENUM_part part) { return locate(*this, part); }
LumoExtension* LumoLabelFrame::getExtension() const { return child<LumoExtension>(*this); }
LumoLabel* LumoLabelFrame::getLabel() const { return child<LumoLabel>(*this); }
std::vector<LumoLocation*> LumoLabelFrame::getLocations() const { return children<LumoLocation>(*this); }
void LumoLabelFrame::removeLocations() { removeAll<LumoLocation>(*this); }
LumoStyle* LumoLabelFrame::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
void LumoLabelFrame::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }

LumoDescription::~LumoDescription() = default;
LumoFormat* LumoDescription::addFormat() { return add<LumoFormat>(*this); }
std::vector<LumoFormat*> LumoDescription::getFormats() const { return children<LumoFormat>(*this); }

LumoDescriptionGroup::~LumoDescriptionGroup() = default;

LumoDescription* LumoDescriptionGroup::addDescription(LumoDescription::ENUM_name name) {
  LumoDescription* const description = add<LumoDescription>(*this);
  write(*description, u"name", name);
  return description;
}

LumoText* LumoDescriptionGroup::addText() { return add<LumoText>(*this); }
std::vector<LumoDescription*> LumoDescriptionGroup::getDescriptions() const {
  return children<LumoDescription>(*this);
}
LumoBaseElement* LumoDescriptionGroup::getTarget() const {
  return referred<LumoBaseElement>(*this, u"target");
}
std::vector<LumoText*> LumoDescriptionGroup::getTexts() const { return children<LumoText>(*this); }

char16_t const LumoLegend::_UTF_legend[] = u"legend";
char16_t const* LumoLegend::getElementName() noexcept { return _UTF_legend; }

LumoLegend::~LumoLegend() = default;
LumoLabel* LumoLegend::addLabel() { return add<LumoLabel>(*this); }

LumoLegendTarget* LumoLegend::addLegendTarget(char16_t const* id, LumoBaseElement const& target) {
  LumoLegendTarget* const legendTarget = add<LumoLegendTarget>(*this, id);
  refer(*legendTarget, u"target", target);
  return legendTarget;
}
LumoLocation* LumoLegend::addLocation(LumoLocation::ENUM_part part) { return locate(*this, part); }
std::vector<LumoLabel*> LumoLegend::getLabels() const { return children<LumoLabel>(*this); }
std::vector<LumoLegendTarget*> LumoLegend::getLegendTargets() const {
  return children<LumoLegendTarget>(*this);
}
std::vector<LumoLocation*> LumoLegend::getLocations() const { return children<LumoLocation>(*this); }
void LumoLegend::removeLocations() { removeAll<LumoLocation>(*this); }
LumoStyle* LumoLegend::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
LumoStyle* LumoLegend::getTickTextStyle() const { return referred<LumoStyle>(*this, u"tickTextStyle"); }
void LumoLegend::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }
void LumoLegend::setTickTextStyle(LumoStyle const& style) { refer(*this, u"tickTextStyle", style); }

LumoLegendTarget::~LumoLegendTarget() = default;
LumoBaseElement* LumoLegendTarget::getTarget() const { return referred<LumoBaseElement>(*this, u"target"); }

LumoContainer::~LumoContainer() = default;
LumoGraph* LumoContainer::addGraph(char16_t const* id) { return add<LumoGraph>(*this, id); }
LumoLabelFrame* LumoContainer::addLabelFrame(char16_t const* id) { return add<LumoLabelFrame>(*this, id); }
LumoLegend* LumoContainer::addLegend(char16_t const* id) { return add<LumoLegend>(*this, id); }
LumoLocation* LumoContainer::addLocation(LumoLocation::ENUM_part part) { return locate(*this, part); }
std::vector<LumoGraph*> LumoContainer::getGraphs() const { return children<LumoGraph>(*this); }
std::vector<LumoLabelFrame*> LumoContainer::getLabelFrames() const { return children<LumoLabelFrame>(*this); }
std::vector<LumoLegend*> LumoContainer::getLegends() const { return children<LumoLegend>(*this); }
std::vector<LumoLocation*> LumoContainer::getLocations() const { return children<LumoLocation>(*this); }
void LumoContainer::removeLocations() { removeAll<LumoLocation>(*this); }
