#include "content_rules.h"

#include "arrow_stream.h"
#include "content_types.h"
#include "utf8.h"

#include "kestrelhost/compression.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace kestrel::tool {

namespace {

constexpr std::size_t usualLimit = std::size_t{1} << 28;
constexpr std::size_t endRecordSize = 8;

std::string nameOf(Content const& content) {
  ContentType const* const type = findContentType(content.type());
  return type == nullptr ? "content of type " + std::to_string(content.type()) : type->name;
}

void report(Content const& content, std::string text, std::vector<Fault>& faults) {
  faults.push_back({content.first().captured.offset, content.first().captured.number, std::move(text)});
}

std::string bytesText(std::size_t count) { return std::to_string(count) + (count == 1 ? " byte" : " bytes"); }

/// An announcement gives its number by its length alone.
void checkAnnouncement(Send const&, Content const& content, std::vector<Fault>& faults) {
  for (WireMessage const* const message : content.messages) {
    bool const zero = message->payload.find_first_not_of('\0') == std::string_view::npos;
    if (zero) continue;
    report(content, nameOf(content) + " announces a size: its payload must be zeros", faults);
    return;
  }
}

void checkText(Send const&, Content const& content, std::vector<Fault>& faults) {
  std::size_t const bad = findBadUtf8(content.bytes());
  if (bad == std::string::npos) return;
  report(content, nameOf(content) + " is not UTF-8 at its byte " + std::to_string(bad), faults);
}

void checkCompressed(Send const& send, Content const& content, std::vector<Fault>& faults) {
  std::size_t const limit = decompressionLimit(send, content);
  auto const text = decompressed(content, limit);
  if (!text) {
    report(content,
           nameOf(content) + " of " + bytesText(content.size()) + " is no whole zlib stream of at most " +
               bytesText(limit),
           faults);
    return;
  }
  bool const isChartText = content.type() == ChartText;
  if (!isChartText) return;
  Content const* const announcement = send.find(ChartTextSize);
  std::size_t const announced = announcement == nullptr ? 0 : announcement->size();
  if (text->size() != announced) {
    report(content,
           "chart text has " + bytesText(text->size()) + ", but " + bytesText(announced) + " were announced",
           faults);
  }
  if (findBadUtf8(*text) != std::string::npos) report(content, "chart text is not UTF-8", faults);
}

void checkStream(Send const&, Content const& content, std::vector<Fault>& faults) {
  if (auto const wrong = readArrowStreams(content.bytes()).fault) {
    report(content,
           "data is no sequence of Arrow streams: at its byte " + std::to_string(wrong->offset) + ", " +
               wrong->text,
           faults);
  }
}

/// A file that the user attached is edited with it: the chart itself cannot be any more.
constexpr std::uint32_t editableWithFiles = 0;
constexpr std::uint32_t editorWithFiles = 2;

void checkEndRecord(Send const& send, Content const& content, std::vector<Fault>& faults) {
  if (content.size() != endRecordSize) {
    report(content, "the end record has " + bytesText(content.size()) + ", not " + bytesText(endRecordSize),
           faults);
    return;
  }
  std::string const record = content.bytes();
  std::uint32_t const editable = word(record);
  std::uint32_t const editor = word(std::string_view(record).substr(4));
  bool const hasFiles = send.find(CsvName) != nullptr;
  if (!hasFiles || (editable == editableWithFiles && editor == editorWithFiles)) return;
  report(content,
         "the end record says editable " + std::to_string(editable) + ", editor " + std::to_string(editor) +
             "; with a CSV file it must be " + std::to_string(editableWithFiles) + " and " +
             std::to_string(editorWithFiles),
         faults);
}

constexpr std::uint32_t mapRecordVersion = 1;

/// The lengths of the record, each of which stands before what it is the length of.
struct MapPart {
  char const* name;
  std::size_t width;
};

constexpr MapPart mapParts[] = {
    {"data map", 4}, {"data map's name", 2}, {"reference map", 4}, {"reference map's name", 2}};

std::optional<std::string> mapRecordFault(std::string_view record) {
  std::size_t at = 2;
  if (record.size() < at) return "is cut";
  if (shortWord(record) != mapRecordVersion)
    return "has version " + std::to_string(shortWord(record)) + ", not 1";
  for (MapPart const& part : mapParts) {
    if (record.size() - at < part.width) return std::string("is cut before the length of the ") + part.name;
    std::string_view const rest = record.substr(at);
    std::size_t const length = part.width == 2 ? shortWord(rest) : word(rest);
    at += part.width;
    if (length > record.size() - at) {
      return std::string("is cut in the ") + part.name + ", which should have " + bytesText(length);
    }
    at += length;
  }
  if (at < record.size()) return "has " + bytesText(record.size() - at) + " too many";
  return std::nullopt;
}

void checkMapRecord(Send const&, Content const& content, std::vector<Fault>& faults) {
  if (auto const wrong = mapRecordFault(content.bytes()))
    report(content, nameOf(content) + " " + *wrong, faults);
}

void checkNothing(Send const&, Content const&, std::vector<Fault>&) {}

using Check = void (*)(Send const&, Content const&, std::vector<Fault>&);

/// By form.
constexpr std::array<Check, 7> checks = {checkText,   checkNothing,   checkCompressed, checkAnnouncement,
                                         checkStream, checkEndRecord, checkMapRecord};

/// A size that was announced ahead of a content, and the content that it is the size of.
struct Announced {
  TypeNumber size;
  TypeNumber content;
};

constexpr Announced announcedSizes[] = {{CompressedSize, ChartText}, {DataSize, Data}};

void checkAnnounced(Send const& send, std::vector<Fault>& faults) {
  for (Announced const& row : announcedSizes) {
    Content const* const content = send.find(row.content);
    if (content == nullptr || content->isCut) continue;
    Content const* const announcement = send.find(row.size);
    std::size_t const announced = announcement == nullptr ? 0 : announcement->size();
    // Senders announce in 32 bits.
    if (static_cast<std::uint32_t>(content->size()) == announced) continue;
    report(*content,
           nameOf(*content) + " has " + bytesText(content->size()) + ", but " + bytesText(announced) +
               " were announced",
           faults);
  }
}

}  // namespace

std::optional<std::string> decompressed(Content const& content, std::size_t limit) {
  std::string text;
  if (!host::decompress(content.bytes(), text, limit)) return std::nullopt;
  return text;
}

std::size_t decompressionLimit(Send const& send, Content const& content) {
  Content const* const announcement = content.type() == ChartText ? send.find(ChartTextSize) : nullptr;
  return announcement == nullptr ? usualLimit : announcement->size();
}

void checkContents(Send const& send, std::vector<Fault>& faults) {
  for (Content const& content : send.contents) {
    ContentType const* const type = findContentType(content.type());
    if (type != nullptr && !content.isCut)
      checks[static_cast<std::size_t>(type->form)](send, content, faults);
  }
  checkAnnounced(send, faults);
}

}  // namespace kestrel::tool
