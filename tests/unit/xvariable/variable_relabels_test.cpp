// Texts that stand for the values of a variable.

#include "variable_fixture.h"

#include "host/messages.h"
#include "model/chartstring.h"

#include <gmock/gmock.h>

#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char const* context = "Error in XVariable::addRelabel()";

class RelabelTest : public VariableTest {
 protected:
  /// The relabels of the first format, as "from|to".
  std::vector<std::string> relabels() const {
    std::vector<std::string> texts;
    auto const formats = model.getFormats();
    if (formats.empty()) return {"(no format)"};
    for (LumoRelabel const* relabel : formats.front()->getRelabels()) {
      texts.push_back(utf8(relabel->getFrom()) + "|" + utf8(relabel->getTo()));
    }
    return texts;
  }

  /// A cell of a string variable; the bytes stay with the test.
  OBS const& cellOf(std::string_view bytes) {
    auto& cells = mCells.emplace_back(std::make_unique<std::vector<OBS>>((bytes.size() + 7) / 8 + 1));
    std::memcpy(cells->data(), bytes.data(), bytes.size());
    return cells->front();
  }

  XVariable variable{model};

 private:
  std::vector<std::unique_ptr<std::vector<OBS>>> mCells;
};

TEST_F(RelabelTest, IsWrittenInItsFixedOrder) {
  EXPECT_THAT(
      writesOf([&] { variable.addRelabel(u"1", u"one"); }),
      ElementsAre("sourceVariable adds format", "format adds relabel", "relabel from=1", "relabel to=one"));
}

TEST_F(RelabelTest, GoesToTheFirstFormat) {
  model.addFormat();
  model.addFormat();
  variable.addRelabel(u"1", u"one");
  EXPECT_THAT(relabels(), ElementsAre("1|one"));
  EXPECT_EQ(model.getFormats().size(), 2u);
  EXPECT_THAT(model.getFormats()[1]->getRelabels(), IsEmpty());
}

TEST_F(RelabelTest, ANullOrEmptyValueMakesNothing) {
  EXPECT_THAT(writesOf([&] {
                variable.addRelabel(u"", u"x");
                variable.addRelabel(static_cast<char16_t const*>(nullptr), u"x");
              }),
              IsEmpty());
  expectNoReport(recorder);
}

TEST_F(RelabelTest, ABlankIsAValue) {
  variable.addRelabel(u" ", u"blank");
  EXPECT_THAT(relabels(), ElementsAre(" |blank"));
}

TEST_F(RelabelTest, TheTextMayBeEmptyOrNull) {
  variable.addRelabel(u"1", u"");
  variable.addRelabel(u"2", nullptr);
  EXPECT_THAT(relabels(), ElementsAre("1|", "2|"));
}

TEST_F(RelabelTest, OfAValueThatHasOneIsAddedBehindIt) {
  variable.addRelabel(u"1", u"one");
  variable.addRelabel(u"2", u"two");
  variable.addRelabel(u"1", u"another");
  EXPECT_THAT(relabels(), ElementsAre("1|one", "2|two", "1|another"));
}

TEST_F(RelabelTest, BreaksLinesInTheTextAndNotInTheValue) {
  variable.addRelabel(u"a\\nb", u"c\\nd\\ne");
  EXPECT_THAT(relabels(), ElementsAre("a\\nb|c\nd\ne"));
}

// --- Of a number

TEST_F(RelabelTest, OfANumberHasItsDigits) {
  variable.addRelabel(7u, u"x");
  variable.addRelabel(0u, u"none");
  variable.addRelabel(std::numeric_limits<unsigned int>::max(), u"all");
  EXPECT_THAT(relabels(), ElementsAre("7|x", "0|none", "4294967295|all"));
}

TEST_F(RelabelTest, OfANumberBreaksLinesInTheText) {
  variable.addRelabel(7u, u"c\\nd");
  EXPECT_THAT(relabels(), ElementsAre("7|c\nd"));
}

// --- Of a cell

TEST_F(RelabelTest, OfACellHasUpToSixteenDigitsWithoutAHostVariable) {
  variable.addRelabel(OBS(2.0), u"two");
  variable.addRelabel(OBS(0.1 + 0.2), u"rounded");
  variable.addRelabel(OBS(2.0 / 3.0), u"long");
  EXPECT_THAT(relabels(), ElementsAre("2|two", "0.3|rounded", "0.6666666666666666|long"));
}

