// How chart text becomes the chart of a document: directly, or by way of the Java converter.

#include "xdocument.h"

#include "chartupdater.h"
#include "xdocument_data.h"
#include "xutility.h"

#include "support/chart_parser.h"
#include "support/failure.h"
#include "support/float_env_preserver.h"

#include "host/chartbase.h"
#include "host/java.h"
#include "host/log.h"
#include "host/messages.h"
#include "model/chartstring.h"
#include "model/document.h"
#include "model/tokens.h"

#include <xercesc/dom/DOM.hpp>

#include <cstdlib>
#include <memory>
#include <string>

using kestrel::logFailure;
using kestrel::tellUser;

namespace {

using kestrel::unknownError;
constexpr char const* parseFailed = "Failed to parse LumoML2.0.  Error message returned was ^1.";
constexpr char const* noJavaVM = "Could Not Start JVM";

void log(std::string const& message, unsigned int line = __builtin_LINE()) {
  logFailure(message, __FILE__, line);
}

}  // namespace

void XDocument::convertFromLumoML(std::string const& text) {
  if (text.empty()) {
    tellUser(unknownError);
    log("Empty XML string received");
    return;
  }
  initialize();
  mData->mParser = kestrel::makeChartParser();
  std::string errorText;
  xercesc::DOMDocument* const parsed = parseDocument(text, errorText, mData->mParser.get());
  if (parsed == nullptr) {
    tellUser(parseFailed, errorText);
    log("Could not parse in XDocument::XDocument(lumoml2_x) - " + errorText);
    return;
  }
  ChartBase::printDebugInfo("Parsed lumoml");
  if (ChartString(parsed->getXmlVersion()).empty()) parsed->setXmlVersion(u"1.0");
  try {
    // The root element alone tells the old markup from the current one.
    if (ChartString(parsed->getDocumentElement()->getTagName()).equals(LumoUni::_graph)) {
      convertXML(text, ConvertFromLumoML14, true);
    } else {
      mData->mDocument = new LumoDocument(parsed);
    }
  } catch (...) {
    // The host's unwinding signal ends here too: relied upon.
    tellUser(parseFailed, errorText);
    log("Error in XDocument::XDocument(lumoml2_x) - " + errorText);
  }
}

namespace {

/// One run through the Java converter: from the text to the current markup.
class Conversion {
 public:
  Conversion(std::string const& text, bool reportErrors, int number)
      : mText(text),
        mReportErrors(reportErrors),
        mDump(std::getenv("DumpChartXMLPath") != nullptr),
        mNumber(number) {}

  /// Whether the converter took the text; `result()` is the markup then.
  bool fromPDL(LumoConverter& converter, bool utf8) {
    ChartString description;
    if (utf8) {
      description.assignUTF8(mText);
    } else {
      description = XUtility::ChartStringFromLocalCodePage(mText.c_str());
    }
    if (mDump && ChartBase::willPrintString(ChartBase::PrintConversion))
      dump(description.toUTF8(), "pdl_", ".pdl");
    if (converter.PDLtoXML(description.toUTF8(), mResult)) return true;
    tellOfPDL(messageOf(converter), description);
    return false;
  }

  bool fromLumoML14(LumoConverter& converter) {
    // Not asked for first, unlike the description above.
    if (mDump) dump(mText, "xml_backend_1.4_", ".xml");
    if (converter.UpgradeXML(mText, mResult)) return true;
    std::string const message = messageOf(converter);
    tell("Could not convert LumoML1.4 into LumoML2.0.  Error message returned was ^1.",
         XUtility::ChartStringFromLocalCodePage(message.c_str()).toUTF8());
    log("Could not convert LumoML1.4 to LumoML2.2+ in XDocument::convertXML(lumoml2_x) - could not convert "
        "lumoml1.4 to lumoml2.2 - " +
        message);
    return false;
  }

  void dumpResult() const {
    if (mDump) dump(mResult, "xml_backend_2.0_", ".xml");
  }

  std::string const& result() const { return mResult; }

  void tell(char const* text) const {
    if (mReportErrors) tellUser(text);
  }

  void tell(char const* pattern, std::string const& detail) const {
    if (mReportErrors) tellUser(pattern, detail);
  }

  /// Shows a text from the Java side as it is.
  void tellForeign(std::string const& text) const {
    BpString const message(text, false);
    if (mReportErrors) kestrel::tellUser(message);
  }

 private:
  static std::string messageOf(LumoConverter const& converter) {
    std::string const message = converter.GetErrorMessage();
    return message.empty() ? "none" : message;
  }

  void dump(std::string const& content, char const* prefix, char const* suffix) const {
    ChartBase::printString(content, prefix, suffix, static_cast<unsigned long>(mNumber),
                           ChartBase::PrintConversion);
  }

