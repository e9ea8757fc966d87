#include "operation_bench.h"

#include "model/elements.h"
#include "model/paneling.h"
#include "model/variables.h"

#include <xercesc/dom/DOM.hpp>

#include <new>
#include <stdexcept>

namespace kestrel::test {

Vexa_Format UnreadableVariable::GetFormat() const {
  mFail();
  return {};
}

void* FiniteMemory::allocate(XMLSize_t size) {
  if (onAllocation) onAllocation();
  return ::operator new(size);
}

void FiniteMemory::deallocate(void* memory) { ::operator delete(memory); }

ParsedChart::ParsedChart()
    : mDom(xercesc::DOMImplementationRegistry::getDOMImplementation(u"LS")->createDocument(
          nullptr, u"visualization", nullptr, &mMemory)),
      mDocument(std::make_unique<LumoDocument>(mDom)) {}

ParsedChart::~ParsedChart() {
  mMemory.onAllocation = nullptr;
  mDocument.reset();
  mDom->release();
}

void ParsedChart::runOutOfMemory(Failing const& failure) {
  mMemory.onAllocation = throwOrdinaryFailure();
  try {
    // Each new search takes a piece of the memory that the chart has in reserve.
    for (char16_t tag[] = u"a"; tag[0] != 0; ++tag[0]) mDom->getDocumentElement()->getElementsByTagName(tag);
  } catch (OrdinaryFailure const&) {
    mMemory.onAllocation = failure;
    return;
  }
  throw std::runtime_error("there is always memory");
}

OperationBench::OperationBench(host::Recorder& journal, Failing failing)
    : unreadableVariable(failing),
      elementNode(dynamic_cast<CTElementType&>(*element.getImplementation())),
      fail(std::move(failing)),
      recorder(journal) {
  bareGraph.getGraph()->addFacetLayout()->addFacetLevel(u"level", 1)->addAxis()->addLabel();
  rawVariable.setSourceName(u"column");
  relabelled.setSourceName(u"column");
  LumoFormat& format = *relabelled.addFormat();
  format.setBaseFormat(LumoFormat::BaseFormat1);
  format.addRelabel(u"1", u"one");
  listedDomain.addVariableReference(relabelled);
  listedDomain.addCategories()->setText(u"1;2");
  element.addDistributionStatistic();
  {
    LumoAxis& node = *emptyDimension.addAxis();
    // Its ticks fail to come when it is made.
    ChangeTrap const trap(model, 1, throwOrdinaryFailure());
    ticklessAxis = std::make_unique<TicklessAxis>(emptyDimension, node, fail);
  }
  recorder.clear();
}

}  // namespace kestrel::test
