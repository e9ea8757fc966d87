// The request's document, template and style sheet.

#include "schema_validator.h"
#include "template_fixture.h"

#include "host/messages.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using host::RecordedDump;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Request : public LumoTemplateTest {};

TEST(RequestSchema, KnowsRequestsFromOtherTexts) {
  std::string const formatted = pieRequestOf({"<mapping slotName=\"x\" slotValue=\"age\">",
                                              "  <lumoml:format useGrouping=\"true\"/>", "</mapping>"});
  EXPECT_THAT(templateRequestSchemaErrors(formatted), IsEmpty());
  std::string unknown = formatted;
  unknown.replace(unknown.find("useGrouping"), 11, "grouping");
  EXPECT_THAT(templateRequestSchemaErrors(unknown), ::testing::Not(IsEmpty()));
  EXPECT_THAT(templateRequestSchemaErrors(requestOf({"<mapping slotName=\"x\" slotValue=\"age\"/>"})),
              ::testing::Not(IsEmpty()));
  EXPECT_THAT(templateReplySchemaErrors(formatted), ::testing::Not(IsEmpty()));
}

TEST_F(Request, OfATemplateThatNobodyNamedHasNothingButItsRoot) { EXPECT_EQ(request(), requestOf({})); }

TEST_F(Request, OfATemplateThatNobodyNamedHasNeitherMapsNorMappings) {
  chart.setDataMapName("a.map", XLumoTemplate::LOCATION_LOCAL);
  chart.addLabel(XLumoTemplate::LABEL_TITLE, "Ages");
  add({});
  EXPECT_EQ(request(), requestOf({}));
}

TEST_F(Request, OfATemplateThatNobodyNamedHasItsStyleSheet) {
  chart.setstyleSheetName("plain", XLumoTemplate::LOCATION_LOCAL);
  EXPECT_EQ(request(), requestOf({"<styleSheetSpecification location=\"local\" styleSheetName=\"plain\"/>"}));
}

TEST_F(Request, NamesALocalTemplate) {
  chooseTemplate("pie");
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"local\" templateName=\"pie\"/>"}));
}

TEST_F(Request, NamesATemplateOfTheRepositoryWithItsFolder) {
  chooseTemplate("pie", XLumoTemplate::LOCATION_KOS);
  chart.setTemplateKosDirectory("charts/shares");
  EXPECT_EQ(request(), requestOf({"<templateSpecification locale=\"en-US\" location=\"KOS\" "
                                  "repositoryFolderSpec=\"charts/shares\" templateName=\"pie\"/>"}));
}

TEST_F(Request, HasNoFolderWhereTheTemplatesOneIsEmpty) {
  chooseTemplate("pie", XLumoTemplate::LOCATION_KOS);
  chart.setTemplateKosDirectory("");
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"KOS\" templateName=\"pie\"/>"}));
}

TEST_F(Request, HasNoFolderForATemplateThatIsNotInTheRepository) {
  chooseTemplate("pie");
  chart.setTemplateKosDirectory("charts");
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"local\" templateName=\"pie\"/>"}));
}

TEST_F(Request, TakesALocationThatIsNoneForTheRepository) {
  chooseTemplate("pie", static_cast<XLumoTemplate::LOCATION>(3));
  chart.setTemplateKosDirectory("charts");
  EXPECT_EQ(request(), requestOf({"<templateSpecification locale=\"en-US\" location=\"KOS\" "
                                  "repositoryFolderSpec=\"charts\" templateName=\"pie\"/>"}));
}

TEST_F(Request, EscapesWhatItIsGiven) {
  chooseTemplate("<a> & \"b\" \xC3\xA9");
  EXPECT_EQ(request(), requestOf({"<templateSpecification locale=\"en-US\" location=\"local\" "
                                  "templateName=\"&lt;a> &amp; &quot;b&quot; \xC3\xA9\"/>"}));
}

// --- Files

TEST_F(Request, HoldsTheTemplateOfAFile) {
  services.files->content["/charts/a.lumotemplate"] =
      "<?xml version=\"1.0\"?><!-- mine --><t:template xmlns:t=\"urn:t\" b=\"1\" a=\"2\"><t:slot/>"
      "<t:note>as it <b xmlns=\"urn:b\">is</b></t:note></t:template>";
  chooseTemplate("/charts/a.lumotemplate", XLumoTemplate::LOCATION_FILE);
  add({});
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"file\" "
                       "templateName=\"/charts/a.lumotemplate\">",
                       "  <templateContents>", "    <t:template a=\"2\" b=\"1\" xmlns:t=\"urn:t\">",
                       "      <t:slot/>", "      <t:note>as it <b xmlns=\"urn:b\">is</b></t:note>",
                       "    </t:template>", "  </templateContents>",
                       "  <mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\"/>",
                       "</templateSpecification>"}));
}

