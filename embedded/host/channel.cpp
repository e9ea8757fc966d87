#include "host/channel.h"

#include "capture_format.h"
#include "quiet_pipe.h"

#include "kestrelhost/host.h"
#include "kestrelhost/stream_channel.h"

#include <unistd.h>

#include <cstdlib>
#include <string_view>

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

}  // namespace

Channel::~Channel() = default;

int MemoryChannel::put(std::int64_t identifier, void const* bytes, std::size_t length) {
  mMessages.push_back({identifier, std::string(static_cast<char const*>(bytes), length)});
  return success;
}

int NullChannel::put(std::int64_t, void const*, std::size_t) { return success; }

CaptureChannel::CaptureChannel(std::string const& path) : mFile(std::fopen(path.c_str(), "wbe")) {
  mGood = mFile != nullptr;
  if (!mGood) return;
  std::setvbuf(mFile, nullptr, _IOFBF, captureBuffer);
  write(signature, sizeof signature - 1);
}

CaptureChannel::~CaptureChannel() {
  QuietPipe const quiet;
  if (mFile != nullptr) std::fclose(mFile);
}

int CaptureChannel::put(std::int64_t identifier, void const* bytes, std::size_t length) {
  // The file may be a named pipe.
  QuietPipe const quiet;
  std::string const head = captureHead(identifier, length);
  bool const written = write(head.data(), head.size()) && write(bytes, length);
  // Through to the file at once, so that a put which could not be stored is not taken for a success.
  return written && flush() ? success : failure;
}

bool CaptureChannel::flush() {
  mGood = mGood && std::fflush(mFile) == 0;
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
