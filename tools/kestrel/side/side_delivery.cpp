#include "side_delivery.h"

#include "chart/chart_delivery.h"
#include "files.h"
#include "problem.h"
#include "xdocument.h"

#include "kestrelhost/host.h"
#include "model/chartstring.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace kestrel::tool {

void deliver(SideRequest const& request, char const* what, std::function<bool()> const& send) {
  ChartDelivery delivery(request.output, request.send, what);
  host::Host host;
  host.channel = delivery.channel();
  host::ScopedHost const scope(host);
  delivery.finish(send());
  print(printable(delivery.name()) + ": " + counted(delivery.messages(), "message") + ", " +
        counted(delivery.bytes(), "byte") + "\n");
}

void describe(XDocument& document, SideRequest const& request) {
  if (request.description.empty()) return;
  ChartString description;
  description.assignUTF8(request.description);
  document.SetDescription(description);
}

std::string requireContent(std::string const& file) {
  std::string content = readFile(file);
  if (content.empty()) throw badInput(file, "is empty");
  return content;
}

namespace {

/// Notes where a text stops being JSON, and keeps nothing of it.
class Check : public nlohmann::json_sax<nlohmann::json> {
 public:
  bool null() override { return true; }
  bool boolean(bool) override { return true; }
  bool number_integer(number_integer_t) override { return true; }
  bool number_unsigned(number_unsigned_t) override { return true; }
  bool number_float(number_float_t, string_t const&) override { return true; }
  bool string(string_t&) override { return true; }
  bool binary(binary_t&) override { return true; }
  bool start_object(std::size_t) override { return true; }
  bool key(string_t&) override { return true; }
  bool end_object() override { return true; }
  bool start_array(std::size_t) override { return true; }
  bool end_array() override { return true; }
  bool parse_error(std::size_t, std::string const&, nlohmann::detail::exception const& error) override {
    fault = error.what();
    return false;
  }

  std::string fault;
};

}  // namespace

std::string requireJson(std::string const& file) {
  std::string content = requireContent(file);
  Check check;
  if (nlohmann::json::sax_parse(content, &check)) return content;
  // Without the library's own number of the error, which stands in front.
  std::string_view const fault = check.fault;
  std::size_t const start = fault.find("] ");
  throw badInput(
      file, "is no JSON: " + std::string(start == std::string_view::npos ? fault : fault.substr(start + 2)));
}

std::string optionsOf(OptionsRequest const& request) {
  return request.optionsFile.empty() ? request.options : requireContent(request.optionsFile);
}

}  // namespace kestrel::tool
