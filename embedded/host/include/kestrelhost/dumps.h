#pragma once

#include "host/chartbase.h"
#include "host/export.h"

#include <optional>
#include <set>
#include <string>

namespace kestrel::host {

/// Where texts are put aside for whoever looks into a failure.
class VEXA_API Dumps {
 public:
  virtual ~Dumps();

  /// Whether dumps of that category are wanted.
  virtual bool wanted(ChartBase::PRINTTYPE type) = 0;
  /// Decides for itself whether the dump is wanted.
  virtual void print(std::string const& content, std::string const& prefix, std::string const& suffix,
                     unsigned long number, ChartBase::PRINTTYPE type) = 0;
};

/// Dumps are files of a folder, named prefix, number, suffix. Characters of a name other than letters,
/// digits, dot, dash and underscore become underscores, so that no name leads out of the folder; a file is
/// readable by its owner only, is replaced if it is there, and is never written through a symbolic link.
class VEXA_API FolderDumps : public Dumps {
 public:
  /// Those that are wanted.
  using Categories = std::set<ChartBase::PRINTTYPE>;

  /// Without categories, all are wanted.
  explicit FolderDumps(std::string folder, std::optional<Categories> categories = std::nullopt);

  bool wanted(ChartBase::PRINTTYPE type) override;
  void print(std::string const& content, std::string const& prefix, std::string const& suffix,
             unsigned long number, ChartBase::PRINTTYPE type) override;

 private:
  std::string mFolder;
  std::optional<Categories> mCategories;
};

/// Dumps go to the folder that the environment variable DumpChartXMLPath names at the time; where it names
/// none there are no dumps.
class VEXA_API EnvironmentDumps : public Dumps {
 public:
  bool wanted(ChartBase::PRINTTYPE type) override;
  void print(std::string const& content, std::string const& prefix, std::string const& suffix,
             unsigned long number, ChartBase::PRINTTYPE type) override;
};

/// Writes nothing; wants what it is told to want.
class VEXA_API NoDumps : public Dumps {
 public:
  bool wanted(ChartBase::PRINTTYPE type) override;
  void print(std::string const& content, std::string const& prefix, std::string const& suffix,
             unsigned long number, ChartBase::PRINTTYPE type) override;

  /// What wanted() is true for.
  std::set<ChartBase::PRINTTYPE> categories;
};

}  // namespace kestrel::host
