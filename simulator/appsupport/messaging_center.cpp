// CPDistributedMessagingCenter, and the delivery of messages to its targets.
#include "simulator/appsupport/messaging_center.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <system_error>

#include "bridge/define.hpp"
#include "platform/appsupport/messaging_center.hpp"
#include "simulator/appsupport/client.hpp"
#include "simulator/appsupport/server.hpp"
#include "simulator/appsupport/socket_folder.hpp"
#include "simulator/runtime/dealloc.hpp"
#include "simulator/runtime/uncaught.hpp"

namespace sim::appsupport {
namespace {

struct Registration {
  std::string message;
  id target;  // neither retained nor forgotten when it dies, as on the device
  SEL selector;
  bool dead = false;
};

struct CenterState {
  std::string name;
  std::vector<Registration> registrations;
  std::unique_ptr<Server> server;
};

using Center = bridge::Implementation<CPDistributedMessagingCenter, CenterState>;

// Where the device's sockets lie, and whether they are this process's. Clears up at exit at the latest.
struct Place {
  std::filesystem::path root;
  std::optional<OwnedSocketFolder> folder;  // from the first server on
};

std::optional<Place>& place() {
  static std::optional<Place> current;
  return current;
}

// Centres live as long as the process.
std::vector<CPDistributedMessagingCenter>& centers() {
  static auto& list = *new std::vector<CPDistributedMessagingCenter>();
  return list;
}

CenterState* find(std::string_view name) {
  for (auto center : centers())
    if (Center::state(center).name == name) return &Center::state(center);
  return nullptr;
}

CPDistributedMessagingCenter centerNamed(Class, NSString wanted) {
  const std::string name = wanted.UTF8String();
  for (auto center : centers())
    if (Center::state(center).name == name) return center;
  auto made = bridge::as<CPDistributedMessagingCenter>(
      bridge::make<CPDistributedMessagingCenter, &NSObject::init>().leak());
  Center::state(made).name = name;
  return centers().emplace_back(made);
}

// Targets die on any thread.
std::mutex& registrationLock() {
  static auto& lock = *new std::mutex();
  return lock;
}

void registerFor(CPDistributedMessagingCenter self, NSString message, bridge::Object target, SEL selector) {
  mark(target.raw);
  auto& all = Center::state(self).registrations;
  const std::string name = message.UTF8String();
  const std::lock_guard guard(registrationLock());
  std::erase_if(all, [&](const Registration& old) { return old.message == name; });
  all.push_back({name, target.raw, selector});
}

void noteDeath(id dead) {
  const std::lock_guard guard(registrationLock());
  for (auto center : centers())
    for (Registration& registration : Center::state(center).registrations)
      registration.dead |= registration.target == dead;
}

// The home screen goes on without the server; who wants to reach it should know why nobody answers.
void complain(const std::string& reason) { std::fputs((reason + "\n").c_str(), stderr); }

void run(CPDistributedMessagingCenter self) {
  CenterState& state = Center::state(self);
  if (state.server || !place()) return;
  try {
    if (!place()->folder) {
      auto taken = OwnedSocketFolder::take(place()->root);
      if (!taken)
        return complain(
            fmt::format("another home screen serves '{}' below {}", state.name, place()->root.string()));
      place()->folder.emplace(std::move(*taken));
    }
    state.server = std::make_unique<Server>(place()->folder->descriptor(), state.name);
  } catch (const std::system_error& error) {
    complain(error.what());
  }
}

BOOL sendMessage(CPDistributedMessagingCenter self, NSString name, NSDictionary userInfo) {
  if (!place()) return NO;
  Sending sending;
  if (Center::state(self).server) sending.whileWaiting = [] { serveMessages(); };
  const Outcome outcome = send(place()->root, Center::state(self).name, {name, userInfo}, sending);
  return outcome == Outcome::delivered || outcome == Outcome::dropped;
}

std::optional<Registration> registrationOf(const CenterState& center, std::string_view message) {
  const std::lock_guard guard(registrationLock());
  const auto found = std::ranges::find(center.registrations, message, &Registration::message);
  if (found == center.registrations.end()) return std::nullopt;
  return *found;
}

Reply deliver(const CenterState& center, std::string_view payload) {
  bridge::Pool pool;
  const auto message = decode(payload);
  if (!message) return Reply::refused;
  const auto found = registrationOf(center, message->name.UTF8String());
  if (!found) return Reply::dropped;
  // Some handlers answer a dictionary and some nothing; nothing is made of it.
  using Handler = void (*)(id, SEL, id, id);
  const auto [name, target, selector, dead] = *found;  // the handler may change what is registered
  if (dead)
    endUncaught("CPDistributedMessagingCenter"_ns,
                "the target of a message has been deallocated: "_ns.stringByAppendingString(message->name));
  reinterpret_cast<Handler>(bridge::messenger(target, selector, false))(target, selector, message->name.raw,
                                                                        message->userInfo.raw);
  return Reply::delivered;
}

}  // namespace

Messages::Messages(const std::filesystem::path& root) { place().emplace(root); }

Messages::~Messages() {
  for (auto center : centers()) Center::state(center).server.reset();
  place().reset();
}

void defineMessagingCenter() {
  using bridge::method;
  Center::define<NSObject>(
      method<&CPDistributedMessagingCenter::centerNamed, centerNamed>(),
      method<&CPDistributedMessagingCenter::registerForMessageName_target_selector, registerFor>(),
      method<&CPDistributedMessagingCenter::runServerOnCurrentThread, run>(),
      method<&CPDistributedMessagingCenter::sendMessageName_userInfo, sendMessage>());
  whenMarkedObjectsDie(noteDeath);
}

bool serves(std::string_view centre) {
  const CenterState* found = find(centre);
  return found && found->server;
}

bool serveMessages() {
  bool any = false;
  for (std::size_t i = 0; i < centers().size(); ++i) {  // a handler may make another centre
    CenterState& state = Center::state(centers()[i]);
    if (!state.server) continue;
    for (Arrival& arrival : state.server->receive()) {
      any = true;
      arrival.answer(deliver(state, arrival.payload()));
    }
  }
  return any;
}

std::vector<pollfd> messageDescriptors() {
  std::vector<pollfd> all;
  for (auto center : centers())
    if (const auto& server = Center::state(center).server) server->addDescriptors(all);
  return all;
}

}  // namespace sim::appsupport
