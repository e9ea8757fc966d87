#pragma once

#include "kestrelhost/recorder.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::host {

class Recorder::Journal {
 public:
  using Arguments = std::vector<Entry::Argument>;

  /// Notes a call, and runs what is to be run at it. False where the call is to fail.
  bool note(Operation operation, Arguments arguments = {});

  void actAt(Operation operation, unsigned int n, std::function<void()> action);
  void failAt(Operation operation, unsigned int n);
  void behave();
  void ignore(Operation operation) { mIgnored.insert(operation); }
  void clear();

  std::vector<Entry> const& entries() const { return mEntries; }
  std::size_t count(Operation operation) const;

 private:
  struct Action {
    /// Counted from the start, 0 for every call.
    std::size_t call;
    /// Empty for one that makes the call fail.
    std::function<void()> run;
  };

  void add(Operation operation, unsigned int n, std::function<void()> run);

  std::vector<Entry> mEntries;
  /// Calls from the start, and how many of them are forgotten.
  std::map<Operation, std::size_t> mCounts;
  std::map<Operation, std::size_t> mForgotten;
  std::multimap<Operation, Action> mActions;
  std::set<Operation> mIgnored;
};

/// The services of `inner`, each behind one that notes its calls in the journal.
Host recordedHost(Host const& inner, std::shared_ptr<Recorder::Journal> const& journal);

}  // namespace kestrel::host
