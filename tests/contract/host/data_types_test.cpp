#include "host/data_types.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>
#include <vector>

namespace {

static_assert(sizeof(OBS) == 8 && std::is_trivially_copyable_v<OBS>);
static_assert(sizeof(Vexa_Format) == 4 && std::is_trivially_copyable_v<Vexa_Format>);

constexpr auto number = Vexa_Format::FormatNumber;
constexpr auto text = Vexa_Format::FormatString;

TEST(ObsTest, HoldsANumber) {
  OBS const cell(2.5);
  EXPECT_EQ(cell.number(), 2.5);
  EXPECT_EQ(*reinterpret_cast<double const*>(&cell), 2.5);
}

TEST(ObsTest, HoldsTheSystemMissingValueExactly) {
  constexpr double missing = std::numeric_limits<double>::lowest();
  EXPECT_EQ(OBS(missing).number(), missing);
}

TEST(FormatTest, IsZeroByDefault) {
  Vexa_Format const format;
  EXPECT_EQ(format.TypeEx(), 0u);
  EXPECT_EQ(format.Width(), 0);
  EXPECT_EQ(format.Decimals(), 0);
}

TEST(FormatTest, KeepsWidthTypeAndDecimalsInThisOrder) {
  Vexa_Format const format(number, 0x0021, 3);
  unsigned char bytes[4];
  std::memcpy(bytes, &format, sizeof bytes);
  EXPECT_EQ(bytes[0], 0x21);
  EXPECT_EQ(bytes[1], 0);
  EXPECT_EQ(bytes[2], 5);
  EXPECT_EQ(bytes[3], 3);
}

TEST(FormatTest, LimitsTheWidthOfEverythingButText) {
  EXPECT_EQ(Vexa_Format(number, 100, 2).Width(), 40);
  EXPECT_EQ(Vexa_Format(number, 40, 2).Width(), 40);
  EXPECT_EQ(Vexa_Format(number, 41, 2).Width(), 40);
  EXPECT_EQ(Vexa_Format(text, 100, 0).Width(), 100);
  EXPECT_EQ(Vexa_Format(Vexa_Format::FormatTextString, 32767, 0).Width(), 32767);
}

TEST(FormatTest, CutsWhatDoesNotFit) {
  EXPECT_EQ(Vexa_Format(text, 65536 + 7, 0).Width(), 7);
  EXPECT_EQ(Vexa_Format(number, 8, 256 + 2).Decimals(), 2);
  EXPECT_EQ(Vexa_Format(static_cast<Vexa_Format::FormatType>(256 + 5), 8, 0).TypeEx(), 5u);
}

TEST(FormatTest, LimitsAWidthByTheTypeOfThatMoment) {
  Vexa_Format format(text, 100, 0);
  format.Type(number);
  EXPECT_EQ(format.Width(), 100);
  format.Width(100);
  EXPECT_EQ(format.Width(), 40);
}

TEST(FormatTest, OnlyTypesOneAndTwoAreText) {
  for (int type = 0; type < 256; ++type) {
    Vexa_Format const format(static_cast<Vexa_Format::FormatType>(type), 8, 0);
    EXPECT_EQ(format.IsString(), type == 1 || type == 2) << type;
  }
}

class Labels : public Vexa_ValueLabels {
 public:
  unsigned int GetCount() const override { return 3; }
  OBS const* GetValue(unsigned int index) const override { return &mValues[index]; }
  char const* GetLabel(unsigned int index) const override { return mLabels[index]; }

 private:
  OBS mValues[3] = {OBS(1.0), OBS(2.0), OBS(3.0)};
  char const* mLabels[3] = {"one", nullptr, "three"};
};

TEST(ValueLabelMapTest, GivesThePairsInTheirOrder) {
  Vexa_ValueLabelMap map(Vexa_VLImplPointer(std::make_shared<Labels>()));
  map.Reset();
  OBS const* value = nullptr;
  char const* label = nullptr;
  ASSERT_EQ(map.GetNextPair(value, label), 1);
  EXPECT_EQ(value->number(), 1.0);
  EXPECT_STREQ(label, "one");
  ASSERT_EQ(map.GetNextPair(value, label), 1);
  EXPECT_EQ(value->number(), 2.0);
  EXPECT_EQ(label, nullptr);
  ASSERT_EQ(map.GetNextPair(value, label), 1);
  EXPECT_STREQ(label, "three");
}

TEST(ValueLabelMapTest, EndsWithZeroAndLeavesThePairAlone) {
  Vexa_ValueLabelMap map(Vexa_VLImplPointer(std::make_shared<Labels>()));
  OBS const* value = nullptr;
  char const* label = nullptr;
  for (int pair = 0; pair < 3; ++pair) map.GetNextPair(value, label);
  EXPECT_EQ(map.GetNextPair(value, label), 0);
  EXPECT_EQ(map.GetNextPair(value, label), 0);
  EXPECT_STREQ(label, "three");
}

TEST(ValueLabelMapTest, StartsAgainAfterAReset) {
  Vexa_ValueLabelMap map(Vexa_VLImplPointer(std::make_shared<Labels>()));
  OBS const* value = nullptr;
  char const* label = nullptr;
  map.GetNextPair(value, label);
  map.GetNextPair(value, label);
  map.Reset();
  map.GetNextPair(value, label);
  EXPECT_STREQ(label, "one");
}

TEST(ValueLabelMapTest, WithoutLabelsIsEmpty) {
  Vexa_ValueLabelMap map{Vexa_VLImplPointer()};
  map.Reset();
  OBS const* value = nullptr;
  char const* label = nullptr;
  EXPECT_EQ(map.GetNextPair(value, label), 0);
  EXPECT_EQ(value, nullptr);
}

TEST(CaseIteratorTest, OfAProcedureIsAnInputIterator) {
  EXPECT_TRUE((std::is_base_of_v<Vexa_InputCaseIterator, ProcDSIterator>));
  EXPECT_TRUE((std::is_base_of_v<Vexa_DataSource, ProcedureDataSource>));
}

}  // namespace
