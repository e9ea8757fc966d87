#pragma once

#include <memory>
#include <string>
#include <vector>

class XDocument;

namespace kestrel::host {
class TemplateEngine;
struct Host;
}  // namespace kestrel::host

namespace kestrel::tool {

/// The templates that the command line names: files, or shipped templates by their plain names.
struct TemplateRequest {
  std::vector<std::string> styles;
  std::vector<std::string> options;
  std::vector<std::string> user;
};

/// The names of the shipped templates in alphabetical order.
std::vector<std::string> shippedTemplates();

struct TemplateFile {
  std::string path;
  std::string text;
};

/// Templates that were read and found to be good.
class ChartTemplates {
 public:
  /// Tells all faults but the last one, and throws a Problem of that one.
  explicit ChartTemplates(TemplateRequest const& request);

  /// Styles and options become settings of the host, and its files give each template as it was checked, even
  /// if the file has changed since. The engine, null for the usual one, applies them to one chart, which
  /// messages call `chart`; what it refuses to apply is kept for requireApplied() and does not go to the
  /// host's log.
  void install(host::Host& host, std::string const& chart,
               std::shared_ptr<host::TemplateEngine> engine = nullptr) const;
  /// The chart gets the user's templates when it is completed.
  void addTo(XDocument& document) const;

  /// Where a chart was made without one of the templates: tells all of these but the last one, and throws a
  /// Problem of that one.
  void requireApplied() const;

  /// As a chart gets them one after the other.
  std::vector<TemplateFile> inOrder() const;

 private:
  std::vector<TemplateFile> mStyles;
  std::vector<TemplateFile> mOptions;
  std::vector<TemplateFile> mUser;
  /// A line for each template that was not applied.
  std::shared_ptr<std::vector<std::string>> mNotApplied = std::make_shared<std::vector<std::string>>();
};

}  // namespace kestrel::tool
