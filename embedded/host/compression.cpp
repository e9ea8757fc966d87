#include "kestrelhost/compression.h"

#include "host/channel.h"
#include "kestrelhost/host.h"

#include <zlib.h>

#include <algorithm>
#include <limits>

namespace kestrel::host {

namespace {

constexpr std::size_t longestStep = std::numeric_limits<uInt>::max();

Bytef* bytesOf(std::string& text) { return reinterpret_cast<Bytef*>(text.data()); }

/// zlib takes its input without writing to it, through a pointer that is not const.
Bytef* bytesOf(std::string const& text) {
  return const_cast<Bytef*>(reinterpret_cast<Bytef const*>(text.data()));  // NOLINT
}

/// Setting a stream back clears its memory, which takes longer than a small text does; with less of it such a
/// text is as short.
constexpr std::size_t smallText = std::size_t{1} << 14;
constexpr int memoryForSmall = 5;
constexpr int usualMemory = 8;

/// A compressing stream that is kept and set back to its start for each text.
class Deflater {
 public:
  Deflater(int level, int memory) : mLevel(level), mReady(start(level, memory)) {}
  ~Deflater() {
    if (mReady) deflateEnd(&mStream);
  }
  Deflater(Deflater const&) = delete;
  Deflater& operator=(Deflater const&) = delete;

  int level() const { return mLevel; }

  int compress(std::string const& in, std::string& out) {
    if (!mReady) return Z_MEM_ERROR;
    if (int const result = deflateReset(&mStream); result != Z_OK) return result;
    out.resize(deflateBound(&mStream, in.size()));
    mStream.next_in = bytesOf(in);
    mStream.next_out = bytesOf(out);
    std::size_t unread = in.size();
    std::size_t room = out.size();
    int result = Z_OK;
    while (result == Z_OK) {
      mStream.avail_in = static_cast<uInt>(std::min(unread, longestStep));
      mStream.avail_out = static_cast<uInt>(std::min(room, longestStep));
      unread -= mStream.avail_in;
      room -= mStream.avail_out;
      result = deflate(&mStream, unread == 0 ? Z_FINISH : Z_NO_FLUSH);
      unread += mStream.avail_in;
      room += mStream.avail_out;
    }
    if (result != Z_STREAM_END) return result;
    out.resize(out.size() - room);
    return Z_OK;
  }

 private:
  bool start(int level, int memory) {
    return deflateInit2(&mStream, level, Z_DEFLATED, MAX_WBITS, memory, Z_DEFAULT_STRATEGY) == Z_OK;
  }

  z_stream mStream{};
  int mLevel;
  bool mReady;
};

Deflater& deflaterOf(int level, std::size_t size) {
  thread_local std::unique_ptr<Deflater> keptForSmall;
  thread_local std::unique_ptr<Deflater> keptForLarge;
  bool const small = size <= smallText;
  std::unique_ptr<Deflater>& kept = small ? keptForSmall : keptForLarge;
  if (!kept || kept->level() != level) {
    kept = std::make_unique<Deflater>(level, small ? memoryForSmall : usualMemory);
  }
  return *kept;
}

/// A decompressing stream, for one text.
class Inflater {
 public:
  Inflater() : mReady(inflateInit(&mStream) == Z_OK) {}
  ~Inflater() {
    if (mReady) inflateEnd(&mStream);
  }
  Inflater(Inflater const&) = delete;
  Inflater& operator=(Inflater const&) = delete;

  bool decompress(std::string const& in, std::string& out, std::size_t limit) {
    if (!mReady) return false;
    mStream.next_in = bytesOf(in);
    std::size_t unread = in.size();
    std::size_t filled = 0;
    out.clear();
    for (int result = Z_OK; result != Z_STREAM_END;) {
      // One byte more than the limit, to see that a text goes beyond it.
      std::size_t const most = limit == std::numeric_limits<std::size_t>::max() ? limit : limit + 1;
      if (filled == out.size()) out.resize(std::min(most, std::max<std::size_t>(2 * filled, firstGuess)));
      mStream.next_out = bytesOf(out) + filled;
      mStream.avail_out = static_cast<uInt>(std::min(out.size() - filled, longestStep));
      mStream.avail_in = static_cast<uInt>(std::min(unread, longestStep));
      unread -= mStream.avail_in;
      uInt const room = mStream.avail_out;
      result = inflate(&mStream, Z_NO_FLUSH);
      unread += mStream.avail_in;
      filled += room - mStream.avail_out;
      if ((result != Z_OK && result != Z_STREAM_END) || filled > limit) return false;
    }
    out.resize(filled);
    return unread == 0;
  }

 private:
  static constexpr std::size_t firstGuess = 1 << 14;

  z_stream mStream{};
  bool mReady;
};

}  // namespace

Compression::~Compression() = default;

ZlibCompression::ZlibCompression(int level) : mLevel(level) {}

int ZlibCompression::compress(std::string const& in, std::string& out) {
  std::string compressed;
  int const result = deflaterOf(mLevel, in.size()).compress(in, compressed);
  if (result != Z_OK) compressed.clear();
  out = std::move(compressed);
  return result;
}

bool decompress(std::string const& in, std::string& out, std::size_t limit) {
  std::string text;
  bool const whole = Inflater().decompress(in, text, limit);
  if (!whole) text.clear();
  out = std::move(text);
  return whole;
}

}  // namespace kestrel::host

int zlib1213vexa::compressString(std::string const& in, std::string& out) {
  return kestrel::host::Host::current().compression->compress(in, out);
}
