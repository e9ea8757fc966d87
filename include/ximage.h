#pragma once

#include "chartxmlcontent.h"
#include "kestrel_export.h"
#include "xdocument.h"

#include <string>

/// Sends an image that is there already, with a description, instead of a chart.
///
/// Nothing is reported: failures of sending show in the results alone, and what the host throws passes to the
/// caller. The format of the image is told by the subtype, which sender and client agree on: the library
/// never looks at it.
class KESTREL_API XImage : public XDocument {
 public:
  /// No image yet, and the subtype 0.
  XImage();
  ~XImage() override;

  /// Takes the content of a file as the image, also where there is none: the image is empty then.
  /// @return true, and the subtype is taken, if the image is not empty
  bool setImage(ChartXMLContentSubType subType, std::string const& fileName);

  /// Takes the image and its subtype as they are given.
  /// @return false, which is no failure
  bool setImageInline(ChartXMLContentSubType subType, std::string const& bytes);

  /// Sends the description, the compressed image and the end record. Nothing follows a description that
  /// fails.
  /// @return whether the description and the image were sent; the end record does not count
  bool sendImage() const;

 private:
  std::string mImage;
  ChartXMLContentSubType mSubType{};
};
