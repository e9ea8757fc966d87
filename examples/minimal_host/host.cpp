// The services of a host as small as one can be that makes and sends charts. What it must do it does; of
// everything else it says that it is not there. Its data store is in data_store.cpp, the values that it deals
// in are in values.cpp.
#include "host/channel.h"
#include "host/chartbase.h"
#include "host/files.h"
#include "host/java.h"
#include "host/locale.h"
#include "host/log.h"
#include "host/messages.h"
#include "host/templates.h"
#include "host/text.h"
#include "model/document.h"
#include "model/graph.h"

#include <zlib.h>

#include <cstdio>
#include <fstream>
#include <utility>

// The way to the client: a file that has each message behind its number and its length.

int IpcPutC(std::int64_t const* identifier, std::int64_t const*, std::int64_t const* length,
            void const* buffer, std::int64_t const*) {
  static std::ofstream client("chart.kcap", std::ios::binary);
  if (client.tellp() == 0) client << "KCAP0001";
  client.write(reinterpret_cast<char const*>(identifier), sizeof *identifier);
  client.write(reinterpret_cast<char const*>(length), sizeof *length);
  client.write(static_cast<char const*>(buffer), *length).flush();
  return client ? 0 : 1;
}

int zlib1213vexa::compressString(std::string const& in, std::string& out) {
  uLongf size = compressBound(in.size());
  std::string stream(size, '\0');
  int const result = compress(reinterpret_cast<Bytef*>(stream.data()), &size,
                              reinterpret_cast<Bytef const*>(in.data()), in.size());
  stream.resize(result == Z_OK ? size : 0);
  out = std::move(stream);  // not sooner: `out` may be `in` itself
  return result;
}

// What the user and the log are told. There is no trace, and nobody wants dumps.

void BpError(BpCellText const& text, BpErrorShow, BpErrorLevel) {
  std::fprintf(stderr, "message: %s\n", text.text().c_str());
}
void ChartErrorHandler::error(ChartException const& failure) {
  std::fprintf(stderr, "log: %s (%s:%u)\n", failure.what(), failure.file().c_str(), failure.line());
}
void ChartErrorHandler::error(xercesc::XMLException const& failure) {
  std::fprintf(stderr, "log: %s\n", ChartString(failure.getMessage()).toUTF8().c_str());
}
void ChartBase::printDebugInfo(std::string const&) {}
bool ChartBase::willPrintString(PRINTTYPE) { return false; }
void ChartBase::printString(std::string const&, std::string const&, std::string const&, unsigned long,
                            PRINTTYPE) {}

// Language, places, files. A dictionary that knows no key shows every text as it stands in the library: in
// English.

std::string OLang::GetLanguageCode() const { return "en"; }
int VexaMBDefaultLocaleName_A(char* buffer, int size) {
  std::string const name = "en_US.UTF-8";
  std::size_t const room = size > 0 ? static_cast<std::size_t>(size) : 0;
  if (room > 0) *buffer = '\0';
  if (name.size() >= room) return 0;
  name.copy(buffer, name.size());
  buffer[name.size()] = '\0';
  return static_cast<int>(name.size());
}

PathInstance* PathFactory::getPathInstance(int) {
  struct Here : PathInstance {
    std::string getBasePath() const override { return "./"; }
    std::string getDictionaryPath() const override { return "./en/"; }
  };
  static Here here;
  return &here;
}

class FacSTDictionary::Table {};
FacSTDictionary::FacSTDictionary(std::string const&) {}
FacSTDictionary::~FacSTDictionary() = default;
void FacSTDictionary::SetProcedure(std::string const&) {}
std::string FacSTDictionary::LookUp(std::string const& key) { return key; }
std::string FacSTDictionary::LookUp(std::string const& key, unsigned long&) { return key; }
void ChartBase::updateText(ChartString&, FacSTDictionary*, std::string const&) {}

std::string FetchFile::fetch(std::string const&, bool, bool) const { return {}; }

// Ids that are unique in a chart, and how values are shown: numbers as the client likes, dates not at all.

