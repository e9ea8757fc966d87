// What a template may not be, and what the log says of it.

#include "template_fixture.h"
#include "template_language.h"
#include "template_parser.h"

#include "host/templates.h"

#include <gmock/gmock.h>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

using Lines = std::vector<std::string>;

enum class Schema { RefusesToo, AcceptsIt };

struct FaultRow {
  std::string name;
  std::string instructions;
  Lines log;
  Schema schema = Schema::RefusesToo;
};

std::ostream& operator<<(std::ostream& stream, FaultRow const& row) { return stream << row.name; }

std::string longText(std::size_t length) { return std::string(length, 'a'); }

// clang-format off
FaultRow const rows[] = {
    {"UnknownInstruction", R"(<setColour/>)",
     {"template, line 2, column 1: unknown element setColour in template; did you mean setColor?"}},
    {"UnknownElementWithin", R"(<setStyle type="bar"><styles/></setStyle>)",
     {"template, line 2, column 22: unknown element styles in setStyle; did you mean style?"}},
    {"UnknownElementWhereNoneBelongs", R"(<setFont size="1pt"><b/></setFont>)",
     {"template, line 2, column 21: unknown element b in setFont; remove it"}},
    {"ElementInTheWrongPlace", R"(<style color="red"/>)",
     {"template, line 2, column 1: the element style does not belong in template; its place is in addFrame, "
      "cycle, setLook, setStyle"}},
    {"InstructionInTheWrongPlace", R"(<setAxis><setFont/></setAxis>)",
     {"template, line 2, column 10: the element setFont does not belong in setAxis; its place is in template"}},
    {"WhatIsInAnUnknownElementIsNotToldOf", "<x><y z='1'>text</y></x>",
     {"template, line 2, column 1: unknown element x in template; it holds addFrame, setAxis, setColor, setCycle, "
      "setFont, setLook, setStyle"}},
    {"ElementOfAnotherNamespace", R"(<setAxis xmlns="urn:other"/>)",
     {"template, line 2, column 1: the element setAxis is not in the namespace of templates; put it there"}},
    {"UnknownAttribute", R"(<setFont colour="red"/>)",
     {"template, line 2, column 1: unknown attribute colour of setFont; did you mean color?"}},
    {"UnknownAttributeOfAStyle", R"(<setLook part="legend"><style fontsize="red"/></setLook>)",
     {"template, line 2, column 24: unknown attribute fontsize of style; did you mean font_size?"}},
    {"UnknownAttributeWhereNoneBelongs", R"(<setCycle aesthetic="color"><cycle id="c"><style color="red"/></cycle></setCycle>)",
     {"template, line 2, column 29: unknown attribute id of cycle; remove it"}},
    {"AttributeOfANamespace", R"(<setFont xmlns:o="urn:o" o:size="1pt"/>)",
     {"template, line 2, column 1: unknown attribute o:size of setFont; did you mean size?"}},
    {"ColorStylesHaveAColorAlone", R"(<setColor aestheticNumber="1"><cycle><style color="red" pattern="1"/></cycle></setColor>)",
     {"template, line 2, column 38: unknown attribute pattern of style; it has color"}},
    {"NumberOutsideOfFrames", R"(<setLook part="legend"><style number="1"/></setLook>)",
     {"template, line 2, column 24: unknown attribute number of style; remove it"}},
    {"MissingType", R"(<setStyle><style color="red"/></setStyle>)",
     {"template, line 2, column 1: setStyle lacks the attribute type; add it"}},
    {"MissingPart", R"(<setLook><style color="red"/></setLook>)",
     {"template, line 2, column 1: setLook lacks the attribute part; add it"}},
    {"MissingAestheticNumber", R"(<setColor><cycle><style color="red"/></cycle></setColor>)",
     {"template, line 2, column 1: setColor lacks the attribute aestheticNumber; add it"}},
    {"MissingAesthetic", R"(<setCycle><cycle><style color="red"/></cycle></setCycle>)",
     {"template, line 2, column 1: setCycle lacks the attribute aesthetic; add it"}},
    {"MissingFrameType", R"(<addFrame/>)",
     {"template, line 2, column 1: addFrame lacks the attribute type; add it"}},
    {"MissingColor", R"(<setColor aestheticNumber="1"><cycle><style/></cycle></setColor>)",
     {"template, line 2, column 38: style lacks the attribute color; add it"}},
    {"NoLength", R"(<setFont size="big"/>)",
     {"template, line 2, column 1: the attribute size of setFont is \"big\", which is no length above 0; write a number "
      "with px, pt, mm, cm, in or %, such as 10pt"}},
    {"NoColor", R"(<setFont color="#12345"/>)",
     {"template, line 2, column 1: the attribute color of setFont is \"#12345\", which is no colour; write "
      "#RRGGBB or the name of a colour of CSS in small letters, such as steelblue"}},
    {"NoNumber", R"(<setAxis labelAngle="steep"/>)",
     {"template, line 2, column 1: the attribute labelAngle of setAxis is \"steep\", which is no number; write a "
      "number such as 45 or -0.5"}},
    {"NoShare", R"(<setLook part="legend"><style opacity="1.5"/></setLook>)",
     {"template, line 2, column 24: the attribute opacity of style is \"1.5\", which is no number from 0 to 1; "
      "write a number such as 0.5"}},
    {"NoCount", R"(<setLook part="legend"><style pattern="-1"/></setLook>)",
     {"template, line 2, column 24: the attribute pattern of style is \"-1\", which is no whole number; write a "
      "number from 0 to 9999"}},
    {"NoDashes", R"(<setLook part="legend"><style stroke_dasharray="3pt,"/></setLook>)",
     {"template, line 2, column 24: the attribute stroke_dasharray of style is \"3pt,\", which is no list of "
      "lengths; write lengths of 0 or more with commas between them, such as 6pt,3pt, or nothing for a solid line"}},
    {"NoSymbol", R"(<setLook part="legend"><style symbol="a b"/></setLook>)",
     {"template, line 2, column 24: the attribute symbol of style is \"a b\", which is none of its values; write "
      "one of circle, square, triangle, diamond, cross, plus, star, ibeam"}},
    {"NoFrameNumber", R"(<addFrame type="graph" count="11"/>)",
     {"template, line 2, column 1: the attribute count of addFrame is \"11\", which is no number from 1 to 10; "
      "write such a number"}},
    {"NoTruthValue", R"(<setAxis gridlines="yes"/>)",
     {"template, line 2, column 1: the attribute gridlines of setAxis is \"yes\", which is no truth value; write "
      "true or false"}},
    {"NoWeight", R"(<setFont weight="bolt"/>)",
     {"template, line 2, column 1: the attribute weight of setFont is \"bolt\", which is none of its values; did "
      "you mean bold?"}},
    {"NoFontStyle", R"(<setFont style="italics"/>)",
     {"template, line 2, column 1: the attribute style of setFont is \"italics\", which is none of its values; did "
      "you mean italic?"}},
    {"NoPart", R"(<setLook part="titel"><style color="red"/></setLook>)",
     {"template, line 2, column 1: the attribute part of setLook is \"titel\", which is none of its values; did "
      "you mean title?"}},
    {"NoFontPart", R"(<setFont part="gridline"/>)",
     {"template, line 2, column 1: the attribute part of setFont is \"gridline\", which is none of its values; "
      "write one of all, title, subtitle, footnote, summary, otherLabel, axisLabel, tickLabel, panelTitle, "
      "panelLabel, legendLabel, legendTitle, dataLabel"}},
    {"NoRole", R"(<setAxis role="w"/>)",
     {"template, line 2, column 1: the attribute role of setAxis is \"w\", which is none of its values; write "
      "one of x, y, z"}},
    {"NoAestheticNumber", R"(<setColor aestheticNumber="6"><cycle><style color="red"/></cycle></setColor>)",
     {"template, line 2, column 1: the attribute aestheticNumber of setColor is \"6\", which is none of its values; "
      "write one of 1, 2, 3, 4, 5"}},
    {"NoAesthetic", R"(<setCycle aesthetic="colour"><cycle><style color="red"/></cycle></setCycle>)",
     {"template, line 2, column 1: the attribute aesthetic of setCycle is \"colour\", which is none of its values; "
      "did you mean color?"}},
    {"NoFrameType", R"(<addFrame type="graphs"/>)",
     {"template, line 2, column 1: the attribute type of addFrame is \"graphs\", which is none of its values; did "
      "you mean graph?"}},
    {"NoElementType", R"(<setStyle type="bars"><style color="red"/></setStyle>)",
     {"template, line 2, column 1: the attribute type of setStyle is \"bars\", which is none of its values; did "
      "you mean bar?"}},
    {"NoSubtype", R"(<setStyle type="bar" subtype="simpel"><style color="red"/></setStyle>)",
     {"template, line 2, column 1: the attribute subtype of setStyle is \"simpel\", which is none of its values; "
      "did you mean simple?"}},
    {"LongValue", "<setFont family=\"" + longText(201) + "\"/>",
     {"template, line 2, column 1: the attribute family of setFont is longer than 200 characters; shorten it"}},
    {"LongNamesAreCut", "<" + longText(1000) + "/>",
     {"template, line 2, column 1: unknown element " + longText(40) + "... in template; it holds addFrame, setAxis, setColor, setCycle, "
      "setFont, setLook, setStyle"}},
    {"TextInAnInstruction", "<setFont>size</setFont>",
     {"template, line 2, column 10: there is text in setFont; remove it"}},
    {"NoStyle", R"(<setStyle type="bar"/>)",
     {"template, line 2, column 1: setStyle has no style; add one"}},
    {"NoCycle", R"(<setColor aestheticNumber="1"/>)",
     {"template, line 2, column 1: setColor has no cycle; add one"}},
    {"NoColors", R"(<setColor aestheticNumber="1"><cycle/></setColor>)",
     {"template, line 2, column 31: cycle has no style; add one"}},
    {"TwoStyles", R"(<setLook part="legend"><style/><style/></setLook>)",
     {"template, line 2, column 32: a second style in setLook; keep one"}},
    {"TwoCycles", R"(<setCycle aesthetic="color"><cycle><style color="red"/></cycle><cycle><style color="red"/></cycle></setCycle>)",
     {"template, line 2, column 64: a second cycle in setCycle; keep one"}},
    {"SubtypeOfAnotherType", R"(<setStyle type="errorBar" subtype="fenceStyle"><style color="red"/></setStyle>)",
     {"template, line 2, column 1: the type errorBar has no subtype fenceStyle; it has simple, clustered"},
     Schema::AcceptsIt},
    {"RoleOfNoAxis", R"(<setLook part="legend" role="x"><style color="red"/></setLook>)",
     {"template, line 2, column 1: only parts of axes have a role, and legend is none; remove the attribute role"},
     Schema::AcceptsIt},
    {"RoleOfAllFonts", R"(<setFont role="x" size="1pt"/>)",
     {"template, line 2, column 1: only parts of axes have a role, and all is none; remove the attribute role"},
     Schema::AcceptsIt},
    {"StyleOfAFrameThatIsNotAdded", "<addFrame type='graph' count='2'>\n <style number='3'/><style number='2'/></addFrame>",
     {"template, line 3, column 2: the addFrame is for 2 frames, so that none has the number 3; write a number up to 2 or another count"},
     Schema::AcceptsIt},
    {"StyleOfASecondFrameWithoutACount", R"(<addFrame type="graph"><style number="2"/></addFrame>)",
     {"template, line 2, column 24: the addFrame is for 1 frame, so that none has the number 2; write a number up to 1 or another count"},
     Schema::AcceptsIt},
    {"StyleOfAFrameBeyondTheCountOfThoseThatAreThere", R"(<addFrame type="graph" styleOnly="1" count="1"><style number="10"/></addFrame>)",
     {"template, line 2, column 48: the addFrame is for 1 frame, so that none has the number 10; write a number up to 1 or another count"},
     Schema::AcceptsIt},
    {"PatternCycleWithoutPatterns", R"(<setCycle aesthetic="pattern"><cycle><style color="red"/></cycle></setCycle>)",
     {"template, line 2, column 38: a style in the cycle lacks the attribute pattern; add it"}, Schema::AcceptsIt},
    {"ShapeCycleWithoutSymbols", R"(<setCycle aesthetic="shape"><cycle><style size="1pt"/></cycle></setCycle>)",
     {"template, line 2, column 36: a style in the cycle lacks the attribute symbol; add it"}, Schema::AcceptsIt},
    {"DashCycleWithoutDashes", R"(<setCycle aesthetic="dash"><cycle><style size="1pt"/></cycle></setCycle>)",
     {"template, line 2, column 35: a style in the cycle lacks the attribute stroke_dasharray; add it"},
     Schema::AcceptsIt},
    {"ColorCycleWithoutColors", R"(<setCycle aesthetic="color"><cycle><style pattern="1"/></cycle></setCycle>)",
     {"template, line 2, column 36: a style in the cycle lacks the attribute color; add it"}, Schema::AcceptsIt},
    {"EachStyleOfACycleIsTold", "<setCycle aesthetic='shape'><cycle>\n<style symbol='plus'/>\n<style/>\n <style/></cycle></setCycle>",
     {"template, line 4, column 1: a style in the cycle lacks the attribute symbol; add it",
      "template, line 5, column 2: a style in the cycle lacks the attribute symbol; add it"},
     Schema::AcceptsIt},
    {"ColorInAnotherCase", R"(<setFont color="SteelBlue"/>)",
     {"template, line 2, column 1: the attribute color of setFont is \"SteelBlue\", which is no colour; did you mean "
      "steelblue?"}},
    {"ColorWithATypingError", R"(<setFont color="lightgren"/>)",
     {"template, line 2, column 1: the attribute color of setFont is \"lightgren\", which is no colour; did you mean "
      "lightgreen?"}},
    {"NegativeSize", R"(<setFont size="-3pt"/>)",
     {"template, line 2, column 1: the attribute size of setFont is \"-3pt\", which is no length above 0; write a "
      "number with px, pt, mm, cm, in or %, such as 10pt"}},
    {"NegativeExtent", R"(<setAxis tickLength="-3pt"/>)",
     {"template, line 2, column 1: the attribute tickLength of setAxis is \"-3pt\", which is no length of 0 or more; "
      "write a number with px, pt, mm, cm, in or %, such as 2pt"}},
    {"NoLineCap", R"(<setLook part="legend"><style stroke_linecap="flat"/></setLook>)",
     {"template, line 2, column 24: the attribute stroke_linecap of style is \"flat\", which is none of its values; "
      "write one of butt, round, square"}},
    {"ANameThatIsNearEnough", R"(<setFont part="legendLabels"/>)",
     {"template, line 2, column 1: the attribute part of setFont is \"legendLabels\", which is none of its values; did "
      "you mean legendLabel?"}},
    {"AThirdOfALongNameMayBeWrong", R"(<setLook part="referenzLinien"><style color="red"/></setLook>)",
     {"template, line 2, column 1: the attribute part of setLook is \"referenzLinien\", which is none of its values; did "
      "you mean referenceLine?"}},
    {"TextOnALineOfItsOwn", "<setAxis/>\n\n  size\n\n<setFont size='1pt'/>",
     {"template, line 4, column 3: there is text in template; remove it"}},
    {"TextBehindRemarks", "<!-- a\n<b> --><?c d?> x<setAxis/>",
     {"template, line 3, column 16: there is text in template; remove it"}},
    {"CdataBehindRemarks", "<!-- a\n<b> --><?c d?> <![CDATA[ x]]><setAxis/>",
     {"template, line 3, column 16: there is a CDATA section in template; remove it"}},
    {"CdataThatIsWhiteSpace", "<setLook part=\"legend\">\n <![CDATA[ ]]><style/></setLook>",
     {"template, line 3, column 2: there is a CDATA section in setLook; remove it"}},
    {"CdataInAnInstruction", "<setFont><![CDATA[ ]]></setFont>",
     {"template, line 2, column 10: there is a CDATA section in setFont; remove it"}, Schema::AcceptsIt},
    {"TextInAStyle", "<setLook part=\"legend\"><style>\n &#65;</style></setLook>",
     {"template, line 3, column 2: there is text in style; remove it"}},
    {"TextBehindAnInstruction", "<setFont\n size='1pt'></setFont> more\n",
     {"template, line 3, column 24: there is text in template; remove it"}},
    {"TextThatIsAReference", "\n&#65;\n<setAxis/>",
     {"template, line 3, column 1: there is text in template; remove it"}},
    {"EveryFaultIsTold", "<setFont size='x'/>\n<setAxis role='w'/>\n\n  <bad/>",
     {"template, line 2, column 1: the attribute size of setFont is \"x\", which is no length above 0; write a number with "
      "px, pt, mm, cm, in or %, such as 10pt",
      "template, line 3, column 1: the attribute role of setAxis is \"w\", which is none of its values; write one "
      "of x, y, z",
      "template, line 5, column 3: unknown element bad in template; it holds addFrame, setAxis, setColor, setCycle, "
      "setFont, setLook, setStyle"}},
    {"AFaultIsWhereItsTagBegins", "<!-- < -->\n<setLook\n   part='legend'>\n  <style\n     color='no colour'\n  /></setLook>",
     {"template, line 5, column 3: the attribute color of style is \"no colour\", which is no colour; write #RRGGBB "
      "or the name of a colour of CSS in small letters, such as steelblue"}},
    {"ColumnsCountCharacters", "<!-- äöü€ --><bad/>",
     {"template, line 2, column 14: unknown element bad in template; it holds addFrame, setAxis, setColor, setCycle, "
      "setFont, setLook, setStyle"}},
};
// clang-format on

