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

  /// @{
  /// Each appends a child of its kind.
  LumoExtensionSV* addExtension();
  LumoFormat* addFormat();
  /// @}

  /// Appends a deep copy; `format` stays where it is.
  LumoFormat* addFormat(LumoFormat const& format);

  /// @{
  /// The children of a kind, in document order. Of a kind that stands alone the first one, or null.
  LumoExtensionSV* getExtension() const;
  std::vector<LumoFormat*> getFormats() const;
  /// @}

  /// Whether the values are categories.
  bool getCategorical() const;
  /// Where the values come from, as `XVariable::setCreator` writes it.
  char16_t const* getCreator() const;
  /// What the variable is for, in a word; "labeling" marks the one that labels cases.
  char16_t const* getDescription() const;
  /// The values that count, and their order; null where there is none.
  CTDomainType* getDomain() const;
  /// Whether the values are the numbers of the cases.
  bool getKey() const;
  /// What the user calls the variable.
  char16_t const* getLabel() const;
  /// A label where there is little room.
  char16_t const* getShortLabel() const;
  /// The id of the source as text; null when there is none.
  char16_t const* getSource() const;
  /// Whether the variable is the weight of the rows.
  bool getWeight() const;
  /// Whether the values are categories.
  void setCategorical(bool categorical);
  /// Where the values come from, as `XVariable::setCreator` writes it.
  void setCreator(char16_t const* creator);
  /// What the variable is for, in a word; "labeling" marks the one that labels cases.
  void setDescription(char16_t const* description);
  /// The values that count, and their order.
  void setDomain(LumoCategoricalDomain const& domain);
  /// Whether the values are the numbers of the cases.
  void setKey(bool key);
  /// What the user calls the variable.
  void setLabel(char16_t const* label);
  /// A label where there is little room.
  void setShortLabel(char16_t const* label);
  /// The source that has the values.
  void setSource(LumoBaseElement const& source);
  /// Whether the variable is the weight of the rows.
  void setWeight(bool weight);
};

/// A column of a data source.
class LUMO_API LumoSourceVariable : public CTVariableType {
 public:
  using CTVariableType::CTVariableType;
  ~LumoSourceVariable() override;

  /// The name of the column in the source.
  char16_t const* getSourceName() const;
  /// The form in which dates stand in the data, such as "yyyy-MM-dd".
  void setInputDateFormatPattern(char16_t const* pattern);
  /// The name of the column in the source.
  void setSourceName(char16_t const* name);
};

/// A variable derived by a function of others, such as `log(sourceVariable0)`.
class LUMO_API LumoDerivedVariable : public CTVariableType {
 public:
  using CTVariableType::CTVariableType;
  ~LumoDerivedVariable() override;

  /// The function, of numbers and ids of variables.
  void setValue(char16_t const* value);
};

/// A variable built of others: `a+b` lays two side by side, `a/b` is a within the category b.
class LUMO_API LumoExpressionVariable : public CTVariableType {
 public:
  using CTVariableType::CTVariableType;
  ~LumoExpressionVariable() override;

  /// The expression, of ids of variables.
  void setExpression(char16_t const* expression);
};

/// Stands for a variable in a domain or in panels.
class LUMO_API LumoVariableReference : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoVariableReference() override;

  /// The variable that this stands for.
  CTVariableType* getRef() const;
  /// The variable that this stands for.
  void setRef(CTVariableType const& variable);
};

/// What the formats of values share.
class LUMO_API CTFormatType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTFormatType() override;

  /// Text before each value.
  char16_t const* getPrefix() const;
  /// Text behind each value.
  char16_t const* getSuffix() const;
  /// Text before each value.
  void setPrefix(char16_t const* prefix);
  /// Text behind each value.
  void setSuffix(char16_t const* suffix);
};

/// How values are shown as text.
class LUMO_API LumoFormat : public CTFormatType {
 public:
  /// What kind of value is formatted; a number of the client.
  enum ENUM_baseFormat : int { BaseFormatNone = 0, BaseFormat1 = 1, BaseFormat2 = 2, BaseFormat3 = 3 };

  using CTFormatType::CTFormatType;
  /// Works on an element that no document of the model owns; it stays the caller's and must outlive this
  /// object, which owns the objects of what it adds. On an element of a document it is a second handle beside
  /// its own object.
  explicit LumoFormat(xercesc::DOMElement* element);
  ~LumoFormat() override;

  /// Appends a relabel from a value, as text, to the text that is shown.
  LumoRelabel* addRelabel(char16_t const* from, char16_t const* to);
  /// The children of that kind, in document order.
  std::vector<LumoRelabel*> getRelabels() const;
  /// Detaches all children of that kind.
  void removeRelabels();

