#pragma once

#include "xlumotemplate.h"

#include "host/data_types.h"
#include "model/chartstring.h"

#include <xercesc/util/XercesDefs.hpp>

#include <string>
#include <vector>

XERCES_CPP_NAMESPACE_BEGIN
class DOMDocument;
class DOMElement;
class DOMNode;
class XercesDOMParser;
XERCES_CPP_NAMESPACE_END

namespace kestrel {

/// Keeps the XML library ready: a request may be made where no chart is alive.
class XmlLibraryUse {
 public:
  XmlLibraryUse();
  XmlLibraryUse(XmlLibraryUse const&) = delete;
  XmlLibraryUse& operator=(XmlLibraryUse const&) = delete;
  ~XmlLibraryUse();
};

}  // namespace kestrel

struct XLumoTemplate::Data {
  /// The document's encoding, which nobody looks at.
  enum XML_ENCODING : int { EncodingDefault = 0 };

  /// One slot and what fills it.
  struct TemplateMapping {
    std::string mSlotName;
    std::string mSlotValue;
    std::string mSlotLabel;
  };

  struct variableMapping : TemplateMapping {
    std::string mLabelingVariableName;
    bool mCategorical = true;
    std::string mDataSetName;
    VARIABLE_TYPE mVariableType = VARIABLE_SINGLE;
    std::string mMRSetName;
    Vexa_Format mFormat;
    bool mHasFormat = false;
    bool mWeight = false;
    bool mEnhancedDichotomy = false;
    std::string mCountedValue;
    /// Parallel lists, of which the first one counts.
    std::vector<std::string> mVariableNames;
    std::vector<std::string> mVariableLabels;
    std::vector<std::string> mLabelingVariableNames;
  };

  /// The text of the request.
  /// @return false where it cannot be made, which is logged unless the document itself cannot
  bool convertToString(std::string& out);

  /// Makes the document with its root. The one before is let go of and never released: relied upon.
  bool createDocument(XML_ENCODING encoding);

  /// @return false where no map is named, which is no failure
  bool convertMapInfoToDOM(xercesc::DOMDocument& document, xercesc::DOMElement& specification) const;

  /// Takes a reply apart.
  /// @return false where the converter did not find the maps
  bool takeReply(xercesc::DOMDocument const& reply, std::string& lumoML, std::string& styleSheet);

  /// The document of a template's file, which `parser` keeps.
  /// @return null where the text is no XML, which is dumped and logged
  static xercesc::DOMDocument* parsedTemplate(std::string const& content, std::string& errorText,
                                              xercesc::XercesDOMParser& parser);

  static std::string AsUTF8(xercesc::DOMNode const& node);

  /// A display text in the form that the client expects.
  static std::string updateText(std::string const& text);

  /// Makes a file name of a URI.
  static void replaceSpecialChars(ChartString& uri);

  kestrel::XmlLibraryUse mXmlLibrary;
  ChartString mTemplateName;
  std::string mTemplatePath;
  LOCATION mTemplateLocation = LOCATION_LOCAL;
  std::string mTemplateKosDirectory;
  std::string mStyleSheetName;
  LOCATION mStyleSheetLocation = LOCATION_LOCAL;
  std::string mStyleSheetKosDirectory;
  ChartString mDataMapName;
  std::string mDataMapFileName;
  LOCATION mDataMapLocation = LOCATION_LOCAL;
  std::string mDataMapKosDirectory;
  ChartString mRefMapName;
  std::string mRefMapFileName;
  LOCATION mRefMapLocation = LOCATION_LOCAL;
  std::string mRefMapKosDirectory;
  ChartString mMapKey;
  bool mShowAllFeatures = true;
  std::string mDataMapContents;
  std::string mRefMapContents;
  ChartString mMapErrorCode;
  std::vector<variableMapping> mVariables;
  std::vector<TemplateMapping> mStatistics;
  std::vector<TemplateMapping> mLabels;
  /// Not owned by anybody.
  xercesc::DOMDocument* mDocument = nullptr;
  xercesc::DOMElement* mRoot = nullptr;

 private:
  bool addTemplateSpecification(ChartString const& locale);
  bool addTemplateContents(xercesc::DOMElement& specification);
  void addMappings(xercesc::DOMElement& specification);
  void addStyleSheetSpecification();
  bool takeChart(xercesc::DOMDocument const& reply, std::string& lumoML) const;
  bool takeMaps(xercesc::DOMDocument const& reply);
  void takeStyleSheet(xercesc::DOMDocument const& reply, std::string& styleSheet) const;
};
