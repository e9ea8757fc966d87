#pragma once

#include "kestrel_export.h"
#include "xdocument.h"

#include <memory>
#include <string>

/// Sends an interactive page instead of a chart, in messages of its own kind (318). Its end record names the
/// editor of interactive content, unless `setEditor` says otherwise.
///
/// Nothing is reported: failures of sending show in the results alone, and what the host throws passes to the
/// caller.
class KESTREL_API xInteractive : public XDocument {
 public:
  /// No page yet.
  xInteractive();
  ~xInteractive() override;

  /// The page. As with all of these, the last text that was set counts.
  void setInteractiveJSON(std::string const& json);
  /// The procedure that the page belongs to.
  void setProcedureName(std::string const& name);
  /// Where the client finds or keeps the page.
  void setJSONPath(std::string const& path);
  /// Options for the client.
  void setOptions(std::string const& options);

  /// Attaches a file under its name. Attachments are sent in the order of the calls.
  /// @return false, and nothing is attached, where it is empty or cannot be read
  bool addGeoJSON(std::string const& fileName);

  /// Attaches a text under a name.
  /// @return false, and nothing is attached, where one of them is empty
  bool addGeoJSON(std::string const& name, std::string const& content);

  /// Sends the description, what was set, the attachments and the end record, which is a chart content
  /// message (307) as that of a chart is. What was not set is left out. Nothing follows a description that
  /// fails; any other failure keeps nothing back. A missing description is sent as `SendDescription` does,
  /// but the document stays without one.
  /// @return whether the last content between description and end record was sent; false where there is none
  bool sendInteractive() const;

  /// Private to the library.
  struct xInteractiveData;

 private:
  std::unique_ptr<xInteractiveData> mInteractive;
};
