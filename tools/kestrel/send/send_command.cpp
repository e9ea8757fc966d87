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
    document.setStyleSheet(nameInChart(request.styleSheet), contentOf(request.styleSheet, "a style sheet"));
  if (!request.map.empty()) document.setLUMOMap(nameInChart(request.map), contentOf(request.map, "a map"));
  if (!request.referenceMap.empty())
    document.setLUMORefMap(nameInChart(request.referenceMap), contentOf(request.referenceMap, "a map"));
  for (std::string const& name : request.attachments) {
    // The library leaves out an attachment that it cannot read and goes on: here that is a fault of the
    // command line.
    contentOf(name, "an attachment");
    document.AddCSVFile(name);
  }
}

}  // namespace

std::string nameInChart(std::string const& file) { return std::filesystem::path(file).filename().string(); }

void runSend(SendRequest const& request) {
  requireWay(request);
  ChartTemplates const templates(request.templates);
  std::unique_ptr<XDocument> const document = readChart(request.chart);
  if (request.isProtected) document->doNotModify(true);
  addSideContents(*document, request);
  sendChart(*document, request, templates);
}

void requireWay(SendRequest const& request) {
  if (request.output.empty() && request.send.empty())
    throw Problem("give -o FOLDER, --send unix:PATH, or both", Exit::BadInput);
}

void sendChart(XDocument& document, SendRequest const& request, ChartTemplates const& templates) {
  keepDescription(document);
  VarDataProcessor store;
  readSourceData(*document.getVisualization(), request.data, store);
  if (!request.data.empty()) document.SetChartData(&store);
  ChartDelivery delivery(request.output, request.send);
  host::Host host;
  templates.install(host, delivery.name());
  host.channel = delivery.channel();
  auto const messages = std::make_shared<WatchedMessages>();
  host.messages = messages;
  host::ScopedHost const scope(host);
  templates.addTo(document);
  delivery.finish(document.SendChart(false, false, false));
  print(printable(delivery.name()) + ": " + counted(delivery.messages(), "message") + ", " +
        counted(delivery.bytes(), "byte") + "\n");
  // What failed of the style sheet has been shown.
  templates.requireApplied();
  if (messages->styleSheetFailed)
    throw Problem("the chart was sent without the style sheet", Exit::NotWritten);
}

}  // namespace kestrel::tool
