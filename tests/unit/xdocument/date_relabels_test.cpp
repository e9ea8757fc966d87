// Date texts by input pattern, and the names that stand in them.

#include "date_relabels.h"

#include "chart_test.h"

#include "kestrelhost/text.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::DateParts;
using host::Operation;
using ::testing::UnorderedElementsAreArray;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double systemMissing = std::numeric_limits<double>::lowest();
/// No number of a month or of a day.
constexpr double someDate = 1000.0;

/// Breaks every value up into the same parts, and says that it is no date.
class FixedCalendar : public host::Calendar {
 public:
  bool breakUp(double, DateParts& given) override {
    given = parts;
    return false;
  }

  DateParts parts;
};

std::map<std::string, std::string> shortNames() {
  return {{"January", "m1"},   {"February", "m2"},  {"March", "m3"},  {"April", "m4"},     {"May", "m5"},
          {"June", "m6"},      {"July", "m7"},      {"August", "m8"}, {"September", "m9"}, {"October", "m10"},
          {"November", "m11"}, {"December", "m12"}, {"Sunday", "d1"}, {"Monday", "d2"},    {"Tuesday", "d3"},
          {"Wednesday", "d4"}, {"Thursday", "d5"},  {"Friday", "d6"}, {"Saturday", "d7"},  {"Q", "quarter"}};
}

class DateTexts : public ChartTest {
 protected:
  DateTexts() { recorder.services().texts->texts = shortNames(); }

  /// The text of a value that the host breaks up into these parts.
  std::string text(double value, char16_t const* pattern, DateParts const& parts) {
    host::Host host = recorder.host();
    auto const calendar = std::make_shared<FixedCalendar>();
    calendar->parts = parts;
    host.calendar = calendar;
    host::ScopedHost const scope(host);
    return dateText(value, pattern, names()).toUTF8();
  }

  /// The text of a value in the host's own calendar.
  static std::string text(double value, char16_t const* pattern) {
    return dateText(value, pattern, names()).toUTF8();
  }

  static DateNames names() {
    ChartDictionary dictionary;
    return DateNames(dictionary);
  }
};

struct PatternRow {
  char16_t const* pattern;
  /// Of day 23, month 11, year 1987, 17:48 and 59.75 seconds.
  char const* wide;
  /// Of day 3, month 4, year 2005, 9:05 and 7.25 seconds.
  char const* narrow;
};

void PrintTo(PatternRow const& row, std::ostream* out) { *out << utf8(row.pattern); }

class DatePattern : public DateTexts, public ::testing::WithParamInterface<PatternRow> {};

TEST_P(DatePattern, LaysOutPartsOfTwoDigits) {
  EXPECT_EQ(text(someDate, GetParam().pattern, {23, 11, 1987, 17, 48, 59.75}), GetParam().wide);
}

TEST_P(DatePattern, PadsPartsOfOneDigitButNotTheHours) {
  EXPECT_EQ(text(someDate, GetParam().pattern, {3, 4, 2005, 9, 5, 7.25}), GetParam().narrow);
}

