#include "chart.h"

#include "host/data_types.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace {

std::string print(DOMPrinter const& printer, xercesc::DOMNode const* node, bool declaration = false) {
  std::ostringstream stream;
  printer.Print(node, stream, declaration);
  return stream.str();
}

class Printing : public testing::Test {
 protected:
  ParsedChart parsed{"<a><b c=\"1\"/><!--x--><d>text<e/></d>\n<f><g/></f></a>"};
  xercesc::DOMElement const* root = parsed.dom().getDocumentElement();
};

TEST_F(Printing, WritesTheNodeAlone) {
  EXPECT_EQ(print(DOMPrinter(), root), "<a><b c=\"1\"/><!--x--><d>text<e/></d>\n<f><g/></f></a>");
}

TEST_F(Printing, WritesTheDeclarationOnDemand) {
  EXPECT_EQ(print(DOMPrinter(), root->getFirstElementChild(), true),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?><b c=\"1\"/>");
}

TEST_F(Printing, WritesNothingForNull) { EXPECT_EQ(print(DOMPrinter(), nullptr, true), ""); }

TEST_F(Printing, OfChartsIsTheSameWithoutWhiteSpace) {
  EXPECT_EQ(print(ChartPrinter(), root), print(DOMPrinter(), root));
}

TEST_F(Printing, WithWhiteSpaceIndentsElementsAndLeavesTextAlone) {
  ChartPrinter printer;
  printer.setPrintWhiteSpace(true);
  EXPECT_EQ(print(printer, root),
            "<a>\n  <b c=\"1\"/>\n  <!--x-->\n  <d>text<e/></d>\n  <f>\n    <g/>\n  </f>\n</a>");
}

TEST_F(Printing, WithWhiteSpaceIsStable) {
  ChartPrinter printer;
  printer.setPrintWhiteSpace(true);
  std::string const once = print(printer, root);
  ParsedChart again(once);
  EXPECT_EQ(print(printer, again.dom().getDocumentElement()), once);
}

TEST_F(Printing, IsVirtual) {
  ChartPrinter printer;
  printer.setPrintWhiteSpace(true);
  DOMPrinter const& base = printer;
  EXPECT_NE(print(base, root).find("\n  <b"), std::string::npos);
}

class ErrorHandler : public testing::Test {
 protected:
  static std::vector<std::string> seen;
  static void note(LumoException const& exception) {
    seen.push_back(exception.getFile() + ":" + std::to_string(exception.getLine()) + ":" +
                   exception.getMessage());
  }

  void SetUp() override { seen.clear(); }
};

std::vector<std::string> ErrorHandler::seen;

TEST_F(ErrorHandler, GivesTheFailureToTheSink) {
  LumoErrorHandler::Sink const before = LumoErrorHandler::setSink(&note);
  LumoErrorHandler().error(LumoException("failed", "file.cpp", 42));
  EXPECT_EQ(LumoErrorHandler::setSink(before), &note);
  EXPECT_EQ(seen, std::vector<std::string>{"file.cpp:42:failed"});
}

TEST_F(ErrorHandler, WritesToStandardErrorByItself) {
  testing::internal::CaptureStderr();
  LumoErrorHandler().error(LumoException("failed", "file.cpp", 42));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "file.cpp:42: failed\n");
}

std::string shown(double value, Vexa_Format::FormatType type, int width, int decimals) {
  return formatter::AsString(OBS(value), Vexa_Format(type, width, decimals));
}

TEST(Formatter, ShowsNumbersWithTheirDecimals) {
  EXPECT_EQ(shown(1, Vexa_Format::FormatNumber, 8, 2), "1.00");
  EXPECT_EQ(shown(-2.345, Vexa_Format::FormatNumber, 8, 1), "-2.3");
  EXPECT_EQ(shown(3, Vexa_Format::FormatNumber, 8, 0), "3");
  EXPECT_EQ(shown(1234.5, Vexa_Format::FormatCustomCurrency1, 10, 2), "1234.50");
}

TEST(Formatter, ShowsNoNegativeZero) {
  EXPECT_EQ(shown(-0.001, Vexa_Format::FormatNumber, 8, 2), "0.00");
  EXPECT_EQ(shown(-0.0, Vexa_Format::FormatNumber, 8, 0), "0");
}

TEST(Formatter, GivesUpDecimalsThatDoNotFit) {
  EXPECT_EQ(shown(12345.678, Vexa_Format::FormatNumber, 7, 3), "12345.7");
  EXPECT_EQ(shown(1234567.8, Vexa_Format::FormatNumber, 7, 1), "1234568");
}

TEST(Formatter, ShowsNumbersThatDoNotFitInFull) {
  EXPECT_EQ(shown(123456789, Vexa_Format::FormatNumber, 4, 0), "123456789");
}

TEST(Formatter, ShowsNumbersWithoutAFormatInFull) {
  EXPECT_EQ(formatter::AsString(OBS(1.5), Vexa_Format()), "1.5");
}

TEST(Formatter, ShowsMissingValuesAsAPoint) {
  EXPECT_EQ(shown(std::numeric_limits<double>::lowest(), Vexa_Format::FormatNumber, 8, 2), ".");
  EXPECT_EQ(shown(std::numeric_limits<double>::quiet_NaN(), Vexa_Format::FormatDate, 8, 2), ".");
}

