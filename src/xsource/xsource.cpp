#include "xsource.h"

#include "support/chart_text.h"
#include "support/guard.h"

#include "host/data_store.h"
#include "model/document.h"
#include "model/tokens.h"
#include "model/variables.h"

using kestrel::guarded;

XSource::XSource(LumoVisualization& visualization, VarDataProcessor& processor)
    : XBaseElement(visualization), mProcessor(&processor) {
  guarded("Error in XSource::XSource()", [&] {
    // Counted before the add, so that the first is 0.
    ChartString const id = kestrel::numbered(LumoUni::_source, visualization.getUserSources().size());
    mSourceId = id.toUTF8();
    mUserSource = visualization.addUserSource(id.xc_str());
    processor.AddDataSource(mSourceId, 0);
  });
}

XSource::~XSource() = default;

XRow* XSource::AddRow() { return &mRows->emplace_back(*mProcessor, mSourceId, getNumRows()); }

unsigned int XSource::clear(VarDataProcessor& processor) {
  unsigned int const count = getNumRows();
  guarded("Error in XSource::clear()", [&] {
    mRows.reset();
    mRowMemory.release();
    mRows.emplace(&mRowMemory);
  });
  mProcessor = &processor;
  mProcessor->AddDataSource(mSourceId, 0);
  return count;
}
