#include "operations.h"
#include "samples.h"

#include <vector>

// Every adder with its getter, and every operation that removes children.

namespace {

std::vector<LumoBaseElement*> listed(LumoBaseElement* single) {
  return single == nullptr ? std::vector<LumoBaseElement*>() : std::vector<LumoBaseElement*>{single};
}

template <typename T>
std::vector<LumoBaseElement*> listed(std::vector<T*> const& list) {
  return {list.begin(), list.end()};
}

#define ADD(Class, call, getter, element)                                                                \
  Adder {                                                                                                \
#Class "." #call, [](LumoVisualization& chart) -> LumoBaseElement* { return sample<Class>(chart); },   \
        [](LumoBaseElement& parent) -> LumoBaseElement* { return static_cast<Class&>(parent).call; },      \
        [](LumoBaseElement& parent) { return listed(static_cast<Class&>(parent).getter()); }, #element \
  }

#define REMOVE(Class, call, remover)                                                                      \
  Remover {                                                                                               \
#Class "." #remover, [](LumoVisualization& chart) -> LumoBaseElement* { return sample<Class>(chart); }, \
        [](LumoBaseElement& parent) -> LumoBaseElement* { return static_cast<Class&>(parent).call; },      \
        [](LumoBaseElement& parent) { static_cast<Class&>(parent).remover(); } \
  }

constexpr auto left = LumoLocation::PartLeft;

}  // namespace

