// Where kestrel serve can be, and who reaches it there.

#include "serve/addresses.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <system_error>

namespace kestrel::tool {

TEST(Addresses, AreOfThisMachineAloneOrNot) {
  EXPECT_EQ(reachOf("127.0.0.1"), Reach::ThisMachine);
  EXPECT_EQ(reachOf("127.5.5.5"), Reach::ThisMachine);
  EXPECT_EQ(reachOf("::1"), Reach::ThisMachine);
  EXPECT_EQ(reachOf("192.0.2.1"), Reach::OneAddress);
  EXPECT_EQ(reachOf("2001:db8::1"), Reach::OneAddress);
  EXPECT_EQ(reachOf("0.0.0.0"), Reach::AllAddresses);
  EXPECT_EQ(reachOf("::"), Reach::AllAddresses);
}

TEST(Addresses, ThatAreNotOursCannotBeServedAt) {
  EXPECT_EQ(whyNotServed("192.0.2.1", 0), std::generic_category().message(EADDRNOTAVAIL));
}

}  // namespace kestrel::tool
