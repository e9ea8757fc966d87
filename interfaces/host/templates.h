#pragma once

#include "export.h"

#include "../model/chartstring.h"

#include <memory>
#include <string>
#include <vector>

class CTElementType;
class LumoDimension;
class LumoDocument;
class LumoGraph;
class LumoVisualization;

/// Applies template texts to a chart.
class VEXA_API ChartTemplate {
 public:
  /// `baseline` is the chart as it was before any template, and may be null. Neither chart is owned.
  ChartTemplate(LumoVisualization& working, LumoVisualization* baseline);
  ~ChartTemplate();
  ChartTemplate(ChartTemplate const&) = delete;
  ChartTemplate& operator=(ChartTemplate const&) = delete;

  /// Takes the text of a template in place of the one before. False if it is none; applyTemplate then does
  /// nothing.
  bool setTemplate(std::string const& xml);
  /// Applies the template to the working chart.
  void applyTemplate();

 private:
  class Application;
  std::unique_ptr<Application> mApplication;
};

/// Finds the parts of a graph that a template addresses.
class VEXA_API BaseTemplate {
 public:
  /// `baseline` is the chart as it was before any template, and may be null. Neither chart is owned.
  BaseTemplate(LumoVisualization const* baseline, LumoVisualization& working);
  ~BaseTemplate();

  /// Appends the graphic elements of a graph to the list, kind by kind and in document order within a kind.
  static void getAllElements(LumoGraph const& graph, std::vector<CTElementType*>& elements);

  /// The dimensions of all coordinates of the graph that stand for "x", "y" or "z"; an unknown role gives
  /// none.
  std::vector<LumoDimension*> getDimensionsByRole(LumoGraph const& graph, ChartString const& role) const;

 private:
  LumoVisualization const* mBaseline;
  LumoVisualization& mWorking;
};

/// Lays the label frames of a chart out.
class VEXA_API FramePacker {
 public:
  FramePacker();
  ~FramePacker();

  /// True if the frames were laid out. `baseline` may be null.
  bool packFrames(LumoVisualization& visualization, LumoDocument* baseline) const;
};

/// Joins a compressed chart text and its data stream into one text, for dumps.
class VEXA_API ChartTransformer {
 public:
  /// The stream stays the caller's and must live as long as this.
  ChartTransformer(std::string const& compressedXml, unsigned char const* stream, unsigned long size);
  ~ChartTransformer();

  /// Empty where the two cannot be joined.
  std::string getEntireXML(char16_t const* encoding);

 private:
  std::string mCompressedXml;
  unsigned char const* mStream;
  unsigned long mSize;
};

/// The state behind the settings of one kind of templates.
class VEXA_API XTemplate {
 public:
  virtual ~XTemplate();

  /// The names of the template files, in the order in which they are applied.
  virtual std::vector<std::string> Get() const = 0;
  /// Whether there is a template of the kind.
  virtual bool Exists() const = 0;
  /// True when the user's settings changed since the last read.
  virtual bool isDirty() const = 0;
  /// False after a read; true makes the next reader read anew.
  virtual void setIsDirty(bool dirty) = 0;
};

// The user's settings of the four kinds of templates. Any instance speaks for the one state of the process.

/// Chart styles templates.
class VEXA_API STemplate {
 public:
  /// The names of the template files, in the order in which they are applied.
  std::vector<std::string> Get() const;

  /// @{
  /// Whether the user's settings changed since the last read; a reader sets it back.
  bool isDirty() const;
  void setIsDirty(bool dirty);
  /// @}

 private:
  static XTemplate* _impl;
};

/// Chart options templates.
class VEXA_API OTemplate {
 public:
  /// The names of the template files, in the order in which they are applied.
  std::vector<std::string> Get() const;

  /// @{
  /// Whether the user's settings changed since the last read; a reader sets it back.
  bool isDirty() const;
  void setIsDirty(bool dirty);
  /// @}

 private:
  static XTemplate* _impl;
};

/// Templates that take the place of the default ones where they are set.
class VEXA_API CTemplate {
 public:
  /// The names of the template files, in the order in which they are applied.
  std::vector<std::string> Get() const;
  /// True where such a template is set.
  bool Exists() const;

  /// @{
  /// Whether the user's settings changed since the last read; a reader sets it back.
  bool isDirty() const;
  void setIsDirty(bool dirty);
  /// @}

 private:
  static XTemplate* _impl;
};

/// Chart default templates.
class VEXA_API DTemplate {
 public:
  /// The names of the template files, in the order in which they are applied.
  std::vector<std::string> Get() const;

  /// @{
  /// Whether the user's settings changed since the last read; a reader sets it back.
  bool isDirty() const;
  void setIsDirty(bool dirty);
  /// @}

 private:
  static XTemplate* _impl;
};