TEST_F(RelabelTest, OfAMissingCellIsANumberToo) {
  variable.addRelabel(OBS(std::numeric_limits<double>::lowest()), u"missing");
  EXPECT_EQ(relabels().at(0).substr(0, 7), "-1.7976");
}

TEST_F(RelabelTest, OfACellHasTheFormatOfTheHostVariable) {
  variable.setVexaVariable(host);
  variable.addRelabel(OBS(2.0), u"two");
  host.format = Vexa_Format(Vexa_Format::FormatDate, 11, 0);
  variable.addRelabel(OBS(951782400.0), u"leap day");
  EXPECT_THAT(relabels(), ElementsAre("2.00|two", "2000-02-29|leap day"));
}

TEST_F(RelabelTest, OfACellOfBlanksMakesNothing) {
  host.format = Vexa_Format(Vexa_Format::FormatTextString, 8, 0);
  variable.setVexaVariable(host);
  EXPECT_THAT(writesOf([&] { variable.addRelabel(cellOf("        "), u"blank"); }), IsEmpty());
}

TEST_F(RelabelTest, OfACellBreaksLinesInTheTextAndNotInTheValue) {
  host.format = Vexa_Format(Vexa_Format::FormatTextString, 8, 0);
  variable.setVexaVariable(host);
  variable.addRelabel(cellOf("a\\nb    "), u"c\\nd");
  EXPECT_THAT(relabels(), ElementsAre("a\\nb|c\nd"));
}

// --- With a cell as its text

TEST_F(RelabelTest, ShowsACellAsTheText) {
  variable.addRelabel(u"1", OBS(0.1 + 0.2));
  variable.setVexaVariable(host);
  variable.addRelabel(u"2", OBS(2.0));
  EXPECT_THAT(relabels(), ElementsAre("1|0.3", "2|2.00"));
}

TEST_F(RelabelTest, WithACellAsItsTextBreaksLinesInTheValueToo) {
  host.format = Vexa_Format(Vexa_Format::FormatTextString, 8, 0);
  variable.setVexaVariable(host);
  variable.addRelabel(u"a\\nb", cellOf("c\\nd    "));
  EXPECT_THAT(relabels(), ElementsAre("a\nb|c\nd"));
}

TEST_F(RelabelTest, WithACellAsItsTextNeedsAValue) {
  EXPECT_THAT(writesOf([&] {
                variable.addRelabel(u"", OBS(1.0));
                variable.addRelabel(static_cast<char16_t const*>(nullptr), OBS(1.0));
              }),
              IsEmpty());
  expectNoReport(recorder);
}

TEST_F(RelabelTest, MayShowAnEmptyCell) {
  host.format = Vexa_Format(Vexa_Format::FormatTextString, 8, 0);
  variable.setVexaVariable(host);
  variable.addRelabel(u"1", cellOf("        "));
  EXPECT_THAT(relabels(), ElementsAre("1|"));
}

// --- Failures

struct Form {
  char const* name;
  void (*add)(XVariable&);
};

void PrintTo(Form const& form, std::ostream* out) { *out << form.name; }

class EachForm : public RelabelTest, public ::testing::WithParamInterface<Form> {};