TEST_F(Request, KeepsATemplateWithoutANamespaceOutOfItsOwn) {
  services.files->content["a"] = "<template/>";
  chooseTemplate("a", XLumoTemplate::LOCATION_FILE);
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"file\" templateName=\"a\">",
                       "  <templateContents>", "    <template xmlns=\"\"/>", "  </templateContents>",
                       "</templateSpecification>"}));
}

TEST_F(Request, FetchesTheTemplateByItsNameWithBothFlags) {
  chooseTemplate("caf\xC3\xA9", XLumoTemplate::LOCATION_FILE);
  request();
  ASSERT_EQ(recorder.count(Operation::Fetch), 1u);
  EXPECT_EQ(recorder.entries(Operation::Fetch)[0].line(),
            "FetchFile::fetch(name=\"caf\xC3\xA9\", first=true, second=true)");
}

TEST_F(Request, FetchesAnInternalTemplateFromTheProductsFolder) {
  services.files->content["/base/template/bar.lumotemplate"] = "<template xmlns=\"urn:t\"/>";
  chart.setTemplateInternalName("bar");
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"file\" templateName=\"\">",
                       "  <templateContents>", "    <template xmlns=\"urn:t\"/>", "  </templateContents>",
                       "</templateSpecification>"}));
}

TEST_F(Request, PrefersTheTemplatesNameToItsPath) {
  services.files->content["named"] = "<named xmlns=\"urn:t\"/>";
  services.files->content["/base/template/bar.lumotemplate"] = "<internal xmlns=\"urn:t\"/>";
  chooseTemplate("named");
  chart.setTemplateInternalName("bar");
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"file\" templateName=\"named\">",
                       "  <templateContents>", "    <named xmlns=\"urn:t\"/>", "  </templateContents>",
                       "</templateSpecification>"}));
}

TEST_F(Request, GoesOnWithoutATemplateFileThatCannotBeRead) {
  chooseTemplate("gone", XLumoTemplate::LOCATION_FILE);
  chart.setMapKey("country");
  chart.setDataMapName("a.map", XLumoTemplate::LOCATION_LOCAL);
  add({});
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"file\" templateName=\"gone\">",
                       "  <map dataFile=\"a.map\" dataMapLocation=\"local\" mapKey=\"country\" "
                       "showAllFeatures=\"true\"/>",
                       "  <mapping categorical=\"true\" slotName=\"x\" slotValue=\"age\"/>",
                       "</templateSpecification>"}));
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message("File ^1 has no access...", {"gone", false}, 2)));
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_F(Request, TellsOfAnInternalTemplateThatCannotBeReadWithoutAName) {
  chart.setTemplateInternalName("gone");
  EXPECT_TRUE(convert());
  EXPECT_THAT(recorder.userMessages(), ElementsAre(message("File ^1 has no access...", {"", false}, 2)));
}

TEST_F(Request, IsNotSentWithATemplateThatIsNotWellFormed) {
  services.files->content["a"] = "<template>";
  chooseTemplate("a", XLumoTemplate::LOCATION_FILE);
  EXPECT_FALSE(convert());
  EXPECT_EQ(recorder.count(Operation::ConvertTemplate), 0u);
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
  EXPECT_EQ(recorder.dumps(), (std::vector<RecordedDump>{{"<template>", "parseError_", ".xml", 0, 0}}));
  ASSERT_EQ(recorder.failures().size(), 1u);
  EXPECT_THAT(recorder.failures()[0], ::testing::StartsWith("parseDocument fatal error while parsing: "));
  EXPECT_GT(recorder.failures()[0].size(), sizeof "parseDocument fatal error while parsing: ");
}

