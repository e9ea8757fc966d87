#include "render_command.h"

#include "child_process.h"
#include "files.h"
#include "inspect/inspect_command.h"
#include "inspect/inspection.h"
#include "problem.h"
#include "shipped_client.h"
#include "view_command.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <system_error>
#include <vector>

namespace kestrel::tool {

namespace {

namespace fs = std::filesystem;

/// A folder of its own for what is on its way, removed in the end.
class PassingFolder {
 public:
  PassingFolder() {
    std::error_code error;
    fs::path const parent = fs::temp_directory_path(error);
    std::string path = (parent / "kestrel-XXXXXX").string();
    if (error)
      throw Problem("there is no folder for what is on its way; name one in TMPDIR", Exit::NotWritten);
    if (::mkdtemp(path.data()) == nullptr)
      throw Problem(path + ": cannot make a folder for what is on its way; name another place in TMPDIR",
                    Exit::NotWritten);
    mPath = path;
  }
  ~PassingFolder() {
    std::error_code ignored;
    fs::remove_all(mPath, ignored);
  }
  PassingFolder(PassingFolder const&) = delete;
  PassingFolder& operator=(PassingFolder const&) = delete;

  fs::path const& path() const { return mPath; }

 private:
  fs::path mPath;
};

std::vector<std::string> linesOf(std::string const& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty()) lines.push_back(printable(line));
  }
  return lines;
}

/// Debian has called it by both names.
ChildOutcome runNode(std::vector<std::string> command) {
  for (char const* const name : {"node", "nodejs"}) {
    command.front() = name;
    ChildOutcome outcome = runProgram(command);
    if (outcome.found) return outcome;
  }
  throw Problem(
      "Node.js is not there, which draws without a browser; install it (Debian: nodejs, Homebrew: node), or "
      "look at the chart in a browser: kestrel view CAPTURE -o chart.html",
      Exit::NotWritten);
}

/// How the client ends where it cannot draw the chart, and says why in its last line. All other ends are
/// those of Node.js itself, such as of one that is too old.
constexpr int cannotDraw = 4;

Problem nodeFailed(ChildOutcome const& outcome, std::vector<std::string> const& lines) {
  std::string text = "Node.js has ended with " + std::to_string(outcome.exit);
  auto const said = std::find_if(lines.begin(), lines.end(), [](std::string const& line) {
    return line.find("rror: ") != std::string::npos;
  });
  if (said != lines.end()) text += " (" + *said + ")";
  return {text + "; see that node --version is 18 or later, and that there is memory for the chart",
          Exit::NotWritten};
}

/// What is wrong with the capture has been told where it is faulty; the client would tell it again.
void drawSvg(RenderRequest const& request, bool isFaulty, fs::path const& svg) {
  ChildOutcome const outcome =
      runNode({"", clientFile("render.mjs").string(), fs::absolute(request.capture).string(), svg.string(),
               std::to_string(request.chart), isFaulty ? "told" : ""});
  std::vector<std::string> lines = linesOf(outcome.errors);
  bool const isRefused = outcome.exit == cannotDraw && !lines.empty();
  if (!isRefused && (outcome.exit != 0 || !fs::exists(svg))) throw nodeFailed(outcome, lines);
  std::string const reason = isRefused ? lines.back() : "";
  if (isRefused) lines.pop_back();
  for (std::string const& line : lines) tell(request.capture + ": " + line);
  if (isRefused)
    throw Problem(request.capture + ": cannot be drawn: " + reason,
                  isFaulty ? Exit::BadCapture : Exit::BadInput);
}

void paintPng(fs::path const& svg, double zoom, fs::path const& png) {
  ChildOutcome const outcome =
      runProgram({"rsvg-convert", "--format=png", "--background-color=white",
                  "--zoom=" + std::to_string(zoom), "--output=" + png.string(), svg.string()});
  if (!outcome.found)
    throw Problem(
        "rsvg-convert is not there, which makes PNG of SVG; install it (Debian: librsvg2-bin, "
        "Homebrew: librsvg), or write the chart as .svg",
        Exit::NotWritten);
  if (outcome.exit != 0) {
    std::vector<std::string> const lines = linesOf(outcome.errors);
    throw Problem("rsvg-convert: " + (lines.empty() ? "has failed" : lines.back()), Exit::NotWritten);
  }
}

}  // namespace

bool runRender(RenderRequest const& request) {
  std::string const ending = fs::path(request.output).extension().string();
  if (ending != ".svg" && ending != ".png")
    throw badInput(request.output, "has to end with .svg or .png, which says what is written");
  std::string const capture = readCaptureFile(request.capture);
  Inspection const inspection(capture);
  tellFaults(request.capture, inspection.faults());
  bool const isFaulty = !inspection.faults().empty();
  PassingFolder const folder;
  fs::path picture = folder.path() / "chart.svg";
  drawSvg(request, isFaulty, picture);
  if (ending == ".png") {
    fs::path const svg = picture;
    picture.replace_extension(".png");
    paintPng(svg, request.zoom, picture);
  }
  std::string const bytes = readFile(picture.string());
  writeFile(request.output, bytes);
  print(printable(request.output) + ": " + counted(bytes.size(), "byte") + "\n");
  return !isFaulty;
}

}  // namespace kestrel::tool
