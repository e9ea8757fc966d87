#include "host/locale.h"
#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

using namespace kestrel::host;

namespace {

struct Broken {
  int result;
  long day, month, year, hours, minutes;
  double seconds;

  bool operator==(Broken const&) const = default;
};

std::ostream& operator<<(std::ostream& out, Broken const& date) {
  return out << date.result << ": " << date.year << "-" << date.month << "-" << date.day << " " << date.hours
             << ":" << date.minutes << ":" << date.seconds;
}

Broken broken(double value) {
  Broken date{-1, -1, -1, -1, -1, -1, -1};
  date.result =
      iVexa2DMY(value, &date.day, &date.month, &date.year, &date.hours, &date.minutes, &date.seconds);
  return date;
}

Broken const none{0, 0, 0, 0, 0, 0, 0};

TEST(DateTest, CountsFrom1970) {
  EXPECT_EQ(broken(0), (Broken{1, 1, 1, 1970, 0, 0, 0}));
  EXPECT_EQ(broken(86400), (Broken{1, 2, 1, 1970, 0, 0, 0}));
}

TEST(DateTest, BreaksTheTimeUp) {
  EXPECT_EQ(broken(1592222400 + 9 * 3600 + 5 * 60 + 7.25), (Broken{1, 15, 6, 2020, 21, 5, 7.25}));
}

TEST(DateTest, KnowsLeapYears) {
  EXPECT_EQ(broken(951782400), (Broken{1, 29, 2, 2000, 0, 0, 0}));
  EXPECT_EQ(broken(951868800), (Broken{1, 1, 3, 2000, 0, 0, 0}));
  EXPECT_EQ(broken(4107456000), (Broken{1, 28, 2, 2100, 0, 0, 0}));
  EXPECT_EQ(broken(4107542400), (Broken{1, 1, 3, 2100, 0, 0, 0}));
}

TEST(DateTest, GoesBackBefore1970) {
  EXPECT_EQ(broken(-1), (Broken{1, 31, 12, 1969, 23, 59, 59}));
  EXPECT_EQ(broken(-86400), (Broken{1, 31, 12, 1969, 0, 0, 0}));
  EXPECT_EQ(broken(-0.5), (Broken{1, 31, 12, 1969, 23, 59, 59.5}));
  EXPECT_EQ(broken(-11644473600), (Broken{1, 1, 1, 1601, 0, 0, 0}));
  EXPECT_EQ(broken(-62167219200), (Broken{1, 1, 1, 0, 0, 0, 0}));
  EXPECT_EQ(broken(-62167305600), (Broken{1, 31, 12, -1, 0, 0, 0}));
}

TEST(DateTest, NeverTellsASixtiethSecond) {
  Broken const date = broken(-1e-20);
  EXPECT_EQ(date.minutes, 59);
  EXPECT_LT(date.seconds, 60.0);
  EXPECT_GT(date.seconds, 59.9);
}

TEST(DateTest, GoesAsFarAsSecondsAreTold) {
  double const furthest = 9007199254740992.0;
  EXPECT_EQ(broken(furthest), (Broken{1, 12, 11, 285428751, 7, 36, 32}));
  EXPECT_EQ(broken(-furthest).result, 1);
  EXPECT_EQ(broken(std::nextafter(furthest, 1e300)), none);
}

TEST(DateTest, GivesZerosForWhatIsNoDate) {
  EXPECT_EQ(broken(std::numeric_limits<double>::lowest()), none);
  EXPECT_EQ(broken(std::numeric_limits<double>::max()), none);
  EXPECT_EQ(broken(std::numeric_limits<double>::infinity()), none);
  EXPECT_EQ(broken(-std::numeric_limits<double>::infinity()), none);
  EXPECT_EQ(broken(std::numeric_limits<double>::quiet_NaN()), none);
}

TEST(DateTest, EveryDayOfFourCenturiesFollowsTheOneBefore) {
  constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  long day = 1, month = 1, year = 1800;
  for (std::int64_t value = -5364662400; value < 7258118400; value += 86400) {
    ASSERT_EQ(broken(static_cast<double>(value)), (Broken{1, day, month, year, 0, 0, 0})) << value;
    bool const leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    int const length = month == 2 && leap ? 29 : lengths[month - 1];
    if (++day > length) day = 1, ++month;
    if (month > 12) month = 1, ++year;
  }
  EXPECT_EQ(year, 2200);
}

TEST(DateTest, IsAServiceOfTheHost) {
  Recorder recorder;
  recorder.failAt(Operation::BreakUpDate, 1);
  ScopedHost const scope(recorder.host());
  EXPECT_EQ(broken(86400), none);
  EXPECT_EQ(broken(86400).day, 2);
  EXPECT_EQ(recorder.lines().at(0), "iVexa2DMY(value=86400)");
}

}  // namespace
