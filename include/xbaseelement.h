#pragma once

#include "kestrel_export.h"

#include "model/chartstring.h"

#include <string>

class LumoBaseElement;
class LumoCoordinates;
class LumoDimension;
class LumoStyle;

/// Base of the builder wrappers: a thin handle on one object of the chart model. A wrapper owns nothing, may
/// be copied freely, and must not outlive the `LumoDocument` that its model object lives in.
class KESTREL_API XBaseElement {
 public:
  /// A handle on that model object, which stays its document's.
  explicit XBaseElement(LumoBaseElement& element);

  /// @{
  /// A copy is a second handle on the same object.
  XBaseElement(XBaseElement const&) = default;
  XBaseElement& operator=(XBaseElement const&) = default;
  /// @}

  virtual ~XBaseElement();

  /// The serialised text of the model object, UTF-8.
  virtual std::string AsUTF8() const;

  /// Finds the style with this id, or makes it under the chart's style container.
  /// @param unique makes the id unique in the chart first, so that the style is always a new one
  /// @return the style, owned by the chart
  /// @throws ChartException if the style has to be made and the chart has no style container
  virtual LumoStyle* AddStyle(ChartString const& id, bool unique);

  /// The model object; owned by its document.
  LumoBaseElement* getImplementation() const { return mElement; }

  /// The id of the style that belongs to the model object `id`: the id followed by "s".
  static ChartString getStyleId(char16_t const* id);

  /// @{
  /// See `XUtility`.
  static ChartString ChartStringFromOLANG(char const* text);
  static ChartString ChartStringFromLocalCodePage(char const* text);
  /// @}

  /// Turns every backslash that is followed by the letter n into one line feed, in place: the form in which
  /// hosts escape a line break in labels.
  void replaceNewline(ChartString& text) const;

  /// Writes to the log of the model library (not to the product's log). For hosts; the library itself does
  /// not call it.
  void LogError(std::string const& message, std::string const& file, unsigned int const& line) const;

  /// The first dimension, made on demand. A failure is reported and gives null.
  LumoDimension* getXDimension(LumoCoordinates& coordinates, bool create);

  /// The second dimension; with `create`, dimensions are added until there are two. A failure is reported and
  /// gives null.
  LumoDimension* getYDimension(LumoCoordinates& coordinates, bool create);

  /// Needs three dimensions, as `getYDimension` needs two. Where all three exist it gives the second one, not
  /// the third: clients rely on it.
  LumoDimension* getZDimension(LumoCoordinates& coordinates, bool create);

 private:
  LumoBaseElement* mElement;
};
