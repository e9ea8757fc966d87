#include "model/variables.h"

#include "access.h"

#include <stdexcept>
#include <vector>

using namespace kestrel::model;

CTVariableType::~CTVariableType() = default;
LumoExtensionSV* CTVariableType::addExtension() { return add<LumoExtensionSV>(*this); }
LumoFormat* CTVariableType::addFormat() { return add<LumoFormat>(*this); }

LumoFormat* CTVariableType::addFormat(LumoFormat const& format) {
  return static_cast<LumoFormat*>(&LumoBinding::treeOf(*this).addCopy(*this, LumoBinding::elementOf(format)));
}

LumoExtensionSV* CTVariableType::getExtension() const { return child<LumoExtensionSV>(*this); }
std::vector<LumoFormat*> CTVariableType::getFormats() const { return children<LumoFormat>(*this); }
bool CTVariableType::getCategorical() const { return readBool(*this, u"categorical"); }
char16_t const* CTVariableType::getCreator() const { return read(*this, u"creator"); }
char16_t const* CTVariableType::getDescription() const { return read(*this, u"description"); }
CTDomainType* CTVariableType::getDomain() const { return referred<CTDomainType>(*this, u"domain"); }
bool CTVariableType::getKey() const { return readBool(*this, u"key"); }
char16_t const* CTVariableType::getLabel() const { return read(*this, u"label"); }
char16_t const* CTVariableType::getShortLabel() const { return read(*this, u"shortLabel"); }
char16_t const* CTVariableType::getSource() const { return read(*this, u"source"); }
bool CTVariableType::getWeight() const { return readBool(*this, u"weight"); }
void CTVariableType::setCategorical(bool categorical) { write(*this, u"categorical", categorical); }
void CTVariableType::setCreator(char16_t const* creator) { write(*this, u"creator", creator); }
void CTVariableType::setDescription(char16_t const* description) {
  write(*this, u"description", description);
}
void CTVariableType::setDomain(LumoCategoricalDomain const& domain) { refer(*this, u"domain", domain); }
void CTVariableType::setKey(bool key) { write(*this, u"key", key); }
void CTVariableType::setLabel(char16_t const* label) { write(*this, u"label", label); }
void CTVariableType::setShortLabel(char16_t const* label) { write(*this, u"shortLabel", label); }
void CTVariableType::setSource(LumoBaseElement const& source) { refer(*this, u"source", source); }
void CTVariableType::setWeight(bool weight) { write(*this, u"weight", weight); }

LumoSourceVariable::~LumoSourceVariable() = default;
char16_t const* LumoSourceVariable::getSourceName() const { return read(*this, u"sourceName"); }
void LumoSourceVariable::setInputDateFormatPattern(char16_t const* pattern) {
  write(*this, u"inputDateFormatPattern", pattern);
}
void LumoSourceVariable::setSourceName(char16_t const* name) { write(*this, u"sourceName", name); }

LumoDerivedVariable::~LumoDerivedVariable() = default;
void LumoDerivedVariable::setValue(char16_t const* value) { write(*this, u"value", value); }

LumoExpressionVariable::~LumoExpressionVariable() = default;
void LumoExpressionVariable::setExpression(char16_t const* expression) {
  write(*this, u"expression", expression);
}

LumoVariableReference::~LumoVariableReference() = default;
CTVariableType* LumoVariableReference::getRef() const { return referred<CTVariableType>(*this, u"ref"); }
void LumoVariableReference::setRef(CTVariableType const& variable) { refer(*this, u"ref", variable); }

CTFormatType::~CTFormatType() = default;
char16_t const* CTFormatType::getPrefix() const { return read(*this, u"prefix"); }
char16_t const* CTFormatType::getSuffix() const { return read(*this, u"suffix"); }
void CTFormatType::setPrefix(char16_t const* prefix) { write(*this, u"prefix", prefix); }
void CTFormatType::setSuffix(char16_t const* suffix) { write(*this, u"suffix", suffix); }

namespace {

/// In the tree that the element stands in, or in one of its own.
LumoBinding bindingOf(xercesc::DOMElement* element) {
  if (element == nullptr) throw std::invalid_argument("LumoFormat: no element");
  LumoTree* const tree = LumoTree::of(element->getOwnerDocument());
  return {*element, tree == nullptr ? *new LumoTree(*element) : *tree};
}

}  // namespace

LumoFormat::LumoFormat(xercesc::DOMElement* element) : CTFormatType(bindingOf(element)) {
  LumoTree& tree = LumoBinding::treeOf(*this);
  if (tree.isStandalone()) {
    tree.setOwner(*this);
  } else {
    tree.objectOf(*element);
    LumoBinding::makeHandle(*this);
  }
}

LumoFormat::~LumoFormat() {
  // The chart that a handle stands in may have ended before it.
  if (LumoBinding::isHandle(*this)) return;
  LumoTree* const tree = &LumoBinding::treeOf(*this);
  if (tree->owner() == this) delete tree;
}

LumoRelabel* LumoFormat::addRelabel(char16_t const* from, char16_t const* to) {
  LumoRelabel* const relabel = add<LumoRelabel>(*this);
  write(*relabel, u"from", from);
  write(*relabel, u"to", to);
  return relabel;
}

