#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <xercesc/dom/DOMElement.hpp>

#include <vector>

/// A variable of the chart. Its booleans are false where nothing was set.
class LUMO_API CTVariableType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTVariableType() override;

  LumoExtensionSV* addExtension();
  LumoFormat* addFormat();
  /// Appends a deep copy; `format` stays where it is.
  LumoFormat* addFormat(LumoFormat const& format);
  LumoExtensionSV* getExtension() const;
  std::vector<LumoFormat*> getFormats() const;

  bool getCategorical() const;
  char16_t const* getCreator() const;
  char16_t const* getDescription() const;
  CTDomainType* getDomain() const;
  bool getKey() const;
  char16_t const* getLabel() const;
  char16_t const* getShortLabel() const;
  /// The id of the source as text; null when there is none.
  char16_t const* getSource() const;
  bool getWeight() const;
  void setCategorical(bool categorical);
  void setCreator(char16_t const* creator);
  void setDescription(char16_t const* description);
  void setDomain(LumoCategoricalDomain const& domain);
  void setKey(bool key);
  void setLabel(char16_t const* label);
  void setShortLabel(char16_t const* label);
  void setSource(LumoBaseElement const& source);
  void setWeight(bool weight);
};

/// A column of a data source.
class LUMO_API LumoSourceVariable : public CTVariableType {
 public:
  using CTVariableType::CTVariableType;
  ~LumoSourceVariable() override;

  char16_t const* getSourceName() const;
  void setInputDateFormatPattern(char16_t const* pattern);
  void setSourceName(char16_t const* name);
};

class LUMO_API LumoDerivedVariable : public CTVariableType {
 public:
  using CTVariableType::CTVariableType;
  ~LumoDerivedVariable() override;

  void setValue(char16_t const* value);
};

class LUMO_API LumoExpressionVariable : public CTVariableType {
 public:
  using CTVariableType::CTVariableType;
  ~LumoExpressionVariable() override;

  void setExpression(char16_t const* expression);
};

class LUMO_API LumoVariableReference : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoVariableReference() override;

  CTVariableType* getRef() const;
  void setRef(CTVariableType const& variable);
};

class LUMO_API CTFormatType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTFormatType() override;

  char16_t const* getPrefix() const;
  char16_t const* getSuffix() const;
  void setPrefix(char16_t const* prefix);
  void setSuffix(char16_t const* suffix);
};

/// How values are shown as text.
class LUMO_API LumoFormat : public CTFormatType {
 public:
  enum ENUM_baseFormat : int { BaseFormatNone = 0, BaseFormat1 = 1, BaseFormat2 = 2, BaseFormat3 = 3 };

  using CTFormatType::CTFormatType;
  /// Works on an element that no document of the model owns; it stays the caller's and must outlive this
  /// object, which owns the objects of what it adds. On an element of a document it is a second handle beside
  /// its own object.
  explicit LumoFormat(xercesc::DOMElement* element);
  ~LumoFormat() override;

  LumoRelabel* addRelabel(char16_t const* from, char16_t const* to);
  std::vector<LumoRelabel*> getRelabels() const;
  void removeRelabels();

  /// 0 where nothing was set.
  ENUM_baseFormat getBaseFormat() const;
  char16_t const* getPattern() const;
  /// Was a minimum set, be it 0?
  bool isMinimumFractionDigitsPresent() const;
  void setBaseFormat(ENUM_baseFormat base);
  void setErrorCharacter(char16_t const* character);
  void setMaximumFractionDigits(unsigned int digits);
  void setMinimumFractionDigits(unsigned int digits);
  /// A date or number pattern.
  void setPattern(char16_t const* pattern);
  void setUseGrouping(bool grouping);
};

/// Shows one value as another text.
class LUMO_API LumoRelabel : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoRelabel() override;

  char16_t const* getFrom() const;
  char16_t const* getTo() const;
};

/// What both kinds of domain share. A caller that cannot tell which kind it has may use every operation here:
/// one that the other kind was made for simply writes its child or attribute.
class LUMO_API CTDomainType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTDomainType() override;

  LumoFormat* addFormat();
  LumoRange* addRange();
  LumoVariableReference* addVariableReference(CTVariableType const& variable);
  std::vector<LumoFormat*> getFormats() const;
  std::vector<LumoRange*> getRanges() const;
  std::vector<LumoVariableReference*> getVariableReferences() const;
  void removeFormats();
  void removeRanges();
  void setDate(bool date);
};

class LUMO_API LumoIntervalDomain : public CTDomainType {
 public:
  using CTDomainType::CTDomainType;
  ~LumoIntervalDomain() override;
};

class LUMO_API LumoCategoricalDomain : public CTDomainType {
 public:
  using CTDomainType::CTDomainType;
  ~LumoCategoricalDomain() override;

  LumoCategories* addCategories();
  LumoSimpleSort* addSimpleSort();
  std::vector<LumoCategories*> getCategoriess() const;
  std::vector<LumoSimpleSort*> getSimpleSorts() const;
  void removeCategoriess();
};

/// A list of categories, separated by ";", as the text of the element.
class LUMO_API LumoCategories : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCategories() override;

  bool getRemove() const;
  /// All text of the element, null when it has none; valid until the text changes.
  char16_t const* getText() const;
  void setRemove(bool remove);
  void setText(char16_t const* text);
};

class LUMO_API LumoSimpleSort : public LumoBaseElement {
 public:
  enum ENUM_method : int { Method2 = 2 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoSimpleSort() override;

  LumoCategoryOrder* addCategoryOrder();
  std::vector<LumoCategoryOrder*> getCategoryOrders() const;
  void removeCategoryOrders();
  void setDescending(bool descending);
  void setMethod(ENUM_method method);
};

class LUMO_API LumoCategoryOrder : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCategoryOrder() override;

  char16_t const* getText() const;
  void setText(char16_t const* text);
};

class LUMO_API LumoRange : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoRange() override;

  void setExact(bool exact);
  void setMax(char16_t const* max);
  void setMin(char16_t const* min);
};

/// Where the data of variables comes from.
class LUMO_API CTSourceType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTSourceType() override;
};

class LUMO_API LumoUserSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoUserSource() override;
};

class LUMO_API LumoDatabaseSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoDatabaseSource() override;
};

class LUMO_API LumoDelimitedFileSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoDelimitedFileSource() override;
};

class LUMO_API LumoEmbeddedSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoEmbeddedSource() override;
};

class LUMO_API LumoStreamingSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoStreamingSource() override;
};
