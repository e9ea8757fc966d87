// A sender, as `kestrel listen` sees it.

#include "listen/connection.h"

#include "listen/chart_folder.h"

#include <gtest/gtest.h>
#include <sys/socket.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>

using kestrel::tool::ChartFolder;
using kestrel::tool::Connection;
using kestrel::tool::OpenFile;

namespace {

TEST(Connection, IsSilentSinceTheLastBytesThatCame) {
  std::string folder = (std::filesystem::temp_directory_path() / "kestrel-XXXXXX").string();
  ASSERT_NE(::mkdtemp(folder.data()), nullptr);
  ChartFolder charts(folder, 1 << 20);
  std::array<int, 2> ends{};
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()), 0);
  OpenFile const sender(ends[0]);
  Connection connection(OpenFile(ends[1]), 1, charts, 1 << 20);
  for (int i = 0; i < 3; ++i) {
    auto const before = Connection::Clock::now();
    EXPECT_LE(connection.silentSince(), before);
    ASSERT_EQ(::write(sender.number(), &"KCA"[i], 1), 1);
    EXPECT_TRUE(connection.read());
    EXPECT_GE(connection.silentSince(), before);
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
