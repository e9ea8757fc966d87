#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <vector>

/// Varies the look of an element by a variable.
class LUMO_API CTAesthetic : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTAesthetic() override;

  CTVariableType* getVariable() const;
  void setVariable(CTVariableType const& variable);
  CTDomainType* getDomain() const;
  void setDomain(CTDomainType const& domain);
  /// Drops the reference only.
  void removeDomain();
};

/// Gives one value of an aesthetic's variable a look of its own.
class LUMO_API CTAestheticMapping : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTAestheticMapping() override;

  char16_t const* getFrom() const;
  void setFrom(char16_t const* from);
  char16_t const* getTo() const;
  void setTo(char16_t const* to);
};

class LUMO_API LumoColorMapping : public CTAestheticMapping {
 public:
  using CTAestheticMapping::CTAestheticMapping;
  ~LumoColorMapping() override;
};

class LUMO_API LumoSymbolMapping : public CTAestheticMapping {
 public:
  using CTAestheticMapping::CTAestheticMapping;
  ~LumoSymbolMapping() override;
};

class LUMO_API LumoColor : public CTAesthetic {
 public:
  enum ENUM_affect : int { Affect1 = 1, Affect2 = 2 };

  using CTAesthetic::CTAesthetic;
  ~LumoColor() override;

  LumoColorMapping* addColorMapping();
  std::vector<LumoColorMapping*> getColorMappings() const;
  LumoStyleCycle* getCycle() const;
  void setAffect(ENUM_affect affect);
  void setCycle(LumoStyleCycle const& cycle);
};

class LUMO_API LumoDash : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoDash() override;

  LumoStyleCycle* getCycle() const;
  void setCycle(LumoStyleCycle const& cycle);
};

class LUMO_API LumoPattern : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoPattern() override;

  LumoStyleCycle* getCycle() const;
  void setCycle(LumoStyleCycle const& cycle);
};

class LUMO_API LumoShape : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoShape() override;

  LumoSymbolMapping* addSymbolMapping();
  LumoStyleCycle* getCycle() const;
  std::vector<LumoSymbolMapping*> getSymbolMappings() const;
  void removeSymbolMappings();
  void setCycle(LumoStyleCycle const& cycle);
};

class LUMO_API LumoSize : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoSize() override;

  void setHigh(char16_t const* high);
  void setLow(char16_t const* low);
};

/// From 0, opaque, to 1.
class LUMO_API LumoTransparency : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoTransparency() override;

  void setHigh(double high);
  void setLow(double low);
};

/// Varies whole styles, taken from a cycle.
class LUMO_API LumoStyleBy : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoStyleBy() override;

  LumoStyleCycle* getStyleCycle() const;
  void setStyleCycle(LumoStyleCycle const& cycle);
};

/// A style that holds where a condition is true.
class LUMO_API LumoConditionalStyle : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoConditionalStyle() override;

  LumoStyle* getStyle() const;
  char16_t const* getWhen() const;
  void setStyle(LumoStyle const& style);
  void setWhen(char16_t const* when);
};

/// The looks that the categories of an aesthetic's variable take one after the other.
class LUMO_API LumoStyleCycle : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoStyleCycle() override;

  LumoCycle* addCycle();
  LumoExtension* addExtension();
  std::vector<LumoCycle*> getCycles() const;
  LumoExtension* getExtension() const;
};

class LUMO_API LumoCycle : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCycle() override;

  LumoStyle* addStyle();
  std::vector<LumoStyle*> getStyles() const;
};