class FaultTest : public TemplateTest, public testing::WithParamInterface<FaultRow> {};
INSTANTIATE_TEST_SUITE_P(All, FaultTest, testing::ValuesIn(rows),
                         [](auto const& row) { return row.param.name; });

TEST_P(FaultTest, RefusesTheTemplateAndSaysWhy) {
  std::string const before = chart->text();
  EXPECT_FALSE(apply(GetParam().instructions));
  EXPECT_EQ(log(), GetParam().log);
  EXPECT_EQ(chart->text(), before);
}

TEST_P(FaultTest, IsOneForTheSchemaTooWhereThatCanSayIt) {
  bool const refused = !templateSchemaErrors(templateOf(GetParam().instructions)).empty();
  EXPECT_EQ(refused, GetParam().schema == Schema::RefusesToo);
}

// Values at their bounds: engine and schema agree on each.
struct ValueRow {
  std::string attribute;
  std::string value;
  bool right;
};
std::ostream& operator<<(std::ostream& stream, ValueRow const& row) {
  return stream << row.attribute << "='" << row.value << "'";
}
// clang-format off
ValueRow const values[] = {
    {"size", "10pt", true}, {"size", "-1.5px", false}, {"size", "+.5in", true}, {"size", "5.", true}, {"size", "0", false},
    {"size", "-0", false}, {"size", "0.00pt", false}, {"size", "0.01pt", true}, {"font_size", "0pt", false},
    {"font_size_min", "0pt", true}, {"font_size_min", "-1pt", false}, {"stroke_width", "0", true},
    {"stroke_width", "+0.0pt", true}, {"stroke_width", "-0.5pt", false}, {"padding", "-1px", false}, {"width", "0%", false},
    {"shadow_dx", "-1.5px", true}, {"shadow_dx", "0", true}, {"shadow_dx", "-", false},
    {"stroke_linecap", "round", true}, {"stroke_linecap", "flat", false}, {"stroke_linecap", "", false},
    {"size", "2cm", true}, {"size", "50%", true}, {"size", "", false}, {"size", "pt", false}, {"size", ".", false},
    {"size", "%", false}, {"size", "1.2.3", false}, {"size", "1e3", false}, {"size", "1 pt", false}, {"size", " 1pt", false},
    {"size", "--1", false}, {"size", "10em", false}, {"size", "1pt ", false}, {"size", "+", false},
    {"color", "#aAbB09", true}, {"color", "transparent", true}, {"color", "", false}, {"color", "#12345g", false},
    {"color", "rebeccapurple", true}, {"color", "grey", true}, {"color", "Red", false}, {"color", "reddish", false},
    {"color", "none", false}, {"color", "inherit", false}, {"color", "#aabbccdd", false}, {"color", "#abc", false},
    {"color", "#1234567", false}, {"color", "light blue", false}, {"color", "red1", false}, {"color", "#", false},
    {"opacity", "0", true}, {"opacity", "1", true}, {"opacity", "0.5", true}, {"opacity", ".5", true},
    {"opacity", "1.00", true}, {"opacity", "0.", true}, {"opacity", "1.", true}, {"opacity", "1.01", false}, {"opacity", "2", false},
    {"opacity", "-0.5", false}, {"opacity", ".", false}, {"opacity", "00.5", false}, {"opacity", "10", false},
    {"opacity", "0,5", false}, {"opacity", "", false}, {"opacity", "1.1", false}, {"opacity", "1..", false},
    {"pattern", "0", true}, {"pattern", "9999", true}, {"pattern", "10000", false}, {"pattern", "1.5", false},
    {"pattern", "", false}, {"pattern", "+1", false},
    {"labelAngle", "-45", true}, {"labelAngle", "+.5", true}, {"labelAngle", "45pt", false}, {"labelAngle", "", false},
    {"stroke_dasharray", "", true}, {"stroke_dasharray", "1pt", true}, {"stroke_dasharray", "1pt,2pt,3", true},
    {"stroke_dasharray", ",1pt", false}, {"stroke_dasharray", "1pt,,2pt", false}, {"stroke_dasharray", "1pt, 2pt", false},
    {"stroke_dasharray", "-1pt,2pt", false}, {"stroke_dasharray", "0,2pt", true},
    {"symbol", "cross", true}, {"symbol", "ibeam", true}, {"symbol", "Circle", false}, {"symbol", "blob", false}, {"symbol", "", false}, {"symbol", "a1", false},
    {"visible", "true", true}, {"visible", "0", true}, {"visible", "TRUE", false}, {"visible", " true", false}, {"visible", "", false},
    {"font_weight", "900", true}, {"font_weight", "950", false}, {"font_style", "oblique", true}, {"font_style", "Italic", false},
    {"font_family", "", true}, {"font_family", "Mönch, serif", true},
    {"font_family", std::string(200, 'a'), true}, {"font_family", std::string(201, 'a'), false},
    {"stroke_dasharray", std::string(201, '1'), false}, {"size", std::string(201, '1'), false},
};
// clang-format on

