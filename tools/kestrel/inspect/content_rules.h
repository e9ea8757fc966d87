#pragma once

#include "contents.h"

#include <optional>
#include <string>
#include <vector>

namespace kestrel::tool {

/// The content with its compression undone; nothing where it is no whole zlib stream, or would become longer
/// than `limit`.
std::optional<std::string> decompressed(Content const& content, std::size_t limit);

/// How long a compressed content of the send may become: what was announced, or else a usual limit.
std::size_t decompressionLimit(Send const& send, Content const& content);

/// Checks what each content of a send holds, and the sizes that were announced.
void checkContents(Send const& send, std::vector<Fault>& faults);

}  // namespace kestrel::tool
