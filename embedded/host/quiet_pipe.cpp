#include "quiet_pipe.h"

#include <cerrno>

namespace kestrel::host {

namespace {

sigset_t pipeSignal() {
  sigset_t set{};
  sigemptyset(&set);
  sigaddset(&set, SIGPIPE);
  return set;
}

}  // namespace

QuietPipe::QuietPipe() {
  sigset_t const set = pipeSignal();
  pthread_sigmask(SIG_BLOCK, &set, &mBefore);
  mWasPending = isPending();
}

QuietPipe::~QuietPipe() {
  int const error = errno;
  if (!mWasPending && isPending()) {
    sigset_t const set = pipeSignal();
    int signal = 0;
    sigwait(&set, &signal);
  }
  pthread_sigmask(SIG_SETMASK, &mBefore, nullptr);
  errno = error;
}

bool QuietPipe::isPending() {
  sigset_t pending{};
  return sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
}

}  // namespace kestrel::host
