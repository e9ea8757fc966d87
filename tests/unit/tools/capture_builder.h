#pragma once

#include <cstdint>
#include <string>

/// Makes the bytes of a capture by hand.
class CaptureBuilder {
 public:
  /// A message as it stands.
  CaptureBuilder& put(std::int64_t identifier, std::string const& bytes);

  /// A chart content message: the payload, and zeros as trailer.
  CaptureBuilder& chunk(unsigned int type, std::string const& payload, unsigned int subtype = 0);

  /// Content in as many messages as it needs.
  CaptureBuilder& content(unsigned int type, std::string const& payload, unsigned int subtype = 0);

  /// The same in interactive messages.
  CaptureBuilder& interactive(unsigned int type, std::string const& payload);

  /// The announcement of a chart text's two sizes, and the chart text.
  CaptureBuilder& chartText(std::string const& text);

  CaptureBuilder& endRecord() { return content(3, std::string("\0\0\0\0\x01\0\0\0", 8)); }

  std::string const& bytes() const { return mBytes; }

 private:
  std::string mBytes = "KCAP0001";
};

std::string littleEndian(std::uint64_t value, std::size_t width);
std::string compressedText(std::string const& text);
/// A data stream of one source, with a column "a" that has that many rows.
std::string dataStream(unsigned int rows);
