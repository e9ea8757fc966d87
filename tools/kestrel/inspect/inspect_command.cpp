#include "inspect_command.h"

#include "capture_difference.h"
#include "extraction.h"
#include "files.h"
#include "inspection.h"
#include "listing.h"
#include "problem.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace kestrel::tool {

namespace {

constexpr std::size_t mostFaultsTold = 100;

std::string lineOf(std::string const& name, Fault const& fault) {
  std::string line = name + ": at byte " + std::to_string(fault.offset);
  if (fault.message) line += " (message " + std::to_string(*fault.message) + ")";
  return line += ": " + fault.text;
}

/// A capture that cannot be read to its end is not compared as if it were whole.
bool isReadable(std::string const& name, std::string_view bytes) {
  auto const cut = readCapture(bytes).cut;
  if (cut) tell(lineOf(name, *cut));
  return !cut;
}

bool compare(InspectRequest const& request) {
  std::string const left = readFile(request.capture);
  std::string const right = readFile(request.other);
  bool const leftIsReadable = isReadable(request.capture, left);
  bool const rightIsReadable = isReadable(request.other, right);
  CaptureDifference const difference = compareCaptures({request.capture, left}, {request.other, right});
  print(difference.text);
  return difference.same && leftIsReadable && rightIsReadable;
}

}  // namespace

void tellFaults(std::string const& name, std::vector<Fault> const& faults) {
  std::size_t const told = std::min(faults.size(), mostFaultsTold);
  for (std::size_t at = 0; at < told; ++at) tell(lineOf(name, faults[at]));
  if (faults.size() > told) tell(name + ": and " + std::to_string(faults.size() - told) + " more faults");
}

bool runInspect(InspectRequest const& request) {
  if (!request.other.empty()) return compare(request);
  std::string const bytes = readFile(request.capture);
  Inspection const inspection(bytes);
  std::vector<std::string> written;
  ByteBudget budget(ByteBudget::unlimited);
  if (!request.extract.empty()) written = extract(inspection.sends(), request.extract, budget);
  tellFaults(request.capture, inspection.faults());
  print(request.json ? jsonListing(request.capture, inspection, request.cells, written)
                     : textListing(request.capture, inspection, request.cells));
  return inspection.faults().empty();
}

}  // namespace kestrel::tool