INSTANTIATE_TEST_SUITE_P(
    All, DatePattern,
    ::testing::Values(
        PatternRow{u"dd-MMM-yyyy", "23-m11-1987", "03-m4-2005"},
        PatternRow{u"dd-MMM-yy", "23-m11-87", "03-m4-05"},
        PatternRow{u"HH:mm:ss.SSS", "17:48:59:000", "9:05:07:000"},
        PatternRow{u"HH:mm:ss", "17:48:59", "9:05:07"}, PatternRow{u"HH:mm", "17:48", "9:05"},
        PatternRow{u"dd-MMM-yyyy HH:mm.ss.SSS", "23-m11-1987 17:48:59:000", "03-m4-2005 9:05:07:000"},
        PatternRow{u"dd-MMM-yyyy HH:mm.ss", "23-m11-1987 17:48:59", "03-m4-2005 9:05:07"},
        PatternRow{u"dd-MMM-yyyy HH:mm", "23-m11-1987 17:48", "03-m4-2005 9:05"},
        PatternRow{u"MM/dd/yyyy", "11/23/1987", "04/03/2005"},
        PatternRow{u"MM/dd/yy", "11/23/87", "04/03/05"},
        PatternRow{u"dd.MM.yyyy", "23.11.1987", "03.04.2005"},
        PatternRow{u"dd.MM.yy", "23.11.87", "03.04.05"},
        PatternRow{u"yyyy/MM/dd", "1987/11/23", "2005/04/03"},
        PatternRow{u"yy/MM/dd", "87/11/23", "05/04/03"}, PatternRow{u"yyyyD", "1987/11/23", "2005/04/03"},
        PatternRow{u"yyD", "87/11/23", "05/04/03"},
        PatternRow{u"ddd HH:mm.ss.SSS", "23 17:48:59:000", "03 9:05:07:000"},
        PatternRow{u"ddd HH:mm.ss", "23 17:48:59", "03 9:05:07"},
        PatternRow{u"ddd HH:mm", "23 17:48", "03 9:05"}, PatternRow{u"EEE", "11/23/1987", "04/03/2005"},
        PatternRow{u"EE", "11/23/1987", "04/03/2005"}, PatternRow{u"MMMMM", "m11", "m4"},
        PatternRow{u"MMM", "m11", "m4"}, PatternRow{u"MMM yyyy", "m11 1987", "m4 2005"},
        PatternRow{u"MMM yy", "m11 87", "m4 05"}, PatternRow{u"Q yyyy", "4 quarter 1987", "2 quarter 2005"},
        PatternRow{u"Q yy", "4 quarter 87", "2 quarter 05"},
        PatternRow{u"w yyyy", "11/23/1987", "04/03/2005"}, PatternRow{u"w yy", "11/23/87", "04/03/05"}));

class UnknownPattern : public DateTexts, public ::testing::WithParamInterface<char16_t const*> {};

TEST_P(UnknownPattern, GivesNoText) {
  EXPECT_EQ(text(someDate, GetParam(), {23, 11, 1987, 17, 48, 59.75}), "");
  EXPECT_EQ(text(5.0, GetParam(), {}), "");
}

INSTANTIATE_TEST_SUITE_P(Texts, UnknownPattern,
                         ::testing::Values(u"", u" ", u"dd-mmm-yyyy", u"DD-MMM-YYYY", u"dd-MMM-yyyy ",
                                           u" dd-MMM-yyyy", u"MMM\u00a0yyyy", u"yyyy-MM-dd", u"dd/MM/yyyy",
                                           u"M", u"MM", u"MMMM", u"MMMMMM", u"mmm", u"E", u"EEEE", u"eee",
                                           u"Q", u"q yyyy", u"w", u"W yyyy", u"HH", u"hh:mm", u"HH:mm.ss",
                                           u"ddd", u"D", u"d-N-Y", u"M/d/Y", u"N", u"yyyy"));

/// One part that differs from all others, and the text of it.
struct PartRow {
  char const* name;
  char16_t const* pattern;
  DateParts parts;
  char const* text;
};

void PrintTo(PartRow const& row, std::ostream* out) { *out << row.name; }

class DatePart : public DateTexts, public ::testing::WithParamInterface<PartRow> {};

TEST_P(DatePart, IsWrittenAs) {
  EXPECT_EQ(text(someDate, GetParam().pattern, GetParam().parts), GetParam().text);
}

constexpr DateParts ofDay(long day) { return {day, 6, 2000, 0, 0, 0}; }
constexpr DateParts ofMonth(long month) { return {15, month, 2000, 0, 0, 0}; }
constexpr DateParts ofYear(long year) { return {15, 6, year, 0, 0, 0}; }
constexpr DateParts ofTime(long hours, long minutes, double seconds) {
  return {15, 6, 2000, hours, minutes, seconds};
}

