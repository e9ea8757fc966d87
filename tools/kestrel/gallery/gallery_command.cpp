#include "gallery_command.h"

#include "chart/nearest_name.h"
#include "files.h"
#include "gallery.h"
#include "problem.h"
#include "xdocument.h"

#include "kestrelhost/host.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

namespace {

namespace fs = std::filesystem;
using gallery::Example;

Example const& exampleOf(std::string const& name) {
  std::vector<Example> const& all = gallery::examples();
  auto const found =
      std::find_if(all.begin(), all.end(), [&](Example const& example) { return example.name == name; });
  if (found != all.end()) return *found;
  std::vector<std::string> names;
  names.reserve(all.size());
  for (Example const& example : all) names.emplace_back(example.name);
  std::string const nearest = nearestName(name, names);
  std::string const hint = nearest.empty() ? "" : "; did you mean " + inQuotes(nearest) + "?";
  throw Problem(
      "the gallery has no chart " + inQuotes(name) + hint + "; kestrel gallery --list names them all",
      Exit::BadInput);
}

std::vector<Example> chosen(std::vector<std::string> const& names) {
  if (names.empty()) return gallery::examples();
  std::vector<Example> examples;
  examples.reserve(names.size());
  for (std::string const& name : names) examples.push_back(exampleOf(name));
  return examples;
}

void listGallery() {
  std::size_t widest = 0;
  for (Example const& example : gallery::examples())
    widest = std::max(widest, std::string_view(example.name).size());
  std::string text;
  for (Example const& example : gallery::examples()) {
    std::string name = example.name;
    name.resize(widest + 2, ' ');
    text += name + example.title + "\n";
  }
  print(text);
}

void makeExample(Example const& example, ChartTemplates const& templates, fs::path const& folder) {
  fs::path const file = folder / (std::string(example.name) + ".kcap");
  host::Host host;
  templates.install(host, file.string());
  auto capture = std::make_shared<host::CaptureChannel>(file.string());
  host.channel = capture;
  host::ScopedHost const scope(host);
  XDocument document;
  try {
    example.describe(document);
  } catch (std::exception const& failure) {
    throw Problem(failure.what(), Exit::BadInput);
  }
  templates.addTo(document);
  bool const sent = capture->good() && document.SendChart(false, false, false) && capture->flush();
  if (!sent)
    throw Problem(file.string() + ": cannot be written; is there room in the folder?", Exit::NotWritten);
  fs::path text = file;
  text.replace_extension(".xml");
  writeFile(text, document.AsUTF8());
  print(printable(file.string()) + ": " + example.title + "\n");
}

}  // namespace

void runGallery(GalleryRequest const& request) {
  if (request.list) return listGallery();
  std::vector<Example> const examples = chosen(request.names);
  if (request.output.empty()) {
    throw Problem("-o FOLDER is needed: where to write the charts; kestrel gallery --list names them",
                  Exit::BadInput);
  }
  ChartTemplates const templates(request.templates);
  makeFolder(request.output);
  for (Example const& example : examples) makeExample(example, templates, request.output);
  templates.requireApplied();
}

}  // namespace kestrel::tool
