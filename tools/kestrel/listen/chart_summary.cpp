#include "chart_summary.h"

#include "inspect/order_rules.h"
#include "problem.h"

namespace kestrel::tool {

std::string summaryOf(Inspection const& inspection, std::size_t bytes) {
  std::string const kind = inspection.sends().empty() ? "nothing" : kindOf(inspection.sends().front());
  return kind + ", " + counted(inspection.messages().size(), "message") + ", " + counted(bytes, "byte");
}

}  // namespace kestrel::tool
