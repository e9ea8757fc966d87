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

}  // namespace kestrel::tool
