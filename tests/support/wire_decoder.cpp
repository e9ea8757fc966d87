#include "wire_decoder.h"

#include "kestrelhost/compression.h"

#include <algorithm>
#include <stdexcept>

namespace kestrel::test {

namespace {

void require(bool condition, std::string const& text) {
  if (!condition) throw std::runtime_error(text);
}

std::uint32_t wordAt(std::string const& bytes, std::size_t offset) {
  return static_cast<std::uint32_t>(littleEndianAt(bytes, offset, 4));
}

/// Fills in what stands behind the head.
void readChunk(std::string const& bytes, std::size_t head, std::size_t longest, DecodedMessage& decoded) {
  require(decoded.chunkSize <= longest, "the chunk is too long: " + std::to_string(decoded.chunkSize));
  require(
      bytes.size() == head + decoded.chunkSize + 4,
      "a chunk of " + std::to_string(decoded.chunkSize) + " in a message of " + std::to_string(bytes.size()));
  decoded.payload = bytes.substr(head, decoded.chunkSize);
  decoded.trailer = bytes.substr(head + decoded.chunkSize);
}

DecodedMessage decodeChartContent(std::string const& bytes) {
  require(bytes.size() >= 12, "a chart content message of " + std::to_string(bytes.size()) + " bytes");
  require(littleEndianAt(bytes, 2, 2) == 0, "the reserved bytes are not 0");
  DecodedMessage decoded{};
  decoded.identifier = 307;
  decoded.type = static_cast<std::uint32_t>(littleEndianAt(bytes, 0, 1));
  decoded.subtype = static_cast<unsigned int>(littleEndianAt(bytes, 1, 1));
  decoded.chunkSize = wordAt(bytes, 4);
  readChunk(bytes, 8, 33984, decoded);
  return decoded;
}

DecodedMessage decodeInteractiveContent(std::string const& bytes) {
  require(bytes.size() >= 16, "an interactive content message of " + std::to_string(bytes.size()) + " bytes");
  require(wordAt(bytes, 0) == 1, "the leading word is not 1");
  DecodedMessage decoded{};
  decoded.identifier = 318;
  decoded.type = wordAt(bytes, 4);
  decoded.chunkSize = wordAt(bytes, 8);
  readChunk(bytes, 12, 33980, decoded);
  return decoded;
}

bool belongsTo(DecodedContent const& content, DecodedMessage const& message) {
  std::uint32_t const full = message.identifier == 307 ? 33984 : 33980;
  return content.chunkSizes.back() == full && content.identifier == message.identifier &&
         content.type == message.type && content.subtype == message.subtype;
}

}  // namespace

std::uint64_t littleEndianAt(std::string const& bytes, std::size_t offset, std::size_t width) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < width; ++i) {
    value |= std::uint64_t{static_cast<unsigned char>(bytes.at(offset + i))} << (8 * i);
  }
  return value;
}

DecodedMessage decodeMessage(host::Message const& message) {
  if (message.identifier == 307) return decodeChartContent(message.bytes);
  if (message.identifier == 318) return decodeInteractiveContent(message.bytes);
  throw std::runtime_error("no message of ours: " + std::to_string(message.identifier));
}

std::vector<DecodedContent> decodeContents(std::vector<host::Message> const& messages) {
  std::vector<DecodedContent> contents;
  for (host::Message const& message : messages) {
    DecodedMessage const decoded = decodeMessage(message);
    if (contents.empty() || !belongsTo(contents.back(), decoded)) {
      contents.push_back({decoded.identifier, decoded.type, decoded.subtype, {}, {}});
    }
    contents.back().chunkSizes.push_back(decoded.chunkSize);
    contents.back().bytes += decoded.payload;
  }
  return contents;
}

std::vector<std::uint32_t> typesOf(std::vector<DecodedContent> const& contents) {
  std::vector<std::uint32_t> types(contents.size());
  std::transform(contents.begin(), contents.end(), types.begin(),
                 [](DecodedContent const& content) { return content.type; });
  return types;
}

DecodedContent onlyContent(std::vector<DecodedContent> const& contents, std::uint32_t type) {
  DecodedContent const* found = nullptr;
  for (DecodedContent const& content : contents) {
    if (content.type != type) continue;
    require(found == nullptr, "two contents of type " + std::to_string(type));
    found = &content;
  }
  require(found != nullptr, "no content of type " + std::to_string(type));
  return *found;
}

std::vector<host::Message> decodeCapture(std::string const& bytes) {
  require(bytes.substr(0, 8) == "KCAP0001", "no capture");
  std::vector<host::Message> messages;
  for (std::size_t at = 8; at < bytes.size();) {
    require(bytes.size() - at >= 16, "the capture is cut in the head of a message");
    auto const identifier = static_cast<std::int64_t>(littleEndianAt(bytes, at, 8));
    std::uint64_t const length = littleEndianAt(bytes, at + 8, 8);
    require(length <= bytes.size() - at - 16, "the capture is cut in a message");
    messages.push_back({identifier, bytes.substr(at + 16, static_cast<std::size_t>(length))});
    at += 16 + static_cast<std::size_t>(length);
  }
  return messages;
}

std::string inflated(std::string const& bytes) {
  std::string text;
  require(host::decompress(bytes, text), "no zlib stream");
  return text;
}

}  // namespace kestrel::test
