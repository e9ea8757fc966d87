#pragma once

#include "arena.h"
#include "links.h"

#include "model/aesthetics.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/graph.h"
#include "model/guides.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/style.h"
#include "model/tokens.h"
#include "model/variables.h"

#include <string_view>

// Every element of the markup: its class and its name.
#define KESTREL_MODEL_KINDS(KIND)                        \
  KIND(LumoArea, area)                                   \
  KIND(LumoAxis, axis)                                   \
  KIND(LumoBinStatistic, binStatistic)                   \
  KIND(LumoCategoricalDomain, categoricalDomain)         \
  KIND(LumoCategories, categories)                       \
  KIND(LumoCategoryOrder, categoryOrder)                 \
  KIND(LumoColor, color)                                 \
  KIND(LumoColorMapping, colorMapping)                   \
  KIND(LumoConditionalStyle, conditionalStyle)           \
  KIND(LumoContainer, container)                         \
  KIND(LumoCoordinates, coordinates)                     \
  KIND(LumoCross, cross)                                 \
  KIND(LumoCycle, cycle)                                 \
  KIND(LumoDash, dash)                                   \
  KIND(LumoDatabaseSource, databaseSource)               \
  KIND(LumoDelimitedFileSource, delimitedFileSource)     \
  KIND(LumoDerivedVariable, derivedVariable)             \
  KIND(LumoDescription, description)                     \
  KIND(LumoDescriptionGroup, descriptionGroup)           \
  KIND(LumoDimension, dimension)                         \
  KIND(LumoDimensionReference, dimensionReference)       \
  KIND(LumoDistributionStatistic, distributionStatistic) \
  KIND(LumoEdge, edge)                                   \
  KIND(LumoEmbeddedSource, embeddedSource)               \
  KIND(LumoExpressionVariable, expressionVariable)       \
  KIND(LumoExtension, extension)                         \
  KIND(LumoExtensionSV, extension)                       \
  KIND(LumoExtensionVis, extension)                      \
  KIND(LumoFacetLayout, facetLayout)                     \
  KIND(LumoFacetLevel, facetLevel)                       \
  KIND(LumoFaceting, faceting)                           \
  KIND(LumoFormat, format)                               \
  KIND(LumoFrameGuide, frameGuide)                       \
  KIND(LumoFunctionGuide, functionGuide)                 \
  KIND(LumoGraph, graph)                                 \
  KIND(LumoGridline, gridline)                           \
  KIND(LumoInterval, interval)                           \
  KIND(LumoIntervalDomain, intervalDomain)               \
  KIND(LumoLabel, label)                                 \
  KIND(LumoLabelFrame, labelFrame)                       \
  KIND(LumoLabeling, labeling)                           \
  KIND(LumoLegend, legend)                               \
  KIND(LumoLegendTarget, legendTarget)                   \
  KIND(LumoLine, line)                                   \
  KIND(LumoLineGuide, lineGuide)                         \
  KIND(LumoLocation, location)                           \
  KIND(LumoMajorTicks, majorTicks)                       \
  KIND(LumoNest, nest)                                   \
  KIND(LumoPath, path)                                   \
  KIND(LumoPattern, pattern)                             \
  KIND(LumoPlaneGuide, planeGuide)                       \
  KIND(LumoPoint, point)                                 \
  KIND(LumoPolarTransform, polarTransform)               \
  KIND(LumoPolygon, polygon)                             \
  KIND(LumoRange, range)                                 \
  KIND(LumoRectangularTransform, rectangularTransform)   \
  KIND(LumoReflectionTransform, reflectionTransform)     \
  KIND(LumoRelabel, relabel)                             \
  KIND(LumoSameRatioTransform, sameRatioTransform)       \
  KIND(LumoScale, scale)                                 \
  KIND(LumoSchema, schema)                               \
  KIND(LumoSetCellProperties, setCellProperties)         \
  KIND(LumoSetFrameStyle, setFrameStyle)                 \
  KIND(LumoShape, shape)                                 \
  KIND(LumoSimpleSort, simpleSort)                       \
  KIND(LumoSize, size)                                   \
  KIND(LumoSourceVariable, sourceVariable)               \
  KIND(LumoStreamingSource, streamingSource)             \
  KIND(LumoStyle, style)                                 \
  KIND(LumoStyleBy, styleBy)                             \
  KIND(LumoStyleCycle, styleCycle)                       \
  KIND(LumoSummaryStatistic, summaryStatistic)           \
  KIND(LumoSwingController, swingController)             \
  KIND(LumoSymbolMapping, symbolMapping)                 \
  KIND(LumoText, text)                                   \
  KIND(LumoTransparency, transparency)                   \
  KIND(LumoTransposeTransform, transposeTransform)       \
  KIND(LumoTukeyStatistic, tukeyStatistic)               \
  KIND(LumoUnity, unity)                                 \
  KIND(LumoUserSource, userSource)                       \
  KIND(LumoVariableReference, variableReference)         \
  KIND(LumoVisualization, visualization)                 \
  KIND(LumoX, x)                                         \
  KIND(LumoY, y)                                         \
  KIND(LumoZ, z)

namespace kestrel::model {

using Maker = LumoBaseElement& (*)(Arena&, LumoBinding const&);

template <typename T>
LumoBaseElement& makeObject(Arena& arena, LumoBinding const& binding) {
  return arena.make<T>(binding);
}

/// How an element is named and what its object is.
struct Kind {
  char16_t const* name;
  Maker make;
};

template <typename T>
struct Markup;

#define KESTREL_MODEL_MARKUP(Class, word)                                 \
  template <>                                                             \
  struct Markup<Class> {                                                  \
    static Kind kind() { return {LumoUni::_##word, &makeObject<Class>}; } \
  };
KESTREL_MODEL_KINDS(KESTREL_MODEL_MARKUP)
#undef KESTREL_MODEL_MARKUP

/// The maker for an element that came as text; a name that the markup does not know gives a plain element.
Maker makerOf(std::u16string_view name, std::u16string_view parentName);

}  // namespace kestrel::model
