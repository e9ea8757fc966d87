// Channels to a reader: real sockets and pipes, readers that are slow, and readers that vanish.

#include "kestrelhost/stream_channel.h"

#include "temporary_folder.h"

#include "kestrelhost/host.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

using namespace kestrel::host;
using namespace std::chrono_literals;

namespace {

/// Far more than a pipe or a socket takes without a reader.
std::string const large(std::size_t{8} << 20, 'x');
/// Long enough that only a hang is longer.
constexpr auto patience = std::chrono::milliseconds(20'000);
constexpr auto shortPatience = 50ms;

/// What a capture holds of one message.
std::string record(unsigned char identifier, std::string const& bytes) {
  std::string text(16, '\0');
  text[0] = static_cast<char>(identifier);
  for (std::size_t at = 0; at < 8; ++at) text[8 + at] = static_cast<char>(bytes.size() >> (8 * at) & 0xFF);
  return text + bytes;
}

/// A descriptor that is closed at the end of a test, or before.
class Open {
 public:
  explicit Open(int number = -1) : mNumber(number) {}
  ~Open() { close(); }
  Open(Open&& other) noexcept : mNumber(std::exchange(other.mNumber, -1)) {}
  Open& operator=(Open&& other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
  }
  Open(Open const&) = delete;
  Open& operator=(Open const&) = delete;

  int get() const { return mNumber; }
  void close() {
    if (mNumber >= 0) ::close(mNumber);
    mNumber = -1;
  }

 private:
  int mNumber;
};

struct Pair {
  Open reader;
  Open writer;
};

Pair makePipe() {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  return {Open(ends[0]), Open(ends[1])};
}

Pair makeSockets() {
  std::array<int, 2> ends{};
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) throw std::runtime_error("no sockets");
  return {Open(ends[0]), Open(ends[1])};
}

/// Reads to the end, `step` bytes at a time, and rests after each.
std::string readAll(int descriptor, std::size_t step = 1 << 16, std::chrono::microseconds rest = 0us) {
  std::string all;
  std::string part(step, '\0');
  for (ssize_t got = 1; got > 0;) {
    got = ::read(descriptor, part.data(), part.size());
    if (got > 0) all.append(part, 0, static_cast<std::size_t>(got));
    if (rest > 0us) std::this_thread::sleep_for(rest);
  }
  return all;
}

class Listener {
 public:
  explicit Listener(std::string const& path, int backlog = 5) : mSocket(::socket(AF_UNIX, SOCK_STREAM, 0)) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    auto const* const generic = reinterpret_cast<sockaddr const*>(&address);
    if (::bind(mSocket.get(), generic, sizeof address) != 0 || ::listen(mSocket.get(), backlog) != 0) {
      throw std::runtime_error("no listener");
    }
  }

  Open accept() const { return Open(::accept(mSocket.get(), nullptr, nullptr)); }

 private:
  Open mSocket;
};

int put(Channel& channel, std::string const& bytes) { return channel.put(7, bytes.data(), bytes.size()); }

/// Whether the bytes are those of whole messages, each as sent, and then at most the start of one more.
void expectStart(std::string const& got, std::string const& sent) {
  EXPECT_LT(got.size(), sent.size());
  EXPECT_EQ(got, sent.substr(0, got.size()));
}

struct Way {
  char const* name;
  Pair (*make)();
};

std::ostream& operator<<(std::ostream& stream, Way const& way) { return stream << way.name; }

/// What holds of a pipe and of a socket alike.
class DescriptorChannelTest : public testing::TestWithParam<Way> {
 protected:
  DescriptorChannelTest() : ends(GetParam().make()) {}

  Pair ends;
};

INSTANTIATE_TEST_SUITE_P(Ways, DescriptorChannelTest,
                         testing::Values(Way{"Pipe", makePipe}, Way{"Socket", makeSockets}),
                         [](auto const& each) { return each.param.name; });

