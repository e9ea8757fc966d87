#include "host/channel.h"

#include "temporary_folder.h"

#include "kestrelhost/recorder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <thread>

using namespace kestrel::host;
using namespace std::chrono_literals;

namespace {

int put(std::int64_t identifier, std::string const& bytes) {
  std::int64_t const zero = 0;
  auto const length = static_cast<std::int64_t>(bytes.size());
  return IpcPutC(&identifier, &zero, &length, bytes.data(), &zero);
}

/// What a capture file holds of one message.
std::string captured(unsigned char identifier, std::string const& bytes) {
  std::string record(16, '\0');
  record[0] = static_cast<char>(identifier);
  record[8] = static_cast<char>(bytes.size() & 0xFF);
  record[9] = static_cast<char>(bytes.size() >> 8);
  return record + bytes;
}

TEST(IpcPutTest, SendsThroughTheHostsChannel) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  std::string const bytes("\0\1\377", 3);
  EXPECT_EQ(put(307, bytes), 0);
  EXPECT_EQ(put(318, ""), 0);
  std::vector<Message> const expected = {{307, bytes}, {318, ""}};
  EXPECT_EQ(recorder.sent(), expected);
  EXPECT_EQ(recorder.services().channel->messages(), expected);
}

TEST(IpcPutTest, TellsAFailure) {
  Recorder recorder;
  recorder.failAt(Operation::IpcPutC, 2);
  ScopedHost const scope(recorder.host());
  EXPECT_EQ(put(307, "a"), 0);
  EXPECT_NE(put(307, "b"), 0);
  EXPECT_EQ(put(307, "c"), 0);
}

TEST(IpcPutTest, RefusesANegativeLength) {
  Recorder recorder;
  ScopedHost const scope(recorder.host());
  std::int64_t const identifier = 307, zero = 0, length = -1;
  EXPECT_NE(IpcPutC(&identifier, &zero, &length, "", &zero), 0);
  EXPECT_TRUE(recorder.sent().empty());
}

TEST(NullChannelTest, TakesEverything) { EXPECT_EQ(NullChannel().put(307, "abc", 3), 0); }

TEST(CaptureChannelTest, WritesEveryMessageInOrderByteForByte) {
  TemporaryFolder const folder;
  std::string const long_text(300, 'x');
  {
    CaptureChannel channel(folder / "a.kcap");
    EXPECT_EQ(channel.put(7, "a\0b", 3), 0);
    EXPECT_EQ(channel.put(8, "", 0), 0);
    EXPECT_EQ(channel.put(9, long_text.data(), long_text.size()), 0);
  }
  EXPECT_EQ(contentOf(folder / "a.kcap"),
            "KCAP0001" + captured(7, std::string("a\0b", 3)) + captured(8, "") + captured(9, long_text));
}

