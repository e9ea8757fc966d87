#include "listener_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <thread>

#ifdef __APPLE__
extern char** environ;  // other systems declare it in unistd.h
#endif

namespace kestrel::test {

namespace {

using namespace std::chrono_literals;

constexpr int steps = 3000;
constexpr auto step = 10ms;

std::string contentOf(std::filesystem::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

BackgroundCommand::BackgroundCommand(std::filesystem::path const& folder,
                                     std::vector<std::string> const& arguments)
    : mFolder(folder) {
  std::vector<std::string> command = {
      "/bin/sh", "-c", "cd \"$0\" && exec \"$@\" >listener.out 2>listener.err", folder.string(), KESTREL_CLI};
  command.insert(command.end(), arguments.begin(), arguments.end());
  std::vector<char*> pointers;
  for (std::string& argument : command) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  if (posix_spawn(&mProcess, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0)
    throw std::runtime_error("cannot start the command");
  for (int i = 0; i < steps && out().empty() && !hasEnded(); ++i) std::this_thread::sleep_for(step);
}

BackgroundCommand::~BackgroundCommand() {
  if (mProcess < 0) return;
  ::kill(mProcess, SIGKILL);
  wait();
}

bool BackgroundCommand::hasEnded() {
  if (mProcess >= 0 && ::waitpid(mProcess, &mStatus, WNOHANG) == mProcess) mProcess = -1;
  return mProcess < 0;
}

void BackgroundCommand::signal(int number) const { ::kill(mProcess, number); }

int BackgroundCommand::wait() {
  if (mProcess >= 0) ::waitpid(mProcess, &mStatus, 0);
  mProcess = -1;
  return WIFEXITED(mStatus) ? WEXITSTATUS(mStatus) : 128 + WTERMSIG(mStatus);
}

std::string BackgroundCommand::out() const { return contentOf(mFolder / "listener.out"); }
std::string BackgroundCommand::err() const { return contentOf(mFolder / "listener.err"); }

bool BackgroundCommand::says(std::string const& text) const {
  for (int i = 0; i < steps; ++i) {
    if (out().find(text) != std::string::npos) return true;
    std::this_thread::sleep_for(step);
  }
  return false;
}

namespace {

std::vector<std::string> listenArguments(std::vector<std::string> const& more) {
  std::vector<std::string> arguments = {"listen", "s", "-o", "got"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

}  // namespace

ListenerProcess::ListenerProcess(std::filesystem::path const& folder, std::vector<std::string> const& more)
    : BackgroundCommand(folder, listenArguments(more)) {}

Sender::Sender(std::filesystem::path const& socket) : mSocket(::socket(AF_UNIX, SOCK_STREAM, 0)) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, socket.c_str(), sizeof address.sun_path - 1);
  auto const* const generic = reinterpret_cast<sockaddr const*>(&address);
  if (::connect(mSocket, generic, sizeof address) != 0) throw std::runtime_error("nobody listens");
}

Sender::~Sender() { close(); }

bool Sender::send(std::string const& bytes) const {
  for (std::size_t at = 0; at < bytes.size();) {
    ssize_t const sent = ::send(mSocket, bytes.data() + at, bytes.size() - at, MSG_NOSIGNAL);
    if (sent < 0) return false;
    at += static_cast<std::size_t>(sent);
  }
  return true;
}

void Sender::close() {
  if (mSocket >= 0) ::close(mSocket);
  mSocket = -1;
}

bool Sender::isRefused() const {
  pollfd wanted{mSocket, POLLIN, 0};
  return ::poll(&wanted, 1, 30'000) == 1 && (wanted.revents & (POLLHUP | POLLERR)) != 0;
}

}  // namespace kestrel::test
