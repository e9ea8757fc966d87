// Every guarded operation of the library, taken through both of its failures.

#include "operation_bench.h"
#include "schema_validator.h"

#include "host/data_store.h"
#include "host/data_types.h"
#include "host/log.h"
#include "host/messages.h"
#include "model/elements.h"
#include "model/labels.h"
#include "model/paneling.h"
#include "model/variables.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
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
  FirstChange,  ///< the model refuses the first change that the operation makes
  OwnFailure,   ///< the operation is given something that fails by itself
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

bool hasNoDomain(Bench const& b) {
  return dimensionOf(b).getDomain() == nullptr && b.visualization.getIntervalDomains().empty() &&
         b.visualization.getCategoricalDomains().empty();
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
       return b.visualization.getCategoricalDomains().empty();
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
    if (GetParam().cause == Cause::FirstChange) trap = std::make_unique<ChangeTrap>(bench->model, 1, failure);
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

std::string contentOf(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The message of every guard in the sources.
std::set<std::string> messagesInTheSources() {
  std::set<std::string> messages;
  std::regex const message("\"(Error in \\w+::\\w+\\([^()\"]*\\))\"");
  for (auto const& entry :
       std::filesystem::recursive_directory_iterator(std::string(KESTREL_SOURCE_DIR) + "/src")) {
    if (entry.path().extension() != ".cpp") continue;
    std::string const text = contentOf(entry.path());
    for (std::sregex_iterator found(text.begin(), text.end(), message), end; found != end; ++found) {
      messages.insert((*found)[1]);
    }
  }
  return messages;
}

TEST(GuardedOperationsTable, HasEveryGuardOfTheSources) {
  std::set<std::string> listed = guardsThatNeverFire;
  for (GuardedOperation const& operation : operations) listed.insert(operation.context);
  EXPECT_EQ(listed, messagesInTheSources());
}

class ShortForm : public ChartTest {
 protected:
  LumoDocument model;
  XDocument document{model};
};

TEST_F(ShortForm, OfSetNameLogsWithoutTellingTheUser) {
  recorder.clear();
  ChangeTrap const trap(model, 1, throwOrdinaryFailure());
  EXPECT_NO_THROW(document.SetName(u"name"));
  EXPECT_EQ(recorder.failures(), std::vector<std::string>{"Failed to set chart name"});
  EXPECT_TRUE(recorder.userMessages().empty());
}

TEST_F(ShortForm, OfSetNameLetsTheHostsSignalThroughWithoutALogEntry) {
  ChangeTrap const trap(model, 1, throwGoToCaller());
  EXPECT_THROW(document.SetName(u"name"), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
