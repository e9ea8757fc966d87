// How a document comes to exist in each of its forms, what it starts with, and how it ends.

#include "xdocument.h"

#include "chart_test.h"
#include "document_record.h"
#include "failing_platform.h"
#include "story.h"
#include "xgraph.h"

#include "host/log.h"
#include "kestrelhost/conversion.h"
#include "kestrelhost/data_store.h"
#include "model/document.h"
#include "model/graph.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {
namespace {

using host::Operation;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char chartText[] = "<visualization xmlns=\"http://xml.vexa.example/visualization\" id=\"chart\"/>";

constexpr char started[] = "trace: Starting Chart Creation";
constexpr char ended[] = "trace: XDocument destructor finished.";

/// The trace of a document's whole life.
class Life : public ChartTest {
 protected:
  Life() {
    // A converter that takes everything.
    recorder.services().java->pdl = [](std::string const&, std::string& out) {
      out = chartText;
      return true;
    };
    recorder.services().java->upgrading = recorder.services().java->pdl;
  }

  /// The model holds the XML library ready by itself, from its first document on.
  LumoDocument first;
  /// How often the XML library was started and ended since then.
  PlatformCalls calls;
};

TEST_F(Life, OfANewChartStartsAndEndsTheXMLLibraryOnce) {
  {
    XDocument const document;
    EXPECT_TRUE(document.implementationExists());
    EXPECT_THAT(storyOf(recorder), ElementsAre(started));
  }
  EXPECT_THAT(storyOf(recorder), ElementsAre(started, ended));
  EXPECT_EQ(calls, (PlatformCalls{1, 1}));
}

TEST_F(Life, OfADocumentOnAChartMadeElsewhereStartsAndEndsTheXMLLibraryOnce) {
  { XDocument const document(first); }
  EXPECT_THAT(storyOf(recorder), ElementsAre(started, ended));
  EXPECT_EQ(calls, (PlatformCalls{1, 1}));
}

TEST_F(Life, OfChartTextStartsAndEndsTheXMLLibraryOnce) {
  {
    XDocument const document{std::string(chartText)};
    EXPECT_TRUE(document.implementationExists());
    EXPECT_THAT(storyOf(recorder), ElementsAre(started, "trace: Parsed lumoml"));
  }
  EXPECT_EQ(calls, (PlatformCalls{1, 1}));
  EXPECT_EQ(storyOf(recorder).back(), ended);
}

TEST_F(Life, OfAnEmptyTextEndsTheXMLLibraryWithoutHavingStartedIt) {
  {
    XDocument const document{std::string()};
    EXPECT_FALSE(document.implementationExists());
  }
  EXPECT_THAT(storyOf(recorder), ElementsAre("user: Unknown Error occurred while converting to LumoML2.0.",
                                             "log: Empty XML string received", ended));
  EXPECT_EQ(calls, (PlatformCalls{0, 1}));
}

TEST_F(Life, OfADescriptionInUTF8StartsAndEndsTheXMLLibraryOnce) {
  { XDocument const document("GRAPH", XDocument::UseUTF8); }
  EXPECT_EQ(storyOf(recorder).front(), started);
  EXPECT_EQ(storyOf(recorder).back(), ended);
  EXPECT_EQ(calls, (PlatformCalls{1, 1}));
}

TEST_F(Life, OfATextThatIsConvertedStartsAndEndsTheXMLLibraryOnce) {
  { XDocument const document("<graph/>", false, true); }
  EXPECT_EQ(storyOf(recorder).front(), started);
  EXPECT_EQ(storyOf(recorder).back(), ended);
  EXPECT_EQ(calls, (PlatformCalls{1, 1}));
}

TEST_F(Life, OfATemplateFileStartsTheXMLLibraryTwiceAndEndsItOnce) {
  recorder.services().files->content["/base/template/bar.lumotemplate"] = chartText;
  {
    XDocument const document("bar.lumotemplate", 7);
    EXPECT_TRUE(document.implementationExists());
  }
  EXPECT_THAT(storyOf(recorder),
              ElementsAre(started, "PathInstance::getBasePath", "fetch /base/template/bar.lumotemplate",
                          started, "trace: Parsed lumoml", ended));
  EXPECT_EQ(calls, (PlatformCalls{2, 1}));
}

TEST_F(Life, OfATemplateFileThatIsNotThereStartsAndEndsTheXMLLibraryOnce) {
  {
    XDocument const document("bar.lumotemplate", 7);
    EXPECT_FALSE(document.implementationExists());
  }
  EXPECT_THAT(storyOf(recorder), ElementsAre(started, "PathInstance::getBasePath",
                                             "fetch /base/template/bar.lumotemplate", ended));
  EXPECT_EQ(calls, (PlatformCalls{1, 1}));
}

TEST_F(Life, OfATemplateFileFetchesItWithBothFlags) {
  XDocument const document("bar.lumotemplate", 7);
  EXPECT_EQ(recorder.entries(Operation::Fetch).front().line(),
            "FetchFile::fetch(name=\"/base/template/bar.lumotemplate\", first=true, second=true)");
  EXPECT_EQ(recorder.entries(Operation::BasePath).front().number("kind"), 3);
}

TEST_F(Life, OfATemplateFilePutsNoSeparatorBehindTheBaseFolder) {
  recorder.services().paths->base = "/base";
  XDocument const document("bar.lumotemplate", 7);
  EXPECT_EQ(recorder.entries(Operation::Fetch).front().text("name"), "/basetemplate/bar.lumotemplate");
}

TEST_F(Life, OfSeveralDocumentsMayOverlap) {
  auto earlier = std::make_unique<XDocument>();
  XDocument const later{std::string(chartText)};
  earlier.reset();
  XDocument const last{std::string(chartText)};
  EXPECT_EQ(later.AsUTF8(), last.AsUTF8());
}

TEST_F(Life, OfManyUnevenDocumentsLeavesTheXMLLibraryUsable) {
  for (int count = 0; count < 20; ++count) XDocument const empty{std::string()};
  XDocument const document{std::string(chartText)};
  EXPECT_TRUE(document.implementationExists());
}

TEST_F(Life, DoesNotEndTheChartThatWasGiven) {
  LumoDocument chart;
  {
    XDocument document(chart);
    document.SetName(u"kept");
  }
  EXPECT_EQ(attribute(chart.getVisualization(), u"name"), "kept");
}

class XMLLibrary : public ChartTest {
 protected:
  LumoDocument first;
  PlatformCalls calls;
};

TEST_F(XMLLibrary, ThatDoesNotStartIsLoggedByItsOwnMessageAndNothingElse) {
  calls.failStart();
  EXPECT_NO_THROW(XDocument::initialize());
  EXPECT_THAT(storyOf(recorder), ElementsAre(started, "log: " + PlatformCalls::failureMessage()));
}

TEST_F(XMLLibrary, ThatDoesNotEndIsLoggedByItsOwnMessageAndNothingElse) {
  calls.failEnd();
  EXPECT_NO_THROW(XDocument::terminate());
  EXPECT_THAT(storyOf(recorder), ElementsAre("log: " + PlatformCalls::failureMessage()));
}

TEST_F(XMLLibrary, LetsOtherFailuresPassToTheCaller) {
  calls.actAtStart([] { throw OrdinaryFailure(); });
  EXPECT_THROW(XDocument::initialize(), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(XMLLibrary, LetsOtherFailuresOfItsEndPassToTheCaller) {
  calls.actAtEnd([] { throw OrdinaryFailure(); });
  EXPECT_THROW(XDocument::terminate(), OrdinaryFailure);
  expectNoReport(recorder);
}

TEST_F(XMLLibrary, IsStartedWithItsUsualLocale) {
  XDocument::initialize();
  EXPECT_EQ(calls.locale(), "en_US");
  XDocument::terminate();
}

TEST_F(XMLLibrary, LeavesNoTraceWhereItIsEnded) {
  XDocument::terminate();
  EXPECT_THAT(storyOf(recorder), IsEmpty());
}

class NewDocument : public ChartTest {};

TEST_F(NewDocument, StartsWithWhatNobodyHasAskedFor) {
  XDocument document;
  auto const& record = recordOf(document);
  EXPECT_TRUE(record.mDescription.empty());
  EXPECT_TRUE(record.mComment.empty());
  EXPECT_NE(record.mDocument, nullptr);
  EXPECT_THAT(record.mTemplates, IsEmpty());
  EXPECT_THAT(record.mInlineTemplates, IsEmpty());
  EXPECT_THAT(record.mCSVFiles, IsEmpty());
  EXPECT_EQ(record.mChartData, nullptr);
  EXPECT_FALSE(record.mChartDataExternal);
  EXPECT_TRUE(record.mOwnsDocument);
  EXPECT_EQ(record.mGraph, nullptr);
  EXPECT_FALSE(record.mDoNotModify);
  EXPECT_FALSE(record.mKeepFileTemplates);
  EXPECT_EQ(record.mEditable, 0);
  EXPECT_EQ(record.mEditor, 1);
  EXPECT_TRUE(record.mAddDefaultLooks);
  EXPECT_TRUE(record.mAdvancedCheck);
  EXPECT_FALSE(record.mTableSwatch);
  EXPECT_EQ(record.mStyleSheet, "");
  EXPECT_EQ(record.mStyleSheetName, "");
  EXPECT_FALSE(record.mUseUTF8);
  EXPECT_TRUE(record.mApplyCTemplate);
  EXPECT_EQ(record.mDataMap, "");
  EXPECT_EQ(record.mDataMapName, "");
  EXPECT_EQ(record.mRefMap, "");
  EXPECT_EQ(record.mRefMapName, "");
  EXPECT_THAT(record.mColorSpecs, IsEmpty());
  EXPECT_EQ(record.mOuterFrame, 0);
  EXPECT_EQ(record.mInnerFrame, 0);
  EXPECT_EQ(record.mXAxisGridlines, 0);
  EXPECT_EQ(record.mYAxisGridlines, 0);
  EXPECT_EQ(record.mParser, nullptr);
}

TEST_F(NewDocument, HasAnEmptyChartOfItsOwn) {
  XDocument const document;
  EXPECT_THAT(childTags(*document.getVisualization()), IsEmpty());
  EXPECT_EQ(attribute(document.getVisualization(), u"id"), "(absent)");
}

TEST_F(NewDocument, OnAChartMadeElsewhereRefersToIt) {
  LumoDocument chart;
  XDocument document(chart);
  EXPECT_EQ(recordOf(document).mDocument, &chart);
  EXPECT_FALSE(recordOf(document).mOwnsDocument);
  EXPECT_EQ(document.getVisualization(), chart.getVisualization());
}

TEST_F(NewDocument, FromTextOwnsItsChartAndItsParser) {
  XDocument document{std::string(chartText)};
  EXPECT_TRUE(recordOf(document).mOwnsDocument);
  EXPECT_NE(recordOf(document).mParser, nullptr);
  EXPECT_FALSE(recordOf(document).mUseUTF8);
}

TEST_F(NewDocument, FromADescriptionInUTF8RemembersThat) {
  XDocument document("GRAPH", XDocument::UseUTF8);
  EXPECT_TRUE(recordOf(document).mUseUTF8);
  EXPECT_NE(recordOf(document).mParser, nullptr);
}

TEST_F(NewDocument, FromADescriptionDoesNotLookAtTheValueOfTheTag) {
  XDocument document("GRAPH", static_cast<XDocument::USE_UTF8>(0));
  EXPECT_TRUE(recordOf(document).mUseUTF8);
}

TEST_F(NewDocument, ThatIsConvertedHasAParserAlsoWhereTheConversionFails) {
  XDocument document("<graph/>", false, true);
  EXPECT_FALSE(document.implementationExists());
  EXPECT_NE(recordOf(document).mParser, nullptr);
}

TEST_F(NewDocument, FromTextKeepsAddingItsLooksForLater) {
  XDocument document{std::string(chartText)};
  EXPECT_TRUE(recordOf(document).mAddDefaultLooks);
}

TEST_F(NewDocument, GivesItsChartAsText) {
  LumoDocument chart;
  XDocument document(chart);
  document.SetName(u"ears");
  EXPECT_EQ(document.AsUTF8(), chart.AsUTF8());
  EXPECT_NE(document.AsUTF8().find("name=\"ears\""), std::string::npos);
}

class EmptyDocument : public ChartTest {
 protected:
  EmptyDocument() { recorder.clear(); }

  XDocument document{std::string()};
};

TEST_F(EmptyDocument, SaysThatItHasNoChart) { EXPECT_FALSE(document.implementationExists()); }

TEST_F(EmptyDocument, HasAnEmptyText) { EXPECT_EQ(document.AsUTF8(), ""); }

TEST_F(EmptyDocument, HasNoVisualizationToGive) { EXPECT_THROW(document.getVisualization(), ChartException); }

TEST_F(EmptyDocument, IgnoresAName) {
  EXPECT_NO_THROW(document.SetName(u"name"));
  EXPECT_THAT(recorder.entries(), IsEmpty());
}

/// Tells when it ends.
template <typename Part>
class Telling : public Part {
 public:
  template <typename... Arguments>
  explicit Telling(std::function<void()> tell, Arguments&&... arguments)
      : Part(std::forward<Arguments>(arguments)...), mTell(std::move(tell)) {}
  ~Telling() override { mTell(); }

 private:
  std::function<void()> mTell;
};

class EndOfDocument : public ChartTest {
 protected:
  EndOfDocument() {
    auto& record = recordOf(*document);
    delete record.mDocument;
    record.mDocument = new Telling<LumoDocument>(note("chart"));
    record.mGraph.reset(new Telling<XGraph>(note("graph"), *record.mDocument->getVisualization()));
    record.mMadeData = std::make_unique<VarDataProcessor>();
    record.mClearedData = std::make_unique<VarDataProcessor>();
    record.mParser = std::make_unique<Telling<xercesc::XercesDOMParser>>(note("parser"));
    calls.actAtEnd(note("XML library"));
    recorder.actAt(Operation::PrintDebugInfo, 1, note("trace"));
  }

  /// A note that something ends, and before it that of the stores, which cannot tell by themselves.
  std::function<void()> note(char const* name) {
    return [this, name] {
      if (mStoresThere && host::liveStores() == mStoresBefore) {
        gone.emplace_back("stores");
        mStoresThere = false;
      }
      gone.emplace_back(name);
    };
  }

  std::vector<std::string> gone;
  LumoDocument first;
  PlatformCalls calls;
  std::unique_ptr<XDocument> document = std::make_unique<XDocument>();

 private:
  std::size_t const mStoresBefore = host::liveStores();
  bool mStoresThere = true;
};

TEST_F(EndOfDocument, FreesEachPartBeforeWhatItStandsOn) {
  document.reset();
  EXPECT_THAT(gone, ElementsAre("graph", "stores", "chart", "parser", "XML library", "trace"));
}

TEST_F(EndOfDocument, LeavesAChartAloneThatIsNotItsOwn) {
  std::unique_ptr<LumoDocument> const chart(recordOf(*document).mDocument);
  recordOf(*document).mOwnsDocument = false;
  document.reset();
  EXPECT_THAT(gone, ElementsAre("graph", "stores", "parser", "XML library", "trace"));
}

using EndOfDocumentDeathTest = ChartTest;

TEST_F(EndOfDocumentDeathTest, EndsTheProcessWhereTheTraceFails) {
  EXPECT_DEATH(
      {
        auto document = std::make_unique<XDocument>();
        recorder.throwEvery(Operation::PrintDebugInfo, OrdinaryFailure());
        document.reset();
      },
      "");
}

}  // namespace
}  // namespace kestrel::test
