#include "cli_fixture.h"

#include "schema_validator.h"
#include "wire_decoder.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <fstream>
#include <iterator>
#include <limits>
#include <stdexcept>

#ifdef __APPLE__
extern char** environ;  // other systems declare it in unistd.h
#endif

namespace kestrel::test {

namespace fs = std::filesystem;

namespace {

std::string contentOf(fs::path const& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Where the output of a started program goes.
class Redirections {
 public:
  Redirections() { posix_spawn_file_actions_init(&mActions); }
  ~Redirections() { posix_spawn_file_actions_destroy(&mActions); }
  Redirections(Redirections const&) = delete;
  Redirections& operator=(Redirections const&) = delete;

  void add(int descriptor, fs::path const& file) {
    posix_spawn_file_actions_addopen(&mActions, descriptor, file.c_str(), O_CREAT | O_WRONLY | O_TRUNC, 0600);
  }
  posix_spawn_file_actions_t const* get() const { return &mActions; }

 private:
  posix_spawn_file_actions_t mActions{};
};

int start(std::vector<std::string> const& command, Redirections const& redirections) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string const& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawn(&process, arguments[0], redirections.get(), nullptr, arguments.data(), environ) != 0) {
    throw std::runtime_error("cannot start " + command[0]);
  }
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace

CliTest::CliTest() {
  static std::atomic<int> number{0};
  folder = fs::path(testing::TempDir()) /
           ("kestrel_cli_" + std::to_string(::getpid()) + "_" + std::to_string(++number));
  fs::create_directories(folder);
}

CliTest::~CliTest() {
  std::error_code ignored;
  fs::remove_all(folder, ignored);
}

Outcome CliTest::run(std::vector<std::string> const& command) const {
  // Beside the folder, so that a test sees only what the program made.
  fs::path const out = folder.string() + ".out";
  fs::path const err = folder.string() + ".err";
  Redirections redirections;
  redirections.add(STDOUT_FILENO, out);
  redirections.add(STDERR_FILENO, err);
  Outcome result{start(command, redirections), contentOf(out), contentOf(err)};
  fs::remove(out);
  fs::remove(err);
  return result;
}

Outcome CliTest::shell(std::string const& command) const {
  return run({"/bin/sh", "-c", "cd \"$1\" && KESTREL=$2 && " + command, "sh", folder.string(), KESTREL_CLI});
}

Outcome CliTest::kestrel(std::vector<std::string> const& arguments) const {
  std::vector<std::string> command = {"/bin/sh", "-c", "cd \"$0\" && exec \"$@\"", folder.string(),
                                      KESTREL_CLI};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return run(command);
}

Outcome CliTest::chart(std::string const& file, std::vector<std::string> const& more) const {
  std::vector<std::string> arguments = {"chart", file,  "--element", "point", "--x",
                                        "a",     "--y", "b",         "-o",    "out"};
  arguments.insert(arguments.end(), more.begin(), more.end());
  return kestrel(arguments);
}

Outcome CliTest::chartOf(std::string const& table, std::vector<std::string> const& more) const {
  write("t.csv", table);
  return chart("t.csv", more);
}

Outcome CliTest::extract() const { return kestrel({"inspect", "out/capture.kcap", "--extract", "contents"}); }

void CliTest::write(std::string const& name, std::string const& content) const {
  std::ofstream(folder / name, std::ios::binary) << content;
}

std::string CliTest::read(std::string const& name) const { return contentOf(folder / name); }

std::vector<std::string> CliTest::filesIn(std::string const& name) const {
  std::vector<std::string> names;
  for (auto const& entry : fs::directory_iterator(folder / name))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

std::string CliTest::chartText() const {
  auto const contents = decodeContents(decodeCapture(read("out/capture.kcap")));
  std::string text = inflated(onlyContent(contents, 1).bytes);
  std::vector<std::string> const errors = schemaErrors(text);
  for (std::string const& error : errors) ADD_FAILURE() << error;
  return text;
}

std::vector<double> CliTest::column(std::size_t index, std::size_t columns, std::size_t rows) const {
  auto const contents = decodeContents(decodeCapture(read("out/capture.kcap")));
  std::string const stream = onlyContent(contents, 8).bytes;
  // The last batch's cells end before the mark of eight bytes: for each column a bit for each row, in eighths
  // of 64 bits, and then the doubles.
  std::size_t const bits = (rows + 63) / 64 * 8;
  std::size_t const start = stream.size() - 8 - (columns - index) * (bits + 8 * rows);
  std::vector<double> cells;
  cells.reserve(rows);
  for (std::size_t row = 0; row < rows; ++row) {
    bool const present = (littleEndianAt(stream, start + row / 8, 1) >> (row % 8) & 1) != 0;
    double const value = std::bit_cast<double>(littleEndianAt(stream, start + bits + 8 * row, 8));
    cells.push_back(present ? value : std::numeric_limits<double>::quiet_NaN());
  }
  return cells;
}

std::string exampleData(std::string const& name) { return KESTREL_SOURCE_DIR "/examples/data/" + name; }

}  // namespace kestrel::test
