// A run is the same every time: byte for byte, pictures and reports.
#include <stdlib.h>

#include "tests/simulator/app/run.hpp"

namespace {

using test::Options;

struct Output {
  std::string picture, report, within, pictureWithin;
  bool operator==(const Output&) const = default;
};

// At the end, and in the middle of a script's last animation.
Output run(const Options& options, const std::string& script) {
  sim::TemporaryRoot folder;
  auto place = [&](const char* name) { return (folder.path() / name).string(); };
  test::Run ran = test::runSimulator(
      test::joined(options, {"--script", "-", "--snapshot", place("a.png"), "--report", place("a.json")}),
      script + "snapshot " + place("b.png") + "\nreport " + place("b.json") + "\nwait 5\n");
  EXPECT_EQ(ran.status, 0) << ran.errors;
  Output output{test::contentsOf(place("a.png")), test::contentsOf(place("a.json")),
                test::contentsOf(place("b.json")), test::contentsOf(place("b.png"))};
  EXPECT_FALSE(output.picture.empty() || output.report.empty());
  return output;
}

void expectSame(const Options& options, const std::string& script) {
  EXPECT_TRUE(run(options, script) == run(options, script));
}

TEST(TwoRuns, AreTheSameOnAPhone) { expectSame({}, "wait 1\n"); }
TEST(TwoRuns, AreTheSameWithoutTheLibrary) { expectSame({"--stock", "--device", "iPhone X"}, ""); }
TEST(TwoRuns, AreTheSameHeldSideways) {
  expectSame({"--device", "iPad mini 2", "--orientation", "landscape"}, "");
}

TEST(TwoRuns, AreTheSameInTheMiddleOfAnAnimation) {
  Options options{"--device", "iPad mini 2", "--set", "enabled=YES", "--set", "custom_preset=-1"};
  std::string script = "rotate landscape\nwait 0.217\n";
  Output one = run(options, script);
  EXPECT_TRUE(one == run(options, script));
  EXPECT_NE(one.report, one.within);
}

TEST(TwoRuns, AreTheSameWhateverTheLanguageTheTimeZoneAndTheFolder) {
  Output here = run({}, "lock\nunlock\n");
  setenv("LANG", "de_DE.UTF-8", 1);
  setenv("LC_ALL", "de_DE.UTF-8", 1);
  setenv("TZ", "Asia/Tokyo", 1);
  sim::TemporaryRoot home;
  setenv("HOME", home.path().c_str(), 1);
  std::filesystem::current_path(home.path());
  Output there = run({"--root", (home.path() / "a device with a long name").string()}, "lock\nunlock\n");
  std::filesystem::current_path("/");
  EXPECT_TRUE(here == there);
}

}  // namespace
