#include "side_options.h"

#include "command_options.h"
#include "service_command.h"
#include "side_commands.h"
#include "side_request.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::tool {

struct SideCommands::Requests {
  ImageRequest image;
  InteractiveRequest interactive;
  EngineRequest engine;
  ServiceRequest service;
  std::vector<std::pair<CLI::App const*, std::function<void()>>> commands;
};

namespace {

constexpr char const* engineNotes =
    R"(The files are JSON, which is checked and sent as it is. --geojson attaches a file under
its own name, or under another one: --geojson lakes=maps/1.json.

)";

constexpr char const* interactiveNotes = engineNotes;

constexpr char const* serviceNotes =
    R"(Without a chart the client makes one itself, of the options, the variables and the data.
--variable names a variable and its number, which is its place from 0 where none is
given: --variable age --variable sex=7. With --data each is a column of that table, and
without --variable all columns are variables. What the options say is agreed with the
client.

)";

/// What all of them end with.
void addWays(CLI::App& command, SideRequest& request, std::string const& notes = {}) {
  addOption(command, "--description", request.description, textValue,
            "what is seen, in words, for who cannot see it");
  addOption(command, "-o,--output", request.output, folderValue, "where to write capture.kcap");
  addOption(command, "--send", request.send, "unix:PATH",
            "socket to send to, such as that of kestrel listen PATH; beside or instead of -o");
  command.footer(notes + exitCodes);
}

void addOptions(CLI::App& command, OptionsRequest& request) {
  CLI::Option* const text =
      addOption(command, "--options", request.options, textValue, "options for the client");
  addOption(command, "--options-file", request.optionsFile, fileValue, "the same in a file")->excludes(text);
}

void addAttachments(CLI::App& command, std::vector<std::string>& attachments) {
  addOption(command, "--geojson", attachments, fileValue,
            "file to attach, FILE or NAME=FILE; may be repeated");
}

CLI::App* addImage(CLI::App& program, ImageRequest& request) {
  CLI::App* const command = program.add_subcommand("image", "Sends an image instead of a chart");
  addOption(*command, "FILE", request.image, fileValue, "the image, of any format")->required();
  command
      ->add_option("--subtype", request.subtype,
                   "number of the format, as agreed with the client: 0 to 255 (0)")
      ->type_name("N")
      ->check(CLI::Range(0, 255));
  addWays(*command, request);
  return command;
}

CLI::App* addInteractive(CLI::App& program, InteractiveRequest& request) {
  CLI::App* const command =
      program.add_subcommand("interactive", "Sends an interactive page instead of a chart");
  addOption(*command, "PAGE.json", request.page, fileValue, "the page")->required();
  addOption(*command, "--procedure", request.procedure, textValue, "name of the procedure that made it");
  addOption(*command, "--json-path", request.path, textValue, "where the client finds or keeps the page");
  addOptions(*command, request);
  addAttachments(*command, request.attachments);
  addWays(*command, request, interactiveNotes);
  return command;
}

CLI::App* addEngine(CLI::App& program, EngineRequest& request) {
  CLI::App* const command =
      program.add_subcommand("engine", "Sends a chart for the client's rendering engine");
  addOption(*command, "CHART.json", request.chart, fileValue, "the chart as the engine takes it")->required();
  addOption(*command, "--engine-template", request.engineTemplate, fileValue, "template for the engine");
  addOptions(*command, request);
  addAttachments(*command, request.attachments);
  addWays(*command, request, engineNotes);
  return command;
}

CLI::App* addService(CLI::App& program, ServiceRequest& request) {
  CLI::App* const command =
      program.add_subcommand("service", "Sends what a client needs to make a chart itself");
  addOptions(*command, request);
  addOption(*command, "--source", request.source, textValue, "id of the data source (source0)");
  addOption(*command, "--variable", request.variables, "NAME",
            "variable of the source, NAME or NAME=NUMBER; may be repeated");
  addOption(*command, "--data", request.data, fileValue, "table of the data, as for kestrel chart");
  addWays(*command, request, serviceNotes);
  return command;
}

}  // namespace

SideCommands::SideCommands() : mRequests(std::make_unique<Requests>()) {}
SideCommands::~SideCommands() = default;

void SideCommands::addTo(CLI::App& program) {
  Requests& all = *mRequests;
  all.commands = {
      {addImage(program, all.image), [&all] { runImage(all.image); }},
      {addInteractive(program, all.interactive), [&all] { runInteractive(all.interactive); }},
      {addEngine(program, all.engine), [&all] { runEngine(all.engine); }},
      {addService(program, all.service), [&all] { runService(all.service); }},
  };
}

bool SideCommands::run() const {
  for (auto const& [command, run] : mRequests->commands) {
    if (!command->parsed()) continue;
    run();
    return true;
  }
  return false;
}

}  // namespace kestrel::tool
