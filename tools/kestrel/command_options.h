#pragma once

#include <CLI/CLI.hpp>

#include <string>

// What the options of all commands have in common. CLI11 is dear to compile: only what declares options
// includes this.

namespace kestrel::tool {

/// What the help calls the value of an option.
inline constexpr char const* textValue = "TEXT";
inline constexpr char const* columnValue = "COLUMN";
inline constexpr char const* fileValue = "FILE";
inline constexpr char const* folderValue = "FOLDER";

/// The end of each command's help.
extern char const* const exitCodes;

/// CLI11 hands texts on as they are; all that goes into a chart is UTF-8. Empty where the text is so, else
/// what is wrong.
std::string requireUtf8(std::string const& text);

/// A list takes one value each time that the option is given.
template <typename Target>
CLI::Option* addOption(CLI::App& command, std::string const& name, Target& target, char const* value,
                       std::string const& meaning) {
  return command.add_option(name, target, meaning)
      ->allow_extra_args(false)
      ->check(requireUtf8)
      ->type_name(value);
}

/// What every command that receives charts allows their senders.
template <typename Request>
void addReceiving(CLI::App& command, Request& request) {
  command.add_option("--limit", request.limit, "how long a chart may be, in MiB (256)")
      ->type_name("MIB")
      ->check(CLI::Range(1, 4096));
  command
      .add_option("--idle", request.idle,
                  "after how many seconds in which it sends nothing a connection is closed (60); 0 for never")
      ->type_name("SECONDS")
      ->check(CLI::Range(0, 1'000'000));
}

}  // namespace kestrel::tool
