#include "side_commands.h"

#include "problem.h"
#include "send/send_command.h"
#include "side_delivery.h"
#include "xember.h"
#include "ximage.h"
#include "xinteractive.h"

#include <filesystem>
#include <utility>

namespace kestrel::tool {

namespace {

using Attachment = std::pair<std::string, std::string>;

/// A file may have an equals sign in its name: where there is such a file, that is it.
Attachment readAttachment(std::string const& text) {
  std::error_code ignored;
  std::size_t const equals = text.find('=');
  if (equals == std::string::npos || std::filesystem::exists(text, ignored))
    return {nameInChart(text), requireJson(text)};
  if (equals == 0)
    throw Problem("--geojson " + inQuotes(text) + " has no name before the equals sign", Exit::BadInput);
  return {text.substr(0, equals), requireJson(text.substr(equals + 1))};
}

/// Read before anything is sent: a file that is wrong is a fault of the command line.
std::vector<Attachment> readAttachments(std::vector<std::string> const& texts) {
  std::vector<Attachment> attachments;
  attachments.reserve(texts.size());
  for (std::string const& text : texts) attachments.push_back(readAttachment(text));
  return attachments;
}

template <typename Document>
void attach(Document& document, std::vector<Attachment> const& attachments) {
  for (auto const& [name, content] : attachments) document.addGeoJSON(name, content);
}

}  // namespace

void runImage(ImageRequest const& request) {
  std::string const bytes = requireContent(request.image);
  deliver(request, "image", [&] {
    XImage image;
    describe(image, request);
    image.setImageInline(ChartXMLContentSubType{request.subtype}, bytes);
    return image.sendImage();
  });
}

void runInteractive(InteractiveRequest const& request) {
  std::string const json = requireJson(request.page);
  std::string const options = optionsOf(request);
  std::vector<Attachment> const attachments = readAttachments(request.attachments);
  deliver(request, "page", [&] {
    xInteractive page;
    describe(page, request);
    page.setInteractiveJSON(json);
    page.setProcedureName(request.procedure);
    page.setJSONPath(request.path);
    page.setOptions(options);
    attach(page, attachments);
    return page.sendInteractive();
  });
}

void runEngine(EngineRequest const& request) {
  requireJson(request.chart);
  std::string const json = request.engineTemplate.empty() ? "" : requireJson(request.engineTemplate);
  std::string const options = optionsOf(request);
  std::vector<Attachment> const attachments = readAttachments(request.attachments);
  deliver(request, "chart", [&] {
    xEmber chart;
    describe(chart, request);
    if (!chart.setLumoJSON(request.chart)) throw badInput(request.chart, "is no regular file");
    chart.setLumoJSONTemplate(json);
    chart.setOptions(options);
    attach(chart, attachments);
    return chart.sendChart();
  });
}

}  // namespace kestrel::tool
