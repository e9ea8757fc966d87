#include "stream_sample.h"

#include <cstdio>
#include <fstream>
#include <iostream>

namespace kestrel::test {

namespace {

std::string quoted(std::string const& text) {
  std::string result = "\"";
  for (char const character : text) {
    if (character == '"' || character == '\\') result += '\\';
    if (character == '\t') {
      result += "\\t";
    } else {
      result += character;
    }
  }
  return result + '"';
}

/// A number as text with every digit, or null.
std::string shown(double cell) {
  if (cell == missingCell) return "null";
  char digits[40];
  std::snprintf(digits, sizeof digits, "\"%.17g\"", cell);
  return digits;
}

template <typename List, typename Show>
std::string listed(List const& list, Show show) {
  std::string result = "[";
  for (auto const& item : list) result += (result.size() > 1 ? "," : "") + show(item);
  return result + "]";
}

std::string expectation(Sample const& sample) {
  auto const column = [](Column const& of) {
    return "{\"name\":" + quoted(of.name) + ",\"cells\":" + listed(of.cells, shown) + "}";
  };
  return listed(sample.sources, [&](Source const& source) {
    return "{\"source\":" + quoted(source.name) + ",\"columns\":" + listed(source.columns, column) + "}";
  });
}

bool write(std::filesystem::path const& path, std::string const& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  return static_cast<bool>(file.flush());
}

}  // namespace

bool writeSample(std::filesystem::path const& folder, Sample const& sample, std::string const& stream) {
  bool const written = write(folder / (sample.name + ".arrow"), stream) &&
                       write(folder / (sample.name + ".json"), expectation(sample));
  if (!written) std::cerr << "cannot write to " << folder << "\n";
  return written;
}

}  // namespace kestrel::test