class ValueTest : public TemplateTest, public testing::WithParamInterface<ValueRow> {};
INSTANTIATE_TEST_SUITE_P(All, ValueTest, testing::ValuesIn(values));

TEST_P(ValueTest, IsRightForEngineAndSchemaAlike) {
  std::string const instruction =
      "<setLook part=\"legend\"><style " + GetParam().attribute + "=\"" + GetParam().value + "\"/></setLook>";
  EXPECT_EQ(apply(instruction), GetParam().right);
  EXPECT_EQ(templateSchemaErrors(templateOf(instruction)).empty(), GetParam().right);
}

// Lengths of texts count characters, wherever in Unicode they are.
TEST_F(TemplateTest, ACharacterBeyondTheBasicPlaneIsOne) {
  std::string characters;
  for (int each = 0; each < 200; ++each) characters += "\xF0\x9F\x93\x88";
  EXPECT_TRUE(apply("<setFont family=\"" + characters + "\"/>"));
  EXPECT_FALSE(apply("<setFont family=\"" + characters + "a\"/>"));
}

// Every name of the language is known to the schema.
TEST_F(TemplateTest, EngineAndSchemaKnowTheSameNames) {
  using kestrel::host::ElementRule;
  ElementRule const& root = kestrel::host::templateRoot();
  for (ElementRule::Child const& child : root.children) {
    for (kestrel::host::AttributeRule const& attribute : child.rule->attributes) {
      if (attribute.value->names == nullptr) continue;
      for (std::string_view const name : attribute.value->names()) {
        std::string const tag = "<" + std::string(child.rule->name) + " " + std::string(attribute.name) +
                                "=\"" + std::string(name) + "\"/>";
        for (std::string const& error : templateSchemaErrors(templateOf(tag))) {
          EXPECT_THAT(error, testing::Not(HasSubstr("enumeration"))) << tag;
        }
      }
    }
  }
}

