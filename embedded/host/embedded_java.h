#pragma once

#include "kestrelhost/conversion.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace kestrel::host {

class JavaClasses;

/// Java in this process: what makeJava() gives.
class EmbeddedJava : public JavaSide {
 public:
  explicit EmbeddedJava(JavaSettings settings);
  ~EmbeddedJava() override;

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
  std::string upgradeReport() override;
  std::string applyStyleSheet(std::string const& styleSheet, std::string const& chart) override;
  std::string convertTemplate(std::string const& request) override;

 private:
  std::string library() const;
  std::vector<std::string> archives() const;
  JavaClasses const* running();
  /// Starts what does not run yet; false where that fails.
  bool ready(JNIEnv_*& java);
  std::string localStore() const;

  JavaSettings mSettings;
  std::mutex mLoading;
  std::unique_ptr<JavaClasses> mClasses;
};

}  // namespace kestrel::host
