#include "support/failure.h"

#include "host/log.h"
#include "host/messages.h"

namespace kestrel {

namespace {

/// What every message of the library passes to the host; what the numbers mean is the host's.
constexpr auto shown = static_cast<BpErrorShow>(2);
constexpr auto level = static_cast<BpErrorLevel>(2);

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

void tellUser(BpCellText const& message) { BpError(message, shown, level); }

void tellUser(char const* text) { tellUser(BpString(text, true)); }

void tellUser(char const* pattern, std::string const& detail) {
  BpComposite message(pattern, true);
  message.Add(BpString(detail, false));
  message.Finish();
  tellUser(message);
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
