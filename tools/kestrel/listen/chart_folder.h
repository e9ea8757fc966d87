#pragma once

#include "byte_budget.h"
#include "incoming_chart.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>

namespace kestrel::tool {

/// The folder in which received charts are put, each under a number that was free. All that is written into
/// it is taken from a budget; where that is too small a Problem is thrown, and what was written before is
/// whole.
class ChartFolder : public ChartReceiver {
 public:
  /// Makes the folder. Throws a Problem where that fails.
  ChartFolder(std::filesystem::path folder, std::size_t mostBytes);

  std::unique_ptr<IncomingChart> begin(std::string const& sender) override;

 private:
  class Chart;

  std::filesystem::path mFolder;
  ByteBudget mBudget;
  unsigned int mLast = 0;
};

}  // namespace kestrel::tool
