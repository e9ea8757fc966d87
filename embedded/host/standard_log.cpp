#include "kestrelhost/log.h"

#include <spdlog/logger.h>
#include <spdlog/sinks/stdout_sinks.h>

#include <cstdlib>

namespace kestrel::host {

namespace {

/// Text from outside must not steer a terminal: control characters other than line feed and tab are replaced.
std::string printable(std::string text) {
  for (char& character : text) {
    auto const code = static_cast<unsigned char>(character);
    bool const control = code < 0x20 || code == 0x7F;
    if (control && character != '\n' && character != '\t') character = '?';
  }
  return text;
}

void write(spdlog::level::level_enum level, std::string const& text) {
  // Never destroyed: destructors of other libraries' statics still log.
  static spdlog::logger& logger = [&]() -> spdlog::logger& {
    auto& made = *new spdlog::logger("kestrel", std::make_shared<spdlog::sinks::stderr_sink_mt>());
    made.set_pattern("%n: %l: %v");
    made.set_level(spdlog::level::trace);
    made.flush_on(spdlog::level::trace);
    return made;
  }();
  logger.log(level, spdlog::string_view_t(printable(text)));
}

}  // namespace

Log::~Log() = default;
UserMessages::~UserMessages() = default;
Trace::~Trace() = default;

void StandardLog::error(std::string const& message, std::string const& file, unsigned int line) {
  std::string const place = file.empty() ? std::string() : " (" + file + ":" + std::to_string(line) + ")";
  write(spdlog::level::err, message + place);
}

void StandardLog::note(std::string const& message) { write(spdlog::level::info, message); }

void StandardMessages::show(BpCellText const& text, BpErrorShow, BpErrorLevel level) {
  write(level >= BpLevelSevere ? spdlog::level::critical : spdlog::level::warn, text.text());
}

StandardTrace::StandardTrace() : mOn(std::getenv("KESTREL_TRACE") != nullptr) {}

void StandardTrace::line(std::string const& text) {
  if (mOn) write(spdlog::level::trace, text);
}

void SilentLog::error(std::string const&, std::string const&, unsigned int) {}
void SilentLog::note(std::string const&) {}
void SilentMessages::show(BpCellText const&, BpErrorShow, BpErrorLevel) {}
void SilentTrace::line(std::string const&) {}

}  // namespace kestrel::host
