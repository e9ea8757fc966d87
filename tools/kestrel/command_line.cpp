#include "command_line.h"

#include "chart/chart_command.h"
#include "chart_templates.h"
#include "client/client_options.h"
#include "command_options.h"
#include "explain/explain_command.h"
#include "gallery/gallery_command.h"
#include "inspect/inspect_command.h"
#include "listen/listen_command.h"
#include "problem.h"
#include "received_chart.h"
#include "send/send_command.h"
#include "side/side_options.h"
#include "template/template_command.h"
#include "upgrade/upgrade_command.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdint>
#include <exception>
#include <limits>
#include <string>
#include <vector>

namespace kestrel::tool {

namespace {

constexpr char const* chartNotes =
    R"(Instead of a table a chart can be given whose name ends with .pdl: a description in
PDL, which says itself what it shows. Its data comes by --data, as with send.

DATA.csv is UTF-8, with the names of the columns in its first row. A column of
numbers, or of dates (yyyy-MM-dd, with or without a time), is taken as such; every
other column is text, and its texts are categories in the order in which they
first appear. A number with leading zeros, such as 01234, is text. An empty cell
is a missing value; among numbers and dates NA, NaN and a single point are too.

With point, bar and line each row is one point, one bar, or one corner of a line.
A histogram and a pyramid count the rows in bins of X, and need no Y. A box shows
the quartiles of Y at each place of X, an error bar its mean. The client computes
what is shown; nothing is computed here.

--color gives each category of its column a colour; a column of numbers or dates
gives a range of colours. --cluster stands the categories of its column side by
side, --stack on each other; only one of the three can be given. --cluster goes
with bar, box and errorbar; --stack with bar, histogram and pyramid.

--panel-row and --panel-column split the chart into panels, one for each category;
several of them make crossed panels. A pyramid needs --panel-column once, with a
column of two categories: one for each side. Panels, clusters and stacks need
categories, and so do --sort and --exclude: text, or what --categorical names.
Texts are sorted in the order of their characters. A reference line stands at a
number or, where the axis shows dates, at a date.

)";

constexpr char const* sendNotes =
    R"(CHART is a chart in LumoML, the current one or 1.4, or a description in PDL where its
name ends with .pdl. The last two need a Java runtime of version 17 or later.

A data FILE is a table as for kestrel chart. It has a column for each variable of the
source, by the variable's source name; the texts of a column of categories become
relabels of its variable. With one source, --data FILE is enough.

)";

constexpr char const* visualizationNotes =
    R"(NAME is a shipped visualization template, or a file where it has a slash or a point in
it; --list says which slots a template has. A slot for a variable takes the name of a
column of the data, any other slot takes a text: --slot x=species --slot Title=Species.
A slot for several variables is given several times. The conversion needs a Java
runtime of version 17 or later.

)";

constexpr char const* explainNotes =
    R"(Each value of a style, of ticks and of frames stands on a line, with who gave it:
builder (the chart text has it), default looks (the completion adds it), or the
FILE:LINE:COLUMN of the template that wrote it last.

)";

constexpr char const* listenNotes =
    R"(Each file counts 4,096 bytes more than it is long. Where the next message or file
would go beyond --max-bytes, the command says so and ends with 3: what it has
written up to there is whole.

)";

/// A template by its plain name needs no folder.
std::string templateNotes() {
  std::string text = R"(A template FILE with neither a slash nor a point in it is a shipped template:
)";
  for (std::string const& name : shippedTemplates()) text += "  " + name + "\n";
  return text + R"(Styles come first, then options, then templates; of two that set the same value
the later one wins.

)";
}

struct TemplateOption {
  char const* name;
  std::vector<std::string> TemplateRequest::*target;
  char const* meaning;
};

constexpr TemplateOption templateOptions[] = {
    {"--template", &TemplateRequest::user, "template for the chart; may be repeated"},
    {"--style", &TemplateRequest::styles, "template of the settings for styles; may be repeated"},
    {"--options", &TemplateRequest::options, "template of the settings for options; may be repeated"},
};

