#include "kestrelhost/host.h"

#include "host/chartbase.h"
#include "host/locale.h"
#include "kestrelhost/recorder.h"
#include "model/chartstring.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace kestrel::host;

namespace {

Host hostOfLanguage(std::string const& language) {
  MemoryServices services;
  services.locale->language = language;
  return services.host();
}

TEST(ScopedHostTest, IsInForceForItsScope) {
  std::string const before = OLang().GetLanguageCode();
  {
    ScopedHost const scope(hostOfLanguage("xx"));
    EXPECT_EQ(OLang().GetLanguageCode(), "xx");
  }
  EXPECT_EQ(OLang().GetLanguageCode(), before);
}

TEST(ScopedHostTest, StandsInAnother) {
  ScopedHost const outer(hostOfLanguage("xx"));
  {
    ScopedHost const inner(hostOfLanguage("yy"));
    EXPECT_EQ(OLang().GetLanguageCode(), "yy");
  }
  EXPECT_EQ(OLang().GetLanguageCode(), "xx");
}

TEST(ScopedHostTest, MayReplaceOneServiceAlone) {
  ScopedHost const outer(hostOfLanguage("xx"));
  Host host = Host::current();
  auto const files = std::make_shared<MemoryFiles>();
  host.files = files;
  ScopedHost const inner(host);
  EXPECT_EQ(OLang().GetLanguageCode(), "xx");
  EXPECT_EQ(Host::current().files, files);
}

TEST(ScopedHostTest, TakesTheUsualServiceForOneThatIsNull) {
  Host host;
  host.channel = nullptr;
  host.log = nullptr;
  host.compression = nullptr;
  ScopedHost const scope(host);
  EXPECT_NE(Host::current().channel, nullptr);
  EXPECT_NE(Host::current().log, nullptr);
  EXPECT_NE(Host::current().compression, nullptr);
}

TEST(ScopedHostTest, SetsTheLocalCodePage) {
  std::string const before = ChartString::localCodePage();
  {
    MemoryServices services;
    services.locale->page = "CP1251";
    ScopedHost const scope(services.host());
    EXPECT_EQ(ChartString("\xCF\xED").toUTF8(), "\xD0\x9F\xD0\xBD");
  }
  EXPECT_EQ(ChartString::localCodePage(), before);
}

TEST(ScopedHostTest, RefusesAnUnknownCodePageAndChangesNothing) {
  Host const* const before = &Host::current();
  MemoryServices services;
  services.locale->page = "no such page";
  EXPECT_THROW(ScopedHost scope(services.host()), std::invalid_argument);
  EXPECT_EQ(&Host::current(), before);
  EXPECT_EQ(ChartString::localCodePage(), "UTF-8");
}

TEST(PlainHostServicesTest, AreAllThere) {
  Host const host;
  EXPECT_NE(host.channel, nullptr);
  EXPECT_NE(host.messages, nullptr);
  EXPECT_NE(host.dumps, nullptr);
  EXPECT_NE(host.texts, nullptr);
  EXPECT_NE(host.chartTexts, nullptr);
  EXPECT_NE(host.java, nullptr);
  EXPECT_EQ(host.storeObserver, nullptr);
}

}  // namespace
