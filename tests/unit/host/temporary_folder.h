#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

/// A folder that is there for one test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "kestrel-").string() + std::string(6, 'X');
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    mPath = pattern;
  }
  ~TemporaryFolder() { std::filesystem::remove_all(mPath); }
  TemporaryFolder(TemporaryFolder const&) = delete;
  TemporaryFolder& operator=(TemporaryFolder const&) = delete;

  std::string path() const { return mPath.string(); }
  std::string operator/(std::string const& name) const { return (mPath / name).string(); }

  std::string write(std::string const& name, std::string const& content) const {
    std::filesystem::create_directories((mPath / name).parent_path());
    std::ofstream(mPath / name, std::ios::binary) << content;
    return *this / name;
  }

 private:
  std::filesystem::path mPath;
};

inline std::string contentOf(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Sets or, with null, removes an environment variable for one test.
class ScopedVariable {
 public:
  ScopedVariable(char const* name, char const* value) : mName(name) {
    char const* const before = std::getenv(name);
    mWasSet = before != nullptr;
    if (mWasSet) mBefore = before;
    set(value);
  }
  ~ScopedVariable() { set(mWasSet ? mBefore.c_str() : nullptr); }
  ScopedVariable(ScopedVariable const&) = delete;
  ScopedVariable& operator=(ScopedVariable const&) = delete;

 private:
  void set(char const* value) {
    if (value != nullptr) {
      ::setenv(mName.c_str(), value, 1);
    } else {
      ::unsetenv(mName.c_str());
    }
  }

  std::string mName;
  bool mWasSet;
  std::string mBefore;
};