void addTemplates(CLI::App& command, TemplateRequest& request) {
  for (TemplateOption const& row : templateOptions) {
    addOption(command, row.name, request.*row.target, fileValue, row.meaning);
  }
}

struct TextOption {
  char const* name;
  std::string ChartRequest::*target;
  char const* value;
  char const* meaning;
};

constexpr TextOption chartTexts[] = {
    {"--y", &ChartRequest::y, columnValue, "column of the Y axis; not with histogram and pyramid"},
    {"--z", &ChartRequest::z, columnValue, "column of the Z axis; with point, bar and line"},
    {"--color", &ChartRequest::color, columnValue, "column that gives the colour"},
    {"--cluster", &ChartRequest::cluster, columnValue, "column whose categories stand side by side"},
    {"--stack", &ChartRequest::stack, columnValue, "column whose categories stand on each other"},
    {"--label", &ChartRequest::label, columnValue,
     "column that labels the outliers of a box plot, instead of the number of the row"},
    {"--bins", &ChartRequest::bins, "N", "number of bins of a histogram or pyramid"},
    {"--title", &ChartRequest::title, textValue, "title of the chart"},
    {"--title2", &ChartRequest::title2, textValue, "second title"},
    {"--subtitle", &ChartRequest::subtitle, textValue, "subtitle"},
    {"--x-label", &ChartRequest::xLabel, textValue, "label of the X axis, instead of the name of its column"},
    {"--y-label", &ChartRequest::yLabel, textValue, "label of the Y axis, instead of the name of its column"},
    {"--z-label", &ChartRequest::zLabel, textValue, "label of the Z axis, instead of the name of its column"},
    {"--description", &ChartRequest::description, textValue, "the chart in words, for who cannot see it"},
    {"--name", &ChartRequest::name, textValue, "name of the chart"},
};

struct ListOption {
  char const* name;
  std::vector<std::string> ChartRequest::*target;
  char const* value;
  char const* meaning;
};

constexpr ListOption chartLists[] = {
    {"--panel-row", &ChartRequest::panelRows, columnValue,
     "column that gives each category a row of panels; may be repeated"},
    {"--panel-column", &ChartRequest::panelColumns, columnValue,
     "column that gives each category a column of panels; may be repeated"},
    {"--reference-x", &ChartRequest::referenceX, "VALUE", "line at a value of X; may be repeated"},
    {"--reference-y", &ChartRequest::referenceY, "VALUE", "line at a value of Y; may be repeated"},
    {"--exclude", &ChartRequest::excluded, "CATEGORY", "category of X to leave out; may be repeated"},
    {"--footnote", &ChartRequest::footnotes, textValue, "footnote; may be given three times"},
    {"--categorical", &ChartRequest::categorical, columnValue,
     "column of numbers or dates that are categories; may be repeated"},
    {"--csv", &ChartRequest::attachments, fileValue, "file to attach to the chart; may be repeated"},
};

ElementKind elementKind(std::string const& word) {
  return static_cast<ElementKind>(std::find(elementNames.begin(), elementNames.end(), word) -
                                  elementNames.begin());
}

void addElement(CLI::App& chart, ChartRequest& request) {
  auto const take = [&request](std::string const& word) { request.element = elementKind(word); };
  std::vector<std::string> const words(elementNames.begin(), elementNames.end());
  chart.add_option_function<std::string>("--element", take, "how the data is drawn")
      ->type_name("KIND")
      ->check(CLI::IsMember(words));
}

/// What a description in PDL does not say itself.
constexpr std::array besideDescription = {"DATA.csv", "--data",      "--template", "--style", "--options",
                                          "--csv",    "-o,--output", "--output",   "--send",  "--help"};

/// A table needs to be told what to show of it; a description says so itself.
void requireChartOptions(CLI::App const& chart, std::string const& file) {
  if (!isDescription(file)) {
    for (char const* const name : {"--element", "--x"})
      if (chart.get_option(name)->empty()) throw CLI::RequiredError(name);
    if (!chart.get_option("--data")->empty())
      throw Problem("--data goes with a description in PDL; " + inQuotes(file) + " is itself the data",
                    Exit::BadInput);
    return;
  }
  for (CLI::Option const* const option : chart.get_options()) {
    std::string const name = option->get_name();
    bool const goes =
        std::find(besideDescription.begin(), besideDescription.end(), name) != besideDescription.end();
    if (!option->empty() && !goes)
      throw Problem(name + " goes with a table; " + inQuotes(file) + " says itself what it shows",
                    Exit::BadInput);
  }
}

