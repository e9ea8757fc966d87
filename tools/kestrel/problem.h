#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kestrel::tool {

/// Exit codes of the program, as its help tells them.
enum class Exit : int {
  Success = 0,
  BadInput = 1,    ///< the command line, or a file that was given as input
  BadCapture = 2,  ///< a capture that is cut or breaks a rule
  NotWritten = 3,  ///< something could not be sent or written, or a chart has not got a template
};

/// What ends a command: one line for the user, and the exit code.
class Problem : public std::runtime_error {
 public:
  Problem(std::string const& text, Exit exit) : std::runtime_error(text), mExit(exit) {}

  Exit exit() const { return mExit; }

 private:
  Exit mExit;
};

/// A problem with a line of an input file; lines count from 1.
Problem badInput(std::string const& file, std::size_t line, std::string const& what);
/// A problem with an input file as a whole.
Problem badInput(std::string const& file, std::string const& what);

/// The text without control characters, so that names and cells from outside cannot steer a terminal.
std::string printable(std::string_view text);

/// The text in single quotes, printable.
std::string inQuotes(std::string_view text);

/// Writes "kestrel: " and one line to standard error.
void tell(std::string const& text);

/// "1 row", "2 rows": a count with its noun, in groups of three digits.
std::string counted(std::size_t count, std::string const& noun);
std::string grouped(std::size_t count);

}  // namespace kestrel::tool
