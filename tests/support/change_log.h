#pragma once

#include "model/document.h"

#include <map>
#include <string>
#include <vector>

namespace kestrel::test {

/// What happens to a document while the log lives, in order, one line for each change: "axis adds label",
/// "axis style=axis_axisx_1s", "axis removes opposite", "text reads Age", "style is removed". An attribute
/// that is written again with the value that it has gives "axis writes the same". The document must outlive
/// the log.
class ChangeLog : public LumoChangeObserver {
 public:
  explicit ChangeLog(LumoDocument& document);
  ChangeLog(ChangeLog const&) = delete;
  ChangeLog& operator=(ChangeLog const&) = delete;
  ~ChangeLog() override;

  void beforeChange(Kind kind, LumoBaseElement const& element) override;

  std::vector<std::string> lines();
  /// The lines of elements of these tags.
  std::vector<std::string> linesOf(std::vector<std::string> const& tags);

 private:
  using Attributes = std::map<std::string, std::string>;

  static Attributes attributesOf(LumoBaseElement const& element);
  std::string attributeChange() const;
  std::string change() const;
  void settle();

  LumoDocument& mDocument;
  std::vector<std::string> mLines;
  Kind mKind = Kind::AddElement;
  LumoBaseElement const* mElement = nullptr;
  Attributes mBefore;
};

}  // namespace kestrel::test
