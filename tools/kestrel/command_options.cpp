#include "command_options.h"

#include "problem.h"
#include "utf8.h"

namespace kestrel::tool {

char const* const exitCodes = R"(Exit codes:
  0  all went well
  1  the command line or an input file is wrong
  2  a capture is cut, breaks a rule, or differs from another
  3  something could not be sent or written, or a template is too much for a chart
)";

std::string requireUtf8(std::string const& text) {
  return findBadUtf8(text) == std::string::npos ? "" : inQuotes(text) + " is not UTF-8";
}

}  // namespace kestrel::tool
