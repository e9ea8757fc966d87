#pragma once

#include "host/export.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

class LumoDocument;
class LumoVisualization;

namespace kestrel::host {

/// The kinds of the user's templates, in the order in which they are applied; the chosen ones take the place
/// of the default ones.
enum class TemplateKind { Styles, Options, Chosen, Default };

/// The user's settings of the four kinds of templates: names of files.
class VEXA_API TemplateSettings {
 public:
  virtual ~TemplateSettings();

  /// The names of the files, in the order in which they are applied.
  virtual std::vector<std::string> names(TemplateKind kind) = 0;
  /// Whether there are templates of the kind.
  virtual bool exists(TemplateKind kind) = 0;

  /// @{
  /// Whether the settings changed since the last read; a reader sets it back.
  virtual bool isDirty(TemplateKind kind) = 0;
  virtual void setDirty(TemplateKind kind, bool dirty) = 0;
  /// @}
};

/// Lists that are empty and clean until somebody sets them. A kind exists where its list is not empty.
class VEXA_API TemplateLists : public TemplateSettings {
 public:
  /// Marks the kind as dirty.
  void set(TemplateKind kind, std::vector<std::string> names);

  std::vector<std::string> names(TemplateKind kind) override;
  bool exists(TemplateKind kind) override;
  bool isDirty(TemplateKind kind) override;
  void setDirty(TemplateKind kind, bool dirty) override;

 private:
  struct List {
    std::vector<std::string> names;
    bool dirty = false;
  };
  std::array<List, 4> mLists;
};

/// A template language at work on one chart.
class VEXA_API TemplateApplication {
 public:
  virtual ~TemplateApplication();

  /// Takes the text of a template; false if it is none.
  virtual bool set(std::string const& xml) = 0;
  /// Applies the last text that was taken.
  virtual void apply() = 0;
};

/// A template language.
class VEXA_API TemplateEngine {
 public:
  virtual ~TemplateEngine();

  /// Never null. `baseline` may be.
  virtual std::unique_ptr<TemplateApplication> start(LumoVisualization& working,
                                                     LumoVisualization* baseline) = 0;
};

/// No template language: every text is refused, and the first refusal is noted in the log.
class VEXA_API NoTemplateEngine : public TemplateEngine {
 public:
  std::unique_ptr<TemplateApplication> start(LumoVisualization& working,
                                             LumoVisualization* baseline) override;

 private:
  class Refusal;
  bool mNoted = false;
};

/// Accepts or refuses every template text, as it is told, and applies none.
class VEXA_API FixedTemplateEngine : public TemplateEngine {
 public:
  std::unique_ptr<TemplateApplication> start(LumoVisualization& working,
                                             LumoVisualization* baseline) override;

  /// What set() answers.
  bool accepts = true;
};

/// Gives the label frames of a chart their places.
class VEXA_API FrameLayout {
 public:
  virtual ~FrameLayout();

  /// True if anything got a place. `baseline`, the chart as it was before any template, may be null.
  virtual bool pack(LumoVisualization& visualization, LumoDocument* baseline) = 0;
  /// A template has given label frames of the chart other fonts, so that they need other heights. What this
  /// layout has placed follows; where it has placed nothing, nothing happens. By itself it does nothing.
  virtual void refit(LumoVisualization& visualization);
};

/// Leaves every frame where it is.
class VEXA_API NoFrameLayout : public FrameLayout {
 public:
  bool pack(LumoVisualization& visualization, LumoDocument* baseline) override;
};

/// Joins a compressed chart and its data stream into one text.
class VEXA_API DataDump {
 public:
  virtual ~DataDump();

  /// The text of both, in that encoding; empty where they cannot be joined.
  virtual std::string join(std::string const& compressedXml, unsigned char const* stream, unsigned long size,
                           char16_t const* encoding) = 0;
};

/// Gives an empty text, and notes the first time in the log that there is no such service.
class VEXA_API NoDataDump : public DataDump {
 public:
  std::string join(std::string const& compressedXml, unsigned char const* stream, unsigned long size,
                   char16_t const* encoding) override;

 private:
  bool mNoted = false;
};

}  // namespace kestrel::host
