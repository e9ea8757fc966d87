#include "host_names.h"

#include <arpa/inet.h>
#include <netinet/in.h>

#include <algorithm>
#include <cctype>

namespace kestrel::tool {

namespace {

/// Without the port, and without brackets.
std::string hostOf(std::string_view header) {
  if (header.starts_with('[')) return std::string(header.substr(1, header.find(']') - 1));
  std::size_t const colon = header.rfind(':');
  return std::string(header.substr(0, colon));
}

bool isAddress(std::string const& host) {
  in6_addr address{};
  return ::inet_pton(AF_INET, host.c_str(), &address) == 1 ||
         ::inet_pton(AF_INET6, host.c_str(), &address) == 1;
}

bool isSameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](char a, char b) {
    return std::tolower(static_cast<unsigned char>(a)) == std::tolower(static_cast<unsigned char>(b));
  });
}

}  // namespace

bool isOurName(std::string_view hostHeader, std::string_view ownName) {
  std::string const host = hostOf(hostHeader);
  return isAddress(host) || isSameName(host, "localhost") || isSameName(host, ownName);
}

std::string inUrl(std::string const& address) {
  return address.find(':') == std::string::npos ? address : "[" + address + "]";
}

}  // namespace kestrel::tool
