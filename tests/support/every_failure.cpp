#include "every_failure.h"

#include "chart_test.h"

#include "host/messages.h"

#include <cstddef>
#include <regex>
#include <string>
#include <vector>

namespace kestrel::test {

namespace {

/// Without its date: the runs of an operation may fall on two days.
std::string textOf(LumoDocument const& document) {
  static std::regex const date(" date=\"[-0-9]*\"");
  return std::regex_replace(document.AsUTF8(), date, " date=\"today\"");
}

/// The chart's text before each change.
class Snapshots : public LumoChangeObserver {
 public:
  explicit Snapshots(LumoDocument& document) : mDocument(document) { mDocument.setChangeObserver(this); }
  Snapshots(Snapshots const&) = delete;
  Snapshots& operator=(Snapshots const&) = delete;
  ~Snapshots() override { mDocument.setChangeObserver(nullptr); }

  void beforeChange(Kind, LumoBaseElement const&) override { texts.push_back(textOf(mDocument)); }

  std::vector<std::string> texts;

 private:
  LumoDocument& mDocument;
};

std::vector<std::string> textsBeforeEachChange(FailingOperation const& operation) {
  ChartOfOneRun chart;
  operation.prepare(chart);
  Snapshots snapshots(chart.document);
  operation.run(chart);
  EXPECT_FALSE(snapshots.texts.empty()) << "the operation changes nothing";
  return snapshots.texts;
}

}  // namespace

void expectFailuresToKeepWhatWasWritten(host::Recorder& recorder, FailingOperation const& operation,
                                        std::function<void(host::Recorder const&)> const& expectReport) {
  auto const texts = textsBeforeEachChange(operation);
  for (std::size_t failing = 0; failing < texts.size(); ++failing) {
    SCOPED_TRACE("change " + std::to_string(failing + 1) + " fails");
    ChartOfOneRun chart;
    operation.prepare(chart);
    recorder.clear();
    ChangeTrap const trap(chart.document, static_cast<unsigned int>(failing + 1), throwOrdinaryFailure());
    EXPECT_NO_THROW(operation.run(chart));
    expectReport(recorder);
    EXPECT_EQ(textOf(chart.document), texts[failing]);
  }
}

namespace {

/// Lets every change run `action` in turn, which must leave the operation as it is.
template <typename Failure>
void expectEachToPass(host::Recorder& recorder, FailingOperation const& operation,
                      std::function<void()> const& action) {
  auto const texts = textsBeforeEachChange(operation);
  for (std::size_t failing = 0; failing < texts.size(); ++failing) {
    SCOPED_TRACE("change " + std::to_string(failing + 1) + " fails");
    ChartOfOneRun chart;
    operation.prepare(chart);
    recorder.clear();
    ChangeTrap const trap(chart.document, static_cast<unsigned int>(failing + 1), action);
    EXPECT_THROW(operation.run(chart), Failure);
    expectNoReport(recorder);
    EXPECT_EQ(textOf(chart.document), texts[failing]);
  }
}

}  // namespace

void expectUnwindingToKeepWhatWasWritten(host::Recorder& recorder, FailingOperation const& operation) {
  expectEachToPass<VexaGoToCaller>(recorder, operation, throwGoToCaller());
}

void expectFailuresToPass(host::Recorder& recorder, FailingOperation const& operation) {
  expectEachToPass<OrdinaryFailure>(recorder, operation, throwOrdinaryFailure());
  expectEachToPass<VexaGoToCaller>(recorder, operation, throwGoToCaller());
}

}  // namespace kestrel::test
