// Attributes of whole styles.

#include "updater_fixture.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

class Attributes : public UpdaterTest {
 protected:
  LumoStyle& from = *container.addStyle();
  LumoStyle& to = *container.addStyle();
};

TEST_F(Attributes, AreCopiedButForTheId) {
  from.setId(u"from");
  from.setColor(u"red");
  from.setVisible(false);
  to.setId(u"to");
  EXPECT_EQ(updater.duplicateAttributes(from, to), 2);
  EXPECT_EQ(utf8(to.getId()), "to");
  EXPECT_EQ(utf8(to.getColor()), "red");
  EXPECT_EQ(attribute(&to, u"visible"), "false");
}

TEST_F(Attributes, GiveNoIdToATargetThatHasNone) {
  from.setId(u"from");
  EXPECT_EQ(updater.duplicateAttributes(from, to), 0);
  EXPECT_THAT(attributeNames(to), IsEmpty());
}

TEST_F(Attributes, TakeThePlaceOfThoseOfTheTargetAndLeaveItsOthers) {
  from.setColor(u"red");
  to.setColor(u"green");
  to.setSymbol(u"circle");
  EXPECT_EQ(updater.duplicateAttributes(from, to), 1);
  EXPECT_EQ(utf8(to.getColor()), "red");
  EXPECT_EQ(attribute(&to, u"symbol"), "circle");
}

TEST_F(Attributes, AreCountedAndCopiedWithEmptyValuesToo) {
  from.setColor(u"");
  EXPECT_EQ(updater.duplicateAttributes(from, to), 1);
  EXPECT_EQ(attribute(&to, u"color"), "");
}

TEST_F(Attributes, StayWhereTheyAre) {
  from.setId(u"from");
  from.setColor(u"red");
  updater.duplicateAttributes(from, to);
  EXPECT_THAT(attributeNames(from), ElementsAre("color", "id"));
}

TEST_F(Attributes, AreCopiedWithoutChildren) {
  from.addStyle();
  EXPECT_EQ(updater.duplicateAttributes(from, to), 0);
  EXPECT_THAT(childTags(to), IsEmpty());
}

// --- Taking a style back to its id

/// In the order in which they go.
std::vector<std::string> const values = {"gradient_method",
                                         "gradient_color",
                                         "gradient_focus",
                                         "gradient_angle",
                                         "gradient_size",
                                         "gradient_opacity",
                                         "gradient_isInverted",
                                         "shadow_color",
                                         "shadow_opacity",
                                         "shadow_dx",
                                         "shadow_dy",
                                         "glyph_angle",
                                         "glyph_aspect",
                                         "color2",
                                         "opacity2",
                                         "pattern",
                                         "background_method",
                                         "background_image",
                                         "margin",
                                         "margin_left",
                                         "margin_right",
                                         "margin_top",
                                         "margin_bottom",
                                         "padding",
                                         "padding_left",
                                         "padding_right",
                                         "padding_top",
                                         "padding_bottom",
                                         "color",
                                         "opacity",
                                         "stroke_dasharray",
                                         "stroke_width",
                                         "stroke_decoration",
                                         "size",
                                         "symbol",
                                         "font_family",
                                         "font_size",
                                         "font_style",
                                         "font_weight",
                                         "bevel_size",
                                         "depth",
                                         "depthRelativeToWidth",
                                         "stroke_linecap",
                                         "labelAngle",
                                         "labelInside",
                                         "labelLocationHorizontal",
                                         "labelLocationVertical",
                                         "visible",
                                         "width",
                                         "text_fit",
                                         "glyph_sides",
                                         "fill",
                                         "stroke",
                                         "fill_opacity",
                                         "stroke_opacity",
                                         "textAlignment",
                                         "ignoreNewLines",
                                         "twoCharacterVertical",
                                         "baselineRotated",
                                         "maxAttachedTextWidth",
                                         "maxAttachedTextHeight"};

class StyleValues : public UpdaterTest {
 protected:
  void give(std::string const& name) {
    style.getImplementation()->setAttribute(ChartString(name.c_str()).xc_str(), u"1");
  }

  LumoStyle& style = *container.addStyle();
};

/// A value of any text: none of these charts is sent.
class UncheckedStyleValues : public StyleValues {
 protected:
  void TearDown() override {}
};

TEST_F(UncheckedStyleValues, GoOneByOneInAFixedOrder) {
  style.addExtension();
  for (auto name = values.rbegin(); name != values.rend(); ++name) give(*name);
  std::vector<std::string> expected = {"extension is removed"};
  for (std::string const& name : values) expected.push_back("style removes " + name);
  EXPECT_THAT(writesOf([this] { updater.removeAllStyleValues(style); }), ElementsAreArray(expected));
}

TEST_F(UncheckedStyleValues, GoWithTheirLeastAndGreatestValues) {
  for (char const* name : {"size", "size_min", "size_max", "font_size", "font_size_min", "font_size_max",
                           "width", "width_min", "width_max"}) {
    give(name);
  }
  updater.removeAllStyleValues(style);
  EXPECT_THAT(attributeNames(style), IsEmpty());
}

TEST_F(UncheckedStyleValues, ThatAreUnknownStay) {
  give("unknown");
  updater.removeAllStyleValues(style);
  EXPECT_THAT(attributeNames(style), ElementsAre("unknown"));
}

TEST_F(StyleValues, LeaveTheIdAndTheStylesWithin) {
  style.setId(u"mine");
  style.setColor(u"red");
  style.addStyle()->setColor(u"green");
  updater.removeAllStyleValues(style);
  EXPECT_THAT(attributeNames(style), ElementsAre("id"));
  ASSERT_EQ(style.getStyles().size(), 1u);
  EXPECT_EQ(utf8(style.getStyles().front()->getColor()), "green");
}

TEST_F(StyleValues, GoWithAllExtensions) {
  style.addExtension();
  style.addExtension();
  updater.removeAllStyleValues(style);
  EXPECT_THAT(childTags(style), IsEmpty());
}

TEST_F(StyleValues, ThatAreNotThereAreNoFailure) {
  updater.removeAllStyleValues(style);
  EXPECT_THAT(attributeNames(style), IsEmpty());
}

TEST_F(StyleValues, StayWhereOneCannotGo) {
  style.setColor2(u"green");
  style.setColor(u"red");
  EXPECT_THROW(failAtChange(2, [this] { updater.removeAllStyleValues(style); }), OrdinaryFailure);
  EXPECT_THAT(attributeNames(style), ElementsAre("color"));
}

}  // namespace
}  // namespace kestrel::test