  /// 0 where nothing was set.
  ENUM_baseFormat getBaseFormat() const;
  /// A date or number pattern.
  char16_t const* getPattern() const;
  /// Was a minimum set, be it 0?
  bool isMinimumFractionDigitsPresent() const;
  /// What kind of value is formatted.
  void setBaseFormat(ENUM_baseFormat base);
  /// What is shown in the place of a value that is missing or cannot be shown.
  void setErrorCharacter(char16_t const* character);
  /// The most digits behind the decimal point.
  void setMaximumFractionDigits(unsigned int digits);
  /// The fewest digits behind the decimal point.
  void setMinimumFractionDigits(unsigned int digits);
  /// A date or number pattern.
  void setPattern(char16_t const* pattern);
  /// Whether thousands are set apart.
  void setUseGrouping(bool grouping);
};

/// Shows one value as another text.
class LUMO_API LumoRelabel : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoRelabel() override;

  /// The value, as text.
  char16_t const* getFrom() const;
  /// The text that is shown.
  char16_t const* getTo() const;
};

/// What both kinds of domain share. A caller that cannot tell which kind it has may use every operation here:
/// one that the other kind was made for simply writes its child or attribute.
class LUMO_API CTDomainType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTDomainType() override;

  /// @{
  /// Each appends a child of its kind.
  LumoFormat* addFormat();
  LumoRange* addRange();
  /// @}

  /// Makes the domain cover the values of a variable.
  LumoVariableReference* addVariableReference(CTVariableType const& variable);

  /// @{
  /// The children of a kind, in document order.
  std::vector<LumoFormat*> getFormats() const;
  std::vector<LumoRange*> getRanges() const;
  std::vector<LumoVariableReference*> getVariableReferences() const;
  /// @}

  /// @{
  /// Each detaches all children of its kind.
  void removeFormats();
  void removeRanges();
  /// @}

  /// Whether the values are dates.
  void setDate(bool date);
};

/// A span of numbers or dates.
class LUMO_API LumoIntervalDomain : public CTDomainType {
 public:
  using CTDomainType::CTDomainType;
  ~LumoIntervalDomain() override;
};

/// A set of categories, their order, and those that are left out.
class LUMO_API LumoCategoricalDomain : public CTDomainType {
 public:
  using CTDomainType::CTDomainType;
  ~LumoCategoricalDomain() override;

  /// @{
  /// Each appends a child of its kind.
  LumoCategories* addCategories();
  LumoSimpleSort* addSimpleSort();
  /// @}

  /// @{
  /// The children of a kind, in document order.
  std::vector<LumoCategories*> getCategoriess() const;
  std::vector<LumoSimpleSort*> getSimpleSorts() const;
  /// @}

  /// Detaches all children of that kind.
  void removeCategoriess();
};

/// A list of categories, separated by ";", as the text of the element.
class LUMO_API LumoCategories : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCategories() override;

  /// Whether the categories are left out of the chart.
  bool getRemove() const;
  /// All text of the element, null when it has none; valid until the text changes.
  char16_t const* getText() const;
  /// Whether the categories are left out of the chart.
  void setRemove(bool remove);
  /// The list; null removes it.
  void setText(char16_t const* text);
};

/// The order of the categories of a domain.
class LUMO_API LumoSimpleSort : public LumoBaseElement {
 public:
  /// 2 by the values, others are numbers of the client.
  enum ENUM_method : int { Method2 = 2 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoSimpleSort() override;

  /// Appends a child of that kind.
  LumoCategoryOrder* addCategoryOrder();
  /// The children of that kind, in document order.
  std::vector<LumoCategoryOrder*> getCategoryOrders() const;
  /// Detaches all children of that kind.
  void removeCategoryOrders();
  /// Whether the order is turned round.
  void setDescending(bool descending);
  /// By what the categories are ordered.
  void setMethod(ENUM_method method);
};

/// Categories in their order, separated by ";", as the text of the element.
class LUMO_API LumoCategoryOrder : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCategoryOrder() override;

  /// All text of the element, null when it has none; valid until the text changes.
  char16_t const* getText() const;
  /// The list; null removes it.
  void setText(char16_t const* text);
};

/// The bounds of a domain.
class LUMO_API LumoRange : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoRange() override;

  /// Whether the bounds stay as they are: the client may not widen them.
  void setExact(bool exact);
  /// The upper bound: a number, or a date along dates.
  void setMax(char16_t const* max);
  /// The lower bound: a number, or a date along dates.
  void setMin(char16_t const* min);
};

/// Where the data of variables comes from.
class LUMO_API CTSourceType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTSourceType() override;
};

/// Data that is sent beside the chart.
class LUMO_API LumoUserSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoUserSource() override;
};

/// Data of a data base.
class LUMO_API LumoDatabaseSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoDatabaseSource() override;
};

/// Data of a text file.
class LUMO_API LumoDelimitedFileSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoDelimitedFileSource() override;
};

/// Data that may stand in the chart itself.
class LUMO_API LumoEmbeddedSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoEmbeddedSource() override;
};

/// Data of a stream.
class LUMO_API LumoStreamingSource : public CTSourceType {
 public:
  using CTSourceType::CTSourceType;
  ~LumoStreamingSource() override;
};
