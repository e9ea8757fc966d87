#include "upgrade_command.h"

#include "files.h"
#include "kept_reports.h"
#include "problem.h"

#include "host/java.h"
#include "kestrelhost/host.h"

#include <algorithm>
#include <memory>

namespace kestrel::tool {

namespace {

/// The converter, running; null where there is none.
LumoConverter* startedConverter() {
  VexaJVM* const machine = VexaJVM::GetInstance();
  if (machine == nullptr || !(machine->IsStarted() || machine->StartJVM())) return nullptr;
  JNIEnv_* environment = nullptr;
  LumoConverter* const converter = LumoConverter::GetInstance();
  if (machine->AttachCurrentThread(&environment) != 0 || converter == nullptr) return nullptr;
  return converter->IsStarted() || converter->StartConverter(environment) ? converter : nullptr;
}

void tellReport(UpgradeRequest const& request, std::string const& report) {
  auto const lines = static_cast<std::size_t>(std::count(report.begin(), report.end(), '\n'));
  if (request.report) {
    print(report);
  } else if (lines > 0) {
    tell("note: " + counted(lines, "thing") + " of " + request.chart +
         " could not be carried over; --report names them");
  }
}

}  // namespace

void runUpgrade(UpgradeRequest const& request) {
  std::string const old = readFile(request.chart);
  auto const log = std::make_shared<KeptLog>();
  host::Host host;
  host.log = log;
  host::ScopedHost const scope(host);
  LumoConverter* const converter = startedConverter();
  if (converter == nullptr) throw Problem("the upgrade needs Java: " + joined(log->notes), Exit::BadInput);
  std::string current;
  try {
    if (!converter->UpgradeXML(old, current))
      throw badInput(request.chart, "cannot be upgraded: " + converter->GetErrorMessage());
  } catch (JException const* failure) {  // NOLINT(misc-throw-by-value-catch-by-reference): hosts throw it so
    throw badInput(request.chart, "cannot be upgraded: " + failure->getMessage());
  }
  writeFile(request.output, current);
  tellReport(request, host::Host::current().java->upgradeReport());
}

}  // namespace kestrel::tool
