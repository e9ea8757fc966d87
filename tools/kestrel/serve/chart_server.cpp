#include "chart_server.h"

#include "addresses.h"
#include "client/shipped_client.h"
#include "event_stream.h"
#include "files.h"
#include "host_names.h"
#include "problem.h"
#include "timed_server.h"

#include <httplib.h>

#include <atomic>
#include <charconv>
#include <chrono>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <utility>

namespace kestrel::tool {

namespace {

using namespace std::chrono_literals;

/// Each connection holds a thread. Those without a stream of events are for pages and charts.
constexpr std::size_t mostConnections = 512;
constexpr int mostStreams = 24;

/// So often a stream shows that it is there, and notices that its reader is not.
constexpr auto heartbeat = 5s;

/// So long others may keep a thread waiting, however they divide it.
constexpr Patience patience{.firstByte = 1s,
                            .request = 10s,
                            .answer = 30s,
                            .bytesPerSecond = std::size_t{64} << 10,
                            .longestRequest = std::size_t{64} << 10};
constexpr std::size_t longestBody = 1024;

/// So long a page waits for events before it has to ask again, so that others get their turn.
constexpr auto longestStream = 1h;

constexpr int badRequest = 400;
constexpr int forbidden = 403;
constexpr int notFound = 404;
constexpr int notAllowed = 405;
constexpr int unavailable = 503;

constexpr char const* policy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src data:; connect-src 'self'; "
    "base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

struct Asset {
  char const* path;
  char const* file;
  char const* type;
};

constexpr Asset assets[] = {
    {"/", "live.html", "text/html; charset=utf-8"},
    {"/live.js", "live.js", "text/javascript; charset=utf-8"},
    {"/client.css", "client.css", "text/css; charset=utf-8"},
};

void refuse(httplib::Response& response, int status, char const* why) {
  response.status = status;
  response.set_content(std::string(why) + "\n", "text/plain; charset=utf-8");
}

/// Tells this run of the server from others.
std::string randomName() {
  std::random_device source;
  return std::to_string(source()) + std::to_string(source());
}

}  // namespace

class ChartServer::Service {
 public:
  Service(ChartShelf& shelf, std::string host, int port) : mShelf(&shelf), mHost(std::move(host)) {
    limit();
    guard();
    route();
    bind(port);
    mThread = std::thread([this] { mServer.listen_after_bind(); });
    while (!mServer.is_running()) std::this_thread::sleep_for(1ms);
  }

  ~Service() {
    mShelf->close();
    mServer.stopAtOnce();
    mThread.join();
  }

  Service(Service const&) = delete;
  Service& operator=(Service const&) = delete;

  std::string url() const {
    // Where all addresses are meant, a browser of this machine takes this one.
    std::string const host = reachOf(mHost) == Reach::AllAddresses ? "localhost" : inUrl(mHost);
    return "http://" + host + ":" + std::to_string(mPort) + "/";
  }

 private:
  using Request = httplib::Request;
  using Response = httplib::Response;
  using Handled = httplib::Server::HandlerResponse;

  void limit() {
    mServer.set_payload_max_length(longestBody);
    // As usual but for a port that another server has: it would get half of the requests.
    mServer.set_socket_options([this](auto socket) {
      mSocket = socket;
      int const yes = 1;
      ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    });
  }

  void guard() {
    mServer.set_default_headers({{"Content-Security-Policy", policy},
                                 {"X-Content-Type-Options", "nosniff"},
                                 {"Referrer-Policy", "no-referrer"},
                                 {"Cross-Origin-Resource-Policy", "same-origin"},
                                 {"Cross-Origin-Opener-Policy", "same-origin"},
                                 {"Cache-Control", "no-store"}});
    mServer.set_pre_routing_handler([this](Request const& request, Response& response) {
      bool const isOne = request.get_header_value_count("Host") == 1;
      if (!isOne || !isOurName(request.get_header_value("Host"), mHost)) {
        refuse(response, forbidden, "This server goes by its address alone.");
        return Handled::Handled;
      }
      if (request.method != "GET" && request.method != "HEAD") {
        refuse(response, notAllowed, "There is nothing here but to be read.");
        return Handled::Handled;
      }
      return Handled::Unhandled;
    });
    mServer.set_error_handler([](Request const&, Response& response) {
      if (!response.body.empty()) return;
      if (response.status == notFound) refuse(response, notFound, "There is nothing of that name.");
      if (response.status == badRequest) refuse(response, badRequest, "This is no request.");
    });
  }

  void route() {
    for (Asset const& asset : assets) {
      std::string const bytes = readFile(clientFile(asset.file).string());
      mServer.Get(asset.path, [bytes, type = asset.type](Request const&, Response& response) {
        response.set_content(bytes, type);
      });
    }
    mServer.Get("/events", [this](Request const&, Response& response) { streamEvents(response); });
    mServer.Get(R"(/charts/([1-9][0-9]{0,17})\.kcap)", [this](Request const& request, Response& response) {
      sendChart(request.matches[1].str(), response);
    });
  }

  void sendChart(std::string const& digits, Response& response) const {
    std::size_t id = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), id);
    std::shared_ptr<std::string const> const bytes = mShelf->find(id);
    if (bytes == nullptr) {
      refuse(response, notFound, "This chart is not kept.");
      return;
    }
    response.set_content_provider(bytes->size(), "application/octet-stream",
                                  [bytes](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
                                    return sink.write(bytes->data() + offset, length);
                                  });
  }

  void streamEvents(Response& response) {
    if (mStreams.fetch_add(1) >= mostStreams) {
      --mStreams;
      refuse(response, unavailable, "Too many pages are open already.");
      return;
    }
    auto const stream = std::make_shared<EventStream>(*mShelf, mName, longestStream);
    response.set_chunked_content_provider(
        "text/event-stream",
        [stream](std::size_t, httplib::DataSink& sink) {
          std::optional<std::string> const text = stream->next(heartbeat);
          return text && sink.is_writable() && sink.write(text->data(), text->size());
        },
        [this](bool) { --mStreams; });
  }

  void bind(int port) {
    bool const isBound =
        port == 0 ? (mPort = mServer.bind_to_any_port(mHost)) > 0 : mServer.bind_to_port(mHost, mPort = port);
    if (!isBound)
      throw Problem("cannot serve at " + inUrl(printable(mHost)) + ":" + std::to_string(port) + ": " +
                        whyNotServed(mHost, port) +
                        "; choose another --host or --port, of which 0 is any that is free",
                    Exit::NotWritten);
    // The library lets five connections wait for their turn; of more, each would try again after a second.
    ::listen(mSocket, SOMAXCONN);
  }

  ChartShelf* mShelf;
  std::string mHost;
  int mSocket = -1;
  int mPort = 0;
  std::string const mName = randomName();
  std::atomic<int> mStreams{0};
  TimedServer mServer{mostConnections, patience};
  std::thread mThread;
};

ChartServer::ChartServer(ChartShelf& shelf, std::string const& host, int port)
    : mService(std::make_unique<Service>(shelf, host, port)) {}

ChartServer::~ChartServer() = default;

std::string ChartServer::url() const { return mService->url(); }

}  // namespace kestrel::tool
