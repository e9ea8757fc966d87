#pragma once

#include "kestrelhost/log.h"

#include <string>
#include <vector>

namespace kestrel::tool {

/// Keeps what the library tells the user, for a fault that names the file.
class KeptMessages : public host::UserMessages {
 public:
  void show(BpCellText const& text, BpErrorShow, BpErrorLevel) override { all.push_back(text.text()); }

  std::string last() const { return all.empty() ? std::string() : all.back(); }

  std::vector<std::string> all;
};

/// Keeps why something failed, and what a service that is not there says of itself.
class KeptLog : public host::SilentLog {
 public:
  void error(std::string const& message, std::string const&, unsigned int) override {
    errors.push_back(message);
  }
  void note(std::string const& message) override { notes.push_back(message); }

  std::vector<std::string> errors;
  std::vector<std::string> notes;
};

/// One after the other, with a semicolon between them.
inline std::string joined(std::vector<std::string> const& texts) {
  std::string all;
  for (std::string const& text : texts) all += (all.empty() ? "" : "; ") + text;
  return all;
}

/// The same behind another text.
inline std::string behind(std::string text, std::vector<std::string> const& more) {
  for (std::string const& each : more) text += "; " + each;
  return text;
}

}  // namespace kestrel::tool
