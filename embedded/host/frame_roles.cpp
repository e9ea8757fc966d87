#include "frame_roles.h"

#include "host/chartbase.h"
#include "model/document.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <optional>
#include <string>

namespace kestrel::host {

namespace {

struct KnownRole {
  FrameRole role;
  LumoLabel::ENUM_purpose purpose;
  LumoLabelFrame* (LumoExtensionVis::*recorded)() const;
  char16_t const* id;
};
constexpr KnownRole knownRoles[] = {
    {FrameRole::Title1, LumoLabel::PurposeTitle1, &LumoExtensionVis::getTitle1, ChartBase::_frame_title_1},
    {FrameRole::Title2, LumoLabel::PurposeTitle2, &LumoExtensionVis::getTitle2, ChartBase::_frame_title_2},
    {FrameRole::Subtitle, LumoLabel::PurposeSubtitle, &LumoExtensionVis::getSubtitle,
     ChartBase::_frame_subtitle_1},
    {FrameRole::Footnote1, LumoLabel::PurposeFootnote1, &LumoExtensionVis::getFootnote1,
     ChartBase::_frame_footnote_1},
    {FrameRole::Footnote2, LumoLabel::PurposeFootnote2, &LumoExtensionVis::getFootnote2,
     ChartBase::_frame_footnote_2},
    {FrameRole::Footnote3, LumoLabel::PurposeFootnote3, &LumoExtensionVis::getFootnote3,
     ChartBase::_frame_footnote_3},
};

constexpr char16_t otherId[] = u"frame_other_1";

template <typename Condition>
std::optional<FramePlace> firstRole(Condition const& condition) {
  auto const* const found = std::find_if(std::begin(knownRoles), std::end(knownRoles), condition);
  return found != std::end(knownRoles) ? std::optional(FramePlace{found->role}) : std::nullopt;
}

/// The ids of summaries count all label frames of their chart, so they seldom end in 1.
std::optional<FramePlace> summaryById(ChartString const& id) {
  std::string const text = id.toUTF8();
  std::string stem = ChartString(ChartBase::_frame_statistics_summary_1).toUTF8();
  stem.pop_back();
  if (text.rfind(stem, 0) != 0) return std::nullopt;
  long number = 0;
  auto const [end, error] = std::from_chars(text.data() + stem.size(), text.data() + text.size(), number);
  bool const whole = error == std::errc() && end == text.data() + text.size();
  return whole ? std::optional(FramePlace{FrameRole::StatisticsSummary, number}) : std::nullopt;
}

}  // namespace

FrameRoles::FrameRoles(LumoVisualization const& visualization) {
  LumoExtensionVis const* const record = visualization.getExtension();
  if (record == nullptr) return;
  for (KnownRole const& known : knownRoles) {
    if (LumoLabelFrame const* const frame = (record->*known.recorded)()) {
      mRecorded.try_emplace(frame, FramePlace{known.role});
    }
  }
  for (long index = 0; LumoLabelFrame const* const frame = record->getStatisticsSummary(index); ++index) {
    mRecorded.try_emplace(frame, FramePlace{FrameRole::StatisticsSummary, index});
  }
}

FramePlace FrameRoles::of(LumoLabelFrame const& frame) const {
  auto const recorded = mRecorded.find(&frame);
  if (recorded != mRecorded.end()) return recorded->second;
  if (LumoLabel const* const label = frame.getLabel()) {
    auto const place =
        firstRole([&](KnownRole const& known) { return known.purpose == label->getPurpose(); });
    if (place) return *place;
  }
  ChartString const id(frame.getId());
  auto const place = firstRole([&](KnownRole const& known) { return id.equals(known.id); });
  return place ? *place : summaryById(id).value_or(FramePlace{FrameRole::Other});
}

char16_t const* FrameRoles::idOf(FrameRole role) {
  auto const* const found = std::find_if(std::begin(knownRoles), std::end(knownRoles),
                                         [&](KnownRole const& known) { return known.role == role; });
  if (found != std::end(knownRoles)) return found->id;
  return role == FrameRole::Other ? otherId : ChartBase::_frame_statistics_summary_1;
}

}  // namespace kestrel::host
