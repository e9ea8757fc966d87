#pragma once

#include "chartxmlcontent.h"

#include <cstddef>
#include <cstdint>

namespace kestrel {

/// What nearly every content is sent with.
constexpr ChartXMLContentSubType noSubType{0};

/// Layout of the chart content message, in the machine's byte order:
/// type (1 byte), subtype (1), reserved (2), chunk size (4), payload, and 4 bytes of trailer that carry no
/// meaning.
namespace chart_content {

constexpr std::int64_t messageIdentifier = 307;
constexpr std::size_t bufferSize = 33996;
constexpr std::size_t typeOffset = 0;
constexpr std::size_t subTypeOffset = 1;
constexpr std::size_t chunkSizeOffset = 4;
constexpr std::size_t payloadOffset = 8;
constexpr std::size_t longestPayload = 33984;
constexpr std::size_t trailerSize = 4;

}  // namespace chart_content

}  // namespace kestrel
