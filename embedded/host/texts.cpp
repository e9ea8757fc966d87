#include "local_code_page.h"
#include "text_file.h"

#include "host/text.h"
#include "kestrelhost/host.h"

#include <unordered_map>

namespace kestrel::host {

namespace {

class FileTable : public TextTable {
 public:
  FileTable(std::shared_ptr<TextFileCache> files, std::string path)
      : mFiles(std::move(files)), mPath(std::move(path)) {}

  void setProcedure(std::string const& procedure) override {
    bool const plain = !procedure.empty() && procedure.find_first_of("./\\") == std::string::npos &&
                       procedure.find('\0') == std::string::npos;
    mFile = plain ? mFiles->get(mPath + procedure + ".txt") : nullptr;
  }

  bool find(std::string const& key, std::string& text, unsigned long& index) override {
    return mFile && mFile->find(key, text, index);
  }

 private:
  std::shared_ptr<TextFileCache> mFiles;
  std::string mPath;
  std::shared_ptr<TextFile const> mFile;
};

class FixedTable : public TextTable {
 public:
  explicit FixedTable(std::map<std::string, std::string> const& texts) : mTexts(texts) {}

  void setProcedure(std::string const&) override {}

  bool find(std::string const& key, std::string& text, unsigned long& index) override {
    auto const found = mTexts.find(key);
    if (found == mTexts.end()) return false;
    text = found->second;
    index = static_cast<unsigned long>(std::distance(mTexts.begin(), found));
    return true;
  }

 private:
  std::map<std::string, std::string> mTexts;
};

}  // namespace

TextTable::~TextTable() = default;
Texts::~Texts() = default;

FolderTexts::FolderTexts() : mFiles(std::make_shared<TextFileCache>()) {}
FolderTexts::~FolderTexts() = default;

std::unique_ptr<TextTable> FolderTexts::open(std::string const& path) {
  bool const complete = !path.empty() && path.back() == '/';
  return std::make_unique<FileTable>(mFiles, complete ? path : path + '/');
}

std::unique_ptr<TextTable> FixedTexts::open(std::string const&) {
  return std::make_unique<FixedTable>(texts);
}

}  // namespace kestrel::host

class FacSTDictionary::Table {
 public:
  explicit Table(std::unique_ptr<kestrel::host::TextTable> opened) : table(std::move(opened)) {}

  std::unique_ptr<kestrel::host::TextTable> table;
};

FacSTDictionary::FacSTDictionary(std::string const& path)
    : mTable(std::make_unique<Table>(kestrel::host::Host::current().texts->open(path))) {}

FacSTDictionary::~FacSTDictionary() = default;

void FacSTDictionary::SetProcedure(std::string const& procedure) { mTable->table->setProcedure(procedure); }

std::string FacSTDictionary::LookUp(std::string const& key) {
  unsigned long index = 0;
  return LookUp(key, index);
}

std::string FacSTDictionary::LookUp(std::string const& key, unsigned long& index) {
  std::string text;
  if (!mTable->table->find(key, text, index)) return key;
  return kestrel::host::toLocalCodePage(text);
}
