#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"
#include "labels.h"

#include <vector>

/// The scale of a dimension.
class LUMO_API LumoScale : public LumoBaseElement {
 public:
  /// 1 linear, 2 logarithmic, 3 a power; 4 and 5 as 2 and 3, and symmetric around 0.
  enum ENUM_method : int { Method1 = 1, Method2 = 2, Method3 = 3, Method4 = 4, Method5 = 5 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoScale() override;

  /// Base of a logarithm, or exponent of a power.
  void setBase(double base);
  /// Whether the scale runs the other way.
  void setInvert(bool invert);
  /// How values become places.
  void setMethod(ENUM_method method);
  /// Where bars begin: a number, or a date along dates.
  void setOrigin(char16_t const* origin);
};

/// A graph: coordinates, elements, guides and panels.
class LUMO_API LumoGraph : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoGraph() override;

  /// @{
  /// Each appends a child of its kind. An id may be null.
  LumoArea* addArea(char16_t const* id);
  LumoCoordinates* addCoordinates(char16_t const* id);
  LumoEdge* addEdge(char16_t const* id);
  LumoFacetLayout* addFacetLayout();
  LumoFaceting* addFaceting();
  LumoFrameGuide* addFrameGuide();
  LumoFunctionGuide* addFunctionGuide();
  LumoInterval* addInterval(char16_t const* id);
  LumoLine* addLine(char16_t const* id);
  LumoLineGuide* addLineGuide();
  LumoLocation* addLocation(LumoLocation::ENUM_part part);
  LumoPath* addPath(char16_t const* id);
  LumoPlaneGuide* addPlaneGuide();
  LumoPoint* addPoint(char16_t const* id);
  LumoPolygon* addPolygon(char16_t const* id);
  LumoSchema* addSchema(char16_t const* id);
  /// @}

  /// The children of that kind, in document order.
  std::vector<LumoArea*> getAreas() const;
  /// The style of the area of the data.
  LumoStyle* getCellStyle() const;
  /// Null past the end.
  LumoCoordinates* getCoordinates(unsigned int index) const;

  /// @{
  /// The children of a kind, in document order. Of a kind that stands alone the first one, or null.
  std::vector<LumoCoordinates*> getCoordinatess() const;
  std::vector<LumoEdge*> getEdges() const;
  LumoFacetLayout* getFacetLayout() const;
  LumoFaceting* getFaceting() const;
  std::vector<LumoFrameGuide*> getFrameGuides() const;
  std::vector<LumoFunctionGuide*> getFunctionGuides() const;
  std::vector<LumoInterval*> getIntervals() const;
  std::vector<LumoLineGuide*> getLineGuides() const;
  std::vector<LumoLine*> getLines() const;
  std::vector<LumoLocation*> getLocations() const;
  std::vector<LumoPath*> getPaths() const;
  std::vector<LumoPlaneGuide*> getPlaneGuides() const;
  std::vector<LumoPoint*> getPoints() const;
  std::vector<LumoPolygon*> getPolygons() const;
  std::vector<LumoSchema*> getSchemas() const;
  /// @}

  /// Detaches all children of that kind.
  void removeLocations();
  /// The style of the area of the data.
  void setCellStyle(LumoStyle const& style);
};

/// The dimensions of a graph, in the order x, y, z, and the transforms laid over them.
class LUMO_API LumoCoordinates : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCoordinates() override;

  /// @{
  /// Each appends a child of its kind.
  LumoDimension* addDimension();
  LumoDimensionReference* addDimensionReference();
  LumoPolarTransform* addPolarTransform();
  LumoRectangularTransform* addRectangularTransform();
  LumoReflectionTransform* addReflectionTransform();
  LumoSameRatioTransform* addSameRatioTransform();
  LumoTransposeTransform* addTransposeTransform();
  /// @}

  /// @{
  /// The children of a kind, in document order.
  std::vector<LumoDimensionReference*> getDimensionReferences() const;
  std::vector<LumoDimension*> getDimensions() const;
  std::vector<LumoPolarTransform*> getPolarTransforms() const;
  std::vector<LumoRectangularTransform*> getRectangularTransforms() const;
  std::vector<LumoReflectionTransform*> getReflectionTransforms() const;
  std::vector<LumoSameRatioTransform*> getSameRatioTransforms() const;
  std::vector<LumoTransposeTransform*> getTransposeTransforms() const;
  /// @}

  /// Detaches all children of that kind.
  void removeSameRatioTransforms();
};

/// What is measured along one direction of the coordinates.
class LUMO_API LumoDimension : public LumoBaseElement {
 public:
  /// The name of the element in the markup.
  static char16_t const _UTF_dimension[];
  /// The name of the element in the markup.
  static char16_t const* getElementName() noexcept;

  using LumoBaseElement::LumoBaseElement;
  ~LumoDimension() override;

  /// @{
  /// Each appends a child of its kind.
  LumoAxis* addAxis();
  LumoScale* addScale(LumoScale::ENUM_method method);
  /// @}

  /// @{
  /// The children of a kind, in document order. Of a kind that stands alone the first one, or null.
  std::vector<LumoAxis*> getAxiss() const;
  LumoScale* getScale() const;
  /// @}

