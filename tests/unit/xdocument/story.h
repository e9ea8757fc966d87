#pragma once

#include "kestrelhost/recorder.h"

#include <string>
#include <vector>

namespace kestrel::test {

/// What the host was asked for, in order, in few words: "put 1" (a message of that content type), "trace:
/// ...", "user: ...", "log: ...", "dump prefix number suffix type ...", "fetch name", "names of s" (the
/// settings of a kind of template, by its letter), "start with baseline", "set text", "apply", and any other
/// operation by its name.
std::vector<std::string> storyOf(host::Recorder const& recorder);

/// One message of the content channel.
struct SentMessage {
  int type;
  int subType;
  std::string payload;

  bool operator==(SentMessage const&) const = default;
};

std::vector<SentMessage> messagesOf(host::Recorder const& recorder);

/// The content types of the messages, in order.
std::vector<int> typesOf(host::Recorder const& recorder);

/// The payloads of all messages of that type, one behind the other.
std::string payloadOf(host::Recorder const& recorder, int type);

}  // namespace kestrel::test