// Texts that are no templates.
struct TextRow {
  std::string name;
  std::string text;
  std::string log;
};
std::ostream& operator<<(std::ostream& stream, TextRow const& row) { return stream << row.name; }

std::string const noTemplate =
    " is no template; begin with <template "
    "xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\">";

std::string const noUtf8 = "the text is no UTF-8 here; mend its bytes or declare its encoding";

// clang-format off
TextRow const texts[] = {
    {"Empty", "", "template, line 1, column 1: the text is not well formed: "},
    {"NoXml", "setFont: 12pt", "template, line 1, column 1: the text is not well formed: "},
    {"Cut", "<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\">\n<setFont",
     "template, line 2, column 9: the text is not well formed: "},
    {"WrongEnd", templateOf("<setFont></setLook>"), "template, line 2, column 12: the text is not well formed: "},
    {"TwoAttributesOfAName", templateOf("<setFont size='1' size='2'/>"), "template, line 2, column 29: the text is not well formed: "},
    {"UnknownEntity", templateOf("<setFont family='&x;'/>"), "template, line 2, column 21: the text is not well formed: "},
    {"UndeclaredPrefix", templateOf("<a:setFont/>"), "template, line 2, column 13: the text is not well formed: "},
    {"BadBytes", templateOf("<setFont family='\xFF\xFE'/>"), "template, line 2, column 18: " + noUtf8},
    {"BadBytesAfterAByteOrderMark", "\xEF\xBB\xBF" + templateOf("\r\n<!-- \xF0\x9F\x93\x88\xC3\xA4 \xC3-->"), "template, line 3, column 10: " + noUtf8},
    {"BadBytesInATextThatSaysUtf8", "<?xml version='1.0' encoding='Utf-8'?>\n" + templateOf("\x80"), "template, line 3, column 1: " + noUtf8},
    {"ALongFormOfACharacter", templateOf("<!--\xE0\x80\x80-->"), "template, line 2, column 5: " + noUtf8},
    {"HalfOfAPair", templateOf("<!--\xED\xA0\x80-->"), "template, line 2, column 5: " + noUtf8},
    {"BeyondUnicode", templateOf("<!--\xF4\x90\x80\x80-->"), "template, line 2, column 5: " + noUtf8},
    {"CutInACharacter", templateOf("") + "<!--\xE2\x82", "template, line 2, column 16: " + noUtf8},
    {"UnknownEncoding", "<?xml version='1.0' encoding='x-none'?><template/>", "template, line 1, column "},
    {"OtherRoot", "<chart/>", "template, line 1, column 1: the root element chart" + noTemplate},
    {"NoNamespace", "<template/>", "template, line 1, column 1: the root element template" + noTemplate},
    {"OtherNamespace", "\n <template xmlns='urn:x'/>", "template, line 2, column 2: the root element template of urn:x" + noTemplate},
    {"AChart", chartOf(""), "template, line 1, column 1: the root element visualization of http://xml.vexa.example/visualization" + noTemplate},
    {"DocumentType", "<!DOCTYPE template>\n" + templateOf(""),
     "template, line 1, column 1: a document type declaration is not allowed; remove it"},
};
// clang-format on

