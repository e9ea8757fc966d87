#pragma once

#include "xgraph.h"

#include "host/data_store.h"
#include "kestrelhost/recorder.h"
#include "model/document.h"

#include <functional>

namespace kestrel::test {

/// A chart for one run of an operation.
struct ChartOfOneRun {
  LumoDocument document;
  VarDataProcessor store;
  XGraph graph{*document.getVisualization(), &store};
};

/// An operation whose changes fail one by one: each time on a new chart, which `prepare` has filled.
struct FailingOperation {
  std::function<void(ChartOfOneRun&)> prepare;
  std::function<void(ChartOfOneRun&)> run;
};

/// Lets every change of the operation fail in turn, as an ordinary failure that does not leave it. All that
/// was written before must stay, and nothing come behind it.
/// @param expectReport is asked after each failure
void expectFailuresToKeepWhatWasWritten(host::Recorder& recorder, FailingOperation const& operation,
                                        std::function<void(host::Recorder const&)> const& expectReport);

/// As above, with the host's unwinding signal, which must leave the operation unreported.
void expectUnwindingToKeepWhatWasWritten(host::Recorder& recorder, FailingOperation const& operation);

/// For an operation without a guard: lets every change fail in turn, in both ways. Each failure must leave
/// the operation unreported. All that was written before must stay, and nothing come behind it.
void expectFailuresToPass(host::Recorder& recorder, FailingOperation const& operation);

}  // namespace kestrel::test
