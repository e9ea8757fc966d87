// The record of the client's maps, byte by byte.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <cstring>
#include <ostream>
#include <string>

namespace kestrel::test {
namespace {

template <typename Integer>
std::string raw(Integer value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

std::string word(std::uint16_t value) { return raw(value); }
std::string longWord(std::uint32_t value) { return raw(value); }

class MapInfo : public ChartTest {
 protected:
  std::string record() { return recordOf(document).getMapInfo(); }

  XDocument document;
};

struct MapRow {
  char const* name;
  std::string dataMapName;
  std::string dataMap;
  std::string refMapName;
  std::string refMap;
  std::string record;
};

void PrintTo(MapRow const& row, std::ostream* out) { *out << row.name; }

class MapRecord : public MapInfo, public ::testing::WithParamInterface<MapRow> {};

TEST_P(MapRecord, HoldsTheFourTextsBehindTheirLengths) {
  document.setLUMOMap(GetParam().dataMapName, GetParam().dataMap);
  document.setLUMORefMap(GetParam().refMapName, GetParam().refMap);
  EXPECT_EQ(record(), GetParam().record);
}

std::string const nulls("a\0b", 3);

INSTANTIATE_TEST_SUITE_P(
    Texts, MapRecord,
    ::testing::Values(
        MapRow{"None", "", "", "", "", ""},
        MapRow{"All", "regions", "{map}", "reference", "{ref}!",
               word(1) + longWord(5) + "{map}" + word(7) + "regions" + longWord(6) + "{ref}!" + word(9) +
                   "reference"},
        MapRow{"DataMapAlone", "", "{map}", "", "",
               word(1) + longWord(5) + "{map}" + word(0) + longWord(0) + word(0)},
        MapRow{"DataMapNameAlone", "regions", "", "", "",
               word(1) + longWord(0) + word(7) + "regions" + longWord(0) + word(0)},
        MapRow{"RefMapAlone", "", "", "", "{ref}",
               word(1) + longWord(0) + word(0) + longWord(5) + "{ref}" + word(0)},
        MapRow{"RefMapNameAlone", "", "", "reference", "",
               word(1) + longWord(0) + word(0) + longWord(0) + word(9) + "reference"},
        MapRow{"TextsWithNoughts", nulls, nulls, nulls, nulls,
               word(1) + longWord(3) + nulls + word(3) + nulls + longWord(3) + nulls + word(3) + nulls},
        MapRow{"TextsInBytes", "Länder", "ü", "", "",
               word(1) + longWord(2) + "ü" + word(7) + "Länder" + longWord(0) + word(0)},
        MapRow{"LongMaps", "", std::string(70000, 'd'), "", std::string(70001, 'r'),
               word(1) + longWord(70000) + std::string(70000, 'd') + word(0) + longWord(70001) +
                   std::string(70001, 'r') + word(0)},
        MapRow{"LongestName", std::string(65535, 'n'), "", "", "",
               word(1) + longWord(0) + word(65535) + std::string(65535, 'n') + longWord(0) + word(0)},
        // The length is cut, the name is not.
        MapRow{"NameBeyondItsLength", std::string(65541, 'n'), "", std::string(65536, 'r'), "",
               word(1) + longWord(0) + word(5) + std::string(65541, 'n') + longWord(0) + word(0) +
                   std::string(65536, 'r')}),
    [](auto const& test) { return std::string(test.param.name); });

TEST_F(MapInfo, OfANameAloneIsFourteenBytesLongerThanTheName) {
  document.setLUMOMap("regions", "");
  EXPECT_EQ(record().size(), 14u + 7u);
}

TEST_F(MapInfo, IsMadeOfTheTextsThatWereSetLast) {
  document.setLUMOMap("old", "old map");
  document.setLUMOMap("new", "m");
  EXPECT_EQ(record(), word(1) + longWord(1) + "m" + word(3) + "new" + longWord(0) + word(0));
  document.setLUMOMap("", "");
  EXPECT_EQ(record(), "");
}

TEST_F(MapInfo, HasRoomForTheFourTextsAndAHundredBytesMore) {
  // Long enough that a text which only grows would have no hundred bytes to spare.
  document.setLUMORefMap(std::string(60000, 'n'), "");
  EXPECT_GE(record().capacity(), 60000u + 100u);
}

TEST_F(MapInfo, AsksTheHostForNothing) {
  document.setLUMOMap("regions", "{map}");
  recorder.clear();
  record();
  EXPECT_TRUE(recorder.entries().empty());
}

}  // namespace
}  // namespace kestrel::test
