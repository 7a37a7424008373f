// The report's keys, in the order of its description in docs/simulator.md.
#include "simulator/app/report.hpp"

#include <dlfcn.h>

#include <fstream>
#include <iterator>

#include "platform/iconsupport/icon_support.hpp"
#include "platform/springboard/dock.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/orientation.hpp"
#include "simulator/app/alert_report.hpp"
#include "simulator/app/home_screen_report.hpp"
#include "simulator/app/hooks_report.hpp"
#include "simulator/app/hud_report.hpp"
#include "simulator/app/panel_report.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/console.hpp"
#include "simulator/runtime/preferences.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/relayouts.hpp"
#include "simulator/uikit/base/application.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim {
namespace {

Json iconSupport() {
  Json extensions = plain(ISIconSupport::sharedInstance().extensions());
  return extensions.isNull() ? Json::array() : extensions;
}

// The library's exported array of four lengths.
Json framing(const Simulation& simulation) {
  auto* values =
      simulation.library() ? static_cast<const CGFloat*>(dlsym(simulation.library(), "framing")) : nullptr;
  if (!values) return nullptr;
  return Json::array({number(values[0]), number(values[1]), number(values[2]), number(values[3])});
}

std::ifstream open(Simulation& simulation, const char* devicePath) {
  return std::ifstream(simulation.fileSystem().hostPath(devicePath));
}

constexpr int deepestPresets = 32;  // far more than presets need, far less than would exhaust the stack

// A file that is no JSON, or none of presets, is shown as the text it is.
Json presets(Simulation& simulation) {
  std::ifstream file = open(simulation, "/var/mobile/Documents/com.wexor.tilo3/custom/config.json");
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (!file) return nullptr;
  return Json::read(text, deepestPresets).value_or(Json(text));
}

Json log(Simulation& simulation) {
  Json lines = Json::array();
  std::ifstream file = open(simulation, "/var/mobile/Documents/Tilo3.log");
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

Json application() {
  SBApplication shown = springboard::shownApplication();
  return shown ? Json(shown.displayName().UTF8String()) : Json();
}

Json relayouts() {
  Json calls = Json::array();
  for (const springboard::Relayout& call : springboard::relayouts())
    calls.push_back({{"page", call.page},
                     {"duration", number(call.duration)},
                     {"call", call.call},
                     {"at", number(call.at)}});
  return calls;
}

}  // namespace

Json makeReport(Simulation& simulation) {
  bridge::Pool pool;
  constexpr NSInteger portrait = UIInterfaceOrientationPortrait;
  const Options& options = simulation.startOptions();
  bool landscape = simulation.device().homeScreenTurns && options.orientation == Orientation::landscape;
  return {
      {"device", simulation.device().name},
      {"ios", options.ios.text()},
      {"orientation", landscape ? "landscape" : "portrait"},
      {"loaded", simulation.library() != nullptr},
      {"pages", reportPages()},
      {"classRows", static_cast<NSInteger>(SBIconListView::iconRowsForInterfaceOrientation(portrait))},
      {"classColumns", static_cast<NSInteger>(SBIconListView::iconColumnsForInterfaceOrientation(portrait))},
      {"hooks", reportHooks(simulation.library())},
      {"iconSupport", iconSupport()},
      {"folder", reportFolder()},
      {"dock", reportDock()},
      {"pageDots", reportPageDots()},
      {"framing", framing(simulation)},
      {"panel", reportPanel()},
      {"alert", reportAlert()},
      {"hud", reportHud()},
      {"preferences", plain(preferenceDomain("com.wexor.tilo"_ns))},
      {"presets", presets(simulation)},
      {"log", log(simulation)},
      {"console", console()},
      {"application", application()},
      {"openedURLs", uikit::openedURLs()},
      {"relayouts", relayouts()},
      {"time", number(clock::now())},
  };
}

}  // namespace sim
