#include "client_options.h"

#include "command_options.h"
#include "render_command.h"
#include "serve/serve_command.h"
#include "view_command.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <limits>
#include <string>

namespace kestrel::tool {

namespace {

constexpr char const* renderNotes =
    R"(The picture is what a page of kestrel view shows. It needs Node.js of version 18 or
later, and for PNG also rsvg-convert. What the picture leaves out is told.

)";

constexpr char const* serveNotes =
    R"(A SOURCE is a capture to show, or unix:PATH, a socket that is made and listened on.
Without any it is the socket kestrel.sock in the current folder. Programs send there
with KESTREL_CAPTURE=unix:PATH or kestrel chart ... --send unix:PATH.

Whoever can reach the address sees all charts; usually that is this machine alone.
The newest charts are kept, in memory. It ends at SIGINT or SIGTERM.

)";

CLI::App* addView(CLI::App& program, ViewRequest& request) {
  CLI::App* const view = program.add_subcommand(
      "view", "Writes a page that shows a capture in any browser, and needs nothing else");
  addOption(*view, "CAPTURE", request.capture, fileValue, "the capture, such as OUT/capture.kcap")
      ->required();
  addOption(*view, "-o,--output", request.output, fileValue, "the page, such as chart.html")->required();
  view->footer(exitCodes);
  return view;
}

CLI::App* addRender(CLI::App& program, RenderRequest& request) {
  CLI::App* const render = program.add_subcommand("render", "Draws a chart of a capture as SVG or PNG");
  addOption(*render, "CAPTURE", request.capture, fileValue, "the capture, such as OUT/capture.kcap")
      ->required();
  addOption(*render, "-o,--output", request.output, fileValue, "the picture, a name with .svg or .png")
      ->required();
  render->add_option("--chart", request.chart, "which chart of the capture (1)")
      ->type_name("N")
      ->check(CLI::Range(1, 1'000'000));
  render->add_option("--zoom", request.zoom, "how many pixels of a PNG are one of the chart's (1)")
      ->type_name("FACTOR")
      ->check(CLI::Range(0.1, 10.0));
  render->footer(renderNotes + std::string(exitCodes));
  return render;
}

CLI::App* addServe(CLI::App& program, ServeRequest& request) {
  CLI::App* const serve = program.add_subcommand("serve", "Shows charts in a browser as programs send them");
  addOption(*serve, "SOURCE", request.sources, "SOURCE", "a capture, or a socket unix:PATH")
      ->allow_extra_args(true);
  serve->add_option("--port", request.port, "the port (8411); 0 for any that is free")
      ->type_name("N")
      ->check(CLI::Range(0, 65535));
  addOption(*serve, "--host", request.host, "ADDRESS", "the address to serve at (127.0.0.1)");
  serve->add_option("--keep", request.keep, "how many charts are kept (100)")
      ->type_name("N")
      ->check(CLI::Range(1, 100'000));
  serve
      ->add_option(
          "--max-bytes", request.mostBytes,
          "how many bytes the kept charts may take, and as much again those on their way (1073741824)")
      ->type_name("BYTES")
      ->check(CLI::Range(std::int64_t{1}, std::numeric_limits<std::int64_t>::max()));
  addReceiving(*serve, request);
  serve->footer(serveNotes + std::string(exitCodes));
  return serve;
}

}  // namespace

struct ClientCommands::Requests {
  ViewRequest view;
  RenderRequest render;
  ServeRequest serve;
  CLI::App const* viewCommand = nullptr;
  CLI::App const* renderCommand = nullptr;
  CLI::App const* serveCommand = nullptr;
};

ClientCommands::ClientCommands() : mRequests(std::make_unique<Requests>()) {}

ClientCommands::~ClientCommands() = default;

void ClientCommands::addTo(CLI::App& program) {
  mRequests->viewCommand = addView(program, mRequests->view);
  mRequests->renderCommand = addRender(program, mRequests->render);
  mRequests->serveCommand = addServe(program, mRequests->serve);
}

std::optional<Exit> ClientCommands::run() const {
  bool isSound = true;
  if (mRequests->viewCommand->parsed()) {
    isSound = runView(mRequests->view);
  } else if (mRequests->renderCommand->parsed()) {
    isSound = runRender(mRequests->render);
  } else if (mRequests->serveCommand->parsed()) {
    runServe(mRequests->serve);
  } else {
    return std::nullopt;
  }
  return isSound ? Exit::Success : Exit::BadCapture;
}

}  // namespace kestrel::tool
