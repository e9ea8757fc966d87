#pragma once

#include <string>

class BpCellText;
class BpString;
enum BpErrorLevel : int;

namespace kestrel {

/// Tells the user and then the log of a failure, in the way that all guarded operations share.
/// @param context the message of the log entry, such as "Error in XAxis::setDelta()"
void reportFailure(char const* context, char const* file, unsigned int line);

/// Writes to the log only.
void logFailure(std::string const& message, char const* file, unsigned int line);

/// What the user is told of a failure that has no words of its own. The text is the same also where nothing
/// is being converted: clients know it.
inline constexpr char const* unknownError = "Unknown Error occurred while converting to LumoML2.0.";

/// What the user is told of a file that cannot be read.
inline constexpr char const* noAccess = "File ^1 has no access...";

/// Shows a message to the user, as gravely as every message of the library.
void tellUser(BpCellText const& message);

/// Shows a text of the system to the user.
void tellUser(char const* text);

/// Shows the user a message of the system with one detail, which came from outside, in the place of "^1".
void tellUser(char const* pattern, std::string const& detail);

/// The same with a detail that may be the system's own, and as gravely as it is said.
void tellUser(char const* pattern, BpString const& detail, BpErrorLevel level);

/// Logs a failure that leaves the caller nothing to work with, and throws it.
[[noreturn]] void reportAndThrow(std::string const& message, char const* file = __builtin_FILE(),
                                 unsigned int line = __builtin_LINE());

/// Throws a failure that is not logged first.
[[noreturn]] void throwFailure(std::string const& message, char const* file = __builtin_FILE(),
                               unsigned int line = __builtin_LINE());

/// What an operation needs from the chart model. A missing object is a failure like any other one: a guard
/// reports it, and the caller sees it where there is none.
/// @param what names the object, for the message
template <typename T>
T& present(T* object, char const* what, char const* file = __builtin_FILE(),
           unsigned int line = __builtin_LINE()) {
  if (object == nullptr) throwFailure(std::string("There is no ") + what, file, line);
  return *object;
}

}  // namespace kestrel
