// What a request for a chart from a visualization template consists of.

#include "xlumotemplate.h"

#include "xlumotemplate_data.h"

#include "support/product_paths.h"

#include <xercesc/util/PlatformUtils.hpp>

#include <iterator>
#include <utility>

namespace kestrel {

XmlLibraryUse::XmlLibraryUse() { xercesc::XMLPlatformUtils::Initialize(); }
XmlLibraryUse::~XmlLibraryUse() { xercesc::XMLPlatformUtils::Terminate(); }

}  // namespace kestrel

XLumoTemplate::XLumoTemplate() : mData(std::make_unique<Data>()) {}
XLumoTemplate::~XLumoTemplate() = default;

// --- Names

namespace {

ChartString mapName(std::string const& name, XLumoTemplate::LOCATION where) {
  ChartString result;
  result.assignUTF8(name);
  if (where == XLumoTemplate::LOCATION_FILE) result.replaceChars(u'\\', u'/');
  return result;
}

}  // namespace

void XLumoTemplate::setTemplateName(ChartString& name, LOCATION where) {
  mData->mTemplateName = name;
  mData->mTemplateLocation = where;
}

void XLumoTemplate::setTemplateInternalName(std::string const& name) {
  mData->mTemplatePath = kestrel::productTemplate(name + ".lumotemplate");
  mData->mTemplateLocation = LOCATION_FILE;
}

void XLumoTemplate::setTemplateKosDirectory(std::string const& directory) {
  mData->mTemplateKosDirectory = directory;
}

void XLumoTemplate::setstyleSheetName(std::string const& name, LOCATION where) {
  mData->mStyleSheetName = name;
  mData->mStyleSheetLocation = where;
}

void XLumoTemplate::setStyleSheetKosDirectory(std::string const& directory) {
  mData->mStyleSheetKosDirectory = directory;
}

void XLumoTemplate::setDataMapName(std::string const& name, LOCATION where) {
  mData->mDataMapName = mapName(name, where);
  mData->mDataMapLocation = where;
}

void XLumoTemplate::setDataMapKosDirectory(std::string const& directory) {
  mData->mDataMapKosDirectory = directory;
}

void XLumoTemplate::setRefMapName(std::string const& name, LOCATION where) {
  mData->mRefMapName = mapName(name, where);
  mData->mRefMapLocation = where;
}

void XLumoTemplate::setRefMapKosDirectory(std::string const& directory) {
  mData->mRefMapKosDirectory = directory;
}

void XLumoTemplate::setMapKey(std::string const& key) { mData->mMapKey.assignUTF8(key); }
void XLumoTemplate::setShowAllFeatures(bool show) { mData->mShowAllFeatures = show; }

ChartString& XLumoTemplate::getDataMapName() const { return mData->mDataMapName; }
ChartString& XLumoTemplate::getRefMapName() const { return mData->mRefMapName; }
std::string& XLumoTemplate::getDataMapFileName() const { return mData->mDataMapFileName; }
std::string& XLumoTemplate::getRefMapFileName() const { return mData->mRefMapFileName; }
std::string& XLumoTemplate::getDataMapContents() const { return mData->mDataMapContents; }
std::string& XLumoTemplate::getRefMapContents() const { return mData->mRefMapContents; }

// --- Mappings

namespace {

/// The names of the slots, by the type of label.
constexpr char const* labelSlots[] = {"Title", "Subtitle", "Subsubtitle", "Footnote", "Subfootnote"};

/// What is not given keeps its default.
template <typename Field, typename Given>
void setIfGiven(Field& field, Given const* given) {
  if (given != nullptr) field = *given;
}
void setIfGiven(std::string& field, char const* given) {
  if (given != nullptr) field = given;
}

}  // namespace

void XLumoTemplate::addVariable(std::string const& slotName, std::string const& slotValue, bool categorical,
                                std::string labelingVariableName, std::string const& dataSetName,
                                Vexa_Format* format, char const* slotLabel, VARIABLE_TYPE variableType,
                                char const* mrSetName, bool weight, std::string const* countedValue,
                                bool enhancedDichotomy, std::vector<std::string> const* varNames,
                                std::vector<std::string> const* varLabels,
                                std::vector<std::string> const* labelingVarNames) {
  Data::variableMapping mapping;
  mapping.mSlotName = slotName;
  mapping.mSlotValue = Data::updateText(slotValue);
  setIfGiven(mapping.mSlotLabel, slotLabel);
  mapping.mLabelingVariableName = std::move(labelingVariableName);
  mapping.mCategorical = categorical;
  mapping.mDataSetName = dataSetName;
  mapping.mVariableType = variableType;
  setIfGiven(mapping.mMRSetName, mrSetName);
  setIfGiven(mapping.mFormat, format);
  mapping.mHasFormat = format != nullptr;
  mapping.mWeight = weight;
  mapping.mEnhancedDichotomy = enhancedDichotomy;
  setIfGiven(mapping.mCountedValue, countedValue);
  setIfGiven(mapping.mVariableNames, varNames);
  setIfGiven(mapping.mVariableLabels, varLabels);
  setIfGiven(mapping.mLabelingVariableNames, labelingVarNames);
  mData->mVariables.push_back(std::move(mapping));
}

void XLumoTemplate::addStatistic(std::string const& slotName, std::string const& slotValue,
                                 char const* slotLabel) {
  Data::TemplateMapping mapping{slotName, slotValue, {}};
  // Kept here and never sent: relied upon.
  setIfGiven(mapping.mSlotLabel, slotLabel);
  mData->mStatistics.push_back(std::move(mapping));
}

void XLumoTemplate::addLabel(LABEL_TYPE type, std::string const& text) {
  auto const slot = static_cast<unsigned int>(type);
  if (slot >= std::size(labelSlots)) return;
  mData->mLabels.push_back({labelSlots[slot], Data::updateText(text), {}});
}
