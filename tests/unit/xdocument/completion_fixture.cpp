#include "completion_fixture.h"

namespace kestrel::test {

CompletionTest::CompletionTest() { recorder.clear(); }

std::vector<std::string> CompletionTest::fragments() const {
  std::string const start = "lumoml-template-3.5.xsd\">";
  std::string const end = "</template>";
  std::vector<std::string> found;
  for (std::string const& text : linesOf("set ")) {
    auto const at = text.find(start);
    if (at == std::string::npos || !text.ends_with(end)) continue;
    auto const from = at + start.size();
    found.push_back(text.substr(from, text.size() - end.size() - from));
  }
  return found;
}

LumoStyleCycle& CompletionTest::addCycle(char16_t const* id, std::vector<char16_t const*> const& sizes) {
  LumoStyleCycle& cycle = *visualization.addStyleCycle(id);
  LumoCycle& looks = *cycle.addCycle();
  for (char16_t const* size : sizes) looks.addStyle()->setSize(size);
  return cycle;
}

std::vector<std::string> CompletionTest::sizesIn(LumoStyleCycle const& cycle) const {
  std::vector<std::string> sizes;
  for (LumoCycle const* looks : cycle.getCycles()) {
    for (LumoStyle const* style : looks->getStyles()) sizes.push_back(attribute(style, u"size"));
  }
  return sizes;
}

LumoShape& CompletionTest::addShape(LumoStyleCycle const& cycle) {
  LumoShape& shape = *point.addShape();
  shape.setCycle(cycle);
  return shape;
}

LumoSourceVariable& CompletionTest::addCluster(char16_t const* id) {
  LumoSourceVariable& cluster = *visualization.addSourceVariable(id);
  x.setClusterVariable(cluster);
  return cluster;
}

LumoSourceVariable& CompletionTest::addOriginal(char16_t const* column,
                                                std::vector<char16_t const*> const& suffixes) {
  LumoSourceVariable& original = *visualization.addSourceVariable(u"original");
  original.setSourceName(column);
  for (char16_t const* suffix : suffixes) original.addFormat()->setSuffix(suffix);
  return original;
}

std::vector<std::string> CompletionTest::suffixes(CTVariableType const& variable) {
  std::vector<std::string> found;
  for (LumoFormat const* format : variable.getFormats()) found.push_back(attribute(format, u"suffix"));
  return found;
}

}  // namespace kestrel::test
