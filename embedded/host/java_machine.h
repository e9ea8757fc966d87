#pragma once

#include <jni.h>

#include <string>
#include <vector>

namespace kestrel::host {

/// The process's Java virtual machine, which is loaded when it starts: nothing here needs Java to be
/// installed before that.
class JavaMachine {
 public:
  static JavaMachine& instance();

  bool started();

  /// Loads `library` and starts the machine in it, or joins one that runs in this process already.
  /// @param heap in MiB
  /// @return why it does not run, or nothing
  std::string start(std::string const& library, unsigned int heap);

  /// The calling thread's environment; null where it is not attached.
  JNIEnv* environment();

  /// Attaches the calling thread until it ends. 0 is success, as JNI has it; the environment is null
  /// otherwise.
  jint attach(JNIEnv** environment);

 private:
  std::string create(std::string const& library, unsigned int heap);

  JavaVM* mMachine = nullptr;
};

/// Where the library of a virtual machine may lie: in that home, or where that is empty in all the places
/// where a runtime usually is, the best first.
std::vector<std::string> machineLibraries(std::string const& home);

}  // namespace kestrel::host
