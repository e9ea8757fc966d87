#pragma once

#include "sent_alone_tests.h"

#include <string>
#include <vector>

namespace kestrel::test {

/// Tests of documents that take attachments with `addGeoJSON`.
template <typename Family>
class Attachments : public SentAlone<Family> {
 protected:
  void addFile(std::string const& name, std::string const& content) {
    this->recorder.services().files->content[name] = content;
  }
};

TYPED_TEST_SUITE_P(Attachments);

TYPED_TEST_P(Attachments, AreFetchedByTheirNamesWithBothFlags) {
  this->addFile("maps/lakes.json", "{}");
  EXPECT_TRUE(this->document.addGeoJSON("maps/lakes.json"));
  auto const fetches = this->recorder.entries(host::Operation::Fetch);
  ASSERT_THAT(fetches, ::testing::SizeIs(1));
  EXPECT_TRUE(fetches[0].flag("first"));
  EXPECT_TRUE(fetches[0].flag("second"));
  this->send();
  EXPECT_EQ(this->bytesOf(14), "maps/lakes.json");
  EXPECT_EQ(inflated(this->bytesOf(15)), "{}");
}

TYPED_TEST_P(Attachments, AreNoneWhereTheFileIsNotThere) {
  EXPECT_FALSE(this->document.addGeoJSON("missing.json"));
  EXPECT_FALSE(this->send());
  EXPECT_THAT(this->types(), ::testing::ElementsAre(0u, 9u, 3u));
}

TYPED_TEST_P(Attachments, AreNoneWithoutANameOrAContent) {
  EXPECT_FALSE(this->document.addGeoJSON("", "content"));
  EXPECT_FALSE(this->document.addGeoJSON("name", ""));
  EXPECT_FALSE(this->document.addGeoJSON("", ""));
  this->send();
  EXPECT_THAT(this->types(), ::testing::ElementsAre(0u, 9u, 3u));
}

TYPED_TEST_P(Attachments, GoOutInTheOrderInWhichTheyCameEvenUnderOneName) {
  this->addFile("1", "one");
  EXPECT_TRUE(this->document.addGeoJSON("3", "three"));
  EXPECT_TRUE(this->document.addGeoJSON("1"));
  EXPECT_TRUE(this->document.addGeoJSON("2", "two"));
  EXPECT_TRUE(this->document.addGeoJSON("3", "again"));
  this->send();
  std::vector<std::string> pairs;
  for (auto const& content : this->contents()) {
    if (content.type == 14) pairs.push_back(content.bytes + ": ");
    if (content.type == 15) pairs.back() += inflated(content.bytes);
  }
  EXPECT_THAT(pairs, ::testing::ElementsAre("3: three", "1: one", "2: two", "3: again"));
}

TYPED_TEST_P(Attachments, GoOutWholeWhereTheyAreLong) {
  std::string const content = noise(70000);
  this->document.addGeoJSON("rivers", content);
  EXPECT_TRUE(this->send());
  EXPECT_EQ(inflated(this->bytesOf(15)), content);
  EXPECT_THAT(onlyContent(this->contents(), 15).chunkSizes, ::testing::SizeIs(3));
}

REGISTER_TYPED_TEST_SUITE_P(Attachments, AreFetchedByTheirNamesWithBothFlags, AreNoneWhereTheFileIsNotThere,
                            AreNoneWithoutANameOrAContent, GoOutInTheOrderInWhichTheyCameEvenUnderOneName,
                            GoOutWholeWhereTheyAreLong);

}  // namespace kestrel::test
