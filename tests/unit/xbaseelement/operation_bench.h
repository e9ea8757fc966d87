#pragma once

#include "chart_test.h"
#include "xaxis.h"
#include "xdocument.h"
#include "xelement.h"
#include "xgraph.h"
#include "xlegend.h"
#include "xsource.h"
#include "xvariable.h"

#include "host/data_types.h"
#include "kestrelhost/data_source.h"
#include "kestrelhost/recorder.h"
#include "model/document.h"
#include "model/graph.h"

#include <xercesc/framework/MemoryManager.hpp>

#include <functional>
#include <memory>

namespace kestrel::test {

/// How a host and a model can make an operation fail from within.
using Failing = std::function<void()>;

/// A host variable whose format cannot be read.
class UnreadableVariable : public Vexa_Variable {
 public:
  explicit UnreadableVariable(Failing fail) : mFail(std::move(fail)) {}

  char const* GetName() const override { return "unreadable"; }
  char const* GetLabel() const override { return nullptr; }
  Vexa_Format GetFormat() const override;
  Vexa_VLImplPointer GetValueLabels() const override { return {}; }

 private:
  Failing mFail;
};

/// An axis whose ticks are not there and cannot be made.
class TicklessAxis : public XAxis {
 public:
  TicklessAxis(LumoDimension& dimension, LumoAxis& axis, Failing fail)
      : XAxis(dimension, axis), mFail(std::move(fail)) {}

  void AddMajorTicks() override { mFail(); }

 private:
  Failing mFail;
};

/// Memory of a parsed chart that runs out when a test wants it to.
class FiniteMemory : public xercesc::MemoryManager {
 public:
  xercesc::MemoryManager* getExceptionMemoryManager() override { return this; }
  void* allocate(XMLSize_t size) override;
  void deallocate(void* memory) override;

  Failing onAllocation;
};

/// A chart whose elements cannot be looked for without memory that may not be there.
class ParsedChart {
 public:
  ParsedChart();
  ParsedChart(ParsedChart const&) = delete;
  ParsedChart& operator=(ParsedChart const&) = delete;
  ~ParsedChart();

  LumoVisualization& visualization() { return *mDocument->getVisualization(); }

  /// From now on a search for elements that nobody has looked for before fails in this way.
  void runOutOfMemory(Failing const& failure);

 private:
  FiniteMemory mMemory;
  xercesc::DOMDocument* mDom;
  std::unique_ptr<LumoDocument> mDocument;
};

/// A chart that nobody can look into.
class UnreadableDocument : public LumoDocument {
 public:
  explicit UnreadableDocument(Failing fail) : mFail(std::move(fail)) {}
  LumoVisualization* getVisualization() const override {
    mFail();
    return LumoDocument::getVisualization();
  }

 private:
  Failing mFail;
};

/// One of each builder, ready to be used, on one chart. Failures are those of `fail`.
struct OperationBench {
  OperationBench(host::Recorder& journal, Failing failing);

  LumoDocument model;
  XDocument document{model};
  LumoVisualization& visualization{*model.getVisualization()};
  XGraph& graph{*document.getGraph()};
  /// A graph without coordinates, but with a panel axis and its label.
  XGraph bareGraph{visualization, nullptr};
  std::unique_ptr<XSource> source{graph.AddSource()};
  host::MemoryDataSource data;
  Vexa_Variable& hostVariable{data.addNumbers("age", {1, 2, 3})};
  UnreadableVariable unreadableVariable;
  XVariable variable{graph.AddAggregatedVariable(*source, true, ChartString(u"Age"))};
  LumoSourceVariable& rawVariable{*visualization.addSourceVariable(u"raw")};
  /// Has a format with a relabel, and is over the column of the raw variable.
  LumoSourceVariable& relabelled{*visualization.addSourceVariable(u"relabelled")};
  /// The list of the categories of the relabelled variable: the chart's only such domain.
  LumoCategoricalDomain& listedDomain{*visualization.addCategoricalDomain(u"listed")};
  LumoExpressionVariable& rawExpression{*visualization.addExpressionVariable(u"expression")};
  XAxis axis{graph.AddPrimaryXAxis(ChartString(u"Age"))};
  LumoCoordinates& coordinates{*graph.getGraph()->getCoordinates(0)};
  LumoDimension& emptyDimension{*coordinates.addDimension()};
  LumoCoordinates& emptyCoordinates{*graph.getGraph()->addCoordinates(u"empty")};
  XElement element{graph.AddPointElement()};
  CTElementType& elementNode;
  XLegend legend{graph.addLegend(nullptr)};
  std::unique_ptr<TicklessAxis> ticklessAxis;
  LumoAxis& axisWithoutTicks{*emptyDimension.addAxis()};
  ParsedChart parsed;

  Failing fail;
  UnreadableDocument unreadableDocument{fail};
  host::Recorder& recorder;
};

}  // namespace kestrel::test
