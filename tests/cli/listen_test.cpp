// `kestrel listen`, and `kestrel chart --send` that sends to it.

#include "listen_fixture.h"
#include "wire_decoder.h"

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <chrono>
#include <csignal>
#include <thread>

using kestrel::test::decodeCapture;
using kestrel::test::description;
using kestrel::test::Listen;
using kestrel::test::ListenerProcess;
using kestrel::test::Outcome;
using kestrel::test::Sender;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

/// In groups of three digits.
std::string grouped(std::size_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t at = digits.size(); at > 3; at -= 3) digits.insert(at - 3, ",");
  return digits;
}

TEST_F(Listen, WritesAChartAndItsContents) {
  ListenerProcess listener(folder, {"--once"});
  Outcome const sent = send({"--description", "abc"});
  EXPECT_EQ(sent.exit, 0);
  EXPECT_EQ(sent.err, "");
  EXPECT_THAT(sent.out, StartsWith("unix:s: 1 row, 2 variables, 8 messages, "));
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(listener.err(), "");
  EXPECT_THAT(listener.out(), StartsWith("listening on s\ngot/001.kcap: chart, 8 messages, "));
  EXPECT_THAT(listener.out(), testing::EndsWith(", 6 files\n"));
  EXPECT_THAT(filesIn("got"), ElementsAre("001", "001.kcap"));
  EXPECT_THAT(filesIn("got/001"), ElementsAre("chart.xml", "data.arrows", "description.eng.txt",
                                              "description.txt", "done.json", "sizes.json"));
  EXPECT_EQ(read("got/001/description.txt"), "abc");
  EXPECT_FALSE(std::filesystem::exists(socket()));
}

TEST_F(Listen, ReceivesByteForByteWhatTheFileHas) {
  write("extra.csv", std::string(100'000, 'x'));
  ListenerProcess listener(folder, {"--once"});
  EXPECT_EQ(send({"--csv", "extra.csv", "-o", "out"}).exit, 0);
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(read("got/001.kcap"), read("out/capture.kcap"));
  EXPECT_EQ(read("got/001/extra.csv"), read("extra.csv"));
}

TEST_F(Listen, TakesChartAfterChartUntilItIsTold) {
  ListenerProcess listener(folder, {});
  EXPECT_EQ(send({"--description", "one"}).exit, 0);
  EXPECT_EQ(send({"--description", "two"}).exit, 0);
  EXPECT_TRUE(listener.says("got/002.kcap"));
  listener.signal(SIGTERM);
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(read("got/001/description.txt"), "one");
  EXPECT_EQ(read("got/002/description.txt"), "two");
  EXPECT_FALSE(std::filesystem::exists(socket()));
}

TEST_F(Listen, EndsAtAnInterruptToo) {
  ListenerProcess listener(folder, {});
  listener.signal(SIGINT);
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(listener.err(), "");
  EXPECT_FALSE(std::filesystem::exists(socket()));
}

TEST_F(Listen, GivesEachChartOfAConnectionAFile) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--once"});
  Sender sender(socket());
  EXPECT_TRUE(sender.send(chart + chart.substr(8)));
  sender.close();
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(read("got/001.kcap"), chart);
  EXPECT_EQ(read("got/002.kcap"), chart);
}

TEST_F(Listen, GivesASendWithoutEndRecordAFileOfItsOwn) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--once"});
  Sender sender(socket());
  EXPECT_TRUE(sender.send("KCAP0001" + description + chart.substr(8)));
  sender.close();
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_EQ(read("got/001.kcap"), "KCAP0001" + description);
  EXPECT_EQ(read("got/002.kcap"), chart);
  EXPECT_THAT(listener.out(), HasSubstr("got/002.kcap: chart, 8 messages, "));
  EXPECT_THAT(listener.err(), testing::Not(HasSubstr("got/002.kcap")));
}

TEST_F(Listen, WritesAChartWhenItIsWholeThoughItsSenderStays) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--once"});
  Sender sender(socket());
  EXPECT_TRUE(sender.send(chart));
  EXPECT_TRUE(listener.says("got/001.kcap"));
  sender.close();
  EXPECT_EQ(listener.wait(), 0);
}

