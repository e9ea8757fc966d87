#include "xdocument_data.h"

XDocument::XDocumentData::XDocumentData(LumoDocument* document, bool ownsDocument)
    : mDocument(document), mOwnsDocument(ownsDocument) {}

XDocument::XDocumentData::~XDocumentData() {
  followClearedGraph();
  delete mGraph;
  // A store that was handed over by SetChartData is the caller's; all others are in mOwnData.
  mOwnData.reset();
  if (mOwnsDocument) delete mDocument;
  mParser.reset();
}

VarDataProcessor* XDocument::XDocumentData::chartData() {
  followClearedGraph();
  return mChartData;
}

void XDocument::XDocumentData::followClearedGraph() {
  if (mGraph == nullptr || mGraph->mClearCount == mClearsSeen) return;
  mClearsSeen = mGraph->mClearCount;
  // The graph has destroyed what it held before.
  if (mOwnData.get() == mGraphData) static_cast<void>(mOwnData.release());
  bool const shared = mChartData != nullptr && mChartData == mGraphData;
  mGraphData = mGraph->mProcessor;
  mOwnData.reset(mGraphData);
  if (shared) {
    mChartData = mGraphData;
    mChartDataExternal = false;
  }
}

void XDocument::XDocumentData::takeCallersData(VarDataProcessor* data) {
  followClearedGraph();
  mChartData = data;
  mChartDataExternal = true;
  // The result of XGraph::clearData may come back in this way: it is the caller's then.
  if (mOwnData.get() == data) static_cast<void>(mOwnData.release());
}
