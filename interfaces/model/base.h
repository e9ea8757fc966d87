#pragma once

#include "export.h"
#include "forward.h"

#include <xercesc/dom/DOMElement.hpp>

#include <string>

/// One element of a chart. The object belongs to its LumoDocument and lives as long as that does; nobody else
/// frees it. A removed element is detached from the tree, and its object stays readable.
///
/// Attributes: an absent one reads as null, setting null removes it. A text that a getter returns is valid
/// until that attribute is set again. References: setting one names the target's id in the attribute, follows
/// the id when it changes, and reading it gives the very object that was set; text that was parsed gives the
/// first element of that id in document order, and null where there is none. Adders append always and return
/// the new element, never null; the getter of a single child gives the first one, or null.
class LUMO_API LumoBaseElement {
 public:
  /// For the model itself: only it can make a binding.
  explicit LumoBaseElement(LumoBinding const& binding) noexcept;
  LumoBaseElement(LumoBaseElement const&) = delete;
  LumoBaseElement& operator=(LumoBaseElement const&) = delete;
  virtual ~LumoBaseElement();

  /// The element's text, without an XML declaration. It declares the namespaces that it needs.
  virtual std::string AsUTF8() const;

  /// The node in the DOM, which the document keeps; never null.
  xercesc::DOMElement* getImplementation() const noexcept;
  /// The root element of the document; null for an element that no document of the model owns.
  LumoVisualization* getVisualization() const noexcept;

  /// The text of any attribute, by its name in the markup; null where it is absent.
  char16_t const* getAttribute(char16_t const* name) const;
  /// Null where there is none.
  char16_t const* getId() const;
  /// Renames every reference to this element too. Ids need not be unique.
  void setId(char16_t const* id);

  /// Is there an element of this id anywhere in the tree?
  bool doesIdExist(char16_t const* id) const;
  /// The first style of this id in document order, or null.
  LumoStyle* getStyleById(char16_t const* id) const;

  /// The comment at the head of the element. Replaces an earlier one there; null or an empty text removes it.
  void setComment(char16_t const* text);

 private:
  friend struct LumoBinding;

  xercesc::DOMElement* element_;
  LumoTree* tree_;
  LumoLinks* links_ = nullptr;
};

/// A free set of named texts.
class LUMO_API LumoExtension : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoExtension() override;

  /// Throws a DOM exception when the name is no XML name.
  void setAttribute(char16_t const* name, char16_t const* value);
};

/// What a variable stands for when its values are a computed statistic.
class LUMO_API LumoExtensionSV : public LumoExtension {
 public:
  /// The kinds of statistic are numbers of the client, from 1 to 31.
  enum ENUM_statistic : int { StatisticNone = 0, StatisticFirst = 1, StatisticLast = 31 };

  using LumoExtension::LumoExtension;
  ~LumoExtensionSV() override;

  /// Upper end of a statistic over a range, in data units.
  void setMax(double max);
  /// Lower end of a statistic over a range, in data units.
  void setMin(double min);
  /// The kind of statistic.
  void setStatistic(ENUM_statistic statistic);
  /// The argument of a statistic with one, such as a percentile.
  void setValue(double value);
  /// Whether the data are midpoints of groups.
  void setValuesAreGroupedMidpoints(bool grouped);
};

/// Names the special parts of a chart: its titles, footnotes and legends, and the repository of style cycles.
/// The `remove` operations drop the reference only; the part stays in the chart.
class LUMO_API LumoExtensionVis : public LumoExtension {
 public:
  using LumoExtension::LumoExtension;
  ~LumoExtensionVis() override;

  using LumoExtension::setAttribute;
  /// As the form above.
  void setAttribute(ChartString const& name, ChartString const& value);

  /// @{
  /// The frames of the titles and footnotes; null where the chart has none.
  LumoLabelFrame* getTitle1() const;
  LumoLabelFrame* getTitle2() const;
  LumoLabelFrame* getSubtitle() const;
  LumoLabelFrame* getFootnote1() const;
  LumoLabelFrame* getFootnote2() const;
  LumoLabelFrame* getFootnote3() const;
  /// @}

  /// @{
  /// Each names a frame of the chart as that title or footnote.
  void setTitle1(LumoLabelFrame const& frame);
  void setTitle2(LumoLabelFrame const& frame);
  void setSubtitle(LumoLabelFrame const& frame);
  void setFootnote1(LumoLabelFrame const& frame);
  void setFootnote2(LumoLabelFrame const& frame);
  void setFootnote3(LumoLabelFrame const& frame);
  /// @}

  /// @{
  /// Each drops the reference only.
  void removeTitle1();
  void removeTitle2();
  void removeFootnote1();
  /// @}

  /// Slots count from 1 and have no upper bound; an empty one reads as null.
  LumoLegend* getLegend(unsigned int slot) const;
  /// Puts a legend into a slot.
  void setLegend(unsigned int slot, LumoLegend const& legend);

  /// @{
  /// The first two slots.
  LumoLegend* getLegend1() const;
  LumoLegend* getLegend2() const;
  void setLegend1(LumoLegend const& legend);
  void setLegend2(LumoLegend const& legend);
  /// @}

  /// @{
  /// The frame of a statistics summary, which count from 0; null where there is none.
  LumoLabelFrame* getStatisticsSummary(long index) const;
  void setStatisticsSummary(LumoLabelFrame const& frame, long index);
  /// @}

  /// @{
  /// The chart's repository of style cycles; null where there is none.
  LumoStyleCycle* getStyleCycleRepository() const;
  void setStyleCycleRepository(LumoStyleCycle const& cycle);
  /// @}

  /// Whether all locations are to stay as they are: the host then lays no frames out.
  void setPreserveLocations(bool preserve);
};
