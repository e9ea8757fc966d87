#include "operations.h"

void describeEverything(LumoVisualization& chart) {
  for (Setter const& row : setters()) row.apply(chart);
  for (TextProperty const& row : textProperties()) row.set(*row.make(chart), u"some text");
  for (ReferenceProperty const& row : referenceProperties()) {
    LumoBaseElement& element = *row.make(chart);
    row.set(element, *row.makeTarget(chart, u"target"));
  }
  for (Adder const& row : adders()) row.add(*row.make(chart));
  LumoStyle& style = styleIn(chart, u"full");
  for (StyleRemover const& row : styleRemovers()) {
    // "1" is good for a number, a truth value and a text.
    for (char16_t const* const attribute : row.attributes)
      style.getImplementation()->setAttribute(attribute, u"1");
  }
  style.addExtension()->setAttribute(u"anything", u"at all");
  LumoCategories& categories = *chart.addCategoricalDomain(u"categorical")->addCategories();
  categories.setText(u"a;b");
}
