#pragma once

#include "chartxmlcontent.h"

#include <algorithm>
#include <string>
#include <vector>

namespace kestrel::test {

/// A document whose own operations tell of each send in place of it, a content by its type. What a host
/// overrides, it must get.
template <typename Document>
class ToldSends : public Document {
 public:
  bool SendContent(char const*, unsigned long, ChartXMLContentType type,
                   ChartXMLContentSubType) const override {
    return tell(std::to_string(type));
  }
  bool SendDescription() const override { return tell("description"); }
  bool SendData() const override { return tell("data"); }
  bool SendDone() const override { return tell("done"); }

  /// All sends, in order.
  mutable std::vector<std::string> story;
  /// Those that answer false.
  std::vector<std::string> failing;

 private:
  bool tell(std::string const& send) const {
    story.push_back(send);
    return std::find(failing.begin(), failing.end(), send) == failing.end();
  }
};

}  // namespace kestrel::test
