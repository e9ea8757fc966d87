#pragma once

#include "byte_budget.h"

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace kestrel::tool {

/// The folder in which received charts are put, each under a number that was free. All that is written into
/// it is taken from a budget; where that is too small a Problem is thrown, and what was written before is
/// whole.
class ChartFolder {
 public:
  /// Makes the folder. Throws a Problem where that fails.
  ChartFolder(std::filesystem::path folder, std::size_t mostBytes);
  ChartFolder(ChartFolder const&) = delete;
  ChartFolder& operator=(ChartFolder const&) = delete;

  /// A chart as it comes in: the capture of its messages. The folder must live longer.
  class Chart {
   public:
    /// Throws a Problem where it cannot be written.
    void append(std::string_view bytes);
    std::size_t size() const { return mSize; }

   private:
    friend class ChartFolder;
    struct Closer {
      void operator()(std::FILE* file) const { std::fclose(file); }
    };

    explicit Chart(ByteBudget& budget) : mBudget(&budget) {}

    ByteBudget* mBudget;
    std::string mStem;
    std::string mName;
    std::unique_ptr<std::FILE, Closer> mFile;
    std::size_t mSize = 0;
  };

  Chart begin();

  /// Closes the capture, checks it, takes its contents out into the folder of the same number, and tells the
  /// user. False where something is wrong with it.
  bool finish(Chart chart);

 private:
  std::filesystem::path mFolder;
  ByteBudget mBudget;
  unsigned int mLast = 0;
};

}  // namespace kestrel::tool
