#pragma once

#include "host/export.h"
#include "kestrelhost/host.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kestrel::host {

/// The operations of a host that a recorder notes. What each carries stands in its comment.
enum class Operation {
  Error,    ///< message, file, line
  Note,     ///< message
  BpError,  ///< text, fixed, show, level; of a composite also pattern, and cell<n>, fixed<n> for each cell
  PrintDebugInfo,        ///< line
  WillPrintString,       ///< type
  PrintString,           ///< content, prefix, suffix, number, type
  CreateUniqueId,        ///< id
  FormatNumber,          ///< type, width, decimals
  FormatCustomCurrency,  ///< type, width, decimals
  FormatDate,            ///< type, width, decimals
  FormatElapsedTime,     ///< type, width, decimals
  UpdateText,            ///< text, encoding
  IpcPutC,               ///< identifier, bytes
  CompressString,        ///< in
  Fetch,                 ///< name, first, second
  BasePath,              ///< kind
  DictionaryPath,        ///< kind
  OpenDictionary,        ///< path
  SetProcedure,          ///< procedure
  LookUp,                ///< key
  LanguageCode,
  LocaleName,
  BreakUpDate,         ///< value
  TemplateNames,       ///< kind (0 styles, 1 options, 2 chosen, 3 default)
  TemplateExists,      ///< kind
  TemplateIsDirty,     ///< kind
  TemplateSetIsDirty,  ///< kind, dirty
  StartTemplate,       ///< baseline (whether there is one)
  SetTemplate,         ///< xml
  ApplyTemplate,
  PackFrames,    ///< baseline (whether there is one)
  GetEntireXML,  ///< compressed, stream, encoding
  MachineInstance,
  MachineIsStarted,
  StartMachine,
  GetEnvironment,
  AttachThread,
  ConverterInstance,
  ConverterIsStarted,
  StartConverter,
  PDLtoXML,    ///< in
  UpgradeXML,  ///< in
  GetErrorMessage,
  ApplyStyleSheet,   ///< styleSheet, chart
  ConvertTemplate,   ///< request
  AddDataSource,     ///< source, rows
  AddVariable,       ///< source, column
  SetVariableValue,  ///< source, column, row, value
  GetDataPointer,    ///< source, column
  GetRowCount,       ///< source
  GetSourceNames,
  GetVariableNames,  ///< source
  GetDataStream,
};

/// The operation's name in the host interface, such as "IpcPutC" or "ChartBase::printDebugInfo".
VEXA_API std::string_view nameOf(Operation operation);

/// One call, in the order of the calls across all services.
struct VEXA_API Entry {
  /// What an argument may be.
  using Value = std::variant<bool, std::int64_t, double, std::string>;
  /// One argument, by the name that stands at the operation.
  struct Argument {
    /// @{
    /// Its two parts.
    std::string name;
    Value value;
    /// @}

    /// Equal in both.
    bool operator==(Argument const&) const = default;
  };

  /// What was called.
  Operation operation;
  /// With what, in the order of the comment.
  std::vector<Argument> arguments;

  /// @{
  /// Each throws std::out_of_range where the entry has no such argument of that type.
  bool flag(std::string_view name) const;
  std::int64_t number(std::string_view name) const;
  double real(std::string_view name) const;
  std::string const& text(std::string_view name) const;
  /// @}

  /// Whether there is an argument of that name.
  bool has(std::string_view name) const;

  /// Such as `BpError(text="No", fixed=true, show=2, level=2)`. Bytes sent and streams show as their length.
  std::string line() const;

  /// Equal in all parts.
  bool operator==(Entry const&) const = default;
};

/// A cell of a composite message.
struct RecordedCell {
  /// @{
  /// Its text, and whether it is one of the system.
  std::string text;
  bool fixed;
  /// @}

  /// Equal in both.
  bool operator==(RecordedCell const&) const = default;
};

/// A message to the user.
struct RecordedMessage {
  /// @{
  /// The text as it was shown, and whether it is one of the system.
  std::string text;
  bool fixed;
  /// @}

  /// Empty for a message that is no composite.
  std::string pattern;
  /// The cells of a composite, in order.
  std::vector<RecordedCell> cells;

  /// @{
  /// Where and how grave.
  int show;
  int level;
  /// @}

