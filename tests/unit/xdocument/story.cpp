#include "story.h"

#include <cstdint>
#include <cstring>

namespace kestrel::test {

using host::Entry;
using host::Operation;

namespace {

/// The settings of one kind of template, by the kind's letter.
std::string ofKind(std::string const& words, Entry const& entry) {
  static constexpr char letters[] = {'s', 'o', 'c', 'd'};
  return words + " " + letters[entry.number("kind")];
}

std::string withBaseline(std::string const& words, Entry const& entry) {
  return words + (entry.flag("baseline") ? " with" : " without") + " baseline";
}

SentMessage decoded(std::string const& bytes) {
  std::uint32_t size = 0;
  std::memcpy(&size, bytes.data() + 4, sizeof size);
  return {static_cast<unsigned char>(bytes.at(0)), static_cast<unsigned char>(bytes.at(1)),
          bytes.substr(8, size)};
}

std::string told(Entry const& entry) {
  switch (entry.operation) {
    case Operation::IpcPutC:
      return "put " + std::to_string(decoded(entry.text("bytes")).type);
    case Operation::PrintDebugInfo:
      return "trace: " + entry.text("line");
    case Operation::BpError:
      return "user: " + entry.text("text");
    case Operation::Error:
      return "log: " + entry.text("message");
    case Operation::PrintString:
      return "dump " + entry.text("prefix") + std::to_string(entry.number("number")) + entry.text("suffix") +
             " type " + std::to_string(entry.number("type"));
    case Operation::WillPrintString:
      return "dump wanted? type " + std::to_string(entry.number("type"));
    case Operation::Fetch:
      return "fetch " + entry.text("name");
    case Operation::TemplateNames:
      return ofKind("names of", entry);
    case Operation::TemplateExists:
      return ofKind("is there", entry);
    case Operation::TemplateIsDirty:
      return ofKind("dirty?", entry);
    case Operation::TemplateSetIsDirty:
      return ofKind(entry.flag("dirty") ? "now dirty:" : "now clean:", entry);
    case Operation::StartTemplate:
      return withBaseline("start", entry);
    case Operation::SetTemplate:
      return "set " + entry.text("xml");
    case Operation::ApplyTemplate:
      return "apply";
    case Operation::PackFrames:
      return withBaseline("pack", entry);
    default:
      return std::string(nameOf(entry.operation));
  }
}

}  // namespace

std::vector<std::string> storyOf(host::Recorder const& recorder) {
  std::vector<std::string> story;
  for (Entry const& entry : recorder.entries()) story.push_back(told(entry));
  return story;
}

std::vector<SentMessage> messagesOf(host::Recorder const& recorder) {
  std::vector<SentMessage> messages;
  for (host::Message const& message : recorder.sent()) messages.push_back(decoded(message.bytes));
  return messages;
}

std::vector<int> typesOf(host::Recorder const& recorder) {
  std::vector<int> types;
  for (SentMessage const& message : messagesOf(recorder)) types.push_back(message.type);
  return types;
}

std::string payloadOf(host::Recorder const& recorder, int type) {
  std::string payload;
  for (SentMessage const& message : messagesOf(recorder)) {
    if (message.type == type) payload += message.payload;
  }
  return payload;
}

}  // namespace kestrel::test
