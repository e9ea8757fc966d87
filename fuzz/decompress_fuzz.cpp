// A compressed content from outside: whatever the bytes are, they are refused or give a text that comes back
// when it is compressed again.

#include "host/channel.h"
#include "kestrelhost/compression.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  constexpr std::size_t limit = 1 << 22;
  std::string const bytes(reinterpret_cast<char const*>(data), size);
  std::string text;
  if (!kestrel::host::decompress(bytes, text, limit)) {
    if (!text.empty()) std::abort();
    return 0;
  }
  if (text.size() > limit) std::abort();
  std::string compressed;
  std::string again;
  if (zlib1213vexa::compressString(text, compressed) != 0) std::abort();
  if (!kestrel::host::decompress(compressed, again, limit) || again != text) std::abort();
  return 0;
}
