// Every guarded operation of the library, taken through both of its failures.

#include "operation_bench.h"
#include "schema_validator.h"
#include "source_texts.h"
#include "xdocument.h"

#include "host/data_store.h"
#include "host/data_types.h"
#include "host/log.h"
#include "host/messages.h"
#include "model/document.h"
#include "model/elements.h"
#include "model/guides.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <regex>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;

/// What makes an operation fail within its guard.
enum class Cause {
  FirstChange,   ///< the model refuses the first change that the operation makes
  SecondChange,  ///< the second one: the first is made by another guarded operation
  OwnFailure,    ///< the operation is given something that fails by itself
};

/// Whether anything of the operation stands behind its guard that needs what the guard did not bring.
enum class Behind { Nothing, NeedsTheResult };

struct GuardedOperation {
  char const* name;
  char const* context;
  /// Calls the operation. False where it gave something else than its empty result, or left something of it
  /// in the chart. Where the caller gets an exception, nothing is given.
  bool (*run)(OperationBench& bench);
  Cause cause = Cause::FirstChange;
  Behind behind = Behind::Nothing;
};

void PrintTo(GuardedOperation const& operation, std::ostream* out) { *out << operation.name; }

using Bench = OperationBench;

/// The dimension of the axis.
LumoDimension& dimensionOf(Bench const& b) { return *b.coordinates.getDimensions().front(); }

/// Whether the chart has only the domain that it had.
bool hasNoNewCategories(Bench const& b) { return b.visualization.getCategoricalDomains().size() == 1; }

bool hasNoDomain(Bench const& b) {
  return dimensionOf(b).getDomain() == nullptr && b.visualization.getIntervalDomains().empty() &&
         hasNoNewCategories(b);
}

bool hasNoScale(Bench const& b) { return dimensionOf(b).getScale() == nullptr; }

std::string labelText(Bench const& b) {
  auto const& axis = dynamic_cast<LumoAxis const&>(*b.axis.getImplementation());
  return utf8(axis.getLabel()->getTexts().front()->getText());
}

