#include "kestrelhost/dumps.h"

#include "descriptor.h"

#include "kestrelhost/host.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdlib>

namespace kestrel::host {

namespace {

constexpr std::size_t longestPart = 100;

std::string safe(std::string const& part) {
  std::string result = part.substr(0, longestPart);
  for (char& character : result) {
    bool const letter = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
    bool const digit = character >= '0' && character <= '9';
    if (!letter && !digit && character != '.' && character != '-' && character != '_') character = '_';
  }
  return result;
}

bool writeAll(Descriptor const& file, std::string const& content) {
  for (std::size_t written = 0; written < content.size();) {
    ssize_t const count = ::write(file.get(), content.data() + written, content.size() - written);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    written += static_cast<std::size_t>(count);
  }
  return true;
}

bool writeFile(std::string const& folder, std::string const& name, std::string const& content) {
  Descriptor const place(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!place.valid()) return false;
  constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
  Descriptor const file(::openat(place.get(), name.c_str(), flags, S_IRUSR | S_IWUSR));
  // The mode above is for a new file only.
  return file.valid() && ::fchmod(file.get(), S_IRUSR | S_IWUSR) == 0 && writeAll(file, content);
}

std::string environmentFolder() {
  char const* const folder = std::getenv("DumpChartXMLPath");
  struct stat status {};
  bool const usable = folder != nullptr && ::stat(folder, &status) == 0 && S_ISDIR(status.st_mode);
  return usable ? folder : "";
}

}  // namespace

Dumps::~Dumps() = default;

FolderDumps::FolderDumps(std::string folder, std::optional<Categories> categories)
    : mFolder(std::move(folder)), mCategories(std::move(categories)) {}

bool FolderDumps::wanted(ChartBase::PRINTTYPE type) { return !mCategories || mCategories->count(type) != 0; }

void FolderDumps::print(std::string const& content, std::string const& prefix, std::string const& suffix,
                        unsigned long number, ChartBase::PRINTTYPE type) {
  if (!wanted(type)) return;
  std::string const name = safe(prefix) + std::to_string(number) + safe(suffix);
  if (!writeFile(mFolder, name, content)) Host::current().log->note("could not write the dump " + name);
}

bool EnvironmentDumps::wanted(ChartBase::PRINTTYPE) { return !environmentFolder().empty(); }

void EnvironmentDumps::print(std::string const& content, std::string const& prefix, std::string const& suffix,
                             unsigned long number, ChartBase::PRINTTYPE type) {
  std::string const folder = environmentFolder();
  if (!folder.empty()) FolderDumps(folder).print(content, prefix, suffix, number, type);
}

bool NoDumps::wanted(ChartBase::PRINTTYPE type) { return categories.count(type) != 0; }

void NoDumps::print(std::string const&, std::string const&, std::string const&, unsigned long,
                    ChartBase::PRINTTYPE) {}

}  // namespace kestrel::host
