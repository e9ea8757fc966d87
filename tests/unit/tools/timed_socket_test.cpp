// How long the other end of a connection may keep kestrel serve waiting.

#include "serve/timed_socket.h"

#include "listen/open_file.h"
#include "serve/timed_stream.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <ctime>
#include <stdexcept>
#include <string>
#include <thread>
#include <type_traits>

namespace kestrel::tool {

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

/// The stream of an older version of the HTTP library, and of a newer one.
struct OlderStream {
  virtual ~OlderStream() = default;
  virtual bool is_readable() const = 0;
  virtual bool is_writable() const = 0;
  virtual ssize_t read(char* bytes, std::size_t count) = 0;
  virtual ssize_t write(char const* bytes, std::size_t count) = 0;
  virtual void get_remote_ip_and_port(std::string& address, int& port) const = 0;
  virtual void get_local_ip_and_port(std::string& address, int& port) const = 0;
  virtual int socket() const = 0;
};

struct NewerStream {
  virtual ~NewerStream() = default;
  virtual bool is_readable() const = 0;
  virtual bool wait_readable() const = 0;
  virtual bool wait_writable() const = 0;
  virtual bool is_peer_alive() const { return wait_writable(); }
  virtual ssize_t read(char* bytes, std::size_t count) = 0;
  virtual ssize_t write(char const* bytes, std::size_t count) = 0;
  virtual void get_remote_ip_and_port(std::string& address, int& port) const = 0;
  virtual void get_local_ip_and_port(std::string& address, int& port) const = 0;
  virtual int socket() const = 0;
  virtual std::time_t duration() const = 0;
};

static_assert(!std::is_abstract_v<TimedStream<OlderStream>>);
static_assert(!std::is_abstract_v<TimedStream<NewerStream>>);

constexpr Patience patience{.firstByte = 200ms,
                            .request = 500ms,
                            .answer = 300ms,
                            .bytesPerSecond = 100'000'000,
                            .longestRequest = 100};

class TimedSocketTest : public ::testing::Test {
 protected:
  TimedSocketTest() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) throw std::runtime_error("no sockets");
    ours = OpenFile(ends[0]);
    theirs = OpenFile(ends[1]);
  }

  /// Reads until there is nothing more, and returns how much there was.
  static std::size_t readAll(TimedSocket& socket) {
    std::array<char, 8> bytes;
    std::size_t all = 0;
    for (ssize_t got = 0; (got = socket.read(bytes.data(), bytes.size())) > 0;)
      all += static_cast<std::size_t>(got);
    return all;
  }

  std::atomic<bool> isOver = false;
  OpenFile ours;
  OpenFile theirs;
};

}  // namespace

TEST_F(TimedSocketTest, ClosesBeforeARequestThatDoesNotBegin) {
  Patience later = patience;
  later.request = 60s;
  TimedSocket socket(ours.number(), later);
  auto const begin = Clock::now();
  EXPECT_EQ(readAll(socket), 0U);
  EXPECT_GE(Clock::now() - begin, 200ms);
  EXPECT_LT(Clock::now() - begin, 30s);
}

TEST_F(TimedSocketTest, GivesAWholeRequestOneTimeHoweverItIsDivided) {
  TimedSocket socket(ours.number(), patience);
  auto const begin = Clock::now();
  std::thread writer([this] {
    for (int i = 0; i < 200 && !isOver; ++i) {
      if (::write(theirs.number(), "x", 1) != 1) return;
      std::this_thread::sleep_for(50ms);
    }
  });
  EXPECT_GT(readAll(socket), 3U);
  EXPECT_GE(Clock::now() - begin, 500ms);
  EXPECT_LT(Clock::now() - begin, 5s);
  isOver = true;
  writer.join();
}

TEST_F(TimedSocketTest, ReadsNoRequestWithoutEnd) {
  TimedSocket socket(ours.number(), patience);
  std::string const text(1000, 'x');
  ASSERT_EQ(::write(theirs.number(), text.data(), text.size()), 1000);
  EXPECT_EQ(readAll(socket), 100U);
}

TEST_F(TimedSocketTest, GivesAWholeAnswerOneTimeHoweverItIsTaken) {
  TimedSocket socket(ours.number(), patience);
  std::string const answer(std::size_t{8} << 20, 'x');
  auto const begin = Clock::now();
  std::thread reader([this] {
    std::array<char, 4096> bytes;
    for (int i = 0; i < 200 && !isOver; ++i) {
      if (::recv(theirs.number(), bytes.data(), bytes.size(), MSG_DONTWAIT) == 0) return;
      std::this_thread::sleep_for(50ms);
    }
  });
  EXPECT_LT(socket.write(answer.data(), answer.size()), 0);
  EXPECT_LT(Clock::now() - begin, 5s);
  isOver = true;
  reader.join();
}

TEST_F(TimedSocketTest, GivesLongAnswersMoreTime) {
  Patience slow = patience;
  slow.bytesPerSecond = 200'000;
  TimedSocket socket(ours.number(), slow);
  std::string const answer(std::size_t{2} << 20, 'x');
  std::thread reader([this] {
    std::array<char, 65536> bytes;
    for (ssize_t got = 1; got > 0; got = ::recv(theirs.number(), bytes.data(), bytes.size(), 0))
      std::this_thread::sleep_for(20ms);
  });
  EXPECT_EQ(socket.write(answer.data(), answer.size()), static_cast<ssize_t>(answer.size()));
  ours = OpenFile();
  reader.join();
}

TEST_F(TimedSocketTest, CountsNoTimeInWhichThereIsNothingToSend) {
  TimedSocket socket(ours.number(), patience);
  std::this_thread::sleep_for(400ms);
  EXPECT_EQ(socket.write("late", 4), 4);
}

TEST_F(TimedSocketTest, NoticesThatTheReaderIsGone) {
  TimedSocket socket(ours.number(), patience);
  EXPECT_TRUE(socket.waitWritable());
  theirs = OpenFile();
  EXPECT_FALSE(socket.waitWritable());
}

}  // namespace kestrel::tool
