#pragma once

#include "open_file.h"

#include <array>
#include <csignal>

namespace kestrel::tool {

/// Makes SIGINT and SIGTERM something to wait for, for as long as it lives. There is one at a time.
class StopSignals {
 public:
  StopSignals();
  ~StopSignals();
  StopSignals(StopSignals const&) = delete;
  StopSignals& operator=(StopSignals const&) = delete;

  /// Can be read from once a signal has come.
  int descriptor() const { return mReader.number(); }

 private:
  OpenFile mReader;
  OpenFile mWriter;
  std::array<struct sigaction, 2> mBefore{};
};

}  // namespace kestrel::tool
