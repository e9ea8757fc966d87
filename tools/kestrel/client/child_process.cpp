#include "child_process.h"

#include "listen/open_file.h"
#include "problem.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/types.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
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

std::string readToEnd(int descriptor) {
  std::string text;
  std::array<char, 4096> bytes;
  for (;;) {
    ssize_t const got = ::read(descriptor, bytes.data(), bytes.size());
    if (got > 0) text.append(bytes.data(), static_cast<std::size_t>(got));
    if (got == 0 || (got < 0 && errno != EINTR)) return text;
  }
}

int exitOf(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

ChildOutcome runProgram(std::vector<std::string> const& command) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0)
    throw Problem("the system has no room for another open file", Exit::NotWritten);
  OpenFile const reader(ends[0]);
  OpenFile writer(ends[1]);
  for (int const end : ends) ::fcntl(end, F_SETFD, FD_CLOEXEC);
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string const& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  pid_t process = 0;
  int const error =
      ::posix_spawnp(&process, arguments[0], Redirections(ends[1]).get(), nullptr, arguments.data(), environ);
  if (error == ENOENT) return {.exit = 0, .found = false, .errors = {}};
  if (error != 0)
    throw Problem("cannot start " + command[0] + ": " + std::generic_category().message(error),
                  Exit::NotWritten);
  writer = OpenFile();
  std::string errors = readToEnd(reader.number());
  return {.exit = exitOf(process), .found = true, .errors = std::move(errors)};
}

}  // namespace kestrel::tool
