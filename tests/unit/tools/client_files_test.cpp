// What of the client comes with kestrel.

#include "client/base64.h"
#include "client/shipped_client.h"
#include "problem.h"
#include "serve/host_names.h"

#include <gmock/gmock.h>

using kestrel::tool::base64;
using kestrel::tool::clientFile;
using kestrel::tool::inUrl;
using kestrel::tool::isOurName;
using kestrel::tool::Problem;

TEST(ClientFile, ThatIsMissingIsSaidWithWhatToDo) {
  try {
    clientFile("nothing.html");
    FAIL() << "found";
  } catch (Problem const& problem) {
    EXPECT_STREQ(problem.what(),
                 "the client that draws charts is not there (nothing.html is missing); build kestrel with "
                 "-DKESTREL_CLIENT=ON, which needs Node.js and npm");
  }
}

TEST(Base64, FillsUpTheLastGroup) {
  EXPECT_EQ(base64(""), "");
  EXPECT_EQ(base64("f"), "Zg==");
  EXPECT_EQ(base64("fo"), "Zm8=");
  EXPECT_EQ(base64("foo"), "Zm9v");
  EXPECT_EQ(base64("\xFB\xEF\xFF"), "++//");
}

TEST(OurName, IsAnAddressOrWhatTheUserCallsUs) {
  EXPECT_TRUE(isOurName("127.0.0.1:80", "127.0.0.1"));
  EXPECT_TRUE(isOurName("[::1]:80", "127.0.0.1"));
  EXPECT_TRUE(isOurName("[::1]", "127.0.0.1"));
  EXPECT_TRUE(isOurName("LocalHost", "127.0.0.1"));
  EXPECT_TRUE(isOurName("charts.lan:8411", "charts.lan"));
  EXPECT_FALSE(isOurName("charts.lan:8411", "127.0.0.1"));
  EXPECT_FALSE(isOurName("", "127.0.0.1"));
  EXPECT_FALSE(isOurName("[", "127.0.0.1"));
  EXPECT_FALSE(isOurName("1.2.3", "127.0.0.1"));
}

TEST(InUrl, AnAddressWithColonsStandsInBrackets) {
  EXPECT_EQ(inUrl("::1"), "[::1]");
  EXPECT_EQ(inUrl("127.0.0.1"), "127.0.0.1");
}
