#include "full_chart.h"

#include "xgraph.h"

#include "kestrelhost/templates.h"
#include "model/variables.h"

#include <cstdlib>
#include <utility>

namespace kestrel::test {

EnvironmentVariable::EnvironmentVariable(std::string name, std::string const& value)
    : mName(std::move(name)), mWasSet(std::getenv(mName.c_str()) != nullptr) {
  if (mWasSet) mBefore = std::getenv(mName.c_str());
  ::setenv(mName.c_str(), value.c_str(), 1);
}

EnvironmentVariable::~EnvironmentVariable() {
  if (mWasSet) {
    ::setenv(mName.c_str(), mBefore.c_str(), 1);
  } else {
    ::unsetenv(mName.c_str());
  }
}

namespace {

class JoinedText : public host::DataDump {
 public:
  std::string join(std::string const&, unsigned char const*, unsigned long, char16_t const*) override {
    return "joined";
  }
};

/// Keeps the streams that are dumped, which nobody else frees, also where the dump fails.
class KeptStreams : public host::DataDump {
 public:
  explicit KeptStreams(std::shared_ptr<host::DataDump> inner) : mInner(std::move(inner)) {}

  std::string join(std::string const& compressedXml, unsigned char const* stream, unsigned long size,
                   char16_t const* encoding) override {
    mStreams.emplace_back(stream);
    return mInner->join(compressedXml, stream, size, encoding);
  }

 private:
  std::shared_ptr<host::DataDump> mInner;
  std::vector<std::unique_ptr<unsigned char const[]>> mStreams;
};

}  // namespace

host::Host FullChart::noted() const {
  host::Host host = services.host();
  host.frameLayout = std::make_shared<host::NoFrameLayout>();
  host.dataDump = std::make_shared<JoinedText>();
  return host;
}

host::Host FullChart::inForce() const {
  host::Host host = recorder.host();
  host.dataDump = std::make_shared<KeptStreams>(host.dataDump);
  return host;
}

FullChart::FullChart() {
  services.dumps->categories = {ChartBase::PrintChart, ChartBase::PrintTemplate,
                                ChartBase::PrintBeforeTemplate, ChartBase::PrintAfterTemplate};
  describe();
  addData();
  addDate();
}

void FullChart::describe() {
  services.files->content = {
      {"house.template", "<template/>"}, {"first.csv", "a,b\n"}, {"second.csv", "c\n"}};
  services.java->styleSheets = [](std::string const&, std::string const& chart) { return chart + "<!---->"; };
  document.SetComment(u"made by hand");
  document.SetChartTemplate("house.template");
  document.AddImmediateTemplate("<setColor/>");
  document.setStyleSheet("house style", "<sheet/>");
  document.setLUMOMap("regions", "{map}");
  document.setLUMORefMap("reference", "{reference map}");
  document.AddCSVFile("first.csv");
  document.AddCSVFile("second.csv");
}

void FullChart::addData() {
  XGraph& graph = *document.getGraph();
  source.reset(graph.AddSource());
  XVariable const height = graph.AddAggregatedVariable(*source, false, ChartString(u"height"));
  XVariable const weight = graph.AddAggregatedVariable(*source, false, ChartString(u"weight"));
  for (int number = 0; number < 2; ++number) {
    XRow& row = *source->AddRow();
    row.addDataValue(height, 1.5 + number);
    row.addDataValue(weight, 60.0 + number);
  }
  XElement points = graph.AddPointElement();
  points.AddX(height);
  points.AddY(weight);
}

void FullChart::addDate() {
  LumoSourceVariable& date = *model.getVisualization()->addSourceVariable(u"day");
  date.setSource(*source->getImplemenation());
  date.setSourceName(u"day");
  date.setCategorical(true);
  date.addExtension()->setAttribute(u"inputDateFormatPattern", u"dd-MMM-yyyy");
}

bool FullChart::send() {
  recorder.clear();
  return document.SendChart(false, false, true);
}

}  // namespace kestrel::test
