#include "access.h"

#include "model/document.h"

#include <vector>

using namespace kestrel::model;
using xercesc::DOMElement;
using xercesc::DOMNode;

namespace {

/// Is the direct parent of this kind?
template <typename T>
bool isIn(LumoBaseElement const& object) {
  DOMNode* const parent = LumoBinding::elementOf(object).getParentNode();
  if (parent == nullptr || parent->getNodeType() != DOMNode::ELEMENT_NODE) return false;
  return isA<T>(LumoBinding::treeOf(object).objectOf(static_cast<DOMElement&>(*parent)));
}

bool isWithinCycle(DOMElement const& element, DOMElement const& top) {
  DOMNode const* up = element.getParentNode();
  while (up != &top && !sameText(nameOf(*up), LumoUni::_cycle)) up = up->getParentNode();
  return up != &top;
}

}  // namespace

LumoVisualization::~LumoVisualization() = default;
LumoCategoricalDomain* LumoVisualization::addCategoricalDomain(char16_t const* id) {
  return add<LumoCategoricalDomain>(*this, id);
}
LumoContainer* LumoVisualization::addContainer(char16_t const* id) { return add<LumoContainer>(*this, id); }
LumoDatabaseSource* LumoVisualization::addDatabaseSource(char16_t const* id) {
  return add<LumoDatabaseSource>(*this, id);
}
LumoDelimitedFileSource* LumoVisualization::addDelimitedFileSource(char16_t const* id) {
  return add<LumoDelimitedFileSource>(*this, id);
}
LumoDerivedVariable* LumoVisualization::addDerivedVariable(char16_t const* id) {
  return add<LumoDerivedVariable>(*this, id);
}
LumoEmbeddedSource* LumoVisualization::addEmbeddedSource(char16_t const* id) {
  return add<LumoEmbeddedSource>(*this, id);
}
LumoExpressionVariable* LumoVisualization::addExpressionVariable(char16_t const* id) {
  return add<LumoExpressionVariable>(*this, id);
}
LumoExtensionVis* LumoVisualization::addExtension() { return add<LumoExtensionVis>(*this); }
LumoGraph* LumoVisualization::addGraph(char16_t const* id) { return add<LumoGraph>(*this, id); }
LumoIntervalDomain* LumoVisualization::addIntervalDomain(char16_t const* id) {
  return add<LumoIntervalDomain>(*this, id);
}
LumoLabelFrame* LumoVisualization::addLabelFrame(char16_t const* id) {
  return add<LumoLabelFrame>(*this, id);
}
LumoLegend* LumoVisualization::addLegend(char16_t const* id) { return add<LumoLegend>(*this, id); }
LumoLocation* LumoVisualization::addLocation(LumoLocation::ENUM_part part) { return locate(*this, part); }

