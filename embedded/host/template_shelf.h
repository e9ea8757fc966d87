#pragma once

#include "template_language.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace kestrel::host {

/// A template that keeps the rules of the language, with its text.
struct SoundTemplate {
  std::string text;
  std::vector<TemplateNode> instructions;
};

/// The templates that were read last: a host applies the same few to every chart, and to read one takes
/// longer than to apply it. Several threads may use one.
class TemplateShelf {
 public:
  static constexpr std::size_t mostTemplates = 16;
  /// A longer text is not kept.
  static constexpr std::size_t longestKept = std::size_t{1} << 20;

  /// Null for a text that is not there.
  std::shared_ptr<SoundTemplate const> find(std::string const& text);
  /// In the place of the one that was not asked for the longest time, where there is no room.
  void keep(std::shared_ptr<SoundTemplate const> sound);

 private:
  std::mutex mMutex;
  /// The one that was asked for last stands first.
  std::vector<std::shared_ptr<SoundTemplate const>> mTemplates;
};

}  // namespace kestrel::host
