#pragma once

#include "chart_test.h"
#include "story.h"
#include "xdocument.h"

#include "kestrelhost/conversion.h"

#include <string>
#include <vector>

namespace kestrel::test {

inline constexpr char current[] =
    "<visualization xmlns=\"http://xml.vexa.example/visualization\" id=\"converted\"/>";

inline constexpr char started[] = "trace: Starting Chart Creation";
inline constexpr char ended[] = "trace: XDocument destructor finished.";
inline constexpr char unknownError[] = "user: Unknown Error occurred while converting to LumoML2.0.";

/// The document's first trace line, what the Java side is asked where nothing runs yet, and what follows
/// that.
std::vector<std::string> afterStart(std::vector<std::string> const& rest);

/// The same for one that was converted, from the call of the converter with that name up to the looks.
std::vector<std::string> convertedBy(std::string const& converter);

/// Documents whose text goes through a converter that gives `current` for every text.
class ConversionTest : public ChartTest {
 protected:
  ConversionTest();

  /// Makes the converter give that text for every one.
  void takes(std::string const& result);

  /// Makes the converter refuse every text.
  void refuses(std::string const& message);

  /// What was told to the user, and logged, in that order.
  std::vector<std::string> reports() const;

  static XDocument fromPDL(std::string const& text, bool reportErrors = true) {
    return XDocument(text, true, reportErrors);
  }
  static XDocument fromLumoML14(std::string const& text, bool reportErrors = true) {
    return XDocument(text, false, reportErrors);
  }

  host::ScriptedJava& java = *recorder.services().java;
};

}  // namespace kestrel::test
