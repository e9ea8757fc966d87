#pragma once

#include "host/export.h"
#include "host/messages.h"

#include <string>

namespace kestrel::host {

/// The log of failures.
class VEXA_API Log {
 public:
  virtual ~Log();

  /// A failure with the place in the source that noticed it; an empty file stands for no place.
  virtual void error(std::string const& message, std::string const& file, unsigned int line) = 0;
  /// Something worth knowing that is no failure of a chart, such as a service that is not there.
  virtual void note(std::string const& message) = 0;
};

/// What the user is told.
class VEXA_API UserMessages {
 public:
  virtual ~UserMessages();

  /// Shows a text at once; it stays the caller's. What it throws goes past every guard.
  virtual void show(BpCellText const& text, BpErrorShow show, BpErrorLevel level) = 0;
};

/// The trace of the progress of a chart.
class VEXA_API Trace {
 public:
  virtual ~Trace();

  /// Writes one line. Must not throw: it is called when a document goes.
  virtual void line(std::string const& text) = 0;
};

/// Failures go to standard error.
class VEXA_API StandardLog : public Log {
 public:
  void error(std::string const& message, std::string const& file, unsigned int line) override;
  void note(std::string const& message) override;
};

/// Messages go to standard error. Level 3 and above is marked as critical.
class VEXA_API StandardMessages : public UserMessages {
 public:
  void show(BpCellText const& text, BpErrorShow show, BpErrorLevel level) override;
};

/// The trace goes to standard error while the environment variable KESTREL_TRACE is set.
class VEXA_API StandardTrace : public Trace {
 public:
  StandardTrace();
  void line(std::string const& text) override;

 private:
  bool mOn;
};

/// Keeps nothing.
class VEXA_API SilentLog : public Log {
 public:
  void error(std::string const& message, std::string const& file, unsigned int line) override;
  void note(std::string const& message) override;
};

/// Shows nothing.
class VEXA_API SilentMessages : public UserMessages {
 public:
  void show(BpCellText const& text, BpErrorShow show, BpErrorLevel level) override;
};

/// Writes nothing.
class VEXA_API SilentTrace : public Trace {
 public:
  void line(std::string const& text) override;
};

}  // namespace kestrel::host
