#include "host/messages.h"

#include "kestrelhost/host.h"

#include <utility>

VexaGoToCaller::VexaGoToCaller() = default;
VexaGoToCaller::VexaGoToCaller(VexaGoToCaller const&) = default;
VexaGoToCaller::~VexaGoToCaller() = default;

BpCellText::BpCellText(std::string text, bool fixed) : mText(std::move(text)), mFixed(fixed) {}
BpCellText::BpCellText(BpCellText const&) = default;
BpCellText& BpCellText::operator=(BpCellText const&) = default;
BpCellText::~BpCellText() = default;

std::string const& BpCellText::text() const { return mText; }
bool BpCellText::fixed() const { return mFixed; }
void BpCellText::assign(std::string text) { mText = std::move(text); }

BpString::BpString(std::string text, bool fixed) : BpCellText(std::move(text), fixed) {}
BpString::BpString(BpString const&) = default;
BpString& BpString::operator=(BpString const&) = default;
BpString::~BpString() = default;

BpComposite::BpComposite(std::string const& pattern, bool fixed)
    : BpCellText(pattern, fixed), mPattern(pattern) {}
BpComposite::BpComposite(BpComposite const&) = default;
BpComposite& BpComposite::operator=(BpComposite const&) = default;
BpComposite::~BpComposite() = default;

void BpComposite::Add(BpCellText const& cell) { mCells.emplace_back(cell.text(), cell.fixed()); }

void BpComposite::Finish() {
  std::string filled;
  for (std::size_t at = 0; at < mPattern.size(); ++at) {
    char const digit = at + 1 < mPattern.size() ? mPattern[at + 1] : '\0';
    bool const placeholder = mPattern[at] == '^' && digit >= '1' && digit <= '9';
    std::size_t const cell = placeholder ? static_cast<std::size_t>(digit - '1') : mCells.size();
    if (cell < mCells.size()) {
      filled += mCells[cell].text();
      ++at;
    } else {
      filled += mPattern[at];
    }
  }
  assign(std::move(filled));
}

std::string const& BpComposite::pattern() const { return mPattern; }
std::vector<BpString> const& BpComposite::cells() const { return mCells; }

void BpError(BpCellText const& text, BpErrorShow show, BpErrorLevel level) {
  kestrel::host::Host::current().messages->show(text, show, level);
}
