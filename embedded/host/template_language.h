#pragma once

#include "template_values.h"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::host {

struct TemplatePosition {
  unsigned int line;
  unsigned int column;
};

struct AttributeRule {
  std::string_view name;
  ValueRule const* value;
  enum class Need { Optional, Required } need = Need::Optional;
};

struct TemplateFault {
  TemplatePosition at;
  /// What is wrong, and what to do about it.
  std::string text;
};

struct TemplateNode;

/// One kind of element of the template language.
struct ElementRule {
  struct Child {
    ElementRule const* rule;
    unsigned int least;
    unsigned int most;
  };

  std::string_view name;
  std::vector<AttributeRule> attributes;
  std::vector<Child> children;
  /// Takes every attribute of a chart's style too.
  bool takesLook = false;
  /// What the tables cannot say: the faults of an element that is right by them.
  std::vector<TemplateFault> (*faults)(TemplateNode const&) = nullptr;

  AttributeRule const* attribute(std::string_view name) const;
  Names attributeNames() const;
  Child const* child(std::string_view name) const;
  Names childNames() const;
};

/// An element of a template.
struct TemplateNode {
  struct Value {
    AttributeRule const* attribute;
    std::string text;
  };

  ElementRule const* rule;
  TemplatePosition at;
  std::vector<Value> values;
  std::vector<TemplateNode> children;

  /// Null where the attribute is absent.
  std::string const* find(std::string_view attribute) const;
  /// Empty where the attribute is absent.
  std::string_view get(std::string_view attribute) const;
  /// What truth value the attribute has, if it has one.
  bool isTrue(std::string_view attribute) const;
};

constexpr char16_t templateNamespace[] = u"http://xml.vexa.example/software/analytics/vexa/xml/visualization";

/// The root element of every template. Its own attributes are free.
ElementRule const& templateRoot();

/// The attributes of a chart's style that a template can write.
std::vector<AttributeRule> const& lookAttributes();

/// The names of all elements that may hold an element of that name.
Names parentsOf(std::string_view element);

}  // namespace kestrel::host
