#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"
#include "labels.h"

#include <xercesc/dom/DOMDocument.hpp>

#include <memory>
#include <string>
#include <vector>

/// Hears of each change of a document before it happens. What it throws leaves the operation that was about
/// to make the change; the document stays as it was before that change, and usable.
class LUMO_API LumoChangeObserver {
 public:
  /// What is about to change.
  enum class Kind {
    AddElement,
    RemoveElement,
    MoveElement,
    SetAttribute,
    RemoveAttribute,
    SetText,
    SetComment
  };

  virtual ~LumoChangeObserver();
  /// `element` is the one that changes: the parent for AddElement, else the element removed, moved or
  /// written.
  virtual void beforeChange(Kind kind, LumoBaseElement const& element) = 0;
};

/// Owns the object of every element of one chart; they end with it. Holds the XML library ready by itself: a
/// document may be made before anybody initialised that, and may outlive its last termination by others.
class LUMO_API LumoDocument {
 public:
  /// A new chart with an empty root element.
  LumoDocument();
  /// Stands on a parsed chart. The DOM stays the caller's and must outlive the document; its root element is
  /// the visualization, whatever its name. Throws std::invalid_argument when `document` is null.
  explicit LumoDocument(xercesc::DOMDocument* document);
  LumoDocument(LumoDocument const&) = delete;
  LumoDocument& operator=(LumoDocument const&) = delete;
  virtual ~LumoDocument();

  /// The root element; null only on a DOM that has none.
  virtual LumoVisualization* getVisualization() const;
  /// The chart's text: the XML declaration in UTF-8, then everything in the DOM. What XML cannot hold
  /// (control characters, half a surrogate pair) is dropped, so that it always parses again.
  virtual std::string AsUTF8() const;

  /// Holds the XML library ready for the rest of the process, however often others end their use of it. Every
  /// constructor does so by itself.
  static void holdXmlLibrary();

  /// The DOM document, which this keeps or, where it was given one, its caller.
  xercesc::DOMDocument* getImplementation() const noexcept;
  /// Not owned; null for none.
  void setChangeObserver(LumoChangeObserver* observer) noexcept;

  /// Copies an element of any DOM, with everything in it, to the end of `parent`, an element of this
  /// document.
  LumoBaseElement* importElement(xercesc::DOMElement const& source, LumoBaseElement& parent);
  /// The object of an element of this DOM, made now with those of its descendants if the element came into
  /// the tree past the model. Null for a null element or one of another DOM.
  LumoBaseElement* find(xercesc::DOMElement* element);

 private:
  std::unique_ptr<LumoTree> tree_;
};

/// The root of a chart.
class LUMO_API LumoVisualization : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoVisualization() override;

  /// @{
  /// Each appends a child of its kind. An id may be null.
  LumoCategoricalDomain* addCategoricalDomain(char16_t const* id);
  LumoContainer* addContainer(char16_t const* id);
  LumoDatabaseSource* addDatabaseSource(char16_t const* id);
  LumoDelimitedFileSource* addDelimitedFileSource(char16_t const* id);
  LumoDerivedVariable* addDerivedVariable(char16_t const* id);
  LumoEmbeddedSource* addEmbeddedSource(char16_t const* id);
  LumoExpressionVariable* addExpressionVariable(char16_t const* id);
  LumoExtensionVis* addExtension();
  LumoGraph* addGraph(char16_t const* id);
  LumoIntervalDomain* addIntervalDomain(char16_t const* id);
  LumoLabelFrame* addLabelFrame(char16_t const* id);
  LumoLegend* addLegend(char16_t const* id);
  LumoLocation* addLocation(LumoLocation::ENUM_part part);
  LumoSourceVariable* addSourceVariable(char16_t const* id);
  LumoStreamingSource* addStreamingSource(char16_t const* id);
  LumoStyle* addStyle();
  LumoStyleCycle* addStyleCycle(char16_t const* id);
  LumoSwingController* addSwingController();
  LumoUserSource* addUserSource(char16_t const* id);
  /// @}

  /// @{
  /// The children of a kind, in document order. Of a kind that stands alone the first one, or null.
  std::vector<LumoCategoricalDomain*> getCategoricalDomains() const;
  std::vector<LumoContainer*> getContainers() const;
  std::vector<LumoDatabaseSource*> getDatabaseSources() const;
  std::vector<LumoDelimitedFileSource*> getDelimitedFileSources() const;
  std::vector<LumoDerivedVariable*> getDerivedVariables() const;
  std::vector<LumoEmbeddedSource*> getEmbeddedSources() const;
  std::vector<LumoExpressionVariable*> getExpressionVariables() const;
  LumoExtensionVis* getExtension() const;
  std::vector<LumoGraph*> getGraphs() const;
  std::vector<LumoIntervalDomain*> getIntervalDomains() const;
  std::vector<LumoLabelFrame*> getLabelFrames() const;
  std::vector<LumoLegend*> getLegends() const;
  std::vector<LumoLocation*> getLocations() const;
  std::vector<LumoSourceVariable*> getSourceVariables() const;
  std::vector<LumoStreamingSource*> getStreamingSources() const;
  std::vector<LumoStyleCycle*> getStyleCycles() const;
  std::vector<LumoStyle*> getStyles() const;
  std::vector<LumoSwingController*> getSwingControllers() const;
  std::vector<LumoUserSource*> getUserSources() const;
  /// @}

  /// Detaches all children of that kind.
  void removeLocations();

  /// The language of the chart, such as "en-US".
  char16_t const* getLang() const;
  /// The version of the markup, 2.8 for charts of today; 0 where nothing was set.
  double getVersion() const;
  /// Who made the chart: a free text.
  void setCreator(char16_t const* creator);
  /// The day on which it was made, as year-month-day.
  void setDate(char16_t const* date);
  /// What the chart shows, in words.
  void setDescription(char16_t const* description);
  /// The language of the chart, such as "en-US".
  void setLang(char16_t const* lang);
  /// The name of the chart.
  void setName(char16_t const* name);
  /// The kind of chart, a number of the client as text.
  void setType(char16_t const* type);
  /// The version of the markup, 2.8 for charts of today.
  void setVersion(double version);

  /// Moves the graphs, label frames and legends of all containers, nested ones too, in document order to the
  /// end of the visualization. The containers stay, with what else they hold.
  void reparentContainerChildren();
  /// Moves the visualization's own legends to the end of `container`.
  void reparentLegendChildren(LumoContainer const& container);
  /// Moves every style with an id that stands elsewhere to the end of `container`, in document order. Styles
  /// within a cycle are the cycle's values and stay, and so do `container` itself and the styles that hold
  /// it.
  void reparentStyles(LumoStyle const& container);
};

/// Tells a client to run a function of its own on a part of the chart.
class LUMO_API LumoSwingController : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoSwingController() override;

  /// The client's name of the function.
  void setFunction(char16_t const* function);
  /// The id of the part, as text.
  void setTarget(char16_t const* target);
};
