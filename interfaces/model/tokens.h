#pragma once

#include "export.h"

/// The words of the chart markup in UTF-16. The text of each is the name behind the underscore.
class LUMO_API LumoUni {
 public:
  LumoUni() = delete;

  /// @{
  /// A word of the markup: the name behind the underscore.
  static char16_t const _aesthetic[];
  static char16_t const _area[];
  static char16_t const _axis[];
  static char16_t const _binStatistic[];
  static char16_t const _categoricalDomain[];
  static char16_t const _categories[];
  static char16_t const _categoryOrder[];
  static char16_t const _circle[];
  static char16_t const _color[];
  static char16_t const _colorMapping[];
  static char16_t const _conditionalStyle[];
  static char16_t const _container[];
  static char16_t const _coordinates[];
  static char16_t const _cross[];
  static char16_t const _cycle[];
  static char16_t const _dash[];
  static char16_t const _databaseSource[];
  static char16_t const _delimitedFileSource[];
  static char16_t const _derivedVariable[];
  static char16_t const _description[];
  static char16_t const _descriptionGroup[];
  static char16_t const _dimension[];
  static char16_t const _dimensionReference[];
  static char16_t const _distributionStatistic[];
  static char16_t const _domain[];
  static char16_t const _edge[];
  static char16_t const _embeddedSource[];
  static char16_t const _expressionVariable[];
  static char16_t const _extension[];
  static char16_t const _facetLayout[];
  static char16_t const _facetLevel[];
  static char16_t const _faceting[];
  static char16_t const _false[];
  static char16_t const _format[];
  static char16_t const _frameGuide[];
  static char16_t const _functionGuide[];
  static char16_t const _graph[];
  static char16_t const _gridline[];
  static char16_t const _ibeam[];
  static char16_t const _id[];
  static char16_t const _inputDateFormatPattern[];
  static char16_t const _interval[];
  static char16_t const _intervalDomain[];
  static char16_t const _label[];
  static char16_t const _labelFrame[];
  static char16_t const _labeling[];
  static char16_t const _legend[];
  static char16_t const _legendTarget[];
  static char16_t const _line[];
  static char16_t const _lineGuide[];
  static char16_t const _location[];
  static char16_t const _log[];
  static char16_t const _majorTicks[];
  static char16_t const _markStyle[];
  static char16_t const _nest[];
  static char16_t const _path[];
  static char16_t const _pattern[];
  static char16_t const _planeGuide[];
  static char16_t const _point[];
  static char16_t const _polarTransform[];
  static char16_t const _polygon[];
  static char16_t const _position[];
  static char16_t const _range[];
  static char16_t const _rectangularTransform[];
  static char16_t const _reflectionTransform[];
  static char16_t const _relabel[];
  static char16_t const _sameRatioTransform[];
  static char16_t const _scale[];
  static char16_t const _schema[];
  static char16_t const _setCellProperties[];
  static char16_t const _setFrameStyle[];
  static char16_t const _shape[];
  static char16_t const _simpleSort[];
  static char16_t const _size[];
  static char16_t const _source[];
  static char16_t const _sourceVariable[];
  static char16_t const _square[];
  static char16_t const _streamingSource[];
  static char16_t const _style[];
  static char16_t const _styleBy[];
  static char16_t const _styleCycle[];
  static char16_t const _summaryStatistic[];
  static char16_t const _swingController[];
  static char16_t const _symbolMapping[];
  static char16_t const _text[];
  static char16_t const _transparency[];
  static char16_t const _transposeTransform[];
  static char16_t const _true[];
  static char16_t const _tukeyStatistic[];
  static char16_t const _unity[];
  static char16_t const _userSource[];
  static char16_t const _variable[];
  static char16_t const _variableReference[];
  static char16_t const _visualization[];
  static char16_t const _x[];
  static char16_t const _y[];
  static char16_t const _z[];
  /// @}
};
