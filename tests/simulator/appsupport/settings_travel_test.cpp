// Layouts as lines of text and backups, as tilo-settings makes and takes them.
#include <signal.h>
#include <sys/ptrace.h>
#include <sys/reg.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "tests/simulator/appsupport/fixture.hpp"
#include "tests/support/files.hpp"

namespace {

using namespace test;
namespace fs = std::filesystem;

constexpr const char* wide = "tilo:1:11.5,26,14.5,30:Wide";

class TravellingSettings : public testing::Test {
 protected:
  TravellingSettings() { makeDevice(root); }

  static void makeDevice(const fs::path& place) {
    fs::create_directories(place / "var/mobile/Library/Preferences");
  }

  test::Run run(std::vector<std::string> words) {
    words.insert(words.begin(), {"--root", root.string()});
    return runSettings(words);
  }

  void expectError(const std::vector<std::string>& words, const std::string& culprit) {
    const test::Run ended = run(words);
    EXPECT_EQ(ended.status, 2);
    EXPECT_NE(ended.errors.find(culprit), std::string::npos) << ended.errors;
    EXPECT_EQ(std::count(ended.errors.begin(), ended.errors.end(), '\n'), 1) << ended.errors;
  }

  // What another process reads, whole.
  std::string preferences() const { return read("var/mobile/Library/Preferences/com.wexor.tilo.plist"); }
  std::string layouts() const { return read("var/mobile/Documents/com.wexor.tilo3/custom/config.json"); }
  std::string read(const char* file) const {
    return fs::exists(root / file) ? contentsOf(root / file) : "(none)";
  }

  std::string backup() {
    const std::string file = (temporary.path() / "backup.json").string();
    EXPECT_EQ(run({"backup", file}).status, 0);
    return file;
  }

  // A backup as somebody has changed it.
  std::string edited(const std::string& file, const std::string& from, const std::string& to) {
    std::string text = contentsOf(file);
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << text;
    text.replace(place, from.size(), to);
    return temporaryFile("edited.json", text);
  }

  void fill() {
    run({"paste", wide});
    run({"paste", "tilo:1:1,2,3,4,scaled:Narrow"});
    run({"set", "Rows", "7"});
    run({"set", "Square Icons", "YES"});
    run({"set", "Layout", "Narrow"});
  }

  sim::TemporaryRoot temporary;
  fs::path root = temporary.path() / "device";
};

TEST_F(TravellingSettings, CarryALayoutAsALineOfText) {
  EXPECT_EQ(run({"paste", wide}).status, 0);
  EXPECT_EQ(run({"copy", "Wide"}).output, std::string(wide) + "\n");
  const sim::Json file = sim::Json::parse(layouts());
  EXPECT_EQ(file["configurations"][0].sorted(),
            sim::Json::parse(R"({"name": "Wide", "value": 0, "configurable": 1, "configuration": {
              "horizontal_padding": 11.5, "vertical_padding": 26, "side_inset": 14.5, "top_inset": 30}})")
                .sorted());
}

TEST_F(TravellingSettings, KeepNumbersThatSinglePrecisionHas) {
  for (const char* line : {"tilo:1:0.1,-20,1000000,16777216:A", "tilo:1:0.100000001,0,0.3,1e+30:B",
                           "tilo:1:30,3,300,-3000,scaled:C:D, E"}) {
    ASSERT_EQ(run({"paste", line}).status, 0) << line;
    const sim::Json all = sim::Json::parse(layouts())["configurations"];
    const std::string stored = all[all.size() - 1]["name"].get<std::string>();
    const std::string copied = run({"copy", stored}).output;
    EXPECT_EQ(run({"paste", copied.substr(0, copied.size() - 1)}).status, 0);
    const sim::Json then = sim::Json::parse(layouts())["configurations"];
    EXPECT_EQ(then[then.size() - 1]["configuration"].sorted(),
              then[then.size() - 2]["configuration"].sorted())
        << copied;
    EXPECT_EQ(then[then.size() - 1]["configurable"], then[then.size() - 2]["configurable"]);
    EXPECT_EQ(then[then.size() - 1]["name"], then[then.size() - 2]["name"]);
  }
}

TEST_F(TravellingSettings, TakeNoRubbishForALayout) {
  run({"paste", wide});
  const std::string before = layouts();
  for (const char* text : {"", "hello", "tilo:1:", "tilo:1:1,2,3,4", "tilo:1:1,2,3,4:", "tilo:1:1,2,3:Short",
                           "tilo:1:1,2,3,4,5:Long", "tilo:1:1,2,,4:Gap", "tilo:1:1,2,x,4:Word",
                           "tilo:1:1,2,nan,4:None", "tilo:1:1,2,1e999,4:Much", "tilo:2:1,2,3,4:Later",
                           "tilo:1:1,2,3,4:Two\nlines", "Tilo:1:1,2,3,4:Case"}) {
    expectError({"paste", text}, "this is no layout");
    EXPECT_EQ(layouts(), before);
  }
}

TEST_F(TravellingSettings, NameALayoutThatIsNotThere) { expectError({"copy", "Wide"}, "'Wide'"); }

TEST_F(TravellingSettings, AreTheSameInAnotherDevice) {
  fill();
  const std::string list = run({"list"}).output, before = layouts(), file = backup();
  root = temporary.path() / "other";
  makeDevice(root);
  EXPECT_EQ(run({"restore", file}).status, 0);
  EXPECT_EQ(layouts(), before);
  EXPECT_EQ(run({"list"}).output, list);
}

