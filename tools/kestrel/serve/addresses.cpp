#include "addresses.h"

#include "listen/open_file.h"

#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cerrno>
#include <memory>
#include <system_error>

namespace kestrel::tool {

namespace {

struct Freer {
  void operator()(addrinfo* list) const { ::freeaddrinfo(list); }
};
using AddressList = std::unique_ptr<addrinfo, Freer>;

/// Null where the name is not known.
AddressList addressesOf(std::string const& host, int port) {
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = AI_PASSIVE;
  addrinfo* found = nullptr;
  if (::getaddrinfo(host.c_str(), std::to_string(port).c_str(), &wanted, &found) != 0) return nullptr;
  return AddressList(found);
}

Reach reachOfAddress(sockaddr const* address) {
  if (address->sa_family == AF_INET6) {
    in6_addr const& bytes = reinterpret_cast<sockaddr_in6 const*>(address)->sin6_addr;
    if (IN6_IS_ADDR_UNSPECIFIED(&bytes)) return Reach::AllAddresses;
    return IN6_IS_ADDR_LOOPBACK(&bytes) ? Reach::ThisMachine : Reach::OneAddress;
  }
  constexpr unsigned int loopbackNet = 127;
  unsigned int const number = ntohl(reinterpret_cast<sockaddr_in const*>(address)->sin_addr.s_addr);
  if (number == INADDR_ANY) return Reach::AllAddresses;
  return number >> 24 == loopbackNet ? Reach::ThisMachine : Reach::OneAddress;
}

/// 0 where a server could be there.
int bindError(addrinfo const& address) {
  OpenFile const probe(::socket(address.ai_family, address.ai_socktype, address.ai_protocol));
  if (probe.number() < 0) return errno;
  int const yes = 1;
  ::setsockopt(probe.number(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  return ::bind(probe.number(), address.ai_addr, address.ai_addrlen) == 0 ? 0 : errno;
}

}  // namespace

Reach reachOf(std::string const& host) {
  AddressList const addresses = addressesOf(host, 0);
  Reach widest = addresses ? Reach::ThisMachine : Reach::OneAddress;
  for (addrinfo const* each = addresses.get(); each != nullptr; each = each->ai_next) {
    Reach const reach = reachOfAddress(each->ai_addr);
    if (reach > widest) widest = reach;
  }
  return widest;
}

std::string whyNotServed(std::string const& host, int port) {
  AddressList const addresses = addressesOf(host, port);
  if (!addresses) return "no address has that name";
  for (addrinfo const* each = addresses.get(); each != nullptr; each = each->ai_next) {
    if (int const error = bindError(*each)) return std::generic_category().message(error);
  }
  return "the system refuses it";
}

}  // namespace kestrel::tool
