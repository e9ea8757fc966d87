#include "capture_builder.h"

#include "host/channel.h"
#include "host/data_store.h"

#include <memory>

std::string littleEndian(std::uint64_t value, std::size_t width) {
  std::string bytes;
  for (std::size_t i = 0; i < width; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

std::string compressedText(std::string const& text) {
  std::string result;
  zlib1213vexa::compressString(text, result);
  return result;
}

std::string dataStream(unsigned int rows) {
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  store.AddVariable("source0", "a", nullptr);
  for (unsigned int row = 0; row < rows; ++row) store.SetVariableValue("source0", "a", row, row);
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
  return {reinterpret_cast<char const*>(stream.get()), size};
}

CaptureBuilder& CaptureBuilder::put(std::int64_t identifier, std::string const& bytes) {
  mBytes += littleEndian(static_cast<std::uint64_t>(identifier), 8) + littleEndian(bytes.size(), 8) + bytes;
  return *this;
}

CaptureBuilder& CaptureBuilder::chunk(unsigned int type, std::string const& payload, unsigned int subtype) {
  return put(307, littleEndian(type, 1) + littleEndian(subtype, 1) + littleEndian(0, 2) +
                      littleEndian(payload.size(), 4) + payload + littleEndian(0, 4));
}

CaptureBuilder& CaptureBuilder::content(unsigned int type, std::string const& payload, unsigned int subtype) {
  for (std::size_t at = 0; at < payload.size(); at += 33984) chunk(type, payload.substr(at, 33984), subtype);
  return *this;
}

CaptureBuilder& CaptureBuilder::interactive(unsigned int type, std::string const& payload) {
  for (std::size_t at = 0; at < payload.size(); at += 33980) {
    std::string const part = payload.substr(at, 33980);
    std::string message = littleEndian(1, 4);
    message.append(littleEndian(type, 4)).append(littleEndian(part.size(), 4)).append(part);
    put(318, message.append(4, '\0'));
  }
  return *this;
}

CaptureBuilder& CaptureBuilder::chartText(std::string const& text) {
  std::string const compressed = compressedText(text);
  return content(2, std::string(text.size(), '\0'))
      .content(4, std::string(compressed.size(), '\0'))
      .content(1, compressed);
}