TEST_F(Listen, TakesFromSeveralSendersAtATime) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {});
  Sender first(socket());
  EXPECT_TRUE(first.send(chart.substr(0, 100)));
  Sender second(socket());
  EXPECT_TRUE(second.send(chart));
  EXPECT_TRUE(listener.says("chart, 8 messages"));
  EXPECT_TRUE(first.send(chart.substr(100)));
  EXPECT_TRUE(listener.says("got/001.kcap"));
  EXPECT_TRUE(listener.says("got/002.kcap"));
  listener.signal(SIGTERM);
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(read("got/001.kcap"), chart);
  EXPECT_EQ(read("got/002.kcap"), chart);
}

TEST_F(Listen, LeavesWhatIsThere) {
  std::filesystem::create_directories(folder / "got" / "001");
  write("got/002.kcap", "mine");
  ListenerProcess listener(folder, {"--once"});
  EXPECT_EQ(send().exit, 0);
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(read("got/002.kcap"), "mine");
  EXPECT_THAT(filesIn("got"), ElementsAre("001", "002.kcap", "003", "003.kcap"));
}

TEST_F(Listen, RefusesGarbage) {
  ListenerProcess listener(folder, {"--once"});
  Sender sender(socket());
  sender.send("GET / HTTP/1.1\r\n\r\n");
  EXPECT_TRUE(sender.isRefused());
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_EQ(listener.err(), "kestrel: connection 1: this is no capture, which starts with KCAP0001\n");
  EXPECT_THAT(filesIn("got"), IsEmpty());
}

TEST_F(Listen, SaysThatASenderSentNothing) {
  ListenerProcess listener(folder, {"--once"});
  { Sender const sender(socket()); }
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_EQ(listener.err(),
            "kestrel: connection 1: the sender has gone before it had sent the start of a capture\n");
}

TEST_F(Listen, SaysThatASenderSentNoChart) {
  ListenerProcess listener(folder, {"--once"});
  Sender sender(socket());
  sender.send("KCAP0001");
  sender.close();
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_EQ(listener.err(), "kestrel: connection 1: no chart was sent\n");
}

TEST_F(Listen, KeepsWhatCameOfACutChart) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--once"});
  Sender sender(socket());
  sender.send(chart.substr(0, 90));
  sender.close();
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_THAT(listener.err(), StartsWith("kestrel: got/001.kcap: at byte 78: the capture is cut or corrupt: "
                                         "message 3 should have "));
  EXPECT_THAT(listener.out(), HasSubstr("got/001.kcap: chart, 2 messages, 90 bytes, 2 files, faulty\n"));
  EXPECT_EQ(read("got/001.kcap"), chart.substr(0, 90));
  EXPECT_THAT(filesIn("got/001"), ElementsAre("description.eng.txt", "description.txt"));
}

TEST_F(Listen, SaysThatAChartEndsWithoutItsEndRecord) {
  ListenerProcess listener(folder, {"--once"});
  Sender sender(socket());
  sender.send("KCAP0001" + description);
  sender.close();
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_THAT(listener.err(), HasSubstr("the chart ends without chart text\n"));
  EXPECT_THAT(listener.err(), HasSubstr("the chart ends without done\n"));
}

TEST_F(Listen, KeepsWhatHasComeWhereItIsToldToEnd) {
  ListenerProcess listener(folder, {"--once"});
  Sender const sender(socket());
  sender.send("KCAP0001" + description);
  for (int i = 0; i < 3000 && !exists("got/001.kcap"); ++i) std::this_thread::sleep_for(10ms);
  listener.signal(SIGTERM);
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_TRUE(sender.isRefused());
  EXPECT_EQ(read("got/001.kcap"), "KCAP0001" + description);
  EXPECT_THAT(listener.err(), HasSubstr("the chart ends without done\n"));
  EXPECT_FALSE(std::filesystem::exists(socket()));
}

struct BadLength {
  char const* name;
  char bytes[9];
  char const* told;
};

