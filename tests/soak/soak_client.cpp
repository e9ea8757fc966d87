#include "soak_client.h"

#include "inspect/arrow_stream.h"
#include "soak_chart.h"
#include "wire_decoder.h"

#include <unistd.h>

#include <cerrno>
#include <stdexcept>

namespace kestrel::test {

namespace {

constexpr std::uint32_t endOfChart = 3;
constexpr std::size_t longestMessage = 33'996;

void require(bool condition, std::string const& text) {
  if (!condition) throw std::runtime_error(text);
}

void checkText(std::vector<DecodedContent> const& contents, std::size_t chart) {
  std::string const& compressed = onlyContent(contents, 1).bytes;
  std::string const text = inflated(compressed);
  require(announced(contents, 2) == text.size(), "the size of the chart text was announced wrongly");
  require(announced(contents, 4) == compressed.size(), "the compressed size was announced wrongly");
  require(text.find("\"" + soakDescription(chart) + "\"") != std::string::npos,
          "the text is another chart's");
  require(text.find("</visualization>") != std::string::npos, "the chart text has no end");
}

void checkData(std::vector<DecodedContent> const& contents, std::size_t chart) {
  std::string const& data = onlyContent(contents, 8).bytes;
  require(announced(contents, 5) == data.size(), "the size of the data was announced wrongly");
  tool::ArrowStreams const streams = tool::readArrowStreams(data, soakRows);
  require(!streams.fault, "the data: " + (streams.fault ? streams.fault->text : ""));
  require(streams.tables.size() == 1 && streams.tables[0].rows == soakRows &&
              streams.tables[0].columns.size() == soakColumns,
          "the data has another size");
  for (std::size_t column = 0; column < soakColumns; ++column) {
    for (std::size_t row = 0; row < soakRows; ++row) {
      require(streams.tables[0].columns[column].cells[row] == soakCell(chart, row, column),
              "the cell of row " + std::to_string(row) + ", column " + std::to_string(column) + " differs");
    }
  }
}

}  // namespace

void SoakClient::run() {
  try {
    readAll();
  } catch (std::exception const& wrong) {
    mFault = "chart " + std::to_string(mCharts) + ": " + wrong.what();
  }
  close();
}

void SoakClient::readAll() {
  std::string bytes;
  require(take(bytes, 8) && bytes == "KCAP0001", "no capture");
  while (take(bytes, 16)) {
    auto const identifier = static_cast<std::int64_t>(littleEndianAt(bytes, 0, 8));
    std::uint64_t const length = littleEndianAt(bytes, 8, 8);
    require(length <= longestMessage, "a message of " + std::to_string(length) + " bytes");
    require(take(bytes, static_cast<std::size_t>(length)), "the capture is cut");
    mChart.push_back({identifier, bytes});
    ++mMessages;
    mBytes += length;
    if (decodeMessage(mChart.back()).type != endOfChart) continue;
    checkChart();
    ++mCharts;
    mChart.clear();
  }
  require(mChart.empty(), "a chart without an end record");
}

/// False where the sender has closed before the first byte.
bool SoakClient::take(std::string& bytes, std::size_t size) {
  bytes.resize(size);
  for (std::size_t at = 0; at < size;) {
    ssize_t const got = ::read(mDescriptor, bytes.data() + at, size - at);
    if (got < 0 && errno == EINTR) continue;
    if (got == 0 && at == 0) return false;
    require(got > 0, "the capture is cut");
    at += static_cast<std::size_t>(got);
  }
  return true;
}

void SoakClient::checkChart() const {
  auto const contents = decodeContents(mChart);
  require(typesOf(contents) == std::vector<std::uint32_t>{0, 9, 2, 4, 1, 5, 8, 3},
          "the contents have another order");
  for (std::uint32_t const type : {0U, 9U}) {
    require(onlyContent(contents, type).bytes == soakDescription(mCharts), "the description is another's");
  }
  checkText(contents, mCharts);
  checkData(contents, mCharts);
  require(endRecord(contents) == EndRecord{0, 1}, "the end record differs");
}

void SoakClient::close() {
  if (mDescriptor >= 0) ::close(mDescriptor);
  mDescriptor = -1;
}

}  // namespace kestrel::test
