// The home screen without anything that knows our library: home-sim, for whoever has another.
#include "tests/simulator/app/run.hpp"

namespace {

test::Run run(const test::Options& options, const std::string& script = "") {
  return test::runSimulator(options, script, "home-sim");
}

sim::Json reportOf(test::Options options) {
  test::Run made = run(test::joined(std::move(options), {"--report", "-"}));
  EXPECT_EQ(made.status, 0) << made.errors;
  return sim::Json::read(made.output).value_or(nullptr);
}

TEST(HomeScreenAlone, TellsOfItselfAsWithUs) {
  const sim::Json alone = reportOf({}), with = test::reportOf({"--stock"});
  EXPECT_EQ(alone["loaded"], false);
  for (const auto& [key, value] : alone.items()) EXPECT_EQ(value, with[key]) << key;
}

TEST(HomeScreenAlone, HasNoKeyOfOurs) {
  const sim::Json alone = reportOf({});
  for (const char* key : {"hooks", "framing", "panel", "hud", "preferences", "presets", "log"})
    EXPECT_FALSE(alone.contains(key)) << key;
}

TEST(HomeScreenAlone, IsDrawnAsWithUs) {
  const std::string alone = test::temporaryFile("alone.png", ""), with = test::temporaryFile("with.png", "");
  EXPECT_EQ(run({"--stock", "--snapshot", alone}).status, 0);
  EXPECT_EQ(test::runSimulator({"--stock", "--snapshot", with}).status, 0);
  EXPECT_EQ(test::pngSize(alone), (std::array{750u, 1334u}));
  EXPECT_EQ(test::contentsOf(alone), test::contentsOf(with));
}

TEST(HomeScreenAlone, ActsOutAScript) {
  const test::Run made =
      run({"--script", "-"}, "swipe left\nwait 1\nlaunch \"Translate\"\nwait 1\nreport -\n");
  EXPECT_EQ(made.status, 0) << made.errors;
  EXPECT_EQ(sim::Json::parse(made.output)["application"], "Translate");
}

TEST(HomeScreenAlone, RefusesAStepOfOursByItsName) {
  for (const std::string step : {"page 1", "increment \"Top Inset\"", "call openSettings", "write rows=5"}) {
    const test::Run made = run({"--script", "-"}, step + "\n");
    EXPECT_EQ(made.status, 2) << step;
    EXPECT_EQ(made.errors, "home-sim: <stdin>:1: unknown step '" + step.substr(0, step.find(' ')) + "'\n");
  }
}

TEST(HomeScreenAlone, RefusesAnOptionOfOursByItsName) {
  const test::Run made = run({"--presets", "file"});
  EXPECT_EQ(made.status, 2);
  EXPECT_EQ(made.errors, "home-sim: unknown option '--presets' (--help shows them)\n");
}

TEST(HomeScreenAlone, LoadsALibraryThatItHasNeverHeardOf) {
  const sim::Json report = reportOf({"--library", WIDE_DOCK});
  EXPECT_EQ(report["loaded"], true);
  EXPECT_EQ(report["dock"]["maxIcons"], 6);
  EXPECT_EQ(reportOf({})["dock"]["maxIcons"], 4);
}

TEST(HomeScreenAlone, InstallsALibraryUnderItsOwnName) {
  const sim::TemporaryRoot root;
  reportOf({"--library", WIDE_DOCK, "--root", root.path()});
  EXPECT_EQ(std::filesystem::read_symlink(root.path() /
                                          "Library/MobileSubstrate/DynamicLibraries/libwide_dock.dylib"),
            WIDE_DOCK);
}

}  // namespace
