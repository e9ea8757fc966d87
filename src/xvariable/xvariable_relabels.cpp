// Texts that stand for the values of a variable.

#include "xvariable.h"

#include "xutility.h"

#include "support/chart_text.h"
#include "support/failure.h"
#include "support/guard.h"

#include "host/data_types.h"
#include "model/printing.h"
#include "model/variables.h"

#include <string>
#include <utility>

using kestrel::guarded;

namespace {

constexpr char const* addRelabelContext = "Error in XVariable::addRelabel()";

/// The text of a string variable's cell, which is padded with blanks to its width.
ChartString paddedText(OBS const& cell, unsigned short width) {
  std::string text(reinterpret_cast<char const*>(&cell), width);
  text.erase(text.find_last_not_of(' ') + 1);
  return XUtility::ChartStringFromLocalCodePage(text.c_str());
}

}  // namespace

void XVariable::appendRelabel(ChartString const& value, ChartString text) {
  if (value.empty()) return;
  LumoFormat& format = findOrMakeFormat();
  replaceNewline(text);
  format.addRelabel(value.xc_str(), text.xc_str());
}

ChartString XVariable::cellText(OBS const& cell) const {
  constexpr unsigned int significantDigits = 16;
  return mVexaVariable == nullptr
             ? ChartString(formatter::AsString(cell.number(), significantDigits).c_str())
             : ChartString(formatter::AsString(cell, mVexaVariable->GetFormat()).c_str());
}

void XVariable::addRelabel(char16_t const* value, char16_t const* text) {
  guarded(addRelabelContext, [&] { appendRelabel(value, text); });
}

void XVariable::addRelabel(unsigned int value, char16_t const* text) {
  guarded(addRelabelContext, [&] { appendRelabel(ChartString(static_cast<unsigned long>(value)), text); });
}

void XVariable::addRelabel(OBS const& value, char16_t const* text) {
  guarded(addRelabelContext, [&] { appendRelabel(cellText(value), text); });
}

void XVariable::addRelabel(char16_t const* value, OBS const& text) {
  guarded(addRelabelContext, [&] {
    // The value's line feeds too, here alone: relied upon.
    ChartString replaced(value);
    replaceNewline(replaced);
    appendRelabel(replaced, cellText(text));
  });
}

void XVariable::addRelabels() {
  if (mVexaVariable == nullptr) return;
  Vexa_ValueLabelMap labels(mVexaVariable->GetValueLabels());
  labels.Reset();
  OBS const* cell = nullptr;
  char const* label = nullptr;
  while (labels.GetNextPair(cell, label) != 0) {
    if (label == nullptr) continue;
    OBS const& value = kestrel::present(cell, "value of a value label");
    ChartString const text = XUtility::ChartStringFromLocalCodePage(label);
    Vexa_Format const format = mVexaVariable->GetFormat();
    if (format.TypeEx() == Vexa_Format::FormatString) {
      addRelabel(paddedText(value, format.Width()).xc_str(), text.xc_str());
    } else {
      addRelabel(value, text.xc_str());
    }
  }
}

void XVariable::removeAllRelabels() {
  guarded("Error in XVariable::removeAllRelabels()", [&] {
    auto const formats = mImplementation->getFormats();
    if (!formats.empty()) formats.front()->removeRelabels();
  });
}
