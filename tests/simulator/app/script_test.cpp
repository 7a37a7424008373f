// Scripts: what the steps do, and how long they take.
#include <stdio.h>
#include <unistd.h>

#include "tests/simulator/app/run.hpp"

namespace {

namespace fs = std::filesystem;
using sim::Json;
using test::reportOf;

double timeAfter(const std::string& script, const test::Options& options = {}) {
  return reportOf(options, script)["time"];
}

TEST(ScriptTime, StandsStillWithoutSteps) {
  EXPECT_EQ(reportOf({})["time"], 0);
  EXPECT_EQ(timeAfter("# nothing\n"), 0);
}

TEST(ScriptTime, PassesAsLongAsAWaitSays) {
  EXPECT_EQ(timeAfter("wait 1.5\n"), 1.5);
  EXPECT_EQ(timeAfter("wait 0\n"), 0);
  EXPECT_EQ(timeAfter("wait 86400\nwait 0.000001\n"), 86400.000001);
}

TEST(ScriptTime, PassesFourTenthsOfASecondForARotation) {
  for (const char* device : {"iPad Air 2", "iPhone 7 Plus", "iPhone 7"}) {
    EXPECT_EQ(timeAfter("rotate landscape\n", {"--device", device}), 0.4) << device;
    EXPECT_EQ(timeAfter("rotate landscape\nrotate portrait\n", {"--device", device}), 0.8) << device;
  }
}

TEST(ScriptTime, DoesNotPassForOtherSteps) {
  std::string picture = test::temporaryFile("a.png", ""), report = test::temporaryFile("a.json", "");
  EXPECT_EQ(timeAfter("lock\nunlock\nsnapshot " + picture + "\nreport " + report + "\n"), 0);
}

TEST(ScriptTime, AddsUp) {
  EXPECT_EQ(timeAfter("wait 0.25\nlock\nrotate landscape\nunlock\nwait 1.35\n", {"--device", "iPad Air 2"}),
            2);
}

TEST(Script, SkipsCommentsAndEmptyLines) {
  EXPECT_EQ(timeAfter("# first\n\n   \n\twait 1 # one second\r\n#wait 7\nwait 2"), 3);
}

TEST(Script, MayBeAFile) {
  std::string file = test::temporaryFile("steps.txt", "wait 1.25\n");
  EXPECT_EQ(reportOf({"--script", file})["time"], 1.25);
}

TEST(Script, WritesReportsAsOfTheirMoment) {
  std::string first = test::temporaryFile("1.json", ""), second = test::temporaryFile("2.json", "");
  reportOf({}, "report " + first + "\nwait 2\nreport \"" + second + "\"\nwait 1\n");
  EXPECT_EQ(Json::parse(test::contentsOf(first))["time"], 0);
  EXPECT_EQ(Json::parse(test::contentsOf(second))["time"], 2);
}

TEST(Script, PrintsAReportForAMinus) {
  test::Run run = test::runSimulator({"--script", "-"}, "wait 1\nreport -\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(Json::parse(run.output)["time"], 1);
  EXPECT_EQ(run.output, test::runSimulator({"--script", "-", "--report", "-"}, "wait 1\n").output);
}

TEST(Script, TakesPicturesOfTheirMoment) {
  std::string up = test::temporaryFile("up.png", ""), down = test::temporaryFile("down.png", ""),
              end = test::temporaryFile("end.png", "");
  reportOf({"--device", "iPad Air 2", "--snapshot", end},
           "snapshot " + up + "\nrotate landscape\nwait 1\nsnapshot " + down + "\n");
  EXPECT_EQ(test::pngSize(up), (std::array<unsigned, 2>{1536, 2048}));
  EXPECT_EQ(test::pngSize(down), (std::array<unsigned, 2>{2048, 1536}));
  EXPECT_EQ(test::contentsOf(end), test::contentsOf(down));
}

TEST(Script, TurnsAndLocksTheDevice) {
  Json report = reportOf({"--device", "iPad Air 2", "--stock"}, "rotate landscape\nwait 1\n");
  EXPECT_EQ(report["pages"][0]["columns"], 5);
  EXPECT_EQ(report["pages"][0]["icons"], reportOf({"--device", "iPad Air 2", "--stock", "--orientation",
                                                   "landscape"})["pages"][0]["icons"]);
  std::string locked = test::temporaryFile("locked.png", ""), open = test::temporaryFile("open.png", ""),
              before = test::temporaryFile("before.png", "");
  reportOf({}, "snapshot " + before + "\nlock\nsnapshot " + locked + "\nunlock\nsnapshot " + open + "\n");
  EXPECT_NE(test::contentsOf(locked), test::contentsOf(before));
  EXPECT_EQ(test::contentsOf(open), test::contentsOf(before));
}

TEST(Script, MeansTheFolderOfWhoStartedIt) {
  sim::TemporaryRoot folder;
  fs::current_path(folder.path());
  std::ofstream("steps.txt") << "report a.json\nsnapshot a.png\n";
  test::Run run = test::runSimulator({"--script", "steps.txt", "--report", "b.json", "--snapshot", "b.png"});
  EXPECT_EQ(run.status, 0) << run.errors;
  for (const char* file : {"a.json", "a.png", "b.json", "b.png"})
    EXPECT_TRUE(fs::exists(folder.path() / file)) << file;
  fs::current_path("/");
}

// Which is what happens to a home screen that somebody looks at while the tree is compiled.
TEST(Script, GoesOnWhenTheProgramIsReplaced) {
  sim::TemporaryRoot folder;
  const fs::path built = fs::canonical("/proc/self/exe").parent_path(), program = folder.path() / "tilo-sim";
  for (const char* name :
       {"libTilo.so", "libIconSupport.so", "Tilo.bundle", "Tilo_Main.bundle", "Tilo.plist"})
    fs::create_symlink(built / name, folder.path() / name);
  fs::copy_file(built / "tilo-sim", program);
  const fs::path seen = folder.path() / "seen.json", end = folder.path() / "end.json";
  FILE* input = popen((program.string() + " --script -").c_str(), "w");
  ASSERT_TRUE(input);
  ASSERT_GE(fputs(("report " + seen.string() + "\n").c_str(), input), 0);
  fflush(input);
  for (int tries = 0; tries < 2000 && !Json::accepts(test::contentsOf(seen)); ++tries) usleep(10000);
  fs::remove(program);
  fs::copy_file(built / "tilo-sim", program);
  ASSERT_GE(fputs(("set rows=5\nreport " + end.string() + "\n").c_str(), input), 0);
  EXPECT_EQ(pclose(input), 0);
  EXPECT_TRUE(Json::accepts(test::contentsOf(end)));
}

// A program at the other end that goes on when it has seen what came of its last line.
TEST(Script, FromStandardInputGoesLineByLine) {
  sim::TemporaryRoot folder;
  std::string program = fs::canonical("/proc/self/exe").parent_path() / "tilo-sim";
  FILE* input = popen((program + " --script -").c_str(), "w");
  ASSERT_TRUE(input);
  for (int line = 0; line < 3; ++line) {
    fs::path file = folder.path() / (std::to_string(line) + ".json");
    std::string steps =
        "report " + file.string() + "\n" + (line < 2 ? "" : "wait 1\nreport " + file.string() + ".end\n");
    ASSERT_GE(fputs(steps.c_str(), input), 0);
    fflush(input);
    auto isThere = [&] { return Json::accepts(test::contentsOf(file)); };
    for (int tries = 0; tries < 2000 && !isThere(); ++tries) usleep(10000);
    ASSERT_TRUE(isThere()) << line;
    // However long the next line takes, no time passes on the device.
    EXPECT_EQ(Json::parse(test::contentsOf(file))["time"], 0);
  }
  EXPECT_EQ(pclose(input), 0);
  EXPECT_EQ(Json::parse(test::contentsOf(folder.path() / "2.json.end"))["time"], 1);
}

}  // namespace
