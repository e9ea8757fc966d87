#include "files.h"

#include "problem.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

namespace kestrel::tool {

namespace {

namespace fs = std::filesystem;

struct Closer {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

std::string reason(int error) { return std::generic_category().message(error); }

Problem notWritten(fs::path const& path, std::string const& what) {
  return {path.string() + ": " + what + "; choose another place", Exit::NotWritten};
}

std::string readAll(std::FILE* file) {
  constexpr std::size_t step = 1 << 16;
  std::string bytes;
  for (std::size_t got = step; got == step;) {
    std::size_t const before = bytes.size();
    bytes.resize(before + step);
    got = std::fread(bytes.data() + before, 1, step, file);
    bytes.resize(before + got);
  }
  return bytes;
}

/// Makes way for a new file, but never for one in place of a folder.
void removeOldFile(fs::path const& path) {
  std::error_code ignored;
  fs::file_type const type = fs::symlink_status(path, ignored).type();
  if (type == fs::file_type::regular || type == fs::file_type::symlink) fs::remove(path, ignored);
}

}  // namespace

std::string readFile(std::string const& path) {
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) throw badInput(path, "is a folder; give the name of a file");
  File const file(std::fopen(path.c_str(), "rbe"));
  if (!file)
    throw badInput(path, "cannot be read: " + reason(errno) + "; check the name and the permissions");
  std::string bytes = readAll(file.get());
  if (std::ferror(file.get()) != 0) throw badInput(path, "cannot be read to its end: " + reason(errno));
  return bytes;
}

void makeFolder(fs::path const& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) throw notWritten(folder, "cannot make this folder: " + error.message());
  if (!fs::is_directory(folder, error)) throw notWritten(folder, "is no folder");
}

void writeFile(fs::path const& path, std::string_view bytes) {
  removeOldFile(path);
  File file(std::fopen(path.c_str(), "wbxe"));
  if (!file && errno == EEXIST)
    throw notWritten(path, "is there already, and is no file that could be replaced");
  if (!file) throw notWritten(path, "cannot be made: " + reason(errno));
  bool const written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size();
  int const error = errno;
  bool const closed = std::fclose(file.release()) == 0;
  if (!written || !closed) throw notWritten(path, "cannot be written: " + reason(written ? errno : error));
}

void moveFile(fs::path const& from, fs::path const& to) {
  std::error_code error;
  fs::rename(from, to, error);
  if (error) throw notWritten(to, "cannot be made: " + error.message());
}

void print(std::string_view text) {
  bool const written =
      std::fwrite(text.data(), 1, text.size(), stdout) == text.size() && std::fflush(stdout) == 0;
  if (!written) throw Problem("standard output cannot be written: " + reason(errno), Exit::NotWritten);
}

}  // namespace kestrel::tool
