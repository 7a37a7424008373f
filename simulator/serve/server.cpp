// libwebsockets' one loop: requests, pages' messages, and the process with the home screen.
#include "simulator/serve/server.hpp"

#include <fmt/format.h>
#include <libwebsockets.h>
#include <signal.h>

#include <algorithm>
#include <iostream>
#include <map>

#include "simulator/app/libraries.hpp"
#include "simulator/device/text.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/json/json.hpp"
#include "simulator/serve/connection.hpp"
#include "simulator/serve/gate.hpp"
#include "simulator/serve/homes.hpp"
#include "simulator/serve/library_watch.hpp"
#include "simulator/serve/page_files.hpp"
#include "simulator/serve/pages.hpp"
#include "simulator/serve/response.hpp"

namespace sim::serve {
namespace {

constexpr unsigned mostDescriptors = 128;
constexpr int mostHeld = mostDescriptors - 20;  // the rest is for home screens, which start at any time
constexpr unsigned patience = 10;               // seconds for half a request
constexpr double watchInterval = 0.5;           // seconds

constexpr const char* secondProtocol = "tilo-second";  // of pages that look at the second home screen

volatile sig_atomic_t interrupted = 0;

std::vector<std::filesystem::path> librariesOf(const Options& options, const Program& program) {
  std::vector<std::filesystem::path> files;
  for (const Library& library : librariesToLoad(options, program)) files.push_back(library.file);
  return files;
}

class Server {
 public:
  Server(const Options& start, const Program& tables, const Listening& listening)
      : homes(start, tables, pages), watching(listening.watch), watch(librariesOf(start, tables)) {
    open(listening);
    ::signal(SIGINT, [](int) { interrupted = 1; });
    ::signal(SIGTERM, [](int) { interrupted = 1; });
    homes.use(vhost);
    homes.start(Place::first, false);
    std::cout << gate->address() << std::endl;
  }
  ~Server() {
    homes.end();
    lws_context_destroy(context);
  }

  void run() {
    if (watching) watchLibraries();
    while (!interrupted && !isOver && lws_service(context, 0) >= 0) {
    }
  }

 private:
  void open(const Listening& listening) {
    lws_set_log_level(0, nullptr);
    static const lws_protocols protocols[] = {{"http", callback, 0, 4096, 0, nullptr, 0},
                                              {"tilo", callback, 0, 65536, 0, nullptr, 0},
                                              {secondProtocol, callback, 0, 65536, 0, nullptr, 0},
                                              {"home", callback, 0, 4096, 0, nullptr, 0},
                                              {nullptr, nullptr, 0, 0, 0, nullptr, 0}};
    lws_context_creation_info info{};
    info.port = listening.port;
    info.iface = listening.address == "0.0.0.0" ? nullptr : listening.address.c_str();
    info.protocols = protocols;
    info.user = this;
    info.gid = info.uid = static_cast<decltype(info.uid)>(-1);
    info.timeout_secs = patience;
    info.fd_limit_per_thread = mostDescriptors;
    info.options = LWS_SERVER_OPTION_FAIL_UPON_UNABLE_TO_BIND | LWS_SERVER_OPTION_DISABLE_IPV6;
    context = lws_create_context(&info);
    vhost = context ? lws_get_vhost_by_name(context, "default") : nullptr;
    if (!vhost)
      throw UsageError(fmt::format("--serve: cannot listen at {}:{}", listening.address, listening.port));
    gate.emplace(listening.address, lws_get_vhost_listen_port(vhost));
  }

  void watchLibraries() {
    timer.cb = [](lws_sorted_usec_list_t* list) {
      auto& server = *reinterpret_cast<Timer*>(list)->server;
      if (server.watch.haveChanged()) server.homes.startAnew();
      server.watchLibraries();
    };
    lws_sul_schedule(context, 0, &timer, timer.cb, static_cast<lws_usec_t>(watchInterval * 1e6));
  }

  // Pages.

  int join(lws* connection) {
    const bool isSecond = lws_get_protocol(connection)->name == std::string_view(secondProtocol);
    const Page* page = pages.add(connection, isSecond ? Place::second : Place::first);
    if (!page) return refuse(connection, "there are too many pages already");
    pages.tell(connection, homes.at(page->home).welcome());
    homes.at(page->home).send({page->number, true, R"({"type":"join"})"});
    return 0;
  }

  void leave(lws* connection) {
    const Page* page = pages.of(connection);
    if (!page) return;
    const Place place = page->home;
    homes.at(place).send({page->number, true, R"({"type":"leave"})"});
    pages.remove(connection);
    if (place == Place::second && pages.at(place).empty()) homes.at(place).end();
  }

  int receive(lws* connection, const char* bytes, std::size_t count) {
    Page* page = pages.of(connection);
    if (!page) return -1;
    switch (pages.receive(connection, *page, bytes, count)) {
      case Pages::Received::more:
        return 0;
      case Pages::Received::tooLong:
        return refuse(connection, "a message is too long");
      case Pages::Received::whole:
        return obey(connection, *page, std::exchange(page->received, {}));
    }
    return -1;
  }

  int obey(lws* connection, Page& page, const std::string& text) {
    const std::optional<Json> message = Json::read(text, 20);
    if (lws_frame_is_binary(connection) || !message || !message->isObject() ||
        !message->value("type").isString())
      return refuse(connection, "a message is no JSON object with a type");
    if (const Json id = message->value("id"); id.isNumber())
      page.asked = std::max(page.asked, id.get<double>());
    try {
      obey(page, *message, text);
    } catch (const UsageError& error) {
      pages.tell(connection,
                 {{"type", "refused"}, {"id", message->value("id")}, {"reason", messageLine(error.what())}});
    } catch (const JsonError& error) {
      return refuse(connection, messageLine(error.what()));
    }
    return 0;
  }

