#pragma once

#include "kestrel_export.h"

#include "model/chartstring.h"

#include <memory>
#include <string>
#include <vector>

class Vexa_Format;

/// Asks for a chart from a visualization template: it names the template, fills the template's slots with
/// variables, statistics and labels, and sends the request to the converter behind the host's client adapter.
///
/// Texts are in UTF-8. One object serves one request: what was added is never removed. Failures of the host
/// pass to the caller, where nothing else is said.
class KESTREL_API XLumoTemplate {
 public:
  /// Where a named file lives.
  enum LOCATION : int {
    LOCATION_LOCAL = 0,  ///< known by name in the converter's local store
    LOCATION_KOS = 1,    ///< in the repository, in the folder that the matching `set...KosDirectory` names
    LOCATION_FILE = 2,   ///< a file that this library reads
  };

  /// The label that a text becomes.
  enum LABEL_TYPE : int {
    LABEL_TITLE = 0,
    LABEL_SUBTITLE = 1,
    LABEL_SUBSUBTITLE = 2,
    LABEL_FOOTNOTE = 3,
    LABEL_SUBFOOTNOTE = 4,
  };

  /// What fills a slot.
  enum VARIABLE_TYPE : int {
    VARIABLE_SINGLE = 0,              ///< an ordinary variable
    VARIABLE_MULTIPLE_DICHOTOMY = 1,  ///< a multiple response set of dichotomies
    VARIABLE_MULTIPLE_CATEGORY = 2,   ///< a multiple response set of categories
  };

  /// An empty request.
  XLumoTemplate();
  XLumoTemplate(XLumoTemplate const&) = delete;
  XLumoTemplate& operator=(XLumoTemplate const&) = delete;
  virtual ~XLumoTemplate();

  /// The visualization template, and where it lives.
  void setTemplateName(ChartString& name, LOCATION where);
  /// Chooses a template of the host's template folder by its name without the extension. The template name
  /// stays as it is, and counts before this one where it is not empty.
  void setTemplateInternalName(std::string const& name);
  /// The folder of the repository that has the template; counts with `LOCATION_KOS`.
  void setTemplateKosDirectory(std::string const& directory);

  /// The style sheet, and where it lives. (The small s is the interface's own.)
  void setstyleSheetName(std::string const& name, LOCATION where);
  /// The folder of the repository that has the style sheet; counts with `LOCATION_KOS`.
  void setStyleSheetKosDirectory(std::string const& directory);

  /// @{
  /// The map with the data and the one with the places, where each lives, and the folder of the repository
  /// that has it, which counts with `LOCATION_KOS`. Of a file, every backslash in the name becomes a slash.
  void setDataMapName(std::string const& name, LOCATION where);
  void setDataMapKosDirectory(std::string const& directory);
  void setRefMapName(std::string const& name, LOCATION where);
  void setRefMapKosDirectory(std::string const& directory);
  /// @}

  /// The key by which the two maps are joined.
  void setMapKey(std::string const& key);
  /// Whether places without data are shown. True unless it was set.
  void setShowAllFeatures(bool show);

  /// @{
  /// The names as they were set; after a conversion with maps the URIs that the converter gave.
  ChartString& getDataMapName() const;
  ChartString& getRefMapName() const;
  /// @}

  /// @{
  /// The files of those URIs, and what they hold; empty before a conversion.
  std::string& getDataMapFileName() const;
  std::string& getRefMapFileName() const;
  std::string& getDataMapContents() const;
  std::string& getRefMapContents() const;
  /// @}

  /// Fills a slot with a variable or a multiple response set.
  /// @param slotValue the variable's display text, which the host may translate
  /// @param labelingVariableName the variable that labels the cases; may be empty
  /// @param format copied; null for none, as the pointers below
  /// @param weight whether the variable is the weight
  /// @param countedValue what a set of dichotomies counts
  /// @param enhancedDichotomy the form of a set of dichotomies
  /// @param varNames the members of a set
  /// @param varLabels their labels, and
  /// @param labelingVarNames their labelling variables, in the same order; what is missing is empty
  void addVariable(std::string const& slotName, std::string const& slotValue, bool categorical,
                   std::string labelingVariableName, std::string const& dataSetName, Vexa_Format* format,
                   char const* slotLabel, VARIABLE_TYPE variableType, char const* mrSetName, bool weight,
                   std::string const* countedValue, bool enhancedDichotomy,
                   std::vector<std::string> const* varNames, std::vector<std::string> const* varLabels,
                   std::vector<std::string> const* labelingVarNames);

  /// Fills a slot with a statistic.
  /// @param slotLabel may be null; never part of the request
  void addStatistic(std::string const& slotName, std::string const& slotValue, char const* slotLabel);

  /// Gives the chart a title or a footnote, whose text the host may translate. Other types do nothing.
  void addLabel(LABEL_TYPE type, std::string const& text);

  /// Sends the request and takes the reply apart. What fails is reported.
  /// @param lumoML takes the chart's text; stays as it is where the reply has no chart
  /// @param styleSheet takes the style sheet: of a file, or as the converter gives it
  /// @return false where there is no request or no reply that can be read, and where the maps are not found.
  /// True in all other cases: a template that fails, and a reply that is no XML, leave true and no chart,
  /// which is relied upon
  bool convert(std::string& lumoML, std::string& styleSheet);

  /// Private to the library.
  struct Data;

 private:
  std::unique_ptr<Data> mData;
};
