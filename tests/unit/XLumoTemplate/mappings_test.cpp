// What fills the template's slots, and the maps.

#include "template_fixture.h"

#include "kestrelhost/text.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Mapping : public LumoTemplateTest {
 protected:
  Mapping() { chooseTemplate("pie"); }
};

TEST_F(Mapping, OfAVariableWithNothingOptionalHasThreeAttributes) {
  add({});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\"/>"}));
}

TEST_F(Mapping, OfAScaleVariableSaysSo) {
  add({.categorical = false});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"false\" slotName=\"x\" slotValue=\"age\"/>"}));
}

TEST_F(Mapping, OfAVariableHasWhatIsGiven) {
  add({.labelingVariableName = "name", .dataSetName = "people", .slotLabel = "Age", .weight = true});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" dataSetName=\"people\" "
                                     "labelingVariableName=\"name\" slotLabel=\"Age\" slotName=\"x\" "
                                     "slotValue=\"age\" weight=\"true\"/>"}));
}

TEST_F(Mapping, OfAVariableHasNoEmptyLabel) {
  add({.slotLabel = ""});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\"/>"}));
}

TEST_F(Mapping, OfAVariableHasEvenEmptySlots) {
  add({.slotName = "", .slotValue = ""});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"\" slotValue=\"\"/>"}));
}

TEST_F(Mapping, OfASingleVariableHasNothingOfASet) {
  std::string const counted = "1";
  std::vector<std::string> const names{"a"};
  add({.mrSetName = "set", .countedValue = &counted, .enhancedDichotomy = true, .varNames = &names});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\"/>"}));
}

TEST_F(Mapping, OfADichotomySetHasItsMembersAndWhatIsCounted) {
  std::string const counted = "1";
  std::vector<std::string> const names{"a", "b"};
  std::vector<std::string> const labels{"A", "B"};
  std::vector<std::string> const labeling{"la", "lb"};
  add({.variableType = XLumoTemplate::VARIABLE_MULTIPLE_DICHOTOMY,
       .mrSetName = "$set",
       .countedValue = &counted,
       .enhancedDichotomy = true,
       .varNames = &names,
       .varLabels = &labels,
       .labelingVarNames = &labeling});
  EXPECT_EQ(request(),
            pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\" "
                          "variableType=\"MultipleDichotomy\">",
                          "  <multipleResponseInfo MRSetName=\"$set\" countedValue=\"1\" "
                          "enhancedDichotomy=\"true\">",
                          "    <variable labelingVariableName=\"la\" varLabel=\"A\" varName=\"a\"/>",
                          "    <variable labelingVariableName=\"lb\" varLabel=\"B\" varName=\"b\"/>",
                          "  </multipleResponseInfo>", "</mapping>"}));
}

TEST_F(Mapping, OfADichotomySetWithNothingGivenHasEmptyTexts) {
  add({.variableType = XLumoTemplate::VARIABLE_MULTIPLE_DICHOTOMY});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\" "
                                     "variableType=\"MultipleDichotomy\">",
                                     "  <multipleResponseInfo MRSetName=\"\" countedValue=\"\" "
                                     "enhancedDichotomy=\"false\"/>",
                                     "</mapping>"}));
}

TEST_F(Mapping, OfACategorySetCountsNoValue) {
  std::string const counted = "1";
  add({.variableType = XLumoTemplate::VARIABLE_MULTIPLE_CATEGORY,
       .mrSetName = "$set",
       .countedValue = &counted});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\" "
                                     "variableType=\"MultipleCategory\">",
                                     "  <multipleResponseInfo MRSetName=\"$set\" "
                                     "enhancedDichotomy=\"false\"/>",
                                     "</mapping>"}));
}

TEST_F(Mapping, OfASetHasEmptyTextsWhereTheParallelListsAreShorter) {
  std::vector<std::string> const names{"a", "b"};
  std::vector<std::string> const labels{"A"};
  add({.variableType = XLumoTemplate::VARIABLE_MULTIPLE_CATEGORY, .varNames = &names, .varLabels = &labels});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\" "
                                     "variableType=\"MultipleCategory\">",
                                     "  <multipleResponseInfo MRSetName=\"\" enhancedDichotomy=\"false\">",
                                     "    <variable labelingVariableName=\"\" varLabel=\"A\" varName=\"a\"/>",
                                     "    <variable labelingVariableName=\"\" varLabel=\"\" varName=\"b\"/>",
                                     "  </multipleResponseInfo>", "</mapping>"}));
}

