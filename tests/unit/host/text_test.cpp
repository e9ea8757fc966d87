#include "host/text.h"

#include "temporary_folder.h"

#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>

using namespace kestrel::host;

namespace {

/// Dictionaries in files, and everything else in memory.
class DictionaryTest : public testing::Test {
 protected:
  DictionaryTest() : scope(host()) {}

  std::string lookUp(std::string const& content, std::string const& key) {
    folder.write("GRAPH.txt", content);
    FacSTDictionary dictionary(folder.path());
    dictionary.SetProcedure("GRAPH");
    return dictionary.LookUp(key);
  }

  static Host host() {
    Host host = MemoryServices().host();
    host.texts = std::make_shared<FolderTexts>();
    return host;
  }

  TemporaryFolder folder;
  ScopedHost scope;
};

TEST_F(DictionaryTest, GivesTheTextOfAKey) { EXPECT_EQ(lookUp("Monday\tMontag\n", "Monday"), "Montag"); }

TEST_F(DictionaryTest, GivesAnUnknownKeyBack) {
  EXPECT_EQ(lookUp("Monday\tMontag\n", "monday"), "monday");
  EXPECT_EQ(lookUp("Monday\tMontag\n", ""), "");
}

TEST_F(DictionaryTest, MayGiveAnEmptyText) { EXPECT_EQ(lookUp("Q\t\n", "Q"), ""); }

TEST_F(DictionaryTest, TakesTheFirstLineOfAKey) { EXPECT_EQ(lookUp("a\t1\na\t2\n", "a"), "1"); }

TEST_F(DictionaryTest, SkipsRemarksAndLinesWithoutATab) {
  EXPECT_EQ(lookUp("# a\tno\n\nplain\na\tyes\n", "a"), "yes");
  EXPECT_EQ(lookUp("# a\tno\n", "# a"), "# a");
}

TEST_F(DictionaryTest, TakesEscapesInKeyAndText) {
  EXPECT_EQ(lookUp("a\\\\b\tx\\ny\\tz\\q\n", "a\\b"), "x\ny\tz\\q");
}

TEST_F(DictionaryTest, DoesNotNeedALineFeedAtTheEnd) { EXPECT_EQ(lookUp("a\tlast", "a"), "last"); }

TEST_F(DictionaryTest, TakesLinesOfOtherSystems) { EXPECT_EQ(lookUp("a\tx\r\nb\ty\r\n", "a"), "x"); }

TEST_F(DictionaryTest, KnowsNoKeyBeforeAProcedureIsChosen) {
  folder.write("GRAPH.txt", "a\tx\n");
  FacSTDictionary dictionary(folder.path());
  EXPECT_EQ(dictionary.LookUp("a"), "a");
}

TEST_F(DictionaryTest, ChoosesThePartOfTheProcedure) {
  folder.write("GRAPH.txt", "a\tgraph\n");
  folder.write("TABLE.txt", "a\ttable\n");
  FacSTDictionary dictionary(folder.path() + "/");
  dictionary.SetProcedure("TABLE");
  EXPECT_EQ(dictionary.LookUp("a"), "table");
  dictionary.SetProcedure("GRAPH");
  EXPECT_EQ(dictionary.LookUp("a"), "graph");
  dictionary.SetProcedure("NONE");
  EXPECT_EQ(dictionary.LookUp("a"), "a");
}

TEST_F(DictionaryTest, DoesNotLeaveItsFolder) {
  folder.write("other/GRAPH.txt", "a\tx\n");
  std::filesystem::create_directory(folder / "en");
  FacSTDictionary dictionary(folder / "en");
  dictionary.SetProcedure("../other/GRAPH");
  EXPECT_EQ(dictionary.LookUp("a"), "a");
}

TEST_F(DictionaryTest, TellsThePositionOfAKey) {
  folder.write("GRAPH.txt", "a\tx\nb\ty\n");
  FacSTDictionary dictionary(folder.path());
  dictionary.SetProcedure("GRAPH");
  unsigned long index = 0;
  EXPECT_EQ(dictionary.LookUp("b", index), "y");
  EXPECT_EQ(index, 1u);
  EXPECT_EQ(dictionary.LookUp("c", index), "c");
  EXPECT_EQ(index, 1u);
}

TEST_F(DictionaryTest, InAFolderThatIsNotThereKnowsNoKey) {
  FacSTDictionary dictionary(folder / "missing");
  dictionary.SetProcedure("GRAPH");
  EXPECT_EQ(dictionary.LookUp("a"), "a");
}

TEST(DictionaryCodePageTest, GivesTextsInTheLocalCodePage) {
  MemoryServices services;
  services.locale->page = "CP1251";
  services.texts->texts["Monday"] = "\xD0\x9F\xD0\xBD";  // Пн
  ScopedHost const scope(services.host());
  EXPECT_EQ(FacSTDictionary("/base/ru/").LookUp("Monday"), "\xCF\xED");
}

TEST(DictionaryCodePageTest, ReadsBackInEveryCodePage) {
  for (char const* page : {"CP949", "CP950", "CP932", "CP936", "UTF-8"}) {
    MemoryServices services;
    services.locale->page = page;
    services.texts->texts["key"] = "\xE4\xB8\x80";  // 一
    ScopedHost const scope(services.host());
    ChartString text;
    text.assign(FacSTDictionary("/base/").LookUp("key").c_str());
    EXPECT_EQ(text.toUTF8(), "\xE4\xB8\x80") << page;
  }
}

TEST(ShippedTextsTest, NameTheDaysAndMonthsInEveryLanguage) {
  constexpr char const* keys[] = {"Sunday", "Saturday", "TFOMonday", "TFOFriday",   "January",
                                  "May",    "December", "TFOMarch",  "TFODecember", "Q"};
  ScopedVariable const share("KESTREL_SHARE", KESTREL_SHARE_DIR);
  for (auto const& entry : std::filesystem::directory_iterator(KESTREL_SHARE_DIR)) {
    if (!std::filesystem::exists(entry.path() / "GRAPH.txt")) continue;
    FacSTDictionary dictionary(entry.path().string() + "/");
    dictionary.SetProcedure("GRAPH");
    for (char const* key : keys) {
      unsigned long index = 1000;
      EXPECT_NE(dictionary.LookUp(key, index), "") << entry.path() << key;
      EXPECT_NE(index, 1000u) << entry.path() << key;
    }
  }
}

std::string shipped(char const* language, char const* key) {
  MemoryServices services;
  services.locale->language = language;
  Host host = services.host();
  host.paths = std::make_shared<SharePaths>();
  host.texts = std::make_shared<FolderTexts>();
  ScopedHost const scope(host);
  FacSTDictionary dictionary(host.paths->dictionaryPath(3));
  dictionary.SetProcedure("GRAPH");
  return dictionary.LookUp(key);
}

TEST(ShippedTextsTest, FollowTheLanguageOfTheHost) {
  EXPECT_EQ(shipped("en", "Wednesday"), "Wednesday");
  EXPECT_EQ(shipped("en", "TFOWednesday"), "Wed");
  EXPECT_EQ(shipped("de", "Wednesday"), "Mittwoch");
  EXPECT_EQ(shipped("de", "TFOMarch"), "M\xC3\xA4r");
}

TEST(ShippedTextsTest, AreEnglishForALanguageThatIsNotThere) { EXPECT_EQ(shipped("xx", "TFOSunday"), "Sun"); }

}  // namespace
