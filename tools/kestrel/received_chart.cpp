#include "received_chart.h"

#include "files.h"
#include "kept_reports.h"
#include "problem.h"
#include "text_input.h"
#include "xdocument.h"

#include "kestrelhost/host.h"
#include "model/chartstring.h"
#include "model/document.h"

namespace kestrel::tool {

namespace {

constexpr std::string_view descriptionEnding = ".pdl";

/// The library shows a description that was refused below the reason; whoever has the file does not need it
/// again.
std::string withoutDescription(std::string message) {
  std::size_t const description = message.find("\n \nPDL:\n");
  if (description != std::string::npos) message.resize(description);
  std::size_t const lineBreak = message.find("\n    ");
  if (lineBreak != std::string::npos) message.erase(lineBreak, 4).replace(lineBreak, 1, "");
  return message;
}

std::unique_ptr<XDocument> parsed(std::string const& file, std::string const& text) {
  if (isDescription(file)) {
    // The library would put other characters in the place of what is no text.
    requireUtf8(file, text);
    return std::make_unique<XDocument>(text, XDocument::UseUTF8);
  }
  return std::make_unique<XDocument>(text);
}

/// The library takes any element for the root of a chart.
void requireChart(XDocument const& document, std::string const& file, std::string const& why) {
  if (document.AsUTF8().empty()) throw badInput(file, "cannot be read as a chart: " + why);
  std::string const root =
      ChartString(document.getVisualization()->getImplementation()->getLocalName()).toUTF8();
  if (root != "visualization") {
    throw badInput(file, "is no chart: its root element is " + inQuotes(root) + ", not 'visualization'");
  }
}

}  // namespace

bool isDescription(std::string_view file) {
  return file.size() >= descriptionEnding.size() &&
         file.substr(file.size() - descriptionEnding.size()) == descriptionEnding;
}

std::unique_ptr<XDocument> readChart(std::string const& file) {
  std::string const text = readFile(file);
  if (text.empty()) throw badInput(file, "is empty; a chart has a root element");
  auto const messages = std::make_shared<KeptMessages>();
  auto const log = std::make_shared<KeptLog>();
  host::Host host;
  host.log = log;
  host.messages = messages;
  host::ScopedHost const scope(host);
  auto document = parsed(file, text);
  requireChart(*document, file, behind(withoutDescription(messages->last()), log->notes));
  return document;
}

}  // namespace kestrel::tool