class TextTest : public TemplateTest, public testing::WithParamInterface<TextRow> {};
INSTANTIATE_TEST_SUITE_P(All, TextTest, testing::ValuesIn(texts),
                         [](auto const& row) { return row.param.name; });

TEST_P(TextTest, IsRefusedWithOneLine) {
  std::string const before = chart->text();
  EXPECT_FALSE(applyText(GetParam().text));
  EXPECT_THAT(log(), ElementsAre(StartsWith(GetParam().log)));
  EXPECT_EQ(chart->text(), before);
}

TEST_F(TemplateTest, AFaultOfTheXmlSaysWhatToDo) {
  apply("<setFont></setLook>");
  EXPECT_THAT(log(), ElementsAre(testing::EndsWith("; mend it there")));
}

// Bombs and bounds.
TEST_F(TemplateTest, ADeclarationOfGrowingEntitiesIsRefusedBeforeItGrows) {
  std::string bomb = "<!DOCTYPE template [<!ENTITY e0 \"" + std::string(1000, 'x') + "\">";
  for (int level = 1; level < 30; ++level) {
    std::string const inner = "&e" + std::to_string(level - 1) + ";";
    bomb += "<!ENTITY e" + std::to_string(level) + " \"" + inner + inner + inner + inner + "\">";
  }
  EXPECT_FALSE(applyText(bomb + "]>" + templateOf("<setFont family=\"&e29;\"/>")));
  EXPECT_THAT(log(), ElementsAre(HasSubstr("a document type declaration is not allowed; remove it")));
}