std::vector<LumoRelabel*> LumoFormat::getRelabels() const { return children<LumoRelabel>(*this); }
void LumoFormat::removeRelabels() { removeAll<LumoRelabel>(*this); }
LumoFormat::ENUM_baseFormat LumoFormat::getBaseFormat() const {
  return readEnum<ENUM_baseFormat>(*this, u"baseFormat");
}
char16_t const* LumoFormat::getPattern() const { return read(*this, u"pattern"); }
bool LumoFormat::isMinimumFractionDigitsPresent() const {
  return read(*this, u"minimumFractionDigits") != nullptr;
}
void LumoFormat::setBaseFormat(ENUM_baseFormat base) { write(*this, u"baseFormat", base); }
void LumoFormat::setErrorCharacter(char16_t const* character) { write(*this, u"errorCharacter", character); }
void LumoFormat::setMaximumFractionDigits(unsigned int digits) {
  write(*this, u"maximumFractionDigits", digits);
}
void LumoFormat::setMinimumFractionDigits(unsigned int digits) {
  write(*this, u"minimumFractionDigits", digits);
}
void LumoFormat::setPattern(char16_t const* pattern) { write(*this, u"pattern", pattern); }
void LumoFormat::setUseGrouping(bool grouping) { write(*this, u"useGrouping", grouping); }

LumoRelabel::~LumoRelabel() = default;
char16_t const* LumoRelabel::getFrom() const { return read(*this, u"from"); }
char16_t const* LumoRelabel::getTo() const { return read(*this, u"to"); }

CTDomainType::~CTDomainType() = default;
LumoFormat* CTDomainType::addFormat() { return add<LumoFormat>(*this); }
LumoRange* CTDomainType::addRange() { return add<LumoRange>(*this); }

LumoVariableReference* CTDomainType::addVariableReference(CTVariableType const& variable) {
  LumoVariableReference* const reference = add<LumoVariableReference>(*this);
  reference->setRef(variable);
  return reference;
}

std::vector<LumoFormat*> CTDomainType::getFormats() const { return children<LumoFormat>(*this); }
std::vector<LumoRange*> CTDomainType::getRanges() const { return children<LumoRange>(*this); }
std::vector<LumoVariableReference*> CTDomainType::getVariableReferences() const {
  return children<LumoVariableReference>(*this);
}
void CTDomainType::removeFormats() { removeAll<LumoFormat>(*this); }
void CTDomainType::removeRanges() { removeAll<LumoRange>(*this); }
void CTDomainType::setDate(bool date) { write(*this, u"date", date); }

LumoIntervalDomain::~LumoIntervalDomain() = default;

LumoCategoricalDomain::~LumoCategoricalDomain() = default;
LumoCategories* LumoCategoricalDomain::addCategories() { return add<LumoCategories>(*this); }
LumoSimpleSort* LumoCategoricalDomain::addSimpleSort() { return add<LumoSimpleSort>(*this); }
std::vector<LumoCategories*> LumoCategoricalDomain::getCategoriess() const {
  return children<LumoCategories>(*this);
}
std::vector<LumoSimpleSort*> LumoCategoricalDomain::getSimpleSorts() const {
  return children<LumoSimpleSort>(*this);
}
void LumoCategoricalDomain::removeCategoriess() { removeAll<LumoCategories>(*this); }

LumoCategories::~LumoCategories() = default;
bool LumoCategories::getRemove() const { return readBool(*this, u"remove"); }
char16_t const* LumoCategories::getText() const { return LumoBinding::treeOf(*this).text(*this); }
void LumoCategories::setRemove(bool remove) { write(*this, u"remove", remove); }
void LumoCategories::setText(char16_t const* text) { LumoBinding::treeOf(*this).writeText(*this, text); }

LumoSimpleSort::~LumoSimpleSort() = default;
LumoCategoryOrder* LumoSimpleSort::addCategoryOrder() { return add<LumoCategoryOrder>(*this); }
std::vector<LumoCategoryOrder*> LumoSimpleSort::getCategoryOrders() const {
  return children<LumoCategoryOrder>(*this);
}
void LumoSimpleSort::removeCategoryOrders() { removeAll<LumoCategoryOrder>(*this); }
void LumoSimpleSort::setDescending(bool descending) { write(*this, u"descending", descending); }
void LumoSimpleSort::setMethod(ENUM_method method) { write(*this, u"method", method); }

LumoCategoryOrder::~LumoCategoryOrder() = default;
char16_t const* LumoCategoryOrder::getText() const { return LumoBinding::treeOf(*this).text(*this); }
void LumoCategoryOrder::setText(char16_t const* text) { LumoBinding::treeOf(*this).writeText(*this, text); }

LumoRange::~LumoRange() = default;
void LumoRange::setExact(bool exact) { write(*this, u"exact", exact); }
void LumoRange::setMax(char16_t const* max) { write(*this, u"max", max); }
void LumoRange::setMin(char16_t const* min) { write(*this, u"min", min); }

CTSourceType::~CTSourceType() = default;

LumoUserSource::~LumoUserSource() = default;

LumoDatabaseSource::~LumoDatabaseSource() = default;

LumoDelimitedFileSource::~LumoDelimitedFileSource() = default;

LumoEmbeddedSource::~LumoEmbeddedSource() = default;

LumoStreamingSource::~LumoStreamingSource() = default;