TEST_F(Mapping, OfASetHasOnlyTheMembersOfTheFirstList) {
  std::vector<std::string> const names{"a"};
  std::vector<std::string> const labels{"A", "B"};
  add({.variableType = XLumoTemplate::VARIABLE_MULTIPLE_CATEGORY, .varNames = &names, .varLabels = &labels});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\" "
                                     "variableType=\"MultipleCategory\">",
                                     "  <multipleResponseInfo MRSetName=\"\" enhancedDichotomy=\"false\">",
                                     "    <variable labelingVariableName=\"\" varLabel=\"A\" varName=\"a\"/>",
                                     "  </multipleResponseInfo>", "</mapping>"}));
}

TEST_F(Mapping, HasTheFormatBehindTheSet) {
  Vexa_Format format(Vexa_Format::FormatNumber, 8, 2);
  add({.format = &format, .variableType = XLumoTemplate::VARIABLE_MULTIPLE_CATEGORY});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\" "
                                     "variableType=\"MultipleCategory\">",
                                     "  <multipleResponseInfo MRSetName=\"\" enhancedDichotomy=\"false\"/>",
                                     "  <lumoml:format errorCharacter=\"*\" maximumFractionDigits=\"2\" "
                                     "minimumFractionDigits=\"2\" useGrouping=\"false\"/>",
                                     "</mapping>"}));
}

TEST_F(Mapping, CopiesTheFormat) {
  Vexa_Format format(Vexa_Format::FormatNumber, 8, 2);
  add({.format = &format});
  format.Decimals(5);
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\">",
                                     "  <lumoml:format errorCharacter=\"*\" maximumFractionDigits=\"2\" "
                                     "minimumFractionDigits=\"2\" useGrouping=\"false\"/>",
                                     "</mapping>"}));
}

TEST_F(Mapping, ComesInTheOrderOfVariablesStatisticsAndLabels) {
  chart.addLabel(XLumoTemplate::LABEL_TITLE, "Ages");
  chart.addStatistic("y", "count", nullptr);
  add({});
  add({.slotName = "color", .slotValue = "sex"});
  chart.addStatistic("z", "mean", nullptr);
  chart.addLabel(XLumoTemplate::LABEL_FOOTNOTE, "Of 1990");
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\"/>",
                                     "<mapping categorical=\"true\" slotName=\"color\" slotValue=\"sex\"/>",
                                     "<mapping slotName=\"y\" slotValue=\"count\"/>",
                                     "<mapping slotName=\"z\" slotValue=\"mean\"/>",
                                     "<mapping slotName=\"Title\" slotValue=\"Ages\"/>",
                                     "<mapping slotName=\"Footnote\" slotValue=\"Of 1990\"/>"}));
}

TEST_F(Mapping, OfAStatisticKeepsItsLabelToItself) {
  chart.addStatistic("y", "count", "Number");
  EXPECT_EQ(request(), pieRequestOf({"<mapping slotName=\"y\" slotValue=\"count\"/>"}));
}

TEST_F(Mapping, OfEachLabelHasItsOwnSlot) {
  chart.addLabel(XLumoTemplate::LABEL_TITLE, "a");
  chart.addLabel(XLumoTemplate::LABEL_SUBTITLE, "b");
  chart.addLabel(XLumoTemplate::LABEL_SUBSUBTITLE, "c");
  chart.addLabel(XLumoTemplate::LABEL_FOOTNOTE, "d");
  chart.addLabel(XLumoTemplate::LABEL_SUBFOOTNOTE, "e");
  EXPECT_EQ(request(), pieRequestOf({"<mapping slotName=\"Title\" slotValue=\"a\"/>",
                                     "<mapping slotName=\"Subtitle\" slotValue=\"b\"/>",
                                     "<mapping slotName=\"Subsubtitle\" slotValue=\"c\"/>",
                                     "<mapping slotName=\"Footnote\" slotValue=\"d\"/>",
                                     "<mapping slotName=\"Subfootnote\" slotValue=\"e\"/>"}));
}

TEST_F(Mapping, OfALabelThatIsNoneIsNotMade) {
  chart.addLabel(static_cast<XLumoTemplate::LABEL_TYPE>(5), "a");
  chart.addLabel(static_cast<XLumoTemplate::LABEL_TYPE>(-1), "b");
  EXPECT_THAT(recorder.lines(), IsEmpty());
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"local\" templateName=\"pie\"/>"}));
}

