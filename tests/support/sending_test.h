#pragma once

#include "chart_test.h"
#include "wire_decoder.h"

#include "kestrelhost/recorder.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace kestrel::test {

/// Runs each test under a host in memory, and reads back what the client has got.
class SendingTest : public ChartTest {
 protected:
  std::vector<host::Message> const& got() { return recorder.services().channel->messages(); }
  std::vector<DecodedContent> contents() { return decodeContents(got()); }
  std::vector<std::uint32_t> types() { return typesOf(contents()); }
  std::string bytesOf(std::uint32_t type) { return onlyContent(contents(), type).bytes; }
  /// How many messages were tried, with those that failed.
  std::size_t puts() { return recorder.count(host::Operation::IpcPutC); }
};

/// Bytes of which no two neighbours are alike, and none is 0.
inline std::string pattern(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t at = 0; at < size; ++at) bytes[at] = static_cast<char>(at % 251 + 1);
  return bytes;
}

/// Bytes that hardly compress.
inline std::string noise(std::size_t size) {
  std::string bytes(size, '\0');
  unsigned int state = 1;
  for (char& byte : bytes) {
    state = state * 1664525u + 1013904223u;
    byte = static_cast<char>(state >> 24);
  }
  return bytes;
}

/// What a send does where one put fails: which content types the client has got, and the result.
struct FailedPut {
  unsigned int put;
  std::vector<std::uint32_t> types;
  bool result;
};

inline void PrintTo(FailedPut const& row, std::ostream* out) { *out << "put " << row.put << " fails"; }

}  // namespace kestrel::test
