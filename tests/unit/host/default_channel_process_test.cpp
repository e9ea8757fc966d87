#include "temporary_folder.h"

#include "host/channel.h"
#include "kestrelhost/channel.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

using kestrel::host::CaptureChannel;

namespace {

int put(std::string const& bytes) {
  std::int64_t const identifier = 7, zero = 0;
  auto const length = static_cast<std::int64_t>(bytes.size());
  return IpcPutC(&identifier, &zero, &length, bytes.data(), &zero);
}

std::string const expected =
    CaptureChannel::signature + std::string("\7\0\0\0\0\0\0\0\3\0\0\0\0\0\0\0", 16) + "abc";

/// Sends in a process of its own, which then ends as processes do.
void sendAndExit() {
  bool const sent = put("abc") == 0;
  std::exit(sent ? 0 : 1);
}

TEST(DefaultChannelProcessTest, CapturesToTheFileThatTheEnvironmentNames) {
  TemporaryFolder const folder;
  ScopedVariable const variable("KESTREL_CAPTURE", (folder / "chosen.kcap").c_str());
  EXPECT_EXIT(sendAndExit(), testing::ExitedWithCode(0), "");
  EXPECT_EQ(contentOf(folder / "chosen.kcap"), expected);
}

TEST(DefaultChannelProcessTest, CapturesToTheCurrentFolderOtherwise) {
  TemporaryFolder const folder;
  ScopedVariable const variable("KESTREL_CAPTURE", nullptr);
  std::filesystem::path const before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  EXPECT_EXIT(sendAndExit(), testing::ExitedWithCode(0), "");
  std::filesystem::current_path(before);
  EXPECT_EQ(contentOf(folder / "capture.kcap"), expected);
}

TEST(DefaultChannelProcessTest, WritesToStandardOutput) {
  TemporaryFolder const folder;
  ScopedVariable const variable("KESTREL_CAPTURE", "-");
  auto const sendToFile = [&] {
    int const file = ::open((folder / "out").c_str(), O_CREAT | O_WRONLY, 0600);
    ::dup2(file, STDOUT_FILENO);
    sendAndExit();
  };
  EXPECT_EXIT(sendToFile(), testing::ExitedWithCode(0), "");
  EXPECT_EQ(contentOf(folder / "out"), expected);
}

TEST(DefaultChannelProcessTest, FailsWhereNobodyListensOnTheSocket) {
  TemporaryFolder const folder;
  ScopedVariable const variable("KESTREL_CAPTURE", ("unix:" + (folder / "socket")).c_str());
  EXPECT_NE(put("abc"), 0);
  EXPECT_FALSE(std::filesystem::exists(folder / "socket"));
}

TEST(DefaultChannelProcessTest, OpensNoFileBeforeTheFirstMessage) {
  TemporaryFolder const folder;
  ScopedVariable const variable("KESTREL_CAPTURE", (folder / "chosen.kcap").c_str());
  EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(0), "");
  EXPECT_FALSE(std::filesystem::exists(folder / "chosen.kcap"));
}

TEST(DefaultChannelProcessTest, FailsWhereTheFileCannotBeOpened) {
  TemporaryFolder const folder;
  ScopedVariable const variable("KESTREL_CAPTURE", (folder / "missing/chosen.kcap").c_str());
  EXPECT_NE(put("abc"), 0);
}

}  // namespace
