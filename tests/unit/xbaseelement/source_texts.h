#pragma once

#include <regex>
#include <set>
#include <string>

namespace kestrel::test {

/// The first group of every match in the sources of the library.
std::set<std::string> matchesInTheSources(std::regex const& wanted);

}  // namespace kestrel::test
