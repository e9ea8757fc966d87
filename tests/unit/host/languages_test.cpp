// The tables of texts that are shipped, against ICU's locale data and against each other.

#include "temporary_folder.h"

#include "host/text.h"
#include "kestrelhost/recorder.h"
#include "model/chartstring.h"

#include <gtest/gtest.h>
#include <unicode/dtfmtsym.h>
#include <unicode/locid.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

using namespace kestrel::host;

namespace {

struct Language {
  char const* folder;
  /// The host's code for it.
  char const* code;
  char const* icuLocale;
  /// That of narrow text in this language.
  char const* codePage;
  /// Keys whose text is the same word as in English.
  std::set<std::string> sameAsInEnglish;
};

void PrintTo(Language const& language, std::ostream* out) { *out << language.folder; }

std::vector<Language> const& languages() {
  static std::vector<Language> const all = {
      {"en", "en", "en", "CP1252", {}},
      {"de",
       "de",
       "de",
       "CP1252",
       {"April", "August", "September", "November", "TFOJanuary", "TFOFebruary", "TFOApril", "TFOJune",
        "TFOJuly", "TFOAugust", "TFOSeptember", "TFONovember", "Q"}},
      {"fr", "fr", "fr", "CP1252", {}},
      {"ru", "ru", "ru", "CP1251", {}},
      {"pl", "pl", "pl", "CP1250", {}},
      {"ja", "ja", "ja", "CP932", {}},
      {"ko", "ko", "ko", "CP949", {}},
      {"zh-cn", "zh-cn", "zh_Hans_CN", "CP936", {}},
      {"zh_tw", "zh-tw", "zh_Hant_TW", "CP950", {}},
  };
  return all;
}

constexpr char const* weekdays[] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                    "Thursday", "Friday", "Saturday"};
constexpr char const* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};
constexpr char const* otherKeys[] = {"Q", "Description not set"};

using Table = std::map<std::string, std::string>;

/// By itself, so that a line that the library would skip or take for another's is seen.
Table tableOf(std::string const& folder) {
  std::ifstream file(std::string(KESTREL_SHARE_DIR) + "/" + folder + "/GRAPH.txt");
  EXPECT_TRUE(file.is_open()) << folder;
  Table table;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line.front() == '#') continue;
    std::size_t const tab = line.find('\t');
    EXPECT_NE(tab, std::string::npos) << folder << ": no tab in " << line;
    if (tab == std::string::npos) continue;
    bool const added = table.emplace(line.substr(0, tab), line.substr(tab + 1)).second;
    EXPECT_TRUE(added) << folder << ": twice " << line;
  }
  return table;
}

std::set<std::string> keysOf(Table const& table) {
  std::set<std::string> keys;
  for (auto const& [key, text] : table) keys.insert(key);
  return keys;
}

std::vector<std::string> utf8(icu::UnicodeString const* names, int count) {
  std::vector<std::string> texts;
  for (int at = 0; at < count; ++at) names[at].toUTF8String(texts.emplace_back());
  return texts;
}

/// A name stands for itself: as the label of a category, or before a year ("March 2020"). Only the
/// stand-alone form is right there; the other one is that of a day within the month, in Russian and Polish a
/// genitive.
class Names {
 public:
  explicit Names(Language const& language) : mSymbols(icu::Locale(language.icuLocale), mStatus) {}

  bool valid() const { return U_SUCCESS(mStatus) != 0; }

  std::vector<std::string> months(icu::DateFormatSymbols::DtWidthType width) const {
    int count = 0;
    icu::UnicodeString const* const names = mSymbols.getMonths(count, standalone, width);
    return utf8(names, count);
  }

  /// From Sunday on.
  std::vector<std::string> weekdays(icu::DateFormatSymbols::DtWidthType width) const {
    int count = 0;
    icu::UnicodeString const* const names = mSymbols.getWeekdays(count, standalone, width);
    std::vector<std::string> texts = utf8(names, count);
    texts.erase(texts.begin());  // They count from 1.
    return texts;
  }

  std::vector<std::string> quarters(icu::DateFormatSymbols::DtWidthType width) const {
    int count = 0;
    icu::UnicodeString const* const names = mSymbols.getQuarters(count, standalone, width);
    return utf8(names, count);
  }

 private:
  static constexpr auto standalone = icu::DateFormatSymbols::STANDALONE;

  UErrorCode mStatus = U_ZERO_ERROR;
  icu::DateFormatSymbols mSymbols;
};

class LanguagesTest : public testing::TestWithParam<Language> {
 protected:
  LanguagesTest() : table(tableOf(GetParam().folder)), names(GetParam()) {}
  void SetUp() override { ASSERT_TRUE(names.valid()); }

  template <typename Keys>
  std::vector<std::string> texts(Keys const& keys, std::string const& prefix) {
    std::vector<std::string> found;
    for (char const* key : keys) found.push_back(table[prefix + key]);
    return found;
  }

  Table table;
  Names names;
};

constexpr auto wide = icu::DateFormatSymbols::WIDE;
constexpr auto abbreviated = icu::DateFormatSymbols::ABBREVIATED;