TEST_F(TravellingSettings, LoseWhatTheBackupHasNot) {
  const std::string file = backup();
  fill();
  EXPECT_EQ(run({"restore", file}).status, 0);
  EXPECT_EQ(layouts(), R"({"configurations":[]})");
  expectError({"get", "rows"}, "is not set");
}

TEST_F(TravellingSettings, AreBackedUpAsTheyAreShownWhenAFileHoldsWhatCannotBe) {
  std::ofstream(root / "var/mobile/Library/Preferences/com.wexor.tilo.plist")
      << R"(<?xml version="1.0"?><plist version="1.0"><dict><key>rows</key><integer>99</integer>)"
      << R"(<key>columns</key><string>lots</string><key>dock</key><string>YES</string></dict></plist>)";
  const sim::Json settings = sim::Json::parse(contentsOf(backup()))["settings"];
  EXPECT_EQ(settings.sorted(), sim::Json::parse(R"({"rows": 15, "columns": 1, "dock": true})").sorted());
}

TEST_F(TravellingSettings, StayAsTheyAreForABadBackup) {
  fill();
  const std::string file = backup();
  const std::string settings = preferences(), presets = layouts();
  const std::string text = contentsOf(file);
  expectError({"restore", edited(file, "\"rows\": 7", "\"rows\": 70")}, "rows has to be from 1 to 15");
  expectError({"restore", edited(file, "\"square\": true", "\"square\": 1")}, "square has to be YES or NO");
  expectError({"restore", edited(file, "\"custom_preset\": 1", "\"custom_preset\": 2")},
              "custom_preset has to be");
  expectError({"restore", edited(file, "\"rows\"", "\"rowz\"")}, "rowz is no setting");
  expectError({"restore", edited(file, "\"version\": 1", "\"version\": 2")}, "version 2");
  expectError({"restore", edited(file, "\"version\": 1", "\"version\": \"x\"")}, "no version");
  expectError({"restore", edited(file, "Tilo backup", "Shopping list")}, "no backup of Tilo's");
  expectError({"restore", edited(file, "\"side_inset\":14.5", "\"side_inset\":\"x\"")},
              "'Wide' has no number for side_inset");
  expectError({"restore", edited(file, "\"name\":\"Wide\"", "\"name\":\"\"")}, "layout 0 has no name");
  expectError({"restore", temporaryFile("half.json", text.substr(0, text.size() / 2))},
              "no JSON, or not all of it");
  expectError({"restore", temporaryFile("list.json", "[1, 2]")}, "no JSON, or not all of it");
  expectError({"restore", temporaryFile("empty.json", "")}, "no JSON, or not all of it");
  expectError({"restore", "/nowhere/backup.json"}, "/nowhere/backup.json");
  EXPECT_EQ(preferences(), settings);
  EXPECT_EQ(layouts(), presets);
}

TEST_F(TravellingSettings, NameAFileThatIsNoneInOneLine) {
  fill();
  const std::string settings = preferences(), presets = layouts();
  for (const char* file : {"/nowhere/backup.json", "/dev", "/dev/null"})
    expectError({"restore", file}, std::string("'") + file + "': the backup cannot be read");
  for (const char* file : {"/nowhere/backup.json", "/dev"})
    expectError({"backup", file}, std::string("'") + file + "': the backup cannot be written");
  EXPECT_EQ(preferences(), settings);
  EXPECT_EQ(layouts(), presets);
}

bool changesFiles(long call) {
  constexpr long calls[] = {SYS_rename, SYS_renameat, SYS_renameat2, SYS_unlink, SYS_unlinkat, SYS_mkdir};
  return std::ranges::find(calls, call) != std::end(calls);
}

// Runs tilo-settings and kills it where it is about to change the folder's entries for the `last`th time;
// whether it came that far.
bool killedAtChange(const std::vector<std::string>& words, int last) {
  const pid_t process = fork();
  if (process == 0) {
    std::string program = fs::canonical("/proc/self/exe").parent_path() / "tilo-settings";
    std::vector<char*> arguments{program.data()};
    for (auto& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    (void)!freopen("/dev/null", "w", stderr);
    execv(program.c_str(), arguments.data());
    _exit(127);
  }
  int status = 0, changes = 0;
  waitpid(process, &status, 0);
  ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD);
  for (bool entering = true;; entering = !entering) {
    ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
    waitpid(process, &status, 0);
    if (!WIFSTOPPED(status)) return false;
    const long call = ptrace(PTRACE_PEEKUSER, process, sizeof(long) * ORIG_RAX, nullptr);
    if (!entering || !changesFiles(call) || ++changes < last) continue;
    kill(process, SIGKILL);
    waitpid(process, &status, 0);
    return true;
  }
}

TEST_F(TravellingSettings, AreAllOldOrAllNewWhenRestoringIsKilled) {
  fill();
  const std::string file = backup();
  const std::string newList = run({"list"}).output, newLayouts = layouts();
  int old = 0, fresh = 0, kills = 0;
  for (bool killed = true; killed;) {
    root = temporary.path() / ("device" + std::to_string(++kills));
    makeDevice(root);
    run({"paste", "tilo:1:5,6,7,8:Old"});
    run({"set", "Rows", "3"});
    const std::string oldList = run({"list"}).output, oldLayouts = layouts();
    killed = killedAtChange({"--root", root.string(), "restore", file}, kills);
    const std::string list = run({"list"}).output;
    if (list == oldList) {
      ++old;
      EXPECT_EQ(layouts(), oldLayouts) << kills;
    } else {
      ++fresh;
      EXPECT_EQ(list, newList) << kills;
      EXPECT_EQ(layouts(), newLayouts) << kills;
    }
  }
  EXPECT_GE(old, 1);
  EXPECT_GE(fresh, 3);
}

}  // namespace