CLI::App* addChart(CLI::App& program, ChartRequest& request) {
  CLI::App* const chart =
      program.add_subcommand("chart", "Makes a chart of a CSV file and writes what a client gets");
  addOption(*chart, "DATA.csv", request.data, fileValue, "the table, or a description CHART.pdl")->required();
  addElement(*chart, request);
  addOption(*chart, "--x", request.x, columnValue, "column of the X axis");
  for (TextOption const& row : chartTexts) {
    addOption(*chart, row.name, request.*row.target, row.value, row.meaning);
  }
  for (ListOption const& row : chartLists) {
    addOption(*chart, row.name, request.*row.target, row.value, row.meaning);
  }
  addOption(*chart, "--sort", request.sort, "ORDER", "order of the categories of X")
      ->check(CLI::IsMember({"ascending", "descending"}));
  chart->add_flag("--transpose", request.transposed, "turns the chart: X goes up, Y goes across");
  addTemplates(*chart, request.templates);
  addOption(*chart, "-o,--output", request.output, folderValue, "where to write capture.kcap");
  addOption(*chart, "--send", request.send, "unix:PATH",
            "socket to send the chart to, such as that of kestrel listen PATH; beside or instead of -o");
  addOption(*chart, "--data", request.sourceFiles, fileValue,
            "table of a description's source, FILE or SOURCE=FILE; may be repeated");
  chart->footer(chartNotes + templateNotes() + exitCodes);
  chart->callback([chart, &request] { requireChartOptions(*chart, request.data); });
  return chart;
}

struct SendOption {
  char const* name;
  std::string SendRequest::*target;
  char const* value;
  char const* meaning;
};

constexpr SendOption sendTexts[] = {
    {"--stylesheet", &SendRequest::styleSheet, fileValue, "XSLT style sheet for the finished chart"},
    {"--map", &SendRequest::map, fileValue, "map of the data"},
    {"--ref-map", &SendRequest::referenceMap, fileValue, "reference map"},
    {"-o,--output", &SendRequest::output, folderValue, "where to write capture.kcap"},
    {"--send", &SendRequest::send, "unix:PATH", "socket to send the chart to; beside or instead of -o"},
};

void addSend(CLI::App& program, SendRequest& request) {
  CLI::App* const send =
      program.add_subcommand("send", "Completes a chart that is there as text and sends it");
  addOption(*send, "CHART", request.chart, fileValue, "the chart")->required();
  addOption(*send, "--data", request.data, fileValue,
            "table of one of the chart's sources, FILE or SOURCE=FILE; may be repeated");
  send->add_flag("--protect", request.isProtected,
                 "leaves the chart as it is, but for the templates named here");
  addOption(*send, "--csv", request.attachments, fileValue, "file to attach to the chart; may be repeated");
  for (SendOption const& row : sendTexts)
    addOption(*send, row.name, request.*row.target, row.value, row.meaning);
  addTemplates(*send, request.templates);
  send->footer(sendNotes + templateNotes() + exitCodes);
}

void addUpgrade(CLI::App& program, UpgradeRequest& request) {
  CLI::App* const upgrade =
      program.add_subcommand("upgrade", "Brings a chart in LumoML 1.4 into the current markup; needs Java");
  addOption(*upgrade, "OLD.xml", request.chart, fileValue, "the chart in LumoML 1.4")->required();
  addOption(*upgrade, "-o,--output", request.output, fileValue, "where to write the chart")->required();
  upgrade->add_flag("--report", request.report, "says what could not be carried over, a line for each thing");
  upgrade->footer(exitCodes);
}

struct VisualizationOption {
  char const* name;
  std::string VisualizationRequest::*target;
  char const* value;
  char const* meaning;
};

