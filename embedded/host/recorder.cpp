#include "kestrelhost/recorder.h"

#include "recorder_journal.h"

#include "model/chartstring.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace kestrel::host {

namespace {

constexpr std::array operationNames = {
    "ChartErrorHandler::error",
    "note",
    "BpError",
    "ChartBase::printDebugInfo",
    "ChartBase::willPrintString",
    "ChartBase::printString",
    "ChartBase::CreateUniqueId",
    "ChartBase::FormatNumber",
    "ChartBase::FormatCustomCurrency",
    "ChartBase::FormatDate",
    "ChartBase::FormatElapsedTime",
    "ChartBase::updateText",
    "IpcPutC",
    "zlib1213vexa::compressString",
    "FetchFile::fetch",
    "PathInstance::getBasePath",
    "PathInstance::getDictionaryPath",
    "FacSTDictionary::FacSTDictionary",
    "FacSTDictionary::SetProcedure",
    "FacSTDictionary::LookUp",
    "OLang::GetLanguageCode",
    "VexaMBDefaultLocaleName_A",
    "iVexa2DMY",
    "XTemplate::Get",
    "XTemplate::Exists",
    "XTemplate::isDirty",
    "XTemplate::setIsDirty",
    "ChartTemplate::ChartTemplate",
    "ChartTemplate::setTemplate",
    "ChartTemplate::applyTemplate",
    "FramePacker::packFrames",
    "ChartTransformer::getEntireXML",
    "VexaJVM::GetInstance",
    "VexaJVM::IsStarted",
    "VexaJVM::StartJVM",
    "VexaJVM::GetEnv",
    "VexaJVM::AttachCurrentThread",
    "LumoConverter::GetInstance",
    "LumoConverter::IsStarted",
    "LumoConverter::StartConverter",
    "LumoConverter::PDLtoXML",
    "LumoConverter::UpgradeXML",
    "LumoConverter::GetErrorMessage",
    "plotDeskConverter::applyStyleSheet",
    "ClientAdapter::ConvertClientLumoTemplate",
    "VarDataProcessor::AddDataSource",
    "VarDataProcessor::AddVariable",
    "VarDataProcessor::SetVariableValue",
    "VarDataProcessor::GetDataPointer",
    "VarDataProcessor::GetRowCount",
    "VarDataProcessor::GetSourceNames",
    "VarDataProcessor::GetVariableNames",
    "VarDataProcessor::GetDataStream",
};
static_assert(operationNames.size() == static_cast<std::size_t>(Operation::GetDataStream) + 1);

std::string shown(double value) {
  ChartString text;
  text.appendDouble(value);
  return text.toUTF8();
}

std::string shown(Entry::Argument const& argument) {
  struct Printer {
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(std::int64_t value) const { return std::to_string(value); }
    std::string operator()(double value) const { return shown(value); }
    std::string operator()(std::string const& value) const { return '"' + value + '"'; }
  };
  bool const isBytes = argument.name == "bytes" || argument.name == "compressed" || argument.name == "stream";
  auto const* const bytes = isBytes ? std::get_if<std::string>(&argument.value) : nullptr;
  std::string const value =
      bytes != nullptr ? std::to_string(bytes->size()) + " bytes" : std::visit(Printer(), argument.value);
  return argument.name + "=" + value;
}

template <typename Value>
Value const& valueOf(Entry const& entry, std::string_view name) {
  for (Entry::Argument const& argument : entry.arguments) {
    auto const* const value = std::get_if<Value>(&argument.value);
    if (argument.name == name && value != nullptr) return *value;
  }
  throw std::out_of_range(entry.line() + " has no such argument: " + std::string(name));
}

RecordedMessage messageOf(Entry const& entry) {
  RecordedMessage message{entry.text("text"),
                          entry.flag("fixed"),
                          "",
                          {},
                          static_cast<int>(entry.number("show")),
                          static_cast<int>(entry.number("level"))};
  if (entry.has("pattern")) message.pattern = entry.text("pattern");
  for (int cell = 1; entry.has("cell" + std::to_string(cell)); ++cell) {
    std::string const number = std::to_string(cell);
    message.cells.push_back({entry.text("cell" + number), entry.flag("fixed" + number)});
  }
  return message;
}

RecordedDump dumpOf(Entry const& entry) {
  return {entry.text("content"), entry.text("prefix"), entry.text("suffix"), entry.number("number"),
          static_cast<int>(entry.number("type"))};
}

template <typename Convert>
auto converted(std::vector<Entry> const& entries, Operation operation, Convert convert) {
  std::vector<decltype(convert(entries.front()))> result;
  for (Entry const& entry : entries) {
    if (entry.operation == operation) result.push_back(convert(entry));
  }
  return result;
}

}  // namespace

std::string_view nameOf(Operation operation) { return operationNames[static_cast<std::size_t>(operation)]; }

bool Entry::flag(std::string_view name) const { return valueOf<bool>(*this, name); }
std::int64_t Entry::number(std::string_view name) const { return valueOf<std::int64_t>(*this, name); }
double Entry::real(std::string_view name) const { return valueOf<double>(*this, name); }
std::string const& Entry::text(std::string_view name) const { return valueOf<std::string>(*this, name); }

