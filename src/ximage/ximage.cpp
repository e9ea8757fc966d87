// Images that are there already.

#include "ximage.h"

#include "support/side_content.h"

#include "host/files.h"

XImage::XImage() = default;
XImage::~XImage() = default;

bool XImage::setImage(ChartXMLContentSubType subType, std::string const& fileName) {
  mImage = FetchFile().fetch(fileName, true, true);
  if (mImage.empty()) return false;
  mSubType = subType;
  return true;
}

bool XImage::setImageInline(ChartXMLContentSubType subType, std::string const& bytes) {
  mImage = bytes;
  mSubType = subType;
  // Whatever the bytes, unlike setImage: relied upon.
  return false;
}

bool XImage::sendImage() const {
  if (!SendDescription()) return false;
  std::string const content = kestrel::compressed(mImage);
  bool const success = SendContent(content.data(), content.size(), CXT_IMAGE, mSubType);
  SendDone();
  return success;
}
