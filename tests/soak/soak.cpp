// Sends many charts through one channel of one process to a client that checks each of them, and tells
// whether the memory of the process stays as it is.
//
//   kestrel_soak [CHARTS]

#include "soak_chart.h"
#include "soak_client.h"

#include "kestrelhost/data_store.h"
#include "kestrelhost/host.h"
#include "kestrelhost/stream_channel.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <thread>

namespace kestrel::test {
namespace {

constexpr std::size_t usualCharts = 100'000;
constexpr std::size_t samples = 10;

/// By how much the resident memory may grow once a tenth of the charts have warmed everything up. In the
/// usual run that is 11 bytes a chart: less than any leak.
constexpr std::size_t mostGrowth = 1 << 20;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool freedMemoryIsKept = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr bool freedMemoryIsKept = true;
#else
constexpr bool freedMemoryIsKept = false;
#endif
#else
constexpr bool freedMemoryIsKept = false;
#endif

std::size_t residentBytes() {
#ifdef __linux__
  std::size_t total = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> total >> resident;
  return resident * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
#else
  // The most that it ever was, which grows where memory leaks.
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::size_t>(usage.ru_maxrss);
#endif
}

double mebibytes(std::size_t bytes) { return static_cast<double>(bytes) / (1 << 20); }

class Soak {
 public:
  explicit Soak(std::size_t charts) : mCharts(charts) {}

  /// False where a chart was not sent.
  bool send() {
    std::printf("%10s %9s %9s %13s\n", "charts", "seconds", "charts/s", "resident MiB");
    for (std::size_t chart = 0; chart < mCharts; ++chart) {
      if (!sendSoakChart(chart)) return false;
      std::size_t const sent = chart + 1;
      if (sent * samples / mCharts > chart * samples / mCharts) sample(sent);
    }
    return true;
  }

  std::size_t growth() const { return mMost - std::min(mMost, mWarm); }

 private:
  void sample(std::size_t sent) {
    std::size_t const resident = residentBytes();
    if (mWarm == 0) mWarm = resident;
    mMost = std::max(mMost, resident);
    double const seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - mStart).count();
    std::printf("%10zu %9.1f %9.0f %13.2f\n", sent, seconds, static_cast<double>(sent) / seconds,
                mebibytes(resident));
    std::fflush(stdout);
  }

  std::size_t mCharts;
  std::size_t mWarm = 0;
  std::size_t mMost = 0;
  std::chrono::steady_clock::time_point mStart = std::chrono::steady_clock::now();
};

host::Host soakHost(int descriptor) {
  host::Host host;
  host.channel = std::make_shared<host::DescriptorChannel>(descriptor);
  auto files = std::make_shared<host::MemoryFiles>();
  files->content[soakTemplateName] = soakTemplate();
  host.files = files;
  return host;
}

/// Whether all was as it should be; says so.
bool judge(bool sent, std::size_t charts, Soak const& soak, SoakClient const& client) {
  std::printf("%zu charts, %zu messages and %llu bytes were decoded\n", client.charts(), client.messages(),
              static_cast<unsigned long long>(client.bytes()));
  std::printf("resident memory grew by %.2f MiB since a tenth of the charts; %.2f MiB are allowed\n",
              mebibytes(soak.growth()), mebibytes(mostGrowth));
  bool const isFlat = soak.growth() <= mostGrowth || freedMemoryIsKept;
  bool const isWhole = sent && !client.fault() && client.charts() == charts;
  if (client.fault()) std::printf("FAULT: %s\n", client.fault()->c_str());
  if (!isWhole) std::printf("FAULT: %zu charts of %zu have arrived\n", client.charts(), charts);
  if (!isFlat) std::printf("FAULT: memory is not flat\n");
  if (host::liveStores() != 0) std::printf("FAULT: %zu data stores are left\n", host::liveStores());
  return isWhole && isFlat && host::liveStores() == 0;
}

bool run(std::size_t charts) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) return false;
  SoakClient client(ends[0]);
  std::thread reading([&client] { client.run(); });
  Soak soak(charts);
  bool sent = false;
  {
    host::ScopedHost const scope(soakHost(ends[1]));
    sent = soak.send();
  }
  ::close(ends[1]);
  reading.join();
  return judge(sent, charts, soak, client);
}

}  // namespace
}  // namespace kestrel::test

int main(int count, char** arguments) {
  std::size_t const charts =
      count > 1 ? std::strtoull(arguments[1], nullptr, 10) : kestrel::test::usualCharts;
  if (charts < kestrel::test::samples) {
    std::fprintf(stderr, "usage: kestrel_soak [CHARTS], at least %zu\n", kestrel::test::samples);
    return 2;
  }
  return kestrel::test::run(charts) ? 0 : 1;
}