TEST_F(TemplateTest, NothingOutsideTheTextIsLoaded) {
  // The schema would refuse the instruction, and the parser would complain of a place that it cannot read.
  EXPECT_TRUE(
      applyText("<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\" "
                "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                "xsi:schemaLocation=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization "
                "file:///nowhere/template.xsd\"><setAxis "
                "xsi:noNamespaceSchemaLocation=\"file:///nowhere\"/></template>"));
  EXPECT_FALSE(applyText("<!DOCTYPE template SYSTEM \"file:///nowhere/template.dtd\">" + templateOf("")));
  EXPECT_EQ(recorder.count(kestrel::host::Operation::Fetch), 0u);
}

std::string nested(std::size_t levels) {
  std::string text;
  for (std::size_t level = 0; level < levels; ++level) text += "<x>";
  for (std::size_t level = 0; level < levels; ++level) text += "</x>";
  return text;
}

TEST_F(TemplateTest, ElementsAreNotReadDeeperThanAThousandLevels) {
  EXPECT_FALSE(apply(nested(100000)));
  EXPECT_THAT(log(),
              ElementsAre(HasSubstr("unknown element x"),
                          "template, line 2, column 2998: the elements are nested more than 1000 levels "
                          "deep; nest them less"));
}

TEST_F(TemplateTest, AThousandLevelsAreNotTooDeep) {
  EXPECT_FALSE(apply(nested(999)));
  EXPECT_THAT(log(), ElementsAre(HasSubstr("unknown element x")));
}

