#include "host/channel.h"

#include "kestrelhost/host.h"

#include <array>
#include <cstdlib>

namespace kestrel::host {

namespace {

constexpr int success = 0;
constexpr int failure = 1;
constexpr std::size_t captureBuffer = 1 << 18;

std::array<unsigned char, 8> littleEndian(std::int64_t value) {
  auto const bits = static_cast<std::uint64_t>(value);
  std::array<unsigned char, 8> bytes{};
  for (std::size_t at = 0; at < bytes.size(); ++at) bytes[at] = static_cast<unsigned char>(bits >> (8 * at));
  return bytes;
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
  if (mFile != nullptr) std::fclose(mFile);
}

int CaptureChannel::put(std::int64_t identifier, void const* bytes, std::size_t length) {
  auto const number = littleEndian(identifier);
  auto const size = littleEndian(static_cast<std::int64_t>(length));
  bool const written =
      write(number.data(), number.size()) && write(size.data(), size.size()) && write(bytes, length);
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
  if (!mCapture) {
    char const* const chosen = std::getenv("KESTREL_CAPTURE");
    mCapture =
        std::make_shared<CaptureChannel>(chosen != nullptr && *chosen != '\0' ? chosen : "capture.kcap");
  }
  return mCapture->put(identifier, bytes, length);
}

}  // namespace kestrel::host

int IpcPutC(std::int64_t const* identifier, std::int64_t const*, std::int64_t const* length,
            void const* buffer, std::int64_t const*) {
  if (*length < 0) return kestrel::host::failure;
  return kestrel::host::Host::current().channel->put(*identifier, buffer, static_cast<std::size_t>(*length));
}