TEST_P(DescriptorChannelTest, WritesTheSignatureAndEachMessageBehindItsIdentifierAndLength) {
  DescriptorChannel channel(ends.writer.get(), patience);
  EXPECT_EQ(put(channel, std::string("a\0b", 3)), 0);
  EXPECT_EQ(channel.put(8, "", 0), 0);
  EXPECT_TRUE(channel.good());
  ends.writer.close();
  EXPECT_EQ(readAll(ends.reader.get()), "KCAP0001" + record(7, std::string("a\0b", 3)) + record(8, ""));
}

TEST_P(DescriptorChannelTest, LeavesTheDescriptorOpen) {
  { DescriptorChannel const channel(ends.writer.get(), patience); }
  EXPECT_EQ(::write(ends.writer.get(), "x", 1), 1);
}

TEST_P(DescriptorChannelTest, GetsMoreThanFitsThroughToASlowReader) {
  std::string got;
  std::thread reader([&] { got = readAll(ends.reader.get(), 30'011, 10us); });
  DescriptorChannel channel(ends.writer.get(), patience);
  EXPECT_EQ(put(channel, large), 0);
  EXPECT_EQ(put(channel, "end"), 0);
  ends.writer.close();
  reader.join();
  EXPECT_EQ(got, "KCAP0001" + record(7, large) + record(7, "end"));
}

TEST_P(DescriptorChannelTest, FailsWhereNobodyReadsInTime) {
  DescriptorChannel channel(ends.writer.get(), shortPatience);
  EXPECT_NE(put(channel, large), 0);
  EXPECT_FALSE(channel.good());
  EXPECT_EQ(channel.error(), std::errc::timed_out);
}

TEST_P(DescriptorChannelTest, FailsAtOnceAfterAFailure) {
  DescriptorChannel channel(ends.writer.get(), shortPatience);
  EXPECT_NE(put(channel, large), 0);
  // With room again, another message would stand in the middle of the one that is cut.
  std::string part(1 << 16, '\0');
  ASSERT_GT(::read(ends.reader.get(), part.data(), part.size()), 0);
  EXPECT_NE(put(channel, "a"), 0);
  EXPECT_EQ(channel.error(), std::errc::timed_out);
  ends.writer.close();
  std::string const rest = readAll(ends.reader.get());
  EXPECT_EQ(rest, std::string(rest.size(), 'x'));
}

TEST_P(DescriptorChannelTest, LeavesTheReaderWithTheStartOfWhatWasSent) {
  {
    DescriptorChannel channel(ends.writer.get(), shortPatience);
    EXPECT_EQ(put(channel, "whole"), 0);
    EXPECT_NE(put(channel, large), 0);
  }
  ends.writer.close();
  std::string const got = readAll(ends.reader.get());
  EXPECT_GT(got.size(), ("KCAP0001" + record(7, "whole")).size() + 16);
  expectStart(got, "KCAP0001" + record(7, "whole") + record(7, large));
}

TEST_P(DescriptorChannelTest, DoesNotWaitLongerForAReaderThatTakesALittleNowAndThen) {
  std::thread reader([&] { readAll(ends.reader.get(), 512, 1ms); });
  {
    DescriptorChannel channel(ends.writer.get(), 300ms);
    auto const before = std::chrono::steady_clock::now();
    // At that speed it would take the reader a quarter of a minute.
    EXPECT_NE(put(channel, large), 0);
    EXPECT_EQ(channel.error(), std::errc::timed_out);
    EXPECT_LT(std::chrono::steady_clock::now() - before, 10s);
  }
  // Else the reader takes all that is on its way.
  ::shutdown(ends.writer.get(), SHUT_RDWR);
  ends.writer.close();
  reader.join();
}

TEST_P(DescriptorChannelTest, FailsWhereTheReaderIsGone) {
  DescriptorChannel channel(ends.writer.get(), patience);
  EXPECT_EQ(put(channel, "a"), 0);
  ends.reader.close();
  EXPECT_NE(put(channel, "b"), 0);
  EXPECT_EQ(channel.error(), std::errc::broken_pipe);
  EXPECT_NE(put(channel, "c"), 0);
}

TEST_P(DescriptorChannelTest, FailsWhereTheReaderGoesInTheMiddleOfAMessage) {
  std::thread reader([&] {
    std::string part(1000, '\0');
    std::size_t got = 0;
    while (got < 1'000'000)
      got += static_cast<std::size_t>(::read(ends.reader.get(), part.data(), part.size()));
    ends.reader.close();
  });
  DescriptorChannel channel(ends.writer.get(), patience);
  EXPECT_NE(put(channel, large), 0);
  reader.join();
  EXPECT_FALSE(channel.good());
  EXPECT_NE(channel.error(), std::errc::timed_out);
}

TEST_P(DescriptorChannelTest, IsNotGoodWhereTheReaderWasGoneBefore) {
  ends.reader.close();
  DescriptorChannel channel(ends.writer.get(), patience);
  EXPECT_FALSE(channel.good());
  EXPECT_NE(put(channel, "a"), 0);
}

std::sig_atomic_t volatile pipeSignals = 0;
std::sig_atomic_t volatile alarms = 0;

/// Counts a signal for one test.
class Handled {
 public:
  Handled(int signal, void (*handler)(int)) : mSignal(signal) {
    struct sigaction action {};
    action.sa_handler = handler;
    // Without SA_RESTART: calls of the system end with EINTR.
    ::sigaction(signal, &action, &mBefore);
  }
  ~Handled() { ::sigaction(mSignal, &mBefore, nullptr); }
  Handled(Handled const&) = delete;
  Handled& operator=(Handled const&) = delete;

 private:
  int mSignal;
  struct sigaction mBefore {};
};

TEST_P(DescriptorChannelTest, RaisesNoSignalAndLeavesTheProcessItsOwn) {
  pipeSignals = 0;
  Handled const handled(SIGPIPE, [](int) { pipeSignals = pipeSignals + 1; });
  DescriptorChannel channel(ends.writer.get(), patience);
  ends.reader.close();
  EXPECT_NE(put(channel, "a"), 0);
  EXPECT_EQ(pipeSignals, 0);
  // The process's own handler stands, and nothing is blocked.
  ::raise(SIGPIPE);
  EXPECT_EQ(pipeSignals, 1);
}

TEST_P(DescriptorChannelTest, LeavesASignalThatWasOnItsWayBefore) {
  pipeSignals = 0;
  Handled const handled(SIGPIPE, [](int) { pipeSignals = pipeSignals + 1; });
  sigset_t set{};
  sigset_t before{};
  sigemptyset(&set);
  sigaddset(&set, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &set, &before);
  ::raise(SIGPIPE);
  DescriptorChannel channel(ends.writer.get(), patience);
  ends.reader.close();
  EXPECT_NE(put(channel, "a"), 0);
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  EXPECT_EQ(pipeSignals, 1);
}

TEST_P(DescriptorChannelTest, GoesOnAfterInterruptions) {
  alarms = 0;
  Handled const handled(SIGUSR1, [](int) { alarms = alarms + 1; });
  pthread_t const sender = pthread_self();
  std::string got;
  std::thread reader([&] {
    for (int i = 0; i < 20; ++i) {
      pthread_kill(sender, SIGUSR1);
      std::this_thread::sleep_for(2ms);
    }
    got = readAll(ends.reader.get());
  });
  DescriptorChannel channel(ends.writer.get(), patience);
  EXPECT_EQ(put(channel, large), 0);
  ends.writer.close();
  reader.join();
  EXPECT_GT(alarms, 0);
  EXPECT_EQ(got, "KCAP0001" + record(7, large));
}

TEST(DescriptorChannelOfAFileTest, WritesACapture) {
  TemporaryFolder const folder;
  Open const file(::open((folder / "a.kcap").c_str(), O_CREAT | O_WRONLY, 0600));
  DescriptorChannel channel(file.get());
  EXPECT_EQ(put(channel, large), 0);
  EXPECT_EQ(contentOf(folder / "a.kcap"), "KCAP0001" + record(7, large));
}

TEST(DescriptorChannelOfAFileTest, FailsWhereNothingIsOpen) {
  DescriptorChannel channel(-1, patience);
  EXPECT_EQ(channel.error(), std::errc::bad_file_descriptor);
  EXPECT_NE(put(channel, "a"), 0);
}

TEST(DescriptorChannelOfAFileTest, FailsWhereTheDiskIsFull) {
  Open const file(::open("/dev/full", O_WRONLY));
  DescriptorChannel const channel(file.get(), patience);
  EXPECT_EQ(channel.error(), std::errc::no_space_on_device);
}

class SocketChannelTest : public testing::Test {
 protected:
  TemporaryFolder const folder;
  std::string const path = folder / "socket";
};

TEST_F(SocketChannelTest, SendsACaptureToTheListener) {
  Listener const listener(path);
  Open accepted;
  {
    SocketChannel channel(path, patience);
    EXPECT_TRUE(channel.good());
    accepted = listener.accept();
    EXPECT_EQ(put(channel, "abc"), 0);
    EXPECT_EQ(channel.put(8, "", 0), 0);
  }
  EXPECT_EQ(readAll(accepted.get()), "KCAP0001" + record(7, "abc") + record(8, ""));
}

TEST_F(SocketChannelTest, SendsTheSignatureBeforeAnyMessage) {
  Listener const listener(path);
  { SocketChannel const channel(path, patience); }
  EXPECT_EQ(readAll(listener.accept().get()), "KCAP0001");
}

TEST_F(SocketChannelTest, IsTheChannelOfAHost) {
  Listener const listener(path);
  {
    Host host;
    host.channel = std::make_shared<SocketChannel>(path, patience);
    ScopedHost const scope(host);
    EXPECT_EQ(put(*Host::current().channel, "abc"), 0);
  }
  EXPECT_EQ(readAll(listener.accept().get()), "KCAP0001" + record(7, "abc"));
}

TEST_F(SocketChannelTest, ClosesTheConnectionAtTheFirstFailure) {
  Listener const listener(path);
  SocketChannel channel(path, shortPatience);
  Open const accepted = listener.accept();
  EXPECT_NE(put(channel, large), 0);
  EXPECT_EQ(channel.error(), std::errc::timed_out);
  EXPECT_FALSE(channel.good());
  // Ends, though the channel still lives.
  expectStart(readAll(accepted.get()), "KCAP0001" + record(7, large));
  EXPECT_NE(put(channel, "a"), 0);
}

TEST_F(SocketChannelTest, FailsWhereTheReaderIsGone) {
  Listener const listener(path);
  SocketChannel channel(path, patience);
  listener.accept().close();
  EXPECT_NE(put(channel, "a"), 0);
  EXPECT_EQ(channel.error(), std::errc::broken_pipe);
}

TEST_F(SocketChannelTest, IsNotGoodWhereThereIsNoSocket) {
  SocketChannel channel(path, patience);
  EXPECT_FALSE(channel.good());
  EXPECT_EQ(channel.error(), std::errc::no_such_file_or_directory);
  EXPECT_NE(put(channel, "a"), 0);
}

TEST_F(SocketChannelTest, IsNotGoodWhereNobodyListensAnyMore) {
  { Listener const listener(path); }
  EXPECT_EQ(SocketChannel(path, patience).error(), std::errc::connection_refused);
}

TEST_F(SocketChannelTest, IsNotGoodWithAPathThatIsTooLong) {
  EXPECT_EQ(SocketChannel(folder / std::string(200, 'x'), patience).error(), std::errc::filename_too_long);
}

TEST_F(SocketChannelTest, IsNotGoodWithoutAPath) {
  EXPECT_EQ(SocketChannel("", patience).error(), std::errc::no_such_file_or_directory);
}

#ifdef __linux__
// Elsewhere a listener that has too many callers refuses the next one.
TEST_F(SocketChannelTest, DoesNotWaitForEverForAListenerThatDoesNotAccept) {
  Listener const listener(path, 0);
  SocketChannel const first(path, shortPatience);
  EXPECT_TRUE(first.good());
  EXPECT_EQ(SocketChannel(path, shortPatience).error(), std::errc::timed_out);
}
#endif

}  // namespace
