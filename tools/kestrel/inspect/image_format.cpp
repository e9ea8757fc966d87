#include "image_format.h"

#include <algorithm>
#include <cstddef>

namespace kestrel::tool {

namespace {

using namespace std::string_view_literals;

struct Signature {
  std::string_view ending;
  std::size_t offset;
  std::string_view bytes;
};

constexpr Signature signatures[] = {
    {".png", 0, "\x89PNG\r\n\x1A\n"sv},
    {".jpg", 0, "\xFF\xD8\xFF"sv},
    {".gif", 0, "GIF8"sv},
    {".bmp", 0, "BM"sv},
    {".tif", 0, "II*\0"sv},
    {".tif", 0, "MM\0*"sv},
    {".webp", 8, "WEBP"sv},
    {".emf", 40, " EMF"sv},
    {".wmf", 0, "\xD7\xCD\xC6\x9A"sv},
    {".pdf", 0, "%PDF-"sv},
    {".ps", 0, "%!PS"sv},
};

/// Behind a byte order mark, a declaration and comments.
bool isVectorGraphics(std::string_view bytes) {
  std::string_view const start = bytes.substr(0, 1000);
  std::size_t const first = start.find_first_not_of("\xEF\xBB\xBF \t\r\n");
  return first != std::string_view::npos && start[first] == '<' &&
         start.find("<svg") != std::string_view::npos;
}

}  // namespace

std::string_view imageEnding(std::string_view bytes) {
  auto const* const found =
      std::find_if(std::begin(signatures), std::end(signatures), [&](Signature const& signature) {
        return bytes.size() >= signature.offset &&
               bytes.substr(signature.offset).starts_with(signature.bytes);
      });
  if (found != std::end(signatures)) return found->ending;
  return isVectorGraphics(bytes) ? ".svg" : ".bin";
}

}  // namespace kestrel::tool
