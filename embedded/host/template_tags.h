#pragma once

#include "template_language.h"

#include <optional>
#include <string_view>

namespace kestrel::host {

/// Where the tags of a text begin. The parser only tells where they end, which is no help for a tag that goes
/// over several lines.
class TagStarts {
 public:
  /// The text must outlive this.
  explicit TagStarts(std::string_view text);

  /// Where the tag begins that ends before this place. The places must be asked for in their order. Gives the
  /// end itself in a text that is not in UTF-8.
  TemplatePosition before(TemplatePosition end);

  /// Where the text begins that comes behind the place that was asked for last; white space, comments and
  /// instructions of others are none. Gives `end` in a text that is not in UTF-8.
  TemplatePosition textBefore(TemplatePosition end) const;

  /// The first byte of the text that is no part of a character, unless the text is in another encoding than
  /// UTF-8.
  static std::optional<TemplatePosition> badUtf8(std::string_view text);

 private:
  void step();
  bool isBefore(TemplatePosition end) const;

  std::string_view mText;
  bool mIsReadable;
  std::size_t mAt = 0;
  TemplatePosition mPosition{1, 1};
  TemplatePosition mTag{0, 0};
};

}  // namespace kestrel::host
