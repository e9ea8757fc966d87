#include "template_fixture.h"

#include "host/templates.h"
#include "model/chartstring.h"
#include "model/style.h"

#include <xercesc/dom/DOM.hpp>
#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>

#include <stdexcept>

using xercesc::DOMElement;

namespace kestrel::test {

namespace {

xercesc::DOMDocument* parsed(std::string const& text) {
  LumoDocument::holdXmlLibrary();
  xercesc::XercesDOMParser parser;
  parser.setDoNamespaces(true);
  parser.setLoadSchema(false);
  auto const* const bytes = reinterpret_cast<XMLByte const*>(text.data());
  parser.parse(xercesc::MemBufInputSource(bytes, text.size(), "chart"));
  if (parser.getErrorCount() > 0) throw std::runtime_error("the chart of the test is not well formed");
  return parser.adoptDocument();
}

std::string utf8(char16_t const* text) { return ChartString(text).toUTF8(); }

std::string attributeOf(DOMElement const& element, std::string const& name) {
  ChartString const attribute(name.c_str());
  return element.hasAttribute(attribute.xc_str()) ? utf8(element.getAttribute(attribute.xc_str()))
                                                  : "(absent)";
}

std::vector<DOMElement*> elementsOf(DOMElement const& top, char16_t const* tag) {
  xercesc::DOMNodeList const& list = *top.getElementsByTagName(tag);
  std::vector<DOMElement*> elements;
  for (XMLSize_t at = 0, length = list.getLength(); at < length; ++at) {
    elements.push_back(dynamic_cast<DOMElement*>(list.item(at)));
  }
  return elements;
}

std::string nameOf(LumoBaseElement const& element) {
  char16_t const* const id = element.getId();
  return utf8(id != nullptr ? id : element.getImplementation()->getNodeName());
}

host::Host hostWith(std::shared_ptr<host::TemplateObserver> observer) {
  host::Host host = host::MemoryServices().host();
  host.templateEngine = std::make_shared<host::XmlTemplateEngine>(std::move(observer));
  return host;
}

}  // namespace

ParsedChart::ParsedChart(std::string const& text)
    : mDom(parsed(text)), mDocument(std::make_unique<LumoDocument>(mDom.get())) {}
ParsedChart::~ParsedChart() = default;

std::string chartOf(std::string const& content) {
  return "<visualization version=\"2.8\" xmlns=\"http://xml.vexa.example/visualization\">" + content +
         "</visualization>";
}

std::string templateOf(std::string const& instructions) {
  return "<template xmlns=\"http://xml.vexa.example/software/analytics/vexa/xml/visualization\">\n" +
         instructions + "</template>";
}

void WriteLog::written(host::TemplateWrite const& write) {
  writes.push_back(
      {nameOf(write.element), write.attribute, write.value, write.line, write.column, write.text});
}
void WriteLog::copied(LumoStyle const& from, LumoStyle const& to) {
  copies.push_back(nameOf(from) + " -> " + nameOf(to));
}

std::vector<std::string> WriteLog::lines() const {
  std::vector<std::string> lines;
  for (Written const& write : writes) lines.push_back(write.summary());
  return lines;
}

TemplateTest::TemplateTest() : recorder(hostWith(writes)), scope(recorder.host()) { load(everyPart); }

void TemplateTest::TearDown() { EXPECT_EQ(schemaErrors(chart->text()), std::vector<std::string>()); }

bool TemplateTest::applyText(std::string const& xml) {
  ChartTemplate application(chart->visualization(), nullptr);
  bool const accepted = application.setTemplate(xml);
  application.applyTemplate();
  return accepted;
}

std::vector<std::string> TemplateTest::styledWith(std::string const& attribute,
                                                  std::string const& value) const {
  std::vector<std::string> ids;
  for (DOMElement const* style : elementsOf(*chart->visualization().getImplementation(), u"style")) {
    if (attributeOf(*style, attribute) != value) continue;
    ids.push_back(style->hasAttribute(u"id") ? utf8(style->getAttribute(u"id")) : "-");
  }
  return ids;
}

std::string TemplateTest::valueOf(std::string const& id, std::string const& attribute) const {
  for (DOMElement const* element : elementsOf(*chart->visualization().getImplementation(), u"*")) {
    if (attributeOf(*element, "id") == id) return attributeOf(*element, attribute);
  }
  return "(no element " + id + ")";
}

std::vector<std::string> TemplateTest::cycleOf(std::string const& id, std::string const& attribute) const {
  std::vector<std::string> values;
  for (DOMElement const* element : elementsOf(*chart->visualization().getImplementation(), u"*")) {
    if (attributeOf(*element, "id") != id) continue;
    for (DOMElement const* style : elementsOf(*element, u"style"))
      values.push_back(attributeOf(*style, attribute));
    return values;
  }
  return {"(no element " + id + ")"};
}

char const everyPart[] =
    R"(<extension title1="t1" title2="t2" subtitle="st" footnote1="f1" footnote2="f2" footnote3="f3")"
    R"( statisticsSummary0="sum" styleCycleRepository="styleCycleRepository"/>)"
    R"(<styleCycle id="styleCycleRepository"><cycle><style/></cycle></styleCycle>)"
    R"(<labelFrame id="t1" style="t1Frame"><label style="t1Text"><text>T</text></label></labelFrame>)"
    R"(<labelFrame id="t2" style="t2Frame"><label style="t2Text"><text>T</text></label></labelFrame>)"
    R"(<labelFrame id="st" style="stFrame"><label style="stText"><text>S</text></label></labelFrame>)"
    R"(<labelFrame id="f1" style="f1Frame"><label style="f1Text"><text>F</text></label></labelFrame>)"
    R"(<labelFrame id="f2" style="f2Frame"><label style="f2Text"><text>F</text></label></labelFrame>)"
    R"(<labelFrame id="f3" style="f3Frame"><label style="f3Text"><text>F</text></label></labelFrame>)"
    R"(<labelFrame id="sum" style="sumFrame"><label style="sumText"><text>N</text></label></labelFrame>)"
    R"(<labelFrame id="other" style="otherFrame"><label style="otherText"><text>O</text></label></labelFrame>)"
    R"(<graph id="g" cellStyle="cell">)"
    R"(<coordinates id="c0">)"
    R"(<dimension id="dx"><axis style="xLine"><label style="xTitle" textFrameStyle="xTitleFrame"/>)"
    R"(<majorTicks id="xTicks" style="xLabel" tickFrameStyle="xLabelFrame" markStyle="xMark"><gridline id="xGridline" style="xGrid"/></majorTicks></axis></dimension>)"
    R"(<dimension id="dy"><axis style="yLine"><label style="yTitle" textFrameStyle="yTitleFrame"/>)"
    R"(<majorTicks id="yTicks" style="yLabel" tickFrameStyle="yLabelFrame" markStyle="yMark"><gridline id="yGridline" style="yGrid"/></majorTicks></axis></dimension>)"
    R"(</coordinates>)"
    R"(<coordinates id="c1"><dimensionReference ref="dx"/>)"
    R"(<dimension id="dy2"><axis style="y2Line"/></dimension>)"
    R"(<dimension id="dz"><axis style="zLine"><majorTicks id="zTicks" style="zLabel"/></axis></dimension>)"
    R"(<dimension id="d4"><axis style="line4"/></dimension></coordinates>)"
    R"(<facetLayout><facetLevel level="1"><axis style="panelLine"><label style="panelTitle" textFrameStyle="panelTitleFrame"/>)"
    R"(<majorTicks style="panelLabel" tickFrameStyle="panelLabelFrame"/></axis></facetLevel></facetLayout>)"
    R"(<point id="p" style="pStyle"><labeling style="dataText" textFrameStyle="dataFrame"/></point>)"
    R"(<lineGuide style="lineGuide"/><functionGuide style="functionGuide"/><planeGuide style="planeGuide"/>)"
    R"(</graph>)"
    R"(<legend id="l" style="legendBox" tickTextStyle="legendText"><label style="legendTitle"><text>L</text></label></legend>)"
    R"(<style id="container"><style id="t1Frame"/><style id="t1Text"/><style id="t2Frame"/><style id="t2Text"/>)"
    R"(<style id="stFrame"/><style id="stText"/><style id="f1Frame"/><style id="f1Text"/><style id="f2Frame"/>)"
    R"(<style id="f2Text"/><style id="f3Frame"/><style id="f3Text"/><style id="sumFrame"/><style id="sumText"/>)"
    R"(<style id="otherFrame"/><style id="otherText"/><style id="cell"/>)"
    R"(<style id="xLine"/><style id="xTitle"/><style id="xTitleFrame"/><style id="xLabel"/><style id="xLabelFrame"/>)"
    R"(<style id="xMark"/><style id="xGrid"/><style id="yLine"/><style id="yTitle"/><style id="yTitleFrame"/>)"
    R"(<style id="yLabel"/><style id="yLabelFrame"/><style id="yMark"/><style id="yGrid"/><style id="y2Line"/>)"
    R"(<style id="zLine"/><style id="zLabel"/><style id="line4"/><style id="panelLine"/><style id="panelTitle"/>)"
    R"(<style id="panelTitleFrame"/><style id="panelLabel"/><style id="panelLabelFrame"/><style id="pStyle"/>)"
    R"(<style id="dataText"/><style id="dataFrame"/><style id="lineGuide"/><style id="functionGuide"/>)"
    R"(<style id="planeGuide"/><style id="legendBox"/><style id="legendText"/><style id="legendTitle"/></style>)";

}  // namespace kestrel::test
