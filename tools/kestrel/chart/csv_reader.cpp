#include "csv_table.h"
#include "problem.h"
#include "text_input.h"
#include "utf8.h"

#include <csv.h>

#include <algorithm>
#include <exception>
#include <map>
#include <memory>
#include <optional>

namespace kestrel::tool {

namespace {

void requireDifferentNames(std::string const& file, std::size_t line, std::vector<std::string> const& names) {
  std::map<std::string_view, std::size_t> seen;
  for (std::size_t at = 0; at < names.size(); ++at) {
    if (names[at].empty()) continue;
    auto const [before, isNew] = seen.try_emplace(names[at], at);
    if (isNew) continue;
    throw badInput(file, line,
                   "columns " + std::to_string(before->second + 1) + " and " + std::to_string(at + 1) +
                       " have the same name " + inQuotes(names[at]) + "; rename one of them");
  }
}

/// Takes the cells from the parser and counts the lines on the way.
class Rows {
 public:
  explicit Rows(std::string const& file) : mFile(&file) {}

  void takeCell(std::string_view cell) {
    mCells.emplace_back(cell);
    mLine += lineEnds(cell);
  }

  /// `end` is the character that ended the row, or -1 at the end of the file.
  void endRow(int end) {
    bool const secondOfPair = end == '\n' && mLastEnd == '\r' && mCells.empty();
    mLastEnd = end;
    if (secondOfPair) return;
    if (!mCells.empty()) takeRow();
    mCells.clear();
    mRowLine = ++mLine;
  }

  /// Where the row began that is being read.
  std::size_t rowLine() const { return mRowLine; }

  CsvTable finish() {
    if (!mTable) throw badInput(*mFile, "is empty; a first line with the names of the columns is needed");
    if (mTable->rows() == 0) throw badInput(*mFile, "has names of columns and no rows below them");
    return std::move(*mTable);
  }

 private:
  void takeRow() {
    if (!mTable) {
      requireDifferentNames(*mFile, mRowLine, mCells);
      mTable.emplace(mCells);
      return;
    }
    requireFull();
    for (std::string const& cell : mCells) mTable->append(cell);
  }

  void requireFull() const {
    if (mCells.size() == mTable->columns()) return;
    bool const many = mCells.size() > mTable->columns();
    throw badInput(*mFile, mRowLine,
                   "the row has " + counted(mCells.size(), "cell") + ", but there are " +
                       counted(mTable->columns(), "column") + "; " +
                       (many ? "put a cell that holds a comma in double quotes, or take the surplus out"
                             : "add the commas of the cells that are missing"));
  }

  std::string const* mFile;
  std::vector<std::string> mCells;
  std::optional<CsvTable> mTable;
  std::size_t mLine = 1;
  std::size_t mRowLine = 1;
  int mLastEnd = 0;
};

/// libcsv is C: what a callback throws waits here until the parser has returned.
struct Callbacks {
  Rows rows;
  std::exception_ptr failure;

  template <typename Action>
  void run(Action action) noexcept {
    if (failure) return;
    try {
      action();
    } catch (...) {
      failure = std::current_exception();
    }
  }

  static void cell(void* text, std::size_t length, void* self) {
    auto& callbacks = *static_cast<Callbacks*>(self);
    callbacks.run([&] { callbacks.rows.takeCell({static_cast<char const*>(text), length}); });
  }

  static void row(int end, void* self) {
    auto& callbacks = *static_cast<Callbacks*>(self);
    callbacks.run([&] { callbacks.rows.endRow(end); });
  }
};

class Parser {
 public:
  Parser() { csv_init(&mParser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL | CSV_APPEND_NULL); }
  ~Parser() { csv_free(&mParser); }
  Parser(Parser const&) = delete;
  Parser& operator=(Parser const&) = delete;

  /// The number of bytes up to what is wrong; all of them where nothing is.
  std::size_t parse(std::string_view bytes, Callbacks& callbacks) {
    constexpr std::size_t step = 1 << 16;
    for (std::size_t at = 0; at < bytes.size() && !callbacks.failure; at += step) {
      std::string_view const part = bytes.substr(at, step);
      std::size_t const done =
          csv_parse(&mParser, part.data(), part.size(), Callbacks::cell, Callbacks::row, &callbacks);
      if (done != part.size()) return at + done;
    }
    return bytes.size();
  }

  bool finish(Callbacks& callbacks) {
    return csv_fini(&mParser, Callbacks::cell, Callbacks::row, &callbacks) == 0;
  }

 private:
  csv_parser mParser{};
};

void rethrow(std::exception_ptr const& failure) {
  if (failure) std::rethrow_exception(failure);
}

}  // namespace

CsvTable readCsv(std::string const& file, std::string_view bytes) {
  requireUtf8(file, bytes);
  std::string_view const text = bytes.substr(endOfByteOrderMark(bytes));
  Callbacks callbacks{Rows(file), nullptr};
  Parser parser;
  std::size_t const parsed = parser.parse(text, callbacks);
  rethrow(callbacks.failure);
  if (parsed != text.size()) {
    throw badInput(
        file, lineOf(text, parsed),
        "a double quote stands within a cell; put the whole cell in double quotes and double the one "
        "within");
  }
  if (!parser.finish(callbacks)) {
    throw badInput(file, callbacks.rows.rowLine(),
                   "a double quote opens in the row that begins here and never closes; close it");
  }
  rethrow(callbacks.failure);
  return callbacks.rows.finish();
}

}  // namespace kestrel::tool
