// Text from outside that is cut, changed, or in another encoding than expected: it becomes a chart, or the
// user is told why not.

#include "xdocument.h"

#include "conversion_fixture.h"

#include "model/chartstring.h"
#include "model/document.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <string>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::StartsWith;

constexpr char chart[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<visualization xmlns=\"http://xml.vexa.example/visualization\" name=\"Gr\u00f6\u00dfe &amp; \u65e5\">"
    "<graph id=\"g\"><point><x variable=\"v\"/></point></graph><!-- c --><![CDATA[ d ]]>"
    "<sourceVariable id='v' label='&lt;&#65;&gt;'/></visualization>";

class BrokenText : public ConversionTest {
 protected:
  /// Takes the text, or tells the user, and nothing else.
  void expectTakenOrTold(std::string const& text, std::size_t at) {
    recorder.clear();
    bool const taken = XDocument(text).implementationExists();
    EXPECT_EQ(recorder.count(Operation::BpError), taken ? 0u : 1u) << "at " << at << ": " << text;
  }

  static std::string nameOf(std::string const& text) {
    XDocument const document(text);
    return document.implementationExists() ? attribute(document.getVisualization(), u"name") : "(refused)";
  }
};

TEST_F(BrokenText, WithAnyByteFlippedIsTakenOrTold) {
  for (int const flip : {0x01, 0x20, 0x80, 0xff}) {
    for (std::size_t at = 0; at < sizeof chart - 1; ++at) {
      std::string text = chart;
      text[at] = static_cast<char>(text[at] ^ flip);
      expectTakenOrTold(text, at);
    }
  }
}

TEST_F(BrokenText, CutAnywhereIsTold) {
  for (std::size_t length = 1; length < sizeof chart - 1; ++length) {
    recorder.clear();
    EXPECT_FALSE(XDocument(std::string(chart, length)).implementationExists()) << length;
    EXPECT_EQ(recorder.count(Operation::BpError), 1u) << length;
  }
}

TEST_F(BrokenText, WithAnyByteLeftOutIsTakenOrTold) {
  for (std::size_t at = 0; at < sizeof chart - 1; ++at)
    expectTakenOrTold(std::string(chart).erase(at, 1), at);
}

TEST_F(BrokenText, MayBeginWithAByteOrderMark) {
  EXPECT_EQ(nameOf(std::string("\xEF\xBB\xBF") + chart), "Größe & 日");
}

std::string utf16(std::string const& declared, bool bigEndian) {
  ChartString text;
  text.assignUTF8("\xEF\xBB\xBF<?xml version='1.0' encoding='" + declared +
                  "'?><visualization xmlns='http://xml.vexa.example/visualization' name='Größe 日'/>");
  std::string bytes;
  for (std::size_t at = 0; at < text.length(); ++at) {
    auto const unit = static_cast<unsigned int>(text.xc_str()[at]);
    char const low = static_cast<char>(unit & 0xffU);
    char const high = static_cast<char>(unit >> 8U);
    bytes += bigEndian ? high : low;
    bytes += bigEndian ? low : high;
  }
  return bytes;
}

TEST_F(BrokenText, MayBeInUTF16) {
  for (bool const bigEndian : {false, true}) EXPECT_EQ(nameOf(utf16("UTF-16", bigEndian)), "Größe 日");
}

TEST_F(BrokenText, IsReadInTheEncodingThatItDeclares) {
  EXPECT_EQ(nameOf("<?xml version='1.0' encoding='ISO-8859-1'?><visualization name='M\xE4rz'/>"), "März");
}

TEST_F(BrokenText, InAnotherEncodingThanItDeclaresIsTold) {
  EXPECT_EQ(nameOf("<?xml version='1.0' encoding='UTF-8'?><visualization name='M\xE4rz'/>"), "(refused)");
  EXPECT_THAT(recorder.userMessages().back().text, StartsWith("Failed to parse LumoML2.0."));
  EXPECT_EQ(nameOf("<?xml version='1.0' encoding='no-such'?><visualization name='x'/>"), "(refused)");
}

TEST_F(BrokenText, WhoseFirstBytesTellTheEncodingIsReadByThem) {
  // Relied upon by hosts that hand over UTF-8 and leave the declaration as it was in their file.
  EXPECT_EQ(nameOf("<?xml version='1.0' encoding='UTF-16'?><visualization name='M\u00e4rz'/>"), "März");
}

}  // namespace
}  // namespace kestrel::test
