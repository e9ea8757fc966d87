// The values that a host and the library hand each other, and the fixed words of charts: alike in every host.
#include "host/chartbase.h"
#include "host/data_types.h"
#include "host/files.h"
#include "host/java.h"
#include "host/locale.h"
#include "host/log.h"
#include "host/messages.h"
#include "host/templates.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/SAXParseException.hpp>

#include <utility>

// Messages.

VexaGoToCaller::VexaGoToCaller() = default;
VexaGoToCaller::VexaGoToCaller(VexaGoToCaller const&) = default;
VexaGoToCaller::~VexaGoToCaller() = default;

BpCellText::BpCellText(std::string text, bool fixed) : mText(std::move(text)), mFixed(fixed) {}
BpCellText::BpCellText(BpCellText const&) = default;
BpCellText& BpCellText::operator=(BpCellText const&) = default;
BpCellText::~BpCellText() = default;
std::string const& BpCellText::text() const { return mText; }
bool BpCellText::fixed() const { return mFixed; }
void BpCellText::assign(std::string text) { mText = std::move(text); }

BpString::BpString(std::string text, bool fixed) : BpCellText(std::move(text), fixed) {}
BpString::BpString(BpString const&) = default;
BpString& BpString::operator=(BpString const&) = default;
BpString::~BpString() = default;

BpComposite::BpComposite(std::string const& pattern, bool fixed)
    : BpCellText(pattern, fixed), mPattern(pattern) {}
BpComposite::BpComposite(BpComposite const&) = default;
BpComposite& BpComposite::operator=(BpComposite const&) = default;
BpComposite::~BpComposite() = default;
void BpComposite::Add(BpCellText const& cell) { mCells.emplace_back(cell.text(), cell.fixed()); }
std::string const& BpComposite::pattern() const { return mPattern; }
std::vector<BpString> const& BpComposite::cells() const { return mCells; }

void BpComposite::Finish() {
  std::string filled;
  for (std::size_t at = 0; at < mPattern.size(); ++at) {
    char const digit = mPattern[at] == '^' && at + 1 < mPattern.size() ? mPattern[at + 1] : '0';
    auto const cell = static_cast<std::size_t>(digit - '1');
    bool const placeholder = digit >= '1' && digit <= '9' && cell < mCells.size();
    if (placeholder) ++at;
    filled += placeholder ? mCells[cell].text() : std::string(1, mPattern[at]);
  }
  assign(std::move(filled));
}

// Failures.

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

JException::JException() = default;
JException::JException(std::string const& message) : mMessage(message) {}
JException::JException(JException const&) = default;
JException& JException::operator=(JException const&) = default;
JException::~JException() = default;
std::string JException::getMessage() const { return mMessage; }

ChartErrorHandler::ChartErrorHandler() = default;
ChartErrorHandler::~ChartErrorHandler() = default;
void ChartErrorHandler::fatalError(xercesc::SAXParseException const& failure) { throw failure; }
xercesc::InputSource* ChartErrorHandler::resolveEntity(XMLCh const*, XMLCh const*) {
  static XMLByte const nothing[1] = {};
  return new xercesc::MemBufInputSource(nothing, 0, "nothing");
}

// Data of procedures.

Vexa_ValueLabels::~Vexa_ValueLabels() = default;
Vexa_Variable::~Vexa_Variable() = default;
Vexa_DataSource::~Vexa_DataSource() = default;
ProcedureDataSource::~ProcedureDataSource() = default;
Vexa_InputCaseIterator::~Vexa_InputCaseIterator() = default;
ProcDSIterator::~ProcDSIterator() = default;

Vexa_ValueLabelMap::Vexa_ValueLabelMap(Vexa_VLImplPointer const& labels) : mLabels(labels), mNext(0) {}
Vexa_ValueLabelMap::~Vexa_ValueLabelMap() = default;
void Vexa_ValueLabelMap::Reset() { mNext = 0; }
int Vexa_ValueLabelMap::GetNextPair(OBS const*& value, char const*& label) const {
  Vexa_ValueLabels const* const labels = mLabels.get();
  if (labels == nullptr || mNext >= labels->GetCount()) return 0;
  value = labels->GetValue(mNext);
  label = labels->GetLabel(mNext);
  ++mNext;
  return 1;
}

// Services without a state, and bases of classes.

FetchFile::FetchFile() = default;
FetchFile::~FetchFile() = default;
OLang::OLang() = default;
OLang::~OLang() = default;
PathInstance::~PathInstance() = default;
ClientAdapter::~ClientAdapter() = default;
XTemplate::~XTemplate() = default;
XTemplate* STemplate::_impl = nullptr;
XTemplate* OTemplate::_impl = nullptr;
XTemplate* CTemplate::_impl = nullptr;
XTemplate* DTemplate::_impl = nullptr;

// The words.

char16_t const ChartBase::_container[] = u"container";
char16_t const ChartBase::_default_style[] = u"s";
char16_t const ChartBase::_frame_data_1[] = u"frame_data_1";
char16_t const ChartBase::_frame_graph_1[] = u"frame_graph_1";
char16_t const ChartBase::_frame_title_1[] = u"frame_title_1";
char16_t const ChartBase::_frame_title_2[] = u"frame_title_2";
char16_t const ChartBase::_frame_subtitle_1[] = u"frame_subtitle_1";
char16_t const ChartBase::_frame_footnote_1[] = u"frame_footnote_1";
char16_t const ChartBase::_frame_footnote_2[] = u"frame_footnote_2";
char16_t const ChartBase::_frame_footnote_3[] = u"frame_footnote_3";
char16_t const ChartBase::_frame_statistics_summary_1[] = u"frame_statistics_summary_1";
char16_t const ChartBase::_matrixscatter[] = u"matrixscatter";
char16_t const ChartBase::_percent[] = u"%";
char16_t const ChartBase::_styleCyclePattern[] = u"styleCyclePattern";
char16_t const ChartBase::_styleCycleRepository[] = u"styleCycleRepository";
char16_t const ChartBase::_utf8[] = u"UTF-8";