bool Entry::has(std::string_view name) const {
  return std::any_of(arguments.begin(), arguments.end(),
                     [name](Argument const& argument) { return argument.name == name; });
}

std::string Entry::line() const {
  std::string result(nameOf(operation));
  char const* separator = "(";
  for (Argument const& argument : arguments) {
    result += separator + shown(argument);
    separator = ", ";
  }
  return result + (arguments.empty() ? "()" : ")");
}

bool Recorder::Journal::note(Operation operation, Arguments arguments) {
  std::size_t const call = ++mCounts[operation];
  if (mIgnored.count(operation) == 0) mEntries.push_back({operation, std::move(arguments)});
  bool succeeds = true;
  // An action may set or forget others.
  std::vector<Action> due;
  for (auto [at, end] = mActions.equal_range(operation); at != end; ++at) {
    if (at->second.call == 0 || at->second.call == call) due.push_back(at->second);
  }
  for (Action const& action : due) {
    if (action.run) {
      action.run();
    } else {
      succeeds = false;
    }
  }
  return succeeds;
}

void Recorder::Journal::add(Operation operation, unsigned int n, std::function<void()> run) {
  mActions.emplace(operation, Action{n == 0 ? 0 : mCounts[operation] + n, std::move(run)});
}

void Recorder::Journal::actAt(Operation operation, unsigned int n, std::function<void()> action) {
  if (action) add(operation, n, std::move(action));
}

void Recorder::Journal::failAt(Operation operation, unsigned int n) { add(operation, n, nullptr); }

void Recorder::Journal::behave() { mActions.clear(); }

void Recorder::Journal::clear() {
  mEntries.clear();
  mForgotten = mCounts;
}

std::size_t Recorder::Journal::count(Operation operation) const {
  auto const calls = [operation](std::map<Operation, std::size_t> const& counts) {
    auto const found = counts.find(operation);
    return found != counts.end() ? found->second : 0;
  };
  return calls(mCounts) - calls(mForgotten);
}

MemoryServices::MemoryServices()
    : channel(std::make_shared<MemoryChannel>()),
      dumps(std::make_shared<NoDumps>()),
      files(std::make_shared<MemoryFiles>()),
      paths(std::make_shared<FixedPaths>()),
      texts(std::make_shared<FixedTexts>()),
      locale(std::make_shared<FixedLocale>()),
      templateSettings(std::make_shared<TemplateLists>()),
      templateEngine(std::make_shared<FixedTemplateEngine>()),
      java(std::make_shared<ScriptedJava>()) {}

Host MemoryServices::host() const {
  Host host;
  host.channel = channel;
  host.log = std::make_shared<SilentLog>();
  host.messages = std::make_shared<SilentMessages>();
  host.trace = std::make_shared<SilentTrace>();
  host.dumps = dumps;
  host.files = files;
  host.paths = paths;
  host.texts = texts;
  host.locale = locale;
  host.templateSettings = templateSettings;
  host.templateEngine = templateEngine;
  host.java = java;
  return host;
}

Recorder::Recorder()
    : mJournal(std::make_shared<Journal>()), mHost(recordedHost(mServices.host(), mJournal)) {}
Recorder::Recorder(Host const& host)
    : mJournal(std::make_shared<Journal>()), mHost(recordedHost(host, mJournal)) {}
Recorder::~Recorder() = default;

Host const& Recorder::host() const { return mHost; }
MemoryServices& Recorder::services() { return mServices; }

std::vector<Entry> const& Recorder::entries() const { return mJournal->entries(); }

std::vector<Entry> Recorder::entries(Operation operation) const {
  return converted(entries(), operation, [](Entry const& entry) { return entry; });
}

std::vector<std::string> Recorder::lines() const {
  std::vector<std::string> result;
  for (Entry const& entry : entries()) result.push_back(entry.line());
  return result;
}

std::size_t Recorder::count(Operation operation) const { return mJournal->count(operation); }
void Recorder::clear() { mJournal->clear(); }
void Recorder::ignore(Operation operation) { mJournal->ignore(operation); }

std::vector<RecordedMessage> Recorder::userMessages() const {
  return converted(entries(), Operation::BpError, messageOf);
}

std::vector<std::string> Recorder::failures() const {
  return converted(entries(), Operation::Error, [](Entry const& entry) { return entry.text("message"); });
}

std::vector<std::string> Recorder::trace() const {
  return converted(entries(), Operation::PrintDebugInfo,
                   [](Entry const& entry) { return entry.text("line"); });
}

std::vector<RecordedDump> Recorder::dumps() const {
  return converted(entries(), Operation::PrintString, dumpOf);
}

std::vector<Message> Recorder::sent() const {
  return converted(entries(), Operation::IpcPutC, [](Entry const& entry) {
    return Message{entry.number("identifier"), entry.text("bytes")};
  });
}

void Recorder::failAt(Operation operation, unsigned int n) { mJournal->failAt(operation, n); }

void Recorder::actAt(Operation operation, unsigned int n, std::function<void()> action) {
  mJournal->actAt(operation, n, std::move(action));
}

void Recorder::behave() { mJournal->behave(); }

}  // namespace kestrel::host
