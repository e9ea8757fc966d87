// A description in PDL from outside.
#include "java_converter.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  std::string const text(reinterpret_cast<char const*>(data), size);
  kestrel::fuzzing::convert(&LumoConverter::PDLtoXML, text);
  return 0;
}
