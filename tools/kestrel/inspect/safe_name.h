#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace kestrel::tool {

/// A name for a file that came from outside, made so that it names a file in the folder it is put in and
/// nothing else: its last part only, letters, digits, dots, dashes, underscores and what is not ASCII, no dot
/// in front, not too long. `usual` where nothing is left.
std::string safeName(std::string_view name, std::string_view usual);

/// Hands out names, each of them once: a second "a.csv" becomes "a-2.csv". Letters of either case count as
/// the same.
class NameList {
 public:
  std::string take(std::string const& name);

 private:
  std::set<std::string> mTaken;
  std::map<std::string, std::size_t> mNumbers;
};

}  // namespace kestrel::tool