  void obey(const Page& page, const Json& message, const std::string& text) {
    const auto type = message.value("type").get<std::string>();
    if (type == "quit") {
      isOver = true;
    } else if (type == "device") {
      homes.startAs(page.home, message);
    } else if (!homes.at(page.home).isRunning()) {
      throw UsageError("there is no SpringBoard");
    } else if (type == "respring") {
      homes.start(page.home, message.value("safe") == Json(true));
    } else if (type == "join" || type == "leave") {
      throw UsageError(fmt::format("'{}' is not for pages to say", type));
    } else if (homes.at(page.home).isBusy()) {
      throw UsageError("SpringBoard is busy");
    } else {
      homes.at(page.home).send({page.number, true, text});
    }
  }

  // Requests.

  bool mayCome(lws* connection) const {
    return gate->isOwnHost(header(connection, WSI_TOKEN_HOST)) &&
           gate->isOwnOrigin(header(connection, WSI_TOKEN_ORIGIN)) &&
           gate->behindToken(header(connection, WSI_TOKEN_GET_URI));
  }

  int respond(lws* connection, std::string_view path) {
    const bool allowed = mayCome(connection);
    const auto file = allowed ? pageFile(*gate->behindToken(path)) : std::nullopt;
    const unsigned status = !allowed ? HTTP_STATUS_FORBIDDEN : file ? HTTP_STATUS_OK : HTTP_STATUS_NOT_FOUND;
    const std::string_view body = file ? file->contents : !allowed ? "Forbidden\n" : "Not found\n";
    const std::string_view type = file ? file->type : "text/plain; charset=utf-8";
    if (!sendHead(connection, status, type, body.size())) return 1;
    responses[connection] = std::string(LWS_PRE, '\0') + std::string(body);
    lws_callback_on_writable(connection);
    return 0;
  }

  int writeResponse(lws* connection) {
    const auto found = responses.find(connection);
    if (found == responses.end()) return 0;
    std::string body = std::move(found->second);
    responses.erase(found);
    const std::size_t count = body.size() - LWS_PRE;
    const int written = lws_write(connection, reinterpret_cast<unsigned char*>(body.data()) + LWS_PRE, count,
                                  LWS_WRITE_HTTP_FINAL);
    return written < static_cast<int>(count) || lws_http_transaction_completed(connection) ? -1 : 0;
  }

  int handle(lws* connection, lws_callback_reasons reason, void* in, std::size_t length) {
    switch (reason) {
      case LWS_CALLBACK_WSI_CREATE:
        ++held;
        return 0;
      case LWS_CALLBACK_WSI_DESTROY:
        --held;
        return 0;
      case LWS_CALLBACK_FILTER_NETWORK_CONNECTION:
        return held < mostHeld ? 0 : -1;
      case LWS_CALLBACK_HTTP:
        return respond(connection, header(connection, WSI_TOKEN_GET_URI));
      case LWS_CALLBACK_HTTP_WRITEABLE:
        return writeResponse(connection);
      case LWS_CALLBACK_CLOSED_HTTP:
        responses.erase(connection);
        return 0;
      case LWS_CALLBACK_FILTER_PROTOCOL_CONNECTION:
        if (mayCome(connection) && *gate->behindToken(header(connection, WSI_TOKEN_GET_URI)) == "socket")
          return 0;
        lws_return_http_status(connection, HTTP_STATUS_FORBIDDEN, nullptr);
        return -1;
      case LWS_CALLBACK_ESTABLISHED:
        return join(connection);
      case LWS_CALLBACK_RECEIVE:
        return receive(connection, static_cast<const char*>(in), length);
      case LWS_CALLBACK_SERVER_WRITEABLE:
        return pages.write(connection);
      case LWS_CALLBACK_CLOSED:
        leave(connection);
        return 0;
      case LWS_CALLBACK_RAW_RX_FILE:
        return homes.read(connection) ? 0 : -1;
      case LWS_CALLBACK_RAW_WRITEABLE_FILE:
        homes.write(connection);
        return 0;
      case LWS_CALLBACK_EVENT_WAIT_CANCELLED:
        homes.goOn();
        return 0;
      case LWS_CALLBACK_RAW_CLOSE_FILE:
        homes.lostHold(connection);
        return 0;
      default:
        return 0;
    }
  }

  static int callback(lws* connection, lws_callback_reasons reason, void*, void* in, std::size_t length) {
    auto* server = connection ? static_cast<Server*>(lws_context_user(lws_get_context(connection))) : nullptr;
    return server && server->vhost ? server->handle(connection, reason, in, length) : 0;
  }

  struct Timer : lws_sorted_usec_list_t {
    Server* server;
  };

  Pages pages;
  Homes homes;
  const bool watching;
  LibraryWatch watch;
  std::optional<Gate> gate;
  lws_context* context = nullptr;
  lws_vhost* vhost = nullptr;
  bool isOver = false;
  int held = 0;                           // connections, and ends of home screens
  std::map<lws*, std::string> responses;  // with room for the library in front
  Timer timer{{}, this};
};

}  // namespace

void serve(const Options& options, const Program& program, const Listening& listening) {
  Server(options, program, listening).run();
}

}  // namespace sim::serve
