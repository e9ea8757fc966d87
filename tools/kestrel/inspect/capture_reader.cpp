#include "capture_reader.h"

#include <utility>

namespace kestrel::tool {

namespace {

constexpr std::size_t headSize = 16;  // identifier and length

std::uint64_t littleEndian(std::string_view bytes, std::size_t width) {
  std::uint64_t value = 0;
  for (std::size_t at = width; at > 0; --at) value = value << 8 | static_cast<unsigned char>(bytes[at - 1]);
  return value;
}

Fault fault(std::size_t offset, std::string text) { return {offset, std::nullopt, std::move(text)}; }

}  // namespace

std::uint16_t shortWord(std::string_view bytes) { return static_cast<std::uint16_t>(littleEndian(bytes, 2)); }

std::uint32_t word(std::string_view bytes) { return static_cast<std::uint32_t>(littleEndian(bytes, 4)); }

std::int64_t longWord(std::string_view bytes) { return static_cast<std::int64_t>(littleEndian(bytes, 8)); }

Capture readCapture(std::string_view bytes) {
  Capture capture;
  if (!bytes.starts_with(captureSignature)) {
    capture.cut = fault(
        0, "this is no capture, which starts with " + std::string(captureSignature) + "; give another file");
    return capture;
  }
  for (std::size_t at = captureSignature.size(); at < bytes.size();) {
    std::string const message = "message " + std::to_string(capture.messages.size() + 1);
    std::size_t const left = bytes.size() - at;
    if (left < headSize) {
      capture.cut =
          fault(at, "the capture is cut: " + std::to_string(headSize) + " bytes that begin " + message +
                        " were expected, there are " + std::to_string(left) + "; make it again");
      break;
    }
    std::int64_t const length = longWord(bytes.substr(at + 8));
    if (length < 0 || static_cast<std::uint64_t>(length) > left - headSize) {
      capture.cut = fault(at + 8, "the capture is cut or corrupt: " + message + " should have " +
                                      std::to_string(length) + " bytes, there are " +
                                      std::to_string(left - headSize) + "; make it again");
      break;
    }
    auto const size = static_cast<std::size_t>(length);
    capture.messages.push_back({capture.messages.size() + 1, at + headSize, longWord(bytes.substr(at)),
                                bytes.substr(at + headSize, size)});
    at += headSize + size;
  }
  return capture;
}

}  // namespace kestrel::tool
