// Java in this process. Each case has a process of its own, for a process has one virtual machine for ever.

#include "java_machine.h"
#include "temporary_folder.h"

#include "host/java.h"
#include "kestrelhost/recorder.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cfenv>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <thread>

using namespace kestrel::host;
using ::testing::AllOf;
using ::testing::AnyOf;
using ::testing::HasSubstr;

namespace {

class EmbeddedJavaTest : public testing::Test {
 protected:
  static JavaSettings homeAt(std::string const& home) {
    JavaSettings settings;
    settings.home = home;
    return settings;
  }

  static JavaSettings archivesIn(std::string const& archives) {
    JavaSettings settings;
    settings.archives = archives;
    return settings;
  }

  static JavaSettings heapOf(unsigned int mebibytes) {
    JavaSettings settings;
    settings.heap = mebibytes;
    return settings;
  }

  /// Puts a host in force whose Java side has those settings.
  void use(JavaSettings const& settings = {}) {
    scope.reset();
    recorder.reset();
    Host host = services.host();
    host.java = makeJava(settings);
    recorder.emplace(host);
    scope.emplace(recorder->host());
  }

  /// Starts all there is to start.
  void start() {
    ASSERT_TRUE(VexaJVM::GetInstance()->StartJVM());
    JNIEnv_* environment = nullptr;
    ASSERT_EQ(VexaJVM::GetInstance()->AttachCurrentThread(&environment), 0);
    ASSERT_NE(LumoConverter::GetInstance(), nullptr);
    ASSERT_TRUE(LumoConverter::GetInstance()->StartConverter(environment));
  }

  /// The only line in the log.
  std::string line() {
    auto const notes = recorder->entries(Operation::Note);
    return notes.size() == 1 ? notes.front().text("message") : std::to_string(notes.size()) + " lines";
  }

