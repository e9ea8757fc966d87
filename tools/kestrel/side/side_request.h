#pragma once

#include <string>
#include <vector>

namespace kestrel::tool {

/// What the commands that send something else than a chart have in common. Here and below an empty text was
/// not given.
struct SideRequest {
  std::string description;
  /// The folder for the capture, and the address of a listener; one of them may be empty.
  std::string output;
  std::string send;
};

struct ImageRequest : SideRequest {
  std::string image;
  unsigned int subtype = 0;
};

/// Options for the client: a text, or a file with one.
struct OptionsRequest : SideRequest {
  std::string options;
  std::string optionsFile;
};

struct InteractiveRequest : OptionsRequest {
  std::string page;
  std::string procedure;
  std::string path;
  /// FILE or NAME=FILE.
  std::vector<std::string> attachments;
};

struct EngineRequest : OptionsRequest {
  std::string chart;
  std::string engineTemplate;
  /// FILE or NAME=FILE.
  std::vector<std::string> attachments;
};

struct ServiceRequest : OptionsRequest {
  std::string source;
  /// NAME or NAME=INDEX.
  std::vector<std::string> variables;
  /// The table whose rows are the data.
  std::string data;
};

}  // namespace kestrel::tool
