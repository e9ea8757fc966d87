#pragma once

#include "wire_decoder.h"
#include "xdocument.h"

#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kestrel::test {

/// Runs each test under a host in memory, with a document to send.
class WireTest : public ::testing::Test {
 protected:
  /// What the client has got.
  std::vector<host::Message> const& got() { return recorder.services().channel->messages(); }
  std::vector<DecodedContent> contents() { return decodeContents(got()); }
  std::vector<std::uint32_t> types() { return typesOf(contents()); }
  /// How many messages were tried, with those that failed.
  std::size_t puts() { return recorder.count(host::Operation::IpcPutC); }

  host::Recorder recorder;
  host::ScopedHost scope{recorder.host()};
  XDocument document;
};

constexpr ChartXMLContentSubType noSubType{0};
constexpr std::size_t longestChunk = 33984;

/// Bytes of which no two neighbours are alike, and none is 0.
inline std::string pattern(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t at = 0; at < size; ++at) bytes[at] = static_cast<char>(at % 251 + 1);
  return bytes;
}

}  // namespace kestrel::test
