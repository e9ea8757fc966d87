#include "model/guides.h"

#include "access.h"

#include <vector>

using namespace kestrel::model;

CTGuideType::~CTGuideType() = default;

LumoConditionalStyle* CTGuideType::addConditionalStyle(char16_t const* when, LumoStyle const& style) {
  return addCondition(*this, when, style);
}

std::vector<LumoConditionalStyle*> CTGuideType::getConditionalStyles() const {
  return children<LumoConditionalStyle>(*this);
}
LumoStyle* CTGuideType::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
void CTGuideType::setName(char16_t const* name) { write(*this, u"name", name); }
void CTGuideType::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }

LumoLineGuide::~LumoLineGuide() = default;
void LumoLineGuide::setX(char16_t const* x) { write(*this, u"x", x); }
void LumoLineGuide::setY(char16_t const* y) { write(*this, u"y", y); }

LumoFunctionGuide::~LumoFunctionGuide() = default;
void LumoFunctionGuide::setValue(char16_t const* value) { write(*this, u"value", value); }

LumoPlaneGuide::~LumoPlaneGuide() = default;
void LumoPlaneGuide::setNormal(ENUM_normal normal) { write(*this, u"normal", normal); }

LumoFrameGuide::~LumoFrameGuide() = default;
void LumoFrameGuide::setComplete(bool complete) { write(*this, u"complete", complete); }
