#pragma once

#include "export.h"

#include <string>
#include <vector>

/// Unwinds from deep inside a procedure to the host that called it. Only a host throws it; every guard of the
/// library lets it through.
class VEXA_API VexaGoToCaller {
 public:
  /// @{
  /// Carries nothing.
  VexaGoToCaller();
  VexaGoToCaller(VexaGoToCaller const& other);
  /// @}

  virtual ~VexaGoToCaller();
};

/// A piece of text for the user, in UTF-8. `fixed` is true for a text of the system, which a host may
/// translate, and false for text that came from outside, which it must show as it is.
class VEXA_API BpCellText {
 public:
  virtual ~BpCellText();

  /// The text, as it is to be shown.
  std::string const& text() const;
  /// Whether the text is one of the system.
  bool fixed() const;

 protected:
  /// @{
  /// For the classes of texts below.
  BpCellText(std::string text, bool fixed);
  BpCellText(BpCellText const& other);
  BpCellText& operator=(BpCellText const& other);
  /// @}

  /// Replaces the text; the flag stays.
  void assign(std::string text);

 private:
  std::string mText;
  bool mFixed;
};

/// A plain piece of text.
class VEXA_API BpString : public BpCellText {
 public:
  /// A text in UTF-8, and whether it is one of the system.
  BpString(std::string text, bool fixed);

  /// @{
  /// Copies are independent of each other.
  BpString(BpString const& other);
  BpString& operator=(BpString const& other);
  /// @}

  ~BpString() override;
};

/// A user message with placeholders: `^1` to `^9` in the pattern stand for the first to the ninth cell added.
/// text() is the pattern until Finish() fills it.
class VEXA_API BpComposite : public BpCellText {
 public:
  /// A message with that pattern, no cells, and whether it is one of the system.
  BpComposite(std::string const& pattern, bool fixed);

  /// @{
  /// Copies are independent of each other.
  BpComposite(BpComposite const& other);
  BpComposite& operator=(BpComposite const& other);
  /// @}

  ~BpComposite() override;

  /// Keeps a copy of the cell's text and flag for the next placeholder.
  void Add(BpCellText const& cell);

  /// Fills the placeholders in one pass over the pattern: a cell that itself holds `^1` is not filled again.
  /// A placeholder with no cell stays as it stands; a cell with no placeholder is not shown.
  void Finish();

  /// The pattern as it was given.
  std::string const& pattern() const;
  /// The cells in the order in which they were added.
  std::vector<BpString> const& cells() const;

 private:
  std::string mPattern;
  std::vector<BpString> mCells;
};

/// Where a message is shown. Open: a host may give other values a meaning.
enum BpErrorShow : int {
  BpShowUser = 2,
};

/// How grave a message is. Open: a host may give other values a meaning.
enum BpErrorLevel : int {
  BpLevelError = 2,
  BpLevelSevere = 3,
};

/// Shows a message to the user. The text is the caller's. It is called where a failure is handled: what it
/// throws goes past every guard, which is how a host unwinds.
VEXA_API void BpError(BpCellText const& text, BpErrorShow show, BpErrorLevel level);
