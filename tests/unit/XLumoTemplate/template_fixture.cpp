#include "template_fixture.h"

#include "schema_validator.h"

#include <gmock/gmock.h>

namespace kestrel::test {

using host::Operation;

namespace {

std::string indented(std::vector<std::string> const& lines, std::string const& indent) {
  std::string text;
  for (std::string const& line : lines) text += "\n" + indent + line;
  return text;
}

}  // namespace

std::string requestOf(std::vector<std::string> const& lines) {
  if (lines.empty()) return std::string(requestRoot) + "/>";
  return requestRoot + (">" + indented(lines, "  ")) + "\n</lumoTemplate>";
}

std::string pieRequestOf(std::vector<std::string> const& lines) {
  std::vector<std::string> all{
      "<templateSpecification locale=\"en-US\" location=\"local\" templateName=\"pie\">"};
  for (std::string const& line : lines) all.push_back("  " + line);
  all.emplace_back("</templateSpecification>");
  return requestOf(all);
}

host::RecordedMessage message(std::string const& pattern, host::RecordedCell const& detail, int level) {
  std::string text = pattern;
  auto const place = text.find("^1");
  if (place != std::string::npos) text.replace(place, 2, detail.text);
  return {text, true, pattern, {detail}, 2, level};
}

LumoTemplateTest::LumoTemplateTest() { replies("<reply/>"); }

void LumoTemplateTest::chooseTemplate(std::string const& name, XLumoTemplate::LOCATION where) {
  ChartString text;
  text.assignUTF8(name);
  chart.setTemplateName(text, where);
}

void addTo(XLumoTemplate& chart, Variable const& variable) {
  chart.addVariable(variable.slotName, variable.slotValue, variable.categorical,
                    variable.labelingVariableName, variable.dataSetName, variable.format, variable.slotLabel,
                    variable.variableType, variable.mrSetName, variable.weight, variable.countedValue,
                    variable.enhancedDichotomy, variable.varNames, variable.varLabels,
                    variable.labelingVarNames);
}

void LumoTemplateTest::replies(std::string const& reply) {
  services.java->templates = [reply](std::string const&) { return reply; };
}

std::string LumoTemplateTest::request() {
  convert();
  auto const requests = recorder.entries(Operation::ConvertTemplate);
  if (requests.empty()) return "(none)";
  std::string const text = requests.back().text("request");
  EXPECT_THAT(templateRequestSchemaErrors(text), ::testing::IsEmpty());
  return text;
}

}  // namespace kestrel::test
