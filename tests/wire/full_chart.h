#pragma once

#include "xdocument.h"
#include "xsource.h"

#include "kestrelhost/recorder.h"
#include "model/document.h"

#include <memory>
#include <string>
#include <vector>

namespace kestrel::test {

/// Sets an environment variable for as long as it lives.
class EnvironmentVariable {
 public:
  EnvironmentVariable(std::string name, std::string const& value);
  EnvironmentVariable(EnvironmentVariable const&) = delete;
  EnvironmentVariable& operator=(EnvironmentVariable const&) = delete;
  ~EnvironmentVariable();

 private:
  std::string mName;
  bool mWasSet;
  std::string mBefore;
};

/// A chart with content of every kind and a host in memory of its own: points over two columns, a date that
/// takes relabels, maps, two files, a style sheet, a template of a file and one of a text, and all dumps
/// wanted.
class FullChart {
 public:
  FullChart();

  /// The calls that are noted are those of the last send.
  bool send();

  /// What the client has got.
  std::vector<host::Message> const& got() const { return services.channel->messages(); }

 private:
  EnvironmentVariable mDumps{"DumpChartXMLPath", ""};

 public:
  host::MemoryServices services;
  host::Recorder recorder{noted()};
  host::ScopedHost scope{inForce()};
  LumoDocument model;
  XDocument document{model};
  std::unique_ptr<XSource> source;

 private:
  host::Host noted() const;
  host::Host inForce() const;
  void describe();
  void addData();
  void addDate();
};

}  // namespace kestrel::test
