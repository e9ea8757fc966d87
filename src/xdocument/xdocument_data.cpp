#include "xdocument_data.h"

XDocument::XDocumentData::XDocumentData(LumoDocument* document, bool ownsDocument)
    : mDocument(document), mOwnsDocument(ownsDocument) {
  // Uses of the XML library end more often than they start for some documents: the model's own hold outlasts
  // that.
  LumoDocument::holdXmlLibrary();
}

XDocument::XDocumentData::~XDocumentData() {
  followClearedGraph();
  mGraph.reset();
  // A store that was handed over by SetChartData is the caller's; all others are in these two.
  mMadeData.reset();
  mClearedData.reset();
  if (mOwnsDocument) delete mDocument;
  mParser.reset();
}

VarDataProcessor* XDocument::XDocumentData::chartData() {
  followClearedGraph();
  return mChartData;
}

// Who frees a store: mMadeData the one that getGraph has made, for as long as the graph has not destroyed it;
// mClearedData the one that the graph's last clearData has made, unless the caller has handed it back as his
// own; the caller every other one. The graph frees nothing but what it held when it was cleared.
void XDocument::XDocumentData::followClearedGraph() {
  if (mGraph == nullptr || mGraph->mClearCount == mClearsSeen) return;
  mClearsSeen = mGraph->mClearCount;
  if (mMadeData.get() == mGraphData) static_cast<void>(mMadeData.release());
  static_cast<void>(mClearedData.release());
  bool const shared = mChartData != nullptr && mChartData == mGraphData;
  mGraphData = mGraph->mProcessor;
  mClearedData.reset(mGraphData);
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
  if (mClearedData.get() == data) static_cast<void>(mClearedData.release());
}
