#include "data_stream_reader.h"

#include "arrow_generated.h"

#include <cstring>

namespace kestrel::host {

namespace {

/// Ends the reading of bytes that are no data stream.
struct NoStream {};

void require(bool condition) {
  if (!condition) throw NoStream();
}

constexpr std::uint32_t continuation = 0xFFFFFFFF;

std::string_view part(std::string_view bytes, std::size_t at, std::size_t size) {
  require(at <= bytes.size() && size <= bytes.size() - at);
  return bytes.substr(at, size);
}

std::size_t sizeOf(std::int64_t number) {
  require(number >= 0);
  return static_cast<std::size_t>(number);
}

std::string textOf(flatbuffers::String const* text) { return text == nullptr ? std::string() : text->str(); }

/// Takes messages off the front of a stream.
class Reader {
 public:
  explicit Reader(std::string_view bytes) : mBytes(bytes) {}

  bool atEnd() const { return mBytes.empty(); }

  StreamedSource readSource() {
    StreamedSource source;
    require(readMessage());
    readSchema(source);
    while (readMessage()) source.batches.push_back(readBatch(source.columns.size()));
    return source;
  }

 private:
  std::string_view take(std::size_t size) {
    std::string_view const taken = part(mBytes, 0, size);
    mBytes.remove_prefix(size);
    return taken;
  }

  std::uint32_t takeNumber() {
    std::uint32_t number = 0;
    std::memcpy(&number, take(sizeof number).data(), sizeof number);
    return number;
  }

  /// False at the mark that ends a source.
  bool readMessage() {
    require(takeNumber() == continuation);
    std::size_t const size = takeNumber();
    if (size == 0) return false;
    // What reads the metadata wants it aligned.
    std::string_view const metadata = take(size);
    mMetadata.resize((size + sizeof(std::uint64_t) - 1) / sizeof(std::uint64_t));
    std::memcpy(mMetadata.data(), metadata.data(), size);
    auto const* const start = reinterpret_cast<std::uint8_t const*>(mMetadata.data());
    flatbuffers::Verifier verifier(start, size);
    require(arrow::VerifyMessageBuffer(verifier));
    mMessage = arrow::GetMessage(start);
    mBody = take(sizeOf(mMessage->body_length()));
    return true;
  }

  void readSchema(StreamedSource& source) const {
    auto const* const schema = mMessage->header_as_Schema();
    require(schema != nullptr && schema->endianness() == arrow::Endianness::Little);
    if (auto const* const fields = schema->fields()) {
      for (auto const* const field : *fields) {
        auto const* const type = field->type_as_FloatingPoint();
        require(type != nullptr && type->precision() == arrow::Precision::Double);
        source.columns.push_back(textOf(field->name()));
      }
    }
    if (auto const* const metadata = schema->custom_metadata()) {
      for (auto const* const pair : *metadata) {
        if (textOf(pair->key()) == "source") source.name = textOf(pair->value());
      }
    }
  }

  StreamedBatch readBatch(std::size_t columns) const {
    auto const* const batch = mMessage->header_as_RecordBatch();
    require(batch != nullptr);
    StreamedBatch result;
    result.rows = sizeOf(batch->length());
    // A row takes eight bytes and more, where there is a column.
    require(columns == 0 || result.rows <= mBody.size() / sizeof(double));
    std::size_t const buffers = batch->buffers() == nullptr ? 0 : batch->buffers()->size();
    require(buffers == 2 * columns);
    for (std::size_t at = 0; at < columns; ++at) {
      auto const index = static_cast<flatbuffers::uoffset_t>(2 * at);
      StreamedColumn const column{body(*batch->buffers()->Get(index)),
                                  body(*batch->buffers()->Get(index + 1))};
      require(column.validity.empty() || column.validity.size() >= (result.rows + 7) / 8);
      require(column.values.size() >= result.rows * sizeof(double));
      result.columns.push_back(column);
    }
    return result;
  }

  std::string_view body(arrow::Buffer const& buffer) const {
    return part(mBody, sizeOf(buffer.offset()), sizeOf(buffer.length()));
  }

  std::string_view mBytes;
  std::vector<std::uint64_t> mMetadata;
  arrow::Message const* mMessage = nullptr;
  std::string_view mBody;
};

}  // namespace

std::optional<double> StreamedColumn::cell(std::size_t row) const {
  bool const isThere =
      validity.empty() || (static_cast<unsigned char>(validity[row / 8]) >> (row % 8) & 1U) != 0;
  if (!isThere) return std::nullopt;
  double value = 0;
  std::memcpy(&value, values.data() + row * sizeof value, sizeof value);
  return value;
}

std::optional<std::vector<StreamedSource>> readDataStream(std::string_view bytes) {
  std::vector<StreamedSource> sources;
  try {
    for (Reader reader(bytes); !reader.atEnd();) sources.push_back(reader.readSource());
  } catch (NoStream const&) {
    return std::nullopt;
  }
  return sources;
}

}  // namespace kestrel::host
