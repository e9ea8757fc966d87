#include "operations.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;

class EveryAdder : public testing::TestWithParam<Adder> {
 protected:
  LumoDocument document;
  LumoBaseElement& parent = *GetParam().make(*document.getVisualization());

  LumoBaseElement* add() { return GetParam().add(parent); }
  std::vector<LumoBaseElement*> list() { return GetParam().list(parent); }
};

TEST_P(EveryAdder, GivesTheNewElement) {
  LumoBaseElement* const added = add();
  ASSERT_NE(added, nullptr);
  EXPECT_EQ(utf8(added->getImplementation()->getLocalName()), GetParam().element);
  EXPECT_EQ(added->getImplementation()->getParentNode(), parent.getImplementation());
}

TEST_P(EveryAdder, AppendsBeforeItReturns) {
  std::size_t const before = list().size();
  LumoBaseElement* const added = add();
  ASSERT_EQ(list().size(), before + 1);
  EXPECT_EQ(list().back(), added);
}

TEST_P(EveryAdder, AppendsEvenWhereOneExists) {
  LumoBaseElement* const first = add();
  LumoBaseElement* const second = add();
  ASSERT_NE(first, second);
  std::vector<LumoBaseElement*> const found = list();
  if (found.size() == 1) {
    EXPECT_EQ(found.front(), first) << "a single getter gives the first";
  } else {
    ASSERT_GE(found.size(), 2U);
    EXPECT_EQ(found.at(found.size() - 2), first);
    EXPECT_EQ(found.back(), second);
  }
  xercesc::DOMNode const* node = first->getImplementation();
  while (node != nullptr && node != second->getImplementation()) node = node->getNextSibling();
  EXPECT_EQ(node, second->getImplementation()) << "the second stands behind the first";
}

TEST_P(EveryAdder, TheGetterAskedTwiceGivesTheSameObjects) {
  add();
  EXPECT_EQ(list(), list());
}

TEST_P(EveryAdder, HangsTheObjectOnTheNodeUnderItsToken) {
  LumoBaseElement* const added = add();
  EXPECT_EQ(objectOn(added->getImplementation()), added);
}

TEST_P(EveryAdder, IsOfTheSameClassWhenParsedAgain) {
  LumoBaseElement* const added = add();
  ParsedChart parsed(document.AsUTF8());
  LumoBaseElement* const again =
      objectOn(firstOf(parsed.chart(), added->getImplementation()->getLocalName()));
  ASSERT_NE(again, nullptr);
  // The first of its name may be another one, as the root's extension; what counts is its own kind of parent.
  std::string const parentName = utf8(parent.getImplementation()->getLocalName());
  if (utf8(again->getImplementation()->getParentNode()->getLocalName()) == parentName) {
    EXPECT_EQ(typeid(*again), typeid(*added));
  }
}

INSTANTIATE_TEST_SUITE_P(Model, EveryAdder, testing::ValuesIn(adders()), rowName<Adder>);

class EveryRemover : public testing::TestWithParam<Remover> {
 protected:
  LumoDocument document;
  LumoBaseElement& parent = *GetParam().make(*document.getVisualization());
};

TEST_P(EveryRemover, TakesAllOfThemAway) {
  Names const before = childNames(parent);
  GetParam().add(parent);
  GetParam().add(parent);
  ASSERT_EQ(childNames(parent).size(), before.size() + 2);
  GetParam().remove(parent);
  EXPECT_EQ(childNames(parent), before);
}

TEST_P(EveryRemover, DoesNothingWhereThereAreNone) {
  GetParam().remove(parent);
  Names const before = childNames(parent);
  GetParam().remove(parent);
  EXPECT_EQ(childNames(parent), before);
}

TEST_P(EveryRemover, LeavesOtherChildren) {
  xercesc::DOMDocument& dom = *parent.getImplementation()->getOwnerDocument();
  parent.getImplementation()->appendChild(dom.createElementNS(nullptr, u"other"));
  GetParam().add(parent);
  GetParam().remove(parent);
  EXPECT_EQ(childNames(parent).back(), "other");
}

TEST_P(EveryRemover, LeavesRemovedObjectsReadable) {
  LumoBaseElement* const removed = GetParam().add(parent);
  removed->setId(u"removed");
  GetParam().remove(parent);
  EXPECT_EQ(utf8(removed->getId()), "removed");
  EXPECT_EQ(removed->getImplementation()->getParentNode(), nullptr);
}