TEST_F(TemplateTest, ATextOfMoreThanSixteenMebibytesIsRefusedUnread) {
  std::string text = templateOf("<bad/>");
  text.append((std::size_t{16} << 20) - text.size(), ' ');
  EXPECT_FALSE(applyText(text));
  EXPECT_THAT(log(), ElementsAre(HasSubstr("unknown element bad")));
  recorder.clear();
  EXPECT_FALSE(applyText(text + " "));
  EXPECT_THAT(log(),
              ElementsAre("template, line 1, column 1: the text has 16777217 bytes, and a template may have "
                          "16777216; shorten it"));
}

std::string repeated(std::string const& text, std::size_t count) {
  std::string all;
  for (std::size_t each = 0; each < count; ++each) all += text;
  return all;
}

TEST_F(TemplateTest, MoreThanTenThousandElementsAreRefused) {
  EXPECT_TRUE(apply(repeated("<setAxis/>", 9999)));
  EXPECT_FALSE(apply(repeated("<setAxis/>", 10000)));
  EXPECT_THAT(
      log(),
      ElementsAre("template, line 2, column 99991: the template has more than 10000 elements; split it"));
}

TEST_F(TemplateTest, MoreThanTwentyFaultsAreNotTold) {
  EXPECT_FALSE(apply(repeated("<bad/>", 30)));
  EXPECT_EQ(log().size(), 21u);
  EXPECT_EQ(log().back(), "template, line 2, column 121: there are more faults than 20; mend those first");
}

