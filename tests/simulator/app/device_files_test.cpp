// The device's file system, and what a run leaves behind on the host.
#include <pwd.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/simulator/app/run.hpp"

namespace {

namespace fs = std::filesystem;
using sim::Json;
using test::isEmptyFolder;
using test::reportOf;

constexpr const char* preferences = "var/mobile/Library/Preferences/com.wexor.tilo.plist";
constexpr const char* presets = "var/mobile/Documents/com.wexor.tilo3/custom/config.json";

class Root : public testing::Test {
 protected:
  sim::TemporaryRoot folder;
  fs::path root = folder.path() / "device";
};

TEST_F(Root, IsMadeAndKept) {
  reportOf({"--root", root.string(), "--set", "rows=7"});
  EXPECT_NE(test::contentsOf(root / preferences).find("<key>rows</key>"), std::string::npos);
  EXPECT_EQ(Json::parse(test::contentsOf(root / presets)), Json({{"configurations", Json::array()}}));
}

TEST_F(Root, IsTheNextRunsDevice) {
  reportOf({"--root", root.string(), "--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=3"});
  Json next = reportOf({"--root", root.string()});
  EXPECT_EQ(next["preferences"], Json({{"enabled", true}, {"icons", true}, {"rows", 3}}));
  EXPECT_EQ(next["pages"][0]["rows"], 3);
}

TEST_F(Root, TakesTheSettingsInPlaceOfWhatItHeld) {
  reportOf({"--root", root.string(), "--set", "enabled=YES", "--set", "rows=3"});
  EXPECT_EQ(reportOf({"--root", root.string(), "--set", "columns=2"})["preferences"], Json({{"columns", 2}}));
}

TEST_F(Root, SeedsTheDefaultsOnce) {
  Json first = reportOf({"--root", root.string()})["preferences"];
  std::string file = test::contentsOf(root / preferences);
  EXPECT_EQ(first.size(), 20u);
  EXPECT_EQ(reportOf({"--root", root.string()})["preferences"], first);
  EXPECT_EQ(test::contentsOf(root / preferences), file);
}

TEST_F(Root, HoldsTheLibraryWhereTheLoaderLooks) {
  reportOf({"--root", root.string()});
  EXPECT_TRUE(fs::exists(root / "Library/MobileSubstrate/DynamicLibraries/Tilo.dylib"));
  EXPECT_FALSE(fs::exists(root / "bootstrap"));
}

TEST_F(Root, HoldsTheLibraryWhereTheOtherLoaderLooks) {
  Json report = reportOf({"--root", root.string(), "--loader", "sbinject"});
  EXPECT_TRUE(fs::exists(root / "bootstrap/Library/SBInject/Tilo.dylib"));
  EXPECT_FALSE(fs::exists(root / "Library/MobileSubstrate/DynamicLibraries/Tilo.dylib"));
  EXPECT_EQ(report["loaded"], true);
  EXPECT_EQ(report["hooks"], reportOf({})["hooks"]);
}

TEST_F(Root, HoldsNoLibraryInAStockDevice) {
  reportOf({"--root", root.string(), "--stock"});
  EXPECT_FALSE(fs::exists(root / "Library/MobileSubstrate/DynamicLibraries/Tilo.dylib"));
  EXPECT_FALSE(fs::exists(root / preferences));
}

TEST_F(Root, GivesUpAnEarlierRunsIconSupport) {
  EXPECT_EQ(reportOf({"--root", root.string(), "--icon-support"})["iconSupport"], Json::array({"Tilo"}));
  EXPECT_EQ(reportOf({"--root", root.string()})["iconSupport"], Json::array());
}

TEST_F(Root, LosesWhatAKilledProcessHadBegunToWrite) {
  reportOf({"--root", root.string()});
  const std::string begun = (root / preferences).string() + "Ab3xYz",
                    other = (root / presets).string() + "Cd4wVu";
  std::ofstream(begun) << "<?xml";
  std::ofstream(other) << "{";
  reportOf({"--root", root.string()});
  EXPECT_FALSE(fs::exists(begun));
  EXPECT_FALSE(fs::exists(other));
  EXPECT_TRUE(fs::exists(root / preferences));
  EXPECT_TRUE(fs::exists(root / presets));
}

class OddPresets : public Root {
 protected:
  fs::path place = root / presets;
  void SetUp() override { fs::create_directories(place.parent_path()); }
  Json reported() {
    test::Run run = test::runSimulator({"--root", root.string(), "--report", "-"});
    EXPECT_EQ(run.status, 0) << run.errors;
    return Json::parse(run.output)["presets"];
  }
};

TEST_F(OddPresets, ThatAreNoTextAreReportedAsFarAsTheyAre) {
  std::ofstream(place) << "a\xff b";
  EXPECT_EQ(reported(), "a\uFFFD b");
}

TEST_F(OddPresets, InAFolderAreNone) {
  fs::create_directory(place);
  EXPECT_EQ(reported(), nullptr);
}

TEST_F(OddPresets, InAPipeAreNoneAndAreNotWaitedFor) {
  ASSERT_EQ(mkfifo(place.c_str(), 0600), 0);
  EXPECT_EQ(reported(), nullptr);
}

TEST_F(OddPresets, MayComeFromAPipe) {
  int ends[2];
  ASSERT_EQ(pipe(ends), 0);
  const std::string text = R"({"configurations":[]})";
  ASSERT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
  close(ends[1]);
  EXPECT_EQ(reportOf({"--stock", "--presets", "/dev/fd/" + std::to_string(ends[0])})["presets"],
            Json::parse(text));
  const fs::path named = folder.path() / "pipe";
  ASSERT_EQ(mkfifo(named.c_str(), 0600), 0);
  EXPECT_EQ(reportOf({"--stock", "--presets", named.string()})["presets"], "");
}

class Host : public testing::Test {
 protected:
  sim::TemporaryRoot folder;
  fs::path home = makeFolder("home"), temporary = makeFolder("tmp");

