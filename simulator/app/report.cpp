// The report's keys that any home screen has, in the order of its description in docs/simulator.md.
#include "simulator/app/report.hpp"

#include <algorithm>

#include "platform/iconsupport/icon_support.hpp"
#include "platform/springboard/dock.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/orientation.hpp"
#include "simulator/app/alert_report.hpp"
#include "simulator/app/home_screen_report.hpp"
#include "simulator/app/report_values.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/console.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/relayouts.hpp"
#include "simulator/uikit/base/application.hpp"
#include "simulator/uikit/views/view.hpp"

namespace sim {
namespace {

Json iconSupport(Simulation&) {
  Json extensions = plain(ISIconSupport::sharedInstance().extensions());
  return extensions.isNull() ? Json::array() : extensions;
}

Json application(Simulation&) {
  SBApplication shown = springboard::shownApplication();
  return shown ? Json(shown.displayName().UTF8String()) : Json();
}

Json relayouts(Simulation&) {
  Json calls = Json::array();
  for (const springboard::Relayout& call : springboard::relayouts())
    calls.push_back({{"page", call.page},
                     {"duration", number(call.duration)},
                     {"call", call.call},
                     {"at", number(call.at)}});
  return calls;
}

Json orientation(Simulation& simulation) {
  const bool landscape = simulation.startOptions().orientation == Orientation::landscape;
  return simulation.device().homeScreenTurns && landscape ? "landscape" : "portrait";
}

constexpr NSInteger portrait = UIInterfaceOrientationPortrait;

constexpr ReportRow rows[] = {
    {"device", [](Simulation& simulation) -> Json { return simulation.device().name; }},
    {"ios", [](Simulation& simulation) -> Json { return simulation.startOptions().ios.text(); }},
    {"orientation", orientation},
    {"loaded", [](Simulation& simulation) -> Json { return simulation.library() != nullptr; }},
    {"pages", [](Simulation&) { return reportPages(); }},
    {"classRows",
     [](Simulation&) -> Json {
       return static_cast<NSInteger>(SBIconListView::iconRowsForInterfaceOrientation(portrait));
     }},
    {"classColumns",
     [](Simulation&) -> Json {
       return static_cast<NSInteger>(SBIconListView::iconColumnsForInterfaceOrientation(portrait));
     }},
    {"iconSupport", iconSupport},
    {"folder", [](Simulation&) { return reportFolder(); }},
    {"dock", [](Simulation&) { return reportDock(); }},
    {"pageDots", [](Simulation&) { return reportPageDots(); }},
    {"alert", [](Simulation&) { return reportAlert(); }},
    {"console", [](Simulation&) -> Json { return console(); }},
    {"application", application},
    {"openedURLs", [](Simulation&) -> Json { return uikit::openedURLs(); }},
    {"relayouts", relayouts},
    {"time", [](Simulation&) { return number(clock::now()); }},
};

}  // namespace

std::span<const ReportRow> homeScreenReport() { return rows; }

Json makeReport(Simulation& simulation) {
  const bridge::Pool pool;
  Json report = Json::object();
  for (const ReportRow& row : simulation.program().report)
    report[std::string(row.key)] = row.value(simulation);
  return report;
}

}  // namespace sim
