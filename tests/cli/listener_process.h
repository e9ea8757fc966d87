#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel::test {

/// A command of kestrel that runs in the background in a folder, until it is told to stop.
class BackgroundCommand {
 public:
  /// Returns when it has said something, or has ended.
  BackgroundCommand(std::filesystem::path const& folder, std::vector<std::string> const& arguments);
  ~BackgroundCommand();
  BackgroundCommand(BackgroundCommand const&) = delete;
  BackgroundCommand& operator=(BackgroundCommand const&) = delete;

  void signal(int number) const;
  /// Waits for its end. The exit code, or 128 and the number of the signal that ended it.
  int wait();

  /// What it has written so far.
  std::string out() const;
  std::string err() const;
  /// Waits until its output has that text; false where it does not come.
  bool says(std::string const& text) const;

 private:
  bool hasEnded();

  std::filesystem::path mFolder;
  pid_t mProcess = -1;
  int mStatus = 0;
};

/// `kestrel listen s -o got`, with more arguments.
class ListenerProcess : public BackgroundCommand {
 public:
  ListenerProcess(std::filesystem::path const& folder, std::vector<std::string> const& more);
};

/// A sender that connects to the socket, and sends what it is told.
class Sender {
 public:
  explicit Sender(std::filesystem::path const& socket);
  ~Sender();
  Sender(Sender const&) = delete;
  Sender& operator=(Sender const&) = delete;

  /// False where the listener has closed.
  bool send(std::string const& bytes) const;
  void close();
  /// Waits until the listener has closed; false where it does not.
  bool isRefused() const;

 private:
  int mSocket;
};

}  // namespace kestrel::test
