#pragma once

#include "inspection.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrel::tool {

/// A message as a listing shows it.
struct ListedMessage {
  WireMessage const* message;
  std::string typeName;
  /// Eight hexadecimal digits.
  std::string trailer;
  /// Bytes of its content up to and with this message.
  std::size_t total;
};

std::vector<ListedMessage> listMessages(Inspection const& inspection);

/// The listing of a capture for a reader, with the cells of the first `mostCells` rows of each data source.
std::string textListing(std::string const& name, Inspection const& inspection, std::size_t mostCells);

/// The same for programs, with the files that were extracted.
std::string jsonListing(std::string const& name, Inspection const& inspection, std::size_t mostCells,
                        std::vector<std::string> const& written);

}  // namespace kestrel::tool
