#pragma once

#include "host/export.h"

#include <functional>
#include <memory>
#include <string>

struct JNIEnv_;

namespace kestrel::host {

/// The Java side: a virtual machine, the converter of older charts, the style sheets, the converter of
/// visualization templates.
class VEXA_API JavaSide {
 public:
  virtual ~JavaSide();

  /// False stands for a host without a virtual machine: callers then get no object for it.
  virtual bool hasMachine() = 0;
  /// Whether the machine runs.
  virtual bool machineStarted() = 0;
  /// False if the machine does not run afterwards.
  virtual bool startMachine() = 0;
  /// The environment of the calling thread, or null.
  virtual JNIEnv_* environment() = 0;
  /// 0 is success.
  virtual int attachThread(JNIEnv_** environment) = 0;

  /// False stands for a host without a converter.
  virtual bool hasConverter() = 0;
  /// Whether the converter is ready.
  virtual bool converterStarted() = 0;
  /// False if the converter is not ready afterwards.
  virtual bool startConverter(JNIEnv_* environment) = 0;
  /// Translates a description in PDL; false where it is refused, which errorMessage() tells.
  virtual bool convertPdl(std::string const& in, std::string& out) = 0;
  /// Upgrades a chart in LumoML 1.4, likewise.
  virtual bool upgrade(std::string const& in, std::string& out) = 0;
  /// Why the thread's last conversion was refused: in UTF-8 for a description, in the local code page for a
  /// chart.
  virtual std::string errorMessage() = 0;
  /// What of the chart the thread's last upgrade could not carry over, a line for each thing; here nothing.
  virtual std::string upgradeReport();

  /// The reworked chart text; empty to leave the chart as it is.
  virtual std::string applyStyleSheet(std::string const& styleSheet, std::string const& chart) = 0;
  /// The reply to a request for a visualization template; empty where there is none.
  virtual std::string convertTemplate(std::string const& request) = 0;
};

/// A virtual machine that does not start, and nothing behind it. Style sheets and template requests give an
/// empty text and a note in the log.
class VEXA_API NoJava : public JavaSide {
 public:
  bool hasMachine() override;
  bool machineStarted() override;
  bool startMachine() override;
  JNIEnv_* environment() override;
  int attachThread(JNIEnv_** environment) override;
  bool hasConverter() override;
  bool converterStarted() override;
  bool startConverter(JNIEnv_* environment) override;
  bool convertPdl(std::string const& in, std::string& out) override;
  bool upgrade(std::string const& in, std::string& out) override;
  std::string errorMessage() override;
  std::string applyStyleSheet(std::string const& styleSheet, std::string const& chart) override;
  std::string convertTemplate(std::string const& request) override;

 private:
  static constexpr char absent[] = "this host has no Java side";

  void note(std::string const& consequence);
};

/// Where the Java side lies and what it may take.
struct VEXA_API JavaSettings {
  /// The folder of a Java runtime. Empty: the one of JAVA_HOME, that of the command `java`, then the
  /// platform's usual places, the newest first.
  std::string home;
  /// The folder of our archives, "kestrel-java.jar" and what it needs. Empty: "java" in the share folder,
  /// then the one that this library was built with.
  std::string archives;
  /// The greatest size of the Java heap, in MiB; at least 16.
  unsigned int heap = 512;
  /// The local store: the folder of what requests name as local, in its folders "template",
  /// "maps" and "style-sheets". Empty: the share folder.
  std::string store;
  /// The folder of what requests name as of the repository. Empty: the host has no repository.
  std::string repository;
};

/// Java in this process, started on first use and never stopped. A process has one virtual machine for ever:
/// the first side that starts it decides on its heap, and one that somebody else has started is joined.
///
/// What is missing is told to callers as they expect it, with one line in the log that says what was looked
/// for where: without a runtime there is no machine, without the archives no converter. Messages of a refused
/// conversion are each thread's own. Failures on the Java side that are no refusals are thrown as JException,
/// by the converter as a pointer whose object lives until the thread's next failure. A style sheet that
/// cannot be applied throws JException by value, after a note in the log. What is wrong with a request for a
/// visualization template stands in the reply; without Java there is none.
///
/// In a build without Java it is NoJava.
VEXA_API std::shared_ptr<JavaSide> makeJava(JavaSettings settings = {});

/// A Java side that answers as it is told. As it comes, everything is there, nothing is started yet, and
/// conversions fail with an empty message.
class VEXA_API ScriptedJava : public JavaSide {
 public:
  /// A conversion that a test says.
  using Conversion = std::function<bool(std::string const& in, std::string& out)>;

  bool hasMachine() override;
  bool machineStarted() override;
  bool startMachine() override;
  JNIEnv_* environment() override;
  int attachThread(JNIEnv_** environment) override;
  bool hasConverter() override;
  bool converterStarted() override;
  bool startConverter(JNIEnv_* environment) override;
  bool convertPdl(std::string const& in, std::string& out) override;
  bool upgrade(std::string const& in, std::string& out) override;
  std::string errorMessage() override;
  std::string applyStyleSheet(std::string const& styleSheet, std::string const& chart) override;
  std::string convertTemplate(std::string const& request) override;

  /// @{
  /// What hasMachine() and startMachine() answer, and whether the machine runs now.
  bool machineThere = true;
  bool machineStarts = true;
  bool machineRuns = false;
  /// @}

  /// False: threads get a null environment.
  bool environmentThere = true;

  /// @{
  /// What hasConverter() answers, and whether the converter is ready now.
  bool converterThere = true;
  bool converterRuns = false;
  /// @}

  /// @{
  /// The two conversions, which fail where nothing is set, and the message of a failure.
  Conversion pdl;
  Conversion upgrading;
  std::string message;
  /// @}

  /// @{
  /// Style sheets and template requests give nothing where nothing is set.
  std::function<std::string(std::string const& styleSheet, std::string const& chart)> styleSheets;
  std::function<std::string(std::string const& request)> templates;
  /// @}
};

}  // namespace kestrel::host
