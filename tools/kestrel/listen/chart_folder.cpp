#include "chart_folder.h"

#include "chart_summary.h"
#include "files.h"
#include "inspect/capture_reader.h"
#include "inspect/extraction.h"
#include "inspect/inspect_command.h"
#include "inspect/inspection.h"
#include "problem.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

namespace kestrel::tool {

namespace {

namespace fs = std::filesystem;

Problem notWritten(std::string const& name, int error) {
  return {name + ": cannot be written: " + std::generic_category().message(error) + "; is there room for it?",
          Exit::NotWritten};
}

/// At least three digits.
std::string stemOf(unsigned int number) {
  std::string digits = std::to_string(number);
  return std::string(3 - std::min<std::size_t>(3, digits.size()), '0') + digits;
}

}  // namespace

/// The capture of a chart's messages, and beside it in the end the folder of its contents.
class ChartFolder::Chart : public IncomingChart {
 public:
  explicit Chart(ChartFolder& folder) : mFolder(folder.mFolder), mBudget(&folder.mBudget) {
    mBudget->take(ByteBudget::fileCost, mFolder);
    while (!mFile) open(stemOf(++folder.mLast));
    Chart::append(captureSignature);
  }

  std::optional<std::string> refusal(std::size_t) const override { return std::nullopt; }
  void append(std::string_view bytes) override;
  std::size_t size() const override { return mSize; }
  bool finish() override;

 private:
  struct Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  /// Only a file that was not there.
  void open(std::string const& stem);

  fs::path mFolder;
  ByteBudget* mBudget;
  std::string mStem;
  std::string mName;
  std::unique_ptr<std::FILE, Closer> mFile;
  std::size_t mSize = 0;
};

void ChartFolder::Chart::open(std::string const& stem) {
  mStem = stem;
  mName = (mFolder / (stem + ".kcap")).string();
  std::error_code ignored;
  if (fs::exists(fs::symlink_status(mFolder / stem, ignored))) return;
  mFile.reset(std::fopen(mName.c_str(), "wbxe"));
  if (!mFile && errno != EEXIST) throw notWritten(mName, errno);
}

void ChartFolder::Chart::append(std::string_view bytes) {
  mBudget->take(bytes.size(), mName);
  if (std::fwrite(bytes.data(), 1, bytes.size(), mFile.get()) != bytes.size()) throw notWritten(mName, errno);
  mSize += bytes.size();
}

bool ChartFolder::Chart::finish() {
  if (std::fclose(mFile.release()) != 0) throw notWritten(mName, errno);
  std::string const bytes = readFile(mName);
  Inspection const inspection(bytes);
  tellFaults(mName, inspection.faults());
  std::vector<std::string> const written = extract(inspection.sends(), mFolder / mStem, *mBudget);
  print(printable(mName) + ": " + summaryOf(inspection, bytes.size()) + ", " +
        counted(written.size(), "file") + (inspection.faults().empty() ? "" : ", faulty") + "\n");
  return inspection.faults().empty();
}

ChartFolder::ChartFolder(fs::path folder, std::size_t mostBytes)
    : mFolder(std::move(folder)), mBudget(mostBytes) {
  makeFolder(mFolder);
}

std::unique_ptr<IncomingChart> ChartFolder::begin(std::string const&) {
  return std::make_unique<Chart>(*this);
}

}  // namespace kestrel::tool