TEST(Formatter, ShowsDatesAndTimes) {
  constexpr double moment = 951782400 + 3661.5;  // 2000-02-29 01:01:01.5
  EXPECT_EQ(shown(moment, Vexa_Format::FormatDate, 10, 0), "2000-02-29");
  EXPECT_EQ(shown(moment, Vexa_Format::FormatDateTime, 20, 0), "2000-02-29 01:01:01");
  EXPECT_EQ(shown(moment, Vexa_Format::FormatDateTime, 22, 1), "2000-02-29 01:01:01.5");
  EXPECT_EQ(shown(moment, Vexa_Format::FormatTime, 8, 0), "01:01:01");
}

TEST(Formatter, ShowsDatesBeforeTheEpoch) {
  EXPECT_EQ(shown(-1, Vexa_Format::FormatDateTime, 20, 0), "1969-12-31 23:59:59");
  EXPECT_EQ(shown(-62135596800.0, Vexa_Format::FormatDate, 10, 0), "0001-01-01");
}

TEST(Formatter, NeverRoundsToTheSixtiethSecond) {
  EXPECT_EQ(shown(59.999, Vexa_Format::FormatTime, 8, 0), "00:00:59");
  EXPECT_EQ(shown(59.96, Vexa_Format::FormatTime, 10, 1), "00:00:59.9");
}

TEST(Formatter, ShowsWhatIsNoDateAsANumber) {
  EXPECT_EQ(shown(1e300, Vexa_Format::FormatDate, 10, 0), "1e300");
}

TEST(Formatter, ShowsElapsedTimeInDays) {
  EXPECT_EQ(shown(90061, Vexa_Format::FormatElapsedTime, 15, 0), "1 01:01:01");
  EXPECT_EQ(shown(-90061, Vexa_Format::FormatElapsedTime, 15, 0), "-1 01:01:01");
}

TEST(Formatter, ShowsWeekdaysAndMonthsByNumber) {
  EXPECT_EQ(shown(7, Vexa_Format::FormatDayOfWeek, 3, 2), "7");
  EXPECT_EQ(shown(12, Vexa_Format::FormatMonthOfYear, 3, 2), "12");
}

TEST(Formatter, ShowsTextWithoutTheBlanksAtItsEnd) {
  // A cell of text is the first of as many bytes as it is wide.
  struct alignas(8) Wide {
    char bytes[16];
  } wide{{' ', 'a', 'b', ' ', 'c', 'd', 'e', 'f', 'g', 'h', ' ', ' ', ' ', ' ', ' ', ' '}};
  OBS const& cell = reinterpret_cast<OBS const&>(wide);
  EXPECT_EQ(formatter::AsString(cell, Vexa_Format(Vexa_Format::FormatString, 16, 0)), " ab cdefgh");
  EXPECT_EQ(formatter::AsString(cell, Vexa_Format(Vexa_Format::FormatString, 4, 0)), " ab");
}

TEST(Formatter, ShowsABlankTextAsNothing) {
  OBS cell;
  std::fill(std::begin(cell.bytes), std::end(cell.bytes), static_cast<unsigned char>(' '));
  EXPECT_EQ(formatter::AsString(cell, Vexa_Format(Vexa_Format::FormatString, 8, 0)), "");
}

TEST(Formatter, ShowsNumbersWithAPrecision) {
  EXPECT_EQ(formatter::AsString(0.1 + 0.2, 16), "0.3");
  EXPECT_EQ(formatter::AsString(2.0, 16), "2");
}

struct Trimmed {
  int length;
  std::string rest;
};

Trimmed trim(std::string const& text) {
  char const* first = text.c_str();
  char const* last = text.c_str() + text.size() - 1;
  int const length = formatter::trim(first, last);
  EXPECT_GE(first, text.c_str());
  EXPECT_LE(first, text.c_str() + text.size()) << "never past the end of the text";
  return {length, first};
}

TEST(Formatter, TrimsBothEnds) {
  std::string const text = " \tAge \t";
  char const* first = text.c_str();
  char const* last = first + text.size() - 1;
  EXPECT_EQ(formatter::trim(first, last), 3);
  EXPECT_EQ(std::string(first, last + 1), "Age");
}

TEST(Formatter, TrimGivesWhatLiesFromTheFirstOn) {
  EXPECT_EQ(trim("  Age  ").rest, "Age  ");
  EXPECT_EQ(trim("  Age  ").length, 3);
  EXPECT_EQ(trim("Age").length, 3);
  EXPECT_EQ(trim("a b").length, 3);
}

TEST(Formatter, TrimsBlanksToNothing) {
  EXPECT_LE(trim("   ").length, 0);
  EXPECT_EQ(trim("   ").rest, "");
  EXPECT_LE(trim("").length, 0);
}

TEST(Formatter, TrimsOneCharacter) {
  EXPECT_EQ(trim("a").length, 1);
  EXPECT_LE(trim(" ").length, 0);
}

TEST(Formatter, TrimsNothingOfNull) {
  char const* first = nullptr;
  char const* last = nullptr;
  EXPECT_EQ(formatter::trim(first, last), 0);
}

}  // namespace
