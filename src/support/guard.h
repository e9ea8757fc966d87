#pragma once

#include "support/failure.h"

#include "host/messages.h"

#include <utility>

namespace kestrel {

/// Runs `body` under the failure idiom that exported methods share: whatever it throws is reported to the
/// user and logged, and the caller goes on with the value that it prepared. Only VexaGoToCaller leaves: it is
/// the host's own way out of a procedure.
/// @param context the message of the log entry, such as "Error in XAxis::setDelta()"
template <typename Body>
void guarded(char const* context, Body&& body, char const* file = __builtin_FILE(),
             unsigned int line = __builtin_LINE()) {
  try {
    std::forward<Body>(body)();
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    reportFailure(context, file, line);
  }
}

/// The short form: a failure goes to the log, and the user is not told.
template <typename Body>
void guardedLogOnly(char const* message, Body&& body, char const* file = __builtin_FILE(),
                    unsigned int line = __builtin_LINE()) {
  try {
    std::forward<Body>(body)();
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    logFailure(message, file, line);
  }
}

}  // namespace kestrel
