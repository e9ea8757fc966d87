#include "support/failure.h"

#include "host/log.h"
#include "host/messages.h"

namespace kestrel {

namespace {

/// What every message of the library passes to the host; what the numbers mean is the host's.
constexpr auto shown = static_cast<BpErrorShow>(2);
constexpr auto usualLevel = static_cast<BpErrorLevel>(2);

void log(ChartException const& failure) {
  ChartErrorHandler handler;
  handler.error(failure);
}

}  // namespace

void reportFailure(char const* context, char const* file, unsigned int line) {
  tellUser(unknownError);
  log(ChartException(context, file, line));
}

void logFailure(std::string const& message, char const* file, unsigned int line) {
  log(ChartException(message, file, line));
}

void tellUser(BpCellText const& message) { BpError(message, shown, usualLevel); }

void tellUser(char const* text) { tellUser(BpString(text, true)); }

void tellUser(char const* pattern, std::string const& detail) {
  tellUser(pattern, BpString(detail, false), usualLevel);
}

void tellUser(char const* pattern, BpString const& detail, BpErrorLevel level) {
  BpComposite message(pattern, true);
  message.Add(detail);
  message.Finish();
  BpError(message, shown, level);
}

void reportAndThrow(std::string const& message, char const* file, unsigned int line) {
  ChartException const failure(message, file, line);
  log(failure);
  throw ChartException(failure);
}

void throwFailure(std::string const& message, char const* file, unsigned int line) {
  throw ChartException(message, file, line);
}

}  // namespace kestrel
