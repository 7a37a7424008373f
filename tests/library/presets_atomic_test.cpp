// Saving and deleting are atomic: the process is killed at each of its system calls in turn, and the file is
// the old or the new one. What was not written to its end goes at the next start.
#include <gtest/gtest.h>

#include "simulator/device/unfinished_files.hpp"
#include "tests/library/killed.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using sim::Json;
using test::layouts;
using test::PresetsHome;

struct Outcomes {
  int before = 0, after = 0, broken = 0;
  int unfinished = 0, unswept = 0;  // further files beside it, and those that the next start would not remove
};

int filesIn(const std::filesystem::path& folder) {
  return static_cast<int>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

// What the file is after a kill at each stop of `work`, begun anew with the old file each time.
Outcomes killEverywhere(PresetsHome& home, const Json& changed, const std::function<void()>& work) {
  const std::string old = home.contents(test::presetsPath);
  Outcomes outcomes;
  for (int stop = 1;; ++stop) {
    std::filesystem::remove_all(home.file(test::presetsFolder));
    home.write(test::presetsPath, old);
    const bool killed = test::killAtStop(stop, work);
    const std::string found = home.contents(test::presetsPath);
    const auto parsed = Json::read(found);
    if (found == old)
      ++outcomes.before;
    else if (parsed && test::same(*parsed, changed))
      ++outcomes.after;
    else
      ++outcomes.broken;
    outcomes.unfinished += filesIn(home.file(test::presetsFolder)) - 1;
    sim::removeUnfinishedFiles(home.file(test::presetsFolder));
    outcomes.unswept += filesIn(home.file(test::presetsFolder)) - 1;
    if (!killed) return outcomes;
  }
}

Json document(const std::vector<Json>& records) { return {{"configurations", records}}; }

TEST(KilledAtAnySystemCall, ASaveLeavesTheOldFileOrTheNewOne) {
  PresetsHome home(layouts({"one", "two"}),
                   {"horiIconPadding=10", "vertIconPadding=11", "sideIconInset=12", "topIconInset=13"});
  home.open();
  std::vector<Json> changed = layouts({"one", "two"});
  changed.push_back(test::layout("three", 2, 10));
  const Outcomes outcomes =
      killEverywhere(home, document(changed), [&] { home.panel().saveWithTitle("three"_ns); });
  EXPECT_EQ(outcomes.broken, 0);
  EXPECT_GT(outcomes.before, 5);
  EXPECT_GT(outcomes.after, 1);
  EXPECT_GT(outcomes.unfinished, 0);
  EXPECT_EQ(outcomes.unswept, 0);
}

TEST(KilledAtAnySystemCall, ADeletionLeavesTheOldFileOrTheNewOne) {
  PresetsHome home(layouts({"one", "two"}));
  home.open();
  const Outcomes outcomes = killEverywhere(home, document({layouts({"one", "two"})[1]}),
                                           [&] { home.panel().deleteSelectedLayout({}); });
  EXPECT_EQ(outcomes.broken, 0);
  EXPECT_GT(outcomes.before, 5);
  EXPECT_GT(outcomes.after, 1);
  EXPECT_GT(outcomes.unfinished, 0);
  EXPECT_EQ(outcomes.unswept, 0);
}

}  // namespace
