#pragma once

#include "kestrel_export.h"
#include "xdocument.h"

#include <memory>
#include <string>

/// Sends a chart for the client's interactive rendering engine instead of one in the chart markup. Its end
/// record names the editor of interactive content, unless `setEditor` says otherwise.
///
/// Nothing is reported: failures of sending show in the results alone, and what the host throws passes to the
/// caller.
class KESTREL_API xEmber : public XDocument {
 public:
  /// No chart yet.
  xEmber();
  ~xEmber() override;

  /// Takes the content of a file as the engine's JSON, also where there is none. (The other setters take the
  /// text itself.)
  /// @return whether it is not empty
  bool setLumoJSON(std::string const& fileName);

  /// The engine's template; the last text that was set counts, as with the options.
  void setLumoJSONTemplate(std::string const& json);
  /// Options for the client.
  void setOptions(std::string const& options);

  /// Attaches a file under its name. Attachments are sent in the order of the calls.
  /// @return false, and nothing is attached, where it is empty or cannot be read
  bool addGeoJSON(std::string const& fileName);

  /// Attaches a text under a name.
  /// @return false, and nothing is attached, where one of them is empty
  bool addGeoJSON(std::string const& name, std::string const& content);

  /// Sends the description, what was set, the attachments and the end record. What was not set is left out.
  /// Nothing follows a description that fails; any other failure keeps nothing back.
  /// @return whether the last content between description and end record was sent; false where there is none
  bool sendChart() const;

  /// Private to the library.
  struct xEmberData;

 private:
  std::unique_ptr<xEmberData> mEngine;
};
