#pragma once

#include "export.h"

#include <xercesc/sax/HandlerBase.hpp>
#include <xercesc/util/XMLException.hpp>

#include <exception>
#include <string>

/// The failure value of the chart library: a message, and the place in the source that raised it.
/// It is thrown and caught by value. File and line are diagnostics; nothing depends on them.
class VEXA_API ChartException : public std::exception {
 public:
  /// An empty message, an empty file, and line 0.
  ChartException();
  /// A failure with its message in UTF-8 and the place in the source that raised it.
  ChartException(std::string const& message, std::string const& file, unsigned int line);

  /// @{
  /// Copies say the same.
  ChartException(ChartException const& other);
  ChartException& operator=(ChartException const& other);
  /// @}

  ~ChartException() override;

  /// @{
  /// The parts, as they were given.
  std::string const& message() const;
  std::string const& file() const;
  unsigned int line() const;
  /// @}

  /// The message, for code that knows only std::exception.
  char const* what() const noexcept override;

 private:
  std::string mMessage;
  std::string mFile;
  unsigned int mLine;
};

/// Takes failures to the log and returns: callers go on after it. It can also be given to a Xerces parser as
/// error handler and entity resolver.
class VEXA_API ChartErrorHandler : public xercesc::HandlerBase {
 public:
  ChartErrorHandler();
  ~ChartErrorHandler() override;

  using xercesc::HandlerBase::error;

  /// @{
  /// Takes one failure to the log.
  void error(ChartException const& failure);
  void error(xercesc::XMLException const& failure);
  /// @}

  /// Throws the failure itself, so that the parse ends there.
  void fatalError(xercesc::SAXParseException const& failure) override;

  /// Gives an empty input for every entity: nothing outside the text is ever loaded. The parser owns the
  /// result.
  xercesc::InputSource* resolveEntity(XMLCh const* publicId, XMLCh const* systemId) override;
};
