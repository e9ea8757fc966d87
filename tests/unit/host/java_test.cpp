#include "host/java.h"

#include "kestrelhost/recorder.h"

#include <gtest/gtest.h>

using namespace kestrel::host;

namespace {

class NoJavaTest : public testing::Test {
 protected:
  NoJavaTest() : recorder(host()), scope(recorder.host()) {}

  static Host host() {
    Host host = MemoryServices().host();
    host.java = std::make_shared<NoJava>();
    return host;
  }

  Recorder recorder;
  ScopedHost scope;
};

TEST_F(NoJavaTest, HasAMachineThatDoesNotStart) {
  VexaJVM* const machine = VexaJVM::GetInstance();
  ASSERT_NE(machine, nullptr);
  EXPECT_FALSE(machine->IsStarted());
  EXPECT_FALSE(machine->StartJVM());
  EXPECT_FALSE(machine->IsStarted());
  EXPECT_EQ(machine->GetEnv(), nullptr);
  EXPECT_EQ(recorder.entries(Operation::Note).at(0).text("message"),
            "this host has no Java side: the Java machine does not start");
}

TEST_F(NoJavaTest, GivesAThreadNoEnvironment) {
  char mark = 0;
  auto* environment = reinterpret_cast<JNIEnv_*>(&mark);
  EXPECT_NE(VexaJVM::GetInstance()->AttachCurrentThread(&environment), 0);
  EXPECT_EQ(environment, nullptr);
}

TEST_F(NoJavaTest, HasNoConverter) { EXPECT_EQ(LumoConverter::GetInstance(), nullptr); }

TEST_F(NoJavaTest, AppliesNoStyleSheet) {
  EXPECT_EQ(plotDeskConverter::GetInstance()->applyStyleSheet("sheet", "<visualization/>"), "");
  EXPECT_EQ(recorder.count(Operation::Note), 1u);
}

TEST_F(NoJavaTest, ConvertsNoTemplate) {
  EXPECT_EQ(GetAdapter()->ConvertClientLumoTemplate("<request/>"), "");
  EXPECT_EQ(recorder.count(Operation::Note), 1u);
}

class ScriptedJavaTest : public testing::Test {
 protected:
  ScriptedJavaTest() : java(*recorder.services().java), scope(recorder.host()) {}

  Recorder recorder;
  ScriptedJava& java;
  ScopedHost scope;
};

TEST_F(ScriptedJavaTest, StartsItsMachine) {
  VexaJVM* const machine = VexaJVM::GetInstance();
  EXPECT_FALSE(machine->IsStarted());
  EXPECT_TRUE(machine->StartJVM());
  EXPECT_TRUE(machine->IsStarted());
  JNIEnv_* environment = nullptr;
  EXPECT_EQ(machine->AttachCurrentThread(&environment), 0);
  EXPECT_NE(environment, nullptr);
  EXPECT_EQ(machine->GetEnv(), environment);
}

TEST_F(ScriptedJavaTest, GivesTheSameObjectsEachTime) {
  EXPECT_EQ(VexaJVM::GetInstance(), VexaJVM::GetInstance());
  EXPECT_EQ(LumoConverter::GetInstance(), LumoConverter::GetInstance());
  EXPECT_EQ(plotDeskConverter::GetInstance(), plotDeskConverter::GetInstance());
  EXPECT_EQ(GetAdapter(), GetAdapter());
}

TEST_F(ScriptedJavaTest, MayBeThereOnlyInPart) {
  java.machineThere = false;
  EXPECT_EQ(VexaJVM::GetInstance(), nullptr);
  java.converterThere = false;
  EXPECT_EQ(LumoConverter::GetInstance(), nullptr);
  java.environmentThere = false;
  JNIEnv_* environment = nullptr;
  java.attachThread(&environment);
  EXPECT_EQ(environment, nullptr);
}

TEST_F(ScriptedJavaTest, ConvertsAsItIsTold) {
  java.pdl = [](std::string const& in, std::string& out) {
    out = "<visualization " + in + "/>";
    return true;
  };
  java.message = "line 1: no";
  LumoConverter& converter = *LumoConverter::GetInstance();
  EXPECT_FALSE(converter.IsStarted());
  EXPECT_TRUE(converter.StartConverter(nullptr));
  EXPECT_TRUE(converter.IsStarted());
  std::string out;
  EXPECT_TRUE(converter.PDLtoXML("x", out));
  EXPECT_EQ(out, "<visualization x/>");
  EXPECT_FALSE(converter.UpgradeXML("<graph/>", out));
  EXPECT_EQ(converter.GetErrorMessage(), "line 1: no");
}

TEST_F(ScriptedJavaTest, PassesStyleSheetAndChartInTheirOrder) {
  java.styleSheets = [](std::string const& sheet, std::string const& chart) { return sheet + "|" + chart; };
  EXPECT_EQ(plotDeskConverter::GetInstance()->applyStyleSheet("sheet", "chart"), "sheet|chart");
  EXPECT_EQ(recorder.lines().back(),
            "plotDeskConverter::applyStyleSheet(styleSheet=\"sheet\", chart=\"chart\")");
}

TEST_F(ScriptedJavaTest, AnswersTemplateRequests) {
  java.templates = [](std::string const& request) { return "reply to " + request; };
  EXPECT_EQ(GetAdapter()->ConvertClientLumoTemplate("<request/>"), "reply to <request/>");
}

TEST_F(ScriptedJavaTest, ThrowsItsFailuresByValueOrByPointer) {
  JException failure("no memory");
  recorder.throwAt(Operation::PDLtoXML, 1, failure);
  recorder.throwAt(Operation::PDLtoXML, 2, &failure);
  std::string out;
  EXPECT_THROW(LumoConverter::GetInstance()->PDLtoXML("x", out), JException);
  try {
    LumoConverter::GetInstance()->PDLtoXML("x", out);
    FAIL() << "returned";
  } catch (JException* thrown) {  // NOLINT(misc-throw-by-value-catch-by-reference)
    EXPECT_EQ(thrown->getMessage(), "no memory");
  }
}

TEST(JExceptionTest, KeepsItsMessage) {
  JException const failure("text");
  JException copy;
  EXPECT_EQ(copy.getMessage(), "");
  copy = failure;
  EXPECT_EQ(copy.getMessage(), "text");
}

}  // namespace
