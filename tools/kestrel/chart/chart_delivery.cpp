#include "chart_delivery.h"

#include "files.h"
#include "problem.h"

#include "kestrelhost/stream_channel.h"

#include <cerrno>
#include <string_view>
#include <system_error>
#include <utility>

namespace kestrel::tool {

namespace {

namespace fs = std::filesystem;

std::string socketPath(std::string const& address) {
  constexpr std::string_view prefix = "unix:";
  if (address.starts_with(prefix) && address.size() > prefix.size()) return address.substr(prefix.size());
  throw Problem("--send " + inQuotes(address) + " is no address; give unix:PATH, such as unix:/tmp/charts",
                Exit::BadInput);
}

}  // namespace

UnfinishedFile::UnfinishedFile(fs::path finalName) : mFinalName(std::move(finalName)), mPath(mFinalName) {
  mPath += ".unfinished";
  remove();
}

UnfinishedFile::~UnfinishedFile() { remove(); }

void UnfinishedFile::finish() const { moveFile(mPath, mFinalName); }

void UnfinishedFile::remove() const {
  std::error_code ignored;
  fs::remove(mPath, ignored);
}

/// Counts what goes out.
class ChartDelivery::Ways : public host::Channel {
 public:
  int put(std::int64_t identifier, void const* bytes, std::size_t length) override {
    // The socket may fail alone: the file is to be whole.
    int const sent = socket ? socket->put(identifier, bytes, length) : 0;
    int const result = capture ? capture->put(identifier, bytes, length) : sent;
    if (result == 0) {
      ++messages;
      count += length;
    }
    return result;
  }

  std::unique_ptr<host::CaptureChannel> capture;
  std::unique_ptr<host::SocketChannel> socket;
  std::size_t messages = 0;
  std::size_t count = 0;
};

ChartDelivery::ChartDelivery(std::string const& folder, std::string const& address, std::string what)
    : mAddress(address), mWhat(std::move(what)), mWays(std::make_shared<Ways>()) {
  if (folder.empty() && address.empty()) {
    throw Problem(
        "say where the " + mWhat + " goes: -o FOLDER, --send unix:PATH, or both; kestrel --help tells more",
        Exit::BadInput);
  }
  if (!address.empty()) openSocket(address);
  if (!folder.empty()) openFile(folder);
}

ChartDelivery::~ChartDelivery() = default;

void ChartDelivery::openSocket(std::string const& address) {
  mWays->socket = std::make_unique<host::SocketChannel>(socketPath(address));
  if (mWays->socket->good()) return;
  throw Problem(address + ": nobody can be reached: " + mWays->socket->error().message() +
                    "; is kestrel listen running there?",
                Exit::NotWritten);
}

void ChartDelivery::openFile(std::string const& folder) {
  makeFolder(folder);
  mFile = std::make_unique<UnfinishedFile>(fs::path(folder) / "capture.kcap");
  mWays->capture = std::make_unique<host::CaptureChannel>(mFile->path());
  if (mWays->capture->good()) return;
  std::string const reason = std::generic_category().message(errno);
  throw Problem(mFile->finalName() + ": cannot be made: " + reason + "; choose another folder",
                Exit::NotWritten);
}

std::shared_ptr<host::Channel> ChartDelivery::channel() const { return mWays; }
std::size_t ChartDelivery::messages() const { return mWays->messages; }
std::size_t ChartDelivery::bytes() const { return mWays->count; }

std::string ChartDelivery::name() const {
  if (mFile == nullptr) return mAddress;
  return mFile->finalName() + (mAddress.empty() ? "" : " and " + mAddress);
}

void ChartDelivery::finish(bool sent) {
  if (mWays->capture && !mWays->capture->flush()) {
    throw Problem(mFile->finalName() + ": cannot be written; is there room in the folder?", Exit::NotWritten);
  }
  std::error_code const lost = mWays->socket ? mWays->socket->error() : std::error_code();
  if (!sent && !lost)
    throw Problem("the " + mWhat + " could not be sent; what failed stands above", Exit::NotWritten);
  std::string kept;
  if (sent && mWays->capture) {
    mWays->capture.reset();
    mFile->finish();
    kept = "; all of it is in " + mFile->finalName();
  }
  if (lost) {
    throw Problem(mAddress + ": the " + mWhat + " did not get through: " + lost.message() + kept,
                  Exit::NotWritten);
  }
}

}  // namespace kestrel::tool