TEST_F(Request, DumpsATemplateThatIsNotWellFormedBeforeItIsLogged) {
  services.files->content["a"] = "<template>";
  chooseTemplate("a", XLumoTemplate::LOCATION_FILE);
  recorder.throwAt(Operation::PrintString, 1, OrdinaryFailure());
  EXPECT_THROW(convert(), OrdinaryFailure);
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_F(Request, IsNotSentWithATemplateThatMayLoadOtherFiles) {
  services.files->content["a"] = "<!DOCTYPE a [<!ENTITY e SYSTEM \"file:///etc/hostname\">]><a>&e;</a>";
  chooseTemplate("a", XLumoTemplate::LOCATION_FILE);
  EXPECT_FALSE(convert());
  EXPECT_THAT(recorder.failures(),
              ElementsAre("parseDocument fatal error while parsing: A document type declaration is not "
                          "allowed in chart text."));
}

// --- Locales

struct LocaleCase {
  char const* name;
  char const* sent;
};

class Locale : public LumoTemplateTest, public ::testing::WithParamInterface<LocaleCase> {};

TEST_P(Locale, IsSentWithoutItsCodePageAndWithDashes) {
  services.locale->name = GetParam().name;
  chooseTemplate("pie");
  EXPECT_EQ(request(), requestOf({std::string("<templateSpecification locale=\"") + GetParam().sent +
                                  "\" location=\"local\" templateName=\"pie\"/>"}));
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, Locale,
                         ::testing::Values(LocaleCase{"en_US.UTF-8", "en-US"}, LocaleCase{"de_DE", "de-DE"},
                                           LocaleCase{"a_b_c.x", "a-b-c"}, LocaleCase{"C", "C"},
                                           LocaleCase{"a.b.c", "a.b"}));

class EmptyLocale : public LumoTemplateTest, public ::testing::WithParamInterface<char const*> {};

TEST_P(EmptyLocale, IsLoggedAndSent) {
  services.locale->name = GetParam();
  chooseTemplate("pie");
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"\" location=\"local\" templateName=\"pie\"/>"}));
  EXPECT_THAT(recorder.failures(), ElementsAre("VexaMBDefaultLocaleName() returned empty string."));
  EXPECT_THAT(recorder.userMessages(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, EmptyLocale, ::testing::Values("", ".UTF-8"));

TEST_F(Request, LogsThatThereIsNoLocaleAlsoWithoutATemplate) {
  recorder.failEvery(Operation::LocaleName);
  EXPECT_EQ(request(), requestOf({}));
  EXPECT_THAT(recorder.failures(), ElementsAre("VexaMBDefaultLocaleName() returned empty string."));
}

TEST_F(Request, HasALocaleOfUpTo123Characters) {
  services.locale->name = std::string(123, 'a');
  chooseTemplate("pie");
  EXPECT_EQ(request(), requestOf({"<templateSpecification locale=\"" + services.locale->name +
                                  "\" location=\"local\" templateName=\"pie\"/>"}));
  EXPECT_THAT(recorder.failures(), IsEmpty());
}

TEST_F(Request, HasNoLocaleThatIsTooLong) {
  services.locale->name = std::string(124, 'a');
  EXPECT_EQ(request(), requestOf({}));
  EXPECT_THAT(recorder.failures(), ElementsAre("VexaMBDefaultLocaleName() returned empty string."));
}

// --- Style sheets

TEST_F(Request, NamesAStyleSheetOfTheRepositoryWithItsFolder) {
  chart.setstyleSheetName("plain", XLumoTemplate::LOCATION_KOS);
  chart.setStyleSheetKosDirectory("sheets");
  EXPECT_EQ(request(), requestOf({"<styleSheetSpecification location=\"KOS\" "
                                  "repositoryFolderSpec=\"sheets\" styleSheetName=\"plain\"/>"}));
}

TEST_F(Request, HasNoFolderWhereTheStyleSheetsOneIsEmpty) {
  chart.setstyleSheetName("plain", XLumoTemplate::LOCATION_KOS);
  EXPECT_EQ(request(), requestOf({"<styleSheetSpecification location=\"KOS\" styleSheetName=\"plain\"/>"}));
}

TEST_F(Request, HasNoFolderForALocalStyleSheet) {
  chart.setstyleSheetName("plain", XLumoTemplate::LOCATION_LOCAL);
  chart.setStyleSheetKosDirectory("sheets");
  EXPECT_EQ(request(), requestOf({"<styleSheetSpecification location=\"local\" styleSheetName=\"plain\"/>"}));
}

TEST_F(Request, NeverNamesAStyleSheetOfAFile) {
  chart.setstyleSheetName("plain.xsl", XLumoTemplate::LOCATION_FILE);
  EXPECT_EQ(request(), requestOf({}));
}

TEST_F(Request, HasNoStyleSheetWithoutAName) {
  chart.setstyleSheetName("", XLumoTemplate::LOCATION_KOS);
  EXPECT_EQ(request(), requestOf({}));
}

TEST_F(Request, HasTheStyleSheetBehindTheTemplate) {
  chooseTemplate("pie");
  chart.setstyleSheetName("plain", XLumoTemplate::LOCATION_LOCAL);
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"local\" templateName=\"pie\"/>",
                       "<styleSheetSpecification location=\"local\" styleSheetName=\"plain\"/>"}));
}

TEST_F(Request, OfASecondConversionIsMadeAnew) {
  chooseTemplate("pie");
  request();
  chooseTemplate("bar");
  EXPECT_EQ(request(),
            requestOf({"<templateSpecification locale=\"en-US\" location=\"local\" templateName=\"bar\"/>"}));
}

}  // namespace
}  // namespace kestrel::test
