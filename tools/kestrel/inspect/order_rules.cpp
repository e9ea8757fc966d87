#include "order_rules.h"

#include "content_types.h"

#include <algorithm>
#include <array>
#include <span>

namespace kestrel::tool {

namespace {

enum class Needed {
  Always,
  Maybe,
  Opens,       ///< the first of two that stand together
  OpensAgain,  ///< the same; the two may be repeated
  Closes,      ///< the second of the two
};

struct Step {
  TypeNumber type;
  Needed needed;
};

// The English form of a description may have no letters left, and what is empty is not sent.
constexpr Step chartSteps[] = {
    {Description, Needed::Always},  {EnglishDescription, Needed::Maybe},
    {ChartTextSize, Needed::Maybe}, {CompressedSize, Needed::Maybe},
    {ChartText, Needed::Always},    {DataSize, Needed::Opens},
    {Data, Needed::Closes},         {MapInfo, Needed::Maybe},
    {CsvName, Needed::OpensAgain},  {CsvContent, Needed::Closes},
    {Done, Needed::Always},
};

constexpr Step imageSteps[] = {
    {Description, Needed::Always},
    {EnglishDescription, Needed::Maybe},
    {Image, Needed::Always},
    {Done, Needed::Always},
};

constexpr Step engineSteps[] = {
    {Description, Needed::Always}, {EnglishDescription, Needed::Maybe},
    {EngineJson, Needed::Maybe},   {EngineTemplate, Needed::Maybe},
    {Options, Needed::Maybe},      {GeoJsonName, Needed::OpensAgain},
    {GeoJson, Needed::Closes},     {Done, Needed::Always},
};

constexpr Step interactiveSteps[] = {
    {Description, Needed::Always},     {EnglishDescription, Needed::Maybe}, {InteractiveJson, Needed::Maybe},
    {ProcedureName, Needed::Maybe},    {JsonPath, Needed::Maybe},           {Options, Needed::Maybe},
    {GeoJsonName, Needed::OpensAgain}, {GeoJson, Needed::Closes},           {Done, Needed::Always},
};

constexpr Step serviceSteps[] = {
    {Description, Needed::Always},    {EnglishDescription, Needed::Maybe}, {ChartOptions, Needed::Maybe},
    {ServiceTemplate, Needed::Maybe}, {DataSize, Needed::Opens},           {Data, Needed::Closes},
    {Done, Needed::Always},
};

struct Kind {
  char const* name;
  /// A send with one of these types is of this kind.
  std::array<TypeNumber, 3> marks;
  std::span<Step const> steps;
  /// The layout of all contents but the end record, which is always a chart content message.
  MessageLayout const* layout;
};

enum KindNumber : std::size_t { ChartKind, ImageKind, EngineKind, InteractiveKind, ServiceKind };

/// By number.
constexpr Kind kinds[] = {
    {"chart", {ChartText, ChartTextSize, CompressedSize}, chartSteps, &chartContent},
    {"image", {Image, Image, Image}, imageSteps, &chartContent},
    {"engine chart", {EngineJson, EngineTemplate, EngineTemplate}, engineSteps, &chartContent},
    {"interactive content",
     {InteractiveJson, ProcedureName, JsonPath},
     interactiveSteps,
     &interactiveContent},
    {"service", {ChartOptions, ServiceTemplate, ServiceTemplate}, serviceSteps, &chartContent},
};

Kind const& findKind(Send const& send) {
  for (Kind const& kind : kinds) {
    auto const sent = [&](TypeNumber type) { return send.find(type) != nullptr; };
    if (std::any_of(kind.marks.begin(), kind.marks.end(), sent)) return kind;
  }
  // What several kinds have in common says little. A send that stopped early is taken for a chart.
  if (send.contents.front().first().layout == &interactiveContent) return kinds[InteractiveKind];
  bool const forEngine = send.find(Options) != nullptr || send.find(GeoJsonName) != nullptr;
  return kinds[forEngine ? EngineKind : ChartKind];
}

std::string nameOf(std::uint32_t type) {
  ContentType const* const found = findContentType(type);
  return found == nullptr ? "content of type " + std::to_string(type) : found->name;
}

std::string wrongLayout(MessageLayout const& expected) {
  return " came in a message with the wrong identifier; " + std::to_string(expected.identifier) +
         " was expected";
}

/// Walks the steps of a kind along the contents of a send.
class OrderWalk {
 public:
  OrderWalk(Kind const& kind, std::vector<Fault>& faults) : mKind(&kind), mFaults(&faults) {}