class ListenToBadLengths : public Listen, public testing::WithParamInterface<BadLength> {};

INSTANTIATE_TEST_SUITE_P(Lengths, ListenToBadLengths,
                         testing::Values(BadLength{"Negative", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "-1"},
                                         BadLength{"Greatest", "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F",
                                                   "9223372036854775807"},
                                         BadLength{"OneTooMuch", "\xCD\x84\0\0\0\0\0", "33997"}),
                         [](auto const& each) { return each.param.name; });

TEST_P(ListenToBadLengths, AreRefusedAndTheNextSenderIsHeard) {
  ListenerProcess listener(folder, {});
  Sender sender(socket());
  sender.send("KCAP0001" + description + description.substr(0, 8) + std::string(GetParam().bytes, 8));
  EXPECT_TRUE(sender.isRefused());
  EXPECT_EQ(send().exit, 0);
  EXPECT_TRUE(listener.says("got/002.kcap: chart, 8 messages"));
  listener.signal(SIGTERM);
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_THAT(listener.err(), StartsWith(std::string("kestrel: connection 1: message 2 should have ") +
                                         GetParam().told + " bytes; a message has up to 33996\n"));
  EXPECT_EQ(read("got/001.kcap"), "KCAP0001" + description);
}

TEST_F(Listen, RefusesAChartBeyondItsLimit) {
  ListenerProcess listener(folder, {"--once", "--limit", "1"});
  Sender sender(socket());
  // Full chunks of a file.
  std::string const chunk = std::string(
                                "\x33\x01\0\0\0\0\0\0\xCC\x84\0\0\0\0\0\0"
                                "\x06\0\0\0\xC0\x84\0\0",
                                24) +
                            std::string(33984 + 4, 'x');
  std::string many = "KCAP0001";
  for (int i = 0; i < 40; ++i) many += chunk;
  sender.send(many);
  EXPECT_TRUE(sender.isRefused());
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_THAT(
      listener.err(),
      HasSubstr("kestrel: connection 1: the chart is longer than 1,048,576 bytes; --limit allows more\n"));
  EXPECT_LE(read("got/001.kcap").size(), 1'048'576u);
}

/// What a file costs besides its bytes.
constexpr std::size_t fileCost = 4096;

