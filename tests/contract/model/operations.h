#pragma once

#include "chart.h"

#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

// The operations of the interface as tables, so that each rule is one test over all of them.

/// A setter: calls it on a new element and gives that.
struct Setter {
  char const* name;
  std::function<LumoBaseElement*(LumoVisualization&)> apply;
  char16_t const* attribute;
  std::string value;
};

/// A setter of a text. It is called with any text on an element that `make` gives.
struct TextProperty {
  char const* name;
  std::function<LumoBaseElement*(LumoVisualization&)> make;
  std::function<void(LumoBaseElement&, char16_t const*)> set;
  char16_t const* attribute;
};

/// A reference: `set` refers to `target`, `get` (if there is one) reads it back.
struct ReferenceProperty {
  char const* name;
  std::function<LumoBaseElement*(LumoVisualization&)> make;
  std::function<LumoBaseElement*(LumoVisualization&, char16_t const* id)> makeTarget;
  std::function<void(LumoBaseElement&, LumoBaseElement&)> set;
  std::function<LumoBaseElement*(LumoBaseElement&)> get;
  char16_t const* attribute;
};

/// An adder with the getter that lists what it added. `make` gives the element to add to.
struct Adder {
  char const* name;
  std::function<LumoBaseElement*(LumoVisualization&)> make;
  std::function<LumoBaseElement*(LumoBaseElement&)> add;
  std::function<std::vector<LumoBaseElement*>(LumoBaseElement&)> list;
  char const* element;
};

/// A remover of children.
struct Remover {
  char const* name;
  std::function<LumoBaseElement*(LumoVisualization&)> make;
  std::function<LumoBaseElement*(LumoBaseElement&)> add;
  std::function<void(LumoBaseElement&)> remove;
};

/// A remover of a property of a style, with the attributes that it takes away.
struct StyleRemover {
  char const* name;
  std::function<void(LumoStyle&)> remove;
  std::vector<char16_t const*> attributes;
};

std::vector<Setter> const& setters();
std::vector<TextProperty> const& textProperties();
std::vector<ReferenceProperty> const& referenceProperties();
std::vector<Adder> const& adders();
std::vector<Remover> const& removers();
std::vector<StyleRemover> const& styleRemovers();

/// A name that GoogleTest takes.
template <typename Row>
std::string rowName(testing::TestParamInfo<Row> const& info) {
  std::string name(info.param.name);
  for (char& character : name) {
    if (!std::isalnum(static_cast<unsigned char>(character))) character = '_';
  }
  return name;
}

inline std::ostream& operator<<(std::ostream& out, Setter const& row) { return out << row.name; }
inline std::ostream& operator<<(std::ostream& out, TextProperty const& row) { return out << row.name; }
inline std::ostream& operator<<(std::ostream& out, ReferenceProperty const& row) { return out << row.name; }
inline std::ostream& operator<<(std::ostream& out, Adder const& row) { return out << row.name; }
inline std::ostream& operator<<(std::ostream& out, Remover const& row) { return out << row.name; }
inline std::ostream& operator<<(std::ostream& out, StyleRemover const& row) { return out << row.name; }
