#pragma once

#include "kestrelhost/recorder.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace kestrel::test {

/// A call of the host, and the content type of the message where it puts one on the channel.
struct HostCall {
  HostCall(host::Operation called) : operation(called) {}
  explicit HostCall(std::uint32_t put) : operation(host::Operation::IpcPutC), type(put) {}

  host::Operation operation;
  std::optional<std::uint32_t> type;
};

inline HostCall put(std::uint32_t type) { return HostCall(type); }

/// For an operation that reports nothing.
/// @param calls all that the operation asks of the host, in order. Each of them throws in turn: ordinary
///        exceptions, then the host's unwinding signal. What is thrown must leave the operation as it is,
///        without a report, and end it: no call follows, and what was sent before has been sent.
void expectToLetThrough(host::Recorder& recorder, std::vector<HostCall> const& calls,
                        std::function<void()> const& operation);

}  // namespace kestrel::test