constexpr GuardedOperation operations[] = {
    // The base of all builders.
    {"XBaseElement_getXDimension", "Error in XBaseElement::getXDimension()",
     [](Bench& b) { return b.graph.getXDimension(b.emptyCoordinates, true) == nullptr; }},
    {"XBaseElement_getYDimension", "Error in XBaseElement::getYDimension()",
     [](Bench& b) { return b.graph.getYDimension(b.emptyCoordinates, true) == nullptr; }},
    {"XBaseElement_getZDimension", "Error in XBaseElement::getZDimension()",
     [](Bench& b) { return b.graph.getZDimension(b.emptyCoordinates, true) == nullptr; }},

    // The graph.
    {"XGraph_constructor", "Error in XGraph::XGraph(lumo,vdp)",
     [](Bench& b) { return XGraph(b.visualization, nullptr).getGraph() == nullptr; }},
    {"XGraph_constructorOnAChart", "Error in XGraph::XGraph(lumo)",
     [](Bench& b) {
       b.parsed.runOutOfMemory(b.fail);
       return XGraph(b.parsed.visualization()).getGraph() == nullptr;
     },
     Cause::OwnFailure},
    {"XGraph_AddTitle1", "Error in XGraph::AddTitle1()",
     [](Bench& b) { return !b.graph.AddTitle1(u"text"); }},
    {"XGraph_AddTitle2", "Error in XGraph::AddTitle2()",
     [](Bench& b) { return !b.graph.AddTitle2(u"text"); }},
    {"XGraph_AddSubTitle", "Error in XGraph::AddSubTitle()",
     [](Bench& b) { return !b.graph.AddSubTitle(u"text"); }},
    {"XGraph_AddFootnote1", "Error in XGraph::AddFootnote1()",
     [](Bench& b) { return !b.graph.AddFootnote1(u"text"); }},
    {"XGraph_AddFootnote2", "Error in XGraph::AddFootnote2()",
     [](Bench& b) { return !b.graph.AddFootnote2(u"text"); }},
    {"XGraph_AddFootnote3", "Error in XGraph::AddFootnote3()",
     [](Bench& b) { return !b.graph.AddFootnote3(u"text"); }},
    {"XGraph_AddEmptyYDimension", "Error in XGraph::AddEmptyYDimension()",
     [](Bench& b) {
       b.bareGraph.AddEmptyYDimension();
       return b.bareGraph.getGraph()->getCoordinatess().empty();
     }},
    {"XGraph_makeIsotropic", "Error in XGraph::makeIsotropic()",
     [](Bench& b) {
       b.graph.makeIsotropic(true);
       return b.graph.getGraph()->getFacetLayout() == nullptr;
     }},
    {"XGraph_transpose", "Error in XGraph::transpose()",
     [](Bench& b) {
       b.graph.transpose();
       return b.coordinates.getTransposeTransforms().empty();
     }},
    {"XGraph_addSameRatioTransform", "Error in XGraph::addSameRatioTransform()",
     [](Bench& b) { return !b.graph.addSameRatioTransform(true); }},
    {"XGraph_setPanelAxesOpposite", "Error in XGraph::setPanelAxesOpposite()",
     [](Bench& b) { return b.bareGraph.setPanelAxesOpposite() == 0; }},
    {"XGraph_AddBoxplotElement", "Error in XGraph::AddBoxplotElement()",
     [](Bench& b) {
       b.graph.AddBoxplotElement(nullptr);
       return b.graph.getGraph()->getSchemas().empty();
     }},
    {"XGraph_AddHistogramStatisticsSummary", "Error in XGraph::AddHistogramStatisticsSummary()",
     [](Bench& b) {
       b.graph.AddHistogramStatisticsSummary(b.element, u"Mean", u"Deviation", u"N");
       return b.visualization.getLabelFrames().empty();
     }},
    {"XGraph_AddReferenceLine", "Error in XGraph::AddReferenceLine()",
     [](Bench& b) {
       b.graph.AddReferenceLine("1", "2", u"line", 1, nullptr, true);
       return b.graph.getGraph()->getLineGuides().empty();
     }},
    {"XGraph_AddXReferenceLine", "Error in XGraph::AddXReferenceLine()",
     [](Bench& b) {
       b.graph.AddXReferenceLine(1, u"line");
       return b.graph.getGraph()->getLineGuides().empty();
     }},
    {"XGraph_AddYReferenceLine", "Error in XGraph::AddYReferenceLine()",
     [](Bench& b) {
       b.graph.AddYReferenceLine(1, u"line");
       return b.graph.getGraph()->getLineGuides().empty();
     }},
    {"XGraph_AddFunctionLine", "Error in XGraph::AddFunctionLine()",
     [](Bench& b) {
       b.graph.AddFunctionLine("x", u"line");
       return b.graph.getGraph()->getFunctionGuides().empty();
     }},
    {"XGraph_EndPaneling", "Error in XGraph::EndPaneling()",
     [](Bench& b) {
       b.graph.PanelingAddCrossVariable(b.variable, XGraph::ROLE_COLUMN);
       b.graph.EndPaneling(true, false);
       return b.graph.getGraph()->getFaceting() == nullptr;
     }},
    {"XGraph_EndPyramidPaneling", "Error in XGraph::EndPyramidPaneling()",
     [](Bench& b) {
       b.graph.PanelingAddCrossVariable(b.variable, XGraph::ROLE_COLUMN);
       b.graph.EndPyramidPaneling(false);
       return b.graph.getGraph()->getFaceting() == nullptr;
     }},
    {"XGraph_HideAllPanelLabels", "Error in XGraph::HideAllPanelLabels()",
     [](Bench& b) {
       b.bareGraph.HideAllPanelLabels();
       auto const levels = b.bareGraph.getGraph()->getFacetLayout()->getFacetLevels();
       return levels.front()->getAxiss().front()->getLabel()->getStyle() == nullptr;
     }},
    // The transposition has a guard of its own, and stands.
    {"XGraph_MirrorCharts", "Error in XGraph::MirrorCharts()",
     [](Bench& b) {
       b.graph.MirrorCharts();
       return b.coordinates.getTransposeTransforms().size() == 1 &&
              b.coordinates.getReflectionTransforms().empty();
     },
     Cause::SecondChange},
    {"XGraph_make3D", "Error in XGraph::make3D()",
     [](Bench& b) {
       b.graph.make3D(1, 2, 3, 4);
       return b.coordinates.getRectangularTransforms().empty() &&
              b.graph.getGraph()->getPlaneGuides().empty();
     }},
    {"XGraph_copyVariableFormats", "Error in XGraph::copyVariableFormats()",
     [](Bench& b) { return b.graph.copyVariableFormats() == 0 && b.rawVariable.getFormats().empty(); }},
    {"XGraph_UpdateCategoricalDomains", "Error in XGraph::UpdateCategoricalDomains()",
     [](Bench& b) {
       return b.graph.UpdateCategoricalDomains() == 0 && b.listedDomain.getCategoriess().size() == 1;
     }},

    // The element.
    {"XElement_AddX", "Error in XElement::AddX()",
     [](Bench& b) {
       b.element.AddX(b.variable);
       return elementsOf(b.elementNode, u"x").empty();
     }},
    {"XElement_AddY", "Error in XElement::AddY()",
     [](Bench& b) {
       b.element.AddY(b.variable);
       return elementsOf(b.elementNode, u"y").empty();
     }},
    {"XElement_AddZ", "Error in XElement::AddZ()",
     [](Bench& b) {
       b.element.AddZ(b.variable);
       return elementsOf(b.elementNode, u"z").empty();
     }},
    // Lower case, unlike the operation's name.
    {"XElement_Cluster", "Error in XElement::cluster()",
     [](Bench& b) {
       b.element.Cluster(b.variable, true, false, true, true);
       return b.elementNode.getStyleBys().empty();
     }},
    {"XElement_makeDotPlot", "Error in XElement::makeDotPlot()",
     [](Bench& b) {
       b.element.makeDotPlot(true);
       return b.elementNode.getBinStatistics().empty();
     }},
    {"XElement_addHistogramStatistic", "Error in XElement::addHistogramStatistic()",
     [](Bench& b) {
       b.element.addHistogramStatistic(u"0", 5, 10, false);
       return b.elementNode.getBinStatistics().empty();
     }},
    {"XElement_addDistributionStatistic", "Error in XElement::addDistributionStatistic()",
     [](Bench& b) {
       b.element.addDistributionStatistic();
       // The one that could not be removed, and the new one behind it.
       return b.elementNode.getDistributionStatistics().size() == 2;
     }},
    {"XElement_hideInAllPanelsExcept", "Error in XElement::hideInAllPanelsExcept()",
     [](Bench& b) {
       return !b.element.hideInAllPanelsExcept(1, 1) && b.visualization.getStyleById(u"hidden") == nullptr;
     }},
    {"XElement_colorByVariable", "Error in XElement::colorByVariable()",
     [](Bench& b) {
       b.element.colorByVariable(b.variable, {ChartString(u"#FF0000")}, true, u"Age");
       return b.elementNode.getColors().empty();
     }},

    // The axis.
    {"XAxis_AddLabel", "Error in XAxis::AddLabel()",
     [](Bench& b) {
       b.axis.AddLabel(u"Years");
       return labelText(b) == "Age";
     }},
    {"XAxis_AddMajorTicks", "Error in XAxis::AddMajorTicks()",
     [](Bench& b) {
       XAxis const axis(b.emptyDimension, b.axisWithoutTicks);
       return b.axisWithoutTicks.getMajorTicks() == nullptr;
     }},
    {"XAxis_setInterval", "Error in XAxis::setInterval()",
     [](Bench& b) {
       b.axis.setInterval(0, 1, true);
       return hasNoDomain(b);
     }},
    {"XAxis_setMinInterval", "Error in XAxis::setMinInterval()",
     [](Bench& b) {
       b.axis.setMinInterval(0, true);
       return hasNoDomain(b);
     }},
    {"XAxis_addIntervalVariableReference", "Error in XAxis::addIntervalVariableReference()",
     [](Bench& b) {
       b.axis.addIntervalVariableReference(b.variable);
       return hasNoDomain(b);
     }},
    {"XAxis_addCategoricalVariableReference", "Error in XAxis::addCategoricalVariableReference()",
     [](Bench& b) {
       b.axis.addCategoricalVariableReference(b.variable);
       return hasNoDomain(b);
     }},
    {"XAxis_addDateInterval", "Error in XAxis::addDateInterval()",
     [](Bench& b) {
       b.axis.addDateInterval(u"2020-01-01", u"2021-01-01");
       return hasNoDomain(b);
     }},
    {"XAxis_setScale", "Error in XAxis::setScale()",
     [](Bench& b) {
       b.axis.setScale(XAxis::ScaleMethod1, false, 10);
       return hasNoScale(b);
     }},
    {"XAxis_invertScale", "Error in XAxis::invertScale()",
     [](Bench& b) {
       b.axis.invertScale(0);
       return hasNoScale(b);
     }},
    {"XAxis_setDelta", "Error in XAxis::setDelta()",
     [](Bench& b) {
       b.ticklessAxis->setDelta(1);
       return true;
     },
     Cause::OwnFailure, Behind::NeedsTheResult},
    {"XAxis_setMajorTickLabelAngle", "Error in XAxis::setMajorTickLabelAngle()",
     [](Bench& b) {
       b.ticklessAxis->setMajorTickLabelAngle(45);
       return true;
     },
     Cause::OwnFailure, Behind::NeedsTheResult},
    {"XAxis_setMajorTickStagger", "Error in XAxis::setMajorTickStagger()",
     [](Bench& b) {
       b.ticklessAxis->setMajorTickStagger(true);
       return true;
     },
     Cause::OwnFailure, Behind::NeedsTheResult},
    {"XAxis_setMajorTicklabelFrequency", "Error in XAxis::setMajorTicklabelFrequency()",
     [](Bench& b) {
       b.ticklessAxis->setMajorTicklabelFrequency(2);
       return true;
     },
     Cause::OwnFailure, Behind::NeedsTheResult},
    {"XAxis_setMajorTickLabelPrefix", "Error in XAxis::setMajorTickLabelPrefix()",
     [](Bench& b) {
       b.ticklessAxis->setMajorTickLabelPrefix(u"$");
       return true;
     },
     Cause::OwnFailure, Behind::NeedsTheResult},
    {"XAxis_setMajorTickLabelSuffix", "Error in XAxis::setMajorTickLabelSuffix()",
     [](Bench& b) {
       b.ticklessAxis->setMajorTickLabelSuffix(u"%");
       return true;
     },
     Cause::OwnFailure, Behind::NeedsTheResult},
    {"XAxis_setTickLabelFontSize", "Error in XAxis::setTickLabelFontSize()",
     [](Bench& b) {
       b.ticklessAxis->setTickLabelFontSize(8, 12);
       return true;
     },
     Cause::OwnFailure, Behind::NeedsTheResult},

    // The legend.
    {"XLegend_AddLabel", "Error in XLegend::AddLabel()",
     [](Bench& b) {
       b.legend.AddLabel(u"Species");
       return elementsOf(*b.legend.getImplementation(), u"label").empty();
     }},
    {"XLegend_addLegendElement", "Error in XLegend::addLegendElement()",
     [](Bench& b) {
       b.legend.addLegendElement(b.element);
       return elementsOf(b.visualization, u"legendTarget").empty();
     }},

    // The variable. All constructors share one message.
    {"XVariable_constructorOverHostData", "Error in XVariable::XVariable()",
     [](Bench& b) {
       return XVariable(b.rawVariable, b.hostVariable, *b.source, &b.data).getSourceName().empty();
     }},
    {"XVariable_constructorOverASource", "Error in XVariable::XVariable()",
     [](Bench& b) { return XVariable(b.rawVariable, *b.source).getSourceName().empty(); }},
    {"XVariable_constructorOfASum", "Error in XVariable::XVariable()",
     [](Bench& b) {
       XVariable const sum(b.rawExpression, {&b.variable, &b.variable});
       return attribute(&b.rawExpression, u"expression") == "(absent)";
     }},
    {"XVariable_constructorOfASystemVariable", "Error in XVariable::XVariable()",
     [](Bench& b) { return XVariable(b.rawVariable, true, *b.source, true).getSourceName().empty(); }},
    {"XVariable_setFormatBasedOnVexaVariable", "Error in XVariable::setFormatBasedOnVexaVariable()",
     [](Bench& b) {
       b.variable.setFormatBasedOnVexaVariable(b.unreadableVariable);
       return !b.variable.doesFormatExist();
     },
     Cause::OwnFailure},
    {"XVariable_setFormat", "Error in XVariable::setFormat()",
     [](Bench& b) {
       b.variable.setFormat(Vexa_Format(Vexa_Format::FormatNumber, 8, 2));
       return !b.variable.doesFormatExist();
     }},
    {"XVariable_sortCategories", "Error in XVariable::sortCategories()",
     [](Bench& b) {
       b.variable.sortCategories(true);
       return hasNoNewCategories(b);
     }},
    {"XVariable_excludeCategory", "Error in XVariable::excludeCategory()",
     [](Bench& b) {
       b.variable.excludeCategory(u"a");
       return hasNoNewCategories(b);
     }},
    // All forms share one message.
    {"XVariable_addRelabel", "Error in XVariable::addRelabel()",
     [](Bench& b) {
       b.variable.addRelabel(u"1", u"one");
       return !b.variable.doesFormatExist();
     }},
    {"XVariable_addRelabelOfANumber", "Error in XVariable::addRelabel()",
     [](Bench& b) {
       b.variable.addRelabel(1u, u"one");
       return !b.variable.doesFormatExist();
     }},
    {"XVariable_addRelabelOfACell", "Error in XVariable::addRelabel()",
     [](Bench& b) {
       b.variable.addRelabel(OBS(1.0), u"one");
       return !b.variable.doesFormatExist();
     }},
    {"XVariable_addRelabelWithACell", "Error in XVariable::addRelabel()",
     [](Bench& b) {
       b.variable.addRelabel(u"1", OBS(1.0));
       return !b.variable.doesFormatExist();
     }},
    {"XVariable_removeAllRelabels", "Error in XVariable::removeAllRelabels()",
     [](Bench& b) {
       XVariable(b.relabelled).removeAllRelabels();
       return b.relabelled.getFormats().front()->getRelabels().size() == 1;
     }},
    {"XVariable_SetNumberFormat", "Error in XVariable::SetNumberFormat()",
     [](Bench& b) {
       b.variable.SetNumberFormat(2, true, nullptr, nullptr);
       return true;
     },
     Cause::FirstChange, Behind::NeedsTheResult},
    // The words are those of the operation that the two were split from.
    {"XVariable_SetFormatPrefix", "Error in XVariable::SetNumberFormat()",
     [](Bench& b) { return !b.variable.SetFormatPrefix(u"$"); }},
    {"XVariable_SetFormatSuffix", "Error in XVariable::SetNumberFormat()",
     [](Bench& b) { return !b.variable.SetFormatSuffix(u"%"); }},

    // The document.
    {"XDocument_getSourceNameCount", "Error in XDocument::getSourceNameCount()",
     [](Bench& b) {
       unsigned int found = 1;
       unsigned int notFound = 1;
       XDocument(b.unreadableDocument).getSourceNameCount({"source0"}, found, notFound);
       return found == 0 && notFound == 0;
     },
     Cause::OwnFailure},

    // The source.
    {"XSource_constructor", "Error in XSource::XSource()",
     [](Bench& b) {
       VarDataProcessor store;
       return XSource(b.visualization, store).getImplemenation() == nullptr;
     }},
};

