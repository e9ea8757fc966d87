// kestrel serve: charts in a browser as they come.

#include "listen_fixture.h"

#include <gmock/gmock.h>
#include <httplib.h>
#include <netinet/in.h>
#include <nlohmann/json.hpp>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

using namespace kestrel::test;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

/// What the stream of events tells.
struct Told {
  std::vector<int> charts;
  std::vector<int> gone;
};

/// A message 307 of type 1 with as much as fits into it.
std::string fullChunkOfText() {
  std::string const head("\x33\x01\0\0\0\0\0\0\xCC\x84\0\0\0\0\0\0\x01\0\0\0\xC0\x84\0\0", 24);
  return head + std::string(0x84C0 + 4, '\0');
}

/// A connection over which nothing is said but what it is told.
class Caller {
 public:
  explicit Caller(int port) : mSocket(::socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ::connect(mSocket, reinterpret_cast<sockaddr const*>(&address), sizeof address);
    timeval const patience{10, 0};
    ::setsockopt(mSocket, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  }
  ~Caller() { ::close(mSocket); }
  Caller(Caller const&) = delete;
  Caller& operator=(Caller const&) = delete;

  void say(std::string const& text) const { ::send(mSocket, text.data(), text.size(), MSG_NOSIGNAL); }

  /// Whether nothing has come, and the other end has not closed.
  bool isOpen() const {
    char byte = 0;
    return ::recv(mSocket, &byte, 1, MSG_PEEK | MSG_DONTWAIT) < 0 && errno == EAGAIN;
  }

  /// The first bytes of what comes, or as many of them as do.
  std::string hear(std::size_t count) const {
    std::string text(count, '\0');
    ssize_t const got = ::recv(mSocket, text.data(), count, MSG_WAITALL);
    text.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return text;
  }

 private:
  int mSocket;
};

/// For this process, and those that it starts.
void allowOpenFiles(rlim_t count) {
  rlimit limit{};
  ::getrlimit(RLIMIT_NOFILE, &limit);
  limit.rlim_cur = std::min(std::max(limit.rlim_cur, count), limit.rlim_max);
  ::setrlimit(RLIMIT_NOFILE, &limit);
}

class Serve : public Listen {
 protected:
  void start(std::vector<std::string> const& more, std::string const& host = "127.0.0.1") {
    std::vector<std::string> arguments = {"serve", "--port", "0", "--host", host};
    arguments.insert(arguments.end(), more.begin(), more.end());
    server = std::make_unique<BackgroundCommand>(folder, arguments);
    std::string const mark = "charts are at http://";
    ASSERT_TRUE(server->says(mark)) << server->err();
    std::string const said = server->out();
    port = std::stoi(said.substr(said.find(':', said.find(mark) + mark.size()) + 1));
  }

  httplib::Client client() const { return httplib::Client("127.0.0.1", port); }

  httplib::Response get(std::string const& path, httplib::Headers const& headers = {}) const {
    auto const result = client().Get(path, headers);
    return result ? *result : httplib::Response();
  }

  /// Reads events until so many charts have been told, and does something once when `first` of them have.
  Told events(std::size_t charts, std::size_t first = 0, std::function<void()> const& then = {}) const {
    Told told;
    std::string text;
    bool isDone = !then;
    client().Get("/events", [&](char const* bytes, std::size_t count) {
      text.append(bytes, count);
      told = readEvents(text);
      if (!isDone && told.charts.size() >= first) {
        isDone = true;
        then();
      }
      return told.charts.size() < charts;
    });
    return told;
  }

