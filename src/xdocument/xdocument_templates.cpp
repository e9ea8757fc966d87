// The chain of the user's templates.

#include "xdocument.h"

#include "template_run.h"
#include "xdocument_data.h"

#include "support/failure.h"

#include "host/files.h"
#include "host/templates.h"

#include <string>
#include <vector>

using kestrel::logFailure;
using kestrel::TemplateDumps;

namespace {

/// What is said of one kind of template.
struct ChainLink {
  TemplateDumps dumps;
  /// Null says nothing: a file that is missing is skipped silently then, which is relied upon.
  char const* missing;
  char const* failure;
  /// Only the styles templates count the dumps on; the other kinds use the number that these left.
  bool advancesNumber;
};

constexpr ChainLink styles{{"stemplate_", "bStemplate_", "aStemplate_"},
                           "Could not find the chart styles template: ",
                           "Failure occurred while applying chart styles template: ",
                           true};
constexpr ChainLink options{{"otemplate_", "bOtemplate_", "aOtemplate_"},
                            nullptr,
                            "Failure occurred while applying options template: ",
                            false};
constexpr ChainLink chosen{{"ctemplate_", "bCtemplate_", "aCtemplate_"},
                           "Could not find the CTemplate: ",
                           "Failure occurred while applying CTemplate: ",
                           false};
constexpr ChainLink defaults{{"dtemplate_", "bDtemplate_", "aDtemplate_"},
                             nullptr,
                             "Failure occurred while applying default template: ",
                             false};

/// The contents are kept without their names, so that every message ends where the name would stand.
std::string const nameOfContent;

/// Template files are read once for the process, and again when the settings have changed.
template <typename Settings>
void refresh(std::vector<std::string>& contents, Settings settings) {
  if (contents.empty() || settings.isDirty()) {
    contents.clear();
    FetchFile const files;
    for (std::string const& name : settings.Get()) contents.push_back(files.fetch(name, true, true));
  }
  settings.setIsDirty(false);
}

/// The number of templates that were applied.
int applyAll(std::vector<std::string> const& contents, ChainLink const& link, ChartTemplate& engine,
             XDocument const& chart, unsigned long& number) {
  int count = 0;
  for (std::string const& text : contents) {
    if (link.advancesNumber) ++number;
    if (text.empty()) {
      if (link.missing != nullptr) logFailure(link.missing + nameOfContent, __FILE__, __LINE__);
      continue;
    }
    kestrel::dumpTemplate(link.dumps, text, number);
    engine.setTemplate(text);
    if (kestrel::applyWithDumps(engine, link.dumps, chart, number, link.failure, nameOfContent)) ++count;
  }
  return count;
}

}  // namespace

int XDocument::applyTemplates() {
  static unsigned long filenumber = 0;
  static std::vector<std::string> sTemplatesContent;
  static std::vector<std::string> oTemplatesContent;
  static std::vector<std::string> cTemplatesContent;
  static std::vector<std::string> dTemplatesContent;
  ChartBase::printDebugInfo("Start Applying Templates");
  if (!implementationExists()) return 0;
  kestrel::BaselineChart const baseline(*this);
  ChartTemplate engine(chart(), baseline.visualization());
  refresh(sTemplatesContent, STemplate());
  int count = applyAll(sTemplatesContent, styles, engine, *this, filenumber);
  refresh(oTemplatesContent, OTemplate());
  count += applyAll(oTemplatesContent, options, engine, *this, filenumber);
  FramePacker().packFrames(chart(), baseline.document());
  if (mData->mApplyCTemplate && CTemplate().Exists()) {
    // Without a baseline, and instead of the default ones: relied upon.
    ChartTemplate chosenEngine(chart(), nullptr);
    refresh(cTemplatesContent, CTemplate());
    count += applyAll(cTemplatesContent, chosen, chosenEngine, *this, filenumber);
  } else {
    refresh(dTemplatesContent, DTemplate());
    count += applyAll(dTemplatesContent, defaults, engine, *this, filenumber);
  }
  count += applyUserTemplates(baseline.visualization());
  ChartBase::printDebugInfo("Done Applying Templates");
  return count;
}