constexpr VisualizationOption visualizationTexts[] = {
    {"--data", &VisualizationRequest::data, fileValue, "the table, as for kestrel chart"},
    {"--stylesheet", &VisualizationRequest::styleSheet, fileValue, "XSLT style sheet for the finished chart"},
    {"--map", &VisualizationRequest::map, fileValue, "map of the data"},
    {"--ref-map", &VisualizationRequest::referenceMap, fileValue, "reference map"},
    {"--map-key", &VisualizationRequest::mapKey, textValue, "what ties the map to the data"},
    {"-o,--output", &VisualizationRequest::output, folderValue, "where to write capture.kcap"},
    {"--send", &VisualizationRequest::send, "unix:PATH",
     "socket to send the chart to; beside or instead of -o"},
};

void addVisualization(CLI::App& program, VisualizationRequest& request) {
  CLI::App* const command = program.add_subcommand(
      "template", "Makes a chart of a CSV file by a visualization template; needs Java");
  addOption(*command, "NAME", request.name, "NAME", "the visualization template");
  command->add_flag("--list", request.list, "only says which templates there are, or the slots of NAME");
  addOption(*command, "--slot", request.slots, "SLOT=VALUE", "what fills a slot; may be repeated");
  addOption(*command, "--slot-label", request.slotLabels, "SLOT=TEXT",
            "how axes and legends name the column of a slot; may be repeated");
  addOption(*command, "--labeling", request.labelings, "SLOT=COLUMN",
            "the column that names the cases of a slot; may be repeated");
  for (VisualizationOption const& row : visualizationTexts)
    addOption(*command, row.name, request.*row.target, row.value, row.meaning);
  addTemplates(*command, request.templates);
  command->footer(visualizationNotes + templateNotes() + exitCodes);
}

/// A description says what the options of a table would.
SendRequest sendRequest(ChartRequest const& request) {
  SendRequest send;
  send.chart = request.data;
  send.data = request.sourceFiles;
  send.attachments = request.attachments;
  send.templates = request.templates;
  send.output = request.output;
  send.send = request.send;
  return send;
}

void addInspect(CLI::App& program, InspectRequest& request) {
  CLI::App* const inspect = program.add_subcommand(
      "inspect", "Lists the messages of a capture, checks them, and takes the contents out of them");
  addOption(*inspect, "CAPTURE", request.capture, fileValue, "the capture, such as OUT/capture.kcap")
      ->required();
  CLI::Option* const extract =
      addOption(*inspect, "--extract", request.extract, folderValue, "where to write the contents");
  CLI::Option* const json = inspect->add_flag("--json", request.json, "the same as JSON, for programs");
  CLI::Option* const cells =
      inspect->add_option("--cells", request.cells, "also shows the first N rows of each data source")
          ->type_name("N")
          ->check(CLI::Range(1, 1'000'000));
  addOption(*inspect, "--diff", request.other, fileValue,
            "another capture to compare with, message by message")
      ->excludes(extract)
      ->excludes(json)
      ->excludes(cells);
}

CLI::App* addListen(CLI::App& program, ListenRequest& request) {
  CLI::App* const listen = program.add_subcommand(
      "listen", "Receives charts on a unix socket, checks them, and writes them with their contents");
  addOption(*listen, "PATH", request.path, fileValue, "the socket, which is made and at the end removed")
      ->required();
  addOption(*listen, "-o,--output", request.output, folderValue,
            "where to write 001.kcap, 002.kcap and so on, and the contents of each in 001, 002 ...")
      ->required();
  listen->add_flag("--once", request.once, "ends after one connection instead of at SIGINT or SIGTERM");
  listen
      ->add_option("--max-bytes", request.mostBytes,
                   "how many bytes all files together may take (4294967296); at the limit the command ends")
      ->type_name("BYTES")
      ->check(CLI::Range(std::int64_t{1}, std::numeric_limits<std::int64_t>::max()));
  addReceiving(*listen, request);
  listen->footer(listenNotes + std::string(exitCodes));
  return listen;
}