  /// Shows the converter's message, broken behind its first colon, and below it the description that failed.
  void tellOfPDL(std::string message, ChartString const& description) const {
    auto const colon = message.find(':');
    if (colon != std::string::npos) message.insert(colon + 1, "\n    ");
    ChartBase::printDebugInfo(message);
    ChartString shown;
    shown.assignUTF8(message);
    shown.append("\n \nPDL:\n");
    shown.append(description);
    tell("PDL error ^1", shown.toUTF8());
    log("Could not convert PDL to XML in XDocument::convertXML() - " + message);
  }

  std::string const& mText;
  bool mReportErrors;
  bool mDump;
  int mNumber;
  std::string mResult;
};

/// Starts the Java VM on first use.
bool isRunning(VexaJVM& vm) {
  if (!vm.IsStarted()) vm.StartJVM();
  return vm.IsStarted();
}

/// The Java converter, started where it is needed; null where there is none, which is reported.
/// @param runs counts a run that ends because the VM does not start, but no other one that ends here
LumoConverter* startedConverter(Conversion const& conversion, int& runs) {
  VexaJVM* const vm = VexaJVM::GetInstance();
  if (vm == nullptr) {
    log("Could not get JVM instance in XDocument::convertXML()");
    conversion.tell(noJavaVM);
    return nullptr;
  }
  if (!isRunning(*vm)) {
    // The user first and then the log, and the run counts: both unlike the failures around it, and relied
    // upon.
    conversion.tell(noJavaVM);
    log("Error in XDocument::convertXML() - Could not start JVM.");
    ++runs;
    return nullptr;
  }
  JNIEnv_* environment = nullptr;
  vm->AttachCurrentThread(&environment);
  LumoConverter* const converter = LumoConverter::GetInstance();
  if (converter == nullptr || environment == nullptr) {
    log(converter == nullptr ? "Could not get LumoConverter instance in XDocument::convertXML()"
                             : "Could not get JNIEnv in XDocument::convertXML()");
    conversion.tell(noJavaVM);
    return nullptr;
  }
  if (!converter->IsStarted()) converter->StartConverter(vm->GetEnv());
  return converter;
}

/// The chart of what the converter made; null where there is none, which is reported.
std::unique_ptr<LumoDocument> parsedResult(Conversion const& conversion, xercesc::XercesDOMParser* parser) {
  conversion.dumpResult();
  std::string errorText;
  if (auto* const parsed = XDocument::parseDocument(conversion.result(), errorText, parser)) {
    ChartBase::printDebugInfo("Parsed XML");
    return std::make_unique<LumoDocument>(parsed);
  }
  conversion.tell(parseFailed, errorText);
  log("Error in XDocument::convertXML() - could not parse converted document.");
  return nullptr;
}

void addConvertedLooks(LumoDocument& document, XDocument::CONVERT_FROM from) {
  ChartUpdater updater(document);
  if (from == XDocument::ConvertFromPDL) {
    updater.AddDefaultPDLLooks();
  } else {
    updater.AddDefaultLUMOMLLooks();
  }
}

/// Runs `body` under the handlers of the conversion itself, where a failure may come from the Java side.
template <typename Body>
void underConversionHandlers(Conversion const& conversion, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (JException* failure) {  // NOLINT(misc-throw-by-value-catch-by-reference): hosts throw it so
    // The thrower keeps the object.
    conversion.tellForeign(failure->getMessage());
    log("Error in XDocument::convertXML() - JException");
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    conversion.tell(unknownError);
    log("Error in XDocument::convertXML() - exception");
  }
}

}  // namespace

void XDocument::convertXML(std::string const& text, CONVERT_FROM from, bool reportErrors) {
  static int filenumber = 1;
  try {
    Conversion conversion(text, reportErrors, filenumber);
    kestrel::FloatEnvPreserver const floatEnvironment;
    LumoConverter* const converter = startedConverter(conversion, filenumber);
    if (converter == nullptr) return;
    underConversionHandlers(conversion, [&] {
      ChartBase::printDebugInfo("Before Calling Converter");
      bool const converted = from == ConvertFromPDL ? conversion.fromPDL(*converter, mData->mUseUTF8)
                                                    : conversion.fromLumoML14(*converter);
      ChartBase::printDebugInfo("After Calling Converter");
      if (!converted) return;
      std::unique_ptr<LumoDocument> parsed = parsedResult(conversion, mData->mParser.get());
      if (parsed == nullptr) return;
      mData->mDocument = parsed.release();
      if (mData->mDoNotModify) return;
      addConvertedLooks(*mData->mDocument, from);
      mData->mAddDefaultLooks = false;
    });
    ++filenumber;
  } catch (VexaGoToCaller const&) {
    throw;
  } catch (...) {
    tellUser(unknownError);
    log("Error in XDocument::convertXML() -> exception");
  }
}
