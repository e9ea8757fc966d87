#pragma once

#include "chartxmlcontent.h"

#include "model/chartstring.h"

#include <functional>
#include <string>

namespace kestrel {

/// What goes out where nobody has described the content, in the output language.
ChartString missingDescription();

/// Sends a description in the document language and, if that has succeeded, in its English form, and traces
/// it in any case.
/// @return the result of the last of them
bool sendDescription(ChartString const& description,
                     std::function<bool(std::string const& content, ChartXMLContentType type)> const& send);

}  // namespace kestrel
