#include "host/locale.h"

#include "host/files.h"
#include "kestrelhost/host.h"

#include <dlfcn.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace kestrel::host {

namespace {

constexpr char fallbackLocale[] = "en_US.UTF-8";

bool isLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Locale names come from outside and become part of paths: "en_US.UTF-8" and its like, nothing else.
bool isLocaleName(std::string const& name) {
  auto const harmless = [](char character) {
    return isLetter(character) || (character >= '0' && character <= '9') ||
           std::strchr("_-.", character) != nullptr;
  };
  return name.size() >= 2 && isLetter(name[0]) && isLetter(name[1]) &&
         std::all_of(name.begin(), name.end(), harmless);
}

std::string environmentLocale() {
  for (char const* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    char const* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    std::string name = value;
    name.resize(std::min(name.find('@'), name.size()));
    bool const neutral = name == "POSIX" || name.rfind("C.", 0) == 0;
    return isLocaleName(name) && !neutral ? name : fallbackLocale;
  }
  return fallbackLocale;
}

std::string lowerCase(std::string text) {
  for (char& character : text) {
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character - 'A' + 'a');
  }
  return text;
}

constexpr char separators[] = "_-.";

/// The first part of a locale name.
std::string firstPartOf(std::string const& name) { return name.substr(0, name.find_first_of(separators)); }

/// Which of the two writings of Chinese the region or the script says, of a name in lower case.
bool isTraditional(std::string const& chinese) {
  std::size_t const next = chinese.find_first_of(separators);
  std::string const part = next != std::string::npos ? firstPartOf(chinese.substr(next + 1)) : std::string();
  return part == "tw" || part == "hk" || part == "mo" || part == "hant";
}

bool isFolder(std::string const& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The folder `share/kestrel` beside the folder that this library lies in, or nothing.
std::string shareBesideLibrary() {
  Dl_info library{};
  if (::dladdr(reinterpret_cast<void const*>(&VexaMBDefaultLocaleName_A), &library) == 0) return {};
  std::string const file = library.dli_fname != nullptr ? library.dli_fname : "";
  std::size_t const slash = file.rfind('/');
  return slash == std::string::npos ? std::string() : file.substr(0, slash) + "/../share/kestrel";
}

std::string const& installedShare() {
  static std::string const found = [] {
    for (std::string const& candidate : {shareBesideLibrary(), std::string(KESTREL_SHARE_DIR)}) {
      if (isFolder(candidate)) return candidate;
    }
    return std::string(KESTREL_SHARE_INSTALL_DIR);
  }();
  return found;
}

/// The folders that may hold the texts of a language, the best one first; none for a code that cannot be one.
std::vector<std::string> foldersOf(std::string const& languageCode) {
  if (!isLocaleName(languageCode) || languageCode.find('.') != std::string::npos) return {};
  std::string language = lowerCase(languageCode);
  std::replace(language.begin(), language.end(), '_', '-');
  std::vector<std::string> folders;
  // Callers know this one folder by an underscore, though the language code has a dash; relied upon.
  if (language != "zh-tw") folders.push_back(language);
  if (firstPartOf(language) == "zh") folders.emplace_back(isTraditional(language) ? "zh_tw" : "zh-cn");
  for (std::size_t dash = language.rfind('-'); dash != std::string::npos; dash = language.rfind('-')) {
    language.resize(dash);
    folders.push_back(language);
  }
  return folders;
}

}  // namespace

Locale::~Locale() = default;
Paths::~Paths() = default;

std::string EnvironmentLocale::languageCode() {
  std::string const name = lowerCase(environmentLocale());
  std::string language = firstPartOf(name);
  if (language != "zh") return language;
  return isTraditional(name) ? "zh-tw" : "zh-cn";
}

std::string EnvironmentLocale::localeName() { return environmentLocale(); }
std::string EnvironmentLocale::codePage() { return "UTF-8"; }

std::string FixedLocale::languageCode() { return language; }
std::string FixedLocale::localeName() { return name; }
std::string FixedLocale::codePage() { return page; }

std::string SharePaths::basePath(int) {
  char const* const chosen = std::getenv("KESTREL_SHARE");
  std::string const folder = chosen != nullptr && *chosen != '\0' ? chosen : installedShare();
  return folder.back() == '/' ? folder : folder + '/';
}

std::string SharePaths::dictionaryPath(int kind) {
  std::string const base = basePath(kind);
  for (std::string const& folder : foldersOf(Host::current().locale->languageCode())) {
    if (isFolder(base + folder)) return base + folder + '/';
  }
  return base + "en/";
}

std::string FixedPaths::basePath(int) { return base; }
std::string FixedPaths::dictionaryPath(int) { return dictionary; }

namespace {

class HostPaths : public PathInstance {
 public:
  explicit HostPaths(int kind) : mKind(kind) {}

  std::string getBasePath() const override { return Host::current().paths->basePath(mKind); }
  std::string getDictionaryPath() const override { return Host::current().paths->dictionaryPath(mKind); }

 private:
  int mKind;
};

}  // namespace

}  // namespace kestrel::host

using kestrel::host::Host;

PathInstance::~PathInstance() = default;

PathInstance* PathFactory::getPathInstance(int kind) {
  static std::map<int, kestrel::host::HostPaths> instances;
  return &instances.try_emplace(kind, kind).first->second;
}

OLang::OLang() = default;
OLang::~OLang() = default;

std::string OLang::GetLanguageCode() const { return Host::current().locale->languageCode(); }

int VexaMBDefaultLocaleName_A(char* buffer, int size) {
  if (buffer == nullptr || size <= 0) return 0;
  std::string const name = Host::current().locale->localeName();
  bool const fits = name.size() < static_cast<std::size_t>(size);
  std::size_t const length = fits ? name.size() : 0;
  std::memcpy(buffer, name.data(), length);
  buffer[length] = '\0';
  return static_cast<int>(length);
}
