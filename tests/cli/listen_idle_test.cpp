// `kestrel listen` and senders that send nothing.

#include "listen_fixture.h"

#include <gmock/gmock.h>

#include <csignal>
#include <list>

using kestrel::test::description;
using kestrel::test::Listen;
using kestrel::test::ListenerProcess;
using kestrel::test::Sender;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

std::string const silent = ": nothing has come for 1 second: the connection is closed; --idle allows more\n";

TEST_F(Listen, EndsWhereItsOneSenderSendsNothing) {
  ListenerProcess listener(folder, {"--once", "--idle", "1"});
  Sender const sender(socket());
  EXPECT_TRUE(sender.isRefused());
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_EQ(listener.err(), "kestrel: connection 1" + silent);
}

TEST_F(Listen, HearsASenderBehindManySilentOnes) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--idle", "1"});
  std::list<Sender> quiet;
  for (int i = 0; i < 64; ++i) quiet.emplace_back(socket());
  Sender const sender(socket());
  EXPECT_TRUE(sender.send(chart));
  EXPECT_TRUE(listener.says("got/001.kcap: chart, 8 messages"));
  for (Sender const& each : quiet) EXPECT_TRUE(each.isRefused());
  listener.signal(SIGTERM);
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_THAT(listener.err(), HasSubstr("kestrel: connection 64" + silent));
}

TEST_F(Listen, KeepsWhatCameOfAChartWhoseSenderFellSilent) {
  ListenerProcess listener(folder, {"--once", "--idle", "1"});
  Sender const sender(socket());
  sender.send("KCAP0001" + description + "abc");
  EXPECT_TRUE(sender.isRefused());
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_THAT(listener.err(), StartsWith("kestrel: connection 1" + silent));
  EXPECT_EQ(read("got/001.kcap"), "KCAP0001" + description + "abc");
}

TEST_F(Listen, FindsNothingWrongWithASenderThatFallsSilentBehindItsChart) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--once", "--idle", "1"});
  Sender const sender(socket());
  EXPECT_TRUE(sender.send(chart));
  EXPECT_TRUE(sender.isRefused());
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(listener.err(), "kestrel: connection 1" + silent);
  EXPECT_EQ(read("got/001.kcap"), chart);
}

TEST_F(Listen, TakesNoIdleTimeThatIsNone) {
  for (char const* const idle : {"-1", "x", "1000001"}) {
    EXPECT_EQ(kestrel({"listen", "s", "-o", "got", "--once", "--idle", idle}).exit, 1) << idle;
  }
}

}  // namespace
