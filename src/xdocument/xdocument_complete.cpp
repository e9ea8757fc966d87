// The one step that turns a chart into the one that goes to the client.

#include "xdocument.h"

#include "chartupdater.h"
#include "customizecharts.h"
#include "xdocument_data.h"
#include "xutility.h"

#include "support/chart_parts.h"
#include "support/failure.h"

#include "host/templates.h"
#include "model/aesthetics.h"
#include "model/graph.h"
#include "model/style.h"

#include <string>
#include <vector>

using kestrel::present;

namespace {

// The texts are fixed in every character, and the inner frame that is hidden says visible too: relied upon.
constexpr char const* showOuterFrame =
    R"(<addFrame count="1" styleOnly="true" type="visualization"><style color2="#000000"/></addFrame>)";
constexpr char const* hideOuterFrame =
    R"(<addFrame count="1" styleOnly="true" type="visualization"><style color2="transparent"/></addFrame>)";
constexpr char const* showInnerFrame =
    R"(<addFrame styleOnly="true" type="graph"><style number="1" color2="#000000" visible="true"/></addFrame>)";
constexpr char const* hideInnerFrame =
    R"(<addFrame styleOnly="true" type="graph"><style number="1" color2="transparent" visible="true"/></addFrame>)";

/// The looks that take the first of the host's colours.
constexpr char const* singleColorStyles[] = {
    "type='scatter' subtype='simple'",    "type='histogram'",
    "type='bar' subtype='simple'",        "type='range' subtype='simple'",
    "type='line' subtype='3D'",           "type='schema' subtype='simple'",
    "type='schema' subtype='fenceStyle'", "type='area' subtype='simple'"};

/// In double quotes, unlike the styles: relied upon.
std::string colorTemplate(int aesthetic, std::vector<std::string> const& colors) {
  std::string text = "<setColor aestheticNumber=\"" + std::to_string(aesthetic) + "\"><cycle>";
  for (std::string const& color : colors) text += "<style color=\"" + color + "\"/>";
  return text + "</cycle></setColor>";
}

std::string styleTemplate(std::string const& color) {
  std::string text;
  for (char const* const style : singleColorStyles) {
    text += std::string("<setStyle ") + style + "><style color='" + color + "'/></setStyle>";
  }
  return text;
}

/// The symbols of a cycle of shapes have the size of their element.
void removeSizesOfShapes(LumoVisualization const& visualization) {
  for (LumoShape const* shape : kestrel::objectsOf<LumoShape>(visualization, LumoUni::_shape)) {
    LumoStyleCycle const* const styles = shape->getCycle();
    if (styles == nullptr) continue;
    for (LumoCycle const* cycle : styles->getCycles()) {
      for (LumoStyle* style : cycle->getStyles()) style->removeSize();
    }
  }
}

/// A variable that clusters shows its values as the one does that it was made from, whose name is its id
/// without the last character.
void copyFormatsToClusters(LumoVisualization const& visualization, XGraph const* names) {
  for (LumoGraph const* graph : visualization.getGraphs()) {
    for (LumoCoordinates const* coordinates : graph->getCoordinatess()) {
      for (LumoDimension const* dimension : coordinates->getDimensions()) {
        CTVariableType* const cluster = dimension->getClusterVariable();
        if (cluster == nullptr) continue;
        ChartString name(cluster->getId());
        name.truncateString(1);
        XVariable const original = present(names, "graph").getVariable(name, 0);
        for (LumoFormat const* format : original.getImplementation().getFormats())
          cluster->addFormat(*format);
      }
    }
  }
}

}  // namespace

void XDocument::CompleteChart(bool) {
  if (mData->mDoNotModify) {
    applyUserTemplates(nullptr);
  } else {
    if (mData->mAddDefaultLooks && mData->mDocument != nullptr)
      ChartUpdater(*mData->mDocument).AddDefaultLooks();
    setLanguage();
    applyTemplates();
    removeSizesOfShapes(chart());
    if (mData->mTableSwatch) {
      customizeCharts(chart()).customizePDFCDF();
      copyFormatsToClusters(chart(), mData->mGraph.get());
    }
  }
  if (!mData->mColorSpecs.empty()) applyColors();
  if (mData->mOuterFrame == TemplParamShow) applyImmediateTemplate(showOuterFrame);
  if (mData->mOuterFrame == TemplParamHide) applyImmediateTemplate(hideOuterFrame);
  if (mData->mInnerFrame == TemplParamShow) applyImmediateTemplate(showInnerFrame);
  if (mData->mInnerFrame == TemplParamHide) applyImmediateTemplate(hideInnerFrame);
  setGridlines(LumoUni::_x, mData->mXAxisGridlines);
  setGridlines(LumoUni::_y, mData->mYAxisGridlines);
}

void XDocument::applyColors() {
  constexpr int aesthetics = 5;
  std::vector<std::string> colors;
  for (ColorSpec const& color : mData->mColorSpecs) {
    auto const part = [](int value) { return static_cast<unsigned int>(value); };
    colors.push_back(
        XUtility::chartStringFromRGB(part(color.red), part(color.green), part(color.blue)).toUTF8());
  }
  for (int aesthetic = 1; aesthetic <= aesthetics; ++aesthetic) {
    applyImmediateTemplate(colorTemplate(aesthetic, colors));
  }
  applyImmediateTemplate(styleTemplate(colors.front()));
}

void XDocument::setGridlines(char16_t const* role, TEMPL_PARAM_ACT action) {
  if (action == TemplParamLeave) return;
  LumoVisualization& visualization = chart();
  BaseTemplate const parts(nullptr, visualization);
  for (LumoGraph const* graph : visualization.getGraphs()) {
    for (LumoDimension const* dimension : parts.getDimensionsByRole(*graph, role)) {
      for (LumoAxis const* axis : dimension->getAxiss()) {
        LumoMajorTicks* const ticks = axis->getMajorTicks();
        if (ticks == nullptr) continue;
        bool const hasGridline = ticks->getGridline() != nullptr;
        if (action == TemplParamShow && !hasGridline) ticks->addGridline();
        if (action == TemplParamHide && hasGridline) ticks->removeGridlines();
      }
    }
  }
}

std::string XDocument::getChartXML() {
  if (!implementationExists()) return {};
  CompleteChart(true);
  return AsUTF8();
}

bool XDocument::customizeSPCharts() { return customizeCharts(chart()).customizeSPCharts(); }

void XDocument::tweakNetworkDiagram(XVariable const& variable) {
  customizeCharts(chart()).customizeNetworkDiagram(variable);
}
