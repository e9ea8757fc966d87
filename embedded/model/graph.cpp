#include "model/graph.h"

#include "access.h"

#include <vector>

using namespace kestrel::model;

LumoScale::~LumoScale() = default;
void LumoScale::setBase(double base) { write(*this, u"base", base); }
void LumoScale::setInvert(bool invert) { write(*this, u"invert", invert); }
void LumoScale::setMethod(ENUM_method method) { write(*this, u"method", method); }
void LumoScale::setOrigin(char16_t const* origin) { write(*this, u"origin", origin); }

LumoGraph::~LumoGraph() = default;
LumoArea* LumoGraph::addArea(char16_t const* id) { return add<LumoArea>(*this, id); }
LumoCoordinates* LumoGraph::addCoordinates(char16_t const* id) { return add<LumoCoordinates>(*this, id); }
LumoEdge* LumoGraph::addEdge(char16_t const* id) { return add<LumoEdge>(*this, id); }
LumoFacetLayout* LumoGraph::addFacetLayout() { return add<LumoFacetLayout>(*this); }
LumoFaceting* LumoGraph::addFaceting() { return add<LumoFaceting>(*this); }
LumoFrameGuide* LumoGraph::addFrameGuide() { return add<LumoFrameGuide>(*this); }
LumoFunctionGuide* LumoGraph::addFunctionGuide() { return add<LumoFunctionGuide>(*this); }
LumoInterval* LumoGraph::addInterval(char16_t const* id) { return add<LumoInterval>(*this, id); }
LumoLine* LumoGraph::addLine(char16_t const* id) { return add<LumoLine>(*this, id); }
LumoLineGuide* LumoGraph::addLineGuide() { return add<LumoLineGuide>(*this); }
LumoLocation* LumoGraph::addLocation(LumoLocation::ENUM_part part) { return locate(*this, part); }
LumoPath* LumoGraph::addPath(char16_t const* id) { return add<LumoPath>(*this, id); }
LumoPlaneGuide* LumoGraph::addPlaneGuide() { return add<LumoPlaneGuide>(*this); }
LumoPoint* LumoGraph::addPoint(char16_t const* id) { return add<LumoPoint>(*this, id); }
LumoPolygon* LumoGraph::addPolygon(char16_t const* id) { return add<LumoPolygon>(*this, id); }
LumoSchema* LumoGraph::addSchema(char16_t const* id) { return add<LumoSchema>(*this, id); }
std::vector<LumoArea*> LumoGraph::getAreas() const { return children<LumoArea>(*this); }
LumoStyle* LumoGraph::getCellStyle() const { return referred<LumoStyle>(*this, u"cellStyle"); }

LumoCoordinates* LumoGraph::getCoordinates(unsigned int index) const {
  std::vector<LumoCoordinates*> const all = getCoordinatess();
  return index < all.size() ? all[index] : nullptr;
}

std::vector<LumoCoordinates*> LumoGraph::getCoordinatess() const { return children<LumoCoordinates>(*this); }
std::vector<LumoEdge*> LumoGraph::getEdges() const { return children<LumoEdge>(*this); }
LumoFacetLayout* LumoGraph::getFacetLayout() const { return child<LumoFacetLayout>(*this); }
LumoFaceting* LumoGraph::getFaceting() const { return child<LumoFaceting>(*this); }
std::vector<LumoFrameGuide*> LumoGraph::getFrameGuides() const { return children<LumoFrameGuide>(*this); }
std::vector<LumoFunctionGuide*> LumoGraph::getFunctionGuides() const {
  return children<LumoFunctionGuide>(*this);
}
std::vector<LumoInterval*> LumoGraph::getIntervals() const { return children<LumoInterval>(*this); }
std::vector<LumoLineGuide*> LumoGraph::getLineGuides() const { return children<LumoLineGuide>(*this); }
std::vector<LumoLine*> LumoGraph::getLines() const { return children<LumoLine>(*this); }
std::vector<LumoLocation*> LumoGraph::getLocations() const { return children<LumoLocation>(*this); }
std::vector<LumoPath*> LumoGraph::getPaths() const { return children<LumoPath>(*this); }
std::vector<LumoPlaneGuide*> LumoGraph::getPlaneGuides() const { return children<LumoPlaneGuide>(*this); }
std::vector<LumoPoint*> LumoGraph::getPoints() const { return children<LumoPoint>(*this); }
std::vector<LumoPolygon*> LumoGraph::getPolygons() const { return children<LumoPolygon>(*this); }
std::vector<LumoSchema*> LumoGraph::getSchemas() const { return children<LumoSchema>(*this); }
void LumoGraph::removeLocations() { removeAll<LumoLocation>(*this); }
void LumoGraph::setCellStyle(LumoStyle const& style) { refer(*this, u"cellStyle", style); }

