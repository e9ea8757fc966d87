#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kestrel::host {

/// A table of texts by key, as it stands in a file.
class TextFile {
 public:
  explicit TextFile(std::string_view content);

  /// False for an unknown key: both arguments then stay as they were.
  bool find(std::string const& key, std::string& text, unsigned long& index) const;

 private:
  struct Row {
    std::string text;
    unsigned long index;
  };
  std::unordered_map<std::string, Row> mRows;
};

/// Tables of texts, each read once.
class TextFileCache {
 public:
  /// Null where there is no such file.
  std::shared_ptr<TextFile const> get(std::string const& path);

 private:
  std::map<std::string, std::shared_ptr<TextFile const>> mFiles;
};

}  // namespace kestrel::host
