#include "schema_validator.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/parsers/XercesDOMParser.hpp>
#include <xercesc/sax/ErrorHandler.hpp>
#include <xercesc/sax/SAXException.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/XMLString.hpp>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string narrow(char16_t const* text) {
  char* narrowed = xercesc::XMLString::transcode(text);
  std::string result(narrowed);
  xercesc::XMLString::release(&narrowed);
  return result;
}

class Collector final : public xercesc::ErrorHandler {
 public:
  void warning(xercesc::SAXParseException const& fault) override { collect(fault); }
  void error(xercesc::SAXParseException const& fault) override { collect(fault); }
  void fatalError(xercesc::SAXParseException const& fault) override { collect(fault); }
  void resetErrors() override {}

  std::vector<std::string> errors;

 private:
  void collect(xercesc::SAXParseException const& fault) {
    errors.push_back(std::to_string(fault.getLineNumber()) + ":" + std::to_string(fault.getColumnNumber()) +
                     ": " + narrow(fault.getMessage()));
  }
};

/// A parser that knows the schema and nothing else: it loads no grammar that a text asks for.
class Validator {
 public:
  /// `schema` is a file of the folder schema.
  explicit Validator(std::string const& schema)
      : parser_(nullptr, xercesc::XMLPlatformUtils::fgMemoryManager, &grammars_) {
    parser_.setErrorHandler(&collector_);
    parser_.setDoNamespaces(true);
    parser_.setDoSchema(true);
    parser_.setValidationSchemaFullChecking(true);
    parser_.setValidationScheme(xercesc::XercesDOMParser::Val_Always);
    parser_.setCreateEntityReferenceNodes(false);
    std::string const file = KESTREL_SOURCE_DIR "/schema/" + schema;
    if (parser_.loadGrammar(file.c_str(), xercesc::Grammar::SchemaGrammarType, true) == nullptr ||
        !collector_.errors.empty()) {
      throw std::runtime_error(
          schema + ": " + (collector_.errors.empty() ? std::string("not there") : collector_.errors.front()));
    }
    grammars_.lockPool();
    parser_.useCachedGrammarInParse(true);
    parser_.setLoadSchema(false);
  }

  std::vector<std::string> errorsOf(std::string const& xml) {
    collector_.errors.clear();
    xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(xml.data()), xml.size(), "text");
    parser_.parse(source);
    parser_.resetDocumentPool();
    return std::move(collector_.errors);
  }

 private:
  xercesc::XMLGrammarPoolImpl grammars_;
  Collector collector_;
  xercesc::XercesDOMParser parser_;
};

/// Never torn down: the XML library may end before static objects do.
Validator& makeValidator(std::string const& schema) {
  xercesc::XMLPlatformUtils::Initialize();
  return *new Validator(schema);
}

}  // namespace

std::vector<std::string> schemaErrors(std::string const& xml) {
  static Validator& validator = makeValidator("lumoml.xsd");
  return validator.errorsOf(xml);
}

std::vector<std::string> templateSchemaErrors(std::string const& xml) {
  static Validator& validator = makeValidator("template.xsd");
  return validator.errorsOf(xml);
}

std::vector<std::string> templateRequestSchemaErrors(std::string const& xml) {
  static Validator& validator = makeValidator("template-request.xsd");
  return validator.errorsOf(xml);
}

std::vector<std::string> templateReplySchemaErrors(std::string const& xml) {
  static Validator& validator = makeValidator("template-reply.xsd");
  return validator.errorsOf(xml);
}

std::vector<std::string> serviceTemplateSchemaErrors(std::string const& xml) {
  static Validator& validator = makeValidator("service-template.xsd");
  return validator.errorsOf(xml);
}
