#pragma once

#include "export.h"
#include "forward.h"

#include <xercesc/dom/DOMNode.hpp>

#include <iosfwd>
#include <string>

struct OBS;
class Vexa_Format;

/// Writes a DOM node as UTF-8 text.
class LUMO_API DOMPrinter {
 public:
  DOMPrinter();
  virtual ~DOMPrinter();

  /// Writes `node` and everything in it; with `declaration` the XML declaration first. A null node writes
  /// nothing.
  virtual void Print(xercesc::DOMNode const* node, std::ostream& stream, bool declaration) const;

 protected:
  /// What Print does; `indented` puts elements that hold no text on lines of their own.
  void print(xercesc::DOMNode const* node, std::ostream& stream, bool declaration, bool indented) const;
};

/// Writes a chart, indented where that is asked for.
class LUMO_API ChartPrinter : public DOMPrinter {
 public:
  ChartPrinter();
  ~ChartPrinter() override;

  void Print(xercesc::DOMNode const* node, std::ostream& stream, bool declaration) const override;
  /// With white space every element that holds no text stands on a line of its own, indented by its depth.
  void setPrintWhiteSpace(bool print) noexcept;

 private:
  bool printWhiteSpace_ = false;
};

/// The text of single values, whatever the locale.
class LUMO_API formatter {
 public:
  formatter() = delete;

  /// The text of a cell under a print format, in the local code page. A cell of a string format is backed by
  /// as many bytes as the format is wide; blanks at its end are cut. The system-missing value is ".".
  static std::string AsString(OBS const& value, Vexa_Format const& format);
  /// At most `precision` significant digits, as ChartString::assignDouble writes them.
  static std::string AsString(double const& value, unsigned int precision);
  /// Moves `first` and `last` (which is the last character, not one behind it) inward past blanks and tabs,
  /// never past a terminating zero. Returns the length that is left, 0 or less when nothing is.
  static int trim(char const*& first, char const*& last);
};

/// A failure as the model's own log takes it.
class LUMO_API LumoException {
 public:
  /// A failure with its message and the place in the source that raised it.
  LumoException(std::string message, std::string file, unsigned int line);

  /// @{
  /// A failure with its message and the place in the source that raised it.
  /// Copies say the same.
  LumoException(LumoException const& other);
  LumoException& operator=(LumoException const& other);
  /// @}

  virtual ~LumoException();

  /// @{
  /// The parts, as they were given.
  std::string const& getMessage() const noexcept;
  std::string const& getFile() const noexcept;
  unsigned int getLine() const noexcept;
  /// @}

 private:
  std::string message_;
  std::string file_;
  unsigned int line_;
};

/// The model's own log channel: standard error, unless a sink was set.
class LUMO_API LumoErrorHandler {
 public:
  /// What takes the failures of the log.
  using Sink = void (*)(LumoException const& exception);

  LumoErrorHandler();
  virtual ~LumoErrorHandler();

  /// Takes one failure to the log.
  virtual void error(LumoException const& exception);
  /// For the whole process; null goes back to standard error. Returns the sink that was set before.
  static Sink setSink(Sink sink) noexcept;
};
