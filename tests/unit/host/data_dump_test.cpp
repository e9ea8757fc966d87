// A chart text and its data in one text.

#include "kestrelhost/data_dump.h"

#include "data_stream_reader.h"
#include "schema_validator.h"

#include "host/channel.h"
#include "host/data_store.h"
#include "host/templates.h"
#include "kestrelhost/host.h"
#include "kestrelhost/missing.h"

#include <gmock/gmock.h>

#include <limits>

using namespace kestrel::host;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

std::string compressed(std::string const& text) {
  std::string result;
  zlib1213vexa::compressString(text, result);
  return result;
}

std::string streamOf(VarDataProcessor& store) {
  unsigned int size = 0;
  std::unique_ptr<unsigned char[]> const stream(store.GetDataStream(size));
  return {reinterpret_cast<char const*>(stream.get()), size};
}

class DataDumpTest : public testing::Test {
 protected:
  DataDumpTest() {
    store.AddDataSource("source0", 0);
    column("source0", "a", {1, 0.5});
    column("source0", "b", {systemMissing, -2});
  }

  void column(std::string const& source, std::string const& name, std::vector<double> const& values) {
    store.AddVariable(source, name, nullptr);
    for (unsigned int row = 0; row < values.size(); ++row)
      store.SetVariableValue(source, name, row, values[row]);
  }

  std::string join(std::string const& xml, char16_t const* encoding = u"UTF-8") {
    std::string const stream = streamOf(store);
    return ChartTransformer(compressed(xml), reinterpret_cast<unsigned char const*>(stream.data()),
                            stream.size())
        .getEntireXML(encoding);
  }

  Host host;
  ScopedHost const scope{host};
  VarDataProcessor store;
};

std::string chart(std::string const& inside) {
  return "<visualization xmlns=\"http://xml.vexa.example/visualization\">" + inside + "</visualization>";
}

std::string const rows = "<column name=\"a\"/><column name=\"b\"/><data>1;\n0.5;-2\n</data>";

TEST_F(DataDumpTest, PutsTheDataIntoItsSource) {
  std::string const text = join(chart("<userSource id=\"source0\"/><graph/>"));
  EXPECT_EQ(text, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" +
                      chart("<embeddedSource id=\"source0\">" + rows + "</embeddedSource><graph/>"));
  EXPECT_THAT(schemaErrors(text), IsEmpty());
}

TEST_F(DataDumpTest, KeepsWhatTheSourceHas) {
  EXPECT_THAT(join(chart("<userSource id=\"source0\" more=\"x\"><!-- y --></userSource>")),
              HasSubstr("<embeddedSource id=\"source0\" more=\"x\"><!-- y -->" + rows + "</embeddedSource>"));
}

TEST_F(DataDumpTest, PutsEachSourceInItsPlace) {
  column("source1", "c", {3});
  std::string const text = join(chart("<userSource id=\"source1\"/><userSource id=\"source0\"/>"));
  EXPECT_THAT(text,
              HasSubstr("<embeddedSource id=\"source1\"><column name=\"c\"/><data>3\n</data></embeddedSource>"
                        "<embeddedSource id=\"source0\">" +
                        rows));
  EXPECT_THAT(schemaErrors(text), IsEmpty());
}

TEST_F(DataDumpTest, LeavesASourceWithoutDataAsItIs) {
  EXPECT_THAT(join(chart("<userSource id=\"other\"/><userSource id=\"source0\"/>")),
              HasSubstr("<userSource id=\"other\"/><embeddedSource id=\"source0\">"));
}

TEST_F(DataDumpTest, AddsASourceThatTheChartHasNot) {
  std::string const text = join(chart("<graph id=\"source0\"/>"));
  EXPECT_THAT(text, HasSubstr("<graph id=\"source0\"/><embeddedSource id=\"source0\">" + rows));
  EXPECT_THAT(schemaErrors(text), IsEmpty());
}

TEST_F(DataDumpTest, KeepsThePrefixOfTheChart) {
  EXPECT_THAT(
      join("<v:visualization xmlns:v=\"http://xml.vexa.example/visualization\">"
           "<v:userSource id=\"source0\"/></v:visualization>"),
      HasSubstr("<v:embeddedSource id=\"source0\"><v:column name=\"a\"/><v:column name=\"b\"/><v:data>1;"));
}

TEST_F(DataDumpTest, TakesAChartWithoutNamespace) {
  EXPECT_THAT(join("<visualization><userSource id=\"source0\"/></visualization>"),
              HasSubstr("<visualization><embeddedSource id=\"source0\"><column name=\"a\"/>"));
}

TEST_F(DataDumpTest, WritesNumbersAsTheMarkupHasThem) {
  column("source1", "c", {0.1, 1e17, infinity, -infinity, std::numeric_limits<double>::quiet_NaN(), 100000});
  EXPECT_THAT(join(chart("")), HasSubstr("<data>0.1\n1e17\nINF\n-INF\nNaN\n100000\n</data>"));
}

