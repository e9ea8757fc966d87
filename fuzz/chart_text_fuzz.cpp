// Chart text from outside: any bytes become a chart, or a failure that the user and the log hear of. A chart
// can be looked into, sent, and written, and what was written is a chart again.

#include "xdocument.h"
#include "xgraph.h"

#include "kestrelhost/recorder.h"
#include "model/document.h"

#include <cstdint>
#include <cstdlib>
#include <string>

using kestrel::host::Operation;
using kestrel::host::Recorder;
using kestrel::host::ScopedHost;

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

/// A host in memory, whose converter finds nothing to convert.
Recorder& hostInForce() {
  static Recorder recorder;
  static ScopedHost const scope(recorder.host());
  auto const unchanged = [](std::string const& in, std::string& out) {
    out = in;
    return true;
  };
  recorder.services().java->upgrading = unchanged;
  recorder.services().java->pdl = unchanged;
  recorder.services().channel->clear();
  recorder.clear();
  return recorder;
}

void useChart(XDocument& document) {
  std::string const text = document.AsUTF8();
  XDocument const again(text);
  require(again.implementationExists());
  require(again.AsUTF8() == text);
  document.getExternalGraph();
  require(document.SendChart(false, true, true));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  Recorder& recorder = hostInForce();
  std::string const text(reinterpret_cast<char const*>(data), size);
  XDocument document(text);
  bool const told = recorder.count(Operation::BpError) == 1 && recorder.count(Operation::Error) >= 1;
  bool const silent = recorder.count(Operation::BpError) == 0 && recorder.count(Operation::Error) == 0;
  require(document.implementationExists() ? silent : told);
  if (document.implementationExists()) useChart(document);
  return 0;
}
