#pragma once

#include "schema_validator.h"

#include "kestrelhost/recorder.h"
#include "kestrelhost/template_engine.h"
#include "model/document.h"

#include <gtest/gtest.h>
#include <xercesc/dom/DOMDocument.hpp>

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {

/// A chart that came as text.
class ParsedChart {
 public:
  explicit ParsedChart(std::string const& text);
  ~ParsedChart();
  ParsedChart(ParsedChart const&) = delete;
  ParsedChart& operator=(ParsedChart const&) = delete;

  LumoDocument& document() { return *mDocument; }
  LumoVisualization& visualization() { return *mDocument->getVisualization(); }
  std::string text() const { return mDocument->AsUTF8(); }

 private:
  struct EndDom {
    void operator()(xercesc::DOMDocument* dom) const { dom->release(); }
  };
  std::unique_ptr<xercesc::DOMDocument, EndDom> mDom;
  std::unique_ptr<LumoDocument> mDocument;
};

/// The root of a chart with this content, without white space around.
std::string chartOf(std::string const& content);
/// A template with these instructions; they begin in line 2, column 1.
std::string templateOf(std::string const& instructions);

/// One value that a template wrote.
struct Written {
  std::string element;
  std::string attribute;
  std::string value;
  unsigned int line;
  unsigned int column;
  std::string text;

  std::string summary() const {
    return element + " " + attribute + "=" + value + " @" + std::to_string(line) + ":" +
           std::to_string(column);
  }
};

/// Notes what a template writes; an element goes by its id, else by its tag.
class WriteLog : public host::TemplateObserver {
 public:
  void written(host::TemplateWrite const& write) override;
  void copied(LumoStyle const& from, LumoStyle const& to) override;

  std::vector<std::string> lines() const;

  std::vector<Written> writes;
  std::vector<std::string> copies;
};

/// Templates on a chart that came as text, under a host whose log is kept. At the end of the test the chart
/// is held against the schema.
class TemplateTest : public testing::Test {
 protected:
  TemplateTest();
  void TearDown() override;

  void load(std::string const& content) { chart = std::make_unique<ParsedChart>(chartOf(content)); }
  /// The whole road of a template text; false where it was refused.
  bool applyText(std::string const& xml);
  bool apply(std::string const& instructions) { return applyText(templateOf(instructions)); }

  /// The ids of all styles of the chart whose attribute has the value, in document order; "-" for none.
  std::vector<std::string> styledWith(std::string const& attribute, std::string const& value) const;
  /// The attribute of the first element of this id, "(absent)" where there is none.
  std::string valueOf(std::string const& id, std::string const& attribute) const;
  /// The styles of the first cycle of a style cycle: the value of the attribute of each.
  std::vector<std::string> cycleOf(std::string const& id, std::string const& attribute) const;
  std::vector<std::string> log() const { return recorder.failures(); }

  std::shared_ptr<WriteLog> writes = std::make_shared<WriteLog>();
  host::Recorder recorder;
  host::ScopedHost scope;
  std::unique_ptr<ParsedChart> chart;
};

/// A chart that has every part that a template addresses, each with a style of its own.
extern char const everyPart[];

}  // namespace kestrel::test
