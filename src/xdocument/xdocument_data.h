#pragma once

#include "xdocument.h"
#include "xgraph.h"

#include "host/data_store.h"
#include "model/chartstring.h"
#include "model/document.h"

#include <xercesc/parsers/XercesDOMParser.hpp>

#include <memory>
#include <string>
#include <vector>

/// What a document holds: the chart, and what the caller has asked of it.
struct XDocument::XDocumentData {
  XDocumentData(LumoDocument* document, bool ownsDocument);
  XDocumentData(XDocumentData const&) = delete;
  XDocumentData& operator=(XDocumentData const&) = delete;

  /// Ends graph, data store, chart and parser, in this order: each stands on the ones behind it.
  ~XDocumentData();

  /// The store that the chart's data is read from, or null. Where `XGraph::clearData` has replaced (and
  /// destroyed) the store that this record shares with the graph, that is the graph's new one.
  VarDataProcessor* chartData();

  /// Reworks the finished chart text by the document's style sheet, if it has one. A failure is reported.
  /// @return false
  bool applyStyleSheet(std::string& text) const;

  /// The record of the client's maps, in the machine's byte order; empty where there are none.
  std::string getMapInfo() const;

  /// Reads the data from `data` from now on; the caller keeps it. Frees nothing.
  void takeCallersData(VarDataProcessor* data);

  ChartString mDescription;
  ChartString mComment;
  LumoDocument* mDocument;
  std::vector<std::string> mTemplates;
  std::vector<std::string> mInlineTemplates;
  std::vector<std::string> mCSVFiles;
  VarDataProcessor* mChartData = nullptr;
  bool mChartDataExternal = false;
  bool mOwnsDocument;
  std::unique_ptr<XGraph> mGraph;
  bool mDoNotModify = false;
  bool mKeepFileTemplates = false;
  XDocument::EDITABLE mEditable = EditableDefault;
  XDocument::EDITOR mEditor = EditorDefault;
  bool mAddDefaultLooks = true;
  bool mAdvancedCheck = true;
  bool mTableSwatch = false;
  std::string mStyleSheet;
  std::string mStyleSheetName;
  bool mUseUTF8 = false;
  bool mApplyCTemplate = true;
  std::string mDataMap;
  std::string mDataMapName;
  std::string mRefMap;
  std::string mRefMapName;
  std::vector<XDocument::ColorSpec> mColorSpecs;
  XDocument::TEMPL_PARAM_ACT mOuterFrame = TemplParamLeave;
  XDocument::TEMPL_PARAM_ACT mInnerFrame = TemplParamLeave;
  XDocument::TEMPL_PARAM_ACT mXAxisGridlines = TemplParamLeave;
  XDocument::TEMPL_PARAM_ACT mYAxisGridlines = TemplParamLeave;
  std::unique_ptr<xercesc::XercesDOMParser> mParser;

  /// The store that the graph held when it was last looked at, and how often it had been cleared by then.
  VarDataProcessor* mGraphData = nullptr;
  unsigned int mClearsSeen = 0;

  /// The stores that nobody else frees: made by `getGraph`, and by `XGraph::clearData`. They stay the
  /// document's also when `SendChart` has let go of `mChartData`.
  std::unique_ptr<VarDataProcessor> mMadeData;
  std::unique_ptr<VarDataProcessor> mClearedData;

 private:
  void followClearedGraph();
};