TEST_F(TemplateTest, MessagesAreOneLineEach) {
  EXPECT_FALSE(apply("<setFont size=\"a&#10;b&#13;c\"/>"));
  EXPECT_THAT(log(), ElementsAre(HasSubstr("\"a b c\"")));
}

TEST_F(TemplateTest, CutNamesKeepWholeCharacters) {
  EXPECT_FALSE(apply("<setFont size=\"" + std::string(39, 'a') + "€€\"/>"));
  EXPECT_THAT(log(), ElementsAre(HasSubstr("\"" + std::string(39, 'a') + "...\"")));
}

// Other encodings than UTF-8: the place is where the tag ends.
TEST_F(TemplateTest, ATemplateMayBeInUtf16) {
  std::string const ascii = templateOf("<setFont size=\"9pt\"/>");
  std::string wide = "\xFF\xFE";
  for (char const each : ascii) wide += std::string{each, '\0'};
  EXPECT_TRUE(applyText(wide));
  EXPECT_EQ(valueOf("t1Text", "font_size"), "9pt");
}

TEST_F(TemplateTest, ATemplateMayBeInLatin1) {
  EXPECT_TRUE(applyText("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>" +
                        templateOf("<setFont family=\"M\xF6nch\"/>")));
  EXPECT_EQ(valueOf("t1Text", "font_family"), "Mönch");
}

struct LineRow {
  std::string name;
  std::string text;
  std::string place;
};
std::ostream& operator<<(std::ostream& stream, LineRow const& row) { return stream << row.name; }

class PlaceTest : public TemplateTest, public testing::WithParamInterface<LineRow> {};
INSTANTIATE_TEST_SUITE_P(
    All, PlaceTest,
    testing::Values(LineRow{"Unix", templateOf("\n\n<bad/>"), "line 4, column 1:"},
                    LineRow{"Windows", templateOf("\r\n\r\n <bad/>"), "line 4, column 2:"},
                    LineRow{"OldReturns", templateOf("\r\r<bad/>"), "line 4, column 1:"},
                    LineRow{"Tabs", templateOf("\t\t<bad/>"), "line 2, column 3:"},
                    LineRow{"BeyondTheBasicPlane", templateOf("<!-- \xF0\x9F\x93\x88 --><bad/>"),
                            "line 2, column 12:"},
                    LineRow{"ByteOrderMark", "\xEF\xBB\xBF" + templateOf("<bad/>"), "line 2, column 1:"},
                    LineRow{"Declaration", "<?xml version='1.0' encoding='utf-8'?>\n" + templateOf("<bad/>"),
                            "line 3, column 1:"},
                    LineRow{"Cdata", templateOf("<!-- --> <![CDATA[ ]]>"), "line 2, column 10:"},
                    LineRow{"EndOfATagInAValue", templateOf("<bad x='>'\ny='>'/>"), "line 2, column 1:"}),
    [](auto const& row) { return row.param.name; });

TEST_P(PlaceTest, IsWhereTheTagBegins) {
  EXPECT_FALSE(applyText(GetParam().text));
  EXPECT_THAT(log(), ElementsAre(HasSubstr(GetParam().place)));
}

// A template of one long line must not take time by the square of its length.
TEST_F(TemplateTest, ALongLineIsReadOnce) {
  std::string const instruction = "<setAxis/>" + std::string(1500, ' ');
  EXPECT_FALSE(apply(repeated(instruction, 9000) + "<bad/>"));
  EXPECT_THAT(
      log(), ElementsAre(HasSubstr("line 2, column " + std::to_string(9000 * instruction.size() + 1) + ":")));
}

}  // namespace
