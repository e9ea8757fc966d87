// A request for a chart from a visualization template, with the template in it.
#include "java_converter.h"

#include <cstddef>
#include <cstdint>

namespace {

using kestrel::fuzzing::fail;

std::string replyTo(std::string const& request) {
  try {
    return GetAdapter()->ConvertClientLumoTemplate(request);
  } catch (JException const& failure) {
    fail(failure.getMessage().c_str(), request);
  }
}

/// The chart of a reply ends it, and declares its namespaces itself.
std::string chartOf(std::string const& reply) {
  std::size_t const begin = reply.find("<visualization");
  std::size_t const end = reply.rfind("</Lumoml>");
  return begin == std::string::npos ? std::string() : reply.substr(begin, end - begin);
}

}  // namespace

/// Every request gets a reply, and a chart in it is one that the library takes, completes and writes.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  kestrel::fuzzing::converter();
  std::string const request(reinterpret_cast<char const*>(data), size);
  std::string const reply = replyTo(request);
  if (reply.find("<lumoTemplate type=\"reply\"") == std::string::npos) fail("no reply", request);
  bool const granted = reply.find("<Lumoml success=\"true\">") != std::string::npos;
  if (!granted) return 0;
  XDocument document(chartOf(reply));
  if (!document.implementationExists()) fail("the reply has no chart", reply);
  if (document.getChartXML().empty()) fail("the chart cannot be completed", reply);
  return 0;
}
