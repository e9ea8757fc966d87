#pragma once

#include "sending_test.h"
#include "xdocument.h"

namespace kestrel::test {

/// Runs each test with a document to send.
class WireTest : public SendingTest {
 protected:
  XDocument document;
};

constexpr ChartXMLContentSubType noSubType{0};
constexpr std::size_t longestChunk = 33984;

}  // namespace kestrel::test
