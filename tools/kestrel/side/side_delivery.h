#pragma once

#include "side_request.h"

#include <functional>
#include <string>

class XDocument;

namespace kestrel::tool {

/// Runs `send` under a host whose messages go where the request says, and tells on standard output what was
/// written.
/// @param what what messages call it, such as "image"
/// @param send makes the document, describes it by `describe`, sends it and gives the library's result
/// Throws a Problem where it did not arrive everywhere.
void deliver(SideRequest const& request, char const* what, std::function<bool()> const& send);

/// Gives the document the description of the request, where there is one.
void describe(XDocument& document, SideRequest const& request);

/// The content of an input file. Throws a Problem where it cannot be read or is empty.
std::string requireContent(std::string const& file);

/// The same of a file that holds JSON. Throws a Problem with the place where it does not.
std::string requireJson(std::string const& file);

/// The options of the request; empty where there are none. Throws a Problem as requireContent does.
std::string optionsOf(OptionsRequest const& request);

}  // namespace kestrel::tool
