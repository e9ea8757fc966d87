#include "explain_command.h"

#include "explanation.h"
#include "files.h"
#include "problem.h"
#include "provenance.h"
#include "xdocument.h"

#include "kestrelhost/host.h"
#include "model/chartstring.h"
#include "model/document.h"

#include <memory>
#include <string>

namespace kestrel::tool {

namespace {

/// Keeps the last message, for a fault that names the file.
class KeptMessage : public host::UserMessages {
 public:
  void show(BpCellText const& text, BpErrorShow, BpErrorLevel) override { last = text.text(); }

  std::string last;
};

/// The library takes any element for the root of a chart.
void requireChart(XDocument const& document, std::string const& file, std::string const& message) {
  if (document.AsUTF8().empty()) throw badInput(file, "cannot be read as a chart: " + message);
  std::string const root =
      ChartString(document.getVisualization()->getImplementation()->getLocalName()).toUTF8();
  if (root != "visualization") {
    throw badInput(file, "is no chart: its root element is " + inQuotes(root) + ", not 'visualization'");
  }
}

/// What the library says while it reads is the fault of the file, and is told as that alone.
std::unique_ptr<XDocument> readChart(std::string const& file) {
  std::string const text = readFile(file);
  if (text.empty()) throw badInput(file, "is empty; a chart has a root element");
  auto const messages = std::make_shared<KeptMessage>();
  host::Host host;
  host.log = std::make_shared<host::SilentLog>();
  host.messages = messages;
  host::ScopedHost const scope(host);
  auto document = std::make_unique<XDocument>(text);
  requireChart(*document, file, messages->last);
  return document;
}

}  // namespace

void runExplain(ExplainRequest const& request) {
  std::unique_ptr<XDocument> const document = readChart(request.chart);
  ChartTemplates const templates(request.templates);
  LumoVisualization const& chart = *document->getVisualization();
  auto const provenance = std::make_shared<Provenance>();
  provenance->noteBuilder(chart);
  host::Host host;
  templates.install(host);
  host.templateEngine = std::make_shared<FollowedTemplates>(provenance, templates.inOrder());
  host::ScopedHost const scope(host);
  templates.addTo(*document);
  document->getChartXML();
  Explanation const explanation{request.chart, templates.inOrder(), explainElements(chart, *provenance)};
  print(request.json ? explanationJson(explanation, request.all) : explanationText(explanation, request.all));
}

}  // namespace kestrel::tool
