#include "text_file.h"

#include "kestrelhost/files.h"

namespace kestrel::host {

namespace {

constexpr std::uint64_t largestTable = std::uint64_t{1} << 24;

std::string unescaped(std::string_view field) {
  std::string result;
  for (std::size_t at = 0; at < field.size(); ++at) {
    char const next = field[at] == '\\' && at + 1 < field.size() ? field[at + 1] : '\0';
    char const meant = next == 'n' ? '\n' : next == 't' ? '\t' : next == '\\' ? '\\' : '\0';
    result += meant != '\0' ? meant : field[at];
    if (meant != '\0') ++at;
  }
  return result;
}

}  // namespace

TextFile::TextFile(std::string_view content) {
  for (std::size_t start = 0; start < content.size();) {
    std::size_t const end = std::min(content.find('\n', start), content.size());
    std::string_view line = content.substr(start, end - start);
    start = end + 1;
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    std::size_t const tab = line.find('\t');
    if (line.empty() || line.front() == '#' || tab == std::string_view::npos) continue;
    mRows.try_emplace(unescaped(line.substr(0, tab)), Row{unescaped(line.substr(tab + 1)), mRows.size()});
  }
}

bool TextFile::find(std::string const& key, std::string& text, unsigned long& index) const {
  auto const found = mRows.find(key);
  if (found == mRows.end()) return false;
  text = found->second.text;
  index = found->second.index;
  return true;
}

std::shared_ptr<TextFile const> TextFileCache::get(std::string const& path) {
  auto const known = mFiles.find(path);
  if (known != mFiles.end()) return known->second;
  std::string const content = LocalFiles({}, largestTable).fetch(path, true, true);
  auto file = content.empty() ? nullptr : std::make_shared<TextFile const>(content);
  mFiles.emplace(path, file);
  return file;
}

}  // namespace kestrel::host
