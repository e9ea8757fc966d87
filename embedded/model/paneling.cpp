#include "model/paneling.h"

#include "access.h"

#include <vector>

using namespace kestrel::model;

LumoFaceting::~LumoFaceting() = default;
LumoCross* LumoFaceting::addCross() { return add<LumoCross>(*this); }
std::vector<LumoCross*> LumoFaceting::getCrosss() const { return children<LumoCross>(*this); }
void LumoFaceting::setMethod(char16_t const* method) { write(*this, u"method", method); }

LumoCross::~LumoCross() = default;
LumoCross* LumoCross::addCross() { return add<LumoCross>(*this); }
LumoNest* LumoCross::addNest() { return add<LumoNest>(*this); }
LumoUnity* LumoCross::addUnity() { return add<LumoUnity>(*this); }
LumoVariableReference* LumoCross::addVariableReference() { return add<LumoVariableReference>(*this); }
std::vector<LumoCross*> LumoCross::getCrosss() const { return children<LumoCross>(*this); }
std::vector<LumoNest*> LumoCross::getNests() const { return children<LumoNest>(*this); }
std::vector<LumoUnity*> LumoCross::getUnitys() const { return children<LumoUnity>(*this); }
std::vector<LumoVariableReference*> LumoCross::getVariableReferences() const {
  return children<LumoVariableReference>(*this);
}

LumoNest::~LumoNest() = default;
LumoVariableReference* LumoNest::addVariableReference() { return add<LumoVariableReference>(*this); }
std::vector<LumoVariableReference*> LumoNest::getVariableReferences() const {
  return children<LumoVariableReference>(*this);
}

LumoUnity::~LumoUnity() = default;

LumoFacetLayout::~LumoFacetLayout() = default;

LumoFacetLevel* LumoFacetLayout::addFacetLevel(char16_t const* id, unsigned int level) {
  LumoFacetLevel* const facetLevel = add<LumoFacetLevel>(*this, id);
  write(*facetLevel, u"level", level);
  return facetLevel;
}

LumoSetCellProperties* LumoFacetLayout::addSetCellProperties() { return add<LumoSetCellProperties>(*this); }
std::vector<LumoFacetLevel*> LumoFacetLayout::getFacetLevels() const {
  return children<LumoFacetLevel>(*this);
}
std::vector<LumoSetCellProperties*> LumoFacetLayout::getSetCellPropertiess() const {
  return children<LumoSetCellProperties>(*this);
}
void LumoFacetLayout::setCellAspect(double aspect) { write(*this, u"cellAspect", aspect); }
void LumoFacetLayout::setMethod(ENUM_method method) { write(*this, u"method", method); }
void LumoFacetLayout::setTopDown(bool topDown) { write(*this, u"topDown", topDown); }

LumoFacetLevel::~LumoFacetLevel() = default;
LumoAxis* LumoFacetLevel::addAxis() { return add<LumoAxis>(*this); }
std::vector<LumoAxis*> LumoFacetLevel::getAxiss() const { return children<LumoAxis>(*this); }
unsigned int LumoFacetLevel::getLevel() const { return readUnsigned(*this, u"level"); }
void LumoFacetLevel::setGap(char16_t const* gap) { write(*this, u"gap", gap); }

LumoSetCellProperties::~LumoSetCellProperties() = default;
LumoSetFrameStyle* LumoSetCellProperties::addSetFrameStyle() { return add<LumoSetFrameStyle>(*this); }
std::vector<LumoSetFrameStyle*> LumoSetCellProperties::getSetFrameStyles() const {
  return children<LumoSetFrameStyle>(*this);
}

LumoSetFrameStyle::~LumoSetFrameStyle() = default;
LumoStyle* LumoSetFrameStyle::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
void LumoSetFrameStyle::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }
