#pragma once

#include "dom_walk.h"
#include "kinds.h"
#include "links.h"
#include "tree.h"

#include <type_traits>
#include <vector>

// The few operations that every accessor of the model is made of.

namespace kestrel::model {

inline char16_t const* read(LumoBaseElement const& object, char16_t const* name) {
  return valueOf(LumoBinding::elementOf(object), name);
}
/// "true" and "1" are true; what is absent or anything else is false.
bool readBool(LumoBaseElement const& object, char16_t const* name);
/// `absent` too where the text is no number.
double readDouble(LumoBaseElement const& object, char16_t const* name);
int readInteger(LumoBaseElement const& object, char16_t const* name, int absent = 0);
unsigned int readUnsigned(LumoBaseElement const& object, char16_t const* name);

template <typename Enumeration>
Enumeration readEnum(LumoBaseElement const& object, char16_t const* name,
                     Enumeration absent = Enumeration{}) {
  return static_cast<Enumeration>(readInteger(object, name, static_cast<int>(absent)));
}

/// Null removes the attribute.
void write(LumoBaseElement& object, char16_t const* name, char16_t const* value);
/// As one of three texts: an empty one gives no value either.
void writeFilled(LumoBaseElement& object, char16_t const* name, char16_t const* value);
void write(LumoBaseElement& object, char16_t const* name, bool value);
void write(LumoBaseElement& object, char16_t const* name, double value);
void write(LumoBaseElement& object, char16_t const* name, unsigned int value);
void write(LumoBaseElement& object, char16_t const* name, int value);

template <typename Enumeration, typename = std::enable_if_t<std::is_enum_v<Enumeration>>>
void write(LumoBaseElement& object, char16_t const* name, Enumeration value) {
  write(object, name, static_cast<int>(value));
}

void erase(LumoBaseElement& object, char16_t const* name);

void refer(LumoBaseElement& object, char16_t const* name, LumoBaseElement const& target);

template <typename T>
bool isA(LumoBaseElement const& object) {
  if constexpr (std::is_same_v<T, LumoBaseElement>) {
    return true;
  } else {
    return dynamic_cast<T const*>(&object) != nullptr;
  }
}

template <typename T>
T* referred(LumoBaseElement const& object, char16_t const* name) {
  return static_cast<T*>(LumoBinding::treeOf(object).target(object, name, &isA<T>));
}

/// The child of this kind at `element` or behind it, or null.
template <typename T>
T* childFrom(LumoBaseElement const& object, xercesc::DOMElement* element) {
  char16_t const* const name = Markup<T>::kind().name;
  for (; element != nullptr; element = element->getNextElementSibling()) {
    if (!sameText(nameOf(*element), name)) continue;
    if (T* const child = dynamic_cast<T*>(&LumoBinding::treeOf(object).objectOf(*element))) return child;
  }
  return nullptr;
}

template <typename T>
T* child(LumoBaseElement const& object) {
  return childFrom<T>(object, LumoBinding::elementOf(object).getFirstElementChild());
}

template <typename T>
std::vector<T*> children(LumoBaseElement const& object) {
  std::vector<T*> found;
  T* next = child<T>(object);
  while (next != nullptr) {
    found.push_back(next);
    next = childFrom<T>(object, LumoBinding::elementOf(*next).getNextElementSibling());
  }
  return found;
}

template <typename T>
T* add(LumoBaseElement& parent) {
  return static_cast<T*>(&LumoBinding::treeOf(parent).add(parent, Markup<T>::kind()));
}

template <typename T>
T* add(LumoBaseElement& parent, char16_t const* id) {
  T* const added = add<T>(parent);
  added->setId(id);
  return added;
}

LumoLocation* locate(LumoBaseElement& parent, LumoLocation::ENUM_part part);
LumoConditionalStyle* addCondition(LumoBaseElement& parent, char16_t const* when, LumoStyle const& style);

inline void remove(LumoBaseElement& object) { LumoBinding::treeOf(object).remove(object); }

template <typename T>
void removeAll(LumoBaseElement& parent) {
  for (T* const each : children<T>(parent)) remove(*each);
}

}  // namespace kestrel::model