std::vector<Adder> const& adders() {
  static std::vector<Adder> const rows{
      ADD(LumoVisualization, addCategoricalDomain(u"a"), getCategoricalDomains, categoricalDomain),
      ADD(LumoVisualization, addContainer(u"a"), getContainers, container),
      ADD(LumoVisualization, addDatabaseSource(u"a"), getDatabaseSources, databaseSource),
      ADD(LumoVisualization, addDelimitedFileSource(u"a"), getDelimitedFileSources, delimitedFileSource),
      ADD(LumoVisualization, addDerivedVariable(u"a"), getDerivedVariables, derivedVariable),
      ADD(LumoVisualization, addEmbeddedSource(u"a"), getEmbeddedSources, embeddedSource),
      ADD(LumoVisualization, addExpressionVariable(u"a"), getExpressionVariables, expressionVariable),
      ADD(LumoVisualization, addExtension(), getExtension, extension),
      ADD(LumoVisualization, addGraph(u"a"), getGraphs, graph),
      ADD(LumoVisualization, addIntervalDomain(u"a"), getIntervalDomains, intervalDomain),
      ADD(LumoVisualization, addLabelFrame(u"a"), getLabelFrames, labelFrame),
      ADD(LumoVisualization, addLegend(u"a"), getLegends, legend),
      ADD(LumoVisualization, addLocation(left), getLocations, location),
      ADD(LumoVisualization, addSourceVariable(u"a"), getSourceVariables, sourceVariable),
      ADD(LumoVisualization, addStreamingSource(u"a"), getStreamingSources, streamingSource),
      ADD(LumoVisualization, addStyle(), getStyles, style),
      ADD(LumoVisualization, addStyleCycle(u"a"), getStyleCycles, styleCycle),
      ADD(LumoVisualization, addSwingController(), getSwingControllers, swingController),
      ADD(LumoVisualization, addUserSource(u"a"), getUserSources, userSource),
      ADD(LumoGraph, addArea(u"a"), getAreas, area),
      ADD(LumoGraph, addCoordinates(u"a"), getCoordinatess, coordinates),
      ADD(LumoGraph, addEdge(u"a"), getEdges, edge),
      ADD(LumoGraph, addFacetLayout(), getFacetLayout, facetLayout),
      ADD(LumoGraph, addFaceting(), getFaceting, faceting),
      ADD(LumoGraph, addFrameGuide(), getFrameGuides, frameGuide),
      ADD(LumoGraph, addFunctionGuide(), getFunctionGuides, functionGuide),
      ADD(LumoGraph, addInterval(u"a"), getIntervals, interval),
      ADD(LumoGraph, addLine(u"a"), getLines, line),
      ADD(LumoGraph, addLineGuide(), getLineGuides, lineGuide),
      ADD(LumoGraph, addLocation(left), getLocations, location),
      ADD(LumoGraph, addPath(u"a"), getPaths, path),
      ADD(LumoGraph, addPlaneGuide(), getPlaneGuides, planeGuide),
      ADD(LumoGraph, addPoint(u"a"), getPoints, point),
      ADD(LumoGraph, addPolygon(u"a"), getPolygons, polygon),
      ADD(LumoGraph, addSchema(u"a"), getSchemas, schema),
      ADD(LumoCoordinates, addDimension(), getDimensions, dimension),
      ADD(LumoCoordinates, addDimensionReference(), getDimensionReferences, dimensionReference),
      ADD(LumoCoordinates, addPolarTransform(), getPolarTransforms, polarTransform),
      ADD(LumoCoordinates, addRectangularTransform(), getRectangularTransforms, rectangularTransform),
      ADD(LumoCoordinates, addReflectionTransform(), getReflectionTransforms, reflectionTransform),
      ADD(LumoCoordinates, addSameRatioTransform(), getSameRatioTransforms, sameRatioTransform),
      ADD(LumoCoordinates, addTransposeTransform(), getTransposeTransforms, transposeTransform),
      ADD(LumoDimension, addAxis(), getAxiss, axis),
      ADD(LumoDimension, addScale(LumoScale::Method1), getScale, scale),
      ADD(LumoAxis, addLabel(), getLabel, label),
      ADD(LumoAxis, addMajorTicks(), getMajorTicks, majorTicks),
      ADD(LumoMajorTicks, addFormat(), getFormats, format),
      ADD(LumoMajorTicks, addGridline(), getGridline, gridline),
      ADD(CTElementType, addBinStatistic(), getBinStatistics, binStatistic),
      ADD(CTElementType, addColor(), getColors, color),
      ADD(CTElementType, addConditionalStyle(u"true", styleIn(*parent.getVisualization())),
          getConditionalStyles, conditionalStyle),
      ADD(CTElementType, addDash(), getDashs, dash),
      ADD(CTElementType, addDistributionStatistic(), getDistributionStatistics, distributionStatistic),
      ADD(CTElementType, addLabeling(), getLabelings, labeling),
      ADD(CTElementType, addPattern(), getPatterns, pattern),
      ADD(CTElementType, addShape(), getShapes, shape),
      ADD(CTElementType, addSize(), getSizes, size),
      ADD(CTElementType, addStyleBy(nullptr), getStyleBys, styleBy),
      ADD(CTElementType, addSummaryStatistic(), getSummaryStatistics, summaryStatistic),
      ADD(CTElementType, addTransparency(), getTransparencys, transparency),
      ADD(CTElementType, addTukeyStatistic(), getTukeyStatistics, tukeyStatistic),
      ADD(CTElementType, addX(), getX, x),
      ADD(CTElementType, addY(), getY, y),
      ADD(CTElementType, addZ(), getZ, z),
      ADD(LumoLabeling, addFormat(), getFormats, format),
      ADD(LumoColor, addColorMapping(), getColorMappings, colorMapping),
      ADD(LumoShape, addSymbolMapping(), getSymbolMappings, symbolMapping),
      ADD(LumoStyleCycle, addCycle(), getCycles, cycle),
      ADD(LumoStyleCycle, addExtension(), getExtension, extension),
      ADD(LumoCycle, addStyle(), getStyles, style),
      ADD(CTVariableType, addExtension(), getExtension, extension),
      ADD(CTVariableType, addFormat(), getFormats, format),
      ADD(CTVariableType, addFormat(formatIn(*parent.getVisualization())), getFormats, format),
      ADD(LumoFormat, addRelabel(u"1", u"one"), getRelabels, relabel),
      ADD(CTDomainType, addFormat(), getFormats, format),
      ADD(CTDomainType, addRange(), getRanges, range),
      ADD(CTDomainType, addVariableReference(variableIn(*parent.getVisualization())), getVariableReferences,
          variableReference),
      ADD(LumoIntervalDomain, addRange(), getRanges, range),
      ADD(LumoCategoricalDomain, addCategories(), getCategoriess, categories),
      ADD(LumoCategoricalDomain, addSimpleSort(), getSimpleSorts, simpleSort),
      ADD(LumoSimpleSort, addCategoryOrder(), getCategoryOrders, categoryOrder),
      ADD(CTLabelType, addDescriptionGroup(parent), getDescriptionGroups, descriptionGroup),
      ADD(CTLabelType, addText(), getTexts, text),
      ADD(LumoLabelFrame, addExtension(), getExtension, extension),
      ADD(LumoLabelFrame, addLabel(), getLabel, label),
      ADD(LumoLabelFrame, addLocation(left), getLocations, location),
      ADD(LumoDescription, addFormat(), getFormats, format),
      ADD(LumoDescriptionGroup, addDescription(LumoDescription::Name7), getDescriptions, description),
      ADD(LumoDescriptionGroup, addText(), getTexts, text),
      ADD(LumoLegend, addLabel(), getLabels, label),
      ADD(LumoLegend, addLegendTarget(u"a", parent), getLegendTargets, legendTarget),
      ADD(LumoLegend, addLocation(left), getLocations, location),
      ADD(LumoContainer, addGraph(u"a"), getGraphs, graph),
      ADD(LumoContainer, addLabelFrame(u"a"), getLabelFrames, labelFrame),
      ADD(LumoContainer, addLegend(u"a"), getLegends, legend),
      ADD(LumoContainer, addLocation(left), getLocations, location),
      ADD(CTGuideType, addConditionalStyle(u"true", styleIn(*parent.getVisualization())),
          getConditionalStyles, conditionalStyle),
      ADD(LumoFaceting, addCross(), getCrosss, cross),
      ADD(LumoCross, addCross(), getCrosss, cross),
      ADD(LumoCross, addNest(), getNests, nest),
      ADD(LumoCross, addUnity(), getUnitys, unity),
      ADD(LumoCross, addVariableReference(), getVariableReferences, variableReference),
      ADD(LumoNest, addVariableReference(), getVariableReferences, variableReference),
      ADD(LumoFacetLayout, addFacetLevel(u"a", 1), getFacetLevels, facetLevel),
      ADD(LumoFacetLayout, addSetCellProperties(), getSetCellPropertiess, setCellProperties),
      ADD(LumoFacetLevel, addAxis(), getAxiss, axis),
      ADD(LumoSetCellProperties, addSetFrameStyle(), getSetFrameStyles, setFrameStyle),
      ADD(LumoStyle, addStyle(), getStyles, style),
  };
  return rows;
}

