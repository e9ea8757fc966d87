#pragma once

#include "chartxmlcontent.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kestrel {

/// The GeoJSON that goes along with a content: names and what is in them, in the order in which they came.
class GeoJsonList {
 public:
  using Pair = std::pair<std::string, std::string>;

  /// Fetches a file and adds it under its name.
  /// @return false, and nothing is added, where it is empty or cannot be read
  bool addFile(std::string const& fileName);

  /// @return false, and nothing is added, where one of them is empty
  bool add(std::string const& name, std::string const& content);

  std::vector<Pair> const& pairs() const { return mPairs; }

 private:
  std::vector<Pair> mPairs;
};

/// Sends what stands between a description and the end record, one content after the other. A failure keeps
/// none of the others back, and only the last result counts: relied upon.
class SideContents {
 public:
  using Send = std::function<bool(std::string const& content, ChartXMLContentType type)>;

  explicit SideContents(Send send) : mSend(std::move(send)) {}

  /// An empty text is left out, and leaves the result as it is.
  void sendPlain(std::string const& text, ChartXMLContentType type);
  void sendCompressed(std::string const& text, ChartXMLContentType type);

  /// Each name as it is, each content compressed.
  void sendAttachments(GeoJsonList const& attachments);

  /// Of the last content that was sent; false where there was none.
  bool result() const { return mResult; }

 private:
  Send mSend;
  bool mResult = false;
};

/// The content as it goes out under a type that is compressed. The host's own result is not asked for: where
/// it fails, the content is empty.
std::string compressed(std::string const& content);

}  // namespace kestrel
