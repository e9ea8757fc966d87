#include "kestrelhost/recorder.h"

#include "host/channel.h"
#include "host/chartbase.h"
#include "host/data_store.h"
#include "host/files.h"
#include "host/locale.h"
#include "host/log.h"
#include "host/text.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace kestrel::host;

namespace {

class RecorderTest : public testing::Test {
 protected:
  RecorderTest() : scope(recorder.host()) {}

  Recorder recorder;
  ScopedHost scope;
};

using Lines = std::vector<std::string>;

TEST_F(RecorderTest, NotesTheCallsOfAllServicesInOneOrder) {
  ChartBase::printDebugInfo("start");
  BpError(BpString("no", true), BpShowUser, BpLevelError);
  ChartErrorHandler().error(ChartException("failed", "a.cpp", 3));
  FetchFile().fetch("a", true, true);
  FacSTDictionary dictionary("/base/en/");
  dictionary.SetProcedure("GRAPH");
  dictionary.LookUp("Monday");
  OLang().GetLanguageCode();
  EXPECT_EQ(recorder.lines(), (Lines{"ChartBase::printDebugInfo(line=\"start\")",
                                     "BpError(text=\"no\", fixed=true, show=2, level=2)",
                                     "ChartErrorHandler::error(message=\"failed\", file=\"a.cpp\", line=3)",
                                     "FetchFile::fetch(name=\"a\", first=true, second=true)",
                                     "FacSTDictionary::FacSTDictionary(path=\"/base/en/\")",
                                     "FacSTDictionary::SetProcedure(procedure=\"GRAPH\")",
                                     "FacSTDictionary::LookUp(key=\"Monday\")", "OLang::GetLanguageCode()"}));
}

TEST_F(RecorderTest, NotesTheCallsOfADataStore) {
  VarDataProcessor store;
  store.AddDataSource("source0", 0);
  store.AddVariable("source0", "x", nullptr);
  store.SetVariableValue("source0", "x", 0, 1.5);
  store.GetRowCount("source0");
  store.GetDataPointer("source0", "x");
  Lines names;
  store.GetSourceNames(names);
  store.GetVariableNames("source0", names);
  unsigned int size = 0;
  delete[] store.GetDataStream(size);
  EXPECT_EQ(
      recorder.lines(),
      (Lines{"VarDataProcessor::AddDataSource(source=\"source0\", rows=0)",
             "VarDataProcessor::AddVariable(source=\"source0\", column=\"x\")",
             "VarDataProcessor::SetVariableValue(source=\"source0\", column=\"x\", row=0, value=1.5)",
             "VarDataProcessor::GetRowCount(source=\"source0\")",
             "VarDataProcessor::GetDataPointer(source=\"source0\", column=\"x\")",
             "VarDataProcessor::GetSourceNames()", "VarDataProcessor::GetVariableNames(source=\"source0\")",
             "VarDataProcessor::GetDataStream()"}));
}

TEST_F(RecorderTest, WatchesNoStoreAfterItsScope) {
  VarDataProcessor store;
  {
    Recorder inner;
    ScopedHost const innerScope(inner.host());
    store.AddDataSource("source0", 0);
    EXPECT_EQ(inner.count(Operation::AddDataSource), 1u);
  }
  store.AddDataSource("source1", 0);
  EXPECT_EQ(recorder.count(Operation::AddDataSource), 1u);
}

TEST_F(RecorderTest, MakesTheOperationsOfAStoreFail) {
  VarDataProcessor store;
  for (auto operation : {Operation::AddVariable, Operation::SetVariableValue, Operation::GetRowCount,
                         Operation::GetDataPointer, Operation::GetSourceNames, Operation::GetDataStream}) {
    recorder.failAt(operation, 1);
  }
  store.AddDataSource("source0", 0);
  EXPECT_FALSE(store.AddVariable("source0", "x", nullptr));
  EXPECT_TRUE(store.AddVariable("source0", "x", nullptr));
  EXPECT_FALSE(store.SetVariableValue("source0", "x", 0, 1));
  EXPECT_TRUE(store.SetVariableValue("source0", "x", 0, 1));
  EXPECT_EQ(store.GetRowCount("source0"), 0u);
  EXPECT_EQ(store.GetRowCount("source0"), 1u);
  EXPECT_EQ(store.GetDataPointer("source0", "x"), nullptr);
  Lines names = {"left from before"};
  store.GetSourceNames(names);
  EXPECT_TRUE(names.empty());
  unsigned int size = 1;
  EXPECT_EQ(store.GetDataStream(size), nullptr);
  EXPECT_EQ(size, 0u);
}

TEST_F(RecorderTest, ThrowsWhatItIsToldAtTheCallThatItIsTold) {
  recorder.throwAt(Operation::PrintDebugInfo, 2, VexaGoToCaller());
  EXPECT_NO_THROW(ChartBase::printDebugInfo("first"));
  EXPECT_THROW(ChartBase::printDebugInfo("second"), VexaGoToCaller);
  EXPECT_NO_THROW(ChartBase::printDebugInfo("third"));
  EXPECT_EQ(recorder.trace(), (Lines{"first", "second", "third"}));
}

TEST_F(RecorderTest, CountsCallsFromTheMomentItIsTold) {
  ChartBase::printDebugInfo("before");
  recorder.throwAt(Operation::PrintDebugInfo, 1, std::runtime_error("x"));
  EXPECT_THROW(ChartBase::printDebugInfo("now"), std::runtime_error);
}

TEST_F(RecorderTest, MayThrowAtEveryCallUntilItBehaves) {
  recorder.throwEvery(Operation::Fetch, std::runtime_error("x"));
  EXPECT_THROW(FetchFile().fetch("a", true, true), std::runtime_error);
  EXPECT_THROW(FetchFile().fetch("a", true, true), std::runtime_error);
  recorder.behave();
  EXPECT_NO_THROW(FetchFile().fetch("a", true, true));
}

TEST_F(RecorderTest, MayFailAtEveryCall) {
  recorder.services().files->content["a"] = "x";
  recorder.failEvery(Operation::Fetch);
  EXPECT_EQ(FetchFile().fetch("a", true, true), "");
  EXPECT_EQ(FetchFile().fetch("a", true, true), "");
}

TEST_F(RecorderTest, RunsAnActionAtACall) {
  recorder.actAt(Operation::Fetch, 1, [this] { recorder.services().files->content["a"] = "made in time"; });
  EXPECT_EQ(FetchFile().fetch("a", true, true), "made in time");
}

TEST_F(RecorderTest, MakesADictionaryFail) {
  recorder.services().texts->texts["a"] = "x";
  recorder.failAt(Operation::OpenDictionary, 1);
  EXPECT_EQ(FacSTDictionary("/base/").LookUp("a"), "a");
  recorder.failAt(Operation::LookUp, 1);
  EXPECT_EQ(FacSTDictionary("/base/").LookUp("a"), "a");
  EXPECT_EQ(FacSTDictionary("/base/").LookUp("a"), "x");
}

TEST_F(RecorderTest, MayIgnoreAnOperationAndStillCountIt) {
  recorder.ignore(Operation::PrintDebugInfo);
  ChartBase::printDebugInfo("a");
  EXPECT_TRUE(recorder.entries().empty());
  EXPECT_EQ(recorder.count(Operation::PrintDebugInfo), 1u);
}

TEST_F(RecorderTest, ForgetsWhatItNotedAndKeepsWhatIsDue) {
  recorder.throwAt(Operation::PrintDebugInfo, 2, VexaGoToCaller());
  ChartBase::printDebugInfo("a");
  recorder.clear();
  EXPECT_TRUE(recorder.entries().empty());
  EXPECT_EQ(recorder.count(Operation::PrintDebugInfo), 0u);
  EXPECT_THROW(ChartBase::printDebugInfo("b"), VexaGoToCaller);
}

TEST_F(RecorderTest, DoesNotRepeatWhatHappenedBeforeItForgot) {
  recorder.throwAt(Operation::PrintDebugInfo, 1, VexaGoToCaller());
  EXPECT_THROW(ChartBase::printDebugInfo("a"), VexaGoToCaller);
  recorder.clear();
  EXPECT_NO_THROW(ChartBase::printDebugInfo("b"));
}

TEST_F(RecorderTest, ShowsBytesByTheirNumber) {
  std::int64_t const identifier = 307, zero = 0, length = 3;
  IpcPutC(&identifier, &zero, &length, "\0\1\2", &zero);
  EXPECT_EQ(recorder.lines(), Lines{"IpcPutC(identifier=307, bytes=3 bytes)"});
  EXPECT_EQ(recorder.entries()[0].text("bytes").size(), 3u);
}

TEST_F(RecorderTest, GivesArgumentsByNameAndType) {
  FetchFile().fetch("a.csv", true, false);
  Entry const entry = recorder.entries(Operation::Fetch).at(0);
  EXPECT_EQ(entry.text("name"), "a.csv");
  EXPECT_FALSE(entry.flag("second"));
  EXPECT_TRUE(entry.has("first"));
  EXPECT_FALSE(entry.has("third"));
  EXPECT_THROW(static_cast<void>(entry.text("third")), std::out_of_range);
  EXPECT_THROW(static_cast<void>(entry.number("name")), std::out_of_range);
}

TEST_F(RecorderTest, RecordsAnotherHost) {
  MemoryServices services;
  services.locale->language = "ru";
  Recorder other(services.host());
  ScopedHost const otherScope(other.host());
  EXPECT_EQ(OLang().GetLanguageCode(), "ru");
  EXPECT_EQ(other.count(Operation::LanguageCode), 1u);
  EXPECT_EQ(recorder.count(Operation::LanguageCode), 0u);
}

TEST_F(RecorderTest, MayBeGoneBeforeItsHost) {
  Host host;
  {
    Recorder other;
    host = other.host();
  }
  ScopedHost const otherScope(host);
  EXPECT_EQ(OLang().GetLanguageCode(), "en");
}

TEST(OperationTest, HasANameOfItsOwn) {
  EXPECT_EQ(nameOf(Operation::Error), "ChartErrorHandler::error");
  EXPECT_EQ(nameOf(Operation::IpcPutC), "IpcPutC");
  EXPECT_EQ(nameOf(Operation::BreakUpDate), "iVexa2DMY");
  EXPECT_EQ(nameOf(Operation::ConvertTemplate), "ClientAdapter::ConvertClientLumoTemplate");
  EXPECT_EQ(nameOf(Operation::GetDataStream), "VarDataProcessor::GetDataStream");
}

}  // namespace
