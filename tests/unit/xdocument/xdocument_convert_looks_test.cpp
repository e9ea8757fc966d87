// The looks that a converted chart gets at once, and which its completion does not add again.

#include "xdocument.h"

#include "conversion_fixture.h"
#include "document_record.h"

#include "host/messages.h"
#include "model/document.h"
#include "model/graph.h"
#include "model/style.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>

namespace kestrel::test {

/// A conversion behind the constructor, where the document can be told first what it may not do.
void convertAgain(XDocument& document, std::string const& text);

template <auto Convert>
struct ConversionAccess {
  friend void convertAgain(XDocument& document, std::string const& text) {
    (document.*Convert)(text, XDocument::ConvertFromPDL, true);
  }
};

// The names in an explicit instantiation may be private.
template struct ConversionAccess<&XDocument::convertXML>;

namespace {

using host::Operation;
using ::testing::ElementsAre;

/// An old chart whose one graph stands in a container, with a colour in the container style and a text that
/// is looked up.
constexpr char oldChart[] =
    "<visualization xmlns='http://xml.vexa.example/visualization' version='1.4'>"
    "<container><graph id='g'/></container>"
    "<style id='container' color='#123456'/>"
    "<labelFrame id='frame_title_1'><label purpose='1'><text>Sales</text></label></labelFrame>"
    "</visualization>";

class ConvertedLooks : public ConversionTest {
 protected:
  ConvertedLooks() { takes(oldChart); }

  static bool keepsColor(XDocument const& document) {
    return attribute(document.getVisualization()->getStyles().front(), u"color") == "#123456";
  }

  /// The stamp that every one of the looks ends with.
  static bool isDated(XDocument const& document) {
    return attribute(document.getVisualization(), u"date") != "(absent)";
  }
};

TEST_F(ConvertedLooks, OfADescriptionTakeTheGraphOutOfItsContainerAndKeepTheStyles) {
  XDocument const document = fromPDL("chart");
  EXPECT_EQ(document.getVisualization()->getGraphs().size(), 1u);
  EXPECT_TRUE(keepsColor(document));
  EXPECT_TRUE(isDated(document));
}

TEST_F(ConvertedLooks, OfOldMarkupEmptyTheStylesAndLeaveTheGraphWhereItIs) {
  XDocument const document = fromLumoML14("<graph/>");
  EXPECT_TRUE(document.getVisualization()->getGraphs().empty());
  EXPECT_FALSE(keepsColor(document));
  EXPECT_TRUE(isDated(document));
}

TEST_F(ConvertedLooks, OfOldMarkupKnownByItsRootAreTheSame) {
  XDocument const document{std::string("<graph/>")};
  EXPECT_FALSE(keepsColor(document));
  EXPECT_TRUE(isDated(document));
}

TEST_F(ConvertedLooks, AreNotAddedAgainAtCompletion) {
  XDocument description = fromPDL("chart");
  EXPECT_FALSE(recordOf(description).mAddDefaultLooks);
  XDocument old = fromLumoML14("<graph/>");
  EXPECT_FALSE(recordOf(old).mAddDefaultLooks);
}

TEST_F(ConvertedLooks, AreLeftToCompletionForTextInCurrentMarkup) {
  XDocument document{std::string(current)};
  EXPECT_TRUE(recordOf(document).mAddDefaultLooks);
  EXPECT_FALSE(isDated(document));
}

TEST_F(ConvertedLooks, AreNotForAChartThatIsToStayAsItIs) {
  for (bool const keepFileTemplates : {false, true}) {
    XDocument document{std::string(current)};
    document.doNotModify(keepFileTemplates);
    delete std::exchange(recordOf(document).mDocument, nullptr);
    convertAgain(document, "chart");
    EXPECT_TRUE(document.getVisualization()->getGraphs().empty());
    EXPECT_FALSE(isDated(document));
    EXPECT_TRUE(recordOf(document).mAddDefaultLooks);
  }
}

TEST_F(ConvertedLooks, ThatFailAreReportedAndLeaveTheChartToCompletion) {
  recorder.throwAt(Operation::OpenDictionary, 1, OrdinaryFailure());
  XDocument document = fromPDL("chart");
  EXPECT_TRUE(document.implementationExists());
  EXPECT_TRUE(recordOf(document).mAddDefaultLooks);
  EXPECT_THAT(reports(), ElementsAre(unknownError, "log: Error in XDocument::convertXML() - exception"));
}

TEST_F(ConvertedLooks, LetTheHostsSignalThrough) {
  recorder.throwAt(Operation::OpenDictionary, 1, VexaGoToCaller());
  EXPECT_THROW(fromPDL("chart"), VexaGoToCaller);
  expectNoReport(recorder);
}

}  // namespace
}  // namespace kestrel::test
