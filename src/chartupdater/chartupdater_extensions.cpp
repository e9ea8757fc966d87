// The record that names a chart's special parts.

#include "chartupdater.h"

#include "chartupdater_data.h"

#include "support/chart_parts.h"
#include "support/product_paths.h"

#include "host/chartbase.h"
#include "host/files.h"
#include "host/text.h"
#include "model/aesthetics.h"
#include "model/labels.h"

#include <xercesc/util/XMLString.hpp>

#include <memory>
#include <string>
#include <unordered_set>

using kestrel::objectsOf;
using xercesc::XMLString;

namespace {

// --- Texts

/// A label of several texts becomes one of a single text.
void updateTexts(LumoLabel& label, FacSTDictionary& dictionary, std::string const& codePage) {
  ChartString whole;
  for (LumoText const* text : label.getTexts()) whole.append(text->getText());
  ChartBase::updateText(whole, &dictionary, codePage);
  label.removeTexts();
  label.addText()->setText(whole.xc_str());
}

// --- Slots

using SetFrame = void (LumoExtensionVis::*)(LumoLabelFrame const&);

struct PurposeSlot {
  LumoLabel::ENUM_purpose purpose;
  SetFrame set;
};
constexpr PurposeSlot purposes[] = {{LumoLabel::PurposeTitle1, &LumoExtensionVis::setTitle1},
                                    {LumoLabel::PurposeTitle2, &LumoExtensionVis::setTitle2},
                                    {LumoLabel::PurposeSubtitle, &LumoExtensionVis::setSubtitle},
                                    {LumoLabel::PurposeFootnote1, &LumoExtensionVis::setFootnote1},
                                    {LumoLabel::PurposeFootnote2, &LumoExtensionVis::setFootnote2},
                                    {LumoLabel::PurposeFootnote3, &LumoExtensionVis::setFootnote3}};

struct NamedSlot {
  char16_t const* name;
  SetFrame set;
};
/// One off against the names of the slots: relied upon.
constexpr NamedSlot positions[] = {{u"title", &LumoExtensionVis::setTitle1},
                                   {u"subtitle", &LumoExtensionVis::setTitle2},
                                   {u"subsubtitle", &LumoExtensionVis::setSubtitle},
                                   {u"footnote", &LumoExtensionVis::setFootnote1},
                                   {u"subfootnote", &LumoExtensionVis::setFootnote2}};
constexpr NamedSlot frameIds[] = {{ChartBase::_frame_title_1, &LumoExtensionVis::setTitle1},
                                  {ChartBase::_frame_title_2, &LumoExtensionVis::setTitle2},
                                  {ChartBase::_frame_subtitle_1, &LumoExtensionVis::setSubtitle},
                                  {ChartBase::_frame_footnote_1, &LumoExtensionVis::setFootnote1},
                                  {ChartBase::_frame_footnote_2, &LumoExtensionVis::setFootnote2},
                                  {ChartBase::_frame_footnote_3, &LumoExtensionVis::setFootnote3}};

template <typename Slots>
void setSlotOf(char16_t const* name, Slots const& slots, LumoExtensionVis& record,
               LumoLabelFrame const& frame) {
  for (NamedSlot const& slot : slots) {
    if (XMLString::equals(slot.name, name)) (record.*slot.set)(frame);
  }
}

void recordByPurpose(LumoLabel const& label, LumoExtensionVis& record, LumoLabelFrame const& frame) {
  for (PurposeSlot const& slot : purposes) {
    if (slot.purpose == label.getPurpose()) (record.*slot.set)(frame);
  }
}

void recordFrame(LumoLabelFrame const& frame, LumoExtensionVis& record) {
  // The position word alone counts where the frame has a record of its own, also one that says nothing.
  if (LumoExtension const* const extension = frame.getExtension()) {
    setSlotOf(extension->getAttribute(LumoUni::_position), positions, record, frame);
    return;
  }
  setSlotOf(frame.getId(), frameIds, record, frame);
  if (XMLString::equals(frame.getId(), ChartBase::_frame_statistics_summary_1))
    record.setStatisticsSummary(frame, 0);
}

struct BlankableSlot {
  LumoLabelFrame* (LumoExtensionVis::*get)() const;
  void (LumoExtensionVis::*remove)();
};
/// The subtitle and the other footnotes stay, also blank ones.
constexpr BlankableSlot blankables[] = {
    {&LumoExtensionVis::getTitle1, &LumoExtensionVis::removeTitle1},
    {&LumoExtensionVis::getTitle2, &LumoExtensionVis::removeTitle2},
    {&LumoExtensionVis::getFootnote1, &LumoExtensionVis::removeFootnote1}};

bool isBlank(LumoLabelFrame const* frame) {
  LumoLabel const* const label = frame == nullptr ? nullptr : frame->getLabel();
  if (label == nullptr) return false;
  auto const texts = label->getTexts();
  if (texts.empty()) return false;
  ChartString text(texts.front()->getText());
  text.trimSpaces(true);
  return text.empty();
}

/// The legends of a record. A legend goes into the first empty slot, unless it stands in one before that.
class RecordedLegends {
 public:
  explicit RecordedLegends(LumoExtensionVis& record) : mRecord(record) { passFilledSlots(); }

  void add(LumoLegend const& legend) {
    if (!mBefore.insert(legend.getImplementation()).second) return;
    mRecord.setLegend(mSlot++, legend);
    passFilledSlots();
  }

 private:
  void passFilledSlots() {
    for (; LumoLegend const* const recorded = mRecord.getLegend(mSlot); ++mSlot)
      mBefore.insert(recorded->getImplementation());
  }

  LumoExtensionVis& mRecord;
  /// The first empty slot, and what stands before it.
  unsigned int mSlot = 1;
  std::unordered_set<xercesc::DOMElement const*> mBefore;
};

}  // namespace

void ChartUpdater::addExtensions() {
  LumoVisualization& visualization = mData->visualization();
  LumoExtensionVis& record = kestrel::findOrMakeExtension(visualization);
  std::string const resourcePath = kestrel::productPaths().getDictionaryPath();
  FacSTDictionary dictionary(resourcePath);
  std::string const codePage = kestrel::codePageOfDictionary(resourcePath);
  dictionary.SetProcedure("GRAPH");

  for (LumoLabelFrame const* frame : objectsOf<LumoLabelFrame>(visualization, LumoUni::_labelFrame)) {
    if (LumoLabel* const label = frame->getLabel()) {
      updateTexts(*label, dictionary, codePage);
      recordByPurpose(*label, record, *frame);
    }
    recordFrame(*frame, record);
  }
  for (BlankableSlot const& slot : blankables) {
    if (isBlank((record.*slot.get)())) (record.*slot.remove)();
  }
  RecordedLegends legends(record);
  for (LumoLegend const* legend : objectsOf<LumoLegend>(visualization, LumoUni::_legend))
    legends.add(*legend);
  for (LumoStyleCycle const* cycle : objectsOf<LumoStyleCycle>(visualization, LumoUni::_styleCycle)) {
    if (XMLString::equals(cycle->getId(), ChartBase::_styleCycleRepository))
      record.setStyleCycleRepository(*cycle);
  }
}
