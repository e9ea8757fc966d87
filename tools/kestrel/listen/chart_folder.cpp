#include "chart_folder.h"

#include "files.h"
#include "inspect/capture_reader.h"
#include "inspect/extraction.h"
#include "inspect/inspect_command.h"
#include "inspect/inspection.h"
#include "inspect/order_rules.h"
#include "problem.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

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

ChartFolder::ChartFolder(fs::path folder, std::size_t mostBytes)
    : mFolder(std::move(folder)), mBudget(mostBytes) {
  makeFolder(mFolder);
}

void ChartFolder::Chart::append(std::string_view bytes) {
  mBudget->take(bytes.size(), mName);
  if (std::fwrite(bytes.data(), 1, bytes.size(), mFile.get()) != bytes.size()) throw notWritten(mName, errno);
  mSize += bytes.size();
}

ChartFolder::Chart ChartFolder::begin() {
  Chart chart(mBudget);
  mBudget.take(ByteBudget::fileCost, mFolder);
  while (!chart.mFile) {
    chart.mStem = stemOf(++mLast);
    chart.mName = (mFolder / (chart.mStem + ".kcap")).string();
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(mFolder / chart.mStem, ignored))) continue;
    // Only a file that was not there.
    chart.mFile.reset(std::fopen(chart.mName.c_str(), "wbxe"));
    if (!chart.mFile && errno != EEXIST) throw notWritten(chart.mName, errno);
  }
  chart.append(captureSignature);
  return chart;
}

bool ChartFolder::finish(Chart chart) {
  if (std::fclose(chart.mFile.release()) != 0) throw notWritten(chart.mName, errno);
  std::string const bytes = readFile(chart.mName);
  Inspection const inspection(bytes);
  tellFaults(chart.mName, inspection.faults());
  std::vector<std::string> const written = extract(inspection.sends(), mFolder / chart.mStem, mBudget);
  std::string const kind = inspection.sends().empty() ? "nothing" : kindOf(inspection.sends().front());
  print(printable(chart.mName) + ": " + kind + ", " + counted(inspection.messages().size(), "message") +
        ", " + counted(bytes.size(), "byte") + ", " + counted(written.size(), "file") +
        (inspection.faults().empty() ? "" : ", faulty") + "\n");
  return inspection.faults().empty();
}

}  // namespace kestrel::tool
