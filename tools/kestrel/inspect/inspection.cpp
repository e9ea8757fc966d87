#include "inspection.h"

#include "content_rules.h"
#include "order_rules.h"
#include "source_rules.h"

#include <algorithm>

namespace kestrel::tool {

namespace {

/// Where a capture is cut behind a full chunk, more of that content may have been there.
void markCutContent(std::vector<Send>& sends) {
  if (sends.empty()) return;
  Content& last = sends.back().contents.back();
  last.isCut = last.messages.back()->isFull();
}

}  // namespace

Inspection::Inspection(std::string_view bytes) {
  Capture const capture = readCapture(bytes);
  for (CapturedMessage const& captured : capture.messages) {
    if (auto message = readMessage(captured, mFaults)) mMessages.push_back(*message);
  }
  // Only now: the sends point into the list.
  mSends = readSends(mMessages);
  if (capture.cut) markCutContent(mSends);
  for (std::size_t at = 0; at < mSends.size(); ++at) {
    checkContents(mSends[at], mFaults);
    checkSources(mSends[at], mFaults);
    bool const isLast = at + 1 == mSends.size();
    std::optional<std::size_t> end = bytes.size();
    if (!isLast) end = mSends[at + 1].contents.front().first().captured.offset;
    if (isLast && capture.cut) end.reset();
    checkOrder(mSends[at], end, mFaults);
  }
  if (capture.cut) mFaults.push_back(*capture.cut);
  if (!capture.cut && capture.messages.empty()) {
    mFaults.push_back({bytes.size(), std::nullopt, "the capture holds no message; nothing was sent"});
  }
  std::stable_sort(mFaults.begin(), mFaults.end(),
                   [](Fault const& left, Fault const& right) { return left.offset < right.offset; });
}

}  // namespace kestrel::tool