/// Guards that nothing can set off: rows are destroyed, and that does not fail.
std::set<std::string> const guardsThatNeverFire = {"Error in XSource::clear()"};

class GuardedOperations : public ChartTest, public ::testing::WithParamInterface<GuardedOperation> {
 protected:
  /// Runs the operation on a new chart, with that failure within it.
  bool runFailing(Failing const& failure) {
    bench = std::make_unique<OperationBench>(recorder, failure);
    std::unique_ptr<ChangeTrap> trap;
    if (GetParam().cause != Cause::OwnFailure) {
      unsigned int const change = GetParam().cause == Cause::FirstChange ? 1 : 2;
      trap = std::make_unique<ChangeTrap>(bench->model, change, failure);
    }
    return GetParam().run(*bench);
  }

  std::unique_ptr<OperationBench> bench;
};

TEST_P(GuardedOperations, ReportAnOrdinaryFailureOnceAndGiveTheirEmptyResult) {
  if (GetParam().behind == Behind::NeedsTheResult) {
    EXPECT_THROW(runFailing(throwOrdinaryFailure()), ChartException);
  } else {
    bool gaveEmptyResult = false;
    EXPECT_NO_THROW(gaveEmptyResult = runFailing(throwOrdinaryFailure()));
    EXPECT_TRUE(gaveEmptyResult);
  }
  expectGuardReport(recorder, GetParam().context);
}

