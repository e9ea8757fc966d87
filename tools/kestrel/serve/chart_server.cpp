#include "chart_server.h"

#include "client/shipped_client.h"
#include "files.h"
#include "host_names.h"
#include "problem.h"
#include "workers.h"

#include <httplib.h>
#include <nlohmann/json.hpp>

#include <atomic>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <thread>
#include <utility>

namespace kestrel::tool {

namespace {

using namespace std::chrono_literals;

/// Each connection holds a thread. Those without a stream of events are for pages and charts, and are so many
/// that connections which ask for nothing, or slowly, leave some free.
constexpr std::size_t mostThreads = 512;
constexpr int mostStreams = 24;

/// So often a stream shows that it is there, and notices that its reader is not.
constexpr auto heartbeat = 5s;

constexpr auto readPatience = 2s;
constexpr auto writePatience = 10s;
/// So long a connection may be open before it asks for something.
constexpr std::time_t silenceSeconds = 1;
constexpr std::size_t longestBody = 1024;

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

std::string eventOf(ChartShelf::Kept const& kept) {
  nlohmann::json const data = {{"id", kept.id}, {"from", kept.from}, {"received", kept.received}};
  // The name of a file may be anything.
  return "event: chart\ndata: " + data.dump(-1, ' ', true, nlohmann::json::error_handler_t::replace) + "\n\n";
}

/// How far one reader has been told.
class EventStream {
 public:
  explicit EventStream(ChartShelf& shelf) : mShelf(&shelf) {}

  /// Waits for news and writes them. False where there will be none.
  bool writeTo(httplib::DataSink& sink) {
    ChartShelf::News const news = mShelf->news(mLast, mFirst, mIsNew ? 0s : heartbeat);
    if (news.isClosed || !sink.is_writable()) return false;
    std::string text = mIsNew ? "retry: 2000\n\n" : "";
    for (; mFirst < news.first; ++mFirst) {
      if (mFirst <= mLast) text += "event: gone\ndata: " + std::to_string(mFirst) + "\n\n";
    }
    for (ChartShelf::Kept const& kept : news.charts) {
      text += eventOf(kept);
      mLast = kept.id;
    }
    if (text.empty()) text = ":\n\n";
    mIsNew = false;
    return sink.write(text.data(), text.size());
  }

 private:
  ChartShelf* mShelf;
  std::size_t mLast = 0;
  std::size_t mFirst = 1;
  bool mIsNew = true;
};

}  // namespace

class ChartServer::Service {
 public:
  Service(ChartShelf& shelf, std::string host, int port) : mShelf(&shelf), mHost(std::move(host)) {
    mServer.new_task_queue = [] { return new Workers(mostThreads); };
    limit();
    guard();
    route();
    bind(port);
    mThread = std::thread([this] { mServer.listen_after_bind(); });
    while (!mServer.is_running()) std::this_thread::sleep_for(1ms);
  }

  ~Service() {
    mShelf->close();
    mServer.stop();
    mThread.join();
  }

  Service(Service const&) = delete;
  Service& operator=(Service const&) = delete;

  std::string url() const { return "http://" + inUrl(mHost) + ":" + std::to_string(mPort) + "/"; }

 private:
  using Request = httplib::Request;
  using Response = httplib::Response;
  using Handled = httplib::Server::HandlerResponse;

  void limit() {
    mServer.set_read_timeout(readPatience);
    mServer.set_write_timeout(writePatience);
    mServer.set_keep_alive_timeout(silenceSeconds);
    // A connection that has been answered holds no thread.
    mServer.set_keep_alive_max_count(1);
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
    auto const stream = std::make_shared<EventStream>(*mShelf);
    response.set_chunked_content_provider(
        "text/event-stream", [stream](std::size_t, httplib::DataSink& sink) { return stream->writeTo(sink); },
        [this](bool) { --mStreams; });
  }

  void bind(int port) {
    bool const isBound =
        port == 0 ? (mPort = mServer.bind_to_any_port(mHost)) > 0 : mServer.bind_to_port(mHost, mPort = port);
    if (!isBound)
      throw Problem("cannot serve at " + inUrl(printable(mHost)) + ":" + std::to_string(port) +
                        "; choose another --port or --host",
                    Exit::NotWritten);
    // The library lets five connections wait for their turn; of more, each would try again after a second.
    ::listen(mSocket, SOMAXCONN);
  }

  ChartShelf* mShelf;
  std::string mHost;
  int mSocket = -1;
  int mPort = 0;
  std::atomic<int> mStreams{0};
  httplib::Server mServer;
  std::thread mThread;
};

ChartServer::ChartServer(ChartShelf& shelf, std::string const& host, int port)
    : mService(std::make_unique<Service>(shelf, host, port)) {}

ChartServer::~ChartServer() = default;

std::string ChartServer::url() const { return mService->url(); }

}  // namespace kestrel::tool
