#pragma once

#include "export.h"

#include <cstdint>
#include <string>

/// Sends one message to the client: `*length` bytes of `buffer` under the number `*identifier`. The second
/// and the last argument point at zeros. The buffer is read before the call returns. 0 is success, anything
/// else failure.
VEXA_API int IpcPutC(std::int64_t const* identifier, std::int64_t const* zero, std::int64_t const* length,
                     void const* buffer, std::int64_t const* last);

namespace zlib1213vexa {

/// Replaces `out` by the zlib stream of `in`, which need not be text. 0 is success; otherwise the result is
/// zlib's own code and `out` is empty. `out` may be `in` itself.
VEXA_API int compressString(std::string const& in, std::string& out);

}  // namespace zlib1213vexa
