#include "chart_command.h"

#include "bar_places.h"
#include "chart_builder.h"
#include "chart_data.h"
#include "chart_delivery.h"
#include "chart_templates.h"
#include "files.h"
#include "problem.h"
#include "request_checks.h"
#include "xdocument.h"

#include "kestrelhost/host.h"

#include <array>
#include <string>

namespace kestrel::tool {

namespace {

/// The library leaves out an attachment that it cannot read and goes on: here that is a fault of the command
/// line.
void requireAttachments(ChartRequest const& request) {
  for (std::string const& name : request.attachments) {
    if (readFile(name).empty()) throw badInput(name, "is empty; an attachment has content");
  }
}

std::string typeOf(Column const& column) {
  constexpr std::array names = {"numbers", "dates", "dates with times"};
  std::string text;
  if (column.type == ColumnType::Text) {
    text = grouped(column.categories.size()) + (column.categories.size() == 1 ? " category" : " categories");
  } else {
    text = names[static_cast<std::size_t>(column.type)];
  }
  if (column.type != ColumnType::Text && column.categorical) text += " as categories";
  if (column.missing > 0) text += ", " + grouped(column.missing) + " missing";
  return text;
}

std::string summary(ChartDelivery const& delivery, ChartData const& data) {
  auto const& columns = data.columns;
  std::string text = printable(delivery.name()) + ": " + counted(data.rows(), "row") + ", " +
                     counted(columns.size(), "variable") + ", " + counted(delivery.messages(), "message") +
                     ", " + counted(delivery.bytes(), "byte") + "\n";
  for (Column const& column : columns) text += "  " + printable(column.name) + ": " + typeOf(column) + "\n";
  return text;
}

bool send(ChartRequest const& request, ChartData const& data, ChartTemplates const& templates,
          ChartDelivery const& delivery) {
  host::Host host;
  templates.install(host, delivery.name());
  host.channel = delivery.channel();
  host::ScopedHost const scope(host);
  XDocument document;
  describeChart(document, request, data);
  templates.addTo(document);
  return document.SendChart(false, false, false);
}

/// What may surprise in a chart that is made all the same.
void tellNotes(ChartRequest const& request, ChartData const& data) {
  if (barsCover(request, data)) {
    tell("note: several rows of " + request.data + " share a bar's place and will cover each other; " +
         "give a table with one row for each bar");
  }
  if (data.droppedRows > 0) {
    tell("note: " + counted(data.droppedRows, "row") + " of " + request.data + " without a value of column " +
         inQuotes(request.panelColumns.front()) + " will be left out; they have no side in the pyramid");
  }
}

}  // namespace

void runChart(ChartRequest const& request) {
  requireSense(request);
  ChartData const data = readChartData(request);
  requireAttachments(request);
  ChartTemplates const templates(request.templates);
  tellNotes(request, data);
  ChartDelivery delivery(request.output, request.send);
  delivery.finish(send(request, data, templates, delivery));
  print(summary(delivery, data));
  templates.requireApplied();
}

}  // namespace kestrel::tool
