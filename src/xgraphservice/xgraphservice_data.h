#pragma once

#include "xgraphservice.h"

#include <xercesc/dom/DOMDocument.hpp>

#include <memory>
#include <string>

struct XGraphService::Data {
  struct Release {
    void operator()(xercesc::DOMDocument* document) const { document->release(); }
  };

  /// Begins a service template in place of the one before.
  void createDocument(ChartString const& source);

  /// Needs a service template.
  void addVariable(std::string const& name, int index);

  /// The text of the service template; empty where there is none.
  std::string print() const;

  std::string getChartOptions() const { return mChartOptions; }

  std::string mChartOptions;
  /// Null before `createDocument`.
  std::unique_ptr<xercesc::DOMDocument, Release> mDocument;
};