  fs::path makeFolder(const char* name) {
    fs::create_directory(folder.path() / name);
    return folder.path() / name;
  }

  void SetUp() override {
    test::temporaryFile("first", "");  // so that the tests have a folder of their own elsewhere
    setenv("HOME", home.c_str(), 1);
    setenv("TMPDIR", temporary.c_str(), 1);
    for (const char* name : {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "GNUSTEP_USER_ROOT"})
      unsetenv(name);
  }
};

TEST_F(Host, KeepsItsHomeFolderEmpty) {
  std::string picture = test::temporaryFile("a.png", "");
  reportOf({"--icon-support", "--snapshot", picture}, "wait 4\nrotate landscape\nlock\nunlock\n");
  reportOf({"--device", "iPad Air 2", "--stock"});
  test::runSimulator({"--list-devices"});
  test::runSimulator({"--device", "iPhone 99"});
  EXPECT_TRUE(isEmptyFolder(home));
}

// Foundation finds the user's folder by itself, and would write its own settings there twice a minute.
TEST_F(Host, KeepsNoSettingsOfFoundationsOwn) {
  const fs::path settings = fs::path(getpwuid(getuid())->pw_dir) / "GNUstep/Defaults/.lck";
  const auto lastWritten = [&] {
    std::error_code none;
    return fs::last_write_time(settings, none);
  };
  const auto before = lastWritten();
  reportOf({}, "wait 100\n");
  EXPECT_EQ(lastWritten(), before);
}

TEST_F(Host, KeepsNoTemporaryFolder) {
  reportOf({});
  EXPECT_TRUE(isEmptyFolder(temporary));
  reportOf({"--stock"}, "wait 1\n");
  EXPECT_TRUE(isEmptyFolder(temporary));
}

TEST_F(Host, KeepsNoTemporaryFolderOfARunThatIsRefused) {
  test::runSimulator({"--script", "-"}, "hover\n");
  EXPECT_TRUE(isEmptyFolder(temporary));
  test::runSimulator({"--library", test::temporaryFile("bad.dylib", "none")});
  EXPECT_TRUE(isEmptyFolder(temporary));
  test::runSimulator({"--prefs", test::temporaryFile("bad.plist", "none")});
  EXPECT_TRUE(isEmptyFolder(temporary));
}

TEST_F(Host, HasNoFilesOfTheDevice) {
  bool before = fs::exists("/var/mobile");
  reportOf({});
  EXPECT_EQ(fs::exists("/var/mobile"), before);
}

}  // namespace
