#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel::test {

/// What a run of the program left.
struct Outcome {
  int exit;
  std::string out;
  std::string err;
};

/// Runs the built program, each test in a folder of its own that is the current one of the program.
class CliTest : public ::testing::Test {
 protected:
  CliTest();
  ~CliTest() override;

  Outcome kestrel(std::vector<std::string> const& arguments) const;
  /// Runs a command of the shell, in which $KESTREL is the program.
  Outcome shell(std::string const& command) const;

  /// `kestrel chart FILE --element point --x a --y b -o out`, and more arguments.
  Outcome chart(std::string const& file, std::vector<std::string> const& more = {}) const;
  /// The same with a table as text.
  Outcome chartOf(std::string const& table, std::vector<std::string> const& more = {}) const;
  /// Takes the contents of out/capture.kcap out into the folder "contents".
  Outcome extract() const;

  void write(std::string const& name, std::string const& content) const;
  std::string read(std::string const& name) const;
  bool exists(std::string const& name) const { return std::filesystem::exists(folder / name); }
  std::vector<std::string> filesIn(std::string const& name) const;

  /// The text of the chart in out/capture.kcap, which must be valid.
  std::string chartText() const;
  /// The cells of a column of that capture's data; NaN for one that is missing.
  std::vector<double> column(std::size_t index, std::size_t columns, std::size_t rows) const;

  std::filesystem::path folder;

 private:
  Outcome run(std::vector<std::string> const& command) const;
};

/// The file of the example data.
std::string exampleData(std::string const& name);

}  // namespace kestrel::test
