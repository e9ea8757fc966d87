#include "host/locale.h"

#include "temporary_folder.h"

#include "host/files.h"
#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace kestrel::host;

namespace {

/// The language code and the locale name that the environment variable LANG gives.
std::pair<std::string, std::string> fromLang(char const* value) {
  ScopedVariable const all("LC_ALL", nullptr);
  ScopedVariable const messages("LC_MESSAGES", nullptr);
  ScopedVariable const lang("LANG", value);
  EnvironmentLocale locale;
  return {locale.languageCode(), locale.localeName()};
}

using Pair = std::pair<std::string, std::string>;

TEST(EnvironmentLocaleTest, TakesLanguageAndNameFromTheEnvironment) {
  EXPECT_EQ(fromLang("de_DE.UTF-8"), Pair("de", "de_DE.UTF-8"));
  EXPECT_EQ(fromLang("ru_RU"), Pair("ru", "ru_RU"));
  EXPECT_EQ(fromLang("pl"), Pair("pl", "pl"));
}

TEST(EnvironmentLocaleTest, TellsTheTwoWritingsOfChineseApart) {
  EXPECT_EQ(fromLang("zh_TW.UTF-8").first, "zh-tw");
  EXPECT_EQ(fromLang("zh_CN.UTF-8").first, "zh-cn");
  EXPECT_EQ(fromLang("zh_HK").first, "zh-tw");
  EXPECT_EQ(fromLang("zh_MO.UTF-8").first, "zh-tw");
  EXPECT_EQ(fromLang("zh_Hant").first, "zh-tw");
  EXPECT_EQ(fromLang("zh_Hant_SG").first, "zh-tw");
  EXPECT_EQ(fromLang("zh_Hans_HK").first, "zh-cn");
  EXPECT_EQ(fromLang("zh_SG.UTF-8").first, "zh-cn");
  EXPECT_EQ(fromLang("zh_TWX").first, "zh-cn");
  EXPECT_EQ(fromLang("zh.UTF-8").first, "zh-cn");
  EXPECT_EQ(fromLang("zh").first, "zh-cn");
}

TEST(EnvironmentLocaleTest, LeavesAModifierOut) { EXPECT_EQ(fromLang("de_DE@euro"), Pair("de", "de_DE")); }

TEST(EnvironmentLocaleTest, IsEnglishWhereTheEnvironmentHasNoLanguage) {
  for (char const* value :
       {static_cast<char const*>(nullptr), "", "C", "POSIX", "C.UTF-8", "../../etc", "e", "en/.."}) {
    EXPECT_EQ(fromLang(value), Pair("en", "en_US.UTF-8"));
  }
}

TEST(EnvironmentLocaleTest, ObeysTheOrderOfTheVariables) {
  ScopedVariable const lang("LANG", "de_DE");
  ScopedVariable const messages("LC_MESSAGES", "fr_FR");
  {
    ScopedVariable const all("LC_ALL", "it_IT");
    EXPECT_EQ(EnvironmentLocale().localeName(), "it_IT");
  }
  ScopedVariable const all("LC_ALL", "");
  EXPECT_EQ(EnvironmentLocale().localeName(), "fr_FR");
}

TEST(OLangTest, GivesTheLanguageOfTheHost) {
  MemoryServices services;
  services.locale->language = "zh-tw";
  ScopedHost const scope(services.host());
  EXPECT_EQ(OLang().GetLanguageCode(), "zh-tw");
}

class DefaultLocaleNameTest : public testing::Test {
 protected:
  DefaultLocaleNameTest() : scope(services.host()) { std::memset(buffer, '#', sizeof buffer); }

  MemoryServices services;
  ScopedHost scope;
  char buffer[16];
};

TEST_F(DefaultLocaleNameTest, FillsTheBufferAndTellsTheLength) {
  services.locale->name = "ja_JP.UTF-8";
  EXPECT_EQ(VexaMBDefaultLocaleName_A(buffer, sizeof buffer), 11);
  EXPECT_STREQ(buffer, "ja_JP.UTF-8");
}

TEST_F(DefaultLocaleNameTest, FitsWithItsTerminator) {
  services.locale->name = "123456789012345";
  EXPECT_EQ(VexaMBDefaultLocaleName_A(buffer, sizeof buffer), 15);
  EXPECT_STREQ(buffer, "123456789012345");
}

TEST_F(DefaultLocaleNameTest, ThatDoesNotFitIsNone) {
  services.locale->name = "1234567890123456";
  EXPECT_EQ(VexaMBDefaultLocaleName_A(buffer, sizeof buffer), 0);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(buffer[1], '#');
}

TEST_F(DefaultLocaleNameTest, ThatIsNotThereIsNone) {
  services.locale->name = "";
  EXPECT_EQ(VexaMBDefaultLocaleName_A(buffer, sizeof buffer), 0);
  EXPECT_STREQ(buffer, "");
}

TEST_F(DefaultLocaleNameTest, NeedsABuffer) {
  EXPECT_EQ(VexaMBDefaultLocaleName_A(nullptr, 124), 0);
  EXPECT_EQ(VexaMBDefaultLocaleName_A(buffer, 0), 0);
  EXPECT_EQ(VexaMBDefaultLocaleName_A(buffer, -1), 0);
  EXPECT_EQ(buffer[0], '#');
}

TEST(PathFactoryTest, GivesTheSamePathsEachTime) {
  EXPECT_EQ(PathFactory::getPathInstance(3), PathFactory::getPathInstance(3));
}

TEST(PathFactoryTest, GivesThePathsOfTheHostInForce) {
  PathInstance const* const paths = PathFactory::getPathInstance(3);
  Recorder recorder;
  recorder.services().paths->base = "/product/";
  recorder.services().paths->dictionary = "/product/ru/texts";
  ScopedHost const scope(recorder.host());
  EXPECT_EQ(paths->getBasePath(), "/product/");
  EXPECT_EQ(paths->getDictionaryPath(), "/product/ru/texts");
  std::vector<std::string> const expected = {"PathInstance::getBasePath(kind=3)",
                                             "PathInstance::getDictionaryPath(kind=3)"};
  EXPECT_EQ(recorder.lines(), expected);
}

class SharePathsTest : public testing::Test {
 protected:
  SharePathsTest() : share("KESTREL_SHARE", folder.path().c_str()), scope(host()) {
    for (char const* language : {"en", "ru", "zh_tw", "zh-cn"})
      std::filesystem::create_directory(folder / language);
  }

