#include "host/files.h"

#include "descriptor.h"

#include "kestrelhost/host.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace kestrel::host {

namespace {

/// Opens a name below a root, component by component, and follows no link, so that nobody can lead it out of
/// the root while it looks.
Descriptor openBelow(std::string const& root, std::string const& name) {
  Descriptor folder(::open(root.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  std::size_t start = 0;
  while (folder.valid()) {
    start = name.find_first_not_of('/', start);
    if (start == std::string::npos) return Descriptor();
    std::size_t const end = std::min(name.find('/', start), name.size());
    std::string const component = name.substr(start, end - start);
    bool const last = name.find_first_not_of('/', end) == std::string::npos;
    if (component == "..") return Descriptor();
    int const kind = last ? O_NONBLOCK : O_DIRECTORY;
    Descriptor next(::openat(folder.get(), component.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC | kind));
    if (last) return next;
    folder = std::move(next);
    start = end;
  }
  return Descriptor();
}

std::string readRegular(Descriptor const& file, std::uint64_t limit) {
  struct stat status {};
  if (!file.valid() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
  auto const size = static_cast<std::uint64_t>(std::max<off_t>(status.st_size, 0));
  if (size > limit) return {};
  std::string content;
  std::size_t filled = 0;
  while (true) {
    // One byte more than expected: a file that has grown shows, and so does the end of one that has not.
    if (filled == content.size()) content.resize(std::max<std::size_t>(size + 1, 2 * filled));
    ssize_t const got = ::read(file.get(), content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return {};
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
    if (filled > limit) return {};
  }
  content.resize(filled);
  return content;
}

}  // namespace

Files::~Files() = default;

LocalFiles::LocalFiles(std::string root, std::uint64_t limit) : mRoot(std::move(root)), mLimit(limit) {}

std::string LocalFiles::fetch(std::string const& name, bool, bool) {
  if (name.empty() || name.find('\0') != std::string::npos) return {};
  if (!mRoot.empty()) return readRegular(openBelow(mRoot, name), mLimit);
  // Without O_NONBLOCK a named pipe would hold the caller up before it is seen to be none of ours.
  return readRegular(Descriptor(::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)), mLimit);
}

std::string MemoryFiles::fetch(std::string const& name, bool, bool) {
  auto const found = content.find(name);
  return found != content.end() ? found->second : std::string();
}

}  // namespace kestrel::host

FetchFile::FetchFile() = default;
FetchFile::~FetchFile() = default;

std::string FetchFile::fetch(std::string const& name, bool first, bool second) const {
  return kestrel::host::Host::current().files->fetch(name, first, second);
}
