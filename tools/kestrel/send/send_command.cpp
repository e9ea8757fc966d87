#include "send_command.h"

#include "chart/chart_delivery.h"
#include "files.h"
#include "problem.h"
#include "received_chart.h"
#include "source_data.h"
#include "xdocument.h"

#include "host/data_store.h"
#include "kestrelhost/host.h"
#include "model/chartstring.h"
#include "model/document.h"

#include <filesystem>
#include <memory>

namespace kestrel::tool {

namespace {

std::string contentOf(std::string const& file, char const* what) {
  std::string content = readFile(file);
  if (content.empty()) throw badInput(file, std::string("is empty; ") + what + " has content");
  return content;
}

/// In the chart, files go by their names alone: whose machine they lay on is nobody's business.
std::string nameOf(std::string const& file) { return std::filesystem::path(file).filename().string(); }

/// Sending stamps the chart with the description that it is told: here the chart has its own.
void keepDescription(XDocument& document) {
  ChartString const description(
      document.getVisualization()->getImplementation()->getAttribute(u"description"));
  if (!description.empty()) document.SetDescription(description);
}

/// Shows messages as usual, and knows whether the style sheet was one of their subjects.
class WatchedMessages : public host::StandardMessages {
 public:
  void show(BpCellText const& text, BpErrorShow show, BpErrorLevel level) override {
    if (text.text().find("applying a stylesheet") != std::string::npos) styleSheetFailed = true;
    StandardMessages::show(text, show, level);
  }

  bool styleSheetFailed = false;
};

void addSideContents(XDocument& document, SendRequest const& request) {
  if (!request.styleSheet.empty())
    document.setStyleSheet(nameOf(request.styleSheet), contentOf(request.styleSheet, "a style sheet"));
  if (!request.map.empty()) document.setLUMOMap(nameOf(request.map), contentOf(request.map, "a map"));
  if (!request.referenceMap.empty())
    document.setLUMORefMap(nameOf(request.referenceMap), contentOf(request.referenceMap, "a map"));
  for (std::string const& name : request.attachments) {
    // The library leaves out an attachment that it cannot read and goes on: here that is a fault of the
    // command line.
    contentOf(name, "an attachment");
    document.AddCSVFile(name);
  }
}

}  // namespace

void runSend(SendRequest const& request) {
  if (request.output.empty() && request.send.empty())
    throw Problem("give -o FOLDER, --send unix:PATH, or both", Exit::BadInput);
  ChartTemplates const templates(request.templates);
  VarDataProcessor store;
  std::unique_ptr<XDocument> const document = readChart(request.chart);
  if (request.isProtected) document->doNotModify(true);
  readSourceData(*document->getVisualization(), request.data, store);
  if (!request.data.empty()) document->SetChartData(&store);
  keepDescription(*document);
  addSideContents(*document, request);
  ChartDelivery delivery(request.output, request.send);
  host::Host host;
  templates.install(host, delivery.name());
  host.channel = delivery.channel();
  auto const messages = std::make_shared<WatchedMessages>();
  host.messages = messages;
  host::ScopedHost const scope(host);
  templates.addTo(*document);
  delivery.finish(document->SendChart(false, false, false));
  print(printable(delivery.name()) + ": " + counted(delivery.messages(), "message") + ", " +
        counted(delivery.bytes(), "byte") + "\n");
  // What failed of the style sheet has been shown.
  templates.requireApplied();
  if (messages->styleSheetFailed)
    throw Problem("the chart was sent without the style sheet", Exit::NotWritten);
}

}  // namespace kestrel::tool
