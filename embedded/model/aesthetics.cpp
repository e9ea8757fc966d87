#include "model/aesthetics.h"

#include "access.h"

#include <vector>

using namespace kestrel::model;

CTAesthetic::~CTAesthetic() = default;
CTVariableType* CTAesthetic::getVariable() const { return referred<CTVariableType>(*this, u"variable"); }
void CTAesthetic::setVariable(CTVariableType const& variable) { refer(*this, u"variable", variable); }
CTDomainType* CTAesthetic::getDomain() const { return referred<CTDomainType>(*this, u"domain"); }
void CTAesthetic::setDomain(CTDomainType const& domain) { refer(*this, u"domain", domain); }
void CTAesthetic::removeDomain() { erase(*this, u"domain"); }

CTAestheticMapping::~CTAestheticMapping() = default;
char16_t const* CTAestheticMapping::getFrom() const { return read(*this, u"from"); }
void CTAestheticMapping::setFrom(char16_t const* from) { write(*this, u"from", from); }
char16_t const* CTAestheticMapping::getTo() const { return read(*this, u"to"); }
void CTAestheticMapping::setTo(char16_t const* to) { write(*this, u"to", to); }

LumoColorMapping::~LumoColorMapping() = default;

LumoSymbolMapping::~LumoSymbolMapping() = default;

LumoColor::~LumoColor() = default;
LumoColorMapping* LumoColor::addColorMapping() { return add<LumoColorMapping>(*this); }
std::vector<LumoColorMapping*> LumoColor::getColorMappings() const {
  return children<LumoColorMapping>(*this);
}
LumoStyleCycle* LumoColor::getCycle() const { return referred<LumoStyleCycle>(*this, u"cycle"); }
void LumoColor::setAffect(ENUM_affect affect) { write(*this, u"affect", affect); }
void LumoColor::setCycle(LumoStyleCycle const& cycle) { refer(*this, u"cycle", cycle); }

LumoDash::~LumoDash() = default;
LumoStyleCycle* LumoDash::getCycle() const { return referred<LumoStyleCycle>(*this, u"cycle"); }
void LumoDash::setCycle(LumoStyleCycle const& cycle) { refer(*this, u"cycle", cycle); }

LumoPattern::~LumoPattern() = default;
LumoStyleCycle* LumoPattern::getCycle() const { return referred<LumoStyleCycle>(*this, u"cycle"); }
void LumoPattern::setCycle(LumoStyleCycle const& cycle) { refer(*this, u"cycle", cycle); }

LumoShape::~LumoShape() = default;
LumoSymbolMapping* LumoShape::addSymbolMapping() { return add<LumoSymbolMapping>(*this); }
LumoStyleCycle* LumoShape::getCycle() const { return referred<LumoStyleCycle>(*this, u"cycle"); }
std::vector<LumoSymbolMapping*> LumoShape::getSymbolMappings() const {
  return children<LumoSymbolMapping>(*this);
}
void LumoShape::removeSymbolMappings() { removeAll<LumoSymbolMapping>(*this); }
void LumoShape::setCycle(LumoStyleCycle const& cycle) { refer(*this, u"cycle", cycle); }

LumoSize::~LumoSize() = default;
void LumoSize::setHigh(char16_t const* high) { write(*this, u"high", high); }
void LumoSize::setLow(char16_t const* low) { write(*this, u"low", low); }

LumoTransparency::~LumoTransparency() = default;
void LumoTransparency::setHigh(double high) { write(*this, u"high", high); }
void LumoTransparency::setLow(double low) { write(*this, u"low", low); }

LumoStyleBy::~LumoStyleBy() = default;
LumoStyleCycle* LumoStyleBy::getStyleCycle() const { return referred<LumoStyleCycle>(*this, u"styleCycle"); }
void LumoStyleBy::setStyleCycle(LumoStyleCycle const& cycle) { refer(*this, u"styleCycle", cycle); }

LumoConditionalStyle::~LumoConditionalStyle() = default;
LumoStyle* LumoConditionalStyle::getStyle() const { return referred<LumoStyle>(*this, u"style"); }
char16_t const* LumoConditionalStyle::getWhen() const { return read(*this, u"when"); }
void LumoConditionalStyle::setStyle(LumoStyle const& style) { refer(*this, u"style", style); }
void LumoConditionalStyle::setWhen(char16_t const* when) { write(*this, u"when", when); }

LumoStyleCycle::~LumoStyleCycle() = default;
LumoCycle* LumoStyleCycle::addCycle() { return add<LumoCycle>(*this); }
LumoExtension* LumoStyleCycle::addExtension() { return add<LumoExtension>(*this); }
std::vector<LumoCycle*> LumoStyleCycle::getCycles() const { return children<LumoCycle>(*this); }
LumoExtension* LumoStyleCycle::getExtension() const { return child<LumoExtension>(*this); }

LumoCycle::~LumoCycle() = default;
LumoStyle* LumoCycle::addStyle() { return add<LumoStyle>(*this); }
std::vector<LumoStyle*> LumoCycle::getStyles() const { return children<LumoStyle>(*this); }