ChartString ChartBase::CreateUniqueId(ChartString const& id, LumoVisualization& visualization) {
  ChartString unique = id;
  for (unsigned long number = 1; visualization.doesIdExist(unique.xc_str()); ++number) {
    unique = id;
    unique.append("_");
    unique.append(number);
  }
  return unique;
}
bool ChartBase::FormatNumber(LumoFormat&, Vexa_Format&) { return false; }
bool ChartBase::FormatCustomCurrency(LumoFormat&, Vexa_Format&) { return false; }
bool ChartBase::FormatDate(LumoFormat&, Vexa_Format&) { return false; }
bool ChartBase::FormatElapsedTime(LumoFormat&, Vexa_Format&) { return false; }
int iVexa2DMY(double, long* day, long* month, long* year, long* hours, long* minutes, double* seconds) {
  *day = *month = *year = *hours = *minutes = 0;
  *seconds = 0;
  return 0;
}

// No templates: no settings, no engine, nobody who lays frames out.

class ChartTemplate::Application {};
ChartTemplate::ChartTemplate(LumoVisualization&, LumoVisualization*) {}
ChartTemplate::~ChartTemplate() = default;
bool ChartTemplate::setTemplate(std::string const&) { return false; }
void ChartTemplate::applyTemplate() {}

BaseTemplate::BaseTemplate(LumoVisualization const* baseline, LumoVisualization& working)
    : mBaseline(baseline), mWorking(working) {}
BaseTemplate::~BaseTemplate() = default;
void BaseTemplate::getAllElements(LumoGraph const&, std::vector<CTElementType*>&) {}
std::vector<LumoDimension*> BaseTemplate::getDimensionsByRole(LumoGraph const&, ChartString const&) const {
  return {};
}

FramePacker::FramePacker() = default;
FramePacker::~FramePacker() = default;
bool FramePacker::packFrames(LumoVisualization&, LumoDocument*) const { return false; }

ChartTransformer::ChartTransformer(std::string const& compressedXml, unsigned char const* stream,
                                   unsigned long size)
    : mCompressedXml(compressedXml), mStream(stream), mSize(size) {}
ChartTransformer::~ChartTransformer() = default;
std::string ChartTransformer::getEntireXML(char16_t const*) { return {}; }

std::vector<std::string> STemplate::Get() const { return {}; }
std::vector<std::string> OTemplate::Get() const { return {}; }
std::vector<std::string> CTemplate::Get() const { return {}; }
std::vector<std::string> DTemplate::Get() const { return {}; }
bool STemplate::isDirty() const { return false; }
bool OTemplate::isDirty() const { return false; }
bool CTemplate::isDirty() const { return false; }
bool DTemplate::isDirty() const { return false; }
void STemplate::setIsDirty(bool) {}
void OTemplate::setIsDirty(bool) {}
void CTemplate::setIsDirty(bool) {}
void DTemplate::setIsDirty(bool) {}
bool CTemplate::Exists() const { return false; }

// No Java: no conversion of other markup, no style sheets, no visualization templates.

VexaJVM* VexaJVM::GetInstance() { return nullptr; }
bool VexaJVM::IsStarted() { return false; }
bool VexaJVM::StartJVM() { return false; }
JNIEnv_* VexaJVM::GetEnv() { return nullptr; }
int VexaJVM::AttachCurrentThread(JNIEnv_** environment) {
  *environment = nullptr;
  return 1;
}
LumoConverter* LumoConverter::GetInstance() { return nullptr; }
bool LumoConverter::IsStarted() { return false; }
bool LumoConverter::StartConverter(JNIEnv_*) { return false; }
bool LumoConverter::PDLtoXML(std::string const&, std::string&) { return false; }
bool LumoConverter::UpgradeXML(std::string const&, std::string&) { return false; }
std::string LumoConverter::GetErrorMessage() const { return {}; }
plotDeskConverter* plotDeskConverter::GetInstance() {
  static plotDeskConverter converter;
  return &converter;
}
std::string plotDeskConverter::applyStyleSheet(std::string const&, std::string const&) { return {}; }
ClientAdapter* GetAdapter() {
  struct NoReply : ClientAdapter {
    std::string ConvertClientLumoTemplate(std::string const&) override { return {}; }
  };
  static NoReply adapter;
  return &adapter;
}
