#include "host/channel.h"

#include "capture_format.h"
#include "descriptor.h"
#include "timed_writer.h"

#include "kestrelhost/host.h"
#include "kestrelhost/stream_channel.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <thread>
#include <utility>

namespace kestrel::host {

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr std::size_t captureBuffer = 1 << 18;

/// What KESTREL_CAPTURE stands for; nothing said is a file in the current folder.
std::shared_ptr<Channel> channelOf(std::string const& chosen) {
  constexpr std::string_view socketPrefix = "unix:";
  if (chosen == "-") return std::make_shared<DescriptorChannel>(STDOUT_FILENO);
  if (chosen.starts_with(socketPrefix))
    return std::make_shared<SocketChannel>(chosen.substr(socketPrefix.size()));
  return std::make_shared<CaptureChannel>(chosen.empty() ? "capture.kcap" : chosen);
}

bool isNamedPipe(std::string const& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISFIFO(status.st_mode);
}

bool isNamedPipe(Descriptor const& file) {
  struct stat status {};
  return ::fstat(file.get(), &status) == 0 && S_ISFIFO(status.st_mode);
}

/// Opens a file for writing, or nothing, with the reason in errno. Opening a named pipe fails for as long as
/// nobody reads from it; it is tried again within the patience.
Descriptor openForWriting(std::string const& path, std::chrono::milliseconds patience) {
  constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK;
  constexpr mode_t mode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
  constexpr std::chrono::milliseconds betweenTries{10};
  auto const deadline = std::chrono::steady_clock::now() + patience;
  for (;;) {
    Descriptor file(::open(path.c_str(), flags, mode));
    int const error = errno;
    bool const mayCome = !file.valid() && (error == ENXIO || error == EINTR) && isNamedPipe(path);
    if (mayCome && std::chrono::steady_clock::now() < deadline) {
      std::this_thread::sleep_for(betweenTries);
      continue;
    }
    errno = error;
    return file;
  }
}

/// A buffered file, which waits for the disk as files do.
std::FILE* fileOf(Descriptor descriptor) {
  ::fcntl(descriptor.get(), F_SETFL, ::fcntl(descriptor.get(), F_GETFL) & ~O_NONBLOCK);
  std::FILE* const file = ::fdopen(descriptor.get(), "wb");
  if (file == nullptr) return nullptr;
  std::setvbuf(file, nullptr, _IOFBF, captureBuffer);
  descriptor.release();
  return file;
}

}  // namespace

Channel::~Channel() = default;

int MemoryChannel::put(std::int64_t identifier, void const* bytes, std::size_t length) {
  mMessages.push_back({identifier, std::string(static_cast<char const*>(bytes), length)});
  return success;
}

int NullChannel::put(std::int64_t, void const*, std::size_t) { return success; }

CaptureChannel::CaptureChannel(std::string const& path, std::chrono::milliseconds patience) {
  Descriptor opened = openForWriting(path, patience);
  if (!opened.valid()) return;
  if (isNamedPipe(opened)) {
    mPipe = std::make_unique<TimedWriter>(std::move(opened), patience);
    mGood = mPipe->writeSignature();
    return;
  }
  mFile = fileOf(std::move(opened));
  mGood = mFile != nullptr;
  write(signature, sizeof signature - 1);
}

CaptureChannel::~CaptureChannel() {
  if (mFile != nullptr) std::fclose(mFile);
}

int CaptureChannel::put(std::int64_t identifier, void const* bytes, std::size_t length) {
  if (mPipe) {
    mGood = mPipe->writeMessage(identifier, bytes, length);
    return mGood ? success : failure;
  }
  std::string const head = captureHead(identifier, length);
  bool const written = write(head.data(), head.size()) && write(bytes, length);
  // Through to the file at once, so that a put which could not be stored is not taken for a success.
  return written && flush() ? success : failure;
}

bool CaptureChannel::flush() {
  mGood = mGood && (mFile == nullptr || std::fflush(mFile) == 0);
  return mGood;
}

bool CaptureChannel::write(void const* bytes, std::size_t length) {
  mGood = mGood && (length == 0 || std::fwrite(bytes, 1, length, mFile) == length);
  return mGood;
}

int DefaultChannel::put(std::int64_t identifier, void const* bytes, std::size_t length) {
  if (!mChosen) {
    char const* const chosen = std::getenv("KESTREL_CAPTURE");
    mChosen = channelOf(chosen != nullptr ? chosen : "");
  }
  return mChosen->put(identifier, bytes, length);
}

}  // namespace kestrel::host

int IpcPutC(std::int64_t const* identifier, std::int64_t const*, std::int64_t const* length,
            void const* buffer, std::int64_t const*) {
  if (*length < 0) return kestrel::host::failure;
  return kestrel::host::Host::current().channel->put(*identifier, buffer, static_cast<std::size_t>(*length));
}
