#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel::tool {

/// A chart as it comes in, message by message, as a capture has them.
class IncomingChart {
 public:
  IncomingChart() = default;
  virtual ~IncomingChart() = default;
  IncomingChart(IncomingChart const&) = delete;
  IncomingChart& operator=(IncomingChart const&) = delete;

  /// Why so many bytes more are too many, as the user is told; nothing where they are not.
  virtual std::optional<std::string> refusal(std::size_t bytes) const = 0;

  /// Throws a Problem where the bytes cannot be kept.
  virtual void append(std::string_view bytes) = 0;
  virtual std::size_t size() const = 0;

  /// Puts the chart away, checks it and tells the user; nothing is called after it. False where something is
  /// wrong with the chart. Throws a Problem where it cannot be put away.
  virtual bool finish() = 0;
};

/// Where received charts go.
class ChartReceiver {
 public:
  ChartReceiver() = default;
  virtual ~ChartReceiver() = default;
  ChartReceiver(ChartReceiver const&) = delete;
  ChartReceiver& operator=(ChartReceiver const&) = delete;

  /// The receiver must live longer than the chart. `sender` is what the user is told of where it came from.
  virtual std::unique_ptr<IncomingChart> begin(std::string const& sender) = 0;
};

}  // namespace kestrel::tool
