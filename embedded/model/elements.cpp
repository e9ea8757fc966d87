#include "model/elements.h"

#include "access.h"

#include <vector>

using namespace kestrel::model;

CTElementType::~CTElementType() = default;
LumoBinStatistic* CTElementType::addBinStatistic() { return add<LumoBinStatistic>(*this); }
LumoColor* CTElementType::addColor() { return add<LumoColor>(*this); }

LumoConditionalStyle* CTElementType::addConditionalStyle(char16_t const* when, LumoStyle const& style) {
  return addCondition(*this, when, style);
}

LumoDash* CTElementType::addDash() { return add<LumoDash>(*this); }
LumoDistributionStatistic* CTElementType::addDistributionStatistic() {
  return add<LumoDistributionStatistic>(*this);
}
LumoLabeling* CTElementType::addLabeling() { return add<LumoLabeling>(*this); }
LumoPattern* CTElementType::addPattern() { return add<LumoPattern>(*this); }
LumoShape* CTElementType::addShape() { return add<LumoShape>(*this); }
LumoSize* CTElementType::addSize() { return add<LumoSize>(*this); }

LumoStyleBy* CTElementType::addStyleBy(CTAesthetic* aesthetic) {
  LumoStyleBy* const styleBy = add<LumoStyleBy>(*this);
  CTVariableType const* const variable = aesthetic == nullptr ? nullptr : aesthetic->getVariable();
  if (variable != nullptr) styleBy->setVariable(*variable);
  return styleBy;
}

LumoSummaryStatistic* CTElementType::addSummaryStatistic() { return add<LumoSummaryStatistic>(*this); }
LumoTransparency* CTElementType::addTransparency() { return add<LumoTransparency>(*this); }
LumoTukeyStatistic* CTElementType::addTukeyStatistic() { return add<LumoTukeyStatistic>(*this); }
LumoX* CTElementType::addX() { return add<LumoX>(*this); }
LumoY* CTElementType::addY() { return add<LumoY>(*this); }
LumoZ* CTElementType::addZ() { return add<LumoZ>(*this); }
std::vector<LumoBinStatistic*> CTElementType::getBinStatistics() const {
  return children<LumoBinStatistic>(*this);
}
std::vector<LumoColor*> CTElementType::getColors() const { return children<LumoColor>(*this); }
std::vector<LumoConditionalStyle*> CTElementType::getConditionalStyles() const {
  return children<LumoConditionalStyle>(*this);
}
std::vector<LumoDash*> CTElementType::getDashs() const { return children<LumoDash>(*this); }
std::vector<LumoDistributionStatistic*> CTElementType::getDistributionStatistics() const {
  return children<LumoDistributionStatistic>(*this);
}
std::vector<LumoLabeling*> CTElementType::getLabelings() const { return children<LumoLabeling>(*this); }
std::vector<LumoPattern*> CTElementType::getPatterns() const { return children<LumoPattern>(*this); }
std::vector<LumoShape*> CTElementType::getShapes() const { return children<LumoShape>(*this); }
std::vector<LumoSize*> CTElementType::getSizes() const { return children<LumoSize>(*this); }
std::vector<LumoStyleBy*> CTElementType::getStyleBys() const { return children<LumoStyleBy>(*this); }
std::vector<LumoSummaryStatistic*> CTElementType::getSummaryStatistics() const {
  return children<LumoSummaryStatistic>(*this);
}
std::vector<LumoTransparency*> CTElementType::getTransparencys() const {
  return children<LumoTransparency>(*this);
}
std::vector<LumoTukeyStatistic*> CTElementType::getTukeyStatistics() const {
  return children<LumoTukeyStatistic>(*this);
}
CTCoordinate* CTElementType::getX() const { return child<LumoX>(*this); }
CTCoordinate* CTElementType::getY() const { return child<LumoY>(*this); }
CTCoordinate* CTElementType::getZ() const { return child<LumoZ>(*this); }
void CTElementType::removeBinStatistics() { removeAll<LumoBinStatistic>(*this); }
void CTElementType::removeDistributionStatistics() { removeAll<LumoDistributionStatistic>(*this); }
void CTElementType::removeShapes() { removeAll<LumoShape>(*this); }

void CTElementType::removeStyleBy(unsigned long index) {
  std::vector<LumoStyleBy*> const all = getStyleBys();
  if (index < all.size()) remove(*all[index]);
}

