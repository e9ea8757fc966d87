#include "golden.h"

#include "model/base.h"
#include "model/printing.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string_view>

namespace kestrel::test {

namespace {

bool isRewriting() {
  char const* const wanted = std::getenv("KESTREL_GOLDEN_REWRITE");
  return wanted != nullptr && std::string_view(wanted) == "1";
}

std::optional<std::string> contentOf(std::string const& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

void write(std::string const& path, std::string const& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  ASSERT_TRUE(file.flush()) << "cannot write " << path;
}

/// Where two texts part: the number of the line, and the line of each.
std::string firstDifference(std::string const& expected, std::string const& actual) {
  std::istringstream expectedLines(expected);
  std::istringstream actualLines(actual);
  std::string expectedLine;
  std::string actualLine;
  int number = 0;
  bool same = true;
  while (same && (expectedLines || actualLines)) {
    ++number;
    if (!std::getline(expectedLines, expectedLine)) expectedLine = "(end)";
    if (!std::getline(actualLines, actualLine)) actualLine = "(end)";
    same = expectedLine == actualLine;
  }
  std::ostringstream text;
  text << "line " << number << "\n  expected: " << expectedLine << "\n  actual:   " << actualLine;
  return text.str();
}

}  // namespace

std::string goldenText(LumoBaseElement const& element) {
  std::ostringstream text;
  ChartPrinter printer;
  printer.setPrintWhiteSpace(true);
  printer.Print(element.getImplementation(), text, true);
  text << '\n';
  return text.str();
}

void expectGolden(std::string const& actual, std::string const& name) {
  std::string const path = std::string(KESTREL_SOURCE_DIR "/tests/golden/") + name;
  if (isRewriting()) {
    write(path, actual);
    return;
  }
  auto const expected = contentOf(path);
  ASSERT_TRUE(expected.has_value()) << "there is no tests/golden/" << name << "; ./dev golden writes it";
  EXPECT_TRUE(*expected == actual) << "not as in tests/golden/" << name << ", "
                                   << firstDifference(*expected, actual);
}

}  // namespace kestrel::test
