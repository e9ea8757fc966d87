#include "command_line.h"

#include "chart/chart_command.h"
#include "inspect/inspect_command.h"
#include "problem.h"
#include "utf8.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <exception>
#include <string>
#include <vector>

namespace kestrel::tool {

namespace {

constexpr std::size_t mostFootnotes = 3;

constexpr char const* exitCodes = R"(Exit codes:
  0  all went well
  1  the command line or an input file is wrong
  2  a capture is cut, or breaks a rule
  3  something could not be sent or written
)";

constexpr char const* chartNotes =
    R"(DATA.csv is UTF-8, with the names of the columns in its first row. A column of
numbers, or of dates (yyyy-MM-dd, with or without a time), is taken as such; every
other column is text, and its texts are categories in the order in which they
first appear. A number with leading zeros, such as 01234, is text. An empty cell
is a missing value; among numbers and dates NA, NaN and a single point are too.

Nothing is computed: each row is one point, one bar, or one corner of a line. A
column of categories gives each category a colour; one of numbers or dates gives
a range of colours.

)";

/// What the help calls the value of an option.
constexpr char const* textValue = "TEXT";
constexpr char const* columnValue = "COLUMN";
constexpr char const* fileValue = "FILE";
constexpr char const* folderValue = "FOLDER";

/// CLI11 hands texts on as they are; all that goes into a chart is UTF-8.
std::string requireUtf8(std::string const& text) {
  return findBadUtf8(text) == std::string::npos ? "" : inQuotes(text) + " is not UTF-8";
}

/// A list takes one value each time that the option is given.
template <typename Target>
CLI::Option* addOption(CLI::App& command, std::string const& name, Target& target, char const* value,
                       std::string const& meaning) {
  return command.add_option(name, target, meaning)
      ->allow_extra_args(false)
      ->check(requireUtf8)
      ->type_name(value);
}

struct TextOption {
  char const* name;
  std::string ChartRequest::*target;
  char const* value;
  char const* meaning;
};

constexpr TextOption neededColumns[] = {
    {"--x", &ChartRequest::x, columnValue, "column of the X axis"},
    {"--y", &ChartRequest::y, columnValue, "column of the Y axis"},
};

constexpr TextOption chartTexts[] = {
    {"--z", &ChartRequest::z, columnValue, "column of the Z axis"},
    {"--color", &ChartRequest::color, columnValue, "column that gives the colour"},
    {"--title", &ChartRequest::title, textValue, "title of the chart"},
    {"--title2", &ChartRequest::title2, textValue, "second title"},
    {"--subtitle", &ChartRequest::subtitle, textValue, "subtitle"},
    {"--x-label", &ChartRequest::xLabel, textValue, "label of the X axis, instead of the name of its column"},
    {"--y-label", &ChartRequest::yLabel, textValue, "label of the Y axis, instead of the name of its column"},
    {"--z-label", &ChartRequest::zLabel, textValue, "label of the Z axis, instead of the name of its column"},
    {"--description", &ChartRequest::description, textValue, "the chart in words, for who cannot see it"},
    {"--name", &ChartRequest::name, textValue, "name of the chart"},
};

ElementKind elementKind(std::string const& word) {
  return static_cast<ElementKind>(std::find(elementNames.begin(), elementNames.end(), word) -
                                  elementNames.begin());
}

void addElement(CLI::App& chart, ChartRequest& request) {
  auto const take = [&request](std::string const& word) { request.element = elementKind(word); };
  std::vector<std::string> const words(elementNames.begin(), elementNames.end());
  chart.add_option_function<std::string>("--element", take, "how the data is drawn")
      ->required()
      ->type_name("KIND")
      ->check(CLI::IsMember(words));
}

CLI::App* addChart(CLI::App& program, ChartRequest& request) {
  CLI::App* const chart =
      program.add_subcommand("chart", "Makes a chart of a CSV file and writes what a client gets");
  addOption(*chart, "DATA.csv", request.data, fileValue, "the table")->required();
  addElement(*chart, request);
  for (TextOption const& row : neededColumns) {
    addOption(*chart, row.name, request.*row.target, row.value, row.meaning)->required();
  }
  for (TextOption const& row : chartTexts) {
    addOption(*chart, row.name, request.*row.target, row.value, row.meaning);
  }
  addOption(*chart, "--footnote", request.footnotes, textValue, "footnote; may be given three times");
  addOption(*chart, "--categorical", request.categorical, columnValue,
            "column of numbers or dates that are categories; may be repeated");
  addOption(*chart, "--csv", request.attachments, fileValue, "file to attach to the chart; may be repeated");
  addOption(*chart, "-o,--output", request.output, folderValue, "where to write capture.kcap")->required();
  chart->footer(std::string(chartNotes) + exitCodes);
  return chart;
}

void addInspect(CLI::App& program, InspectRequest& request) {
  CLI::App* const inspect = program.add_subcommand(
      "inspect", "Lists the messages of a capture, checks them, and takes the contents out of them");
  addOption(*inspect, "CAPTURE", request.capture, fileValue, "the capture, such as OUT/capture.kcap")
      ->required();
  addOption(*inspect, "--extract", request.extract, folderValue, "where to write the contents");
  inspect->add_flag("--json", request.json, "the same as JSON, for programs");
}

int code(Exit exit) { return static_cast<int>(exit); }

/// Help goes to standard output; a fault of the command line is one line on standard error.
int finish(CLI::App const& program, CLI::ParseError const& end) {
  if (end.get_exit_code() == code(Exit::Success)) return program.exit(end);
  tell(std::string(end.what()) + "; kestrel --help tells more");
  return code(Exit::BadInput);
}

void requireFewFootnotes(ChartRequest const& request) {
  if (request.footnotes.size() <= mostFootnotes) return;
  throw Problem("--footnote was given " + counted(request.footnotes.size(), "time") + "; a chart has up to " +
                    std::to_string(mostFootnotes) + " footnotes",
                Exit::BadInput);
}

int run(int count, char const* const* arguments) {
  CLI::App program("Makes charts of CSV files as a client gets them, and looks into what a client gets.",
                   "kestrel");
  program.set_version_flag("--version", KESTREL_VERSION);
  program.require_subcommand(1);
  program.footer(exitCodes);
  ChartRequest chartRequest;
  InspectRequest inspectRequest;
  CLI::App const* const chart = addChart(program, chartRequest);
  addInspect(program, inspectRequest);
  try {
    program.parse(count, arguments);
  } catch (CLI::ParseError const& end) {
    return finish(program, end);
  }
  if (!chart->parsed()) return code(runInspect(inspectRequest) ? Exit::Success : Exit::BadCapture);
  requireFewFootnotes(chartRequest);
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
