#include "content_rules.h"

#include "arrow_stream.h"
#include "content_types.h"
#include "utf8.h"

#include "kestrelhost/compression.h"

#include <algorithm>
#include <array>
#include <cstdint>

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

void checkEndRecord(Send const&, Content const& content, std::vector<Fault>& faults) {
  if (content.size() == endRecordSize) return;
  report(content, "the end record has " + bytesText(content.size()) + ", not " + bytesText(endRecordSize),
         faults);
}

void checkNothing(Send const&, Content const&, std::vector<Fault>&) {}

using Check = void (*)(Send const&, Content const&, std::vector<Fault>&);

/// By form.
constexpr std::array<Check, 6> checks = {checkText,         checkNothing, checkCompressed,
                                         checkAnnouncement, checkStream,  checkEndRecord};

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