LumoCoordinates::~LumoCoordinates() = default;
LumoDimension* LumoCoordinates::addDimension() { return add<LumoDimension>(*this); }
LumoDimensionReference* LumoCoordinates::addDimensionReference() {
  return add<LumoDimensionReference>(*this);
}
LumoPolarTransform* LumoCoordinates::addPolarTransform() { return add<LumoPolarTransform>(*this); }
LumoRectangularTransform* LumoCoordinates::addRectangularTransform() {
  return add<LumoRectangularTransform>(*this);
}
LumoReflectionTransform* LumoCoordinates::addReflectionTransform() {
  return add<LumoReflectionTransform>(*this);
}
LumoSameRatioTransform* LumoCoordinates::addSameRatioTransform() {
  return add<LumoSameRatioTransform>(*this);
}
LumoTransposeTransform* LumoCoordinates::addTransposeTransform() {
  return add<LumoTransposeTransform>(*this);
}
std::vector<LumoDimensionReference*> LumoCoordinates::getDimensionReferences() const {
  return children<LumoDimensionReference>(*this);
}
std::vector<LumoDimension*> LumoCoordinates::getDimensions() const { return children<LumoDimension>(*this); }
std::vector<LumoPolarTransform*> LumoCoordinates::getPolarTransforms() const {
  return children<LumoPolarTransform>(*this);
}
std::vector<LumoRectangularTransform*> LumoCoordinates::getRectangularTransforms() const {
  return children<LumoRectangularTransform>(*this);
}
std::vector<LumoReflectionTransform*> LumoCoordinates::getReflectionTransforms() const {
  return children<LumoReflectionTransform>(*this);
}
std::vector<LumoSameRatioTransform*> LumoCoordinates::getSameRatioTransforms() const {
  return children<LumoSameRatioTransform>(*this);
}
std::vector<LumoTransposeTransform*> LumoCoordinates::getTransposeTransforms() const {
  return children<LumoTransposeTransform>(*this);
}
void LumoCoordinates::removeSameRatioTransforms() { removeAll<LumoSameRatioTransform>(*this); }

char16_t const LumoDimension::_UTF_dimension[] = u"dimension";
char16_t const* LumoDimension::getElementName() noexcept { return _UTF_dimension; }

LumoDimension::~LumoDimension() = default;
LumoAxis* LumoDimension::addAxis() { return add<LumoAxis>(*this); }

LumoScale* LumoDimension::addScale(LumoScale::ENUM_method method) {
  LumoScale* const scale = add<LumoScale>(*this);
  scale->setMethod(method);
  return scale;
}

std::vector<LumoAxis*> LumoDimension::getAxiss() const { return children<LumoAxis>(*this); }
LumoScale* LumoDimension::getScale() const { return child<LumoScale>(*this); }
CTVariableType* LumoDimension::getClusterVariable() const {
  return referred<CTVariableType>(*this, u"clusterVariable");
}
CTDomainType* LumoDimension::getDomain() const { return referred<CTDomainType>(*this, u"domain"); }
void LumoDimension::setClusterGap(char16_t const* gap) { write(*this, u"clusterGap", gap); }
void LumoDimension::setClusterVariable(CTVariableType const& variable) {
  refer(*this, u"clusterVariable", variable);
}
void LumoDimension::setDomain(LumoCategoricalDomain const& domain) { refer(*this, u"domain", domain); }
void LumoDimension::setDomain(LumoIntervalDomain const& domain) { refer(*this, u"domain", domain); }
void LumoDimension::setDomain(CTDomainType const& domain) { refer(*this, u"domain", domain); }
void LumoDimension::setLowerMargin(char16_t const* margin) { write(*this, u"lowerMargin", margin); }
void LumoDimension::setNiceLowerMapping(bool nice) { write(*this, u"niceLowerMapping", nice); }
void LumoDimension::setNiceUpperMapping(bool nice) { write(*this, u"niceUpperMapping", nice); }
void LumoDimension::setUnionDomain(bool unite) { write(*this, u"unionDomain", unite); }
void LumoDimension::setUpperMargin(char16_t const* margin) { write(*this, u"upperMargin", margin); }

char16_t const LumoDimensionReference::_dimensionReference[] = u"dimensionReference";
char16_t const* LumoDimensionReference::getElementName() noexcept { return _dimensionReference; }

