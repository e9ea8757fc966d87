#include "xml_lines.h"

#include <algorithm>
#include <cstddef>

namespace kestrel::tool {

namespace {

struct Delimiters {
  std::string_view begin;
  std::string_view end;
};

/// Pieces of markup that end with a mark of their own, whatever is in them.
constexpr Delimiters delimited[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};

/// The length of the markup that starts the text; all of it where the end is missing.
std::size_t markupLength(std::string_view xml) {
  for (Delimiters const& each : delimited) {
    if (!xml.starts_with(each.begin)) continue;
    std::size_t const end = xml.find(each.end, each.begin.size());
    return end == std::string_view::npos ? xml.size() : end + each.end.size();
  }
  char quote = 0;
  for (std::size_t at = 0; at < xml.size(); ++at) {
    char const each = xml[at];
    if (quote == 0 && each == '>') return at + 1;
    if (quote == 0 && (each == '"' || each == '\'')) {
      quote = each;
    } else if (each == quote) {
      quote = 0;
    }
  }
  return xml.size();
}

std::string oneLine(std::string_view text) {
  std::string line;
  for (char const each : text) {
    if (each == '\n') {
      line += "\\n";
    } else {
      line += each;
    }
  }
  return line;
}

class Lines {
 public:
  void addText(std::string_view text) {
    if (text.find_first_not_of(" \t\r\n") == std::string_view::npos) return;
    if (!mElementIsOpen) {
      add(text);
    } else {
      mLines.back() += oneLine(text);
    }
  }

  void addMarkup(std::string_view markup) {
    if (markup.starts_with("</")) return close(markup);
    add(markup);
    mElementIsOpen = !markup.ends_with("/>") && !markup.starts_with("<?") && !markup.starts_with("<!");
    if (mElementIsOpen) ++mDepth;
  }

  std::vector<std::string> take() { return std::move(mLines); }

 private:
  void close(std::string_view markup) {
    if (mDepth > 0) --mDepth;
    if (mElementIsOpen) {
      mLines.back() += oneLine(markup);
    } else {
      add(markup);
    }
    mElementIsOpen = false;
  }

  void add(std::string_view text) {
    // A text of nothing but tags must not become a text of nothing but blanks.
    constexpr std::size_t deepest = 40;
    mLines.push_back(std::string(2 * std::min(mDepth, deepest), ' ') + oneLine(text));
    mElementIsOpen = false;
  }

  std::vector<std::string> mLines;
  std::size_t mDepth = 0;
  /// The last line begins an element, and nothing but text has followed.
  bool mElementIsOpen = false;
};

}  // namespace

std::vector<std::string> xmlLines(std::string_view xml) {
  Lines lines;
  while (!xml.empty()) {
    std::size_t const length = xml.front() == '<' ? markupLength(xml) : std::min(xml.find('<'), xml.size());
    std::string_view const piece = xml.substr(0, length);
    if (xml.front() == '<') {
      lines.addMarkup(piece);
    } else {
      lines.addText(piece);
    }
    xml.remove_prefix(length);
  }
  return lines.take();
}

}  // namespace kestrel::tool
