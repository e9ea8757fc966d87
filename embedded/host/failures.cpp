#include "host/log.h"
#include "kestrelhost/host.h"
#include "model/chartstring.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/SAXParseException.hpp>

using kestrel::host::Host;

ChartException::ChartException() : mLine(0) {}
ChartException::ChartException(std::string const& message, std::string const& file, unsigned int line)
    : mMessage(message), mFile(file), mLine(line) {}
ChartException::ChartException(ChartException const&) = default;
ChartException& ChartException::operator=(ChartException const&) = default;
ChartException::~ChartException() = default;

std::string const& ChartException::message() const { return mMessage; }
std::string const& ChartException::file() const { return mFile; }
unsigned int ChartException::line() const { return mLine; }
char const* ChartException::what() const noexcept { return mMessage.c_str(); }

ChartErrorHandler::ChartErrorHandler() = default;
ChartErrorHandler::~ChartErrorHandler() = default;

void ChartErrorHandler::error(ChartException const& failure) {
  Host::current().log->error(failure.message(), failure.file(), failure.line());
}

void ChartErrorHandler::error(xercesc::XMLException const& failure) {
  char const* const file = failure.getSrcFile();
  Host::current().log->error(ChartString(failure.getMessage()).toUTF8(), file != nullptr ? file : "",
                             static_cast<unsigned int>(failure.getSrcLine()));
}

void ChartErrorHandler::fatalError(xercesc::SAXParseException const& failure) { throw failure; }

xercesc::InputSource* ChartErrorHandler::resolveEntity(XMLCh const*, XMLCh const*) {
  static XMLByte const nothing[1] = {};
  return new xercesc::MemBufInputSource(nothing, 0, "nothing", false);
}