LumoSourceVariable* LumoVisualization::addSourceVariable(char16_t const* id) {
  return add<LumoSourceVariable>(*this, id);
}
LumoStreamingSource* LumoVisualization::addStreamingSource(char16_t const* id) {
  return add<LumoStreamingSource>(*this, id);
}
LumoStyle* LumoVisualization::addStyle() { return add<LumoStyle>(*this); }
LumoStyleCycle* LumoVisualization::addStyleCycle(char16_t const* id) {
  return add<LumoStyleCycle>(*this, id);
}
LumoSwingController* LumoVisualization::addSwingController() { return add<LumoSwingController>(*this); }
LumoUserSource* LumoVisualization::addUserSource(char16_t const* id) {
  return add<LumoUserSource>(*this, id);
}
std::vector<LumoCategoricalDomain*> LumoVisualization::getCategoricalDomains() const {
  return children<LumoCategoricalDomain>(*this);
}
std::vector<LumoContainer*> LumoVisualization::getContainers() const {
  return children<LumoContainer>(*this);
}
std::vector<LumoDatabaseSource*> LumoVisualization::getDatabaseSources() const {
  return children<LumoDatabaseSource>(*this);
}
std::vector<LumoDelimitedFileSource*> LumoVisualization::getDelimitedFileSources() const {
  return children<LumoDelimitedFileSource>(*this);
}
std::vector<LumoDerivedVariable*> LumoVisualization::getDerivedVariables() const {
  return children<LumoDerivedVariable>(*this);
}
std::vector<LumoEmbeddedSource*> LumoVisualization::getEmbeddedSources() const {
  return children<LumoEmbeddedSource>(*this);
}
std::vector<LumoExpressionVariable*> LumoVisualization::getExpressionVariables() const {
  return children<LumoExpressionVariable>(*this);
}
LumoExtensionVis* LumoVisualization::getExtension() const { return child<LumoExtensionVis>(*this); }
std::vector<LumoGraph*> LumoVisualization::getGraphs() const { return children<LumoGraph>(*this); }
std::vector<LumoIntervalDomain*> LumoVisualization::getIntervalDomains() const {
  return children<LumoIntervalDomain>(*this);
}
std::vector<LumoLabelFrame*> LumoVisualization::getLabelFrames() const {
  return children<LumoLabelFrame>(*this);
}
std::vector<LumoLegend*> LumoVisualization::getLegends() const { return children<LumoLegend>(*this); }
std::vector<LumoLocation*> LumoVisualization::getLocations() const { return children<LumoLocation>(*this); }
std::vector<LumoSourceVariable*> LumoVisualization::getSourceVariables() const {
  return children<LumoSourceVariable>(*this);
}
std::vector<LumoStreamingSource*> LumoVisualization::getStreamingSources() const {
  return children<LumoStreamingSource>(*this);
}
std::vector<LumoStyleCycle*> LumoVisualization::getStyleCycles() const {
  return children<LumoStyleCycle>(*this);
}
std::vector<LumoStyle*> LumoVisualization::getStyles() const { return children<LumoStyle>(*this); }
std::vector<LumoSwingController*> LumoVisualization::getSwingControllers() const {
  return children<LumoSwingController>(*this);
}
std::vector<LumoUserSource*> LumoVisualization::getUserSources() const {
  return children<LumoUserSource>(*this);
}
void LumoVisualization::removeLocations() { removeAll<LumoLocation>(*this); }
char16_t const* LumoVisualization::getLang() const { return read(*this, u"lang"); }
double LumoVisualization::getVersion() const { return readDouble(*this, u"version"); }
void LumoVisualization::setCreator(char16_t const* creator) { write(*this, u"creator", creator); }
void LumoVisualization::setDate(char16_t const* date) { write(*this, u"date", date); }
void LumoVisualization::setDescription(char16_t const* description) {
  write(*this, u"description", description);
}
void LumoVisualization::setLang(char16_t const* lang) { write(*this, u"lang", lang); }
void LumoVisualization::setName(char16_t const* name) { write(*this, u"name", name); }
void LumoVisualization::setType(char16_t const* type) { write(*this, u"type", type); }
void LumoVisualization::setVersion(double version) { write(*this, u"version", version); }

void LumoVisualization::reparentContainerChildren() {
  std::vector<LumoBaseElement*> parts;
  for (ElementWalk element(LumoBinding::elementOf(*this)); element; ++element) {
    LumoBaseElement& object = LumoBinding::treeOf(*this).objectOf(*element);
    bool const isPart = isA<LumoGraph>(object) || isA<LumoLabelFrame>(object) || isA<LumoLegend>(object);
    if (isPart && isIn<LumoContainer>(object)) parts.push_back(&object);
  }
  for (LumoBaseElement* const part : parts) LumoBinding::treeOf(*this).move(*part, *this);
}

void LumoVisualization::reparentLegendChildren(LumoContainer const& container) {
  LumoTree& tree = LumoBinding::treeOf(*this);
  LumoBaseElement& place = tree.objectOf(LumoBinding::elementOf(container));
  for (LumoLegend* const legend : getLegends()) tree.move(*legend, place);
}

void LumoVisualization::reparentStyles(LumoStyle const& container) {
  LumoTree& tree = LumoBinding::treeOf(*this);
  DOMElement& place = LumoBinding::elementOf(container);
  std::vector<LumoStyle*> styles;
  DOMElement& top = LumoBinding::elementOf(*this);
  for (ElementWalk element(top); element; ++element) {
    auto* const style = dynamic_cast<LumoStyle*>(&tree.objectOf(*element));
    char16_t const* const id = style == nullptr ? nullptr : style->getId();
    if (id != nullptr && *id != u'\0' && !isWithinCycle(*element, top)) styles.push_back(style);
  }
  for (LumoStyle* const style : styles) {
    DOMElement const& element = LumoBinding::elementOf(*style);
    // Asked here, not above: a style may have come along with the one that holds it.
    if (!isWithin(element, place) && !isWithin(place, element)) tree.move(*style, tree.objectOf(place));
  }
}

LumoSwingController::~LumoSwingController() = default;
void LumoSwingController::setFunction(char16_t const* function) { write(*this, u"function", function); }
void LumoSwingController::setTarget(char16_t const* target) { write(*this, u"target", target); }
