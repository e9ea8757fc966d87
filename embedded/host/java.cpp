#include "host/java.h"

#include "kestrelhost/host.h"

namespace kestrel::host {

JavaSide::~JavaSide() = default;

std::string JavaSide::upgradeReport() { return {}; }

bool NoJava::hasMachine() { return true; }
bool NoJava::machineStarted() { return false; }

bool NoJava::startMachine() {
  note("the Java machine does not start");
  return false;
}

JNIEnv_* NoJava::environment() { return nullptr; }

int NoJava::attachThread(JNIEnv_** environment) {
  *environment = nullptr;
  return 1;
}

bool NoJava::hasConverter() { return false; }
bool NoJava::converterStarted() { return false; }
bool NoJava::startConverter(JNIEnv_*) { return false; }
bool NoJava::convertPdl(std::string const&, std::string&) { return false; }
bool NoJava::upgrade(std::string const&, std::string&) { return false; }
std::string NoJava::errorMessage() { return absent; }

std::string NoJava::applyStyleSheet(std::string const&, std::string const&) {
  note("style sheets are not applied");
  return {};
}

std::string NoJava::convertTemplate(std::string const&) {
  note("visualization templates are not converted");
  return {};
}

void NoJava::note(std::string const& consequence) {
  Host::current().log->note(absent + (": " + consequence));
}

bool ScriptedJava::hasMachine() { return machineThere; }
bool ScriptedJava::machineStarted() { return machineRuns; }
bool ScriptedJava::startMachine() { return machineRuns = machineStarts; }

JNIEnv_* ScriptedJava::environment() {
  // Callers only pass it on; nobody may look behind it.
  static char mark;
  return environmentThere ? reinterpret_cast<JNIEnv_*>(&mark) : nullptr;
}

int ScriptedJava::attachThread(JNIEnv_** target) {
  *target = environment();
  return environmentThere ? 0 : 1;
}

bool ScriptedJava::hasConverter() { return converterThere; }
bool ScriptedJava::converterStarted() { return converterRuns; }
bool ScriptedJava::startConverter(JNIEnv_*) { return converterRuns = true; }
bool ScriptedJava::convertPdl(std::string const& in, std::string& out) { return pdl && pdl(in, out); }
bool ScriptedJava::upgrade(std::string const& in, std::string& out) {
  return upgrading && upgrading(in, out);
}
std::string ScriptedJava::errorMessage() { return message; }

std::string ScriptedJava::applyStyleSheet(std::string const& styleSheet, std::string const& chart) {
  return styleSheets ? styleSheets(styleSheet, chart) : std::string();
}

std::string ScriptedJava::convertTemplate(std::string const& request) {
  return templates ? templates(request) : std::string();
}

#ifndef KESTREL_JAVA
std::shared_ptr<JavaSide> makeJava(JavaSettings) { return std::make_shared<NoJava>(); }
#endif

namespace {

class Adapter : public ClientAdapter {
 public:
  std::string ConvertClientLumoTemplate(std::string const& request) override {
    return Host::current().java->convertTemplate(request);
  }
};

JavaSide& java() { return *Host::current().java; }

}  // namespace

}  // namespace kestrel::host

using kestrel::host::java;

JException::JException() = default;
JException::JException(std::string const& message) : mMessage(message) {}
JException::JException(JException const&) = default;
JException& JException::operator=(JException const&) = default;
JException::~JException() = default;

std::string JException::getMessage() const { return mMessage; }

VexaJVM* VexaJVM::GetInstance() {
  static VexaJVM instance;
  return java().hasMachine() ? &instance : nullptr;
}

bool VexaJVM::IsStarted() { return java().machineStarted(); }
bool VexaJVM::StartJVM() { return java().startMachine(); }
JNIEnv_* VexaJVM::GetEnv() { return java().environment(); }
int VexaJVM::AttachCurrentThread(JNIEnv_** environment) { return java().attachThread(environment); }

LumoConverter* LumoConverter::GetInstance() {
  static LumoConverter instance;
  return java().hasConverter() ? &instance : nullptr;
}

bool LumoConverter::IsStarted() { return java().converterStarted(); }
bool LumoConverter::StartConverter(JNIEnv_* environment) { return java().startConverter(environment); }
bool LumoConverter::PDLtoXML(std::string const& in, std::string& out) { return java().convertPdl(in, out); }
bool LumoConverter::UpgradeXML(std::string const& in, std::string& out) { return java().upgrade(in, out); }
std::string LumoConverter::GetErrorMessage() const { return java().errorMessage(); }

plotDeskConverter* plotDeskConverter::GetInstance() {
  static plotDeskConverter instance;
  return &instance;
}

std::string plotDeskConverter::applyStyleSheet(std::string const& styleSheet, std::string const& chart) {
  return java().applyStyleSheet(styleSheet, chart);
}

ClientAdapter::~ClientAdapter() = default;

ClientAdapter* GetAdapter() {
  static kestrel::host::Adapter adapter;
  return &adapter;
}
