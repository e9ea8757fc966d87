#include "event_stream.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace kestrel::tool {

namespace {

std::string event(char const* name, nlohmann::json const& data) {
  // The name of a file may be anything.
  return std::string("event: ") + name +
         "\ndata: " + data.dump(-1, ' ', true, nlohmann::json::error_handler_t::replace) + "\n\n";
}

}  // namespace

EventStream::EventStream(ChartShelf const& shelf, std::string server, Clock::duration longest)
    : mShelf(&shelf), mServer(std::move(server)), mEnd(Clock::now() + longest) {}

std::optional<std::string> EventStream::next(std::chrono::milliseconds patience) {
  if (!mIsNew && Clock::now() >= mEnd) return std::nullopt;
  ChartShelf::News const news = mShelf->news(mLast, mFirst, mIsNew ? std::chrono::milliseconds(0) : patience);
  if (news.isClosed) return std::nullopt;
  std::string text = mIsNew ? beginning(news.first) : "";
  for (; mFirst < news.first; ++mFirst) {
    if (mFirst <= mLast) text += event("gone", mFirst);
  }
  for (ChartShelf::Kept const& kept : news.charts) {
    text += event("chart", {{"id", kept.id}, {"from", kept.from}, {"received", kept.received}});
    mLast = kept.id;
  }
  mIsNew = false;
  return text.empty() ? ":\n\n" : text;
}

/// A page that was here before takes away what is no longer kept.
std::string EventStream::beginning(std::size_t first) const {
  return "retry: 2000\n\n" + event("server", {{"id", mServer}, {"first", first}});
}

}  // namespace kestrel::tool
