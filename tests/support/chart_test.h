#pragma once

#include "kestrelhost/host.h"
#include "kestrelhost/recorder.h"
#include "model/document.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOMElement.hpp>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace kestrel::test {

/// What a test makes a call throw that is no unwinding signal.
struct OrdinaryFailure {};

/// Runs every test under a host whose calls are noted in one journal.
class ChartTest : public ::testing::Test {
 protected:
  host::Recorder recorder;

 private:
  host::ScopedHost mScope{recorder.host()};
};

/// Makes the n-th change of a document from now on (1 is the next one, 0 every one) run an action, which may
/// throw. The document must outlive it.
class ChangeTrap : public LumoChangeObserver {
 public:
  ChangeTrap(LumoDocument& document, unsigned int n, std::function<void()> action);
  ChangeTrap(ChangeTrap const&) = delete;
  ChangeTrap& operator=(ChangeTrap const&) = delete;
  ~ChangeTrap() override;

  void beforeChange(Kind kind, LumoBaseElement const& element) override;

  unsigned int changes() const { return mChanges; }

 private:
  LumoDocument& mDocument;
  unsigned int mTrapped;
  std::function<void()> mAction;
  unsigned int mChanges = 0;
};

/// A trap whose change throws an ordinary exception.
std::function<void()> throwOrdinaryFailure();
/// A trap whose change throws the host's unwinding signal.
std::function<void()> throwGoToCaller();

/// The elements of that tag below `element`, in document order.
std::vector<xercesc::DOMElement*> elementsOf(LumoBaseElement const& element, char16_t const* tag);

/// The only element of that tag below `element`; a failure of the test and null where there is none or more
/// than one.
xercesc::DOMElement* onlyElementOf(LumoBaseElement const& element, char16_t const* tag);

/// An attribute's value in UTF-8; "(absent)" where there is none.
std::string attribute(xercesc::DOMElement const* element, char16_t const* name);
std::string attribute(LumoBaseElement const* element, char16_t const* name);

/// The names of the element's attributes, sorted.
std::vector<std::string> attributeNames(LumoBaseElement const& element);

/// The tags of the child elements, in order.
std::vector<std::string> childTags(LumoBaseElement const& element);

/// The attribute `id` of each element of that tag in the document, in document order.
std::vector<std::string> idsOf(LumoBaseElement const& element, char16_t const* tag);

std::string utf8(char16_t const* text);

/// Exactly one report of a guard: the user message that all guards share, then one log entry with this
/// message, and nothing else for the user or in the log.
void expectGuardReport(host::Recorder const& recorder, std::string const& context);

/// Nothing for the user and nothing in the log.
void expectNoReport(host::Recorder const& recorder);

}  // namespace kestrel::test
