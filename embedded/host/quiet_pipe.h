#pragma once

#include <csignal>

namespace kestrel::host {

/// Keeps the SIGPIPE of writes by this thread from the process, for as long as it lives. How the process
/// treats that signal is not touched, and one that was on its way before still arrives.
class QuietPipe {
 public:
  QuietPipe();
  ~QuietPipe();
  QuietPipe(QuietPipe const&) = delete;
  QuietPipe& operator=(QuietPipe const&) = delete;

 private:
  static bool isPending();

  sigset_t mBefore{};
  bool mWasPending;
};

}  // namespace kestrel::host
