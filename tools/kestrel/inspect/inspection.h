#pragma once

#include "contents.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::tool {

/// A capture taken apart, and all that is wrong with it, in the order of the bytes. Refers to the capture's
/// bytes.
class Inspection {
 public:
  explicit Inspection(std::string_view bytes);
  Inspection(Inspection const&) = delete;
  Inspection& operator=(Inspection const&) = delete;

  std::vector<WireMessage> const& messages() const { return mMessages; }
  std::vector<Send> const& sends() const { return mSends; }
  std::vector<Fault> const& faults() const { return mFaults; }

 private:
  std::vector<WireMessage> mMessages;
  std::vector<Send> mSends;
  std::vector<Fault> mFaults;
};

}  // namespace kestrel::tool
