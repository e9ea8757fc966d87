#pragma once

#include <nlohmann/json.hpp>
#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMImplementation.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <string>
#include <vector>

namespace kestrel::bench {

/// The elements, attributes and texts of a chart as plain steps, from which the same chart is made again by
/// other means: with the DOM library alone, or as JSON. The strings are ready made, so that nothing is
/// measured but the making.
class ChartTree {
 public:
  explicit ChartTree(std::string const& chartText);

  std::size_t elements() const;

  /// Makes the tree with the DOM library and writes it with the library's own serialiser.
  std::string writeWithXerces() const;

  /// Makes the tree as JSON objects of tag, attributes and children.
  nlohmann::json asJson() const;

 private:
  struct Attribute {
    std::u16string name;
    std::u16string value;
    std::string nameUtf8;
    std::string valueUtf8;
  };
  struct Step {
    enum class Kind { Open, Text, Close };
    Kind kind;
    std::u16string text;  ///< of an element its name
    std::string textUtf8;
    std::vector<Attribute> attributes;
  };

  void collect(xercesc::DOMElement const& element);
  nlohmann::json jsonOf(std::size_t& step) const;

  std::u16string mNamespace;
  std::vector<Step> mSteps;
};

/// The text of a DOM by the library's own serialiser, in UTF-8.
std::string serialise(xercesc::DOMDocument const& document);

/// A parser with the settings that a chart text is parsed with: namespaces, no validation, nothing from
/// outside.
std::unique_ptr<xercesc::XercesDOMParser> plainParser();

xercesc::DOMDocument& parsePlainly(xercesc::XercesDOMParser& parser, std::string const& text);

}  // namespace kestrel::bench