TEST_P(GuardedOperations, ReportNothingWhereNothingFails) {
  bool const lacksItsTicks =
      GetParam().cause == Cause::OwnFailure && GetParam().behind == Behind::NeedsTheResult;
  if (lacksItsTicks) {
    EXPECT_THROW(runFailing([] {}), ChartException);
  } else {
    EXPECT_NO_THROW(runFailing([] {}));
  }
  expectNoReport(recorder);
  EXPECT_THAT(schemaErrors(bench->document.AsUTF8()), ::testing::IsEmpty());
}

TEST_P(GuardedOperations, LetTheHostsSignalThroughWithoutAReport) {
  EXPECT_THROW(runFailing(throwGoToCaller()), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_P(GuardedOperations, DoNotHoldAFailureOfTheReportItself) {
  recorder.throwEvery(Operation::BpError, std::runtime_error("no user"));
  EXPECT_THROW(runFailing(throwOrdinaryFailure()), std::runtime_error);
  EXPECT_EQ(recorder.count(Operation::Error), 0u);
}

INSTANTIATE_TEST_SUITE_P(All, GuardedOperations, ::testing::ValuesIn(operations),
                         [](auto const& test) { return std::string(test.param.name); });

TEST(GuardedOperationsTable, HasEveryGuardOfTheSources) {
  std::set<std::string> listed = guardsThatNeverFire;
  for (GuardedOperation const& operation : operations) listed.insert(operation.context);
  EXPECT_EQ(listed, matchesInTheSources(std::regex("\"(Error in \\w+::\\w+\\([^()\"]*\\))\"")));
}

}  // namespace
}  // namespace kestrel::test
