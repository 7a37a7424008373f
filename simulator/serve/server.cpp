// libwebsockets' one loop: requests, pages' messages, and the process with the home screen.
#include "simulator/serve/server.hpp"

#include <fmt/format.h>
#include <libwebsockets.h>
#include <signal.h>

#include <algorithm>
#include <deque>
#include <iostream>
#include <map>
#include <memory>

#include "simulator/app/libraries.hpp"
#include "simulator/device/temporary_root.hpp"
#include "simulator/device/text.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/json/json.hpp"
#include "simulator/serve/gate.hpp"
#include "simulator/serve/home_process.hpp"
#include "simulator/serve/page_files.hpp"

namespace sim::serve {
namespace {

// What a page may ask of us, so that no page takes more than its share.
constexpr std::size_t longestMessage = 1 << 20;  // bytes
constexpr std::size_t longestQueue = 64u << 20;  // bytes that a page has not taken yet
constexpr std::size_t mostPages = 8;
constexpr unsigned mostDescriptors = 128;
constexpr unsigned patience = 10;      // seconds for half a request
constexpr double soonest = 2;          // seconds; what ends sooner in safe mode does not start again
constexpr double watchInterval = 0.5;  // seconds

constexpr const char* policy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob:; connect-src 'self'; "
    "base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

volatile sig_atomic_t interrupted = 0;

std::string header(lws* connection, lws_token_indexes which) {
  std::string text(static_cast<std::size_t>(lws_hdr_total_length(connection, which)) + 1, '\0');
  const int length = lws_hdr_copy(connection, text.data(), static_cast<int>(text.size()), which);
  text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return text;
}

double seconds() { return static_cast<double>(lws_now_usecs()) / 1e6; }

class Server {
 public:
  Server(const Options& start, const Program& tables, const Listening& listening)
      : options(start), program(tables), watching(listening.watch), stock(start.stock) {
    if (!options.root) options.root = temporary.emplace().path();
    open(listening);
    ::signal(SIGINT, [](int) { interrupted = 1; });
    ::signal(SIGTERM, [](int) { interrupted = 1; });
    startHome();
    std::cout << gate->address() << std::endl;
  }
  ~Server() {
    home.reset();
    lws_context_destroy(context);
  }

  void run() {
    if (watching) watchLibrary();
    while (!interrupted && !isOver && lws_service(context, 0) >= 0) {
    }
  }

