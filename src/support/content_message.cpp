#include "support/content_message.h"

#include "host/channel.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace kestrel {

namespace {

constexpr std::size_t longestMessage = 33996;
constexpr std::size_t trailerSize = 4;

bool put(std::int64_t identifier, unsigned char const* message, std::size_t length) {
  std::int64_t const zero = 0;
  auto const size = static_cast<std::int64_t>(length);
  return IpcPutC(&identifier, &zero, &size, message, &zero) == 0;
}

}  // namespace

bool putContent(std::int64_t identifier, std::span<unsigned char const> head, char const* data,
                unsigned long size) {
  std::size_t const payload = head.size() + sizeof(std::uint32_t);
  std::size_t const longestChunk = longestMessage - payload - trailerSize;
  // Cleared once, as far as the first and longest message goes and nothing is copied there: behind the
  // payload of a last, shorter chunk the trailer repeats what the chunk before left there. Receivers ignore
  // it.
  std::array<unsigned char, longestMessage> buffer;
  std::size_t const firstChunk = std::min<std::size_t>(longestChunk, size);
  std::memcpy(buffer.data(), head.data(), head.size());
  if (data == nullptr) std::memset(&buffer[payload], 0, firstChunk);
  std::memset(&buffer[payload + firstChunk], 0, trailerSize);
  bool success = true;
  for (unsigned long offset = 0; success && offset < size;) {
    auto const chunk = static_cast<std::uint32_t>(std::min<std::size_t>(longestChunk, size - offset));
    std::memcpy(&buffer[head.size()], &chunk, sizeof chunk);
    if (data != nullptr) std::memcpy(&buffer[payload], data + offset, chunk);
    success = put(identifier, buffer.data(), payload + chunk + trailerSize);
    offset += chunk;
  }
  return success;
}

}  // namespace kestrel
