#pragma once

#include "export.h"

#include <memory>
#include <string>

/// A table of texts in one language. Keys are in UTF-8, texts in the local code page.
class VEXA_API FacSTDictionary {
 public:
  /// Opens the table in that folder. A folder with no table gives a dictionary that knows no key.
  explicit FacSTDictionary(std::string const& path);
  ~FacSTDictionary();
  FacSTDictionary(FacSTDictionary const&) = delete;
  FacSTDictionary& operator=(FacSTDictionary const&) = delete;

  /// Chooses the part of the table that keys are looked up in.
  void SetProcedure(std::string const& procedure);

  /// The text of a key, or the key itself where the table does not know it.
  std::string LookUp(std::string const& key);

  /// The same; `index` becomes the position of the key in the table, and stays as it was for an unknown key.
  std::string LookUp(std::string const& key, unsigned long& index);

 private:
  class Table;
  std::unique_ptr<Table> mTable;
};
