#pragma once

#include "kestrelhost/templates.h"

#include <string>

namespace kestrel::host {

/// Puts the data into the chart text: each source of the data stream becomes an `embeddedSource` with its
/// columns and rows, as docs/guide/lumoml.md tells. The text is in the encoding that is asked for, UTF-8
/// where none is; what it has no character for is a character reference. Empty where the chart does not
/// decompress or is not well-formed, the stream is no data stream, or the encoding is unknown.
class VEXA_API EmbeddedDataDump : public DataDump {
 public:
  std::string join(std::string const& compressedXml, unsigned char const* stream, unsigned long size,
                   char16_t const* encoding) override;
};

}  // namespace kestrel::host