 private:
  struct Page {
    std::uint32_t number;
    std::string received;
    std::deque<std::pair<bool, std::string>> queue;  // text or not, with room for the library in front
    std::size_t queued = 0;
  };
  void open(const Listening& listening) {
    lws_set_log_level(0, nullptr);
    static const lws_protocols protocols[] = {{"http", callback, 0, 4096, 0, nullptr, 0},
                                              {"tilo", callback, 0, 65536, 0, nullptr, 0},
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

  // The process with the home screen.

  void startHome() {
    Options own = options;
    own.stock = stock || isSafe;
    home = std::make_unique<HomeProcess>(own, program);
    started = seconds();
    homeSocket = adopt(home->messages());
    errorPipe = adopt(home->errors());
    tellAll(welcome());
    for (const auto& [connection, page] : pages) home->send({page.number, true, R"({"type":"join"})"});
  }

  // A copy of the descriptor, which the loop closes when it lets go of it.
  lws* adopt(int descriptor) {
    lws_sock_file_fd_type own;
    own.filefd = ::dup(descriptor);
    return lws_adopt_descriptor_vhost(vhost, LWS_ADOPT_RAW_FILE_DESC, own, "home", nullptr);
  }

  void letGo(lws*& adopted) {
    if (lws* one = std::exchange(adopted, nullptr))
      lws_set_timeout(one, PENDING_TIMEOUT_USER_OK, LWS_TO_KILL_ASYNC);
  }

  void endHome() {
    letGo(homeSocket);
    letGo(errorPipe);
    home.reset();
  }

  void restart(bool safely) {
    endHome();
    isSafe = safely;
    startHome();
  }

  // SpringBoard has ended by itself. Unless it was asked to, it comes back without libraries, as on a phone.
  void homeEnded() {
    const std::optional<std::string> fault = home->end();
    if (!fault) return restart(false);
    const std::string& reason = *fault;
    const bool again = !isSafe || seconds() - started > soonest;
    tellAll({{"type", "ended"}, {"reason", reason}, {"safe", again}});
    std::cerr << program.name << ": SpringBoard has ended: " << reason
              << (again ? "; it starts again without libraries" : "") << std::endl;
    endHome();
    if (!again) return;
    isSafe = true;
    startHome();
  }

  bool readHome() {
    const bool alive = home->read();
    while (const auto envelope = home->next())
      for (auto& [connection, page] : pages)
        if (envelope->page == 0 || envelope->page == page.number)
          tell(connection, page, envelope->isText, envelope->contents);
    if (!alive) homeEnded();
    return alive;
  }

  void toHome(const Envelope& envelope) {
    if (!home) return;
    home->send(envelope);
    if (home->hasToWrite() && homeSocket) lws_callback_on_writable(homeSocket);
  }

  void watchLibrary() {
    timer.cb = [](lws_sorted_usec_list_t* list) {
      auto& server = *reinterpret_cast<Watch*>(list)->server;
      server.lookAtLibrary();
      server.watchLibrary();
    };
    lws_sul_schedule(context, 0, &timer, timer.cb, static_cast<lws_usec_t>(watchInterval * 1e6));
  }

  // A library's file that has just been changed may still be written: it counts when it has been the same for
  // an interval.
  void lookAtLibrary() {
    namespace fs = std::filesystem;
    std::vector<fs::file_time_type> written;
    for (const Library& library : librariesToLoad(options, program)) {
      std::error_code error;
      written.push_back(fs::last_write_time(library.file, error));
      if (error) return;
    }
    const bool same = written == lastSeen;
    if (same && !lastLoaded.empty() && written != lastLoaded) restart(false);
    if (same) lastLoaded = written;
    lastSeen = written;
  }

  // Pages.

  Json welcome() const {
    Json::Array devices;
    for (const Device& device : catalogue())
      devices.push_back(
          {{"name", std::string(device.name)}, {"first", device.first.text()}, {"last", device.last.text()}});
    return {{"type", "started"},
            {"program", program.name},
            {"device", std::string(options.device->name)},
            {"ios", options.ios.text()},
            {"rounded", options.device->hasSafeAreas()},
            {"safe", isSafe},
            {"devices", Json(std::move(devices))}};
  }

  void tell(lws* connection, Page& page, bool isText, const std::string& contents) {
    page.queued += contents.size();
    page.queue.emplace_back(isText, std::string(LWS_PRE, '\0') + contents);
    // One that takes nothing is let go.
    if (page.queued > longestQueue) lws_set_timeout(connection, PENDING_TIMEOUT_USER_OK, LWS_TO_KILL_ASYNC);
    lws_callback_on_writable(connection);
  }

  void tellAll(const Json& message) {
    const std::string text = message.dump();
    for (auto& [connection, page] : pages) tell(connection, page, true, text);
  }

  int join(lws* connection) {
    if (pages.size() >= mostPages) return refuse(connection, "there are too many pages already");
    Page& page = pages[connection];
    page.number = ++lastPage;
    tell(connection, page, true, welcome().dump());
    toHome({page.number, true, R"({"type":"join"})"});
    return 0;
  }

  void leave(lws* connection) {
    const auto page = pages.find(connection);
    if (page == pages.end()) return;
    toHome({page->second.number, true, R"({"type":"leave"})"});
    pages.erase(page);
  }

  // Ends the connection with a reason that the page can read.
  static int refuse(lws* connection, std::string_view reason) {
    std::string text(reason);
    lws_close_reason(connection, LWS_CLOSE_STATUS_POLICY_VIOLATION,
                     reinterpret_cast<unsigned char*>(text.data()), text.size());
    return -1;
  }

  int receive(lws* connection, const char* bytes, std::size_t count) {
    const auto found = pages.find(connection);
    if (found == pages.end()) return -1;
    Page& page = found->second;
    if (page.received.size() + count > longestMessage) return refuse(connection, "a message is too long");
    page.received.append(bytes, count);
    if (!lws_is_final_fragment(connection) || lws_remaining_packet_payload(connection) > 0) return 0;
    const std::string text = std::exchange(page.received, {});
    const std::optional<Json> message = Json::read(text, 20);
    if (lws_frame_is_binary(connection) || !message || !message->isObject() ||
        !message->value("type").isString())
      return refuse(connection, "a message is no JSON object with a type");
    try {
      obey(page.number, *message, text);
    } catch (const UsageError& error) {
      tell(connection, page, true, Json{{"type", "refused"}, {"reason", messageLine(error.what())}}.dump());
    } catch (const JsonError& error) {
      return refuse(connection, messageLine(error.what()));
    }
    return 0;
  }

  void obey(std::uint32_t page, const Json& message, const std::string& text) {
    const auto type = message.value("type").get<std::string>();
    if (type == "quit") {
      isOver = true;
    } else if (type == "respring") {
      restart(!message.value("safe").isNull() && message.value("safe") == Json(true));
    } else if (type == "device") {
      const Device& device = findDevice(message.value("device").get<std::string>());
      const Json ios = message.value("ios");
      const Version version =
          ios.isNull() ? device.defaultVersion() : findVersion(device, ios.get<std::string>());
      options.device = &device;
      options.ios = version;
      restart(false);
    } else if (type == "join" || type == "leave") {
      throw UsageError(fmt::format("'{}' is not for pages to say", type));
    } else {
      toHome({page, true, text});
    }
  }

  int write(lws* connection) {
    const auto found = pages.find(connection);
    if (found == pages.end() || found->second.queue.empty()) return 0;
    Page& page = found->second;
    auto [isText, bytes] = std::move(page.queue.front());
    page.queue.pop_front();
    const std::size_t count = bytes.size() - LWS_PRE;
    page.queued -= count;
    const int written = lws_write(connection, reinterpret_cast<unsigned char*>(bytes.data()) + LWS_PRE, count,
                                  isText ? LWS_WRITE_TEXT : LWS_WRITE_BINARY);
    if (written < static_cast<int>(count)) return -1;
    if (!page.queue.empty()) lws_callback_on_writable(connection);
    return 0;
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
    unsigned char buffer[LWS_PRE + 2048];
    unsigned char *at = buffer + LWS_PRE, *start = at, *end = buffer + sizeof buffer - 1;
    bool failed =
        lws_add_http_common_headers(connection, status, std::string(type).c_str(), body.size(), &at, end);
    for (const auto& [name, value] : {std::pair{"content-security-policy:", policy},
                                      {"referrer-policy:", "no-referrer"},
                                      {"x-content-type-options:", "nosniff"},
                                      {"cache-control:", "no-store"}})
      failed =
          failed || lws_add_http_header_by_name(connection, reinterpret_cast<const unsigned char*>(name),
                                                reinterpret_cast<const unsigned char*>(value),
                                                static_cast<int>(std::string_view(value).size()), &at, end);
    if (failed || lws_finalize_write_http_header(connection, start, &at, end)) return 1;
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
        return write(connection);
      case LWS_CALLBACK_CLOSED:
        leave(connection);
        return 0;
      case LWS_CALLBACK_RAW_RX_FILE:
        if (connection == homeSocket) return readHome() ? 0 : -1;
        return connection == errorPipe && home->readErrors() ? 0 : -1;
      case LWS_CALLBACK_RAW_WRITEABLE_FILE:
        if (connection == homeSocket) {
          home->write();
          if (home->hasToWrite()) lws_callback_on_writable(connection);
        }
        return 0;
      case LWS_CALLBACK_RAW_CLOSE_FILE:
        if (connection == homeSocket) homeSocket = nullptr;
        if (connection == errorPipe) errorPipe = nullptr;
        return 0;
      default:
        return 0;
    }
  }

  static int callback(lws* connection, lws_callback_reasons reason, void*, void* in, std::size_t length) {
    auto* server = connection ? static_cast<Server*>(lws_context_user(lws_get_context(connection))) : nullptr;
    return server && server->vhost ? server->handle(connection, reason, in, length) : 0;
  }

  struct Watch : lws_sorted_usec_list_t {
    Server* server;
  };

  Options options;
  const Program& program;
  const bool watching;
  const bool stock;  // as the options ask; safe mode is for a time
  std::optional<TemporaryRoot> temporary;
  std::optional<Gate> gate;
  lws_context* context = nullptr;
  lws_vhost* vhost = nullptr;
  std::unique_ptr<HomeProcess> home;
  lws *homeSocket = nullptr, *errorPipe = nullptr;
  double started = 0;
  bool isSafe = false, isOver = false;
  std::map<lws*, Page> pages;
  std::map<lws*, std::string> responses;  // bodies, with room for the library in front
  std::uint32_t lastPage = 0;
  Watch timer{{}, this};
  std::vector<std::filesystem::file_time_type> lastSeen, lastLoaded;  // of the libraries' files
};

}  // namespace

void serve(const Options& options, const Program& program, const Listening& listening) {
  Server(options, program, listening).run();
}

}  // namespace sim::serve