INSTANTIATE_TEST_SUITE_P(
    , EachForm,
    ::testing::Values(Form{"Text", [](XVariable& variable) { variable.addRelabel(u"1", u"one"); }},
                      Form{"Number", [](XVariable& variable) { variable.addRelabel(1u, u"one"); }},
                      Form{"Cell", [](XVariable& variable) { variable.addRelabel(OBS(1.0), u"one"); }},
                      Form{"CellAsText", [](XVariable& variable) { variable.addRelabel(u"1", OBS(1.0)); }}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(EachForm, ReportsAFailureOfTheFormat) {
  failAtChange(1, [&] { GetParam().add(variable); });
  expectGuardReport(recorder, context);
  EXPECT_THAT(model.getFormats(), IsEmpty());
}

TEST_P(EachForm, LeavesTheFormatWhereTheRelabelFails) {
  failAtChange(2, [&] { GetParam().add(variable); });
  expectGuardReport(recorder, context);
  EXPECT_THAT(relabels(), IsEmpty());
}

TEST_P(EachForm, LetsTheHostsUnwindingSignalPass) {
  EXPECT_THROW(unwindAtChange(1, [&] { GetParam().add(variable); }), VexaGoToCaller);
  expectNoReport(recorder);
}

/// A host variable of which one answer fails.
class FailingVariable : public ChosenVariable {
 public:
  Vexa_Format GetFormat() const override {
    if (failFormat) throw OrdinaryFailure();
    return ChosenVariable::GetFormat();
  }
  Vexa_VLImplPointer GetValueLabels() const override {
    if (failLabels) throw OrdinaryFailure();
    return ChosenVariable::GetValueLabels();
  }

  bool failFormat = false;
  bool failLabels = false;
};

class FormsOfCells : public EachForm {};

INSTANTIATE_TEST_SUITE_P(
    , FormsOfCells,
    ::testing::Values(Form{"Cell", [](XVariable& variable) { variable.addRelabel(OBS(1.0), u"one"); }},
                      Form{"CellAsText", [](XVariable& variable) { variable.addRelabel(u"1", OBS(1.0)); }}),
    [](auto const& row) { return std::string(row.param.name); });

TEST_P(FormsOfCells, ReportAFormatThatCannotBeRead) {
  FailingVariable failing;
  failing.failFormat = true;
  variable.setVexaVariable(failing);
  EXPECT_NO_THROW(GetParam().add(variable));
  expectGuardReport(recorder, context);
  EXPECT_THAT(model.getFormats(), IsEmpty());
}

// --- All value labels of the host variable

/// Pairs of a cell and a text, null texts too.
class ChosenLabels : public Vexa_ValueLabels {
 public:
  unsigned int GetCount() const override { return static_cast<unsigned int>(pairs.size()); }
  OBS const* GetValue(unsigned int index) const override { return pairs[index].first; }
  char const* GetLabel(unsigned int index) const override { return pairs[index].second; }

  std::vector<std::pair<OBS const*, char const*>> pairs;
};

class ValueLabelTest : public RelabelTest {
 protected:
  ValueLabelTest() {
    host.valueLabels = labels;
    variable.setVexaVariable(host);
  }

  void addText(std::string_view bytes, char const* text) { labels->pairs.emplace_back(&cellOf(bytes), text); }
  void addNumber(double number, char const* text) {
    OBS const cell(number);
    addText({reinterpret_cast<char const*>(cell.bytes), sizeof cell.bytes}, text);
  }

  std::shared_ptr<ChosenLabels> labels = std::make_shared<ChosenLabels>();
};

TEST_F(ValueLabelTest, AreWrittenInTheirOrder) {
  addNumber(2, "two");
  addNumber(1, "one");
  EXPECT_THAT(writesOf([&] { variable.addRelabels(); }),
              ElementsAre("sourceVariable adds format", "format adds relabel", "relabel from=2.00",
                          "relabel to=two", "format adds relabel", "relabel from=1.00", "relabel to=one"));
}

TEST_F(ValueLabelTest, AreNoneWithoutAHostVariable) {
  XVariable plain(model);
  EXPECT_THAT(writesOf([&] { plain.addRelabels(); }), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(ValueLabelTest, MakeNoFormatWhereThereAreNone) {
  EXPECT_THAT(writesOf([&] { variable.addRelabels(); }), IsEmpty());
  host.valueLabels = nullptr;
  EXPECT_THAT(writesOf([&] { variable.addRelabels(); }), IsEmpty());
}

TEST_F(ValueLabelTest, AreWrittenAgainAtASecondCall) {
  addNumber(1, "one");
  variable.addRelabels();
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("1.00|one", "1.00|one"));
}

TEST_F(ValueLabelTest, WithoutATextArePassedOver) {
  addNumber(1, nullptr);
  addNumber(2, "two");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("2.00|two"));
}

TEST_F(ValueLabelTest, MayBeEmpty) {
  addNumber(1, "");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("1.00|"));
}

TEST_F(ValueLabelTest, BreakTheirLines) {
  addNumber(1, "a\\nb");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("1.00|a\nb"));
}

TEST_F(ValueLabelTest, AreInTheLocalCodePage) {
  ChartString::setLocalCodePage("windows-1252");
  addNumber(1,
            "Gr\xF6\xDF"
            "e");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("1.00|Größe"));
}

class StringLabelTest : public ValueLabelTest {
 protected:
  void setWidth(int width) { host.format = Vexa_Format(Vexa_Format::FormatString, width, 0); }

  StringLabelTest() { setWidth(8); }
};

TEST_F(StringLabelTest, OfAStringLosesTheBlanksAtItsEnd) {
  addText("ab      ", "x");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("ab|x"));
}

