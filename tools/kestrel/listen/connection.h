#pragma once

#include "incoming_chart.h"
#include "message_stream.h"
#include "open_file.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace kestrel::tool {

/// A sender, from its connection to its end.
class Connection {
 public:
  using Clock = std::chrono::steady_clock;

  /// `number` is what the user is told of it, `longestChart` in bytes. The receiver must live longer.
  Connection(OpenFile socket, std::size_t number, ChartReceiver& receiver, std::size_t longestChart);

  int descriptor() const { return mSocket.number(); }

  /// Takes what has come. False where nothing will come any more: the sender has closed, or is not worth
  /// listening to.
  bool read();

  /// Since when nothing has come.
  Clock::time_point silentSince() const { return mSilentSince; }

  /// Tells the user that nothing has come for so long that nothing more is waited for.
  void giveUp(std::chrono::seconds silence);

  /// Puts away what has come of a chart without end, and tells the user.
  void end();

  /// Whether all that came was sound.
  bool good() const { return mGood; }

 private:
  void take(std::string_view bytes);
  void takeMessage(std::string const& message);
  void beginChart();
  void finishChart();
  /// What the user is told of where a chart came from.
  std::string name() const;
  void tellFault(std::string const& text);
  void refuse(std::string const& why);

  OpenFile mSocket;
  std::size_t mNumber;
  ChartReceiver* mReceiver;
  std::size_t mLongestChart;
  MessageStream mStream;
  SendStarts mStarts;
  std::unique_ptr<IncomingChart> mChart;
  std::size_t mCharts = 0;
  Clock::time_point mSilentSince = Clock::now();
  bool mIsRefused = false;
  bool mIsGivenUp = false;
  bool mGood = true;
};

}  // namespace kestrel::tool