INSTANTIATE_TEST_SUITE_P(
    Bounds, DatePart,
    ::testing::Values(PartRow{"DayNought", u"dd.MM.yy", ofDay(0), "00.06.00"},
                      PartRow{"DayNine", u"dd.MM.yy", ofDay(9), "09.06.00"},
                      PartRow{"DayTen", u"dd.MM.yy", ofDay(10), "10.06.00"},
                      PartRow{"MonthNine", u"dd.MM.yy", ofMonth(9), "15.09.00"},
                      PartRow{"MonthTen", u"dd.MM.yy", ofMonth(10), "15.10.00"},
                      PartRow{"YearOfTheCentury", u"MM/dd/yyyy", ofYear(1900), "06/15/1900"},
                      PartRow{"YearOfTheCenturyInTwoDigits", u"MM/dd/yy", ofYear(1900), "06/15/00"},
                      PartRow{"YearNineOfTheCentury", u"MM/dd/yy", ofYear(2009), "06/15/09"},
                      PartRow{"YearTenOfTheCentury", u"MM/dd/yy", ofYear(2010), "06/15/10"},
                      PartRow{"YearNinetyNine", u"MM/dd/yy", ofYear(1999), "06/15/99"},
                      PartRow{"YearFiveIsNotPadded", u"MM/dd/yyyy", ofYear(5), "06/15/5"},
                      PartRow{"YearNought", u"MM/dd/yyyy", ofYear(0), "06/15/0"},
                      PartRow{"YearOfFiveDigits", u"yyyy/MM/dd", ofYear(12345), "12345/06/15"},
                      PartRow{"YearOfFiveDigitsInTwo", u"yy/MM/dd", ofYear(12345), "45/06/15"},
                      PartRow{"NegativeYear", u"yyyy/MM/dd", ofYear(-144), "-144/06/15"},
                      PartRow{"NegativeYearInTwoDigits", u"yy/MM/dd", ofYear(-144), "0-44/06/15"},
                      PartRow{"Midnight", u"HH:mm:ss", ofTime(0, 0, 0), "0:00:00"},
                      PartRow{"MinuteNine", u"HH:mm", ofTime(10, 9, 0), "10:09"},
                      PartRow{"MinuteTen", u"HH:mm", ofTime(10, 10, 0), "10:10"},
                      PartRow{"SecondJustBelowTen", u"HH:mm:ss", ofTime(1, 2, 9.999), "1:02:09"},
                      PartRow{"SecondTen", u"HH:mm:ss", ofTime(1, 2, 10.0), "1:02:10"},
                      PartRow{"SecondsAreCut", u"HH:mm:ss", ofTime(1, 2, 59.9999), "1:02:59"},
                      PartRow{"ThousandthsAreNought", u"HH:mm:ss.SSS", ofTime(1, 2, 3.999), "1:02:03:000"},
                      PartRow{"QuarterOfMonthBelowAll", u"Q yy", ofMonth(-1), "1 quarter 00"},
                      PartRow{"QuarterOfMonth0", u"Q yy", ofMonth(0), "1 quarter 00"},
                      PartRow{"QuarterOfMonth3", u"Q yy", ofMonth(3), "1 quarter 00"},
                      PartRow{"QuarterOfMonth4", u"Q yy", ofMonth(4), "2 quarter 00"},
                      PartRow{"QuarterOfMonth6", u"Q yy", ofMonth(6), "2 quarter 00"},
                      PartRow{"QuarterOfMonth7", u"Q yy", ofMonth(7), "3 quarter 00"},
                      PartRow{"QuarterOfMonth9", u"Q yy", ofMonth(9), "3 quarter 00"},
                      PartRow{"QuarterOfMonth10", u"Q yy", ofMonth(10), "4 quarter 00"},
                      PartRow{"QuarterOfMonth12", u"Q yyyy", ofMonth(12), "4 quarter 2000"},
                      PartRow{"QuarterOfMonthAboveAll", u"Q yy", ofMonth(13), "4 quarter 00"},
                      PartRow{"MonthNameOf0", u"MMM", ofMonth(0), "m12"},
                      PartRow{"MonthNameOf1", u"MMM", ofMonth(1), "m1"},
                      PartRow{"MonthNameOf12", u"MMM", ofMonth(12), "m12"},
                      PartRow{"MonthNameOf13", u"MMM", ofMonth(13), "m1"},
                      PartRow{"MonthNameOfANegativeMonth", u"MMM", ofMonth(-1), "m11"},
                      PartRow{"MonthNameOfTheLeastMonth", u"MMM", ofMonth(std::numeric_limits<long>::min()),
                              "m4"}),
    [](auto const& test) { return std::string(test.param.name); });

