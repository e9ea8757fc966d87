#include "every_failure.h"

#include "chart_test.h"

#include "host/messages.h"

#include <cstddef>
#include <string>
#include <vector>

namespace kestrel::test {

namespace {

/// The chart's text before each change.
class Snapshots : public LumoChangeObserver {
 public:
  explicit Snapshots(LumoDocument& document) : mDocument(document) { mDocument.setChangeObserver(this); }
  Snapshots(Snapshots const&) = delete;
  Snapshots& operator=(Snapshots const&) = delete;
  ~Snapshots() override { mDocument.setChangeObserver(nullptr); }

  void beforeChange(Kind, LumoBaseElement const&) override { texts.push_back(mDocument.AsUTF8()); }

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
    EXPECT_EQ(chart.document.AsUTF8(), texts[failing]);
  }
}

void expectUnwindingToKeepWhatWasWritten(host::Recorder& recorder, FailingOperation const& operation) {
  auto const texts = textsBeforeEachChange(operation);
  for (std::size_t failing = 0; failing < texts.size(); ++failing) {
    SCOPED_TRACE("change " + std::to_string(failing + 1) + " unwinds");
    ChartOfOneRun chart;
    operation.prepare(chart);
    recorder.clear();
    ChangeTrap const trap(chart.document, static_cast<unsigned int>(failing + 1), throwGoToCaller());
    EXPECT_THROW(operation.run(chart), VexaGoToCaller);
    expectNoReport(recorder);
    EXPECT_EQ(chart.document.AsUTF8(), texts[failing]);
  }
}

}  // namespace kestrel::test
