// The steps that stand in for the settings pane: its preferences, and its messages.
#include <fmt/format.h>

#include <filesystem>
#include <fstream>

#include "bridge/runtime.hpp"
#include "platform/foundation/dictionary.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/appsupport/client.hpp"
#include "simulator/device/usage_error.hpp"
#include "simulator/product/names.hpp"
#include "simulator/product/product.hpp"
#include "simulator/runtime/preferences.hpp"
#include "simulator/runtime/setting_object.hpp"
#include "simulator/time/run_loop.hpp"

namespace sim::product {
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

// The device's preferences are in the care of one process, whoever writes them; the library's own copy is
// none of its concern.
void write(Simulation&, const Step& step) {
  Setting setting = parseSetting(step.text(0));
  setPreference(string(domain), string(setting.key), settingObject(setting.value));
}

// Another process: the library is told nothing.
void writePresets(Simulation& simulation, const Step& step) {
  const std::filesystem::path file = simulation.fileSystem().hostPath(presetsPath);
  std::filesystem::create_directories(file.parent_path());
  std::ofstream out(file, std::ios::binary);
  out << step.text(0);
  if (!out.flush()) throw UsageError(fmt::format("cannot write {}", file.string()));
}

void message(Simulation& simulation, const Step& step) {
  using namespace appsupport;
  if (!serves(settingsCentre)) throw UsageError(fmt::format("nobody serves '{}'", settingsCentre));
  const Message sent{string(step.text(0)), userInfo(step, 1)};
  const Sending sending{.whileWaiting = [] { serveMessages(); }};
  const Outcome outcome = send(simulation.fileSystem().root(), settingsCentre, sent, sending);
  if (outcome != Outcome::delivered && outcome != Outcome::dropped)
    throw UsageError(fmt::format("the message {}", description(outcome)));
  settle();
}

constexpr StepRow rows[] = {
    {"write", write, with(kinds::setting), "another process writes the preference domain and tells nobody",
     "none"},
    {"write-presets", writePresets, with(kinds::text),
     "another process writes the presets file, with that text in it, and tells nobody", "none"},
    {"message", message, withMany(kinds::setting, kinds::word),
     "a message to the messaging centre, delivered before the step ends", "none"},
};

}  // namespace

StepTable settingsSteps() { return rows; }

}  // namespace sim::product
