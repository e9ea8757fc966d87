#include "host/chartbase.h"

#include "host/data_types.h"
#include "kestrelhost/host.h"

using kestrel::host::Host;

void ChartBase::printDebugInfo(std::string const& line) { Host::current().trace->line(line); }

bool ChartBase::willPrintString(PRINTTYPE type) { return Host::current().dumps->wanted(type); }

void ChartBase::printString(std::string const& content, std::string const& prefix, std::string const& suffix,
                            unsigned long number, PRINTTYPE type) {
  Host::current().dumps->print(content, prefix, suffix, number, type);
}

ChartString ChartBase::CreateUniqueId(ChartString const& id, LumoVisualization& visualization) {
  return Host::current().chartTexts->createUniqueId(id, visualization);
}

bool ChartBase::FormatNumber(LumoFormat& element, Vexa_Format& format) {
  return Host::current().formats->number(element, format);
}

bool ChartBase::FormatCustomCurrency(LumoFormat& element, Vexa_Format& format) {
  return Host::current().formats->customCurrency(element, format);
}

bool ChartBase::FormatDate(LumoFormat& element, Vexa_Format& format) {
  return Host::current().formats->date(element, format);
}

bool ChartBase::FormatElapsedTime(LumoFormat& element, Vexa_Format& format) {
  return Host::current().formats->elapsedTime(element, format);
}

void ChartBase::updateText(ChartString& text, FacSTDictionary* dictionary, std::string const& encoding) {
  Host::current().chartTexts->updateText(text, dictionary, encoding);
}

// These ids are part of every chart text, and templates address nodes by them: they never change.
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
