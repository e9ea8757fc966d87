#pragma once

#include "export.h"

#include <string>

/// Reads the files that a chart names: templates, CSV files, charts, maps.
class VEXA_API FetchFile {
 public:
  FetchFile();
  ~FetchFile();

  /// The file's bytes, or nothing where it cannot be read. Both flags are true.
  std::string fetch(std::string const& name, bool first, bool second) const;
};

/// Where the product keeps what it reads.
class VEXA_API PathInstance {
 public:
  virtual ~PathInstance();

  /// The base folder, with a slash at its end.
  virtual std::string getBasePath() const = 0;

  /// The folder of the dictionaries. It begins with the base path, and what follows is the language's folder,
  /// up to the next slash.
  virtual std::string getDictionaryPath() const = 0;
};

/// The way to the paths of the product.
class VEXA_API PathFactory {
 public:
  /// The host's paths, which the host keeps; the argument is 3.
  static PathInstance* getPathInstance(int kind);
};
