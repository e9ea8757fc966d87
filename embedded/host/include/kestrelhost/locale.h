#pragma once

#include "host/export.h"

#include <string>

namespace kestrel::host {

/// The host's language and locale.
class VEXA_API Locale {
 public:
  virtual ~Locale();

  /// Lower case, with a dash before a region: "en", "zh-tw".
  virtual std::string languageCode() = 0;
  /// Such as "en_US.UTF-8", or empty where there is none.
  virtual std::string localeName() = 0;
  /// The code page of narrow text, by its ICU name.
  virtual std::string codePage() = 0;
};

/// From the environment variables LC_ALL, LC_MESSAGES and LANG, of which the first that is not empty counts.
/// "C" and "POSIX" are English. Of a region only Chinese tells, and its writing alone: "zh-tw" for Taiwan,
/// Hong Kong, Macau and "zh_Hant", else "zh-cn". The code page is UTF-8.
class VEXA_API EnvironmentLocale : public Locale {
 public:
  std::string languageCode() override;
  std::string localeName() override;
  std::string codePage() override;
};

/// A locale that is what it is told to be.
class VEXA_API FixedLocale : public Locale {
 public:
  std::string languageCode() override;
  std::string localeName() override;
  std::string codePage() override;

  /// @{
  /// What the operations answer.
  std::string language = "en";
  std::string name = "en_US.UTF-8";
  std::string page = "UTF-8";
  /// @}
};

/// Where the product keeps what it reads.
class VEXA_API Paths {
 public:
  virtual ~Paths();

  /// Ends with a slash. Callers pass the kind 3.
  virtual std::string basePath(int kind) = 0;
  /// Begins with the base path; what follows, up to the next slash, is the folder of the language.
  virtual std::string dictionaryPath(int kind) = 0;
};

/// The share folder of kestrel: the one that the environment variable KESTREL_SHARE names, or that of the
/// installed tree, which is found from the place of this library, or that of the source tree. The language is
/// the current host's.
class VEXA_API SharePaths : public Paths {
 public:
  std::string basePath(int kind) override;
  /// The language's folder. Where there is none: for Chinese that of the region's writing, then that of the
  /// code without its last part ("pt" for "pt-br"), at last the English one. Folders have the names of the
  /// language codes, but for "zh-tw", whose folder is "zh_tw".
  std::string dictionaryPath(int kind) override;
};

/// Paths that are what they are told to be.
class VEXA_API FixedPaths : public Paths {
 public:
  std::string basePath(int kind) override;
  std::string dictionaryPath(int kind) override;

  /// @{
  /// What the operations answer, whatever the kind.
  std::string base = "/base/";
  std::string dictionary = "/base/en/";
  /// @}
};

}  // namespace kestrel::host
