#include "chart_command.h"

#include "bar_places.h"
#include "chart_builder.h"
#include "chart_data.h"
#include "files.h"
#include "problem.h"
#include "request_checks.h"
#include "xdocument.h"

#include "kestrelhost/host.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <system_error>
#include <utility>

namespace kestrel::tool {

namespace {

namespace fs = std::filesystem;

/// Counts what goes into a capture.
class CountedCapture : public host::Channel {
 public:
  explicit CountedCapture(std::string const& path) : mCapture(path) {}

  int put(std::int64_t identifier, void const* bytes, std::size_t length) override {
    int const result = mCapture.put(identifier, bytes, length);
    if (result == 0) {
      ++mMessages;
      mBytes += length;
    }
    return result;
  }

  bool flush() { return mCapture.good() && mCapture.flush(); }
  bool good() const { return mCapture.good(); }
  std::size_t messages() const { return mMessages; }
  std::size_t bytes() const { return mBytes; }

 private:
  host::CaptureChannel mCapture;
  std::size_t mMessages = 0;
  std::size_t mBytes = 0;
};

/// A file that is removed unless it gets its final name: nobody takes half a capture for a whole one.
class UnfinishedFile {
 public:
  explicit UnfinishedFile(fs::path finalName) : mFinalName(std::move(finalName)), mPath(mFinalName) {
    mPath += ".unfinished";
    remove();
  }
  ~UnfinishedFile() { remove(); }
  UnfinishedFile(UnfinishedFile const&) = delete;
  UnfinishedFile& operator=(UnfinishedFile const&) = delete;

  std::string path() const { return mPath.string(); }
  std::string finalName() const { return mFinalName.string(); }
  void finish() const { moveFile(mPath, mFinalName); }

 private:
  void remove() const {
    std::error_code ignored;
    fs::remove(mPath, ignored);
  }

  fs::path mFinalName;
  fs::path mPath;
};

/// The library leaves out an attachment that it cannot read and goes on: here that is a fault of the command
/// line.
void requireAttachments(ChartRequest const& request) {
  for (std::string const& name : request.attachments) {
    if (readFile(name).empty()) throw badInput(name, "is empty; an attachment has content");
  }
}

std::string typeOf(Column const& column) {
  constexpr std::array names = {"numbers", "dates", "dates with times"};
  std::string text;
  if (column.type == ColumnType::Text) {
    text = grouped(column.categories.size()) + (column.categories.size() == 1 ? " category" : " categories");
  } else {
    text = names[static_cast<std::size_t>(column.type)];
  }
  if (column.type != ColumnType::Text && column.categorical) text += " as categories";
  if (column.missing > 0) text += ", " + grouped(column.missing) + " missing";
  return text;
}

std::string summary(UnfinishedFile const& file, CountedCapture const& capture, ChartData const& data) {
  auto const& columns = data.columns;
  std::string text = printable(file.finalName()) + ": " + counted(data.rows(), "row") + ", " +
                     counted(columns.size(), "variable") + ", " + counted(capture.messages(), "message") +
                     ", " + counted(capture.bytes(), "byte") + "\n";
  for (Column const& column : columns) text += "  " + printable(column.name) + ": " + typeOf(column) + "\n";
  return text;
}

std::shared_ptr<CountedCapture> openCapture(UnfinishedFile const& file) {
  auto capture = std::make_shared<CountedCapture>(file.path());
  if (capture->good()) return capture;
  std::string const reason = std::generic_category().message(errno);
  throw Problem(file.finalName() + ": cannot be made: " + reason + "; choose another folder",
                Exit::NotWritten);
}

bool send(ChartRequest const& request, ChartData const& data,
          std::shared_ptr<CountedCapture> const& capture) {
  host::Host host;
  host.channel = capture;
  host::ScopedHost const scope(host);
  XDocument document;
  describeChart(document, request, data);
  return document.SendChart(false, false, false);
}

/// What may surprise in a chart that is made all the same.
void tellNotes(ChartRequest const& request, ChartData const& data) {
  if (barsCover(request, data)) {
    tell("note: several rows of " + request.data + " share a bar's place and will cover each other; " +
         "give a table with one row for each bar");
  }
  if (data.droppedRows > 0) {
    tell("note: " + counted(data.droppedRows, "row") + " of " + request.data + " without a value of column " +
         inQuotes(request.panelColumns.front()) + " will be left out; they have no side in the pyramid");
  }
}

}  // namespace

void runChart(ChartRequest const& request) {
  requireSense(request);
  ChartData const data = readChartData(request);
  requireAttachments(request);
  tellNotes(request, data);
  makeFolder(request.output);
  UnfinishedFile const file(fs::path(request.output) / "capture.kcap");
  auto capture = openCapture(file);
  bool const sent = send(request, data, capture);
  if (!capture->flush()) {
    throw Problem(file.finalName() + ": cannot be written; is there room in the folder?", Exit::NotWritten);
  }
  if (!sent) throw Problem("the chart could not be sent; what failed stands above", Exit::NotWritten);
  std::string const text = summary(file, *capture, data);
  capture.reset();
  file.finish();
  print(text);
}

}  // namespace kestrel::tool
