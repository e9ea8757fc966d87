// Titles, subtitle and footnotes: label frames that the chart's extension points at.

#include "xgraph.h"

#include "support/chart_parts.h"
#include "support/chart_text.h"
#include "support/guard.h"

#include "host/chartbase.h"
#include "model/document.h"
#include "model/labels.h"

#include <algorithm>

using kestrel::findOrMakeExtension;
using kestrel::guarded;
using kestrel::isEmpty;
using kestrel::joined;

/// What makes a title: its frame, the slot of the chart's extension that points at it, and its label's style.
struct kestrel::TitleRecipe {
  char const* context;
  char16_t const* frame;
  void (LumoExtensionVis::*point)(LumoLabelFrame const&);
  char16_t const* labelStyle;
};

namespace {

using kestrel::TitleRecipe;

constexpr TitleRecipe title1{"Error in XGraph::AddTitle1()", ChartBase::_frame_title_1,
                             &LumoExtensionVis::setTitle1, u"label_title_1s"};
constexpr TitleRecipe title2{"Error in XGraph::AddTitle2()", ChartBase::_frame_title_2,
                             &LumoExtensionVis::setTitle2, u"label_title_2s"};
constexpr TitleRecipe subtitle{"Error in XGraph::AddSubTitle()", ChartBase::_frame_subtitle_1,
                               &LumoExtensionVis::setSubtitle, u"label_subtitle_1s"};
constexpr TitleRecipe footnote1{"Error in XGraph::AddFootnote1()", ChartBase::_frame_footnote_1,
                                &LumoExtensionVis::setFootnote1, u"label_footnote_1s"};
constexpr TitleRecipe footnote2{"Error in XGraph::AddFootnote2()", ChartBase::_frame_footnote_2,
                                &LumoExtensionVis::setFootnote2, u"label_footnote_2s"};
constexpr TitleRecipe footnote3{"Error in XGraph::AddFootnote3()", ChartBase::_frame_footnote_3,
                                &LumoExtensionVis::setFootnote3, u"label_footnote_3s"};

}  // namespace

void XGraph::makeTitleFrame(LumoExtensionVis& extension, TitleRecipe const& recipe, char16_t const* text) {
  LumoLabelFrame* frame = mVisualization->addLabelFrame(recipe.frame);
  (extension.*recipe.point)(*frame);
  frame->setStyle(*addStyle(joined({recipe.frame, ChartBase::_default_style})));
  LumoLabel* label = frame->addLabel();
  label->setStyle(*addStyle(recipe.labelStyle));
  label->addText()->setText(text);
}

bool XGraph::addTitle(TitleRecipe const& recipe, char16_t const* text) {
  bool added = false;
  guarded(recipe.context, [&] {
    if (isEmpty(text)) return;
    makeTitleFrame(findOrMakeExtension(*mVisualization), recipe, text);
    added = true;
  });
  return added;
}

bool XGraph::AddTitle1(char16_t const* text) { return addTitle(title1, text); }
bool XGraph::AddTitle2(char16_t const* text) { return addTitle(title2, text); }
bool XGraph::AddFootnote1(char16_t const* text) { return addTitle(footnote1, text); }
bool XGraph::AddFootnote2(char16_t const* text) { return addTitle(footnote2, text); }
bool XGraph::AddFootnote3(char16_t const* text) { return addTitle(footnote3, text); }

namespace {

/// Writes the text of a frame that exists. Without a label the text is lost, and the caller does not hear of
/// it.
void replaceText(LumoLabelFrame const& frame, char16_t const* text) {
  LumoLabel* label = frame.getLabel();
  if (label == nullptr) return;
  auto const texts = label->getTexts();
  LumoText* const first = texts.empty() ? label->addText() : texts.front();
  first->setText(text);
}

}  // namespace

bool XGraph::AddSubTitle(char16_t const* text) {
  bool added = false;
  guarded(subtitle.context, [&] {
    if (isEmpty(text)) return;
    LumoExtensionVis& extension = findOrMakeExtension(*mVisualization);
    // The subtitle alone keeps its frame: relied upon.
    if (LumoLabelFrame const* const frame = extension.getSubtitle()) {
      replaceText(*frame, text);
    } else {
      makeTitleFrame(extension, subtitle, text);
    }
    added = true;
  });
  return added;
}

namespace {

/// Whether a frame says of itself that it is the subtitle.
bool isSubtitle(LumoLabelFrame const& frame) {
  if (frame.getExtension() == nullptr) return false;
  LumoLabel const* const label = frame.getLabel();
  // 2 here, although the subtitle's own purpose is 3: relied upon.
  return label != nullptr && label->getPurpose() == LumoLabel::PurposeTitle2;
}

}  // namespace

bool XGraph::doesSubTitleExist() const {
  LumoExtensionVis const* const extension = mVisualization->getExtension();
  if (extension != nullptr && extension->getSubtitle() != nullptr) return true;
  auto const frames = mVisualization->getLabelFrames();
  return std::any_of(frames.begin(), frames.end(),
                     [](LumoLabelFrame const* frame) { return isSubtitle(*frame); });
}