TEST_F(DataDumpTest, HasALineForARowOfMissingValues) {
  column("source1", "c", {systemMissing, 1, systemMissing});
  EXPECT_THAT(join(chart("")), HasSubstr("<data>\n1\n\n</data>"));
}

TEST_F(DataDumpTest, WritesNamesSoThatTheyCanBeReadAgain) {
  column("source1", "M\xC3\xBCnchen \"<&>\" \x01", {1});
  std::string const text = join(chart(""));
  EXPECT_THAT(text, HasSubstr("<column name=\"M\xC3\xBCnchen &quot;&lt;&amp;>&quot; \"/>"));
  EXPECT_THAT(schemaErrors(text), IsEmpty());
}

TEST_F(DataDumpTest, WithoutSourcesIsTheChart) {
  EXPECT_EQ(EmbeddedDataDump().join(compressed(chart("<graph/>")), nullptr, 0, u"UTF-8"),
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>" + chart("<graph/>"));
}

TEST_F(DataDumpTest, IsInUtf8WhereNoEncodingIsGiven) {
  EXPECT_EQ(join(chart("<graph/>"), nullptr), join(chart("<graph/>"), u"utf-8"));
}

TEST_F(DataDumpTest, IsInTheEncodingThatIsAskedFor) {
  std::string const xml = chart("<graph id=\"caf\xC3\xA9 \xE2\x82\xAC\"/>");
  std::string const text = join(xml, u"ISO-8859-1");
  EXPECT_THAT(text, StartsWith("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><visualization"));
  EXPECT_THAT(text, HasSubstr("<graph id=\"caf\xE9 &#x20AC;\"/>"));
  EXPECT_THAT(schemaErrors(text), IsEmpty());
}

TEST_F(DataDumpTest, IsInUtf16WithAMark) {
  std::string const text = join(chart("<graph id=\"\xE2\x82\xAC\"/>"), u"UTF-16");
  EXPECT_EQ(text.substr(0, 6), std::string("\xFF\xFE<\0?\0", 6));
  EXPECT_THAT(text, HasSubstr("\xAC\x20"));
  EXPECT_THAT(schemaErrors(text), IsEmpty());
}

TEST_F(DataDumpTest, IsEmptyInAnEncodingThatNobodyKnows) { EXPECT_EQ(join(chart(""), u"no-such-thing"), ""); }

TEST_F(DataDumpTest, IsEmptyWhereTheChartIsNone) {
  for (char const* const xml : {"", "no markup", "<a>", "<a/><b/>", "<a b='&x;'/>"})
    EXPECT_EQ(join(xml), "") << xml;
}

TEST_F(DataDumpTest, IsEmptyWhereTheChartDoesNotDecompress) {
  EXPECT_EQ(EmbeddedDataDump().join("<a/>", nullptr, 0, u"UTF-8"), "");
}

TEST_F(DataDumpTest, IsEmptyWhereTheStreamIsCutAnywhereOrNone) {
  std::string const stream = streamOf(store);
  std::string const xml = compressed(chart(""));
  auto const joined = [&](std::string const& bytes) {
    return EmbeddedDataDump().join(xml, reinterpret_cast<unsigned char const*>(bytes.data()), bytes.size(),
                                   u"UTF-8");
  };
  EXPECT_NE(joined(stream), "");
  for (std::size_t size = 1; size < stream.size(); ++size)
    EXPECT_EQ(joined(stream.substr(0, size)), "") << size;
  EXPECT_EQ(joined(stream + "x"), "");
  EXPECT_EQ(EmbeddedDataDump().join(xml, nullptr, 8, u"UTF-8"), "");
}

TEST_F(DataDumpTest, SurvivesAStreamWithAnyByteChanged) {
  std::string const stream = streamOf(store);
  for (std::size_t at = 0; at < stream.size(); ++at) {
    for (char const value : {'\0', '\x01', '\x7F', '\xFF'}) {
      std::string changed = stream;
      changed[at] = value;
      auto const sources = readDataStream(changed);
      if (!sources) continue;
      for (StreamedSource const& source : *sources) {
        for (StreamedBatch const& batch : source.batches) {
          for (StreamedColumn const& column : batch.columns)
            for (std::size_t row = 0; row < batch.rows; ++row) static_cast<void>(column.cell(row));
        }
      }
    }
  }
}

TEST_F(DataDumpTest, LoadsNothingFromOutside) {
  EXPECT_EQ(join("<!DOCTYPE a [<!ENTITY x SYSTEM \"file:///etc/hostname\">]><a>&x;</a>").find("hostname\""),
            std::string::npos);
}

}  // namespace
