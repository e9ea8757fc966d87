#pragma once

#include "kestrelhost/channel.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kestrel::test {

/// Reads a capture from an open file while it is written, and checks each chart when its end record has come:
/// the contents and their order, the announced sizes, the chart text, every cell of the data. Holds one chart
/// at a time.
class SoakClient {
 public:
  /// The descriptor becomes the client's.
  explicit SoakClient(int descriptor) : mDescriptor(descriptor) {}
  ~SoakClient() { close(); }
  SoakClient(SoakClient const&) = delete;
  SoakClient& operator=(SoakClient const&) = delete;

  /// Until the sender has closed, or something is wrong: then the sender's next put fails.
  void run();

  /// What was wrong. These are for when run() is over.
  std::optional<std::string> const& fault() const { return mFault; }
  std::size_t charts() const { return mCharts; }
  std::size_t messages() const { return mMessages; }
  std::uint64_t bytes() const { return mBytes; }

 private:
  void readAll();
  bool take(std::string& bytes, std::size_t size);
  void checkChart() const;
  void close();

  int mDescriptor;
  std::vector<host::Message> mChart;
  std::size_t mCharts = 0;
  std::size_t mMessages = 0;
  std::uint64_t mBytes = 0;
  std::optional<std::string> mFault;
};

}  // namespace kestrel::test
