// What the caller asks of a document: plain values that the completion and the send sequence read.

#include "xdocument.h"

#include "xdocument_data.h"

#include "support/guard.h"

#include "model/document.h"

#include <string>
#include <vector>

namespace {

void appendUnlessEmpty(std::vector<std::string>& list, std::string const& text) {
  if (!text.empty()) list.push_back(text);
}

}  // namespace

void XDocument::SetDescription(char16_t const* description) { mData->mDescription.assign(description); }

void XDocument::SetDescription(ChartString const& description) { mData->mDescription = description; }

ChartString XDocument::GetDescription() const { return mData->mDescription; }

void XDocument::SetComment(char16_t const* comment) {
  ChartString const text(comment);
  // An XML comment cannot hold two hyphens: the older comment stays.
  if (text.ContainsString(u"--")) return;
  mData->mComment = text;
}

void XDocument::SetName(char16_t const* name) {
  if (!implementationExists()) return;
  kestrel::guardedLogOnly("Failed to set chart name",
                          [&] { kestrel::present(getVisualization(), "visualization").setName(name); });
}

void XDocument::doNotModify(bool keepFileTemplates) {
  mData->mDoNotModify = true;
  mData->mKeepFileTemplates = keepFileTemplates;
}

void XDocument::SetChartTemplate(std::string const& name) { appendUnlessEmpty(mData->mTemplates, name); }

void XDocument::AddCSVFile(std::string const& name) { appendUnlessEmpty(mData->mCSVFiles, name); }

void XDocument::AddImmediateTemplate(std::string const& xml) {
  appendUnlessEmpty(mData->mInlineTemplates, xml);
}

std::vector<std::string>& XDocument::getTemplates() { return mData->mTemplates; }

std::vector<std::string>& XDocument::getInlineTemplates() { return mData->mInlineTemplates; }

void XDocument::setEditable(EDITABLE editable) { mData->mEditable = editable; }

XDocument::EDITABLE XDocument::getEditable() const { return mData->mEditable; }

void XDocument::setEditor(EDITOR editor) { mData->mEditor = editor; }

void XDocument::setAdvancedCheck(bool advancedCheck) { mData->mAdvancedCheck = advancedCheck; }

void XDocument::setTableSwatch(bool tableSwatch) { mData->mTableSwatch = tableSwatch; }

void XDocument::applyCTemplate(bool apply) { mData->mApplyCTemplate = apply; }

void XDocument::SetOuterFrame(TEMPL_PARAM_ACT action) { mData->mOuterFrame = action; }

XDocument::TEMPL_PARAM_ACT XDocument::GetOuterFrame() const { return mData->mOuterFrame; }

void XDocument::SetInnerFrame(TEMPL_PARAM_ACT action) { mData->mInnerFrame = action; }

XDocument::TEMPL_PARAM_ACT XDocument::GetInnerFrame() const { return mData->mInnerFrame; }

void XDocument::SetXAxisGridlines(TEMPL_PARAM_ACT action) { mData->mXAxisGridlines = action; }

XDocument::TEMPL_PARAM_ACT XDocument::GetXAxisGridlines() const { return mData->mXAxisGridlines; }

void XDocument::SetYAxisGridlines(TEMPL_PARAM_ACT action) { mData->mYAxisGridlines = action; }

XDocument::TEMPL_PARAM_ACT XDocument::GetYAxisGridlines() const { return mData->mYAxisGridlines; }

void XDocument::AddColorSpec(ColorSpec const& color) { mData->mColorSpecs.push_back(color); }

std::vector<XDocument::ColorSpec>& XDocument::GetColorSpecs() const { return mData->mColorSpecs; }

void XDocument::setStyleSheet(std::string const& name, std::string const& styleSheet) {
  mData->mStyleSheetName = name;
  mData->mStyleSheet = styleSheet;
}

void XDocument::setLUMOMap(std::string const& name, std::string const& map) {
  mData->mDataMapName = name;
  mData->mDataMap = map;
}

void XDocument::setLUMORefMap(std::string const& name, std::string const& map) {
  mData->mRefMapName = name;
  mData->mRefMap = map;
}

void XDocument::SetChartData(VarDataProcessor* data) { mData->takeCallersData(data); }