TEST_F(DateTexts, HaveSecondsOfNoughtWhereTheHostHasNoneThatCanBeCounted) {
  EXPECT_EQ(text(someDate, u"HH:mm:ss", ofTime(1, 2, notANumber)), "1:02:0");
  EXPECT_EQ(text(someDate, u"HH:mm:ss", ofTime(1, 2, infinity)), "1:02:0");
}

/// A value that may be the bare number of a month or of a day, and its text.
struct NumberRow {
  char const* name;
  double value;
  char const* text;
};

void PrintTo(NumberRow const& row, std::ostream* out) { *out << row.name; }

class MonthNumber : public DateTexts, public ::testing::WithParamInterface<NumberRow> {
 protected:
  /// As of a date in February.
  std::string ofFebruary(char16_t const* pattern) {
    return text(GetParam().value, pattern, {3, 2, 2005, 9, 5, 7});
  }
};

TEST_P(MonthNumber, StandsForTheMonthInEveryPatternWithAName) {
  std::string const month = GetParam().text;
  EXPECT_EQ(ofFebruary(u"MMM"), month);
  EXPECT_EQ(ofFebruary(u"MMMMM"), month);
  EXPECT_EQ(ofFebruary(u"MMM yyyy"), month + " 2005");
  EXPECT_EQ(ofFebruary(u"MMM yy"), month + " 05");
  EXPECT_EQ(ofFebruary(u"dd-MMM-yyyy"), "03-" + month + "-2005");
  EXPECT_EQ(ofFebruary(u"dd-MMM-yy"), "03-" + month + "-05");
  EXPECT_EQ(ofFebruary(u"dd-MMM-yyyy HH:mm"), "03-" + month + "-2005 9:05");
  EXPECT_EQ(ofFebruary(u"dd-MMM-yyyy HH:mm.ss"), "03-" + month + "-2005 9:05:07");
  EXPECT_EQ(ofFebruary(u"dd-MMM-yyyy HH:mm.ss.SSS"), "03-" + month + "-2005 9:05:07:000");
}

TEST_P(MonthNumber, ChangesNothingInDigits) {
  EXPECT_EQ(ofFebruary(u"MM/dd/yyyy"), "02/03/2005");
  EXPECT_EQ(ofFebruary(u"Q yyyy"), "1 quarter 2005");
}

INSTANTIATE_TEST_SUITE_P(
    Values, MonthNumber,
    ::testing::Values(NumberRow{"JustBelowOne", 0.999, "m2"}, NumberRow{"One", 1.0, "m1"},
                      NumberRow{"OneAndAHalf", 1.5, "m1"}, NumberRow{"Three", 3.0, "m3"},
                      NumberRow{"Four", 4.0, "m4"}, NumberRow{"Five", 5.0, "m5"}, NumberRow{"Six", 6.0, "m6"},
                      NumberRow{"Seven", 7.0, "m7"}, NumberRow{"Eight", 8.0, "m8"},
                      NumberRow{"Nine", 9.0, "m9"}, NumberRow{"Ten", 10.0, "m10"},
                      NumberRow{"Eleven", 11.0, "m11"}, NumberRow{"JustBelowTwelve", 11.999, "m11"},
                      NumberRow{"Twelve", 12.0, "m12"}, NumberRow{"JustAboveTwelve", 12.001, "m2"},
                      NumberRow{"Thirteen", 13.0, "m2"}, NumberRow{"Nought", 0.0, "m2"},
                      NumberRow{"MinusOne", -1.0, "m2"}, NumberRow{"NotANumber", notANumber, "m2"},
                      NumberRow{"Infinity", infinity, "m2"}, NumberRow{"MinusInfinity", -infinity, "m2"},
                      NumberRow{"SystemMissing", systemMissing, "m2"}),
    [](auto const& test) { return std::string(test.param.name); });

class DayNumber : public DateTexts, public ::testing::WithParamInterface<NumberRow> {};

