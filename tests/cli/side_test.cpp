// `kestrel image`, `interactive`, `engine` and `service`: what is sent instead of a chart.

#include "cli_fixture.h"
#include "schema_validator.h"
#include "wire_decoder.h"

#include <gmock/gmock.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

class SideContent : public CliTest {
 protected:
  SideContent() {
    write("plot.png", "\x89PNG\r\n\x1A\n and more");
    write("page.json", "{\"page\": 1}");
    write("lakes.json", "{\"lakes\": 1}");
    write("table.csv", "age,species\n41.5,Gentoo\n,Adelie\n7,Gentoo\n");
  }

  /// The words of a command line, and `-o out` behind them.
  Outcome run(std::vector<std::string> arguments) const {
    arguments.insert(arguments.end(), {"-o", "out"});
    return kestrel(arguments);
  }

  std::vector<DecodedContent> contents() const {
    return decodeContents(decodeCapture(read("out/capture.kcap")));
  }
  std::string bytesOf(std::uint32_t type) const { return onlyContent(contents(), type).bytes; }

  /// What `kestrel inspect --extract` makes of it, which must find no fault.
  std::vector<std::string> extracted() const {
    Outcome const outcome = extract();
    EXPECT_EQ(outcome.exit, 0) << outcome.err;
    return filesIn("contents");
  }

  void expectFault(Outcome const& outcome, std::string const& start, int exit = 1) const {
    EXPECT_EQ(outcome.exit, exit);
    EXPECT_THAT(outcome.err, StartsWith("kestrel: " + start));
    EXPECT_EQ(outcome.out, "");
    EXPECT_FALSE(exists("out/capture.kcap"));
    EXPECT_FALSE(exists("out/capture.kcap.unfinished"));
  }
};

// --- Images

