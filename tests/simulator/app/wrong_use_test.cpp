// Wrong options: exit status 2, and one line that names the culprit.
#include <sys/wait.h>

#include <cstdlib>

#include "tests/simulator/app/run.hpp"

namespace {

using test::expectRefused;
using test::Options;

std::string folder() { return std::filesystem::path(test::temporaryFile("x", "")).parent_path(); }
std::string missing() { return folder() + "/nowhere/file"; }

TEST(WrongOption, IsNamed) {
  expectRefused({"--devise", "iPhone 7"}, "--devise");
  expectRefused({"iPhone 7"}, "iPhone 7");
  expectRefused({"-x"}, "-x");
}

TEST(WrongOption, WithoutItsValueIsNamed) {
  for (const char* option :
       {"--device", "--ios", "--orientation", "--pages", "--icons", "--root", "--prefs", "--set", "--presets",
        "--springboard", "--loader", "--library", "--script", "--snapshot", "--report"})
    expectRefused({option}, option);
}

TEST(WrongOption, GivenTwiceIsNamed) { expectRefused({"--pages", "1", "--pages", "2"}, "--pages"); }

TEST(WrongDevice, IsNamed) {
  expectRefused({"--device", "iPhone 99"}, "iPhone 99");
  expectRefused({"--device", "iphone 7"}, "iphone 7");
  expectRefused({"--device", ""}, "''");
}

TEST(WrongDevice, WithALineBreakIsStillOneLine) { expectRefused({"--device", "spoon\nfork"}, "fork"); }

TEST(WrongVersion, IsNamed) {
  expectRefused({"--ios", "ten"}, "'ten'");
  expectRefused({"--ios", "13.0"}, "13.0");
  expectRefused({"--ios", "10"}, "'10'");
  // Of another time than the device.
  expectRefused({"--device", "iPhone 7", "--ios", "9.3"}, "9.3");
  expectRefused({"--device", "iPhone 4s", "--ios", "10.0"}, "10.0");
}

TEST(WrongWord, IsNamed) {
  expectRefused({"--orientation", "sideways"}, "sideways");
  expectRefused({"--loader", "spoon"}, "spoon");
}

TEST(WrongNumber, IsNamed) {
  for (const char* pages : {"0", "-1", "16", "two", "1.5", ""}) expectRefused({"--pages", pages}, "--pages");
  for (const char* icons : {"0", "-1", "361", "many", "", "5x", "0x5", "99999999999"})
    expectRefused({"--icons", icons}, "--icons: " + std::string(*icons ? "" : "''"));
  expectRefused({"--pages", ""}, "--pages: '' is not a whole number");
  expectRefused({"--pages", "99999999999"}, "--pages: 99999999999 is not between 1 and 15");
}

TEST(WrongValue, OfAnOptionThatTakesNoneIsNamed) {
  for (const char* option : {"--stock", "--icon-support", "--list-devices", "--list-steps"})
    for (const char* value : {"=abc", "=true", "=false", "=1"})
      expectRefused({std::string(option) + value}, option);
}

TEST(WrongSetting, IsNamed) {
  expectRefused({"--set", "rows"}, "rows");
  expectRefused({"--set", "=5"}, "=5");
}

TEST(WrongFile, ThatIsMissingIsNamed) {
  for (const char* option : {"--prefs", "--presets", "--library", "--script"})
    expectRefused({option, missing()}, missing());
}

TEST(WrongFile, ThatIsAFolderIsNamed) {
  for (const char* option : {"--prefs", "--presets", "--library", "--script"})
    expectRefused({option, folder()}, folder());
}

TEST(WrongFile, ThatCannotBeWrittenIsNamed) {
  for (const char* option : {"--snapshot", "--report"}) {
    expectRefused({option, missing()}, missing());
    expectRefused({option, folder()}, folder());
    expectRefused({option, "/dev/full"}, "/dev/full");
  }
  expectRefused({"--list-devices", "--report", missing()}, missing());
}

TEST(WrongFile, MayBeTheStandardOutput) {
  const std::filesystem::path folder = std::filesystem::canonical("/proc/self/exe").parent_path();
  for (const char* command : {"tilo-sim --report -", "tilo-sim --list-devices", "tilo-sim --list-steps",
                              "tilo-sim --help", "tilo-settings --help"}) {
    std::string errors = test::temporaryFile("errors", "");
    int status = std::system(((folder / command).string() + " >/dev/full 2>" + errors).c_str());
    EXPECT_EQ(WEXITSTATUS(status), 2) << command;
    EXPECT_NE(test::contentsOf(errors).find("standard output"), std::string::npos) << command;
  }
}

TEST(WrongFile, ThatIsNoPropertyListIsNamed) {
  for (const char* contents :
       {"", "these are { words", "<?xml version=\"1.0\"?><plist><dict><key>",
        "<?xml version=\"1.0\"?><plist version=\"1.0\"><array/></plist>", "bplist00 and nothing more"}) {
    std::string file = test::temporaryFile("bad.plist", contents);
    expectRefused({"--prefs", file}, file);
    expectRefused({"--prefs", file, "--set", "rows=5"}, file);
  }
}

TEST(WrongFile, ThatIsNoLibraryIsNamed) {
  for (const char* contents : {"", "no library at all",
                               "\x7F"
                               "ELF and nothing more"}) {
    std::string file = test::temporaryFile("bad.dylib", contents);
    expectRefused({"--library", file}, file);
  }
}

TEST(WrongRoot, IsNamed) {
  std::string file = test::temporaryFile("file", "");
  expectRefused({"--root", file}, file);
  expectRefused({"--root", file + "/below"}, file);
  expectRefused({"--root", "/"}, "'/'");
}

TEST(WrongScript, IsNamedWithItsLine) {
  std::string file = test::temporaryFile("steps", "# a comment\n\nwait 0\nhover \"Mail\"\nlock\n");
  expectRefused({"--script", file}, file + ":4");
  expectRefused({"--script", file}, "hover");
  expectRefused({"--script", "-"}, ":3", "lock\nunlock\nhover\n");
}

TEST(WrongScript, WithAWrongArgumentIsNamedWithItsLine) {
  for (const char* line : {"wait", "wait soon", "wait -1", "wait 1 2", "rotate", "rotate left", "lock now",
                           "unlock now", "snapshot", "report", "report \"a"}) {
    std::string file = test::temporaryFile("steps", std::string("lock\n") + line);
    expectRefused({"--script", file}, file + ":2");
  }
}

TEST(WrongScript, ThatWritesWhereItCannotIsNamedWithItsLine) {
  for (const char* step : {"snapshot ", "report "})
    for (const std::string& place : {missing(), folder(), std::string("/dev/full")}) {
      std::string file = test::temporaryFile("steps", "lock\n\n" + (step + place) + "\n");
      expectRefused({"--script", file}, file + ":3");
      expectRefused({"--script", file}, place);
    }
}

TEST(WrongScript, DoesItsStepsUpToTheWrongOne) {
  std::string report = test::temporaryFile("before.json", "");
  expectRefused({"--script", "-"}, ":3", "wait 2\nreport " + report + "\nhover\n");
  EXPECT_EQ(sim::Json::parse(test::contentsOf(report))["time"], 2);
}

}  // namespace
