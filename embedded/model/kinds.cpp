#include "kinds.h"

#include <string_view>
#include <unordered_map>

namespace kestrel::model {
namespace {

#define KESTREL_MODEL_ROW(Class, word) {u"" #word, &makeObject<Class>},

/// The first row of a name holds: an extension is a plain one unless its parent says otherwise.
std::unordered_map<std::u16string_view, Maker> const& makers() {
  static std::unordered_map<std::u16string_view, Maker> const table{KESTREL_MODEL_KINDS(KESTREL_MODEL_ROW)};
  return table;
}

/// The extensions that have a class of their own, by what they extend.
std::unordered_map<std::u16string_view, Maker> const& extensionMakers() {
  static std::unordered_map<std::u16string_view, Maker> const table{
      {u"visualization", &makeObject<LumoExtensionVis>},
      {u"sourceVariable", &makeObject<LumoExtensionSV>},
      {u"derivedVariable", &makeObject<LumoExtensionSV>},
      {u"expressionVariable", &makeObject<LumoExtensionSV>},
  };
  return table;
}

#undef KESTREL_MODEL_ROW

}  // namespace

Maker makerOf(std::u16string_view name, std::u16string_view parentName) {
  if (name == LumoUni::_extension) {
    auto const extension = extensionMakers().find(parentName);
    if (extension != extensionMakers().end()) return extension->second;
  }
  auto const found = makers().find(name);
  return found == makers().end() ? &makeObject<LumoBaseElement> : found->second;
}

}  // namespace kestrel::model
