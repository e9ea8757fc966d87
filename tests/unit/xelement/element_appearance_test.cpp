// Name, colours, widths and line patterns of an element.

#include "element_fixture.h"
#include "xutility.h"

#include "host/log.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(ElementTest, NameIsWrittenUnchanged) {
  element.SetName(u" Größe \\n & < 1 ");
  EXPECT_EQ(attribute(&model, u"name"), " Größe \\n & < 1 ");
}

TEST_F(ElementTest, AnEmptyNameIsWritten) {
  element.SetName(u"");
  EXPECT_EQ(attribute(&model, u"name"), "");
}

TEST_F(ElementTest, ANullNameTakesTheNameAway) {
  element.SetName(u"first");
  element.SetName(nullptr);
  EXPECT_EQ(attribute(&model, u"name"), "(absent)");
}

TEST_F(ElementTest, AFailureOfTheNameReachesTheCaller) {
  EXPECT_THROW(failAtChange(1, [&] { element.SetName(u"name"); }), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(ElementTest, CharDigitKeepsThePointAndDigits) {
  for (char16_t const digit : std::u16string(u".0123456789")) {
    EXPECT_EQ(element.getXMLCharDigit(digit), digit) << static_cast<unsigned int>(digit);
  }
}

TEST_F(ElementTest, CharDigitRaisesTheLettersOfHexadecimalDigits) {
  std::u16string raised;
  for (char16_t const digit : std::u16string(u"abcdef")) raised.push_back(element.getXMLCharDigit(digit));
  EXPECT_EQ(raised, u"ABCDEF");
}

TEST_F(ElementTest, CharDigitOfAnythingElseIsZero) {
  std::u16string const known = u".0123456789abcdef";
  std::vector<unsigned int> wrong;
  for (unsigned int unit = 0; unit <= 0xFFFF; ++unit) {
    auto const character = static_cast<char16_t>(unit);
    if (known.find(character) != std::u16string::npos) continue;
    if (element.getXMLCharDigit(character) != u'\0') wrong.push_back(unit);
  }
  EXPECT_THAT(wrong, IsEmpty());
}

struct ColorRow {
  unsigned int red;
  unsigned int green;
  unsigned int blue;
  char const* text;
};

constexpr ColorRow colors[] = {
    {0, 0, 0, "#000000"},     {255, 255, 255, "#FFFFFF"},
    {255, 0, 128, "#FF0080"}, {300, 0, 0, "#FF0000"},
    {0, 256, 0, "#00FF00"},   {0, 0, std::numeric_limits<unsigned int>::max(), "#0000FF"},
    {15, 16, 17, "#0F1011"},  {0xAB, 0xCD, 0xEF, "#ABCDEF"},
    {1, 2, 3, "#010203"},
};

TEST_F(ElementTest, PrimaryColorIsWrittenInUpperCaseAndClamped) {
  for (ColorRow const& row : colors) {
    element.SetPrimaryColor(row.red, row.green, row.blue);
    EXPECT_EQ(attribute(model.getStyle(), u"color"), row.text);
  }
}

TEST_F(ElementTest, SecondaryColorIsWrittenInUpperCaseAndClamped) {
  for (ColorRow const& row : colors) {
    element.SetSecondaryColor(row.red, row.green, row.blue);
    EXPECT_EQ(attribute(model.getStyle(), u"color2"), row.text);
  }
}

TEST_F(ElementTest, EachValueOfAComponentGivesItsTwoDigits) {
  for (unsigned int value = 0; value < 256; ++value) {
    char expected[8];
    std::snprintf(expected, sizeof expected, "#%02X%02X%02X", value, 255 - value, value);
    element.SetPrimaryColor(value, 255 - value, value);
    ASSERT_EQ(attribute(model.getStyle(), u"color"), expected);
  }
}

TEST_F(ElementTest, ColorsOfElementsAndOfTheUtilityDifferInCase) {
  element.SetPrimaryColor(255, 0, 170);
  EXPECT_EQ(attribute(model.getStyle(), u"color"), "#FF00AA");
  EXPECT_EQ(XUtility::chartStringFromRGB(255, 0, 170).toUTF8(), "#ff00aa");
}

TEST_F(ElementTest, PrimaryColorWritesOnlyTheFirstColor) {
  element.SetPrimaryColor(1, 2, 3);
  EXPECT_EQ(attribute(model.getStyle(), u"color2"), "(absent)");
}

TEST_F(ElementTest, SecondaryColorWritesOnlyTheSecondColor) {
  element.SetSecondaryColor(1, 2, 3);
  EXPECT_EQ(attribute(model.getStyle(), u"color"), "(absent)");
}

/// The operations that write into the element's own style.
struct Appearance {
  char const* name;
  void (*write)(XElement&);
  char const* written;
};

void PrintTo(Appearance const& appearance, std::ostream* stream) { *stream << appearance.name; }

class ElementStyleTest : public ElementTest, public ::testing::WithParamInterface<Appearance> {
 protected:
  void write() { GetParam().write(element); }
};

INSTANTIATE_TEST_SUITE_P(
    Appearances, ElementStyleTest,
    ::testing::Values(
        Appearance{"PrimaryColor", [](XElement& element) { element.SetPrimaryColor(255, 0, 0); },
                   "style color=#FF0000"},
        Appearance{"SecondaryColor", [](XElement& element) { element.SetSecondaryColor(0, 255, 0); },
                   "style color2=#00FF00"},
        Appearance{"Width", [](XElement& element) { element.SetWidth(XElement::WidthPixels, 1, 0, 0); },
                   "style width=1px"},
        Appearance{"LineType", [](XElement& element) { element.SetLineType(XElement::LineDash2); },
                   "style stroke_dasharray=8pt,8pt"}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(ElementStyleTest, MakesTheStyleUnderAnIdFromTheElement) {
  write();
  ASSERT_NE(model.getStyle(), nullptr);
  EXPECT_EQ(utf8(model.getStyle()->getId()), "points" + utf8(ChartBase::_default_style));
  EXPECT_EQ(model.getStyle(), container.getStyles().front());
}

TEST_P(ElementStyleTest, MakesAttachesAndThenFillsTheStyle) {
  std::string const id = "points" + utf8(ChartBase::_default_style);
  EXPECT_THAT(writesOf([&] { write(); }),
              ElementsAre("style adds style", "style id=" + id, "point style=" + id, GetParam().written));
}

TEST_P(ElementStyleTest, WritesIntoTheStyleThatTheElementHas) {
  LumoStyle& own = *container.addStyle();
  own.setId(u"own");
  model.setStyle(own);
  EXPECT_THAT(writesOf([&] { write(); }), ElementsAre(GetParam().written));
  EXPECT_EQ(model.getStyle(), &own);
}

TEST_P(ElementStyleTest, TakesAStyleOfThatIdThatTheChartHas) {
  LumoStyle& there = *container.addStyle();
  ChartString id(u"points");
  id.append(ChartBase::_default_style);
  there.setId(id.xc_str());
  write();
  EXPECT_EQ(model.getStyle(), &there);
  EXPECT_EQ(container.getStyles().size(), 1u);
}

TEST_P(ElementStyleTest, ASecondCallMakesNoSecondStyle) {
  write();
  write();
  EXPECT_EQ(container.getStyles().size(), 1u);
}

TEST_P(ElementStyleTest, AFailureReachesTheCaller) {
  EXPECT_THROW(failAtChange(1, [&] { write(); }), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_P(ElementStyleTest, AChartWithoutStyleContainerIsAFailureForTheCaller) {
  container.setId(u"another");
  EXPECT_THROW(write(), ChartException);
  EXPECT_EQ(model.getStyle(), nullptr);
}

class ElementWithOwnStyles : public XElement {
 public:
  ElementWithOwnStyles(CTElementType& element, LumoStyle& style) : XElement(element), mStyle(&style) {}

  LumoStyle* AddStyle(ChartString const& id, bool unique) override {
    asked = id.toUTF8() + (unique ? ", unique" : ", shared");
    return mStyle;
  }

  std::string asked;

 private:
  LumoStyle* mStyle;
};

TEST_P(ElementStyleTest, AsksTheVirtualAddStyleForASharedStyle) {
  LumoStyle& style = *container.addStyle();
  style.setId(u"given");
  ElementWithOwnStyles wrapper(model, style);
  GetParam().write(wrapper);
  EXPECT_EQ(wrapper.asked, "points" + utf8(ChartBase::_default_style) + ", shared");
  EXPECT_EQ(model.getStyle(), &style);
}

TEST_F(ElementTest, AnElementOfTheStylesIdThatIsNoStyleReachesTheCallerAsAFailure) {
  ChartString id(model.getId());
  id.append(ChartBase::_default_style);
  visualization.addSourceVariable(id.xc_str());
  EXPECT_THROW(element.SetPrimaryColor(1, 2, 3), ChartException);
  EXPECT_EQ(model.getStyle(), nullptr);
}

TEST_F(ElementTest, AllOfTheAppearanceGoesIntoOneStyle) {
  element.SetPrimaryColor(1, 2, 3);
  element.SetSecondaryColor(4, 5, 6);
  element.SetWidth(XElement::WidthInches, 1, 0, 0);
  element.SetLineType(XElement::LineDash12);
  ASSERT_EQ(container.getStyles().size(), 1u);
  LumoStyle* const style = model.getStyle();
  EXPECT_EQ(attribute(style, u"color"), "#010203");
  EXPECT_EQ(attribute(style, u"color2"), "#040506");
  EXPECT_EQ(attribute(style, u"width"), "1in");
  EXPECT_EQ(attribute(style, u"stroke_dasharray"), "3pt,2pt");
}

class ElementWidthTest : public ElementTest {
 protected:
  /// The three texts of the width, with "-" for one that is not there.
  std::vector<std::string> widths(XElement::WidthType unit, double first, double second, double third) {
    element.SetWidth(unit, first, second, third);
    std::vector<std::string> texts;
    for (char16_t const* const name : {u"width", u"width_min", u"width_max"}) {
      std::string const text = attribute(model.getStyle(), name);
      texts.push_back(text == "(absent)" ? "-" : text);
    }
    return texts;
  }
};

TEST_F(ElementWidthTest, EachUnitHasItsText) {
  std::map<int, std::string> const units = {{0, "px"}, {1, "%"}, {2, "cm"}, {3, "in"}, {4, "pt"}};
  for (auto const& [unit, text] : units) {
    EXPECT_THAT(widths(static_cast<XElement::WidthType>(unit), 5, 6, 7),
                ElementsAre("5" + text, "6" + text, "6" + text));
  }
}

TEST_F(ElementWidthTest, AnUnknownUnitCountsAsPoints) {
  for (int const unit : {5, 6, 100, -1}) {
    EXPECT_THAT(widths(static_cast<XElement::WidthType>(unit), 5, 0, 0), ElementsAre("5pt", "-", "-"))
        << unit;
  }
}

TEST_F(ElementWidthTest, UnitsHaveTheirNumbers) {
  EXPECT_EQ(XElement::WidthPixels, 0);
  EXPECT_EQ(XElement::WidthPercent, 1);
  EXPECT_EQ(XElement::WidthCentimeters, 2);
  EXPECT_EQ(XElement::WidthInches, 3);
  EXPECT_EQ(XElement::WidthPoints, 4);
}

TEST_F(ElementWidthTest, AWidthAloneLeavesTheOtherTwoOut) {
  EXPECT_THAT(widths(XElement::WidthPercent, 50, 0, 0), ElementsAre("50%", "-", "-"));
}

TEST_F(ElementWidthTest, TheThirdTextCarriesTheSecondValue) {
  EXPECT_THAT(widths(XElement::WidthPoints, 1, 2, 3), ElementsAre("1pt", "2pt", "2pt"));
}

TEST_F(ElementWidthTest, TheThirdValueSwitchesTheTextOnWhateverTheSecondIs) {
  EXPECT_THAT(widths(XElement::WidthPoints, 1, 0, 3), ElementsAre("1pt", "-", "0pt"));
}

TEST_F(ElementWidthTest, TheThirdValueSwitchesOnASecondOneBelowZeroToo) {
  EXPECT_THAT(widths(XElement::WidthPoints, 1, -2, 3), ElementsAre("1pt", "-", "-2pt"));
}

TEST_F(ElementWidthTest, WithoutAThirdValueThereIsNoThirdText) {
  EXPECT_THAT(widths(XElement::WidthPoints, 1, 2, 0), ElementsAre("1pt", "2pt", "-"));
}

TEST_F(ElementWidthTest, ValuesThatAreNotAboveZeroAreLeftOut) {
  EXPECT_THAT(widths(XElement::WidthPixels, 0, 0, 0), ElementsAre("-", "-", "-"));
  EXPECT_THAT(widths(XElement::WidthPixels, -1, -2, -3), ElementsAre("-", "-", "-"));
  double const nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THAT(widths(XElement::WidthPixels, nan, nan, nan), ElementsAre("-", "-", "-"));
}

TEST_F(ElementWidthTest, ALeftOutValueTakesTheFormerOneAway) {
  widths(XElement::WidthPixels, 1, 2, 3);
  EXPECT_THAT(widths(XElement::WidthPixels, 0, 4, 0), ElementsAre("-", "4px", "-"));
}

TEST_F(ElementWidthTest, FractionsHaveAtMostSixteenDigits) {
  EXPECT_THAT(widths(XElement::WidthCentimeters, 0.1 + 0.2, 1.0 / 3.0, 0),
              ElementsAre("0.3cm", "0.3333333333333333cm", "-"));
}

TEST_F(ElementWidthTest, TheStyleIsMadeForAWidthWithoutValuesToo) {
  element.SetWidth(XElement::WidthPixels, 0, 0, 0);
  EXPECT_NE(model.getStyle(), nullptr);
}

struct LineRow {
  XElement::StrokeLineType type;
  int number;
  char const* dashes;
};

constexpr LineRow dashedLines[] = {
    {XElement::LineDash1, 1, "12pt,2pt,2pt,10pt,2pt,2pt"},
    {XElement::LineDash2, 2, "8pt,8pt"},
    {XElement::LineDash3, 3, "10pt,2pt,2pt,2pt"},
    {XElement::LineDash4, 4, "3pt,6pt"},
    {XElement::LineDash5, 5, "12pt,2pt,2pt,2pt,2pt,2pt,2pt,2pt"},
    {XElement::LineDash6, 6, "6pt,3pt,6pt"},
    {XElement::LineDash7, 7, "8pt,1pt,8pt,7pt,2pt,7pt"},
    {XElement::LineDash8, 8, "6pt,2pt,3pt,5pt,2pt,2pt"},
    {XElement::LineDash9, 9, "15pt,2pt,6pt,2pt"},
    {XElement::LineDash10, 10, "5pt,5pt"},
    {XElement::LineDash11, 11, "8pt,2pt,4pt,2pt"},
    {XElement::LineDash12, 12, "3pt,2pt"},
    {XElement::LineDash13, 13, "12pt,5pt,3pt,5pt"},
    {XElement::LineDash14, 14, "6pt,3pt,3pt,3pt"},
    {XElement::LineDash15, 15, "12pt,3pt"},
};

TEST_F(ElementTest, EachDashedLineHasItsDashArray) {
  for (LineRow const& row : dashedLines) {
    EXPECT_EQ(row.type, row.number);
    element.SetLineType(row.type);
    EXPECT_EQ(attribute(model.getStyle(), u"stroke_dasharray"), row.dashes) << row.number;
  }
}

TEST_F(ElementTest, ASolidLineTakesTheDashArrayAway) {
  EXPECT_EQ(XElement::LineSolid, 0);
  element.SetLineType(XElement::LineDash3);
  element.SetLineType(XElement::LineSolid);
  EXPECT_EQ(attribute(model.getStyle(), u"stroke_dasharray"), "(absent)");
}

TEST_F(ElementTest, ASolidLineMakesTheStyleWhereThereIsNone) {
  element.SetLineType(XElement::LineSolid);
  ASSERT_NE(model.getStyle(), nullptr);
  EXPECT_EQ(attribute(model.getStyle(), u"stroke_dasharray"), "(absent)");
}

TEST_F(ElementTest, AnUnknownLineTypeLeavesAnEmptyDashArray) {
  for (int const type : {16, 17, 255, 1 << 20}) {
    element.SetLineType(XElement::LineDash1);
    element.SetLineType(static_cast<XElement::StrokeLineType>(type));
    EXPECT_EQ(attribute(model.getStyle(), u"stroke_dasharray"), "") << type;
  }
}

}  // namespace
}  // namespace kestrel::test