TEST_P(EveryRemover, WithdrawsTheIdsOfWhatItRemoves) {
  LumoBaseElement* const removed = GetParam().add(parent);
  removed->setId(u"removed");
  GetParam().remove(parent);
  EXPECT_FALSE(parent.doesIdExist(u"removed"));
  EXPECT_EQ(parent.getImplementation()->getOwnerDocument()->getElementById(u"removed"), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Model, EveryRemover, testing::ValuesIn(removers()), rowName<Remover>);

class Children : public testing::Test {
 protected:
  LumoDocument document;
  LumoVisualization& chart = *document.getVisualization();
};

TEST_F(Children, ListsAreInDocumentOrder) {
  ParsedChart parsed(
      chartText("<style id='b'/><graph/><style id='a'/><style id='c'><style id='inner'/></style>"));
  Names ids;
  for (LumoStyle const* style : parsed.chart().getStyles()) ids.push_back(utf8(style->getId()));
  EXPECT_EQ(ids, (Names{"b", "a", "c"}));
}

TEST_F(Children, ListsHoldDirectChildrenOnly) {
  styleIn(chart).addStyle();
  EXPECT_EQ(chart.getStyles().size(), 1U);
}

TEST_F(Children, AbsentSinglesAreNull) {
  EXPECT_EQ(chart.getExtension(), nullptr);
  EXPECT_EQ(axisIn(chart).getLabel(), nullptr);
  EXPECT_EQ(pointIn(chart).getZ(), nullptr);
}

TEST_F(Children, CoordinatesPastTheEndAreNull) {
  LumoGraph& graph = graphIn(chart);
  EXPECT_EQ(graph.getCoordinates(0), nullptr);
  LumoCoordinates* const first = graph.addCoordinates(u"coordinates0");
  LumoCoordinates* const second = graph.addCoordinates(u"coordinates1");
  EXPECT_EQ(graph.getCoordinates(0), first);
  EXPECT_EQ(graph.getCoordinates(1), second);
  EXPECT_EQ(graph.getCoordinates(2), nullptr);
}

TEST_F(Children, OneStyleByIsRemovedByItsPosition) {
  LumoPoint& point = pointIn(chart);
  LumoStyleBy* const first = point.addStyleBy(nullptr);
  point.addStyleBy(nullptr);
  LumoStyleBy* const third = point.addStyleBy(nullptr);
  point.removeStyleBy(1);
  EXPECT_EQ(point.getStyleBys(), (std::vector<LumoStyleBy*>{first, third}));
}

TEST_F(Children, RemovingAStyleByPastTheEndDoesNothing) {
  LumoPoint& point = pointIn(chart);
  LumoStyleBy* const only = point.addStyleBy(nullptr);
  point.removeStyleBy(1);
  point.removeStyleBy(static_cast<unsigned long>(-1));
  EXPECT_EQ(point.getStyleBys(), std::vector<LumoStyleBy*>{only});
}

TEST_F(Children, AStyleByTakesOverTheVariableOfAnAesthetic) {
  LumoPoint& point = pointIn(chart);
  LumoColor& color = *point.addColor();
  color.setVariable(variableIn(chart, u"v"));
  EXPECT_EQ(utf8(point.addStyleBy(&color)->getAttribute(u"variable")), "v");
}

TEST_F(Children, AFormatIsCopiedDeeplyAndTheDonorKeepsItsOwn) {
  LumoFormat& donor = formatIn(chart);
  donor.setSuffix(u"%");
  donor.addRelabel(u"1", u"one");
  LumoSourceVariable& receiver = variableIn(chart, u"receiver");
  LumoFormat* const copy = receiver.addFormat(donor);
  ASSERT_NE(copy, nullptr);
  donor.setSuffix(u"changed");
  donor.removeRelabels();
  EXPECT_EQ(receiver.getFormats(), std::vector<LumoFormat*>{copy});
  EXPECT_EQ(utf8(copy->getSuffix()), "%");
  ASSERT_EQ(copy->getRelabels().size(), 1U);
  EXPECT_EQ(utf8(copy->getRelabels().front()->getTo()), "one");
}

TEST_F(Children, AFormatOfAnotherChartIsCopied) {
  LumoDocument other;
  LumoFormat& donor = formatIn(*other.getVisualization());
  donor.addRelabel(u"1", u"one");
  LumoFormat* const copy = variableIn(chart).addFormat(donor);
  EXPECT_EQ(copy->getVisualization(), &chart);
  EXPECT_EQ(copy->getRelabels().size(), 1U);
}

TEST_F(Children, LegendTargetsKeepTheirObject) {
  LumoPoint& point = pointIn(chart);
  LumoLegendTarget& target = *chart.addLegend(u"legend")->addLegendTarget(u"legendTarget_0", point);
  EXPECT_EQ(target.getTarget(), &point);
  EXPECT_EQ(utf8(target.getId()), "legendTarget_0");
  EXPECT_EQ(utf8(target.getAttribute(u"target")), "point");
}

TEST_F(Children, DescriptionGroupsKeepTheirObject) {
  LumoPoint& point = pointIn(chart);
  LumoDescriptionGroup const& group = *labelIn(chart).addDescriptionGroup(point);
  EXPECT_EQ(group.getTarget(), &point);
}

TEST_F(Children, TextsAndDescriptionsOfAGroupKeepTheirOrder) {
  LumoDescriptionGroup& group = *labelIn(chart).addDescriptionGroup(pointIn(chart));
  group.addText();
  group.addDescription(LumoDescription::Name5);
  group.addText();
  EXPECT_EQ(childNames(group), (Names{"text", "description", "text"}));
}

TEST_F(Children, ADomainOfTheWrongKindStillTakesWhatIsWritten) {
  CTDomainType& domain = *chart.addCategoricalDomain(u"d");
  domain.setDate(true);
  domain.addRange()->setMin(u"0");
  domain.addFormat();
  EXPECT_EQ(childNames(domain), (Names{"range", "format"}));
  domain.removeRanges();
  EXPECT_EQ(childNames(domain), Names{"format"});
}

TEST_F(Children, UnknownElementsAreKeptWithPlainObjects) {
  ParsedChart parsed(chartText("<unheard><of a='1'/></unheard>"));
  LumoBaseElement* const unknown = objectOn(firstOf(parsed.chart(), u"unheard"));
  ASSERT_NE(unknown, nullptr);
  EXPECT_EQ(typeid(*unknown), typeid(LumoBaseElement));
  EXPECT_NE(parsed.document().AsUTF8().find("<unheard><of a=\"1\"/></unheard>"), std::string::npos);
}

TEST_F(Children, AnExtensionIsOfTheKindOfItsParent) {
  ParsedChart parsed(
      chartText("<extension/><derivedVariable><extension/></derivedVariable>"
                "<styleCycle><extension/></styleCycle>"));
  EXPECT_NE(parsed.chart().getExtension(), nullptr);
  EXPECT_NE(parsed.chart().getDerivedVariables().at(0)->getExtension(), nullptr);
  LumoExtension const& plain = *parsed.chart().getStyleCycles().at(0)->getExtension();
  EXPECT_EQ(typeid(plain), typeid(LumoExtension));
}

TEST_F(Children, ElementTypesAreToldByCast) {
  LumoGraph& graph = graphIn(chart);
  CTElementType* const line = graph.addLine(u"line");
  CTElementType* const area = graph.addArea(u"area");
  EXPECT_NE(dynamic_cast<LumoLine*>(line), nullptr);
  EXPECT_EQ(dynamic_cast<LumoLine*>(area), nullptr);
  EXPECT_NE(dynamic_cast<LumoArea*>(area), nullptr);
}

class Texts : public Children {
 protected:
  CTTextType& text = *labelIn(chart).addText();
};

TEST_F(Texts, AreTheContentOfTheElement) {
  text.setText(u"A < B");
  EXPECT_EQ(utf8(text.getText()), "A < B");
  EXPECT_NE(text.AsUTF8().find(">A &lt; B</text>"), std::string::npos);
}

TEST_F(Texts, ReadAsNullWhereThereIsNone) { EXPECT_EQ(text.getText(), nullptr); }

TEST_F(Texts, AreReplaced) {
  text.setText(u"first");
  text.setText(u"second");
  EXPECT_EQ(utf8(text.getText()), "second");
  EXPECT_EQ(text.getImplementation()->getChildNodes()->getLength(), 1U);
}

TEST_F(Texts, AreTakenAwayByNull) {
  text.setText(u"first");
  text.setText(nullptr);
  EXPECT_EQ(text.getText(), nullptr);
}

TEST_F(Texts, MayBeEmpty) {
  text.setText(u"");
  EXPECT_EQ(utf8(text.getText()), "");
}

TEST_F(Texts, TakeWhatTheirOwnGetterGave) {
  text.setText(u"first;second");
  text.setText(text.getText() + 6);
  EXPECT_EQ(utf8(text.getText()), "second");
}

TEST_F(Texts, AreReadFromNodesMadePastTheModel) {
  LumoCategories& categories = *chart.addCategoricalDomain(u"d")->addCategories();
  xercesc::DOMElement& element = *categories.getImplementation();
  element.appendChild(element.getOwnerDocument()->createTextNode(u"a"));
  EXPECT_EQ(utf8(categories.getText()), "a");
  categories.setText(u"a;b");
  EXPECT_EQ(utf8(categories.getText()), "a;b");
}

TEST_F(Texts, AreOneAlthoughTheDomHoldsPieces) {
  ParsedChart parsed(
      chartText("<labelFrame><label><text>a<!-- no text --><![CDATA[<b>]]>c</text></label></labelFrame>"));
  CTTextType& parsedText = *parsed.chart().getLabelFrames().at(0)->getLabel()->getTexts().at(0);
  EXPECT_EQ(utf8(parsedText.getText()), "a<b>c");
  parsedText.setText(u"whole");
  EXPECT_EQ(utf8(parsedText.getText()), "whole");
}

TEST_F(Texts, InPiecesStayWhereTheyAreWhileTheyAreRight) {
  ParsedChart parsed(
      chartText("<labelFrame><label><text>a text that is long<!-- -->enough</text></label></labelFrame>"));
  CTTextType const& parsedText = *parsed.chart().getLabelFrames().at(0)->getLabel()->getTexts().at(0);
  char16_t const* const first = parsedText.getText();
  EXPECT_EQ(parsedText.getText(), first);
}

}  // namespace
