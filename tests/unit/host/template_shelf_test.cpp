// Templates that are kept for further charts.

#include "template_shelf.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

using namespace kestrel::host;

namespace {

std::shared_ptr<SoundTemplate const> sound(std::string text) {
  return std::make_shared<SoundTemplate const>(SoundTemplate{std::move(text), {}});
}

std::string number(std::size_t value) { return std::to_string(value); }

}  // namespace

TEST(TemplateShelfTest, KnowsATextThatItKeeps) {
  TemplateShelf shelf;
  auto const kept = sound("one");
  shelf.keep(kept);
  EXPECT_EQ(shelf.find("one"), kept);
  EXPECT_EQ(shelf.find("two"), nullptr);
}

TEST(TemplateShelfTest, LosesTheOneThatWasNotAskedForTheLongestTime) {
  TemplateShelf shelf;
  for (std::size_t at = 0; at < TemplateShelf::mostTemplates; ++at) shelf.keep(sound(number(at)));
  EXPECT_NE(shelf.find("0"), nullptr);
  shelf.keep(sound("new"));
  EXPECT_NE(shelf.find("0"), nullptr);
  EXPECT_EQ(shelf.find("1"), nullptr);
  EXPECT_NE(shelf.find("2"), nullptr);
  EXPECT_NE(shelf.find("new"), nullptr);
}

TEST(TemplateShelfTest, KeepsNoLongText) {
  TemplateShelf shelf;
  shelf.keep(sound(std::string(TemplateShelf::longestKept, 'x')));
  EXPECT_NE(shelf.find(std::string(TemplateShelf::longestKept, 'x')), nullptr);
  shelf.keep(sound(std::string(TemplateShelf::longestKept + 1, 'x')));
  EXPECT_EQ(shelf.find(std::string(TemplateShelf::longestKept + 1, 'x')), nullptr);
}
