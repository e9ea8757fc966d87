#include "stop_signals.h"

#include "problem.h"

#include <fcntl.h>

#include <cerrno>

namespace kestrel::tool {

namespace {

constexpr std::array<int, 2> signals = {SIGINT, SIGTERM};

std::sig_atomic_t volatile writer = -1;

extern "C" void noteSignal(int) {
  int const error = errno;
  // Where the pipe is full, one is noted already.
  [[maybe_unused]] ssize_t const written = ::write(writer, "", 1);
  errno = error;
}

}  // namespace

StopSignals::StopSignals() {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0)
    throw Problem("the system has no room for another open file", Exit::NotWritten);
  mReader = OpenFile(ends[0]);
  mWriter = OpenFile(ends[1]);
  for (int const end : ends) {
    ::fcntl(end, F_SETFD, FD_CLOEXEC);
    ::fcntl(end, F_SETFL, O_NONBLOCK);
  }
  writer = mWriter.number();
  struct sigaction action {};
  action.sa_handler = noteSignal;
  for (std::size_t at = 0; at < signals.size(); ++at) ::sigaction(signals[at], &action, &mBefore[at]);
}

StopSignals::~StopSignals() {
  for (std::size_t at = 0; at < signals.size(); ++at) ::sigaction(signals[at], &mBefore[at], nullptr);
  writer = -1;
}

}  // namespace kestrel::tool
