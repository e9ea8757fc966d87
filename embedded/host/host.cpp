#include "kestrelhost/host.h"

#include "data_store_watch.h"

#include "kestrelhost/data_dump.h"
#include "kestrelhost/frame_layout.h"
#include "kestrelhost/template_engine.h"
#include "model/chartstring.h"

#include <utility>

namespace kestrel::host {

namespace {

Host const* inForce = nullptr;

/// Never destroyed: destructors of statics elsewhere still use the host.
Host const& plainHost() {
  static Host const& host = *new Host();
  return host;
}

void putInForce(Host const* host) {
  inForce = host;
  watchStores(host != nullptr ? host->storeObserver.get() : nullptr);
}

template <typename Service>
void complete(std::shared_ptr<Service>& service, std::shared_ptr<Service> const& usual) {
  if (!service) service = usual;
}

Host completed(Host host) {
  Host const& plain = plainHost();
  complete(host.channel, plain.channel);
  complete(host.log, plain.log);
  complete(host.messages, plain.messages);
  complete(host.trace, plain.trace);
  complete(host.dumps, plain.dumps);
  complete(host.files, plain.files);
  complete(host.paths, plain.paths);
  complete(host.texts, plain.texts);
  complete(host.locale, plain.locale);
  complete(host.calendar, plain.calendar);
  complete(host.formats, plain.formats);
  complete(host.chartTexts, plain.chartTexts);
  complete(host.templateSettings, plain.templateSettings);
  complete(host.templateEngine, plain.templateEngine);
  complete(host.frameLayout, plain.frameLayout);
  complete(host.dataDump, plain.dataDump);
  complete(host.java, plain.java);
  complete(host.compression, plain.compression);
  return host;
}

}  // namespace

Host::Host()
    : channel(std::make_shared<DefaultChannel>()),
      log(std::make_shared<StandardLog>()),
      messages(std::make_shared<StandardMessages>()),
      trace(std::make_shared<StandardTrace>()),
      dumps(std::make_shared<EnvironmentDumps>()),
      files(std::make_shared<LocalFiles>()),
      paths(std::make_shared<SharePaths>()),
      texts(std::make_shared<FolderTexts>()),
      locale(std::make_shared<EnvironmentLocale>()),
      calendar(std::make_shared<UnixCalendar>()),
      formats(std::make_shared<UsualFormats>()),
      chartTexts(std::make_shared<UsualChartTexts>()),
      templateSettings(std::make_shared<TemplateLists>()),
      templateEngine(std::make_shared<XmlTemplateEngine>()),
      frameLayout(std::make_shared<StackedFrames>()),
      dataDump(std::make_shared<EmbeddedDataDump>()),
      java(makeJava()),
      compression(std::make_shared<ZlibCompression>()) {}

Host const& Host::current() { return inForce != nullptr ? *inForce : plainHost(); }

ScopedHost::ScopedHost(Host host)
    : mHost(completed(std::move(host))), mBefore(inForce), mCodePageBefore(ChartString::localCodePage()) {
  // First what may throw.
  ChartString::setLocalCodePage(mHost.locale->codePage());
  putInForce(&mHost);
}

ScopedHost::~ScopedHost() {
  putInForce(mBefore);
  ChartString::setLocalCodePage(mCodePageBefore);
}

}  // namespace kestrel::host
