#pragma once

#include "chart_test.h"
#include "xlumotemplate.h"

#include "host/data_types.h"
#include "kestrelhost/conversion.h"
#include "kestrelhost/recorder.h"

#include <string>
#include <vector>

namespace kestrel::test {

inline constexpr char requestRoot[] =
    "<lumoTemplate type=\"request\" xmlns=\"http://xml.vexa.example/vexa/viewer/lumoTemplate\" "
    "xmlns:lumoml=\"http://xml.vexa.example/visualization\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
    "xsi:schemaLocation=\"http://xml.vexa.example/vexa/viewer/lumoTemplate "
    "http://xml.vexa.example/vexa/viewer/lumoTemplate-1.2.xsd\"";

/// A request with these lines in its root element.
std::string requestOf(std::vector<std::string> const& lines);

/// The same with these lines in the element that names the local template "pie", which is what a request has
/// in `LumoTemplateTest` at first.
std::string pieRequestOf(std::vector<std::string> const& lines);

/// What `addVariable` takes, as it is where nothing optional is given.
struct Variable {
  std::string slotName = "x";
  std::string slotValue = "age";
  bool categorical = true;
  std::string labelingVariableName = {};
  std::string dataSetName = {};
  Vexa_Format* format = nullptr;
  char const* slotLabel = nullptr;
  XLumoTemplate::VARIABLE_TYPE variableType = XLumoTemplate::VARIABLE_SINGLE;
  char const* mrSetName = nullptr;
  bool weight = false;
  std::string const* countedValue = nullptr;
  bool enhancedDichotomy = false;
  std::vector<std::string> const* varNames = nullptr;
  std::vector<std::string> const* varLabels = nullptr;
  std::vector<std::string> const* labelingVarNames = nullptr;
};

void addTo(XLumoTemplate& chart, Variable const& variable);

/// A user message with one detail, as it is recorded.
host::RecordedMessage message(std::string const& pattern, host::RecordedCell const& detail, int level);

/// A template with no chart alive, under a converter that gives one reply for every request: at first, one
/// without a chart.
class LumoTemplateTest : public ChartTest {
 protected:
  LumoTemplateTest();

  void chooseTemplate(std::string const& name, XLumoTemplate::LOCATION where = XLumoTemplate::LOCATION_LOCAL);
  void add(Variable const& variable) { addTo(chart, variable); }

  void replies(std::string const& reply);
  bool convert() { return chart.convert(lumoML, styleSheet); }

  /// What a conversion sends, by which it is also held against the schema of requests.
  std::string request();

  host::MemoryServices& services = recorder.services();
  XLumoTemplate chart;
  std::string lumoML;
  std::string styleSheet;
};

}  // namespace kestrel::test
