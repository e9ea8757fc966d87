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

/// The listing of a capture for a reader.
std::string textListing(std::string const& name, Inspection const& inspection);

/// The same for programs, with the files that were extracted.
std::string jsonListing(std::string const& name, Inspection const& inspection,
                        std::vector<std::string> const& written);

}  // namespace kestrel::tool
