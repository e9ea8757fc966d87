#pragma once

#include "host/export.h"

#include <cstdint>
#include <map>
#include <string>

namespace kestrel::host {

/// Files by name.
class VEXA_API Files {
 public:
  virtual ~Files();

  /// The bytes of a file, or nothing where it cannot be read.
  virtual std::string fetch(std::string const& name, bool first, bool second) = 0;
};

/// The local file system. Only regular files are read, and only up to a size. With a root, a name is taken
/// below it, whether or not it starts with a slash, and one that leads out of it, by `..` or by a symbolic
/// link, is not read.
class VEXA_API LocalFiles : public Files {
 public:
  /// 1 GiB.
  static constexpr std::uint64_t usualLimit = std::uint64_t{1} << 30;

  /// An empty root stands for none. The limit is in bytes.
  explicit LocalFiles(std::string root = {}, std::uint64_t limit = usualLimit);

  std::string fetch(std::string const& name, bool first, bool second) override;

 private:
  std::string mRoot;
  std::uint64_t mLimit;
};

/// Files that were put into memory.
class VEXA_API MemoryFiles : public Files {
 public:
  std::string fetch(std::string const& name, bool first, bool second) override;

  /// The bytes by name; a name that is not here is a file that cannot be read.
  std::map<std::string, std::string> content;
};

}  // namespace kestrel::host
