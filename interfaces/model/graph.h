#pragma once

#include "base.h"
#include "export.h"
#include "forward.h"
#include "labels.h"

#include <vector>

/// The scale of a dimension.
class LUMO_API LumoScale : public LumoBaseElement {
 public:
  enum ENUM_method : int { Method1 = 1, Method2 = 2, Method3 = 3, Method4 = 4, Method5 = 5 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoScale() override;

  void setBase(double base);
  void setInvert(bool invert);
  void setMethod(ENUM_method method);
  void setOrigin(char16_t const* origin);
};

/// A graph: coordinates, elements, guides and panels.
class LUMO_API LumoGraph : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoGraph() override;

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

  std::vector<LumoArea*> getAreas() const;
  LumoStyle* getCellStyle() const;
  /// Null past the end.
  LumoCoordinates* getCoordinates(unsigned int index) const;
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

  void removeLocations();
  void setCellStyle(LumoStyle const& style);
};

/// The dimensions of a graph, in the order x, y, z, and the transforms laid over them.
class LUMO_API LumoCoordinates : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoCoordinates() override;

  LumoDimension* addDimension();
  LumoDimensionReference* addDimensionReference();
  LumoPolarTransform* addPolarTransform();
  LumoRectangularTransform* addRectangularTransform();
  LumoReflectionTransform* addReflectionTransform();
  LumoSameRatioTransform* addSameRatioTransform();
  LumoTransposeTransform* addTransposeTransform();

  std::vector<LumoDimensionReference*> getDimensionReferences() const;
  std::vector<LumoDimension*> getDimensions() const;
  std::vector<LumoPolarTransform*> getPolarTransforms() const;
  std::vector<LumoRectangularTransform*> getRectangularTransforms() const;
  std::vector<LumoReflectionTransform*> getReflectionTransforms() const;
  std::vector<LumoSameRatioTransform*> getSameRatioTransforms() const;
  std::vector<LumoTransposeTransform*> getTransposeTransforms() const;

  void removeSameRatioTransforms();
};

/// What is measured along one direction of the coordinates.
class LUMO_API LumoDimension : public LumoBaseElement {
 public:
  static char16_t const _UTF_dimension[];
  static char16_t const* getElementName() noexcept;

  using LumoBaseElement::LumoBaseElement;
  ~LumoDimension() override;

  LumoAxis* addAxis();
  LumoScale* addScale(LumoScale::ENUM_method method);
  std::vector<LumoAxis*> getAxiss() const;
  LumoScale* getScale() const;

  CTVariableType* getClusterVariable() const;
  CTDomainType* getDomain() const;
  void setClusterGap(char16_t const* gap);
  void setClusterVariable(CTVariableType const& variable);
  void setDomain(LumoCategoricalDomain const& domain);
  void setDomain(LumoIntervalDomain const& domain);
  void setDomain(CTDomainType const& domain);
  void setLowerMargin(char16_t const* margin);
  void setNiceLowerMapping(bool nice);
  void setNiceUpperMapping(bool nice);
  void setUnionDomain(bool unite);
  void setUpperMargin(char16_t const* margin);
};

/// Stands in coordinates for a dimension of other coordinates.
class LUMO_API LumoDimensionReference : public LumoBaseElement {
 public:
  static char16_t const _dimensionReference[];
  static char16_t const* getElementName() noexcept;

  using LumoBaseElement::LumoBaseElement;
  ~LumoDimensionReference() override;

  LumoDimension* getRef() const;
  void setRef(LumoDimension const& dimension);
};

/// What is drawn of a dimension.
class LUMO_API LumoAxis : public LumoBaseElement {
 public:
  enum ENUM_repeat : int { Repeat0 = 0, Repeat1 = 1 };
  /// A new axis is primary.
  enum ENUM_transform : int { TransformDerived = 1, TransformPrimary = 2 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoAxis() override;

  LumoLabel* addLabel();
  LumoMajorTicks* addMajorTicks();
  LumoLabel* getLabel() const;
  LumoMajorTicks* getMajorTicks() const;

  bool getOpposite() const;
  LumoStyle* getStyle() const;
  /// TransformPrimary where nothing was set.
  ENUM_transform getTransform() const;
  void setCombineAxisLabels(bool combine);
  void setOpposite(bool opposite);
  void setRepeat(ENUM_repeat repeat);
  void setStyle(LumoStyle const& style);
  void setTransform(ENUM_transform transform);
};

/// The ticks of an axis and their labels.
class LUMO_API LumoMajorTicks : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoMajorTicks() override;

  LumoFormat* addFormat();
  LumoGridline* addGridline();
  std::vector<LumoFormat*> getFormats() const;
  LumoGridline* getGridline() const;
  void removeFormats();
  void removeGridlines();

  /// In degrees; 0 where nothing was set.
  double getLabelAngle() const;
  LumoStyle* getMarkStyle() const;
  LumoStyle* getStyle() const;
  LumoStyle* getTickFrameStyle() const;
  void setBase(char16_t const* base);
  void setDelta(double delta);
  void setLabelAngle(double degrees);
  void setLabelFrequency(unsigned int frequency);
  void setLength(char16_t const* length);
  void setMarkStyle(LumoStyle const& style);
  void setStagger(bool stagger);
  void setStyle(LumoStyle const& style);
  void setTickFrameStyle(LumoStyle const& style);
};

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

  void setDistance(double distance);
  void setPhi(double phi);
  void setTheta(double theta);
  void setZeta(double zeta);
};

class LUMO_API LumoReflectionTransform : public LumoBaseElement {
 public:
  /// The dimension by its position.
  enum ENUM_dimension : int { DimensionX = 0, DimensionY = 1, DimensionZ = 2 };

  using LumoBaseElement::LumoBaseElement;
  ~LumoReflectionTransform() override;

  void setAlternating(bool alternating);
  void setDimension(ENUM_dimension dimension);
};

class LUMO_API LumoSameRatioTransform : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoSameRatioTransform() override;

  void setCenter(bool center);
};

class LUMO_API LumoTransposeTransform : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoTransposeTransform() override;
};

class LUMO_API LumoPolarTransform : public LumoBaseElement {
 public:
  using LumoBaseElement::LumoBaseElement;
  ~LumoPolarTransform() override;
};
