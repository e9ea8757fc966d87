#pragma once

#include "kestrel_export.h"
#include "xdocument.h"

#include <memory>
#include <string>

class ChartString;

/// Sends a service template, the options of a chart and its data instead of a chart: the client makes the
/// chart itself. The data is that of `SetChartData`.
///
/// Nothing is reported: failures of sending show in the results alone, and what the host throws passes to the
/// caller.
class KESTREL_API XGraphService : public XDocument {
 public:
  /// No options and no service template yet.
  XGraphService();
  ~XGraphService() override;

  /// Begins a service template, without variables; one that was begun before is gone.
  /// @param source the id of the data source in the store
  /// @return true
  /// @throws ChartException where the XML library cannot make a document
  bool createDocument(ChartString const& source);

  /// Appends a variable to the service template. Does nothing before `createDocument`.
  /// @param name in the local code page
  /// @param index the caller's number for it, 0 or above
  void addVariable(std::string name, int index);

  /// The options, in the form that the caller and the client agree on.
  /// @return whether they are not empty; they are taken in any case
  bool setChartOptions(std::string const& options);

  /// Sends the description, the options, the service template, the data and the end record. Without a service
  /// template, neither that nor the data is sent. Nothing follows a description that fails; any other failure
  /// keeps nothing back.
  /// @return whether the last content between description and end record was sent. Empty options and missing
  ///         data count as sent
  bool sendChartOptions() const;

  /// Private to the library.
  struct Data;

 private:
  std::unique_ptr<Data> mService;
};
