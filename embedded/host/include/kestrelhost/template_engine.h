#pragma once

#include "kestrelhost/templates.h"

#include <memory>
#include <string>

class LumoBaseElement;
class LumoStyle;

namespace kestrel::host {

class TemplateShelf;

/// One value that a template has written into a chart.
struct TemplateWrite {
  /// The element that has the value now: a style, the ticks of an axis, or a frame.
  LumoBaseElement const& element;
  /// An attribute of the element, `gridline` for the ticks that won ("true") or lost ("false") one, or
  /// `frame` for a frame that was added ("true").
  std::string attribute;
  /// The value as it was written.
  std::string value;
  /// The whole text of the template, as it was given.
  std::string const& text;
  /// @{
  /// Where the tag that says so begins in the text, from 1.
  unsigned int line;
  unsigned int column;
  /// @}
};

/// Hears of what templates do to charts, after each step. What it throws leaves the template half applied.
///
/// It is called on the thread that applies the template, before that call returns, and may look at the chart
/// then but not change it. Nothing guards an observer: where charts are completed on several threads, give
/// each thread an engine with an observer of its own, or see to it that no two templates are applied at a
/// time with one observer. Without an observer several threads may share an engine, each with a chart of its
/// own.
class VEXA_API TemplateObserver {
 public:
  virtual ~TemplateObserver();

  /// A value has been written into the chart.
  virtual void written(TemplateWrite const& write) = 0;
  /// A part of the chart has shared a style with others that a template leaves alone, and has got its own,
  /// with the same values.
  virtual void copied(LumoStyle const& from, LumoStyle const& to);
};

/// The template language of `docs/guide/templates.md` and `schema/template.xsd`. A text that breaks its rules
/// is refused; the current host's log then gets one line for each fault. Templates that were read last are
/// kept as long as the engine, so that the same ones cost little for further charts.
class VEXA_API XmlTemplateEngine : public TemplateEngine {
 public:
  /// Without an observer nobody is told.
  explicit XmlTemplateEngine(std::shared_ptr<TemplateObserver> observer = nullptr);

  std::unique_ptr<TemplateApplication> start(LumoVisualization& working,
                                             LumoVisualization* baseline) override;

 private:
  std::shared_ptr<TemplateObserver> mObserver;
  std::shared_ptr<TemplateShelf> mShelf;
};

}  // namespace kestrel::host
