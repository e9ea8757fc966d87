#include "view_command.h"

#include "base64.h"
#include "files.h"
#include "inspect/capture_reader.h"
#include "inspect/inspect_command.h"
#include "inspect/inspection.h"
#include "listen/chart_summary.h"
#include "problem.h"
#include "shipped_client.h"
#include "utf8.h"

#include <filesystem>
#include <string_view>

namespace kestrel::tool {

namespace {

/// A browser holds a page as one text, and no longer one than this in base64.
constexpr std::size_t longestCapture = std::size_t{256} << 20;

/// The places of the page that are filled; both stand in it before its script.
constexpr std::string_view titlePlace = "{{title}}";
constexpr std::string_view capturePlace = "{{capture}}";

std::string asMarkup(std::string_view text) {
  std::string markup;
  for (char const character : text) {
    if (character == '&') {
      markup += "&amp;";
    } else if (character == '<') {
      markup += "&lt;";
    } else {
      markup += character;
    }
  }
  return markup;
}

void fill(std::string& page, std::string_view place, std::string_view text) {
  std::size_t const at = page.find(place);
  if (at == std::string::npos)
    throw Problem("the page of the client has no place for its chart; build it anew", Exit::NotWritten);
  page.replace(at, place.size(), text);
}

}  // namespace

std::string readCaptureFile(std::string const& path) {
  std::string bytes = readFile(path);
  std::string const whatToGive = "; give a capture, such as kestrel chart writes";
  if (!bytes.starts_with(captureSignature))
    throw badInput(path, bytes.empty() ? "is empty" + whatToGive
                                       : "is no capture, which starts with " + std::string(captureSignature) +
                                             whatToGive);
  return bytes;
}

bool runView(ViewRequest const& request) {
  std::string const capture = readCaptureFile(request.capture);
  if (capture.size() > longestCapture)
    throw badInput(request.capture, "is too long for a page, which holds up to " +
                                        counted(longestCapture, "byte") + "; kestrel serve shows it");
  std::string page = readFile(clientFile("page.html").string());
  std::string const name = printable(std::filesystem::path(request.capture).filename().string());
  // The name of a file may be anything; the page is UTF-8.
  fill(page, titlePlace, asMarkup(findBadUtf8(name) == std::string::npos ? name : "Chart"));
  fill(page, capturePlace, base64(capture));
  writeFile(request.output, page);
  Inspection const inspection(capture);
  tellFaults(request.capture, inspection.faults());
  print(printable(request.output) + ": " + summaryOf(inspection, capture.size()) + ", a page of " +
        counted(page.size(), "byte") + "\n");
  return inspection.faults().empty();
}

}  // namespace kestrel::tool
