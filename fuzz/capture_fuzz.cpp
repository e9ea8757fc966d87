// The capture reader: any bytes are taken apart, checked and listed without harm.
#include "inspect/inspection.h"
#include "inspect/listing.h"
#include "inspect/safe_name.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t mostCells = 5;

/// Whatever a capture says, a file that is taken out of it lies in the folder that was given.
void requireSafeName(kestrel::tool::Content const& content) {
  std::string const name = kestrel::tool::safeName(content.bytes(), "attachment");
  if (name.empty() || name.front() == '.' || name.find_first_of("/\\") != std::string::npos) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  kestrel::tool::Inspection const inspection({reinterpret_cast<char const*>(data), size});
  for (kestrel::tool::Send const& send : inspection.sends()) {
    for (kestrel::tool::Content const& content : send.contents) requireSafeName(content);
  }
  kestrel::tool::textListing("capture.kcap", inspection, mostCells);
  kestrel::tool::jsonListing("capture.kcap", inspection, mostCells, {});
  return 0;
}
