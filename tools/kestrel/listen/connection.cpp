#include "connection.h"

#include "problem.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

namespace kestrel::tool {

Connection::Connection(OpenFile socket, std::size_t number, ChartReceiver& receiver, std::size_t longestChart)
    : mSocket(std::move(socket)), mNumber(number), mReceiver(&receiver), mLongestChart(longestChart) {}

bool Connection::read() {
  std::array<char, 1 << 16> bytes;
  ssize_t const got = ::read(mSocket.number(), bytes.data(), bytes.size());
  if (got < 0) return errno == EINTR || errno == EAGAIN;
  if (got == 0) return false;
  mSilentSince = Clock::now();
  take({bytes.data(), static_cast<std::size_t>(got)});
  return !mIsRefused;
}

void Connection::take(std::string_view bytes) {
  mStream.take(bytes);
  while (!mIsRefused) {
    auto const message = mStream.next();
    if (!message) break;
    takeMessage(*message);
  }
  if (mStream.fault() && !mIsRefused) refuse(*mStream.fault());
}

void Connection::takeMessage(std::string const& message) {
  bool const isFirst = beginsChart(message, mStarts);
  if (mChart && isFirst) finishChart();
  beginChart();
  if (message.size() > mLongestChart - std::min(mLongestChart, mChart->size())) {
    refuse("the chart is longer than " + counted(mLongestChart, "byte") + "; --limit allows more");
    return;
  }
  if (auto const why = mChart->refusal(message.size())) {
    refuse(*why);
    return;
  }
  mChart->append(message);
  if (endsChart(message)) finishChart();
}

void Connection::beginChart() {
  if (mChart) return;
  mChart = mReceiver->begin(name());
  ++mCharts;
}

void Connection::finishChart() {
  mGood = mChart->finish() && mGood;
  mChart.reset();
}

void Connection::giveUp(std::chrono::seconds silence) {
  mIsGivenUp = true;
  std::string const text = "nothing has come for " +
                           counted(static_cast<std::size_t>(silence.count()), "second") +
                           ": the connection is closed; --idle allows more";
  // A sender that stays behind its last chart has done nothing wrong.
  bool const isBetweenCharts = mCharts > 0 && !mChart && mStream.rest().empty();
  if (isBetweenCharts) {
    tell(name() + ": " + text);
  } else {
    tellFault(text);
  }
}

void Connection::end() {
  std::string_view const rest = mStream.hasSignature() && !mIsRefused ? mStream.rest() : std::string_view();
  if (!rest.empty()) beginChart();
  if (mChart) {
    mChart->append(rest);
    finishChart();
  }
  if (mCharts == 0 && !mIsRefused && !mIsGivenUp) {
    tellFault(mStream.hasSignature() ? "no chart was sent"
                                     : "the sender has gone before it had sent the start of a capture");
  }
}

std::string Connection::name() const { return "connection " + std::to_string(mNumber); }

void Connection::tellFault(std::string const& text) {
  tell(name() + ": " + text);
  mGood = false;
}

void Connection::refuse(std::string const& why) {
  mIsRefused = true;
  tellFault(why);
}

}  // namespace kestrel::tool