TEST_P(DayNumber, StandsForTheDayInBothPatterns) {
  DateParts const date{3, 2, 2005, 9, 5, 7};
  EXPECT_EQ(text(GetParam().value, u"EEE", date), GetParam().text);
  EXPECT_EQ(text(GetParam().value, u"EE", date), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Values, DayNumber,
    ::testing::Values(
        NumberRow{"Nought", 0.0, "02/03/2005"}, NumberRow{"MinusNought", -0.0, "02/03/2005"},
        NumberRow{"TheLeastAboveNought", std::numeric_limits<double>::denorm_min(), "d7"},
        NumberRow{"JustBelowOne", 0.999, "d7"}, NumberRow{"One", 1.0, "d1"}, NumberRow{"Two", 2.0, "d2"},
        NumberRow{"Three", 3.0, "d3"}, NumberRow{"Four", 4.0, "d4"}, NumberRow{"Five", 5.0, "d5"},
        NumberRow{"Six", 6.0, "d6"}, NumberRow{"JustBelowSeven", 6.999, "d6"}, NumberRow{"Seven", 7.0, "d7"},
        NumberRow{"JustBelowEight", 7.999, "d7"}, NumberRow{"Eight", 8.0, "02/03/2005"},
        NumberRow{"MinusOne", -1.0, "02/03/2005"}, NumberRow{"NotANumber", notANumber, "02/03/2005"},
        NumberRow{"Infinity", infinity, "02/03/2005"}, NumberRow{"MinusInfinity", -infinity, "02/03/2005"}),
    [](auto const& test) { return std::string(test.param.name); });

/// A value in the host's own calendar, under patterns that show all its parts.
struct ValueRow {
  char const* name;
  double value;
  char const* moment;
  char const* quarter;
};

void PrintTo(ValueRow const& row, std::ostream* out) { *out << row.name; }

class DateValue : public DateTexts, public ::testing::WithParamInterface<ValueRow> {};

TEST_P(DateValue, IsBrokenUpByTheHost) {
  EXPECT_EQ(text(GetParam().value, u"dd-MMM-yyyy HH:mm.ss.SSS"), GetParam().moment);
  EXPECT_EQ(text(GetParam().value, u"Q yyyy"), GetParam().quarter);
}

INSTANTIATE_TEST_SUITE_P(
    Values, DateValue,
    ::testing::Values(ValueRow{"TheEpoch", 0, "01-m1-1970 0:00:00:000", "1 quarter 1970"},
                      ValueRow{"AFraction", 951782399.75, "28-m2-2000 23:59:59:000", "1 quarter 2000"},
                      ValueRow{"ALeapDay", 951825845.5, "29-m2-2000 12:04:05:000", "1 quarter 2000"},
                      ValueRow{"AprilOf2020", 1585785600, "02-m4-2020 0:00:00:000", "2 quarter 2020"},
                      ValueRow{"BeforeTheEpoch", -0.5, "31-m12-1969 23:59:59:000", "4 quarter 1969"},
                      ValueRow{"BeforeOurEra", -63549446400, "14-m3--44 0:00:00:000", "1 quarter -44"},
                      ValueRow{"BeyondThirtyTwoBits", 4102444800, "01-m1-2100 0:00:00:000", "1 quarter 2100"},
                      ValueRow{"NotANumber", notANumber, "00-m12-0 0:00:00:000", "1 quarter 0"},
                      ValueRow{"Infinity", infinity, "00-m12-0 0:00:00:000", "1 quarter 0"},
                      ValueRow{"MinusInfinity", -infinity, "00-m12-0 0:00:00:000", "1 quarter 0"},
                      ValueRow{"TheGreatest", std::numeric_limits<double>::max(), "00-m12-0 0:00:00:000",
                               "1 quarter 0"},
                      ValueRow{"SystemMissing", systemMissing, "00-m12-0 0:00:00:000", "1 quarter 0"}),
    [](auto const& test) { return std::string(test.param.name); });

TEST_F(DateTexts, AskTheHostOnceForEachValueWhateverThePattern) {
  DateNames const all = names();
  recorder.clear();
  for (char16_t const* pattern : {u"MMM", u"EEE", u"unknown"}) dateText(5.0, pattern, all);
  EXPECT_EQ(recorder.lines(), (std::vector<std::string>(3, "iVexa2DMY(value=5)")));
}

TEST_F(DateTexts, KeepTheEnglishKeysWhereTheTableKnowsNone) {
  recorder.services().texts->texts.clear();
  EXPECT_EQ(text(12.0, u"MMM"), "December");
  EXPECT_EQ(text(7.0, u"EEE"), "Saturday");
  EXPECT_EQ(text(1585785600, u"Q yyyy"), "2 Q 2020");
}

TEST_F(DateTexts, TakeTranslationsThatAreEmptyAsTheyAre) {
  recorder.services().texts->texts["December"] = "";
  EXPECT_EQ(text(12.0, u"MMM"), "");
  EXPECT_EQ(text(12.0, u"dd-MMM-yyyy", {3, 2, 2005, 0, 0, 0}), "03--2005");
}

TEST_F(DateTexts, LookEveryNameUpOnceByItsEnglishWord) {
  names();
  std::vector<std::string> keys;
  for (auto const& entry : recorder.entries(Operation::LookUp)) keys.push_back(entry.text("key"));
  std::vector<std::string> expected;
  for (auto const& [key, name] : shortNames()) expected.push_back(key);
  EXPECT_THAT(keys, UnorderedElementsAreArray(expected));
}

TEST_F(DateTexts, LookNamesUpInTheTableOfCharts) {
  names();
  EXPECT_EQ(recorder.entries(Operation::OpenDictionary).at(0).text("path"),
            recorder.services().paths->dictionary);
  EXPECT_EQ(recorder.entries(Operation::DictionaryPath).at(0).number("kind"), 3);
  EXPECT_EQ(recorder.entries(Operation::SetProcedure).at(0).text("procedure"), "GRAPH");
}

/// Notes the position that each text is asked for with.
class NotedPositions : public host::Texts {
 public:
  class Table : public host::TextTable {
   public:
    explicit Table(std::vector<unsigned long>& positions) : mPositions(positions) {}
    void setProcedure(std::string const&) override {}
    bool find(std::string const&, std::string&, unsigned long& index) override {
      mPositions.push_back(index);
      index = 7;
      return true;
    }

   private:
    std::vector<unsigned long>& mPositions;
  };

  std::unique_ptr<host::TextTable> open(std::string const&) override {
    return std::make_unique<Table>(positions);
  }

  std::vector<unsigned long> positions;
};

TEST_F(DateTexts, LookEachNameUpFromTheStartOfTheTable) {
  auto const texts = std::make_shared<NotedPositions>();
  host::Host host = recorder.host();
  host.texts = texts;
  host::ScopedHost const scope(host);
  names();
  EXPECT_EQ(texts->positions, std::vector<unsigned long>(20, 0));
}

TEST_F(DateTexts, ReadNamesInTheLocalCodePageWhateverTheLanguage) {
  recorder.services().texts->texts["March"] = "März";
  for (char const* language : {"en", "de", "ru", "ja", "zh-tw"}) {
    recorder.services().locale->language = language;
    EXPECT_EQ(text(3.0, u"MMM"), "März") << language;
  }
}

struct LanguageRow {
  char const* folder;
  char const* january;
  char const* december;
  char const* sunday;
  char const* saturday;
};

void PrintTo(LanguageRow const& row, std::ostream* out) { *out << row.folder; }

class ShippedNames : public DateTexts, public ::testing::WithParamInterface<LanguageRow> {
 protected:
  ShippedNames() {
    recorder.services().paths->dictionary = folder();
    host::Host host = recorder.host();
    host.texts = std::make_shared<host::FolderTexts>();
    mShipped = std::make_unique<host::ScopedHost>(host);
  }

  static std::string folder() { return std::string(KESTREL_SHARE_DIR "/") + GetParam().folder + "/"; }

  /// The table by its lines, read here.
  static std::map<std::string, std::string> table() {
    std::map<std::string, std::string> texts;
    std::ifstream file(folder() + "GRAPH.txt");
    for (std::string line; std::getline(file, line);) {
      std::size_t const tab = line.find('\t');
      if (line.rfind('#', 0) != 0 && tab != std::string::npos)
        texts[line.substr(0, tab)] = line.substr(tab + 1);
    }
    return texts;
  }

 private:
  std::unique_ptr<host::ScopedHost> mShipped;
};

TEST_P(ShippedNames, AreTheWordsOfTheLanguage) {
  EXPECT_EQ(text(1.0, u"MMM"), GetParam().january);
  EXPECT_EQ(text(12.0, u"MMM"), GetParam().december);
  EXPECT_EQ(text(1.0, u"EEE"), GetParam().sunday);
  EXPECT_EQ(text(7.0, u"EEE"), GetParam().saturday);
}

TEST_P(ShippedNames, AreAllThoseOfTheTable) {
  auto texts = table();
  char const* const months[] = {"January", "February", "March",     "April",   "May",      "June",
                                "July",    "August",   "September", "October", "November", "December"};
  char const* const days[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
  for (int month = 1; month <= 12; ++month) EXPECT_EQ(text(month, u"MMM"), texts.at(months[month - 1]));
  for (int day = 1; day <= 7; ++day) EXPECT_EQ(text(day, u"EEE"), texts.at(days[day - 1]));
  EXPECT_EQ(text(1585785600, u"Q yyyy"), "2 " + texts.at("Q") + " 2020");
}

TEST_P(ShippedNames, StandInEveryPatternThatHasNames) {
  constexpr double moment = 1585818305;  // 2020-04-02, 9:05:05
  std::string const month = table().at("April");
  std::string const quarter = table().at("Q");
  EXPECT_EQ(text(moment, u"dd-MMM-yyyy"), "02-" + month + "-2020");
  EXPECT_EQ(text(moment, u"dd-MMM-yy"), "02-" + month + "-20");
  EXPECT_EQ(text(moment, u"dd-MMM-yyyy HH:mm.ss.SSS"), "02-" + month + "-2020 9:05:05:000");
  EXPECT_EQ(text(moment, u"dd-MMM-yyyy HH:mm.ss"), "02-" + month + "-2020 9:05:05");
  EXPECT_EQ(text(moment, u"dd-MMM-yyyy HH:mm"), "02-" + month + "-2020 9:05");
  EXPECT_EQ(text(moment, u"MMMMM"), month);
  EXPECT_EQ(text(moment, u"MMM"), month);
  EXPECT_EQ(text(moment, u"MMM yyyy"), month + " 2020");
  EXPECT_EQ(text(moment, u"MMM yy"), month + " 20");
  EXPECT_EQ(text(moment, u"Q yyyy"), "2 " + quarter + " 2020");
  EXPECT_EQ(text(moment, u"Q yy"), "2 " + quarter + " 20");
  EXPECT_EQ(text(3, u"EE"), table().at("Tuesday"));
}

TEST_P(ShippedNames, AreNotEmpty) {
  for (auto const& [key, name] : shortNames()) EXPECT_NE(table()[key], "") << key;
}

constexpr LanguageRow languages[] = {{"de", "Januar", "Dezember", "Sonntag", "Samstag"},
                                     {"en", "January", "December", "Sunday", "Saturday"},
                                     {"fr", "janvier", "décembre", "dimanche", "samedi"},
                                     {"ja", "1月", "12月", "日曜日", "土曜日"},
                                     {"ko", "1월", "12월", "일요일", "토요일"},
                                     {"pl", "styczeń", "grudzień", "niedziela", "sobota"},
                                     {"ru", "январь", "декабрь", "воскресенье", "суббота"},
                                     {"zh-cn", "一月", "十二月", "星期日", "星期六"},
                                     {"zh_tw", "1月", "12月", "星期日", "星期六"}};

INSTANTIATE_TEST_SUITE_P(Languages, ShippedNames, ::testing::ValuesIn(languages));

TEST(ShippedLanguages, AreAllTested) {
  std::vector<std::string> shipped;
  for (auto const& entry : std::filesystem::directory_iterator(KESTREL_SHARE_DIR)) {
    if (std::filesystem::exists(entry.path() / "GRAPH.txt")) shipped.push_back(entry.path().filename());
  }
  std::vector<std::string> tested;
  for (LanguageRow const& row : languages) tested.emplace_back(row.folder);
  EXPECT_THAT(shipped, UnorderedElementsAreArray(tested));
}

}  // namespace
}  // namespace kestrel::test