TEST_F(Listen, TakesContentsOutUpToItsLimitOfBytes) {
  write("extra.csv", std::string(100'000, 'x'));
  chartOf("a,b\n1,2\n", {"--csv", "extra.csv"});
  std::string const chart = read("out/capture.kcap");
  extract();
  std::size_t needed = fileCost + chart.size();
  for (char const* const file : {"description.txt", "description.eng.txt", "chart.xml", "data.arrows"}) {
    needed += fileCost + read(std::string("contents/") + file).size();
  }
  std::size_t const all = needed + fileCost + 100'000 + fileCost + read("contents/done.json").size() +
                          fileCost + read("contents/sizes.json").size();
  {
    ListenerProcess listener(folder, {"--once", "--max-bytes", std::to_string(needed + fileCost + 99'999)});
    Sender sender(socket());
    EXPECT_TRUE(sender.send(chart));
    EXPECT_EQ(listener.wait(), 3);
    EXPECT_EQ(listener.err(),
              "kestrel: got/001/extra.csv: is written no further: all files together would "
              "take more than " +
                  grouped(needed + fileCost + 99'999) + " bytes; --max-bytes allows more\n");
  }
  EXPECT_EQ(read("got/001.kcap"), chart);
  EXPECT_THAT(filesIn("got/001"),
              ElementsAre("chart.xml", "data.arrows", "description.eng.txt", "description.txt"));
  for (std::string const& file : filesIn("got/001"))
    EXPECT_EQ(read("got/001/" + file), read("contents/" + file));
  EXPECT_FALSE(std::filesystem::exists(socket()));
  std::filesystem::remove_all(folder / "got");
  std::filesystem::remove(folder / "listener.out");
  ListenerProcess listener(folder, {"--once", "--max-bytes", std::to_string(all)});
  Sender sender(socket());
  EXPECT_TRUE(sender.send(chart));
  sender.close();
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(filesIn("got/001").size(), 7u);
}

TEST_F(Listen, KeepsTheWholeMessagesBeforeItsLimitOfBytes) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--max-bytes", std::to_string(fileCost + 500)});
  Sender sender(socket());
  sender.send(chart);
  EXPECT_TRUE(sender.isRefused());
  EXPECT_EQ(listener.wait(), 3);
  EXPECT_THAT(listener.err(), StartsWith("kestrel: got/001.kcap: is written no further: "));
  std::string const got = read("got/001.kcap");
  EXPECT_TRUE(chart.starts_with(got));
  EXPECT_THAT(decodeCapture(got), testing::SizeIs(2));
}

TEST_F(Listen, HasOneLimitOfBytesForAllCharts) {
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--max-bytes", std::to_string(7 * fileCost + 2 * chart.size() + 10'000)});
  Sender sender(socket());
  EXPECT_TRUE(sender.send(chart));
  EXPECT_TRUE(listener.says("got/001.kcap: chart"));
  sender.send(chart.substr(8));
  EXPECT_EQ(listener.wait(), 3);
  EXPECT_THAT(filesIn("got/001"), testing::SizeIs(6));
  EXPECT_EQ(read("got/001.kcap"), chart);
}

TEST_F(Listen, ChargesFilesThatAreThereAlreadyToNobody) {
  std::filesystem::create_directories(folder / "got");
  for (int number = 1; number <= 9; ++number) write("got/00" + std::to_string(number) + ".kcap", "mine");
  std::string const chart = capture();
  ListenerProcess listener(folder, {"--once", "--max-bytes", std::to_string(7 * fileCost + 20'000)});
  Sender sender(socket());
  EXPECT_TRUE(sender.send(chart));
  sender.close();
  EXPECT_EQ(listener.wait(), 0);
  EXPECT_EQ(read("got/010.kcap"), chart);
}

TEST_F(Listen, TakesNoLimitOfBytesThatIsNone) {
  for (char const* const limit : {"0", "-1", "x", "4G"}) {
    EXPECT_EQ(kestrel({"listen", "s", "-o", "got", "--once", "--max-bytes", limit}).exit, 1) << limit;
  }
}

TEST_F(Listen, EndsSoonWhereASenderSendsTheSameVeryOften) {
  ListenerProcess listener(folder, {"--once"});
  Sender sender(socket());
  std::string many = "KCAP0001";
  std::string english = description;
  english[16] = 9;  // the type: each description of type 0 would be a chart of its own
  for (int i = 0; i < 3'000; ++i) many += english;
  sender.send(many);
  sender.close();
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_THAT(listener.err(), HasSubstr(" more faults\n"));
}

TEST_F(Listen, ReplacesASocketOnWhichNobodyListens) {
  {
    ListenerProcess listener(folder, {});
    listener.signal(SIGKILL);
    listener.wait();
    EXPECT_TRUE(std::filesystem::exists(socket()));
    std::filesystem::remove(folder / "listener.out");
  }
  ListenerProcess listener(folder, {"--once"});
  EXPECT_EQ(send().exit, 0);
  EXPECT_EQ(listener.wait(), 0);
}

TEST_F(Listen, RefusesASocketOnWhichSomebodyListensAndLeavesItAlone) {
  ListenerProcess listener(folder, {"--once"});
  Outcome const second = kestrel({"listen", "s", "-o", "other", "--once"});
  EXPECT_EQ(second.exit, 1);
  EXPECT_EQ(second.err, "kestrel: s: somebody listens there already; choose another path\n");
  EXPECT_EQ(send().exit, 0);
  EXPECT_EQ(listener.wait(), 0);
}

TEST_F(Listen, RefusesAPathThatIsNoSocket) {
  write("s", "precious");
  Outcome const run = kestrel({"listen", "s", "-o", "got"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_EQ(run.err, "kestrel: s: is there already and no socket; choose another path\n");
  EXPECT_EQ(read("s"), "precious");
}

TEST_F(Listen, RefusesALinkToo) {
  std::filesystem::create_symlink("elsewhere", socket());
  EXPECT_EQ(kestrel({"listen", "s", "-o", "got"}).exit, 1);
  EXPECT_TRUE(std::filesystem::is_symlink(socket()));
}

TEST_F(Listen, RefusesAPathThatIsTooLong) {
  Outcome const run = kestrel({"listen", std::string(200, 's'), "-o", "got"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_THAT(run.err, HasSubstr("the path of a socket has 1 to "));
}

TEST_F(Listen, SaysThatTheSocketCannotBeMade) {
  Outcome const run = kestrel({"listen", "no/such/s", "-o", "got"});
  EXPECT_EQ(run.exit, 3);
  EXPECT_EQ(run.err, "kestrel: no/such/s: cannot be made: No such file or directory; choose another path\n");
}

TEST_F(Listen, SaysThatTheFolderCannotBeMade) {
  write("got", "a file");
  Outcome const run = kestrel({"listen", "s", "-o", "got"});
  EXPECT_EQ(run.exit, 3);
  EXPECT_FALSE(std::filesystem::exists(socket()));
}

TEST_F(Listen, MakesASocketForItsUserAlone) {
  ListenerProcess const listener(folder, {});
  struct stat status {};
  ASSERT_EQ(::stat(socket().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
}

class SendTest : public Listen {};

TEST_F(SendTest, SaysThatNobodyListens) {
  Outcome const run = send();
  EXPECT_EQ(run.exit, 3);
  EXPECT_EQ(run.err,
            "kestrel: unix:s: nobody can be reached: No such file or directory; is kestrel listen running "
            "there?\n");
}

TEST_F(SendTest, MakesNoFileWhereNobodyListens) {
  EXPECT_EQ(send({"-o", "out"}).exit, 3);
  EXPECT_FALSE(exists("out"));
}

TEST_F(SendTest, RefusesWhatIsNoAddress) {
  write("t.csv", "a,b\n1,2\n");
  for (char const* const address : {"s", "unix:", "tcp:s"}) {
    Outcome const run =
        kestrel({"chart", "t.csv", "--element", "point", "--x", "a", "--y", "b", "--send", address});
    EXPECT_EQ(run.exit, 1);
    EXPECT_EQ(run.err, std::string("kestrel: --send '") + address +
                           "' is no address; give unix:PATH, such as unix:/tmp/charts\n");
  }
}

TEST_F(SendTest, NeedsAPlaceForTheChart) {
  write("t.csv", "a,b\n1,2\n");
  Outcome const run = kestrel({"chart", "t.csv", "--element", "point", "--x", "a", "--y", "b"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_EQ(run.err,
            "kestrel: say where the chart goes: -o FOLDER, --send unix:PATH, or both; kestrel --help tells "
            "more\n");
}

TEST_F(SendTest, KeepsTheWholeFileWhereTheListenerGoesAway) {
  // Far more than a socket holds, so that the sender sees the end.
  write("extra.csv", std::string(4'000'000, 'x'));
  ListenerProcess listener(folder, {"--once", "--limit", "1"});
  Outcome const run = send({"--csv", "extra.csv", "-o", "out"});
  EXPECT_EQ(run.exit, 3);
  EXPECT_THAT(run.err, HasSubstr("kestrel: unix:s: the chart did not get through: "));
  EXPECT_THAT(run.err, testing::EndsWith("; all of it is in out/capture.kcap\n"));
  EXPECT_EQ(listener.wait(), 2);
  EXPECT_EQ(kestrel({"inspect", "out/capture.kcap"}).exit, 0);
}

TEST_F(SendTest, SaysThatTheListenerWentAway) {
  write("extra.csv", std::string(4'000'000, 'x'));
  ListenerProcess const listener(folder, {"--once", "--limit", "1"});
  Outcome const run = send({"--csv", "extra.csv"});
  EXPECT_EQ(run.exit, 3);
  EXPECT_THAT(run.err, HasSubstr("kestrel: unix:s: the chart did not get through: "));
}

}  // namespace
