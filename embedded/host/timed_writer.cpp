#include "timed_writer.h"

#include "capture_format.h"
#include "quiet_pipe.h"

#include "kestrelhost/channel.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <utility>

namespace kestrel::host {

namespace {

#ifdef MSG_NOSIGNAL
constexpr int quietly = MSG_DONTWAIT | MSG_NOSIGNAL;
#else
constexpr int quietly = MSG_DONTWAIT;
#endif

std::error_code errorOf(int number) { return {number, std::generic_category()}; }

}  // namespace

TimedWriter::TimedWriter(int descriptor, std::chrono::milliseconds patience)
    : mDescriptor(descriptor), mKind(kindOf(descriptor)), mPatience(patience) {}

TimedWriter::TimedWriter(Descriptor opened, std::chrono::milliseconds patience)
    : TimedWriter(opened.get(), patience) {
  mOwned = std::move(opened);
}

TimedWriter::Kind TimedWriter::kindOf(int descriptor) {
  struct stat status {};
  // A descriptor that is not open shows at the first write.
  if (::fstat(descriptor, &status) != 0) return Kind::File;
  if (S_ISSOCK(status.st_mode)) return Kind::Socket;
  return S_ISREG(status.st_mode) ? Kind::File : Kind::Pipe;
}

bool TimedWriter::writeSignature() { return write(CaptureChannel::signature); }

bool TimedWriter::writeMessage(std::int64_t identifier, void const* bytes, std::size_t length) {
  if (mError) return false;
  mMessage = captureHead(identifier, length);
  mMessage.append(static_cast<char const*>(bytes), length);
  return write(mMessage);
}

bool TimedWriter::write(std::string_view bytes) {
  auto const deadline = Clock::now() + mPatience;
  while (!mError && !bytes.empty()) {
    // A blocking pipe takes no more without waiting than it has room for, so it is asked first.
    if (mKind == Kind::Pipe && !waitForRoom(deadline)) break;
    std::size_t const written = writeSome(bytes);
    bytes.remove_prefix(written);
    if (mError || bytes.empty()) break;
    // A reader that always takes a little must not hold the sender for ever.
    if (Clock::now() >= deadline) mError = std::make_error_code(std::errc::timed_out);
    if (written == 0 && !mError && mKind != Kind::Pipe) waitForRoom(deadline);
  }
  return !mError;
}

std::size_t TimedWriter::writeSome(std::string_view bytes) {
  ssize_t written = 0;
  int number = 0;
  if (mKind == Kind::Socket) {
#ifndef MSG_NOSIGNAL
    QuietPipe const quiet;
#endif
    written = ::send(mDescriptor, bytes.data(), bytes.size(), quietly);
    number = errno;
  } else {
    QuietPipe const quiet;
    // What poll() says of a pipe is that there is room for this many bytes.
    std::size_t const most = mKind == Kind::Pipe ? std::size_t{PIPE_BUF} : bytes.size();
    written = ::write(mDescriptor, bytes.data(), std::min(bytes.size(), most));
    number = errno;
  }
  if (written >= 0) return static_cast<std::size_t>(written);
  if (number != EINTR && number != EAGAIN) mError = errorOf(number);
  return 0;
}

bool TimedWriter::waitForRoom(Clock::time_point deadline) {
  pollfd wanted{mDescriptor, POLLOUT, 0};
  for (;;) {
    auto const left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    auto const wait = std::clamp<std::int64_t>(left.count(), 0, INT_MAX);
    int const ready = ::poll(&wanted, 1, static_cast<int>(wait));
    // A reader that is gone shows as ready: the next write then tells how it failed.
    if (ready > 0) return true;
    if (ready < 0 && errno != EINTR) {
      mError = errorOf(errno);
      return false;
    }
    if (ready == 0 && left.count() <= 0) {
      mError = std::make_error_code(std::errc::timed_out);
      return false;
    }
  }
}

}  // namespace kestrel::host