TEST_F(Mapping, HasTheHostsTextForDisplayTextsAlone) {
  services.texts->texts = {{"age", "Alter"}, {"x", "-"}, {"count", "-"}, {"Ages", "\xC3\x84lteste"}};
  add({.slotLabel = "age"});
  chart.addStatistic("y", "count", nullptr);
  chart.addLabel(XLumoTemplate::LABEL_TITLE, "Ages");
  EXPECT_EQ(
      request(),
      pieRequestOf({"<mapping categorical=\"true\" slotLabel=\"age\" slotName=\"x\" slotValue=\"Alter\"/>",
                    "<mapping slotName=\"y\" slotValue=\"count\"/>",
                    "<mapping slotName=\"Title\" slotValue=\"\xC3\x84lteste\"/>"}));
}

// --- Formats

/// The types by which of the host's displays they get.
std::map<Operation, std::vector<int>> const displayedTypes{
    {Operation::FormatNumber, {3, 4, 5, 8, 9, 12, 15, 16, 17, 31, 32, 40}},
    {Operation::FormatDate, {20, 21, 22, 23, 24, 26, 27, 28, 29, 30, 38, 39, 85, 86}},
    {Operation::FormatElapsedTime, {25}},
    {Operation::FormatCustomCurrency, {33, 34, 35, 36, 37}},
};

TEST(Format, OfEachTypeIsTheHostsDisplayOfIt) {
  std::map<Operation, std::vector<int>> seen;
  for (int type = 0; type < 256; ++type) {
    host::Recorder recorder;
    host::ScopedHost const scope(recorder.host());
    Vexa_Format format(static_cast<Vexa_Format::FormatType>(type), 9, 3);
    ChartString name("pie");
    XLumoTemplate chart;
    chart.setTemplateName(name, XLumoTemplate::LOCATION_LOCAL);
    addTo(chart, {.format = &format});
    std::string lumoML;
    std::string styleSheet;
    chart.convert(lumoML, styleSheet);
    for (auto const& [operation, types] : displayedTypes) {
      for (host::Entry const& call : recorder.entries(operation)) {
        seen[operation].push_back(type);
        EXPECT_EQ(call.number("type"), type);
        EXPECT_EQ(call.number("width"), 9);
        EXPECT_EQ(call.number("decimals"), 3);
      }
    }
  }
  EXPECT_EQ(seen, displayedTypes);
}

TEST_F(Mapping, OfATypeWithoutADisplayHasAFormatAllTheSame) {
  Vexa_Format format(Vexa_Format::FormatString, 8, 0);
  add({.format = &format});
  EXPECT_EQ(request(), pieRequestOf({"<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\">",
                                     "  <lumoml:format errorCharacter=\"*\"/>", "</mapping>"}));
}

// --- Maps

class Maps : public Mapping {};

TEST_F(Maps, AreSentTogetherBeforeTheMappings) {
  chart.setDataMapName("a.map", XLumoTemplate::LOCATION_LOCAL);
  chart.setRefMapName("b.map", XLumoTemplate::LOCATION_LOCAL);
  chart.setMapKey("l\xC3\xA4nder");
  chart.setShowAllFeatures(false);
  add({});
  EXPECT_EQ(request(), pieRequestOf({"<map dataFile=\"a.map\" dataMapLocation=\"local\" "
                                     "mapKey=\"l\xC3\xA4nder\" referenceMap=\"b.map\" "
                                     "referenceMapLocation=\"local\" showAllFeatures=\"false\"/>",
                                     "<mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\"/>"}));
}

TEST_F(Maps, ShowAllFeaturesUnlessToldOtherwise) {
  chart.setDataMapName("a.map", XLumoTemplate::LOCATION_LOCAL);
  EXPECT_EQ(request(),
            pieRequestOf({"<map dataFile=\"a.map\" dataMapLocation=\"local\" showAllFeatures=\"true\"/>"}));
}

