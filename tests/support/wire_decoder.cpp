#include "wire_decoder.h"

#include <zlib.h>

#include <algorithm>
#include <array>
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
  z_stream stream{};
  require(inflateInit(&stream) == Z_OK, "no memory for zlib");
  // zlib reads its input through a pointer that is not const.
  std::string input = bytes;
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  std::string text;
  std::array<char, 1 << 16> part{};
  int result = Z_OK;
  while (result == Z_OK) {
    stream.next_out = reinterpret_cast<Bytef*>(part.data());
    stream.avail_out = static_cast<uInt>(part.size());
    result = ::inflate(&stream, Z_NO_FLUSH);
    text.append(part.data(), part.size() - stream.avail_out);
  }
  bool const whole = result == Z_STREAM_END && stream.avail_in == 0;
  inflateEnd(&stream);
  require(whole, "no zlib stream, or something behind it");
  return text;
}

std::size_t announced(std::vector<DecodedContent> const& contents, std::uint32_t type) {
  std::vector<std::uint32_t> const types = typesOf(contents);
  if (std::find(types.begin(), types.end(), type) == types.end()) return 0;
  std::string const& bytes = onlyContent(contents, type).bytes;
  require(bytes.find_first_not_of('\0') == std::string::npos, "an announcement is not zeros");
  return bytes.size();
}

EndRecord endRecord(std::vector<DecodedContent> const& contents) {
  std::string const& bytes = onlyContent(contents, 3).bytes;
  require(bytes.size() == 8, "an end record of " + std::to_string(bytes.size()) + " bytes");
  return {wordAt(bytes, 0), wordAt(bytes, 4)};
}

MapRecord mapRecord(std::vector<DecodedContent> const& contents) {
  std::string const& bytes = onlyContent(contents, 10).bytes;
  std::size_t at = 2;
  auto const take = [&](std::size_t width) {
    auto const length = static_cast<std::size_t>(littleEndianAt(bytes, at, width));
    at += width;
    require(length <= bytes.size() - at, "the map record is cut");
    at += length;
    return bytes.substr(at - length, length);
  };
  require(littleEndianAt(bytes, 0, 2) == 1, "the version of the map record is not 1");
  MapRecord record;
  record.dataMap = take(4);
  record.dataMapName = take(2);
  record.referenceMap = take(4);
  record.referenceMapName = take(2);
  require(at == bytes.size(), "something stands behind the map record");
  return record;
}

}  // namespace kestrel::test