LumoDimensionReference::~LumoDimensionReference() = default;
LumoDimension* LumoDimensionReference::getRef() const { return referred<LumoDimension>(*this, u"ref"); }
void LumoDimensionReference::setRef(LumoDimension const& dimension) { refer(*this, u"ref", dimension); }

LumoAxis::~LumoAxis() = default;
LumoLabel* LumoAxis::addLabel() { return add<LumoLabel>(*this); }
LumoMajorTicks* LumoAxis::addMajorTicks() { return add<LumoMajorTicks>(*this); }
LumoLabel* LumoAxis::getLabel() const { return child<LumoLabel>(*this); }
LumoMajorTicks* LumoAxis::getMajorTicks() const { return child<LumoMajorTicks>(*this); }
bool LumoAxis::getOpposite() const { return readBool(*this, u"opposite"); }
LumoStyle* LumoAxis::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
LumoAxis::ENUM_transform LumoAxis::getTransform() const {
  return readEnum(*this, u"transform", TransformPrimary);
}
void LumoAxis::setCombineAxisLabels(bool combine) { write(*this, u"combineAxisLabels", combine); }
void LumoAxis::setOpposite(bool opposite) { write(*this, u"opposite", opposite); }
void LumoAxis::setRepeat(ENUM_repeat repeat) { write(*this, u"repeat", repeat); }
void LumoAxis::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }
void LumoAxis::setTransform(ENUM_transform transform) { write(*this, u"transform", transform); }

LumoMajorTicks::~LumoMajorTicks() = default;
LumoFormat* LumoMajorTicks::addFormat() { return add<LumoFormat>(*this); }
LumoGridline* LumoMajorTicks::addGridline() { return add<LumoGridline>(*this); }
std::vector<LumoFormat*> LumoMajorTicks::getFormats() const { return children<LumoFormat>(*this); }
LumoGridline* LumoMajorTicks::getGridline() const { return child<LumoGridline>(*this); }
void LumoMajorTicks::removeFormats() { removeAll<LumoFormat>(*this); }
void LumoMajorTicks::removeGridlines() { removeAll<LumoGridline>(*this); }
double LumoMajorTicks::getLabelAngle() const { return readDouble(*this, u"labelAngle"); }
LumoStyle* LumoMajorTicks::getMarkStyle() const { return referred<LumoStyle>(*this, u"markStyle"); }
LumoStyle* LumoMajorTicks::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
LumoStyle* LumoMajorTicks::getTickFrameStyle() const { return referred<LumoStyle>(*this, u"tickFrameStyle"); }
void LumoMajorTicks::setBase(char16_t const* base) { write(*this, u"base", base); }
void LumoMajorTicks::setDelta(double delta) { write(*this, u"delta", delta); }
void LumoMajorTicks::setLabelAngle(double degrees) { write(*this, u"labelAngle", degrees); }
void LumoMajorTicks::setLabelFrequency(unsigned int frequency) { write(*this, u"labelFrequency", frequency); }
void LumoMajorTicks::setLength(char16_t const* length) { write(*this, u"length", length); }
void LumoMajorTicks::setMarkStyle(LumoStyle const& style) { refer(*this, u"markStyle", style); }
void LumoMajorTicks::setStagger(bool stagger) { write(*this, u"stagger", stagger); }
void LumoMajorTicks::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }
void LumoMajorTicks::setTickFrameStyle(LumoStyle const& style) { refer(*this, u"tickFrameStyle", style); }

LumoGridline::~LumoGridline() = default;

LumoRectangularTransform::~LumoRectangularTransform() = default;
void LumoRectangularTransform::setDistance(double distance) { write(*this, u"distance", distance); }
void LumoRectangularTransform::setPhi(double phi) { write(*this, u"phi", phi); }
void LumoRectangularTransform::setTheta(double theta) { write(*this, u"theta", theta); }
void LumoRectangularTransform::setZeta(double zeta) { write(*this, u"zeta", zeta); }

LumoReflectionTransform::~LumoReflectionTransform() = default;
void LumoReflectionTransform::setAlternating(bool alternating) { write(*this, u"alternating", alternating); }
void LumoReflectionTransform::setDimension(ENUM_dimension dimension) {
  write(*this, u"dimension", dimension);
}

LumoSameRatioTransform::~LumoSameRatioTransform() = default;
void LumoSameRatioTransform::setCenter(bool center) { write(*this, u"center", center); }

LumoTransposeTransform::~LumoTransposeTransform() = default;

LumoPolarTransform::~LumoPolarTransform() = default;
