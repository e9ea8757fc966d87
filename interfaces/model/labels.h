#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <vector>

/// Ties one side or extent of a part to a place.
class LUMO_API LumoLocation : public LumoBaseElement {
 public:
  /// The side or extent that is tied.
  enum ENUM_part : int {
    PartLeft = 0,
    PartRight = 1,
    PartTop = 2,
    PartBottom = 3,
    PartWidth = 4,
    PartHeight = 5
  };
  /// MethodValue takes the text of setValue, Method3 goes by a target.
  enum ENUM_method : int { MethodValue = 0, Method1 = 1, Method3 = 3 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoLocation() override;

  /// What decides on the place.
  ENUM_method getMethod() const;
  /// The side or extent; it is chosen when the location is added.
  ENUM_part getPart() const;
  /// What decides on the place.
  void setMethod(ENUM_method method);
  /// The part of the chart that the side is tied to.
  void setTarget(LumoGraph const& graph);
  /// The part of the chart that the side is tied to.
  void setTarget(LumoLabelFrame const& frame);
  /// A length with its unit, or a percentage.
  void setValue(char16_t const* value);
};

/// What elements with a text share.
class LUMO_API CTTextType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTTextType() override;

  /// All text of the element, null when it has none; valid until the text changes.
  char16_t const* getText() const;
  /// Null removes the text; an empty one reads back as empty.
  void setText(char16_t const* text);
};

/// One piece of a label.
class LUMO_API LumoText : public CTTextType {
 public:
  using CTTextType::CTTextType;
  ~LumoText() override;
};

/// What labels share.
class LUMO_API CTLabelType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTLabelType() override;

  /// Appends a group of figures about that element.
  LumoDescriptionGroup* addDescriptionGroup(LumoBaseElement const& target);
  /// Appends a child of that kind.
  LumoText* addText();

  /// @{
  /// The children of a kind, in document order.
  std::vector<LumoDescriptionGroup*> getDescriptionGroups() const;
  std::vector<LumoText*> getTexts() const;
  /// @}

  /// Detaches all children of that kind.
  void removeTexts();

  /// The style of the text.
  LumoStyle* getStyle() const;
  /// The style of the frame behind the text.
  LumoStyle* getTextFrameStyle() const;
  /// The style of the text.
  void setStyle(LumoStyle const& style);
  /// The style of the frame behind the text.
  void setTextFrameStyle(LumoStyle const& style);
};

/// Text and figures of an axis, a legend or a frame.
class LUMO_API LumoLabel : public CTLabelType {
 public:
  /// What a label is to the chart.
  enum ENUM_purpose : int {
    PurposeNone = 0,
    PurposeTitle1 = 1,
    PurposeTitle2 = 2,
    PurposeSubtitle = 3,
    PurposeFootnote1 = 4,
    PurposeFootnote2 = 5,
    PurposeFootnote3 = 6
  };

  using CTLabelType::CTLabelType;
  ~LumoLabel() override;

  /// What the label is to the chart; `PurposeNone` where nothing was set.
  ENUM_purpose getPurpose() const;
  /// What the label is to the chart.
  void setPurpose(ENUM_purpose purpose);
};

/// A box on the page that holds a label: a title, a footnote, a frame.
class LUMO_API LumoLabelFrame : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoLabelFrame() override;

  /// @{
  /// Each appends a child of its kind.
  LumoExtension* addExtension();
  LumoLabel* addLabel();
  LumoLocation* addLocation(LumoLocation::ENUM_part part);
  /// @}

  /// @{
  /// The children of a kind, in document order. Of a kind that stands alone the first one, or null.
  LumoExtension* getExtension() const;
  LumoLabel* getLabel() const;
  std::vector<LumoLocation*> getLocations() const;
  /// @}

  /// Detaches all children of that kind.
  void removeLocations();

  /// The style of the box.
  LumoStyle* getStyle() const;
  /// The style of the box.
  void setStyle(LumoStyle const& style);
};

/// A figure of an element's statistic, shown in a label.
class LUMO_API LumoDescription : public LumoBaseElement {
 public:
  /// Which figure; a number of the client.
  enum ENUM_name : int { Name5 = 5, Name6 = 6, Name7 = 7 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoDescription() override;

  /// Appends a child of that kind.
  LumoFormat* addFormat();
  /// The children of that kind, in document order.
  std::vector<LumoFormat*> getFormats() const;
};

/// Texts and figures about one element of the chart, in the order in which they are read.
class LUMO_API LumoDescriptionGroup : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoDescriptionGroup() override;

  /// Appends a figure.
  LumoDescription* addDescription(LumoDescription::ENUM_name name);
  /// Appends a child of that kind.
  LumoText* addText();
  /// The children of that kind, in document order.
  std::vector<LumoDescription*> getDescriptions() const;
  /// The element that has the statistic.
  LumoBaseElement* getTarget() const;
  /// The children of that kind, in document order.
  std::vector<LumoText*> getTexts() const;
};

/// Explains elements and aesthetics.
class LUMO_API LumoLegend : public LumoBaseElement {
 public:
  /// The name of the element in the markup.
  static char16_t const _UTF_legend[];
  /// The name of the element in the markup.
  static char16_t const* getElementName() noexcept;

  using LumoBaseElement::LumoBaseElement;
  ~LumoLegend() override;

  /// Appends a child of that kind.
  LumoLabel* addLabel();
  /// Appends what the legend explains: an element or an aesthetic.
  LumoLegendTarget* addLegendTarget(char16_t const* id, LumoBaseElement const& target);
  /// Appends a child of that kind.
  LumoLocation* addLocation(LumoLocation::ENUM_part part);

  /// @{
  /// The children of a kind, in document order.
  std::vector<LumoLabel*> getLabels() const;
  std::vector<LumoLegendTarget*> getLegendTargets() const;
  std::vector<LumoLocation*> getLocations() const;
  /// @}

  /// Detaches all children of that kind.
  void removeLocations();

  /// The style of the box.
  LumoStyle* getStyle() const;
  /// The style of the entries' texts.
  LumoStyle* getTickTextStyle() const;
  /// The style of the box.
  void setStyle(LumoStyle const& style);
  /// The style of the entries' texts.
  void setTickTextStyle(LumoStyle const& style);
};

/// What a legend explains: an element or an aesthetic.
class LUMO_API LumoLegendTarget : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoLegendTarget() override;

  /// The element or the aesthetic.
  LumoBaseElement* getTarget() const;
};

/// A part of the page that holds graphs, label frames and legends.
class LUMO_API LumoContainer : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoContainer() override;

  /// @{
  /// Each appends a child of its kind. An id may be null.
  LumoGraph* addGraph(char16_t const* id);
  LumoLabelFrame* addLabelFrame(char16_t const* id);
  LumoLegend* addLegend(char16_t const* id);
  LumoLocation* addLocation(LumoLocation::ENUM_part part);
  /// @}

  /// @{
  /// The children of a kind, in document order.
  std::vector<LumoGraph*> getGraphs() const;
  std::vector<LumoLabelFrame*> getLabelFrames() const;
  std::vector<LumoLegend*> getLegends() const;
  std::vector<LumoLocation*> getLocations() const;
  /// @}

  /// Detaches all children of that kind.
  void removeLocations();
};