  TemporaryFolder folder;
  MemoryServices services;
  std::optional<Recorder> recorder;
  std::optional<ScopedHost> scope;
};

TEST_F(EmbeddedJavaTest, WithoutARuntimeHasNoMachineAndSaysWhereItLooked) {
  use(homeAt(folder.path()));
  EXPECT_EQ(VexaJVM::GetInstance(), nullptr);
  EXPECT_THAT(line(),
              AllOf(HasSubstr("there is no virtual machine in " + folder.path() + "/lib/server/libjvm."),
                    HasSubstr("set JAVA_HOME")));
}

TEST_F(EmbeddedJavaTest, LooksInTheHomeOfTheEnvironmentFirst) {
  ::setenv("JAVA_HOME", folder.path().c_str(), 1);
  EXPECT_THAT(machineLibraries("").front(), HasSubstr(folder.path()));
  EXPECT_GT(machineLibraries("").size(), 1u);
}

TEST_F(EmbeddedJavaTest, LooksWhereTheCommandLeads) {
  ::unsetenv("JAVA_HOME");
  std::filesystem::create_directories(folder / "runtime/bin");
  folder.write("runtime/bin/java", "");
  std::filesystem::create_directory(folder / "commands");
  std::filesystem::create_symlink(folder / "runtime/bin/java", folder / "commands/java");
  ::setenv("PATH", ("/nowhere:" + (folder / "commands")).c_str(), 1);
  std::string const home = std::filesystem::canonical(folder / "runtime").string();
  EXPECT_THAT(machineLibraries("").front(), HasSubstr(home + "/lib/server/libjvm."));
}

#ifndef __APPLE__
TEST_F(EmbeddedJavaTest, SaysWhyAMachineCannotBeLoaded) {
  folder.write("lib/server/libjvm.so", "no library");
  use(homeAt(folder.path()));
  ASSERT_NE(VexaJVM::GetInstance(), nullptr);
  EXPECT_FALSE(VexaJVM::GetInstance()->StartJVM());
  EXPECT_FALSE(VexaJVM::GetInstance()->IsStarted());
  EXPECT_THAT(line(), AllOf(HasSubstr(folder / "lib/server/libjvm.so: "), HasSubstr("set JAVA_HOME")));
}
#endif

TEST_F(EmbeddedJavaTest, DoesNotLetTheMachineEndAProcessThatHasNoRoomForIt) {
  use(heapOf(1U << 30));
  EXPECT_FALSE(VexaJVM::GetInstance()->StartJVM());
  EXPECT_FALSE(VexaJVM::GetInstance()->IsStarted());
  EXPECT_THAT(line(), HasSubstr("MiB of address space"));
}

TEST_F(EmbeddedJavaTest, WithoutArchivesHasNoConverterAndSaysWhereItLooked) {
  use(archivesIn(folder.path()));
  ASSERT_TRUE(VexaJVM::GetInstance()->StartJVM());
  EXPECT_EQ(LumoConverter::GetInstance(), nullptr);
  EXPECT_THAT(line(), HasSubstr("there is no kestrel-java.jar in " + folder.path()));
}

TEST_F(EmbeddedJavaTest, LooksForArchivesInTheShareFolderFirst) {
  use();
  EXPECT_NE(LumoConverter::GetInstance(), nullptr);
  services.paths->base = folder.path() + "/";
  folder.write("java/kestrel-java.jar", "no archive");
  ASSERT_TRUE(VexaJVM::GetInstance()->StartJVM());
  JNIEnv_* environment = nullptr;
  ASSERT_EQ(VexaJVM::GetInstance()->AttachCurrentThread(&environment), 0);
  EXPECT_FALSE(LumoConverter::GetInstance()->StartConverter(environment));
}

TEST_F(EmbeddedJavaTest, WithABrokenArchiveRefusesEveryConversion) {
  folder.write("kestrel-java.jar", "no archive");
  use(archivesIn(folder.path()));
  ASSERT_TRUE(VexaJVM::GetInstance()->StartJVM());
  JNIEnv_* environment = nullptr;
  ASSERT_EQ(VexaJVM::GetInstance()->AttachCurrentThread(&environment), 0);
  LumoConverter* const converter = LumoConverter::GetInstance();
  ASSERT_NE(converter, nullptr);
  EXPECT_FALSE(converter->StartConverter(environment));
  EXPECT_FALSE(converter->IsStarted());
  EXPECT_THAT(line(),
              AllOf(HasSubstr(folder / "kestrel-java.jar"), HasSubstr("kestrel.converter.Converter")));
  std::string out = "untouched";
  EXPECT_FALSE(converter->PDLtoXML("chart", out));
  EXPECT_EQ(converter->GetErrorMessage(), "the Java converter does not run: the log says why");
  EXPECT_FALSE(converter->UpgradeXML("<graph/>", out));
  EXPECT_EQ(out, "untouched");
}

TEST_F(EmbeddedJavaTest, StartsOnceForEverySide) {
  use();
  EXPECT_FALSE(VexaJVM::GetInstance()->IsStarted());
  start();
  EXPECT_TRUE(VexaJVM::GetInstance()->IsStarted());
  EXPECT_TRUE(LumoConverter::GetInstance()->IsStarted());
  use();
  EXPECT_TRUE(VexaJVM::GetInstance()->IsStarted());
  EXPECT_FALSE(LumoConverter::GetInstance()->IsStarted());
  start();
  EXPECT_EQ(recorder->count(Operation::Note), 0u);
}

TEST_F(EmbeddedJavaTest, GivesAThreadThatIsNotAttachedNoEnvironment) {
  use();
  EXPECT_EQ(VexaJVM::GetInstance()->GetEnv(), nullptr);
  start();
  EXPECT_NE(VexaJVM::GetInstance()->GetEnv(), nullptr);
  std::thread([] {
    EXPECT_EQ(VexaJVM::GetInstance()->GetEnv(), nullptr);
    JNIEnv_* first = nullptr;
    JNIEnv_* second = nullptr;
    EXPECT_EQ(VexaJVM::GetInstance()->AttachCurrentThread(&first), 0);
    EXPECT_EQ(VexaJVM::GetInstance()->AttachCurrentThread(&second), 0);
    EXPECT_NE(first, nullptr);
    EXPECT_EQ(first, second);
    EXPECT_EQ(VexaJVM::GetInstance()->GetEnv(), first);
  }).join();
}

TEST_F(EmbeddedJavaTest, AttachesNobodyBeforeTheMachineRuns) {
  use();
  char mark = 0;
  auto* environment = reinterpret_cast<JNIEnv_*>(&mark);
  EXPECT_NE(VexaJVM::GetInstance()->AttachCurrentThread(&environment), 0);
  EXPECT_EQ(environment, nullptr);
}

TEST_F(EmbeddedJavaTest, LeavesTheFloatingPointEnvironmentAlone) {
  use();
  std::fesetround(FE_UPWARD);
  start();
  EXPECT_EQ(std::fegetround(), FE_UPWARD);
}

TEST_F(EmbeddedJavaTest, LeavesTheSignalsToTheProcess) {
  use();
  std::signal(SIGINT, SIG_IGN);
  std::signal(SIGTERM, SIG_DFL);
  start();
  EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_IGN);
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

constexpr char chart[] = "<visualization xmlns='http://xml.vexa.example/visualization' name='Größe 😀'/>";

std::string sheet(std::string const& body, std::string const& head = {}) {
  return "<xsl:stylesheet version='1.0' xmlns:xsl='http://www.w3.org/1999/XSL/Transform'>" + head +
         "<xsl:template match='/'>" + body + "</xsl:template></xsl:stylesheet>";
}

TEST_F(EmbeddedJavaTest, StartsItselfForAStyleSheet) {
  use();
  std::string const result = plotDeskConverter::GetInstance()->applyStyleSheet(
      sheet("<v><xsl:value-of select='/*/@name'/></v>", "<xsl:output encoding='UTF-16'/>"), chart);
  // Beyond the basic plane the serializer writes references, which are the same text.
  EXPECT_THAT(result, AnyOf(HasSubstr("<v>Größe 😀</v>"), HasSubstr("<v>Größe &#128512;</v>")));
}

TEST_F(EmbeddedJavaTest, GivesAnEmptyTextForAStyleSheetThatMakesNothing) {
  use();
  EXPECT_EQ(plotDeskConverter::GetInstance()->applyStyleSheet(sheet(""), chart), "");
}

TEST_F(EmbeddedJavaTest, ReadsAStyleSheetInTheEncodingThatItDeclares) {
  use();
  std::string const latin = "<?xml version='1.0' encoding='ISO-8859-1'?>" + sheet("<v>M\xE4rz</v>");
  EXPECT_THAT(plotDeskConverter::GetInstance()->applyStyleSheet(latin, chart), HasSubstr("<v>März</v>"));
}

TEST_F(EmbeddedJavaTest, SaysWhyAStyleSheetIsRefused) {
  use();
  try {
    plotDeskConverter::GetInstance()->applyStyleSheet(sheet("<v>"), chart);
    FAIL() << "it was taken";
  } catch (JException const& failure) {
    EXPECT_THAT(failure.getMessage(), HasSubstr("line 1, column"));
    EXPECT_EQ(line(), "A style sheet is not applied: " + failure.getMessage());
  }
}

TEST_F(EmbeddedJavaTest, WithoutARuntimeAppliesNoStyleSheetSilently) {
  use(homeAt(folder.path()));
  EXPECT_THROW(plotDeskConverter::GetInstance()->applyStyleSheet(sheet(""), chart), JException);
  EXPECT_THAT(line(), HasSubstr(folder.path()));
}

constexpr char description[] = "chart \"Größe 😀\" {\n  variable a numeric\n  point { x a  y a }\n}\n";

std::string refusedFor(bool (LumoConverter::*conversion)(std::string const&, std::string&),
                       std::string const& text) {
  std::string out = "untouched";
  EXPECT_FALSE((LumoConverter::GetInstance()->*conversion)(text, out)) << out;
  EXPECT_EQ(out, "untouched");
  return LumoConverter::GetInstance()->GetErrorMessage();
}

TEST_F(EmbeddedJavaTest, ConvertsADescriptionWithEveryCharacter) {
  use();
  start();
  std::string out;
  EXPECT_TRUE(LumoConverter::GetInstance()->PDLtoXML(description, out));
  EXPECT_THAT(out, AllOf(HasSubstr("<visualization "), HasSubstr("Größe 😀")));
  EXPECT_EQ(LumoConverter::GetInstance()->GetErrorMessage(), "");
}

TEST_F(EmbeddedJavaTest, PassesADescriptionWithAZeroAsAWhole) {
  use();
  start();
  std::string const text = std::string("chart \"x\" {\n  title \"a") + '\0' + "b\"\n}\n";
  EXPECT_THAT(refusedFor(&LumoConverter::PDLtoXML, text), HasSubstr("line 2, column "));
}

TEST_F(EmbeddedJavaTest, SaysInUTF8WhyADescriptionIsRefused) {
  services.locale->page = "windows-1252";
  use();
  start();
  EXPECT_THAT(refusedFor(&LumoConverter::PDLtoXML, "chart \"x\" {\n  point { x Größe }\n}\n"),
              AllOf(testing::StartsWith("line 2, column 13: "), HasSubstr("Größe")));
}

TEST_F(EmbeddedJavaTest, SaysInTheLocalCodePageWhyAnOldChartIsRefused) {
  services.locale->page = "windows-1252";
  use();
  start();
  EXPECT_THAT(refusedFor(&LumoConverter::UpgradeXML, "<graph version='Größe'/>"),
              AllOf(HasSubstr("line 1, column "), HasSubstr("Gr\xF6\xDF"
                                                            "e")));
}

TEST_F(EmbeddedJavaTest, ForgetsAMessageAtTheNextConversion) {
  use();
  start();
  EXPECT_NE(refusedFor(&LumoConverter::PDLtoXML, "nonsense"), "");
  std::string out;
  EXPECT_TRUE(LumoConverter::GetInstance()->PDLtoXML(description, out));
  EXPECT_EQ(LumoConverter::GetInstance()->GetErrorMessage(), "");
  EXPECT_NE(refusedFor(&LumoConverter::UpgradeXML, "nonsense"), "");
  EXPECT_TRUE(LumoConverter::GetInstance()->UpgradeXML("<graph version='1.4'/>", out));
  EXPECT_EQ(LumoConverter::GetInstance()->GetErrorMessage(), "");
}

TEST_F(EmbeddedJavaTest, KeepsTheMessageOfEachThread) {
  use();
  start();
  EXPECT_NE(refusedFor(&LumoConverter::PDLtoXML, "nonsense"), "");
  std::thread([] {
    JNIEnv_* environment = nullptr;
    VexaJVM::GetInstance()->AttachCurrentThread(&environment);
    EXPECT_EQ(LumoConverter::GetInstance()->GetErrorMessage(), "");
  }).join();
}

TEST_F(EmbeddedJavaTest, SaysWhatAnUpgradeHasLost) {
  use();
  start();
  std::string out;
  ASSERT_TRUE(LumoConverter::GetInstance()->UpgradeXML("<graph version='1.4' animation='yes'/>", out));
  EXPECT_THAT(out, HasSubstr("<visualization "));
  EXPECT_THAT(Host::current().java->upgradeReport(), HasSubstr("animation"));
  ASSERT_TRUE(LumoConverter::GetInstance()->UpgradeXML("<graph version='1.4'/>", out));
  EXPECT_EQ(Host::current().java->upgradeReport(), "");
}

/// Everything but the parser of descriptions, which the jar itself names as its neighbour.
TEST_F(EmbeddedJavaTest, ThrowsWhatIsNoRefusalByPointerAndLogsIt) {
  std::filesystem::copy(KESTREL_JAVA_DIR "/kestrel-java.jar", folder / "kestrel-java.jar");
  use(archivesIn(folder.path()));
  start();
  std::string out;
  try {
    LumoConverter::GetInstance()->PDLtoXML(description, out);
    FAIL() << "it was converted";
  } catch (JException const* failure) {
    EXPECT_THAT(failure->getMessage(), HasSubstr("NoClassDefFoundError"));
    EXPECT_EQ(line(), "A conversion failed in Java: " + failure->getMessage());
  }
}

TEST_F(EmbeddedJavaTest, NeedsAThreadThatIsAttached) {
  use();
  start();
  std::thread([] {
    EXPECT_EQ(refusedFor(&LumoConverter::PDLtoXML, description),
              "the Java converter does not run: the log says why");
  }).join();
}

TEST_F(EmbeddedJavaTest, SaysThatAMachineWillNotStart) {
  ::setenv("JAVA_TOOL_OPTIONS", "-XX:NoSuchOption=1", 1);
  use();
  EXPECT_FALSE(VexaJVM::GetInstance()->StartJVM());
  EXPECT_FALSE(VexaJVM::GetInstance()->IsStarted());
  EXPECT_THAT(line(), HasSubstr("it does not start (code -6); install a Java runtime"));
}

std::string const chartTemplate =
    "<visualization xmlns='http://xml.vexa.example/visualization' "
    "xmlns:t='http://xml.vexa.example/visualization-template'><t:template version='1.0'>"
    "<t:slot name='Title' kind='label'/></t:template><extension text='{Title}'/></visualization>";

/// A request for a chart, of which the attributes say where its template is.
std::string requestOf(std::string const& attributes, std::string const& mappings) {
  return "<lumoTemplate xmlns='http://xml.vexa.example/vexa/viewer/lumoTemplate' type='request'>"
         "<templateSpecification locale='' " +
         attributes + ">" + mappings + "</templateSpecification></lumoTemplate>";
}

std::string replyTo(std::string const& request) { return GetAdapter()->ConvertClientLumoTemplate(request); }

constexpr char title[] = "<mapping slotName='Title' slotValue='Größe 😀'/>";

TEST_F(EmbeddedJavaTest, StartsItselfForATemplateOfTheLocalStore) {
  folder.write("template/one.lumotemplate", chartTemplate);
  JavaSettings settings;
  settings.store = folder.path();
  use(settings);
  EXPECT_THAT(replyTo(requestOf("templateName='one' location='local'", title)),
              AllOf(HasSubstr("<Lumoml success=\"true\">"), HasSubstr("<extension text=\"Größe 😀\"/>")));
}

TEST_F(EmbeddedJavaTest, FindsATemplateInAFolderOfTheRepository) {
  folder.write("team/one.lumotemplate", chartTemplate);
  std::string const request =
      requestOf("templateName='one' location='KOS' repositoryFolderSpec='team'", title);
  JavaSettings settings;
  settings.repository = folder.path();
  use(settings);
  EXPECT_THAT(replyTo(request), HasSubstr("<extension text=\"Größe 😀\"/>"));
  use();
  EXPECT_THAT(replyTo(request), HasSubstr("which this host does not have"));
}

TEST_F(EmbeddedJavaTest, HasTheShareFolderForItsLocalStore) {
  use();
  folder.write("template/one.lumotemplate", chartTemplate);
  services.paths->base = folder.path() + "/";
  EXPECT_THAT(replyTo(requestOf("templateName='one' location='local'", title)),
              HasSubstr("<extension text=\"Größe 😀\"/>"));
}

TEST_F(EmbeddedJavaTest, RefusesBrokenRequestsInAReply) {
  use();
  EXPECT_THAT(replyTo("<lumoTemplate"), HasSubstr("errorCode=\"RequestInvalid: line 1, column"));
  EXPECT_THAT(replyTo(std::string("\xFF\0\xFE", 3)), HasSubstr("errorCode=\"RequestInvalid: line 1, column"));
}

TEST_F(EmbeddedJavaTest, WithoutARuntimeGivesNoReplyAndSaysWhy) {
  use(homeAt(folder.path()));
  EXPECT_EQ(replyTo(requestOf("templateName='histogram' location='local'", "")), "");
  auto const notes = recorder->entries(Operation::Note);
  ASSERT_EQ(notes.size(), 2u);
  EXPECT_THAT(notes[0].text("message"), HasSubstr(folder.path()));
  EXPECT_EQ(notes[1].text("message"), "a visualization template is not converted: the line before says why");
}

}  // namespace
