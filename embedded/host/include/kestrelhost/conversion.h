#pragma once

#include "host/export.h"

#include <functional>
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
  virtual bool machineStarted() = 0;
  virtual bool startMachine() = 0;
  virtual JNIEnv_* environment() = 0;
  /// 0 is success.
  virtual int attachThread(JNIEnv_** environment) = 0;

  /// False stands for a host without a converter.
  virtual bool hasConverter() = 0;
  virtual bool converterStarted() = 0;
  virtual bool startConverter(JNIEnv_* environment) = 0;
  virtual bool convertPdl(std::string const& in, std::string& out) = 0;
  virtual bool upgrade(std::string const& in, std::string& out) = 0;
  virtual std::string errorMessage() = 0;

  virtual std::string applyStyleSheet(std::string const& styleSheet, std::string const& chart) = 0;
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

/// A Java side that answers as it is told. As it comes, everything is there, nothing is started yet, and
/// conversions fail with an empty message.
class VEXA_API ScriptedJava : public JavaSide {
 public:
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

  bool machineThere = true;
  bool machineStarts = true;
  bool machineRuns = false;
  /// False: threads get a null environment.
  bool environmentThere = true;
  bool converterThere = true;
  bool converterRuns = false;
  Conversion pdl;
  Conversion upgrading;
  std::string message;
  std::function<std::string(std::string const& styleSheet, std::string const& chart)> styleSheets;
  std::function<std::string(std::string const& request)> templates;
};

}  // namespace kestrel::host
