#pragma once

#include "built_chart.h"
#include "xsource.h"
#include "xvariable.h"

#include "host/data_store.h"
#include "host/data_types.h"
#include "model/variables.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::test {

/// A host variable whose every answer is chosen by the test; null texts too.
class ChosenVariable : public Vexa_Variable {
 public:
  char const* GetName() const override { return name; }
  char const* GetLabel() const override { return label; }
  Vexa_Format GetFormat() const override { return format; }
  Vexa_VLImplPointer GetValueLabels() const override { return Vexa_VLImplPointer(valueLabels); }

  char const* name = "age";
  char const* label = "Age of the animal";
  Vexa_Format format{Vexa_Format::FormatNumber, 8, 2};
  std::shared_ptr<Vexa_ValueLabels const> valueLabels;
};

/// A data source that finds every name at the same index.
class ChosenSource : public ProcedureDataSource {
 public:
  int FindVarIndex(char const* name, int option) const override {
    asked.emplace_back(name, option);
    if (fail) fail();
    return index;
  }

  int index = 3;
  std::function<void()> fail;
  mutable std::vector<std::pair<std::string, int>> asked;
};

/// One case with cells by index and a case number.
class ChosenCase : public ProcDSIterator {
 public:
  OBS const* GetObsPointer(unsigned int index) const override {
    asked.push_back(index);
    return cell;
  }
  std::int64_t GetCaseNumber() const override { return caseNumber; }

  OBS const* cell = nullptr;
  std::int64_t caseNumber = 7;
  mutable std::vector<unsigned int> asked;
};

/// A chart with the source "source0" and the source variable "sourceVariable0".
class VariableTest : public BuiltChartTest {
 protected:
  VarDataProcessor store;
  XSource source{visualization, store};
  LumoSourceVariable& model = addVariable(u"sourceVariable0");
  ChosenVariable host;
  ChosenSource data;
};

}  // namespace kestrel::test