TEST_F(StringLabelTest, OfAStringKeepsOtherBlanks) {
  addText(" a b\t   ", "x");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre(" a b\t|x"));
}

TEST_F(StringLabelTest, OfAStringMayFillItsWidth) {
  addText("abcdefgh and more", "x");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("abcdefgh|x"));
}

TEST_F(StringLabelTest, OfAStringEndsAtItsWidth) {
  setWidth(3);
  addText("abcdefgh", "x");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("abc|x"));
}

TEST_F(StringLabelTest, OfAStringMayBeWiderThanACell) {
  setWidth(60);
  std::string const wide = "a string of more than eight bytes, with blanks behind it";
  addText(wide + std::string(60 - wide.size(), ' '), "x");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre(wide + "|x"));
}

TEST_F(StringLabelTest, OfBlanksOnlyMakesNothing) {
  addText("        ", "x");
  EXPECT_THAT(writesOf([&] { variable.addRelabels(); }), IsEmpty());
}

TEST_F(StringLabelTest, OfAStringBreaksNoLinesInTheValue) {
  addText("a\\nb    ", "c\\nd");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("a\\nb|c\nd"));
}

TEST_F(StringLabelTest, OfAStringIsInTheLocalCodePage) {
  ChartString::setLocalCodePage("windows-1252");
  addText("gr\xF6\xDF    ", "x");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("größ|x"));
}

TEST_F(StringLabelTest, OfATextStringIsFormattedAsACell) {
  host.format = Vexa_Format(Vexa_Format::FormatTextString, 8, 0);
  addText("ab      ", "x");
  variable.addRelabels();
  EXPECT_THAT(relabels(), ElementsAre("ab|x"));
}

TEST_F(ValueLabelTest, HaveAGuardForEachOneOnly) {
  addNumber(1, "one");
  addNumber(2, "two");
  failAtChange(1, [&] { variable.addRelabels(); });
  expectGuardReport(recorder, context);
  EXPECT_THAT(relabels(), ElementsAre("2.00|two"));
}

TEST_F(ValueLabelTest, LetTheHostsUnwindingSignalPass) {
  addNumber(1, "one");
  EXPECT_THROW(unwindAtChange(1, [&] { variable.addRelabels(); }), VexaGoToCaller);
  expectNoReport(recorder);
}

TEST_F(ValueLabelTest, ThatCannotBeReadReachTheCaller) {
  FailingVariable failing;
  failing.failLabels = true;
  variable.setVexaVariable(failing);
  EXPECT_THROW(variable.addRelabels(), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(ValueLabelTest, WithoutAValueReachTheCaller) {
  labels->pairs.emplace_back(nullptr, "lost");
  EXPECT_ANY_THROW(variable.addRelabels());
  expectNoReport(recorder);
}

// --- Removal

TEST_F(RelabelTest, AllAreRemovedFromTheFirstFormatOnly) {
  model.addFormat()->setPrefix(u"kept");
  model.addFormat()->addRelabel(u"2", u"two");
  variable.addRelabel(u"1", u"one");
  variable.addRelabel(u"1", u"again");
  EXPECT_THAT(writesOf([&] { variable.removeAllRelabels(); }),
              ElementsAre("relabel is removed", "relabel is removed"));
  ASSERT_EQ(model.getFormats().size(), 2u);
  EXPECT_EQ(utf8(model.getFormats()[0]->getPrefix()), "kept");
  EXPECT_EQ(model.getFormats()[1]->getRelabels().size(), 1u);
}

TEST_F(RelabelTest, RemovalMakesNoFormat) {
  EXPECT_THAT(writesOf([&] { variable.removeAllRelabels(); }), IsEmpty());
  expectNoReport(recorder);
}

TEST_F(RelabelTest, AFailureOfTheRemovalIsReported) {
  variable.addRelabel(u"1", u"one");
  variable.addRelabel(u"2", u"two");
  failAtChange(1, [&] { variable.removeAllRelabels(); });
  expectGuardReport(recorder, "Error in XVariable::removeAllRelabels()");
  EXPECT_THAT(relabels(), ElementsAre("1|one", "2|two"));
}

TEST_F(RelabelTest, RemovalLetsTheHostsUnwindingSignalPass) {
  variable.addRelabel(u"1", u"one");
  EXPECT_THROW(unwindAtChange(1, [&] { variable.removeAllRelabels(); }), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