  Host host() {
    Host host = services.host();
    host.paths = std::make_shared<SharePaths>();
    return host;
  }

  std::string dictionaryFolder(std::string const& language) {
    services.locale->language = language;
    PathInstance const* const paths = PathFactory::getPathInstance(3);
    std::string const path = paths->getDictionaryPath();
    EXPECT_EQ(path.rfind(paths->getBasePath(), 0), 0u);
    return path.substr(paths->getBasePath().size());
  }

  TemporaryFolder folder;
  ScopedVariable share;
  MemoryServices services;
  ScopedHost scope;
};

TEST_F(SharePathsTest, BaseEndsWithASlash) {
  EXPECT_EQ(PathFactory::getPathInstance(3)->getBasePath(), folder.path() + "/");
}

TEST_F(SharePathsTest, DictionaryFolderIsTheLanguage) {
  EXPECT_EQ(dictionaryFolder("en"), "en/");
  EXPECT_EQ(dictionaryFolder("ru"), "ru/");
  EXPECT_EQ(dictionaryFolder("zh-cn"), "zh-cn/");
}

TEST_F(SharePathsTest, OneDictionaryFolderHasAnUnderscore) { EXPECT_EQ(dictionaryFolder("zh-tw"), "zh_tw/"); }

TEST_F(SharePathsTest, DictionaryFolderWithTheDashIsNotTheOneOfTraditionalChinese) {
  std::filesystem::create_directory(folder / "zh-tw");
  EXPECT_EQ(dictionaryFolder("zh-tw"), "zh_tw/");
}

TEST_F(SharePathsTest, ARegionWithoutAFolderFallsBackToItsLanguage) {
  EXPECT_EQ(dictionaryFolder("ru-by"), "ru/");
  EXPECT_EQ(dictionaryFolder("ru-cyrl-kz"), "ru/");
}

TEST_F(SharePathsTest, ARegionWithAFolderHasItsOwn) {
  std::filesystem::create_directory(folder / "pt");
  EXPECT_EQ(dictionaryFolder("pt-br"), "pt/");
  std::filesystem::create_directory(folder / "pt-br");
  EXPECT_EQ(dictionaryFolder("pt-br"), "pt-br/");
  EXPECT_EQ(dictionaryFolder("pt-pt"), "pt/");
}

TEST_F(SharePathsTest, ARegionOfALanguageThatIsNotThereFallsBackToEnglish) {
  EXPECT_EQ(dictionaryFolder("pt-br"), "en/");
}

TEST_F(SharePathsTest, RegionsOfChineseFallBackToTheirWriting) {
  EXPECT_EQ(dictionaryFolder("zh"), "zh-cn/");
  EXPECT_EQ(dictionaryFolder("zh-sg"), "zh-cn/");
  EXPECT_EQ(dictionaryFolder("zh-hans-hk"), "zh-cn/");
  EXPECT_EQ(dictionaryFolder("zh-hk"), "zh_tw/");
  EXPECT_EQ(dictionaryFolder("zh-mo"), "zh_tw/");
  EXPECT_EQ(dictionaryFolder("zh-hant"), "zh_tw/");
}

TEST_F(SharePathsTest, CaseAndUnderscoresOfALanguageCodeDoNotMatter) {
  EXPECT_EQ(dictionaryFolder("RU"), "ru/");
  EXPECT_EQ(dictionaryFolder("ru_RU"), "ru/");
  EXPECT_EQ(dictionaryFolder("zh_TW"), "zh_tw/");
}

TEST_F(SharePathsTest, DictionaryFolderIsEnglishForOtherLanguages) {
  EXPECT_EQ(dictionaryFolder("ko"), "en/");
  EXPECT_EQ(dictionaryFolder(""), "en/");
  EXPECT_EQ(dictionaryFolder("../en"), "en/");
  EXPECT_EQ(dictionaryFolder("ru/.."), "en/");
  EXPECT_EQ(dictionaryFolder("ru-.."), "en/");
}

TEST(SharePathsWithoutEnvironmentTest, FindTheShareFolder) {
  ScopedVariable const share("KESTREL_SHARE", nullptr);
  std::string const base = SharePaths().basePath(3);
  EXPECT_TRUE(std::filesystem::exists(base + "en/GRAPH.txt")) << base;
}

}  // namespace
