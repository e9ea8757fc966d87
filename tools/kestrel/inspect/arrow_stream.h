#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

/// What one Arrow stream says of its table.
struct ArrowTable {
  /// Text of the metadata's key "source"; empty where there is none.
  std::string source;
  std::vector<std::string> columns;
  std::int64_t rows = 0;
};

struct ArrowFault {
  std::size_t offset;
  std::string text;
};

struct ArrowStreams {
  std::vector<ArrowTable> tables;
  /// Why reading had to stop, if it did: the tables are those before it.
  std::optional<ArrowFault> fault;
};

/// Reads the frame of Arrow IPC streams that follow each other: the messages of each and the metadata in
/// them, not the cells.
ArrowStreams readArrowStreams(std::string_view bytes);

}  // namespace kestrel::tool
