#include "wire_message.h"

#include "content_types.h"

#include <string>

namespace kestrel::tool {

MessageLayout const chartContent{307, true, 0, 4, 8, 33984};
MessageLayout const interactiveContent{318, false, 4, 8, 12, 33980};

namespace {

constexpr unsigned int chartOptionsSubtype = 4;

MessageLayout const* findLayout(std::int64_t identifier) {
  for (MessageLayout const* const layout : {&chartContent, &interactiveContent}) {
    if (layout->identifier == identifier) return layout;
  }
  return nullptr;
}

/// Collects the faults of one message.
class Examiner {
 public:
  Examiner(CapturedMessage const& captured, std::vector<Fault>& faults)
      : mCaptured(&captured), mFaults(&faults) {}

  void fault(std::size_t offset, std::string text) {
    mFaults->push_back({mCaptured->offset + offset, mCaptured->number, std::move(text)});
  }

  void require(bool condition, std::size_t offset, std::string const& text) {
    if (!condition) fault(offset, text);
  }

 private:
  CapturedMessage const* mCaptured;
  std::vector<Fault>* mFaults;
};

/// The bytes before and between the fields: zeros behind the subtype in one layout, a leading 1 in the other.
void examineHead(std::string_view bytes, MessageLayout const& layout, Examiner& examiner) {
  if (layout.hasSubtype) {
    examiner.require(bytes[2] == 0 && bytes[3] == 0, 2, "the reserved bytes are not 0");
  } else {
    examiner.require(word(bytes) == 1, 0, "the leading word is " + std::to_string(word(bytes)) + ", not 1");
  }
}

/// Only images have subtypes of the sender's own choice.
bool isSubtypeOf(std::uint32_t type, unsigned int subtype) {
  if (type == Image) return true;
  return subtype == (type == ChartOptions ? chartOptionsSubtype : 0);
}

void examineType(WireMessage const& message, Examiner& examiner) {
  bool const known = findContentType(message.type) != nullptr;
  examiner.require(known, message.layout->typeOffset,
                   "there is no content type " + std::to_string(message.type));
  if (known && message.subtype) {
    examiner.require(isSubtypeOf(message.type, *message.subtype), 1,
                     "the content type has no subtype " + std::to_string(*message.subtype));
  }
}

/// Whether the chunk has the size that the message says.
bool examineSize(std::string_view bytes, MessageLayout const& layout, std::uint32_t chunk,
                 Examiner& examiner) {
  std::size_t const around = layout.payloadOffset + trailerSize;
  if (bytes.size() != around + chunk) {
    examiner.fault(layout.chunkSizeOffset, "the chunk size is " + std::to_string(chunk) +
                                               ", but the message has " + std::to_string(bytes.size()) +
                                               " bytes, not " + std::to_string(around + chunk));
    return false;
  }
  examiner.require(chunk > 0, layout.chunkSizeOffset, "the chunk is empty");
  examiner.require(chunk <= layout.longestChunk, layout.chunkSizeOffset,
                   "the chunk has " + std::to_string(chunk) + " bytes; it may have up to " +
                       std::to_string(layout.longestChunk));
  return true;
}

}  // namespace

std::optional<WireMessage> readMessage(CapturedMessage const& captured, std::vector<Fault>& faults) {
  Examiner examiner(captured, faults);
  std::string_view const bytes = captured.bytes;
  MessageLayout const* const layout = findLayout(captured.identifier);
  if (layout == nullptr) {
    examiner.fault(0,
                   "the identifier is " + std::to_string(captured.identifier) + "; 307 or 318 was expected");
    return std::nullopt;
  }
  std::size_t const around = layout->payloadOffset + trailerSize;
  if (bytes.size() < around) {
    examiner.fault(0, "the message has " + std::to_string(bytes.size()) + " bytes; it needs " +
                          std::to_string(around) + " around its chunk");
    return std::nullopt;
  }
  std::uint32_t const chunk = word(bytes.substr(layout->chunkSizeOffset));
  if (!examineSize(bytes, *layout, chunk, examiner)) return std::nullopt;
  WireMessage message{captured,
                      layout,
                      0,
                      std::nullopt,
                      chunk,
                      bytes.substr(layout->payloadOffset, chunk),
                      bytes.substr(layout->payloadOffset + chunk)};
  if (layout->hasSubtype) {
    message.type = static_cast<unsigned char>(bytes[0]);
    message.subtype = static_cast<unsigned char>(bytes[1]);
  } else {
    message.type = word(bytes.substr(layout->typeOffset));
  }
  examineHead(bytes, *layout, examiner);
  examineType(message, examiner);
  return message;
}

}  // namespace kestrel::tool
