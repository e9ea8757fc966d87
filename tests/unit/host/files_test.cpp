#include "host/files.h"

#include "temporary_folder.h"

#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace kestrel::host;

namespace {

std::string fetched(Files& files, std::string const& name) { return files.fetch(name, true, true); }

TEST(FetchFileTest, PassesNameAndFlagsToTheHost) {
  Recorder recorder;
  recorder.services().files->content["a.csv"] = "x,y\n";
  ScopedHost const scope(recorder.host());
  EXPECT_EQ(FetchFile().fetch("a.csv", true, false), "x,y\n");
  EXPECT_EQ(FetchFile().fetch("b.csv", true, true), "");
  std::vector<std::string> const expected = {"FetchFile::fetch(name=\"a.csv\", first=true, second=false)",
                                             "FetchFile::fetch(name=\"b.csv\", first=true, second=true)"};
  EXPECT_EQ(recorder.lines(), expected);
}

TEST(LocalFilesTest, GiveEveryByteOfAFile) {
  TemporaryFolder const folder;
  std::string content("a\0\xff\r\n", 5);
  for (int doubling = 0; doubling < 16; ++doubling) content += content;
  LocalFiles files;
  EXPECT_EQ(fetched(files, folder.write("a.bin", content)), content);
}

TEST(LocalFilesTest, GiveNothingForAFileThatCannotBeRead) {
  TemporaryFolder const folder;
  LocalFiles files;
  EXPECT_EQ(fetched(files, folder / "missing"), "");
  EXPECT_EQ(fetched(files, ""), "");
  EXPECT_EQ(fetched(files, folder.path()), "");
  EXPECT_EQ(fetched(files, folder.write("empty", "")), "");
}

TEST(LocalFilesTest, GiveNothingForANameWithAZero) {
  TemporaryFolder const folder;
  folder.write("a", "x");
  LocalFiles files;
  EXPECT_EQ(fetched(files, (folder / "a") + std::string("\0b", 2)), "");
}

TEST(LocalFilesTest, ReadNothingButRegularFiles) {
  TemporaryFolder const folder;
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  LocalFiles files;
  EXPECT_EQ(fetched(files, folder / "pipe"), "");
  EXPECT_EQ(fetched(files, "/dev/zero"), "");
}

TEST(LocalFilesTest, GiveNothingForAFileBeyondTheLimit) {
  TemporaryFolder const folder;
  LocalFiles files({}, 3);
  EXPECT_EQ(fetched(files, folder.write("three", "abc")), "abc");
  EXPECT_EQ(fetched(files, folder.write("four", "abcd")), "");
}

TEST(LocalFilesTest, WithoutARootFollowLinks) {
  TemporaryFolder const folder;
  std::filesystem::create_symlink(folder.write("a", "x"), folder / "link");
  LocalFiles files;
  EXPECT_EQ(fetched(files, folder / "link"), "x");
}

class RootedFilesTest : public testing::Test {
 protected:
  RootedFilesTest() : files(folder / "root") {
    folder.write("root/a", "inside");
    folder.write("root/deep/b", "deep inside");
    folder.write("secret", "outside");
  }

  TemporaryFolder folder;
  LocalFiles files;
};

TEST_F(RootedFilesTest, TakeNamesBelowTheRoot) {
  EXPECT_EQ(fetched(files, "a"), "inside");
  EXPECT_EQ(fetched(files, "/a"), "inside");
  EXPECT_EQ(fetched(files, "deep//b"), "deep inside");
  EXPECT_EQ(fetched(files, "./deep/./b"), "deep inside");
}

TEST_F(RootedFilesTest, DoNotGoUp) {
  EXPECT_EQ(fetched(files, "../secret"), "");
  EXPECT_EQ(fetched(files, "deep/../../secret"), "");
  EXPECT_EQ(fetched(files, "deep/../a"), "");
  EXPECT_EQ(fetched(files, folder / "secret"), "");
}

TEST_F(RootedFilesTest, DoNotFollowLinks) {
  std::filesystem::create_symlink(folder / "secret", folder / "root/link");
  std::filesystem::create_directory_symlink(folder.path(), folder / "root/up");
  EXPECT_EQ(fetched(files, "link"), "");
  EXPECT_EQ(fetched(files, "up/secret"), "");
}

TEST_F(RootedFilesTest, GiveNothingForAFolder) {
  EXPECT_EQ(fetched(files, "deep"), "");
  EXPECT_EQ(fetched(files, "/"), "");
}

TEST_F(RootedFilesTest, GiveNothingWithoutTheRoot) {
  LocalFiles nowhere(folder / "missing");
  EXPECT_EQ(fetched(nowhere, "a"), "");
}

}  // namespace
