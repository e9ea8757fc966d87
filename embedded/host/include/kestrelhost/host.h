#pragma once

#include "host/export.h"
#include "kestrelhost/channel.h"
#include "kestrelhost/chart_services.h"
#include "kestrelhost/compression.h"
#include "kestrelhost/conversion.h"
#include "kestrelhost/data_store.h"
#include "kestrelhost/dumps.h"
#include "kestrelhost/files.h"
#include "kestrelhost/locale.h"
#include "kestrelhost/log.h"
#include "kestrelhost/templates.h"
#include "kestrelhost/text.h"

#include <memory>
#include <string>

/// The embedded host: what stands behind the functions and classes of the host interface.
namespace kestrel::host {

/// The services of a host. A default-constructed one has the services that a plain process works with; each
/// can be replaced alone. Copies share their services.
struct VEXA_API Host {
  /// A host of the default services.
  Host();

  /// The host in force.
  static Host const& current();

  /// @{
  /// The services, each described with its class. A null one is replaced by the default where the host is put
  /// in force.
  std::shared_ptr<Channel> channel;
  std::shared_ptr<Log> log;
  std::shared_ptr<UserMessages> messages;
  std::shared_ptr<Trace> trace;
  std::shared_ptr<Dumps> dumps;
  std::shared_ptr<Files> files;
  std::shared_ptr<Paths> paths;
  std::shared_ptr<Texts> texts;
  std::shared_ptr<Locale> locale;
  std::shared_ptr<Calendar> calendar;
  std::shared_ptr<DisplayFormats> formats;
  std::shared_ptr<ChartTexts> chartTexts;
  std::shared_ptr<TemplateSettings> templateSettings;
  std::shared_ptr<TemplateEngine> templateEngine;
  std::shared_ptr<FrameLayout> frameLayout;
  std::shared_ptr<DataDump> dataDump;
  std::shared_ptr<JavaSide> java;
  std::shared_ptr<Compression> compression;
  /// @}

  /// Null, unless somebody watches the data stores.
  std::shared_ptr<StoreObserver> storeObserver;
};

/// Puts a host in force for as long as it lives; the one before comes back after it. Narrow text is read in
/// the code page of the host in force. A service that is null is replaced by the default one. The process has
/// one current host, so scopes are nested, and opened and closed on one thread while no other uses a service.
class VEXA_API ScopedHost {
 public:
  /// Throws std::invalid_argument where the locale's code page is unknown.
  explicit ScopedHost(Host host);
  ~ScopedHost();
  ScopedHost(ScopedHost const&) = delete;
  ScopedHost& operator=(ScopedHost const&) = delete;

 private:
  Host mHost;
  Host const* mBefore;
  std::string mCodePageBefore;
};

}  // namespace kestrel::host
