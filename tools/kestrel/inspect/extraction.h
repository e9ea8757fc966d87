#pragma once

#include "byte_budget.h"
#include "contents.h"

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel::tool {

/// Writes the contents of sends into files of a folder: of one send into the folder itself, of several into
/// folders "1", "2" and so on within it. A content that is cut or does not decompress is left out, and so
/// is a name without its content. What was announced stands in sizes.json. Gives the names of what it wrote,
/// with those folders. Throws a Problem where something cannot be written, or the budget is too small for it:
/// the files before it are whole then.
std::vector<std::string> extract(std::vector<Send> const& sends, std::filesystem::path const& folder,
                                 ByteBudget& budget);

}  // namespace kestrel::tool
