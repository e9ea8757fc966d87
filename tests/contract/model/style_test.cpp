#include "operations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

class EveryStyleRemover : public testing::TestWithParam<StyleRemover> {
 protected:
  LumoDocument document;
  LumoStyle& style = styleIn(*document.getVisualization(), u"s");
};

TEST_P(EveryStyleRemover, TakesItsOwnPropertyAndNoOther) {
  std::vector<std::string> others{"id=s"};
  for (StyleRemover const& row : styleRemovers()) {
    for (char16_t const* const attribute : row.attributes) {
      style.getImplementation()->setAttribute(attribute, u"1");
      if (std::string(row.name) != GetParam().name) others.push_back(utf8(attribute) + "=1");
    }
  }
  GetParam().remove(style);
  std::vector<std::string> left = attributesOf(style);
  std::sort(others.begin(), others.end());
  std::sort(left.begin(), left.end());
  EXPECT_EQ(left, others);
}

TEST_P(EveryStyleRemover, DoesNothingWhereThereIsNone) {
  GetParam().remove(style);
  EXPECT_EQ(attributesOf(style), std::vector<std::string>{"id=s"});
}

INSTANTIATE_TEST_SUITE_P(Model, EveryStyleRemover, testing::ValuesIn(styleRemovers()), rowName<StyleRemover>);

class Style : public testing::Test {
 protected:
  LumoDocument document;
  LumoStyle& style = *document.getVisualization()->addStyle();
};

TEST_F(Style, SizeTakesThreeTexts) {
  style.setSize(u"3%", u"40pt", u"60pt");
  EXPECT_EQ(attributesOf(style), (std::vector<std::string>{"size=3%", "size_max=60pt", "size_min=40pt"}));
}

TEST_F(Style, WidthTakesThreeTexts) {
  style.setWidth(u"25%", u"1pt", u"2pt");
  EXPECT_EQ(attributesOf(style), (std::vector<std::string>{"width=25%", "width_max=2pt", "width_min=1pt"}));
}

TEST_F(Style, FontSizeTakesThreeTexts) {
  style.setFontSize(u"12", u"8", u"14");
  EXPECT_EQ(attributesOf(style),
            (std::vector<std::string>{"font_size=12", "font_size_max=14", "font_size_min=8"}));
}

TEST_F(Style, AnEmptyOrNullTextOfThreeGivesNoValue) {
  style.setWidth(u"25%", nullptr, u"");
  EXPECT_EQ(attributesOf(style), std::vector<std::string>{"width=25%"});
  style.setWidth(u"", u"1pt", nullptr);
  EXPECT_EQ(attributesOf(style), std::vector<std::string>{"width_min=1pt"});
}

TEST_F(Style, ASingleSizeLeavesTheOtherTwo) {
  style.setSize(u"3%", u"40pt", u"60pt");
  style.setSize(u"5%");
  EXPECT_EQ(attributesOf(style), (std::vector<std::string>{"size=5%", "size_max=60pt", "size_min=40pt"}));
}

TEST_F(Style, ColorAndPatternAreRead) {
  style.setColor(u"#FF0080");
  style.setColor2(u"blue");
  style.setPattern(4);
  EXPECT_EQ(utf8(style.getColor()), "#FF0080");
  EXPECT_EQ(style.getPattern(), 4U);
}

TEST_F(Style, ConstantsNameTheirColors) {
  EXPECT_EQ(utf8(LumoStyle::_black), "black");
  EXPECT_EQ(utf8(LumoStyle::_transparent), "transparent");
}

TEST_F(Style, ExtensionsAreRemovedWithWhatTheyHold) {
  style.addExtension()->setAttribute(u"a", u"1");
  style.addStyle();
  style.removeExtensions();
  EXPECT_EQ(childNames(style), std::vector<std::string>{"style"});
}

TEST_F(Style, AttributesCopiedByHandCopyEveryProperty) {
  style.setSize(u"3%", u"40pt", u"60pt");
  style.setVisible(false);
  LumoStyle& copy = *document.getVisualization()->addStyle();
  xercesc::DOMNamedNodeMap const& attributes = *style.getImplementation()->getAttributes();
  for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
    xercesc::DOMNode const& attribute = *attributes.item(i);
    copy.getImplementation()->setAttribute(attribute.getNodeName(), attribute.getNodeValue());
  }
  EXPECT_EQ(attributesOf(copy), attributesOf(style));
}

}  // namespace
