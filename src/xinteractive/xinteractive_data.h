#pragma once

#include "chartxmlcontent.h"
#include "xinteractive.h"

#include "support/side_content.h"

#include "model/chartstring.h"

#include <string>

struct xInteractive::xInteractiveData {
  /// Sends content in interactive content messages. `data` is not null.
  bool SendInteractiveContent(char const* data, unsigned long size, ChartXMLContentType type) const;

  /// Sends the description in both forms.
  bool SendDescription() const;

  /// Sends a content by `SendInteractiveContent`.
  kestrel::SideContents::Send sender() const;

  std::string mInteractiveJSON;
  std::string mProcedureName;
  std::string mJSONPath;
  std::string mOptions;
  ChartString mDescription;
  kestrel::GeoJsonList mGeoJSON;
};
