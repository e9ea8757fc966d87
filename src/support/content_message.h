#pragma once

#include "chartxmlcontent.h"

#include <cstdint>
#include <span>

namespace kestrel {

/// What nearly every content is sent with.
constexpr ChartXMLContentSubType noSubType{0};

/// The identifiers of the two messages. Both are, in the machine's byte order: a head, which is what tells
/// them apart, the chunk size (4 bytes), the payload, and 4 bytes of trailer that carry no meaning. None is
/// longer than 33,996 bytes.
constexpr std::int64_t chartContentMessage = 307;        ///< head: type (1 byte), subtype (1), reserved (2)
constexpr std::int64_t interactiveContentMessage = 318;  ///< head: 1 (4 bytes), type (4)

/// Puts a content on the channel, cut into as many messages as it takes; none where it is empty.
/// @param data null announces the size: payloads of zeros
/// @return true if every put succeeded; after a failed one the rest is abandoned
bool putContent(std::int64_t identifier, std::span<unsigned char const> head, char const* data,
                unsigned long size);

}  // namespace kestrel