  /// Equal in all parts.
  bool operator==(RecordedMessage const&) const = default;
};

/// A text that was put aside.
struct RecordedDump {
  /// @{
  /// The arguments of the call.
  std::string content;
  std::string prefix;
  std::string suffix;
  std::int64_t number;
  int type;
  /// @}

  /// Equal in all parts.
  bool operator==(RecordedDump const&) const = default;
};

/// Services that work in memory and answer as they are told, for tests: the messages sent are kept, files,
/// texts, paths and locale are what is put into them, log, user messages and trace go nowhere, no dumps are
/// wanted.
struct VEXA_API MemoryServices {
  /// Services that know nothing yet.
  MemoryServices();

  /// A host of these services, and of the default ones for what is not here.
  Host host() const;

  /// @{
  /// The services, to be told what they answer.
  std::shared_ptr<MemoryChannel> channel;
  std::shared_ptr<NoDumps> dumps;
  std::shared_ptr<MemoryFiles> files;
  std::shared_ptr<FixedPaths> paths;
  std::shared_ptr<FixedTexts> texts;
  std::shared_ptr<FixedLocale> locale;
  std::shared_ptr<TemplateLists> templateSettings;
  std::shared_ptr<FixedTemplateEngine> templateEngine;
  std::shared_ptr<ScriptedJava> java;
  /// @}
};

/// One ordered journal across all services of a host, and the means to make any of them fail or throw.
///
///     Recorder recorder;
///     ScopedHost scope(recorder.host());
///     recorder.throwAt(Operation::IpcPutC, 2, VexaGoToCaller());
///     ...
///     EXPECT_EQ(recorder.count(Operation::BpError), 1u);
class VEXA_API Recorder {
 public:
  /// Over services in memory.
  Recorder();
  /// Over the services of another host.
  explicit Recorder(Host const& host);
  ~Recorder();
  Recorder(Recorder const&) = delete;
  Recorder& operator=(Recorder const&) = delete;

  /// The host to put in force. It goes on noting after the recorder is gone, for nobody to read.
  Host const& host() const;

  /// What the services in memory answer. A recorder over another host does not use them.
  MemoryServices& services();

  /// @{
  /// What was noted, in order: everything, or the calls of one operation.
  std::vector<Entry> const& entries() const;
  std::vector<Entry> entries(Operation operation) const;
  /// @}

  /// Every entry by its line().
  std::vector<std::string> lines() const;
  /// How often an operation was called, noted or not, since the last clear().
  std::size_t count(Operation operation) const;
  /// Forgets what was noted, and counts calls from the start; what is to fail stays.
  void clear();
  /// Such calls are no longer noted. They are still counted and can still fail.
  void ignore(Operation operation);

  /// @{
  /// What was noted of one service, in order: messages to the user, texts of failures in the log, lines of
  /// trace, dumps, messages to the client.
  std::vector<RecordedMessage> userMessages() const;
  std::vector<std::string> failures() const;
  std::vector<std::string> trace() const;
  std::vector<RecordedDump> dumps() const;
  std::vector<Message> sent() const;
  /// @}

  /// Makes the n-th call from now on of an operation fail in the operation's own way: false, empty, not 0, or
  /// nothing done. The first is 1; 0 stands for every call. The call is noted all the same.
  void failAt(Operation operation, unsigned int n);
  /// failAt() for every call.
  void failEvery(Operation operation) { failAt(operation, 0); }

  /// Runs an action at the n-th call, before the service does its work. What the action throws leaves the
  /// operation.
  void actAt(Operation operation, unsigned int n, std::function<void()> action);

  /// Makes the n-th call throw a copy of the exception; 0 stands for every call.
  template <typename Exception>
  void throwAt(Operation operation, unsigned int n, Exception exception) {
    actAt(operation, n, [exception = std::move(exception)] { throw Exception(exception); });
  }
  /// throwAt() for every call.
  template <typename Exception>
  void throwEvery(Operation operation, Exception exception) {
    throwAt(operation, 0, std::move(exception));
  }

  /// All faults and actions are forgotten.
  void behave();

  class Journal;

 private:
  MemoryServices mServices;
  std::shared_ptr<Journal> mJournal;
  Host mHost;
};

}  // namespace kestrel::host
