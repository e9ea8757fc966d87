#include "template_shelf.h"

#include <algorithm>
#include <utility>

namespace kestrel::host {

std::shared_ptr<SoundTemplate const> TemplateShelf::find(std::string const& text) {
  std::lock_guard const lock(mMutex);
  auto const found = std::find_if(mTemplates.begin(), mTemplates.end(),
                                  [&text](auto const& each) { return each->text == text; });
  if (found == mTemplates.end()) return nullptr;
  std::rotate(mTemplates.begin(), found, found + 1);
  return mTemplates.front();
}

void TemplateShelf::keep(std::shared_ptr<SoundTemplate const> sound) {
  if (sound->text.size() > longestKept) return;
  std::lock_guard const lock(mMutex);
  if (mTemplates.size() == mostTemplates) mTemplates.pop_back();
  mTemplates.insert(mTemplates.begin(), std::move(sound));
}

}  // namespace kestrel::host