void addGallery(CLI::App& program, GalleryRequest& request) {
  CLI::App* const gallery =
      program.add_subcommand("gallery", "Makes the charts of the gallery: one of each kind, of real data");
  addOption(*gallery, "NAME", request.names, "NAME", "the charts to make; all of them if none is named")
      ->allow_extra_args(true);
  addOption(*gallery, "-o,--output", request.output, folderValue, "where to write the charts");
  addTemplates(*gallery, request.templates);
  gallery->add_flag("--list", request.list, "only says which charts there are");
  gallery->footer(templateNotes() + exitCodes);
}

void addExplain(CLI::App& program, ExplainRequest& request) {
  CLI::App* const explain =
      program.add_subcommand("explain", "Completes a chart and tells where each value of its look came from");
  addOption(*explain, "CHART.xml", request.chart, fileValue,
            "the text of the chart, as gallery and inspect --extract write it")
      ->required();
  addTemplates(*explain, request.templates);
  explain->add_flag("--all", request.all, "also tells of values that a template has overwritten");
  explain->add_flag("--json", request.json, "the same as JSON, for programs");
  explain->footer(explainNotes + templateNotes() + exitCodes);
}

int code(Exit exit) { return static_cast<int>(exit); }

/// Help goes to standard output; a fault of the command line is one line on standard error.
int finish(CLI::App const& program, CLI::ParseError const& end) {
  if (end.get_exit_code() == code(Exit::Success)) return program.exit(end);
  tell(std::string(end.what()) + "; kestrel --help tells more");
  return code(Exit::BadInput);
}

int run(int count, char const* const* arguments) {
  CLI::App program("Makes charts of CSV files as a client gets them, and looks into what a client gets.",
                   "kestrel");
  program.set_version_flag("--version", KESTREL_VERSION);
  program.require_subcommand(1);
  program.footer(exitCodes);
  ChartRequest chartRequest;
  GalleryRequest galleryRequest;
  ExplainRequest explainRequest;
  InspectRequest inspectRequest;
  ListenRequest listenRequest;
  SendRequest sendingRequest;
  UpgradeRequest upgradeRequest;
  VisualizationRequest visualizationRequest;
  CLI::App const* const chart = addChart(program, chartRequest);
  addGallery(program, galleryRequest);
  addExplain(program, explainRequest);
  addInspect(program, inspectRequest);
  CLI::App const* const listen = addListen(program, listenRequest);
  addSend(program, sendingRequest);
  addUpgrade(program, upgradeRequest);
  addVisualization(program, visualizationRequest);
  SideCommands side;
  side.addTo(program);
  ClientCommands client;
  client.addTo(program);
  try {
    program.parse(count, arguments);
  } catch (CLI::ParseError const& end) {
    return finish(program, end);
  }
  if (side.run()) return code(Exit::Success);
  if (auto const end = client.run()) return code(*end);
  if (program.got_subcommand("gallery")) {
    runGallery(galleryRequest);
    return code(Exit::Success);
  }
  if (program.got_subcommand("explain")) {
    runExplain(explainRequest);
    return code(Exit::Success);
  }
  if (program.got_subcommand("send")) {
    runSend(sendingRequest);
    return code(Exit::Success);
  }
  if (program.got_subcommand("template")) {
    runTemplate(visualizationRequest);
    return code(Exit::Success);
  }
  if (program.got_subcommand("upgrade")) {
    runUpgrade(upgradeRequest);
    return code(Exit::Success);
  }
  if (chart->parsed() && isDescription(chartRequest.data)) {
    runSend(sendRequest(chartRequest));
    return code(Exit::Success);
  }
  if (listen->parsed()) return code(runListen(listenRequest) ? Exit::Success : Exit::BadCapture);
  if (!chart->parsed()) return code(runInspect(inspectRequest) ? Exit::Success : Exit::BadCapture);
  runChart(chartRequest);
  return code(Exit::Success);
}

}  // namespace

int runCommandLine(int count, char const* const* arguments) {
  // A reader that closes the pipe early shows as a failed write, not as a death.
  std::signal(SIGPIPE, SIG_IGN);
  try {
    return run(count, arguments);
  } catch (Problem const& problem) {
    tell(problem.what());
    return code(problem.exit());
  } catch (std::exception const& failure) {
    tell(failure.what());
    return code(Exit::NotWritten);
  }
}

}  // namespace kestrel::tool