TEST_F(SideContent, HasTheImageWithItsSubtype) {
  Outcome const outcome = run({"image", "plot.png", "--subtype", "3", "--description", "Größe"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(outcome.out, testing::MatchesRegex("out/capture\\.kcap: 4 messages, [0-9]+ bytes\n"));
  EXPECT_THAT(typesOf(contents()), ElementsAre(0u, 9u, 7u, 3u));
  EXPECT_EQ(onlyContent(contents(), 7).subtype, 3u);
  EXPECT_EQ(inflated(bytesOf(7)), read("plot.png"));
  EXPECT_EQ(bytesOf(0), "Größe");
  EXPECT_EQ(endRecord(contents()), (EndRecord{0, 1}));
}

TEST_F(SideContent, HasTheSubtypeZeroForAnImageWithout) {
  run({"image", "plot.png"});
  EXPECT_EQ(onlyContent(contents(), 7).subtype, 0u);
  EXPECT_EQ(bytesOf(0), "Description not set");
}

TEST_F(SideContent, ComesBackOutOfAnImage) {
  run({"image", "plot.png", "--subtype", "3"});
  EXPECT_THAT(extracted(), ElementsAre("description.eng.txt", "description.txt", "done.json", "image-3.png"));
  EXPECT_EQ(read("contents/image-3.png"), read("plot.png"));
}

TEST_F(SideContent, KnowsItsKindInTheListing) {
  run({"image", "plot.png"});
  EXPECT_THAT(kestrel({"inspect", "out/capture.kcap"}).out,
              HasSubstr("image: 4 contents, editable 0, editor 1\nThe capture keeps all rules.\n"));
}

TEST_F(SideContent, SaysWhatIsWrongWithAnImage) {
  expectFault(run({"image", "none.png"}), "none.png: cannot be read: No such file");
  write("empty.png", "");
  expectFault(run({"image", "empty.png"}), "empty.png: is empty\n");
  expectFault(run({"image"}), "FILE is required");
  for (char const* const subtype : {"256", "-1", "png"})
    expectFault(run({"image", "plot.png", "--subtype", subtype}), "--subtype: ");
}

// --- Pages

TEST_F(SideContent, HasThePageWithAllThatGoesWithIt) {
  Outcome const outcome =
      run({"interactive", "page.json", "--procedure", "MEANS", "--json-path", "pages/1", "--options", "x=1",
           "--geojson", "lakes.json", "--geojson", "rivers=lakes.json", "--description", "A page"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(typesOf(contents()), ElementsAre(0u, 9u, 16u, 17u, 18u, 19u, 14u, 15u, 14u, 15u, 3u));
  for (auto const& content : contents()) EXPECT_EQ(content.identifier, content.type == 3 ? 307 : 318);
  EXPECT_EQ(inflated(bytesOf(16)), "{\"page\": 1}");
  EXPECT_EQ(bytesOf(17), "MEANS");
  EXPECT_EQ(bytesOf(18), "pages/1");
  EXPECT_EQ(bytesOf(19), "x=1");
  EXPECT_EQ(contents().at(6).bytes, "lakes.json");
  EXPECT_EQ(contents().at(8).bytes, "rivers");
  EXPECT_EQ(inflated(contents().at(9).bytes), "{\"lakes\": 1}");
  EXPECT_EQ(endRecord(contents()), (EndRecord{0, 3}));
}

TEST_F(SideContent, ComesBackOutOfAPage) {
  run({"interactive", "page.json", "--procedure", "MEANS", "--json-path", "pages/1", "--options", "x=1",
       "--geojson", "lakes.json", "--geojson", "rivers=lakes.json"});
  EXPECT_THAT(extracted(),
              ElementsAre("description.eng.txt", "description.txt", "done.json", "interactive.json",
                          "json-path.txt", "lakes.json", "options.txt", "procedure-name.txt", "rivers.json"));
  EXPECT_EQ(read("contents/interactive.json"), "{\"page\": 1}");
  EXPECT_EQ(read("contents/rivers.json"), "{\"lakes\": 1}");
}

TEST_F(SideContent, HasAPageAlone) {
  EXPECT_EQ(run({"interactive", "page.json"}).exit, 0);
  EXPECT_THAT(typesOf(contents()), ElementsAre(0u, 9u, 16u, 3u));
}

TEST_F(SideContent, TakesOptionsFromAFile) {
  write("options.txt", "a=1\nb=2\n");
  run({"interactive", "page.json", "--options-file", "options.txt"});
  EXPECT_EQ(bytesOf(19), "a=1\nb=2\n");
}

TEST_F(SideContent, AttachesAFileWithAnEqualsSignInItsName) {
  write("a=b.json", "[]");
  run({"interactive", "page.json", "--geojson", "a=b.json"});
  EXPECT_EQ(bytesOf(14), "a=b.json");
}

TEST_F(SideContent, AttachesFilesUnderTheirNamesAlone) {
  std::filesystem::create_directories(folder / "maps");
  write("maps/rivers.json", "[]");
  run({"interactive", "page.json", "--geojson", "maps/rivers.json"});
  EXPECT_EQ(bytesOf(14), "rivers.json");
}

TEST_F(SideContent, SaysWhatIsWrongWithAPage) {
  expectFault(run({"interactive"}), "PAGE.json is required");
  expectFault(run({"interactive", "none.json"}), "none.json: cannot be read: ");
  expectFault(run({"interactive", "table.csv"}),
              "table.csv: is no JSON: parse error at line 1, column 1: syntax error");
  write("bad.json", "{\"a\": 1,\n\"b\": }");
  expectFault(run({"interactive", "bad.json"}), "bad.json: is no JSON: parse error at line 2, column 6: ");
  write("empty.json", "");
  expectFault(run({"interactive", "empty.json"}), "empty.json: is empty\n");
  expectFault(run({"interactive", "page.json", "--geojson", "none.json"}), "none.json: cannot be read: ");
  expectFault(run({"interactive", "page.json", "--geojson", "rivers=table.csv"}), "table.csv: is no JSON: ");
  expectFault(run({"interactive", "page.json", "--geojson", "=lakes.json"}),
              "--geojson '=lakes.json' has no name before the equals sign\n");
  expectFault(run({"interactive", "page.json", "--options-file", "none"}), "none: cannot be read: ");
  expectFault(run({"interactive", "page.json", "--options", "a", "--options-file", "page.json"}),
              "--options excludes --options-file");
}

TEST_F(SideContent, IsNoJsonWhenItEndsInTheMiddleOrGoesOn) {
  write("cut.json", "[[[");
  expectFault(run({"interactive", "cut.json"}), "cut.json: is no JSON: parse error at line 1, column 4: ");
  write("long.json", "{} {}");
  expectFault(run({"interactive", "long.json"}), "long.json: is no JSON: parse error at line 1, column 4: ");
  write("deep.json", std::string(1'000'000, '['));
  expectFault(run({"interactive", "deep.json"}), "deep.json: is no JSON: ");
}

// --- Charts for the engine

TEST_F(SideContent, HasTheChartOfTheEngineWithAllThatGoesWithIt) {
  write("template.json", "[3]");
  Outcome const outcome =
      run({"engine", "page.json", "--engine-template", "template.json", "--options", "x=1", "--geojson",
           "rivers=lakes.json", "--description", "An engine's chart"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_THAT(typesOf(contents()), ElementsAre(0u, 9u, 12u, 13u, 19u, 14u, 15u, 3u));
  EXPECT_EQ(inflated(bytesOf(12)), "{\"page\": 1}");
  EXPECT_EQ(inflated(bytesOf(13)), "[3]");
  EXPECT_EQ(bytesOf(19), "x=1");
  EXPECT_EQ(bytesOf(14), "rivers");
  EXPECT_EQ(bytesOf(0), "An engine's chart");
  EXPECT_EQ(endRecord(contents()), (EndRecord{0, 3}));
}

TEST_F(SideContent, ComesBackOutOfAChartOfTheEngine) {
  run({"engine", "page.json", "--engine-template", "lakes.json"});
  EXPECT_THAT(extracted(), ElementsAre("description.eng.txt", "description.txt", "done.json",
                                       "engine-template.json", "engine.json"));
  EXPECT_EQ(read("contents/engine.json"), "{\"page\": 1}");
  EXPECT_EQ(read("contents/engine-template.json"), "{\"lakes\": 1}");
}

TEST_F(SideContent, SaysWhatIsWrongWithAChartOfTheEngine) {
  expectFault(run({"engine"}), "CHART.json is required");
  expectFault(run({"engine", "none.json"}), "none.json: cannot be read: ");
  expectFault(run({"engine", "table.csv"}), "table.csv: is no JSON: ");
  expectFault(run({"engine", "page.json", "--engine-template", "table.csv"}), "table.csv: is no JSON: ");
  expectFault(run({"engine", "page.json", "--engine-template", "none.json"}), "none.json: cannot be read: ");
}

// --- Services

TEST_F(SideContent, HasTheServiceWithOptionsVariablesAndRows) {
  Outcome const outcome = run({"service", "--options", "type=bar", "--source", "birds", "--variable", "age=7",
                               "--data", "table.csv", "--description", "Ages"});
  EXPECT_EQ(outcome.exit, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  EXPECT_THAT(typesOf(contents()), ElementsAre(0u, 9u, 20u, 21u, 5u, 8u, 3u));
  EXPECT_EQ(bytesOf(20), "type=bar");
  EXPECT_EQ(onlyContent(contents(), 20).subtype, 4u);
  EXPECT_EQ(bytesOf(21),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?><serviceTemplate source=\"birds\">"
            "<sourceVariable index=\"7\" name=\"age\"/></serviceTemplate>");
  EXPECT_THAT(serviceTemplateSchemaErrors(bytesOf(21)), IsEmpty());
  EXPECT_EQ(announced(contents(), 5), bytesOf(8).size());
  EXPECT_THAT(kestrel({"inspect", "out/capture.kcap", "--cells", "3"}).out,
              HasSubstr("data birds: 3 rows, 1 column\n"));
  EXPECT_EQ(column(0, 1, 3).at(0), 41.5);
  EXPECT_TRUE(std::isnan(column(0, 1, 3).at(1)));
  EXPECT_EQ(column(0, 1, 3).at(2), 7.0);
}

TEST_F(SideContent, MakesAllColumnsVariablesOfAServiceThatNamesNone) {
  Outcome const outcome = run({"service", "--data", "table.csv"});
  EXPECT_EQ(outcome.exit, 0);
  EXPECT_THAT(bytesOf(21), EndsWith("<serviceTemplate source=\"source0\">"
                                    "<sourceVariable index=\"0\" name=\"age\"/>"
                                    "<sourceVariable index=\"1\" name=\"species\"/></serviceTemplate>"));
  EXPECT_EQ(column(1, 2, 3), (std::vector<double>{1, 2, 1}));
  EXPECT_EQ(outcome.err,
            "kestrel: note: column 'species' holds texts; the client gets the number of each, "
            "from 1 in the order in which they first appear\n");
}

TEST_F(SideContent, ComesBackOutOfAService) {
  write("options.txt", "type=bar");
  run({"service", "--options-file", "options.txt", "--data", "table.csv", "--variable", "age"});
  EXPECT_THAT(extracted(), ElementsAre("chart-options.txt", "data.arrows", "description.eng.txt",
                                       "description.txt", "done.json", "service-template.xml", "sizes.json"));
  EXPECT_EQ(read("contents/chart-options.txt"), "type=bar");
  EXPECT_THAT(serviceTemplateSchemaErrors(read("contents/service-template.xml")), IsEmpty());
}

TEST_F(SideContent, HasAServiceOfOptionsAlone) {
  EXPECT_EQ(run({"service", "--options", "type=bar"}).exit, 0);
  EXPECT_THAT(typesOf(contents()), ElementsAre(0u, 9u, 20u, 3u));
}

TEST_F(SideContent, HasAServiceOfVariablesAlone) {
  EXPECT_EQ(run({"service", "--variable", "age", "--variable", "a=b=12", "--variable", "sex"}).exit, 0);
  EXPECT_THAT(typesOf(contents()), ElementsAre(0u, 9u, 21u, 3u));
  EXPECT_THAT(bytesOf(21), EndsWith("<sourceVariable index=\"0\" name=\"age\"/>"
                                    "<sourceVariable index=\"12\" name=\"a=b\"/>"
                                    "<sourceVariable index=\"2\" name=\"sex\"/></serviceTemplate>"));
}

TEST_F(SideContent, HasAServiceOfASourceAlone) {
  EXPECT_EQ(run({"service", "--source", "birds"}).exit, 0);
  EXPECT_THAT(bytesOf(21), EndsWith("<serviceTemplate source=\"birds\"/>"));
}

TEST_F(SideContent, TakesAColumnWithAnEqualsSignForAColumn) {
  write("equals.csv", "a=1,a\n5,6\n");
  EXPECT_EQ(run({"service", "--data", "equals.csv", "--variable", "a=1"}).exit, 0);
  EXPECT_THAT(bytesOf(21), HasSubstr("<sourceVariable index=\"0\" name=\"a=1\"/>"));
  EXPECT_EQ(column(0, 1, 1), (std::vector<double>{5}));
}

TEST_F(SideContent, TakesAColumnOnceThoughTwoVariablesNameIt) {
  Outcome const outcome =
      run({"service", "--data", "table.csv", "--variable", "species=1", "--variable", "species=2"});
  EXPECT_EQ(outcome.exit, 0);
  EXPECT_THAT(bytesOf(21), EndsWith("<sourceVariable index=\"1\" name=\"species\"/>"
                                    "<sourceVariable index=\"2\" name=\"species\"/></serviceTemplate>"));
  EXPECT_EQ(column(0, 1, 3), (std::vector<double>{1, 2, 1}));
  EXPECT_EQ(outcome.err.find("note: "), outcome.err.rfind("note: "));
}

TEST_F(SideContent, SaysWhatIsWrongWithAService) {
  expectFault(run({"service"}), "there is nothing to send: give --options, --variable, --data");
  expectFault(run({"service", "--data", "none.csv"}), "none.csv: cannot be read: ");
  expectFault(run({"service", "--data", "table.csv", "--variable", "agge"}),
              "table.csv:1: there is no column 'agge' for --variable; did you mean 'age'?");
  for (char const* const number : {"x", "", "-1", "1x", "99999999999"})
    expectFault(run({"service", "--variable", std::string("age=") + number}),
                std::string("--variable 'age=") + number + "': '" + number + "' is no number of a variable");
  expectFault(run({"service", "--variable", "=1"}), "--variable '=1' has no name\n");
  expectFault(run({"service", "--variable", ""}), "--variable '' has no name\n");
  expectFault(run({"service", "--options-file", "none"}), "none: cannot be read: ");
}

// --- Ways

TEST_F(SideContent, SaysThatItHasNowhereToGo) {
  for (auto const& [command, what] :
       {std::pair("image", "image"), std::pair("interactive", "page"), std::pair("engine", "chart")}) {
    Outcome const outcome = kestrel({command, "page.json"});
    EXPECT_EQ(outcome.exit, 1);
    EXPECT_EQ(outcome.err, "kestrel: say where the " + std::string(what) +
                               " goes: -o FOLDER, --send unix:PATH, or both; kestrel --help tells more\n");
  }
  EXPECT_THAT(kestrel({"service", "--options", "x"}).err,
              StartsWith("kestrel: say where the service goes: "));
}

TEST_F(SideContent, SaysThatNobodyListens) {
  Outcome const outcome = kestrel({"image", "plot.png", "--send", "unix:nobody"});
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_THAT(outcome.err, StartsWith("kestrel: unix:nobody: nobody can be reached: "));
}

TEST_F(SideContent, SaysThatTheFolderCannotBeMade) {
  Outcome const outcome = kestrel({"image", "plot.png", "-o", "plot.png/out"});
  EXPECT_EQ(outcome.exit, 3);
  EXPECT_THAT(outcome.err, StartsWith("kestrel: plot.png/out: cannot make this folder: "));
}

}  // namespace
