#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"

#include <vector>

/// Ties one side or extent of a part to a place.
class LUMO_API LumoLocation : public LumoBaseElement {
 public:
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

  ENUM_method getMethod() const;
  ENUM_part getPart() const;
  void setMethod(ENUM_method method);
  void setTarget(LumoGraph const& graph);
  void setTarget(LumoLabelFrame const& frame);
  /// A length with its unit, or a percentage.
  void setValue(char16_t const* value);
};

class LUMO_API CTTextType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTTextType() override;

  /// All text of the element, null when it has none; valid until the text changes.
  char16_t const* getText() const;
  /// Null removes the text; an empty one reads back as empty.
  void setText(char16_t const* text);
};

class LUMO_API LumoText : public CTTextType {
 public:
  using CTTextType::CTTextType;
  ~LumoText() override;
};

class LUMO_API CTLabelType : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~CTLabelType() override;

  LumoDescriptionGroup* addDescriptionGroup(LumoBaseElement const& target);
  LumoText* addText();
  std::vector<LumoDescriptionGroup*> getDescriptionGroups() const;
  std::vector<LumoText*> getTexts() const;
  void removeTexts();

  LumoStyle* getStyle() const;
  LumoStyle* getTextFrameStyle() const;
  void setStyle(LumoStyle const& style);
  void setTextFrameStyle(LumoStyle const& style);
};

class LUMO_API LumoLabel : public CTLabelType {
 public:
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

  ENUM_purpose getPurpose() const;
  void setPurpose(ENUM_purpose purpose);
};

class LUMO_API LumoLabelFrame : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoLabelFrame() override;

  LumoExtension* addExtension();
  LumoLabel* addLabel();
  LumoLocation* addLocation(LumoLocation::ENUM_part part);
  LumoExtension* getExtension() const;
  LumoLabel* getLabel() const;
  std::vector<LumoLocation*> getLocations() const;
  void removeLocations();

  LumoStyle* getStyle() const;
  void setStyle(LumoStyle const& style);
};

/// A figure of an element's statistic, shown in a label.
class LUMO_API LumoDescription : public LumoBaseElement {
 public:
  enum ENUM_name : int { Name5 = 5, Name6 = 6, Name7 = 7 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoDescription() override;

  LumoFormat* addFormat();
  std::vector<LumoFormat*> getFormats() const;
};

/// Texts and figures about one element of the chart, in the order in which they are read.
class LUMO_API LumoDescriptionGroup : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoDescriptionGroup() override;

  LumoDescription* addDescription(LumoDescription::ENUM_name name);
  LumoText* addText();
  std::vector<LumoDescription*> getDescriptions() const;
  LumoBaseElement* getTarget() const;
  std::vector<LumoText*> getTexts() const;
};

class LUMO_API LumoLegend : public LumoBaseElement {
 public:
  static char16_t const _UTF_legend[];
  static char16_t const* getElementName() noexcept;

  using LumoBaseElement::LumoBaseElement;
  ~LumoLegend() override;

  LumoLabel* addLabel();
  LumoLegendTarget* addLegendTarget(char16_t const* id, LumoBaseElement const& target);
  LumoLocation* addLocation(LumoLocation::ENUM_part part);
  std::vector<LumoLabel*> getLabels() const;
  std::vector<LumoLegendTarget*> getLegendTargets() const;
  std::vector<LumoLocation*> getLocations() const;
  void removeLocations();

  LumoStyle* getStyle() const;
  LumoStyle* getTickTextStyle() const;
  void setStyle(LumoStyle const& style);
  void setTickTextStyle(LumoStyle const& style);
};

/// What a legend explains: an element or an aesthetic.
class LUMO_API LumoLegendTarget : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoLegendTarget() override;

  LumoBaseElement* getTarget() const;
};

/// A part of the page that holds graphs, label frames and legends.
class LUMO_API LumoContainer : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoContainer() override;

  LumoGraph* addGraph(char16_t const* id);
  LumoLabelFrame* addLabelFrame(char16_t const* id);
  LumoLegend* addLegend(char16_t const* id);
  LumoLocation* addLocation(LumoLocation::ENUM_part part);
  std::vector<LumoGraph*> getGraphs() const;
  std::vector<LumoLabelFrame*> getLabelFrames() const;
  std::vector<LumoLegend*> getLegends() const;
  std::vector<LumoLocation*> getLocations() const;
  void removeLocations();
};
