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

  /// The variable whose values decide.
  CTVariableType* getVariable() const;
  /// The variable whose values decide.
  void setVariable(CTVariableType const& variable);
  /// The values that count, and their order; null leaves them to the variable.
  CTDomainType* getDomain() const;
  /// The values that count, and their order.
  void setDomain(CTDomainType const& domain);
  /// Drops the reference only.
  void removeDomain();
};

/// Gives one value of an aesthetic's variable a look of its own.
class LUMO_API CTAestheticMapping : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTAestheticMapping() override;

  /// The value, as text.
  char16_t const* getFrom() const;
  /// The value, as text.
  void setFrom(char16_t const* from);
  /// Its look, as text.
  char16_t const* getTo() const;
  /// Its look, as text.
  void setTo(char16_t const* to);
};

/// Gives one value a colour.
class LUMO_API LumoColorMapping : public CTAestheticMapping {
 public:
  using CTAestheticMapping::CTAestheticMapping;
  ~LumoColorMapping() override;
};

/// Gives one value a symbol.
class LUMO_API LumoSymbolMapping : public CTAestheticMapping {
 public:
  using CTAestheticMapping::CTAestheticMapping;
  ~LumoSymbolMapping() override;
};

/// Varies the colour.
class LUMO_API LumoColor : public CTAesthetic {
 public:
  /// What of the element is coloured; a number of the client.
  enum ENUM_affect : int { Affect1 = 1, Affect2 = 2 };

  using CTAesthetic::CTAesthetic;
  ~LumoColor() override;

  /// Appends a child of that kind.
  LumoColorMapping* addColorMapping();
  /// The children of that kind, in document order.
  std::vector<LumoColorMapping*> getColorMappings() const;
  /// The looks that the values take; null leaves them to the chart's repository of cycles.
  LumoStyleCycle* getCycle() const;
  /// What of the element is coloured.
  void setAffect(ENUM_affect affect);
  /// The looks that the values take.
  void setCycle(LumoStyleCycle const& cycle);
};

/// Varies the dashes of a line.
class LUMO_API LumoDash : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoDash() override;

  /// The looks that the values take; null leaves them to the chart's repository of cycles.
  LumoStyleCycle* getCycle() const;
  /// The looks that the values take.
  void setCycle(LumoStyleCycle const& cycle);
};

/// Varies the pattern of a filling.
class LUMO_API LumoPattern : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoPattern() override;

  /// The looks that the values take; null leaves them to the chart's repository of cycles.
  LumoStyleCycle* getCycle() const;
  /// The looks that the values take.
  void setCycle(LumoStyleCycle const& cycle);
};

/// Varies the symbol.
class LUMO_API LumoShape : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoShape() override;

  /// Appends a child of that kind.
  LumoSymbolMapping* addSymbolMapping();
  /// The looks that the values take; null leaves them to the chart's repository of cycles.
  LumoStyleCycle* getCycle() const;
  /// The children of that kind, in document order.
  std::vector<LumoSymbolMapping*> getSymbolMappings() const;
  /// Detaches all mappings.
  void removeSymbolMappings();
  /// The looks that the values take.
  void setCycle(LumoStyleCycle const& cycle);
};

/// Varies the size between two lengths.
class LUMO_API LumoSize : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoSize() override;

  /// The size of the greatest value: a length.
  void setHigh(char16_t const* high);
  /// The size of the least value: a length.
  void setLow(char16_t const* low);
};

/// From 0, opaque, to 1.
class LUMO_API LumoTransparency : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoTransparency() override;

  /// The transparency of the greatest value.
  void setHigh(double high);
  /// The transparency of the least value.
  void setLow(double low);
};

/// Varies whole styles, taken from a cycle.
class LUMO_API LumoStyleBy : public CTAesthetic {
 public:
  using CTAesthetic::CTAesthetic;
  ~LumoStyleBy() override;

  /// The styles that the values take.
  LumoStyleCycle* getStyleCycle() const;
  /// The styles that the values take.
  void setStyleCycle(LumoStyleCycle const& cycle);
};

/// A style that holds where a condition is true.
class LUMO_API LumoConditionalStyle : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoConditionalStyle() override;

  /// The style that holds.
  LumoStyle* getStyle() const;
  /// The condition, such as `facet1 == "2"`.
  char16_t const* getWhen() const;
  /// The style that holds.
  void setStyle(LumoStyle const& style);
  /// The condition, such as `facet1 == "2"`.
  void setWhen(char16_t const* when);
};

/// The looks that the categories of an aesthetic's variable take one after the other.
class LUMO_API LumoStyleCycle : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoStyleCycle() override;

  /// @{
  /// Each appends a child of its kind.
  LumoCycle* addCycle();
  LumoExtension* addExtension();
  /// @}

  /// @{
  /// The children of a kind, in document order. Of a kind that stands alone the first one, or null.
  std::vector<LumoCycle*> getCycles() const;
  LumoExtension* getExtension() const;
  /// @}
};

/// One series of looks of a cycle; its styles are taken in their order.
class LUMO_API LumoCycle : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCycle() override;

  /// Appends a child of that kind.
  LumoStyle* addStyle();
  /// The children of that kind, in document order.
  std::vector<LumoStyle*> getStyles() const;
};