  bool answersAgain() const {
    for (int i = 0; i < 100; ++i) {
      if (get("/").status == 200) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }

  static Told readEvents(std::string const& text) {
    Told told;
    std::string const chart = "event: chart\ndata: ";
    for (std::size_t at = text.find(chart); at != std::string::npos; at = text.find(chart, at + 1)) {
      std::size_t const begin = at + chart.size();
      std::size_t const end = text.find('\n', begin);
      if (end == std::string::npos) break;
      told.charts.push_back(nlohmann::json::parse(text.substr(begin, end - begin)).at("id").get<int>());
    }
    std::string const gone = "event: gone\ndata: ";
    for (std::size_t at = text.find(gone); at != std::string::npos; at = text.find(gone, at + 1))
      told.gone.push_back(std::stoi(text.substr(at + gone.size())));
    return told;
  }

  std::unique_ptr<BackgroundCommand> server;
  int port = 0;
};

}  // namespace

TEST_F(Serve, ServesTheClientUnderAPolicyThatAllowsNothingElse) {
  start({"unix:s"});
  httplib::Response const page = get("/");
  EXPECT_EQ(page.status, 200);
  EXPECT_THAT(page.body, HasSubstr("<script type=\"module\" src=\"live.js\">"));
  std::string const policy = page.get_header_value("Content-Security-Policy");
  EXPECT_THAT(policy, AllOf(StartsWith("default-src 'none'; script-src 'self'"),
                            HasSubstr("frame-ancestors 'none'"), Not(HasSubstr("unsafe"))));
  EXPECT_EQ(page.get_header_value("X-Content-Type-Options"), "nosniff");
  EXPECT_EQ(get("/live.js").get_header_value("Content-Type"), "text/javascript; charset=utf-8");
  EXPECT_EQ(get("/client.css").get_header_value("Content-Type"), "text/css; charset=utf-8");
  EXPECT_EQ(get("/../live.js").status, 404);
}

TEST_F(Serve, ShowsCapturesThatAreNamed) {
  std::string const bytes = capture();
  start({"out/capture.kcap", "unix:s"});
  EXPECT_THAT(events(1).charts, testing::ElementsAre(1));
  httplib::Response const chart = get("/charts/1.kcap");
  EXPECT_EQ(chart.status, 200);
  EXPECT_EQ(chart.body, bytes);
  EXPECT_EQ(get("/charts/2.kcap").status, 404);
}

TEST_F(Serve, CallsAChartByOneNameOnly) {
  capture();
  start({"out/capture.kcap", "unix:s"});
  for (std::string const name : {"01", "0", "+1", "1.0"})
    EXPECT_EQ(get("/charts/" + name + ".kcap").status, 404) << name;
}

TEST_F(Serve, TellsOfChartsAsTheyCome) {
  start({"unix:s"});
  Told told;
  std::thread reader([&] { told = events(2); });
  EXPECT_EQ(send({"--title", "One"}).exit, 0);
  EXPECT_EQ(send({"--title", "Two"}).exit, 0);
  reader.join();
  EXPECT_THAT(told.charts, testing::ElementsAre(1, 2));
  EXPECT_THAT(get("/charts/2.kcap").body, StartsWith("KCAP0001"));
  EXPECT_THAT(server->out(), HasSubstr("connection 2: chart, 8 messages, "));
}

TEST_F(Serve, KeepsOnlyTheNewestChartsAndSaysWhichAreGone) {
  capture();
  start({"--keep", "2", "out/capture.kcap", "out/capture.kcap", "unix:s"});
  Told const told = events(3, 2, [this] { send(); });
  EXPECT_THAT(told.charts, testing::ElementsAre(1, 2, 3));
  EXPECT_THAT(told.gone, testing::ElementsAre(1));
  EXPECT_EQ(get("/charts/1.kcap").status, 404);
  EXPECT_EQ(get("/charts/3.kcap").status, 200);
}

TEST_F(Serve, DropsTheOldestWhereTheyTakeTooMuch) {
  std::string const bytes = capture();
  start({"--max-bytes", std::to_string(2 * bytes.size() + 10), "out/capture.kcap", "out/capture.kcap",
         "out/capture.kcap", "unix:s"});
  EXPECT_THAT(events(2).charts, testing::ElementsAre(2, 3));
}

TEST_F(Serve, RefusesAChartOnItsWayThatTakesTooMuch) {
  start({"--max-bytes", "50000", "unix:s"});
  Sender const sender(socket());
  sender.send("KCAP0001" + description + fullChunkOfText() + fullChunkOfText());
  EXPECT_TRUE(sender.isRefused());
  EXPECT_THAT(server->err(), HasSubstr("would take more than 50,000 bytes; --max-bytes allows more"));
}

TEST_F(Serve, ShowsAChartThatWasCut) {
  start({"unix:s"});
  Sender sender(socket());
  sender.send("KCAP0001" + description);
  sender.close();
  EXPECT_THAT(events(1).charts, testing::ElementsAre(1));
  EXPECT_EQ(get("/charts/1.kcap").body, "KCAP0001" + description);
}

TEST_F(Serve, AnswersNoNameButItsOwn) {
  start({"unix:s"});
  std::string const own = std::to_string(port);
  for (std::string const& name : {"127.0.0.1:" + own, "localhost:" + own, "[::1]:" + own})
    EXPECT_EQ(get("/", {{"Host", name}}).status, 200) << name;
  for (std::string const name : {"charts.example", "127.0.0.1.example:80", "localhost.example", ""})
    EXPECT_EQ(get("/", {{"Host", name}}).status, 403) << name;
}

TEST_F(Serve, IsOnlyToBeRead) {
  start({"unix:s"});
  EXPECT_EQ(client().Post("/charts/1.kcap", "x", "text/plain")->status, 405);
  EXPECT_EQ(client().Delete("/charts/1.kcap")->status, 405);
}

TEST_F(Serve, EndsCleanlyWhileAPageWaits) {
  start({"unix:s"});
  std::thread reader([&] { events(1); });
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  auto const begin = std::chrono::steady_clock::now();
  server->signal(SIGTERM);
  EXPECT_EQ(server->wait(), 0);
  reader.join();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
  EXPECT_FALSE(exists("s"));
}

TEST_F(Serve, EndsAtOnceWhereSomebodyIsSlow) {
  start({"unix:s"});
  std::list<Caller> slow;
  for (int i = 0; i < 20; ++i) slow.emplace_back(port).say("GET / HTTP/1.1\r\nX-Sl");
  EXPECT_EQ(get("/").status, 200);
  auto const begin = std::chrono::steady_clock::now();
  server->signal(SIGINT);
  EXPECT_EQ(server->wait(), 0);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST_F(Serve, ClosesWhatItHasAnswered) {
  start({"unix:s"});
  for (std::string const path : {"/", "/nothing"})
    EXPECT_EQ(get(path, {{"Connection", "keep-alive"}}).get_header_value("Connection"), "close") << path;
}

TEST_F(Serve, AnswersWhileManyConnectionsAreOpen) {
  start({"unix:s"});
  std::list<Caller> idle;
  std::list<Caller> slow;
  std::list<Caller> readers;
  for (int i = 0; i < 60; ++i)
    readers.emplace_back(port).say("GET /events HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n");
  for (int i = 0; i < 100; ++i) idle.emplace_back(port);
  for (int i = 0; i < 50; ++i) slow.emplace_back(port).say("GET / HTTP/1.1\r\nX-Sl");
  auto const begin = std::chrono::steady_clock::now();
  EXPECT_EQ(get("/").status, 200);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  int streams = 0;
  int refused = 0;
  for (Caller const& reader : readers) {
    std::string const status = reader.hear(12);
    if (status == "HTTP/1.1 200") ++streams;
    if (status == "HTTP/1.1 503") ++refused;
  }
  EXPECT_EQ(streams, 24);
  EXPECT_EQ(refused, 36);
}

TEST_F(Serve, ClosesARequestThatComesByteByByte) {
  start({"unix:s"});
  Caller const caller(port);
  auto const begin = std::chrono::steady_clock::now();
  std::string const request = "GET / HTTP/1.1\r\nX-Slow: ";
  for (std::size_t at = 0; at < 40 && caller.isOpen(); ++at) {
    caller.say(at < request.size() ? request.substr(at, 1) : "x");
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
  }
  EXPECT_FALSE(caller.isOpen());
  EXPECT_GT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(8));
}

TEST_F(Serve, RefusesAtOnceWhatItHasNoThreadFor) {
  allowOpenFiles(1200);
  start({"unix:s"});
  std::list<Caller> slow;
  for (int i = 0; i < 512; ++i) slow.emplace_back(port).say("GET / HTTP/1.1\r\nX-Sl");
  Caller const next(port);
  auto const begin = std::chrono::steady_clock::now();
  std::string const answer = next.hear(4096);
  EXPECT_THAT(answer, AllOf(StartsWith("HTTP/1.1 503 "), HasSubstr("Too many connections are open already")));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  slow.clear();
  EXPECT_TRUE(answersAgain());
}

TEST_F(Serve, SendsAnswersWholeWhateverPartsAreAskedFor) {
  std::string const bytes = capture();
  start({"out/capture.kcap", "unix:s"});
  httplib::Response const chart = get("/charts/1.kcap", {{"Range", "bytes=0-9,0-9,0-9"}});
  EXPECT_EQ(chart.status, 200);
  EXPECT_EQ(chart.body, bytes);
}

TEST_F(Serve, SpendsNoTimeOnCompression) {
  start({"unix:s"});
  Caller const caller(port);
  caller.say("GET /live.js HTTP/1.1\r\nHost: 127.0.0.1\r\nAccept-Encoding: br, gzip\r\n\r\n");
  std::string const answer = caller.hear(2048);
  EXPECT_THAT(answer, AllOf(StartsWith("HTTP/1.1 200 "), Not(HasSubstr("Content-Encoding"))));
}

TEST_F(Serve, MakesASocketWhereNoneIsNamed) {
  start({});
  EXPECT_TRUE(exists("kestrel.sock"));
  EXPECT_THAT(server->out(), HasSubstr("KESTREL_CAPTURE=unix:" + (folder / "kestrel.sock").string()));
}

TEST_F(Serve, SharesNoPort) {
  start({"unix:s"});
  Outcome const outcome = kestrel({"serve", "--port", std::to_string(port), "unix:other"});
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_EQ(outcome.err, "kestrel: cannot serve at 127.0.0.1:" + std::to_string(port) + ": " +
                             std::generic_category().message(EADDRINUSE) +
                             "; choose another --host or --port, of which 0 is any that is free\n");
}

TEST_F(Serve, SaysWhyItCannotBeAtAnAddress) {
  Outcome const outcome = kestrel({"serve", "--host", "no.host.invalid", "unix:s"});
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_THAT(outcome.err,
              HasSubstr("no.host.invalid:8411: no address has that name; choose another --host"));
}

TEST_F(Serve, WarnsWhereOthersCanSeeTheCharts) {
  start({"unix:s"}, "0.0.0.0");
  EXPECT_EQ(
      server->err(),
      "kestrel: --host 0.0.0.0: whoever can reach any address of this machine sees all charts, without a "
      "password and unencrypted; leave --host out to show them on this machine alone\n");
}

TEST_F(Serve, WarnsOfNothingOnThisMachineAlone) {
  start({"unix:s"});
  EXPECT_EQ(server->err(), "");
}

TEST_F(Serve, TellsWhatIsWrongWithACaptureThatIsNamed) {
  write("cut.kcap", capture().substr(0, 300));
  start({"cut.kcap", "unix:s"});
  EXPECT_THAT(server->err(), StartsWith("kestrel: cut.kcap: at byte "));
  EXPECT_THAT(events(1).charts, testing::ElementsAre(1));
}

TEST_F(Serve, RefusesASocketWithoutAPath) {
  Outcome const outcome = kestrel({"serve", "--port", "0", "unix:"});
  EXPECT_EQ(outcome.exit, 1);
  EXPECT_THAT(outcome.err, StartsWith("kestrel: unix:: the path of a socket has 1 to "));
}
