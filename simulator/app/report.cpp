// The report's keys that any home screen has, in the order of its description in docs/simulator.md.
#include "simulator/app/report.hpp"

#include <algorithm>

#include "platform/iconsupport/icon_support.hpp"
#include "platform/springboard/dock.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/orientation.hpp"
#include "simulator/app/report_parts.hpp"
#include "simulator/app/simulation.hpp"
#include "simulator/app/steps.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/runtime/console.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/lock_screen.hpp"
#include "simulator/springboard/relaunch.hpp"
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

template <auto message>
Json classCount(Simulation&) {
  return static_cast<NSInteger>((*message)(UIInterfaceOrientationPortrait));
}

constexpr ReportRow rows[] = {
    {"device", [](Simulation& simulation) -> Json { return simulation.device().name; }, "as started"},
    {"ios", [](Simulation& simulation) -> Json { return simulation.startOptions().ios.text(); },
     "as started"},
    {"orientation", orientation, "`\"portrait\"` or `\"landscape\"`, as started"},
    {"loaded", [](Simulation& simulation) -> Json { return !simulation.libraries().empty(); },
     "whether the library is loaded"},
    {"pages", reportPages,
     "one for each page, asked of its `SBRootIconListView`: `index`, `rows`, `columns` (for the current "
     "orientation), `rowsForSpacing`, `verticalPadding`, `horizontalPadding`, `sideInset`, `topInset`, "
     "`icons[]`"},
    {"pages[].icons[]", nullptr,
     "`name`, `frame` in the page, `square` (whether its image view shows square corners), `label` "
     "{`visible`: not hidden, its colour not clear, its rectangle not empty; `frame` in the page}"},
    {"classRows", classCount<&SBIconListView::iconRowsForInterfaceOrientation>,
     "`+[SBIconListView iconRowsForInterfaceOrientation:]`, for portrait"},
    {"classColumns", classCount<&SBIconListView::iconColumnsForInterfaceOrientation>,
     "its sibling, for portrait"},
    {"iconSupport", iconSupport, "the names registered with IconSupport"},
    {"folder", reportFolder,
     "of a folder's list: `rows`, `columns`, `classRows` (the class method, portrait), `verticalPadding`, "
     "`horizontalPadding`"},
    {"dock", reportDock,
     "`height` (`+[SBDockView defaultHeight]`), `alpha` of its icon list, `backgroundAlpha`, `maxIcons`, "
     "`rows` and `visibleRows` (the class methods, portrait), `iconsInRow`, `spacing` and `effectiveSpacing` "
     "(null where SpringBoard has no such message), `verticalPadding`, `horizontalPadding`, `icons[]` as in "
     "a "
     "page"},
    {"pageDots", reportPageDots, "`count`, `drawn` (dots that show an image), `current` (from 0)"},
    {"alert", reportAlert,
     "null, or `title`, `message`, `actions` [titles] of the alert in front, and `text` of its first field, "
     "null without one"},
    {"console", [](Simulation&) -> Json { return console(); },
     "lines sent to the system log, colour codes included"},
    {"application", application, "the name of the one on screen"},
    {"locked", [](Simulation&) -> Json { return springboard::isLocked(); },
     "whether the lock screen is shown"},
    {"openedURLs", [](Simulation&) -> Json { return uikit::openedURLs(); },
     "the addresses that were opened, in order; those of Settings' pages lead there, all others nowhere"},
    {"respringsAsked", [](Simulation&) -> Json { return springboard::relaunchesAskedFor(); },
     "how often SpringBoard was asked to start anew; the next run on the same root is that start"},
    {"relayouts", relayouts,
     "the last 1,000 calls of SpringBoard's relayout entry points (SpringBoard itself makes none): `page`, "
     "`duration` in seconds, `call` (`\"domino\"` or `\"animationType\"`), `at` in seconds since the start"},
    {"relayoutsLeftOut", [](Simulation&) -> Json { return springboard::relayoutsLeftOut(); },
     "how many calls were before these"},
    {"answers", [](Simulation&) { return answers(); },
     "what the step `send` was answered, in order: `message` and `value`; of the step `trace` also `given`"},
    {"time", [](Simulation&) { return number(clock::now()); }, "seconds since the start"},
};

}  // namespace

std::span<const ReportRow> homeScreenReport() { return rows; }

Json makeReport(Simulation& simulation) {
  const bridge::Pool pool;
  Json report = Json::object();
  for (const ReportRow& row : simulation.program().report)
    if (row.value) report[std::string(row.key)] = row.value(simulation);
  return report;
}

}  // namespace sim