TEST(CaptureChannelTest, WritesIdentifiersAsTheyAre) {
  TemporaryFolder const folder;
  {
    CaptureChannel channel(folder / "a.kcap");
    channel.put(-2, "", 0);
  }
  EXPECT_EQ(contentOf(folder / "a.kcap").substr(8, 8), "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
}

TEST(CaptureChannelTest, WithoutMessagesHasItsSignature) {
  TemporaryFolder const folder;
  { CaptureChannel const channel(folder / "a.kcap"); }
  EXPECT_EQ(contentOf(folder / "a.kcap"), "KCAP0001");
}

TEST(CaptureChannelTest, ReplacesAFileThatIsThere) {
  TemporaryFolder const folder;
  folder.write("a.kcap", std::string(100, 'x'));
  { CaptureChannel const channel(folder / "a.kcap"); }
  EXPECT_EQ(contentOf(folder / "a.kcap"), "KCAP0001");
}

TEST(CaptureChannelTest, HasEachMessageInItsFileWhenThePutReturns) {
  TemporaryFolder const folder;
  CaptureChannel channel(folder / "a.kcap");
  EXPECT_EQ(channel.put(7, "abc", 3), 0);
  EXPECT_EQ(contentOf(folder / "a.kcap"), "KCAP0001" + captured(7, "abc"));
  EXPECT_EQ(channel.put(8, "", 0), 0);
  EXPECT_EQ(contentOf(folder / "a.kcap"), "KCAP0001" + captured(7, "abc") + captured(8, ""));
}

TEST(CaptureChannelTest, IsWholeAfterAFlush) {
  TemporaryFolder const folder;
  CaptureChannel channel(folder / "a.kcap");
  EXPECT_TRUE(channel.flush());
  EXPECT_EQ(contentOf(folder / "a.kcap"), "KCAP0001");
}

TEST(CaptureChannelTest, ThatCannotBeOpenedFailsEveryPut) {
  TemporaryFolder const folder;
  CaptureChannel channel(folder / "missing/a.kcap");
  EXPECT_FALSE(channel.good());
  EXPECT_NE(channel.put(307, "a", 1), 0);
  EXPECT_FALSE(channel.flush());
}

TEST(CaptureChannelTest, ThatIsFullFailsTheSmallestMessageToo) {
  CaptureChannel channel("/dev/full");
  EXPECT_NE(channel.put(307, "", 0), 0);
  EXPECT_NE(channel.put(307, "a", 1), 0);
}

TEST(CaptureChannelTest, FailsWithoutASignalWhereTheReaderOfANamedPipeIsGone) {
  TemporaryFolder const folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  int const reader = ::open((folder / "pipe").c_str(), O_RDONLY | O_NONBLOCK);
  CaptureChannel channel(folder / "pipe");
  EXPECT_EQ(channel.put(307, "a", 1), 0);
  ::close(reader);
  EXPECT_NE(channel.put(307, "a", 1), 0);
  EXPECT_FALSE(channel.good());
}

/// A named pipe that nobody reads yet.
class CaptureChannelOfAPipeTest : public testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); }

  TemporaryFolder const folder;
  std::string const path = folder / "pipe";
  /// Far more than a pipe takes without a reader.
  std::string const large = std::string(std::size_t{8} << 20, 'x');
};

TEST_F(CaptureChannelOfAPipeTest, WaitsForAReaderNoLongerThanItsPatience) {
  CaptureChannel channel(path, 50ms);
  EXPECT_FALSE(channel.good());
  EXPECT_NE(channel.put(307, "a", 1), 0);
}

TEST_F(CaptureChannelOfAPipeTest, SendsAllToAReaderThatComesLater) {
  std::string got;
  std::thread reader([&] {
    std::this_thread::sleep_for(50ms);
    got = contentOf(path);
  });
  {
    CaptureChannel channel(path);
    EXPECT_EQ(channel.put(7, "abc", 3), 0);
    EXPECT_EQ(channel.put(8, large.data(), large.size()), 0);
    EXPECT_TRUE(channel.flush());
  }
  reader.join();
  EXPECT_EQ(got.size(), 8 + 16 + 3 + 16 + large.size());
  EXPECT_TRUE(got.starts_with("KCAP0001" + captured(7, "abc")));
}

TEST_F(CaptureChannelOfAPipeTest, FailsWhereTheReaderReadsNothingInTime) {
  int const reader = ::open(path.c_str(), O_RDONLY | O_NONBLOCK);
  CaptureChannel channel(path, 50ms);
  EXPECT_TRUE(channel.good());
  EXPECT_NE(channel.put(307, large.data(), large.size()), 0);
  EXPECT_FALSE(channel.good());
  EXPECT_FALSE(channel.flush());
  EXPECT_NE(channel.put(307, "a", 1), 0);
  ::close(reader);
}

TEST(CaptureChannelTest, DoesNotWaitForASocketThatIsNoFile) {
  TemporaryFolder const folder;
  int const socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, (folder / "s").c_str(), sizeof address.sun_path - 1);
  ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr const*>(&address), sizeof address), 0);
  auto const before = std::chrono::steady_clock::now();
  CaptureChannel const channel(folder / "s");
  EXPECT_FALSE(channel.good());
  EXPECT_LT(std::chrono::steady_clock::now() - before, usualPatience);
  ::close(socket);
}

TEST(CaptureChannelTest, ThatIsFullFailsFromThenOn) {
  CaptureChannel channel("/dev/full");
  std::string const large(1 << 20, 'x');
  EXPECT_NE(channel.put(307, large.data(), large.size()), 0);
  EXPECT_NE(channel.put(307, "a", 1), 0);
  EXPECT_FALSE(channel.flush());
}

}  // namespace