  void take(Content const& content) {
    if (continuesUnfull(content)) return;
    mBefore = &content;
    checkLayout(content);
    auto const step = std::find_if(mKind->steps.begin(), mKind->steps.end(),
                                   [&](Step const& candidate) { return candidate.type == content.type(); });
    if (step == mKind->steps.end()) {
      fault(content, nameOf(content.type()) + " is no part of this " + mKind->name);
      return;
    }
    auto const index = static_cast<std::size_t>(step - mKind->steps.begin());
    bool const repeats = step->needed == Needed::OpensAgain && mNext == index + 2;
    if (index < mNext && !repeats) {
      fault(content, nameOf(content.type()) + " comes too late, or twice: it belongs before " +
                         nameOf(mKind->steps[mNext - 1].type));
      return;
    }
    if (!repeats) checkSkipped(index, content);
    mNext = index + 1;
  }

  /// `offset` is where the send ends.
  void finish(std::size_t offset) {
    for (std::size_t at = mNext; at < mKind->steps.size(); ++at) {
      if (!isMissed(at)) continue;
      mFaults->push_back(
          {offset, std::nullopt,
           std::string("the ") + mKind->name + " ends without " + nameOf(mKind->steps[at].type)});
    }
  }

 private:
  void fault(Content const& content, std::string text) {
    mFaults->push_back({content.first().captured.offset, content.first().captured.number, std::move(text)});
  }

  void checkLayout(Content const& content) {
    MessageLayout const& expected = content.type() == Done ? chartContent : *mKind->layout;
    if (content.first().layout != &expected) fault(content, nameOf(content.type()) + wrongLayout(expected));
  }

  /// The same type again, though the content before it has ended with a chunk that was not full.
  bool continuesUnfull(Content const& content) {
    if (mBefore == nullptr || mBefore->type() != content.type()) return false;
    WireMessage const& last = *mBefore->messages.back();
    fault(content, nameOf(content.type()) + " goes on, though the chunk before, of " +
                       std::to_string(last.chunkSize) + " bytes, was not full (" +
                       std::to_string(last.layout->longestChunk) + ")");
    mBefore = &content;
    return true;
  }

  /// Whether a step that the contents pass by must not be passed by.
  bool isMissed(std::size_t index) const {
    Needed const needed = mKind->steps[index].needed;
    return needed == Needed::Always || (needed == Needed::Closes && mNext == index);
  }

  void checkSkipped(std::size_t index, Content const& content) {
    for (std::size_t at = mNext; at < index; ++at) {
      if (isMissed(at))
        fault(content, nameOf(mKind->steps[at].type) + " is missing before " + nameOf(content.type()));
    }
    bool const withoutOpening = mKind->steps[index].needed == Needed::Closes && mNext != index;
    if (withoutOpening) {
      fault(content,
            nameOf(content.type()) + " comes without " + nameOf(mKind->steps[index - 1].type) + " before it");
    }
  }

  Kind const* mKind;
  std::vector<Fault>* mFaults;
  Content const* mBefore = nullptr;
  std::size_t mNext = 0;
};

/// The data of a service goes with its template.
void checkServiceData(Send const& send, Kind const& kind, std::vector<Fault>& faults) {
  Content const* const data = send.find(Data);
  bool const isAlone =
      data != nullptr && &kind == &kinds[ServiceKind] && send.find(ServiceTemplate) == nullptr;
  if (!isAlone) return;
  faults.push_back({data->first().captured.offset, data->first().captured.number,
                    "data of a service comes without service template before it"});
}

}  // namespace

std::string kindOf(Send const& send) { return findKind(send).name; }

void checkOrder(Send const& send, std::optional<std::size_t> end, std::vector<Fault>& faults) {
  Kind const& kind = findKind(send);
  checkServiceData(send, kind, faults);
  OrderWalk walk(kind, faults);
  for (Content const& content : send.contents) walk.take(content);
  if (end) walk.finish(*end);
}

}  // namespace kestrel::tool
