#include "model/printing.h"

#include "text_writer.h"
#include "tree.h"

#include <atomic>
#include <iostream>
#include <string>
#include <utility>

namespace {

void printToStandardError(LumoException const& exception) {
  std::cerr << exception.getFile() << ':' << exception.getLine() << ": " << exception.getMessage() << '\n';
}

std::atomic<LumoErrorHandler::Sink> currentSink = nullptr;

}  // namespace

DOMPrinter::DOMPrinter() { kestrel::model::holdXmlLibrary(); }
DOMPrinter::~DOMPrinter() = default;

void DOMPrinter::Print(xercesc::DOMNode const* node, std::ostream& stream, bool declaration) const {
  print(node, stream, declaration, false);
}

void DOMPrinter::print(xercesc::DOMNode const* node, std::ostream& stream, bool declaration,
                       bool indented) const {
  if (node != nullptr) stream << kestrel::model::textOf(*node, {declaration, indented});
}

ChartPrinter::ChartPrinter() = default;
ChartPrinter::~ChartPrinter() = default;

void ChartPrinter::Print(xercesc::DOMNode const* node, std::ostream& stream, bool declaration) const {
  print(node, stream, declaration, printWhiteSpace_);
}

void ChartPrinter::setPrintWhiteSpace(bool print) noexcept { printWhiteSpace_ = print; }

LumoException::LumoException(std::string message, std::string file, unsigned int line)
    : message_(std::move(message)), file_(std::move(file)), line_(line) {}
LumoException::LumoException(LumoException const& other) = default;
LumoException& LumoException::operator=(LumoException const& other) = default;
LumoException::~LumoException() = default;

std::string const& LumoException::getMessage() const noexcept { return message_; }
std::string const& LumoException::getFile() const noexcept { return file_; }
unsigned int LumoException::getLine() const noexcept { return line_; }

LumoErrorHandler::LumoErrorHandler() = default;
LumoErrorHandler::~LumoErrorHandler() = default;

void LumoErrorHandler::error(LumoException const& exception) {
  Sink const sink = currentSink;
  (sink == nullptr ? &printToStandardError : sink)(exception);
}

LumoErrorHandler::Sink LumoErrorHandler::setSink(Sink sink) noexcept { return currentSink.exchange(sink); }
