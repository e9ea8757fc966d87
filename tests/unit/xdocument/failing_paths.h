#pragma once

namespace kestrel::test {

/// While it lives the host has no paths to give.
class NoPaths {
 public:
  NoPaths();
  NoPaths(NoPaths const&) = delete;
  NoPaths& operator=(NoPaths const&) = delete;
  ~NoPaths();
};

}  // namespace kestrel::test
