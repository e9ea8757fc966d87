#include "host_calls.h"

#include "chart_test.h"
#include "wire_decoder.h"

#include "host/messages.h"

#include <cstddef>
#include <map>
#include <span>
#include <stdexcept>
#include <string>

namespace kestrel::test {

namespace {

void forget(host::Recorder& recorder) {
  recorder.clear();
  recorder.services().channel->clear();
}

std::vector<std::string> namesOf(std::span<HostCall const> calls) {
  std::vector<std::string> names;
  for (HostCall const& call : calls) names.emplace_back(nameOf(call.operation));
  return names;
}

std::vector<std::string> namesOf(std::vector<host::Entry> const& entries) {
  std::vector<std::string> names;
  for (host::Entry const& entry : entries) names.emplace_back(nameOf(entry.operation));
  return names;
}

std::vector<std::uint32_t> typesOf(std::span<HostCall const> calls) {
  std::vector<std::uint32_t> types;
  for (HostCall const& call : calls) {
    if (call.type) types.push_back(*call.type);
  }
  return types;
}

std::vector<std::uint32_t> typesOf(std::vector<host::Message> const& messages) {
  std::vector<std::uint32_t> types;
  for (host::Message const& message : messages) types.push_back(decodeMessage(message).type);
  return types;
}

/// The host was asked for these, and the client has got what the first `answered` of them put.
void expectCalls(host::Recorder& recorder, std::span<HostCall const> calls, std::size_t answered) {
  EXPECT_EQ(namesOf(recorder.entries()), namesOf(calls));
  EXPECT_EQ(typesOf(recorder.services().channel->messages()), typesOf(calls.first(answered)));
}

template <typename Failure>
void expectEachToPass(host::Recorder& recorder, std::span<HostCall const> calls,
                      std::function<void()> const& operation, Failure const& failure) {
  std::map<host::Operation, unsigned int> numbers;
  for (std::size_t at = 0; at < calls.size(); ++at) {
    SCOPED_TRACE("call " + std::to_string(at + 1) + " throws: " + std::string(nameOf(calls[at].operation)));
    forget(recorder);
    recorder.throwAt(calls[at].operation, ++numbers[calls[at].operation], failure);
    EXPECT_THROW(operation(), Failure);
    recorder.behave();
    expectNoReport(recorder);
    expectCalls(recorder, calls.first(at + 1), at);
  }
}

}  // namespace

void expectToLetThrough(host::Recorder& recorder, std::vector<HostCall> const& calls,
                        std::function<void()> const& operation) {
  forget(recorder);
  operation();
  expectCalls(recorder, calls, calls.size());
  expectEachToPass(recorder, calls, operation, std::runtime_error("a failure of the host"));
  expectEachToPass(recorder, calls, operation, OrdinaryFailure());
  expectEachToPass(recorder, calls, operation, VexaGoToCaller());
}

}  // namespace kestrel::test
