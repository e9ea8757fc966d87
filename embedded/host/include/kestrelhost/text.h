#pragma once

#include "host/export.h"

#include <map>
#include <memory>
#include <string>

namespace kestrel::host {

class TextFileCache;

/// A dictionary that was opened. Keys and texts are in UTF-8.
class VEXA_API TextTable {
 public:
  virtual ~TextTable();

  /// Chooses the part of the table that keys are looked up in.
  virtual void setProcedure(std::string const& procedure) = 0;
  /// False for a key that the table does not know: both arguments then stay as they were. `index` is the
  /// key's position among those of its procedure.
  virtual bool find(std::string const& key, std::string& text, unsigned long& index) = 0;
};

/// The translated texts of the host.
class VEXA_API Texts {
 public:
  virtual ~Texts();

  /// Opens the dictionary in a folder; never null.
  virtual std::unique_ptr<TextTable> open(std::string const& path) = 0;
};

/// Dictionaries are files `<folder>/<procedure>.txt`. A line holds a key, a tab and the text, in UTF-8, where
/// `\n`, `\t` and `\\` stand for a line feed, a tab and a backslash; lines that start with `#` or hold no tab
/// are skipped. Of a key that is there twice the first line counts. A procedure that is not a plain name, or
/// has no such file, knows no key. A file is read once, when it is first needed.
class VEXA_API FolderTexts : public Texts {
 public:
  FolderTexts();
  ~FolderTexts() override;

  std::unique_ptr<TextTable> open(std::string const& path) override;

 private:
  std::shared_ptr<TextFileCache> mFiles;
};

/// The same texts for every folder and procedure.
class VEXA_API FixedTexts : public Texts {
 public:
  std::unique_ptr<TextTable> open(std::string const& path) override;

  /// The texts by key.
  std::map<std::string, std::string> texts;
};

}  // namespace kestrel::host