void CTElementType::removeStyleBys() { removeAll<LumoStyleBy>(*this); }
void CTElementType::removeSummaryStatistics() { removeAll<LumoSummaryStatistic>(*this); }
LumoStyle* CTElementType::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
void CTElementType::removeLabelCollisionHandling() { erase(*this, u"labelCollisionHandling"); }
void CTElementType::setDot(bool dot) { write(*this, u"dot", dot); }
void CTElementType::setLabelCollisionHandling(ENUM_labelCollisionHandling handling) {
  write(*this, u"labelCollisionHandling", handling);
}
void CTElementType::setName(char16_t const* name) { write(*this, u"name", name); }
void CTElementType::setPositionModifier(ENUM_positionModifier modifier) {
  write(*this, u"positionModifier", modifier);
}
void CTElementType::setShowCollidingLabels(bool show) { write(*this, u"showCollidingLabels", show); }
void CTElementType::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }

LumoArea::~LumoArea() = default;

LumoEdge::~LumoEdge() = default;

LumoInterval::~LumoInterval() = default;

LumoLine::~LumoLine() = default;

LumoPath::~LumoPath() = default;

LumoPoint::~LumoPoint() = default;

LumoPolygon::~LumoPolygon() = default;

LumoSchema::~LumoSchema() = default;
void LumoSchema::removeFenceStyle() { erase(*this, u"fenceStyle"); }
void LumoSchema::setExtremeStyle(LumoStyle const& style) { refer(*this, u"extremeStyle", style); }
void LumoSchema::setFenceStyle(LumoStyle const& style) { refer(*this, u"fenceStyle", style); }
void LumoSchema::setHingeStyle(LumoStyle const& style) { refer(*this, u"hingeStyle", style); }
void LumoSchema::setMedianStyle(LumoStyle const& style) { refer(*this, u"medianStyle", style); }
void LumoSchema::setOutlierStyle(LumoStyle const& style) { refer(*this, u"outlierStyle", style); }

CTCoordinate::~CTCoordinate() = default;
CTVariableType* CTCoordinate::getVariable() const { return referred<CTVariableType>(*this, u"variable"); }
void CTCoordinate::setVariable(CTVariableType const& variable) { refer(*this, u"variable", variable); }

LumoX::~LumoX() = default;

LumoY::~LumoY() = default;

LumoZ::~LumoZ() = default;

LumoBinStatistic::~LumoBinStatistic() = default;
void LumoBinStatistic::setAugment(bool augment) { write(*this, u"augment", augment); }
void LumoBinStatistic::setBinCount(char16_t const* count) { write(*this, u"binCount", count); }
void LumoBinStatistic::setBinStart(char16_t const* start) { write(*this, u"binStart", start); }
void LumoBinStatistic::setBinWidth(char16_t const* width) { write(*this, u"binWidth", width); }
void LumoBinStatistic::setGridType(ENUM_gridType type) { write(*this, u"gridType", type); }

LumoSummaryStatistic::~LumoSummaryStatistic() = default;
LumoSummaryStatistic::ENUM_method LumoSummaryStatistic::getMethod() const {
  return readEnum<ENUM_method>(*this, u"method");
}
void LumoSummaryStatistic::setAugment(ENUM_augment augment) { write(*this, u"augment", augment); }
void LumoSummaryStatistic::setMethod(ENUM_method method) { write(*this, u"method", method); }

LumoTukeyStatistic::~LumoTukeyStatistic() = default;

LumoDistributionStatistic::~LumoDistributionStatistic() = default;

LumoLabeling::~LumoLabeling() = default;
LumoFormat* LumoLabeling::addFormat() { return add<LumoFormat>(*this); }
std::vector<LumoFormat*> LumoLabeling::getFormats() const { return children<LumoFormat>(*this); }
void LumoLabeling::setConnectingLines(bool connecting) { write(*this, u"connectingLines", connecting); }
void LumoLabeling::setDimension(unsigned int dimension) { write(*this, u"dimension", dimension); }
void LumoLabeling::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }
void LumoLabeling::setTextFrameStyle(LumoStyle const& style) { refer(*this, u"textFrameStyle", style); }
void LumoLabeling::setVariable(CTVariableType const& variable) { refer(*this, u"variable", variable); }
