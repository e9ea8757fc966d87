#include "child_process.h"

#include "listen/open_file.h"
#include "listen/stop_signals.h"
#include "problem.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/types.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

#ifdef __APPLE__
extern char** environ;  // other systems declare it in unistd.h
#endif

namespace kestrel::tool {

namespace {

/// What standard input, output and error of a program are.
class Redirections {
 public:
  explicit Redirections(int errors) {
    posix_spawn_file_actions_init(&mActions);
    posix_spawn_file_actions_addopen(&mActions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&mActions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&mActions, errors, STDERR_FILENO);
  }
  ~Redirections() { posix_spawn_file_actions_destroy(&mActions); }
  Redirections(Redirections const&) = delete;
  Redirections& operator=(Redirections const&) = delete;

  posix_spawn_file_actions_t const* get() const { return &mActions; }

 private:
  posix_spawn_file_actions_t mActions{};
};

/// Reads until there is nothing more. False where the user has stopped us before.
bool readToEnd(int descriptor, StopSignals const& signals, std::string& text) {
  std::array<char, 4096> bytes;
  for (;;) {
    std::array<pollfd, 2> wanted = {pollfd{signals.descriptor(), POLLIN, 0}, pollfd{descriptor, POLLIN, 0}};
    if (::poll(wanted.data(), wanted.size(), -1) < 0) continue;
    if (wanted[0].revents != 0) return false;
    ssize_t const got = ::read(descriptor, bytes.data(), bytes.size());
    if (got > 0) text.append(bytes.data(), static_cast<std::size_t>(got));
    if (got == 0 || (got < 0 && errno != EINTR)) return true;
  }
}

int exitOf(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// -1 where it could not be found.
pid_t start(std::vector<std::string> const& command, int errors) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string const& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  pid_t process = -1;
  int const error =
      ::posix_spawnp(&process, arguments[0], Redirections(errors).get(), nullptr, arguments.data(), environ);
  if (error == ENOENT) return -1;
  if (error != 0)
    throw Problem("cannot start " + command[0] + ": " + std::generic_category().message(error),
                  Exit::NotWritten);
  return process;
}

}  // namespace

ChildOutcome runProgram(std::vector<std::string> const& command) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0)
    throw Problem("the system has no room for another open file", Exit::NotWritten);
  OpenFile const reader(ends[0]);
  OpenFile writer(ends[1]);
  for (int const end : ends) ::fcntl(end, F_SETFD, FD_CLOEXEC);
  StopSignals const signals;
  pid_t const process = start(command, writer.number());
  if (process < 0) return {.exit = 0, .found = false, .errors = {}};
  writer = OpenFile();
  std::string errors;
  if (!readToEnd(reader.number(), signals, errors)) {
    ::kill(process, SIGTERM);
    exitOf(process);
    throw Problem("stopped; nothing is written", Exit::NotWritten);
  }
  return {.exit = exitOf(process), .found = true, .errors = std::move(errors)};
}

}  // namespace kestrel::tool
