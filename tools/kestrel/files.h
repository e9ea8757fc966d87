#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace kestrel::tool {

/// The bytes of a file. Throws a Problem of bad input where it cannot be read.
std::string readFile(std::string const& path);

/// Makes a folder and those above it, where they are not there yet. Throws a Problem where that fails.
void makeFolder(std::filesystem::path const& folder);

/// Writes a new file in place of an old one of that name. A symbolic link of that name is replaced, never
/// followed. Throws a Problem where that fails.
void writeFile(std::filesystem::path const& path, std::string_view bytes);

/// Moves a finished file to its name. Throws a Problem where that fails.
void moveFile(std::filesystem::path const& from, std::filesystem::path const& to);

/// Writes to standard output and flushes it. Throws a Problem where that fails.
void print(std::string_view text);

}  // namespace kestrel::tool