  /// The variable whose parts stand beside each other in clusters.
  CTVariableType* getClusterVariable() const;
  /// What the dimension covers; null where there is none.
  CTDomainType* getDomain() const;
  /// Room between clusters: a length, of their width where it is a percentage.
  void setClusterGap(char16_t const* gap);
  /// The variable whose parts stand beside each other in clusters.
  void setClusterVariable(CTVariableType const& variable);
  /// What the dimension covers.
  void setDomain(LumoCategoricalDomain const& domain);
  /// What the dimension covers.
  void setDomain(LumoIntervalDomain const& domain);
  /// What the dimension covers.
  void setDomain(CTDomainType const& domain);
  /// Room before the first value: a length.
  void setLowerMargin(char16_t const* margin);
  /// Whether the lower end is rounded to a nice value.
  void setNiceLowerMapping(bool nice);
  /// Whether the upper end is rounded to a nice value.
  void setNiceUpperMapping(bool nice);
  /// Whether all panels share one domain.
  void setUnionDomain(bool unite);
  /// Room behind the last value: a length.
  void setUpperMargin(char16_t const* margin);
};

/// Stands in coordinates for a dimension of other coordinates.
class LUMO_API LumoDimensionReference : public LumoBaseElement {
 public:
  /// The name of the element in the markup.
  static char16_t const _dimensionReference[];
  /// The name of the element in the markup.
  static char16_t const* getElementName() noexcept;

  using LumoBaseElement::LumoBaseElement;
  ~LumoDimensionReference() override;

  /// The dimension that this stands for.
  LumoDimension* getRef() const;
  /// The dimension that this stands for.
  void setRef(LumoDimension const& dimension);
};

/// What is drawn of a dimension.
class LUMO_API LumoAxis : public LumoBaseElement {
 public:
  /// Repetition of the axis in panels; a number of the client.
  enum ENUM_repeat : int { Repeat0 = 0, Repeat1 = 1 };
  /// A new axis is primary.
  enum ENUM_transform : int { TransformDerived = 1, TransformPrimary = 2 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoAxis() override;

  /// @{
  /// Each appends a child of its kind.
  LumoLabel* addLabel();
  LumoMajorTicks* addMajorTicks();
  /// @}

  /// @{
  /// Each is the first child of its kind, or null.
  LumoLabel* getLabel() const;
  LumoMajorTicks* getMajorTicks() const;
  /// @}

  /// Whether the axis stands on the far side.
  bool getOpposite() const;
  /// The style of the line.
  LumoStyle* getStyle() const;
  /// TransformPrimary where nothing was set.
  ENUM_transform getTransform() const;
  /// Whether the client joins the labels of axes that repeat; passed on to it.
  void setCombineAxisLabels(bool combine);
  /// Whether the axis stands on the far side.
  void setOpposite(bool opposite);
  /// How panels repeat the axis.
  void setRepeat(ENUM_repeat repeat);
  /// The style of the line.
  void setStyle(LumoStyle const& style);
  /// Whether the axis shows its dimension or what is derived from it.
  void setTransform(ENUM_transform transform);
};

/// The ticks of an axis and their labels.
class LUMO_API LumoMajorTicks : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoMajorTicks() override;

  /// @{
  /// Each appends a child of its kind.
  LumoFormat* addFormat();
  LumoGridline* addGridline();
  /// @}

  /// @{
  /// The children of a kind, in document order. Of a kind that stands alone the first one, or null.
  std::vector<LumoFormat*> getFormats() const;
  LumoGridline* getGridline() const;
  /// @}

  /// @{
  /// Each detaches all children of its kind.
  void removeFormats();
  void removeGridlines();
  /// @}

  /// In degrees; 0 where nothing was set.
  double getLabelAngle() const;
  /// The style of the tick marks.
  LumoStyle* getMarkStyle() const;
  /// The style of the labels' texts.
  LumoStyle* getStyle() const;
  /// The style of the frames behind the labels.
  LumoStyle* getTickFrameStyle() const;
  /// A value at which there is a tick, in data units.
  void setBase(char16_t const* base);
  /// Distance of the ticks, in data units.
  void setDelta(double delta);
  /// Angle of the labels, in degrees.
  void setLabelAngle(double degrees);
  /// Every how many ticks a label is drawn.
  void setLabelFrequency(unsigned int frequency);
  /// Length of the tick marks.
  void setLength(char16_t const* length);
  /// The style of the tick marks.
  void setMarkStyle(LumoStyle const& style);
  /// Whether the labels stand in two alternating rows.
  void setStagger(bool stagger);
  /// The style of the labels' texts.
  void setStyle(LumoStyle const& style);
  /// The style of the frames behind the labels.
  void setTickFrameStyle(LumoStyle const& style);
};

/// Lines across the data at the ticks of an axis.
class LUMO_API LumoGridline : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoGridline() override;
};

/// A view from a point in space. Angles are in degrees.
class LUMO_API LumoRectangularTransform : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoRectangularTransform() override;

  /// Distance of the point from the chart.
  void setDistance(double distance);
  /// The first angle of the view.
  void setPhi(double phi);
  /// The second angle of the view.
  void setTheta(double theta);
  /// The third angle of the view.
  void setZeta(double zeta);
};

/// Mirrors a dimension, in every panel or in every second one.
class LUMO_API LumoReflectionTransform : public LumoBaseElement {
 public:
  /// The dimension by its position.
  enum ENUM_dimension : int { DimensionX = 0, DimensionY = 1, DimensionZ = 2 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoReflectionTransform() override;

  /// Whether only every second panel is mirrored.
  void setAlternating(bool alternating);
  /// Which dimension is mirrored.
  void setDimension(ENUM_dimension dimension);
};

/// Makes the units of all dimensions equally long.
class LUMO_API LumoSameRatioTransform : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoSameRatioTransform() override;

  /// Whether the data stand in the middle of the room that is left.
  void setCenter(bool center);
};

/// Lays the chart on its side: x and y change places.
class LUMO_API LumoTransposeTransform : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoTransposeTransform() override;
};

/// Bends the coordinates round a pole.
class LUMO_API LumoPolarTransform : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoPolarTransform() override;
};
