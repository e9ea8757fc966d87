#include "explain_command.h"

#include "explanation.h"
#include "files.h"
#include "provenance.h"
#include "received_chart.h"
#include "xdocument.h"

#include "kestrelhost/host.h"
#include "model/document.h"

#include <memory>
#include <string>

namespace kestrel::tool {

void runExplain(ExplainRequest const& request) {
  std::unique_ptr<XDocument> const document = readChart(request.chart);
  ChartTemplates const templates(request.templates);
  LumoVisualization const& chart = *document->getVisualization();
  auto const provenance = std::make_shared<Provenance>();
  provenance->noteBuilder(chart);
  host::Host host;
  templates.install(host, request.chart,
                    std::make_shared<FollowedTemplates>(provenance, templates.inOrder()));
  host::ScopedHost const scope(host);
  templates.addTo(*document);
  document->getChartXML();
  Explanation const explanation{request.chart, templates.inOrder(), explainElements(chart, *provenance)};
  print(request.json ? explanationJson(explanation, request.all) : explanationText(explanation, request.all));
  templates.requireApplied();
}

}  // namespace kestrel::tool