TEST_P(LanguagesTest, LongMonthsAreThoseOfTheLocaleData) { EXPECT_EQ(texts(months, ""), names.months(wide)); }

TEST_P(LanguagesTest, ShortMonthsAreThoseOfTheLocaleData) {
  EXPECT_EQ(texts(months, "TFO"), names.months(abbreviated));
}

TEST_P(LanguagesTest, LongWeekdaysAreThoseOfTheLocaleData) {
  EXPECT_EQ(texts(weekdays, ""), names.weekdays(wide));
}

TEST_P(LanguagesTest, ShortWeekdaysAreThoseOfTheLocaleData) {
  EXPECT_EQ(texts(weekdays, "TFO"), names.weekdays(abbreviated));
}

TEST_P(LanguagesTest, WordForAQuarterIsInItsNameInTheLocaleData) {
  std::string const word = table["Q"];
  ASSERT_NE(word, "");
  bool found = false;
  for (auto const width : {wide, abbreviated}) {
    for (std::string const& quarter : names.quarters(width))
      found = found || quarter.find(word) != std::string::npos;
  }
  EXPECT_TRUE(found) << word;
}

TEST_P(LanguagesTest, HasExactlyTheKeysThatAreLookedUp) {
  std::set<std::string> keys(std::begin(otherKeys), std::end(otherKeys));
  for (char const* prefix : {"", "TFO"}) {
    for (char const* key : weekdays) keys.insert(std::string(prefix) + key);
    for (char const* key : months) keys.insert(std::string(prefix) + key);
  }
  EXPECT_EQ(keysOf(table), keys);
}

/// `^1` and `%s` with their like, sorted.
std::multiset<std::string> placeholders(std::string const& text) {
  static std::regex const pattern(R"(\^[0-9]|%[0-9]*\$?[a-zA-Z]|\{[0-9]*\}|\\n)");
  std::multiset<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), pattern); at != std::sregex_iterator(); ++at)
    found.insert(at->str());
  return found;
}

TEST_P(LanguagesTest, HasThePlaceholdersOfTheEnglishTexts) {
  for (auto const& [key, english] : tableOf("en"))
    EXPECT_EQ(placeholders(table[key]), placeholders(english)) << key;
}

TEST_P(LanguagesTest, LeavesNoTextEmpty) {
  for (auto const& [key, text] : table) EXPECT_NE(text.find_first_not_of(" \t"), std::string::npos) << key;
}

TEST_P(LanguagesTest, HasNoBlanksAroundATextOrAKey) {
  for (auto const& [key, text] : table) {
    for (std::string const& part : {key, text}) {
      ASSERT_NE(part, "");
      EXPECT_EQ(std::string(" \t\r").find(part.front()), std::string::npos) << key;
      EXPECT_EQ(std::string(" \t\r").find(part.back()), std::string::npos) << key;
    }
  }
}

TEST_P(LanguagesTest, IsTranslatedExceptWhereTheWordsAreTheSame) {
  Table const english = tableOf("en");
  std::set<std::string> same;
  for (auto const& [key, text] : table) {
    if (english.at(key) == text) same.insert(key);
  }
  EXPECT_EQ(same, GetParam().folder == std::string("en") ? keysOf(english) : GetParam().sameAsInEnglish);
}

TEST_P(LanguagesTest, CanBeWrittenInTheCodePageOfTheLanguage) {
  ScopedVariable const share("KESTREL_SHARE", KESTREL_SHARE_DIR);
  MemoryServices services;
  services.locale->language = GetParam().code;
  services.locale->page = GetParam().codePage;
  Host host = services.host();
  host.paths = std::make_shared<SharePaths>();
  host.texts = std::make_shared<FolderTexts>();
  ScopedHost const scope(host);
  FacSTDictionary dictionary(host.paths->dictionaryPath(3));
  dictionary.SetProcedure("GRAPH");
  for (auto const& [key, text] : table) {
    EXPECT_EQ(ChartString(dictionary.LookUp(key).c_str()).toUTF8(), text) << key;
  }
}

std::string nameOf(testing::TestParamInfo<Language> const& info) {
  return std::regex_replace(std::string(info.param.icuLocale), std::regex("[^A-Za-z0-9]"), "");
}

INSTANTIATE_TEST_SUITE_P(Shipped, LanguagesTest, testing::ValuesIn(languages()), nameOf);

TEST(ShippedLanguagesTest, AreTheFoldersOfTheShare) {
  std::set<std::string> expected;
  for (Language const& language : languages()) expected.insert(language.folder);
  std::set<std::string> folders;
  for (auto const& entry : std::filesystem::directory_iterator(KESTREL_SHARE_DIR)) {
    if (std::filesystem::exists(entry.path() / "GRAPH.txt")) folders.insert(entry.path().filename().string());
  }
  EXPECT_EQ(folders, expected);
}

TEST(PlaceholdersTest, AreFoundInATextByKind) {
  EXPECT_EQ(placeholders("^1 of %s, %2$d{0}\\n^1"),
            (std::multiset<std::string>{"^1", "^1", "%s", "%2$d", "{0}", "\\n"}));
  EXPECT_TRUE(placeholders("100 % of ^ all").empty());
}

}  // namespace
