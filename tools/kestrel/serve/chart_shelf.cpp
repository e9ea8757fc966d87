#include "chart_shelf.h"

#include "files.h"
#include "inspect/capture_reader.h"
#include "inspect/inspect_command.h"
#include "inspect/inspection.h"
#include "listen/chart_summary.h"
#include "problem.h"

#include <optional>
#include <utility>

namespace kestrel::tool {

/// The capture of a chart that is on its way.
class ChartShelf::Chart : public IncomingChart {
 public:
  Chart(ChartShelf& shelf, std::string sender)
      : mShelf(&shelf), mSender(std::move(sender)), mBytes(captureSignature) {}
  ~Chart() override {
    std::lock_guard const lock(mShelf->mMutex);
    mShelf->mUnderWay -= mCounted;
  }

  std::optional<std::string> refusal(std::size_t bytes) const override {
    std::lock_guard const lock(mShelf->mMutex);
    if (bytes <= mShelf->mMostBytes - mShelf->mUnderWay) return std::nullopt;
    return "the charts on their way would take more than " + counted(mShelf->mMostBytes, "byte") +
           "; --max-bytes allows more";
  }

  void append(std::string_view bytes) override {
    mBytes += bytes;
    mCounted += bytes.size();
    std::lock_guard const lock(mShelf->mMutex);
    mShelf->mUnderWay += bytes.size();
  }

  std::size_t size() const override { return mBytes.size(); }

  bool finish() override {
    Inspection const inspection(mBytes);
    bool const isSound = inspection.faults().empty();
    tellFaults(mSender, inspection.faults());
    print(mSender + ": " + summaryOf(inspection, mBytes.size()) + (isSound ? "" : ", faulty") + "\n");
    mShelf->put(mSender, mBytes);
    return isSound;
  }

 private:
  ChartShelf* mShelf;
  std::string mSender;
  std::string mBytes;
  std::size_t mCounted = 0;
};

ChartShelf::ChartShelf(std::size_t mostCharts, std::size_t mostBytes)
    : mMostCharts(mostCharts), mMostBytes(mostBytes) {}

std::unique_ptr<IncomingChart> ChartShelf::begin(std::string const& sender) {
  return std::make_unique<Chart>(*this, sender);
}

void ChartShelf::put(std::string const& from, std::string bytes) {
  using namespace std::chrono;
  auto const now = duration_cast<milliseconds>(system_clock::now().time_since_epoch());
  {
    std::lock_guard const lock(mMutex);
    mBytes += bytes.size();
    mKept.push_back({++mLast, from, now.count(), std::make_shared<std::string const>(std::move(bytes))});
    dropOldest();
  }
  mChanged.notify_all();
}

/// The newest stays, however long it is: it could not be shown otherwise.
void ChartShelf::dropOldest() {
  while (mKept.size() > 1 && (mKept.size() > mMostCharts || mBytes > mMostBytes)) {
    mBytes -= mKept.front().bytes->size();
    mKept.pop_front();
  }
}

std::shared_ptr<std::string const> ChartShelf::find(std::size_t id) const {
  std::lock_guard const lock(mMutex);
  for (Kept const& kept : mKept) {
    if (kept.id == id) return kept.bytes;
  }
  return nullptr;
}

ChartShelf::News ChartShelf::news(std::size_t last, std::size_t first,
                                  std::chrono::milliseconds patience) const {
  std::unique_lock lock(mMutex);
  auto const firstKept = [this] { return mKept.empty() ? std::size_t{1} : mKept.front().id; };
  mChanged.wait_for(lock, patience, [&] { return mIsClosed || mLast > last || firstKept() > first; });
  News news{{}, firstKept(), mIsClosed};
  for (Kept const& kept : mKept) {
    if (kept.id > last) news.charts.push_back(kept);
  }
  return news;
}

void ChartShelf::close() {
  {
    std::lock_guard const lock(mMutex);
    mIsClosed = true;
  }
  mChanged.notify_all();
}

}  // namespace kestrel::tool
