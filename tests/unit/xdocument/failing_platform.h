#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <utility>

namespace kestrel::test {

/// Counts the calls by which the XML library is started and ended while it lives, and can make them fail. One
/// at a time.
class PlatformCalls {
 public:
  PlatformCalls();
  PlatformCalls(unsigned int starts, unsigned int ends) : mStarts(starts), mEnds(ends) {}
  PlatformCalls(PlatformCalls const&) = delete;
  PlatformCalls& operator=(PlatformCalls const&) = delete;
  ~PlatformCalls();

  void reset() { mStarts = mEnds = 0; }

  /// The next call throws a failure of the XML library itself.
  void failStart();
  void failEnd();
  static std::string failureMessage();
  void actAtStart(std::function<void()> action) { mAtStart = std::move(action); }
  void actAtEnd(std::function<void()> action) { mAtEnd = std::move(action); }

  /// The locale of the last start.
  std::string const& locale() const { return mLocale; }

  bool operator==(PlatformCalls const& other) const {
    return mStarts == other.mStarts && mEnds == other.mEnds;
  }
  friend std::ostream& operator<<(std::ostream& out, PlatformCalls const& calls);

  void start(char const* locale);
  void end();

 private:
  unsigned int mStarts = 0;
  unsigned int mEnds = 0;
  std::string mLocale;
  std::function<void()> mAtStart;
  std::function<void()> mAtEnd;
};

}  // namespace kestrel::test
