#include "inspect/arrow_stream.h"

#include "capture_builder.h"

#include "host/data_store.h"

#include <gmock/gmock.h>

#include <memory>

using kestrel::tool::readArrowStreams;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::string streamOf(VarDataProcessor& store) {
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
  return {reinterpret_cast<char const*>(stream.get()), size};
}

TEST(ArrowStreams, TellSourceColumnsAndRows) {
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  store.AddVariable("source0", "sourceVariable0_SN", nullptr);
  store.AddVariable("source0", "\xC3\xA9", nullptr);
  store.SetVariableValue("source0", "\xC3\xA9", 99, 1);
  auto const streams = readArrowStreams(streamOf(store));
  EXPECT_FALSE(streams.fault);
  ASSERT_THAT(streams.tables, SizeIs(1));
  EXPECT_EQ(streams.tables[0].source, "source0");
  EXPECT_THAT(streams.tables[0].columns, ElementsAre("sourceVariable0_SN", "\xC3\xA9"));
  EXPECT_EQ(streams.tables[0].rows, 100);
}

TEST(ArrowStreams, FollowEachOther) {
  VarDataProcessor store;
  store.AddDataSource("source0", 3);
  store.AddDataSource("source1", 0);
  store.AddVariable("source1", "a", nullptr);
  auto const streams = readArrowStreams(streamOf(store));
  EXPECT_FALSE(streams.fault);
  ASSERT_THAT(streams.tables, SizeIs(2));
  EXPECT_EQ(streams.tables[0].source, "source0");
  EXPECT_THAT(streams.tables[0].columns, IsEmpty());
  EXPECT_EQ(streams.tables[1].source, "source1");
  EXPECT_EQ(streams.tables[1].rows, 0);
}

TEST(ArrowStreams, MayBeNone) {
  auto const streams = readArrowStreams("");
  EXPECT_FALSE(streams.fault);
  EXPECT_THAT(streams.tables, IsEmpty());
}

TEST(ArrowStreams, AreCutAnywhereElseThanAtTheEndOfAStream) {
  std::string const one = dataStream(20);
  std::string const both = one + one;
  for (std::size_t size = 1; size < both.size(); ++size) {
    EXPECT_EQ(readArrowStreams(both.substr(0, size)).fault.has_value(), size != one.size()) << size;
  }
}

TEST(ArrowStreams, AreReadAsFarAsTheyAreSound) {
  std::string const one = dataStream(2);
  auto const streams = readArrowStreams(one + "rubbish");
  EXPECT_THAT(streams.tables, SizeIs(1));
  ASSERT_TRUE(streams.fault);
  EXPECT_EQ(streams.fault->offset, one.size());
}

TEST(ArrowStreams, WithAnyByteChangedAreReadWithoutHarm) {
  std::string const sound = dataStream(3);
  for (std::size_t at = 0; at < sound.size(); ++at) {
    for (char const change : {'\x01', '\x80', '\xFF'}) {
      std::string changed = sound;
      changed[at] = static_cast<char>(changed[at] ^ change);
      auto const streams = readArrowStreams(changed);
      EXPECT_TRUE(streams.fault || !streams.tables.empty());
    }
  }
}

}  // namespace
