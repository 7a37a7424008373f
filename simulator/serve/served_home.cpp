// Starting, ending, coming back in safe mode.
#include "simulator/serve/served_home.hpp"

#include <unistd.h>

#include <utility>

#include "simulator/serve/connection.hpp"

namespace sim::serve {
namespace {

constexpr std::size_t longestUnwritten = 4u << 20;  // bytes
constexpr double soonest = 2;  // seconds; what ends sooner in safe mode does not start again

// A copy of the descriptor, which the loop closes when it lets go of it.
lws* adopt(lws_vhost* loop, int descriptor) {
  lws_sock_file_fd_type own;
  own.filefd = ::dup(descriptor);
  return lws_adopt_descriptor_vhost(loop, LWS_ADOPT_RAW_FILE_DESC, own, "home", nullptr);
}

}  // namespace

void ServedHome::start(lws_vhost* loop, bool safely) {
  end();
  isSafe = safely;
  Options own = options;
  own.stock = own.stock || isSafe;  // safe mode is for a time
  process = std::make_unique<HomeProcess>(own, program);
  options.again = true;
  started = seconds();
  channel = adopt(loop, process->messages());
  errors = adopt(loop, process->errors());
}

void ServedHome::end() {
  for (lws** adopted : {&channel, &errors})
    if (lws* one = std::exchange(*adopted, nullptr)) drop(one);
  process.reset();
}

Json ServedHome::welcome() const {
  Json::Array devices;
  for (const Device& device : catalogue())
    devices.push_back(
        {{"name", std::string(device.name)}, {"first", device.first.text()}, {"last", device.last.text()}});
  Json::Array messages;
  for (const PageMessage& each : program.pageMessages) messages.push_back(each.type);
  return {{"type", "started"},
          {"program", program.name},
          {"device", std::string(options.device->name)},
          {"ios", options.ios.text()},
          {"rounded", options.device->hasSafeAreas()},
          {"safe", isSafe},
          {"stock", options.stock},
          {"running", isRunning()},
          {"messages", Json(std::move(messages))},
          {"devices", Json(std::move(devices))}};
}

bool ServedHome::isBusy() const { return process && process->unwrittenLength() > longestUnwritten; }

void ServedHome::send(const Envelope& envelope) {
  if (!process) return;
  process->send(envelope);
  goOnWriting();
}

void ServedHome::write() {
  process->write();
  // The loop forgets what is asked of it while it tells of this very thing: it is asked on its next round.
  if (process->hasToWrite()) lws_cancel_service(lws_get_context(channel));
}

void ServedHome::goOnWriting() {
  if (process && process->hasToWrite() && channel) lws_callback_on_writable(channel);
}

void ServedHome::lostHold(const lws* adopted) {
  if (adopted == channel) channel = nullptr;
  if (adopted == errors) errors = nullptr;
}

bool ServedHome::mayComeBack() const { return !isSafe || seconds() - started > soonest; }

}  // namespace sim::serve
