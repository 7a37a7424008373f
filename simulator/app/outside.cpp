// Serving other processes, and standing in for one.
#include "simulator/app/outside.hpp"

#include <fmt/format.h>
#include <poll.h>

#include "bridge/runtime.hpp"
#include "platform/foundation/dictionary.hpp"
#include "simulator/appsupport/client.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/runtime/preferences.hpp"
#include "simulator/runtime/setting_object.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim {
namespace {

NSString string(const std::string& text) { return NSString::stringWithUTF8String(text.c_str()); }

// "KEY=VALUE" from the step's argument with that index on.
NSDictionary userInfo(const Step& step, std::size_t first) {
  auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
  for (std::size_t i = first; i < step.arguments.size(); ++i) {
    Setting setting = parseSetting(step.text(i));
    info->setObject_forKey(settingObject(setting.value), string(setting.key));
  }
  return std::move(info).autoreleased();
}

}  // namespace

void serve() {
  bridge::Pool pool;
  if (appsupport::serveMessages()) settle();
}

void serveUntilInput(int descriptor) {
  for (;;) {
    serve();
    std::vector<pollfd> all = appsupport::messageDescriptors();
    all.push_back({descriptor, POLLIN, 0});
    // A descriptor that cannot be polled is one whose reading does not wait, or tells what is wrong.
    if (::poll(all.data(), all.size(), -1) > 0 && all.back().revents != 0) return serve();
  }
}

// The device's preferences are in the care of one process, whoever writes them; the library's own copy is
// none of its concern.
void steps::write(Simulation&, const Step& step) {
  Setting setting = parseSetting(step.text(0));
  setPreference("com.wexor.tilo"_ns, string(setting.key), settingObject(setting.value));
}

void steps::message(Simulation& simulation, const Step& step) {
  using namespace appsupport;
  if (!serves(settingsCentre)) throw UsageError(fmt::format("nobody serves '{}'", settingsCentre));
  const Message sent{string(step.text(0)), userInfo(step, 1)};
  const Sending sending{.whileWaiting = [] { serveMessages(); }};
  const Outcome outcome = send(simulation.fileSystem().root(), settingsCentre, sent, sending);
  if (outcome != Outcome::delivered && outcome != Outcome::dropped)
    throw UsageError(fmt::format("the message {}", description(outcome)));
  settle();
}

}  // namespace sim
