// Another library in the injection loader's folder, whose classes bear the names of ours: loaded before ours
// or after it, by the order of the files' names.
#include <gtest/gtest.h>

#include <filesystem>

#include "simulator/device/temporary_root.hpp"
#include "tests/support/home.hpp"

namespace {

namespace fs = std::filesystem;
using sim::Json;

constexpr const char* libraries = "Library/MobileSubstrate/DynamicLibraries";

// Swiping the panel in, pressing its buttons, saving a layout and choosing it; the panel is open again at the
// end.
constexpr const char* story = R"(swipe up
wait 1
increment "Vertical Padding" 2
slide "Side Inset" 60
wait 4
tap "Add"
wait 1
enter "Mine"
choose "Add"
wait 1
page 1
pick 0
tap "Select"
choose "Okay"
wait 2
swipe up
wait 1
call exportSettings
wait 0.4
)";

struct Outcome {
  Json report;
  std::string errors;
};

// The class of ours whose name is taken is "BButton.2", and in a report it may have its number; what was
// added is less by what was there.
Json comparable(Json report) {
  report.erase("hooks");
  std::string text = report.dump();
  for (size_t at; (at = text.find(".2\"")) != std::string::npos;) text.erase(at, 2);
  return Json::parse(text);
}

// The story with ours and, under that name, the stranger's file.
Outcome actedOutWith(const std::string& stranger) {
  const sim::TemporaryRoot root;
  const fs::path built = fs::canonical("/proc/self/exe").parent_path(), folder = root.path() / libraries;
  fs::create_directories(folder);
  fs::copy(built / "libTilo.so", folder / "Tilo.dylib");
  fs::copy(built / "Tilo_Main.bundle", folder / "Tilo_Main.bundle", fs::copy_options::recursive);
  if (!stranger.empty()) fs::copy(STRANGER, folder / stranger);
  const test::Run run =
      test::runSimulator({"--root", root.path().string(), "--installed", "--set", "enabled=YES", "--set",
                          "quick=YES", "--set", "custom_preset=-1", "--script", "-", "--report", "-"},
                         story);
  EXPECT_EQ(run.status, 0) << run.errors;
  return {comparable(Json::read(run.output).value_or(nullptr)), run.errors};
}

TEST(StrangersFile, LoadedBeforeOursLeavesEverythingAsItIs) {
  const Outcome with = actedOutWith("Another.dylib");
  EXPECT_EQ(with.errors, "stranger: 11 classes, called\n");
  EXPECT_EQ(with.report, actedOutWith("").report);
}

TEST(StrangersFile, LoadedAfterOursLeavesEverythingAsItIs) {
  const Outcome with = actedOutWith("Zebra.dylib");
  EXPECT_EQ(with.errors, "stranger: 0 classes, called\n");
  EXPECT_EQ(with.report, actedOutWith("").report);
}

TEST(StrangersFile, IsSeenByAStoryThatOpensThePanel) {
  const Json report = actedOutWith("").report;
  EXPECT_NE(report["panel"], nullptr);
  EXPECT_EQ(report["loaded"], true);
  EXPECT_EQ(report["hud"]["text"], "Exported Current Icon Layout");
}

}  // namespace