TEST_F(Maps, HaveNamesAndKeysInAnyScript) {
  chart.setDataMapName("\xC3\x9C.map", XLumoTemplate::LOCATION_LOCAL);
  chart.setRefMapName("\xE4\xB8\x96.map", XLumoTemplate::LOCATION_FILE);
  chart.setMapKey("\xD0\xBA");
  EXPECT_EQ(chart.getDataMapName(), ChartString(u"\u00DC.map"));
  EXPECT_EQ(request(), pieRequestOf({"<map dataFile=\"\xC3\x9C.map\" dataMapLocation=\"local\" "
                                     "mapKey=\"\xD0\xBA\" referenceMap=\"\xE4\xB8\x96.map\" "
                                     "referenceMapLocation=\"file\" showAllFeatures=\"true\"/>"}));
}

TEST_F(Maps, AreNotSentWithoutAName) {
  chart.setDataMapName("", XLumoTemplate::LOCATION_KOS);
  chart.setMapKey("country");
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"local\" templateName=\"pie\"/>"}));
}

TEST_F(Maps, OfTheReferenceAloneHaveNothingOfTheData) {
  chart.setDataMapKosDirectory("data");
  chart.setRefMapName("b.map", XLumoTemplate::LOCATION_KOS);
  chart.setRefMapKosDirectory("maps");
  EXPECT_EQ(request(), pieRequestOf({"<map refMapRepositoryFolderSpec=\"maps\" referenceMap=\"b.map\" "
                                     "referenceMapLocation=\"KOS\" showAllFeatures=\"true\"/>"}));
}

TEST_F(Maps, OfTheRepositoryHaveTheirFoldersEvenIfEmpty) {
  chart.setDataMapName("a.map", XLumoTemplate::LOCATION_KOS);
  chart.setRefMapName("b.map", XLumoTemplate::LOCATION_KOS);
  EXPECT_EQ(request(),
            pieRequestOf({"<map dataFile=\"a.map\" dataMapLocation=\"KOS\" dataMapRepositoryFolderSpec=\"\" "
                          "refMapRepositoryFolderSpec=\"\" referenceMap=\"b.map\" "
                          "referenceMapLocation=\"KOS\" showAllFeatures=\"true\"/>"}));
}

TEST_F(Maps, HaveFoldersOnlyInTheRepository) {
  chart.setDataMapName("a.map", XLumoTemplate::LOCATION_LOCAL);
  chart.setDataMapKosDirectory("data");
  chart.setRefMapName("b.map", XLumoTemplate::LOCATION_FILE);
  chart.setRefMapKosDirectory("maps");
  EXPECT_EQ(request(),
            pieRequestOf({"<map dataFile=\"a.map\" dataMapLocation=\"local\" referenceMap=\"b.map\" "
                          "referenceMapLocation=\"file\" showAllFeatures=\"true\"/>"}));
}

TEST_F(Maps, OfALocationThatIsNoneCountAsFiles) {
  chart.setDataMapName("a.map", static_cast<XLumoTemplate::LOCATION>(3));
  chart.setRefMapName("b.map", static_cast<XLumoTemplate::LOCATION>(3));
  EXPECT_EQ(request(), pieRequestOf({"<map dataFile=\"a.map\" dataMapLocation=\"file\" "
                                     "referenceMap=\"b.map\" referenceMapLocation=\"file\" "
                                     "showAllFeatures=\"true\"/>"}));
}

TEST_F(Maps, OfFilesHaveSlashes) {
  chart.setDataMapName("C:\\maps\\a.map", XLumoTemplate::LOCATION_FILE);
  chart.setRefMapName("C:\\maps\\b.map", XLumoTemplate::LOCATION_FILE);
  EXPECT_EQ(chart.getDataMapName().toUTF8(), "C:/maps/a.map");
  EXPECT_EQ(chart.getRefMapName().toUTF8(), "C:/maps/b.map");
}

TEST_F(Maps, OfTheRepositoryKeepTheirBackslashes) {
  chart.setDataMapName("C:\\maps\\a.map", XLumoTemplate::LOCATION_KOS);
  chart.setRefMapName("maps\\b.map", XLumoTemplate::LOCATION_LOCAL);
  EXPECT_EQ(chart.getDataMapName().toUTF8(), "C:\\maps\\a.map");
  EXPECT_EQ(chart.getRefMapName().toUTF8(), "maps\\b.map");
}

TEST_F(Maps, HaveNeitherFilesNorContentsAtFirst) {
  EXPECT_EQ(chart.getDataMapFileName() + chart.getRefMapFileName() + chart.getDataMapContents() +
                chart.getRefMapContents(),
            "");
}

}  // namespace
}  // namespace kestrel::test
