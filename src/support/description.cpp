#include "support/description.h"

#include "support/dictionary.h"

#include "host/chartbase.h"

namespace kestrel {

ChartString missingDescription() { return ChartDictionary().text("Description not set"); }

bool sendDescription(ChartString const& description,
                     std::function<bool(std::string const& content, ChartXMLContentType type)> const& send) {
  std::string const text = description.toUTF8();
  bool const success = send(text, CXT_DESCRIPTION) && send(description.toUTF8ForEng(), CXT_DESCRIPTION_ENG);
  ChartBase::printDebugInfo(text);
  return success;
}

}  // namespace kestrel