std::vector<Remover> const& removers() {
  static std::vector<Remover> const rows{
      REMOVE(LumoVisualization, addLocation(left), removeLocations),
      REMOVE(LumoGraph, addLocation(left), removeLocations),
      REMOVE(LumoCoordinates, addSameRatioTransform(), removeSameRatioTransforms),
      REMOVE(LumoMajorTicks, addFormat(), removeFormats),
      REMOVE(LumoMajorTicks, addGridline(), removeGridlines),
      REMOVE(CTElementType, addBinStatistic(), removeBinStatistics),
      REMOVE(CTElementType, addDistributionStatistic(), removeDistributionStatistics),
      REMOVE(CTElementType, addShape(), removeShapes),
      REMOVE(CTElementType, addStyleBy(nullptr), removeStyleBys),
      REMOVE(CTElementType, addSummaryStatistic(), removeSummaryStatistics),
      REMOVE(LumoShape, addSymbolMapping(), removeSymbolMappings),
      REMOVE(LumoFormat, addRelabel(u"1", u"one"), removeRelabels),
      REMOVE(CTDomainType, addFormat(), removeFormats),
      REMOVE(CTDomainType, addRange(), removeRanges),
      REMOVE(LumoCategoricalDomain, addCategories(), removeCategoriess),
      REMOVE(LumoSimpleSort, addCategoryOrder(), removeCategoryOrders),
      REMOVE(CTLabelType, addText(), removeTexts),
      REMOVE(LumoLabelFrame, addLocation(left), removeLocations),
      REMOVE(LumoLegend, addLocation(left), removeLocations),
      REMOVE(LumoContainer, addLocation(left), removeLocations),
      REMOVE(LumoStyle, addExtension(), removeExtensions),
  };
  return rows;
}
