// A table of texts of any content: every key gives a text, and an unknown one itself.

#include "kestrelhost/text.h"

#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

/// A folder for as long as the process runs.
class Folder {
 public:
  Folder() : mPath(std::filesystem::temp_directory_path() / ("kestrel-texts-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(mPath);
  }
  ~Folder() { std::filesystem::remove_all(mPath); }
  Folder(Folder const&) = delete;
  Folder& operator=(Folder const&) = delete;

  std::string path() const { return mPath.string() + "/"; }

 private:
  std::filesystem::path mPath;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  static Folder const folder;
  std::string const content(reinterpret_cast<char const*>(data), size);
  std::ofstream(folder.path() + "GRAPH.txt", std::ios::binary) << content;
  auto const table = kestrel::host::FolderTexts().open(folder.path());
  table->setProcedure("GRAPH");
  std::string text = "untouched";
  unsigned long index = 77;
  std::string const first = content.substr(0, content.find_first_of("\t\n\r\\"));
  bool const isKey =
      content.size() > first.size() && content[first.size()] == '\t' && !first.empty() && first[0] != '#';
  bool const found = table->find(first, text, index);
  if (isKey && (!found || index != 0)) std::abort();
  if (!found && (text != "untouched" || index != 77)) std::abort();
  return 0;
}
