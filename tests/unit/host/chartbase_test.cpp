#include "host/chartbase.h"

#include "host/data_types.h"
#include "host/text.h"
#include "kestrelhost/recorder.h"
#include "model/document.h"
#include "model/variables.h"

#include <gtest/gtest.h>

using namespace kestrel::host;

namespace {

class FormatElementTest : public testing::Test {
 protected:
  FormatElementTest()
      : element(*document.getVisualization()->addSourceVariable(u"sourceVariable0")->addFormat()) {}

  static Vexa_Format format(int type, int decimals = 0) {
    return {static_cast<Vexa_Format::FormatType>(type), 8, decimals};
  }

  std::string attribute(char16_t const* name) { return ChartString(element.getAttribute(name)).toUTF8(); }
  std::string pattern() { return ChartString(element.getPattern()).toUTF8(); }

  LumoDocument document;
  LumoFormat& element;
};

TEST_F(FormatElementTest, OfANumberFixesItsDecimals) {
  Vexa_Format number = format(5, 2);
  EXPECT_TRUE(ChartBase::FormatNumber(element, number));
  EXPECT_EQ(attribute(u"minimumFractionDigits"), "2");
  EXPECT_EQ(attribute(u"maximumFractionDigits"), "2");
  EXPECT_EQ(attribute(u"useGrouping"), "false");
}

TEST_F(FormatElementTest, OfACurrencyGroupsItsDigits) {
  Vexa_Format currency = format(33, 2);
  EXPECT_TRUE(ChartBase::FormatCustomCurrency(element, currency));
  EXPECT_EQ(attribute(u"maximumFractionDigits"), "2");
  EXPECT_EQ(attribute(u"useGrouping"), "true");
}

TEST_F(FormatElementTest, OfADateHasAPattern) {
  for (int type : {20, 23, 24, 28, 29, 30, 38, 39}) {
    Vexa_Format date = format(type);
    EXPECT_TRUE(ChartBase::FormatDate(element, date));
    EXPECT_EQ(pattern(), "yyyy-MM-dd") << type;
  }
}

TEST_F(FormatElementTest, OfATimeShowsPartsOfSecondsWithDecimals) {
  Vexa_Format time = format(21);
  EXPECT_TRUE(ChartBase::FormatDate(element, time));
  EXPECT_EQ(pattern(), "HH:mm:ss");
  time.Decimals(2);
  EXPECT_TRUE(ChartBase::FormatDate(element, time));
  EXPECT_EQ(pattern(), "HH:mm:ss.SSS");
  Vexa_Format moment = format(22);
  EXPECT_TRUE(ChartBase::FormatDate(element, moment));
  EXPECT_EQ(pattern(), "yyyy-MM-dd HH:mm:ss");
}

TEST_F(FormatElementTest, OfADayOrAMonthShowsItsName) {
  Vexa_Format day = format(26);
  EXPECT_TRUE(ChartBase::FormatDate(element, day));
  EXPECT_EQ(pattern(), "EEEE");
  Vexa_Format month = format(27);
  EXPECT_TRUE(ChartBase::FormatDate(element, month));
  EXPECT_EQ(pattern(), "MMMM");
}

TEST_F(FormatElementTest, OfAnElapsedTimeHasAPattern) {
  Vexa_Format elapsed = format(25);
  EXPECT_TRUE(ChartBase::FormatElapsedTime(element, elapsed));
  EXPECT_EQ(pattern(), "HH:mm:ss");
}

TEST_F(FormatElementTest, OfATypeWithoutADisplayStaysAsItWas) {
  std::string const before = element.AsUTF8();
  Vexa_Format none = format(77);
  Vexa_Format text = format(1);
  EXPECT_FALSE(ChartBase::FormatDate(element, none));
  EXPECT_FALSE(ChartBase::FormatDate(element, text));
  EXPECT_FALSE(ChartBase::FormatNumber(element, text));
  EXPECT_FALSE(ChartBase::FormatCustomCurrency(element, text));
  EXPECT_FALSE(ChartBase::FormatElapsedTime(element, text));
  EXPECT_EQ(element.AsUTF8(), before);
}

TEST_F(FormatElementTest, GoesThroughTheHost) {
  Recorder recorder;
  recorder.failAt(Operation::FormatNumber, 1);
  ScopedHost const scope(recorder.host());
  Vexa_Format number = format(5, 2);
  EXPECT_FALSE(ChartBase::FormatNumber(element, number));
  EXPECT_EQ(recorder.lines(),
            std::vector<std::string>{"ChartBase::FormatNumber(type=5, width=8, decimals=2)"});
}

class UpdateTextTest : public testing::Test {
 protected:
  UpdateTextTest() : scope(services.host()), dictionary("/base/de/") {}

  std::string updated(char16_t const* before) {
    services.texts->texts["Monday"] = "Montag";
    services.texts->texts["March"] = "M\xC3\xA4rz";
    FacSTDictionary opened("/base/de/");
    ChartString text(before);
    ChartBase::updateText(text, &opened, "CP1252");
    return text.toUTF8();
  }

  MemoryServices services;
  ScopedHost scope;
  FacSTDictionary dictionary;
};

TEST_F(UpdateTextTest, TranslatesATextThatIsAKey) {
  EXPECT_EQ(updated(u"Monday"), "Montag");
  EXPECT_EQ(updated(u"March"), "M\xC3\xA4rz");
}

TEST_F(UpdateTextTest, LeavesAnyOtherTextAlone) {
  EXPECT_EQ(updated(u"Body mass by species"), "Body mass by species");
  EXPECT_EQ(updated(u"Monday and Tuesday"), "Monday and Tuesday");
  EXPECT_EQ(updated(u"\u4E00"), "\xE4\xB8\x80");
  EXPECT_EQ(updated(u""), "");
}

TEST_F(UpdateTextTest, WithoutADictionaryLeavesTheTextAlone) {
  ChartString text(u"Monday");
  ChartBase::updateText(text, nullptr, "CP1252");
  EXPECT_EQ(text.toUTF8(), "Monday");
}

}  // namespace
