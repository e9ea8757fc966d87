#include "kestrelhost/stream_channel.h"

#include "timed_writer.h"
#include "unix_socket.h"

namespace kestrel::host {

namespace {

constexpr int success = 0;
constexpr int failure = 1;

}  // namespace

DescriptorChannel::DescriptorChannel(int descriptor, std::chrono::milliseconds patience)
    : mWriter(std::make_unique<TimedWriter>(descriptor, patience)) {
  mWriter->writeSignature();
}

DescriptorChannel::~DescriptorChannel() = default;

int DescriptorChannel::put(std::int64_t identifier, void const* bytes, std::size_t length) {
  return mWriter->writeMessage(identifier, bytes, length) ? success : failure;
}

bool DescriptorChannel::good() const { return !mWriter->error(); }
std::error_code DescriptorChannel::error() const { return mWriter->error(); }

SocketChannel::SocketChannel(std::string const& path, std::chrono::milliseconds patience) {
  Descriptor socket = connectTo(path, patience, mError);
  if (!socket.valid()) return;
  mWriter = std::make_unique<TimedWriter>(std::move(socket), patience);
  if (mWriter->writeSignature()) return;
  mError = mWriter->error();
  mWriter.reset();
}

SocketChannel::~SocketChannel() = default;

int SocketChannel::put(std::int64_t identifier, void const* bytes, std::size_t length) {
  if (!mWriter) return failure;
  if (mWriter->writeMessage(identifier, bytes, length)) return success;
  mError = mWriter->error();
  // The reader sees the end at once.
  mWriter.reset();
  return failure;
}

bool SocketChannel::good() const { return mWriter != nullptr; }

}  // namespace kestrel::host
