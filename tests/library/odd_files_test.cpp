// What stands where the library's files should be: folders, links and pipes, of the preferences and of the
// presets. Nothing is waited for, the home screen goes on, and what somebody had there is kept.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/library/presets_home.hpp"

namespace {

namespace fs = std::filesystem;
using test::Home;

struct Odd {
  const char* name;
  void (*make)(const fs::path& place);
};
void PrintTo(const Odd& odd, std::ostream* out) { *out << odd.name; }

const Odd kinds[] = {
    {"Folder", [](const fs::path& place) { fs::create_directory(place); }},
    {"FolderWithAFile",
     [](const fs::path& place) {
       fs::create_directory(place);
       std::ofstream(place / "mine") << "mine";
     }},
    {"Pipe", [](const fs::path& place) { ASSERT_EQ(::mkfifo(place.c_str(), 0600), 0); }},
    {"LinkToNothing", [](const fs::path& place) { fs::create_symlink(place.string() + ".none", place); }},
    {"LinkToItself", [](const fs::path& place) { fs::create_symlink(place, place); }},
    {"LinkToAFolder", [](const fs::path& place) { fs::create_symlink(place.parent_path(), place); }},
    {"LinkToAFile",
     [](const fs::path& place) {
       std::ofstream(place.string() + ".other") << "mine";
       fs::create_symlink(place.string() + ".other", place);
     }},
    {"EmptyFileThatNobodyMayWrite",
     [](const fs::path& place) {
       std::ofstream{place};
       fs::permissions(place, fs::perms::none);
     }},
};

class AnOddFile : public testing::TestWithParam<Odd> {
 protected:
  test::Preparation at(const char* path) {
    return [this, path](sim::Simulation& device) {
      place = device.fileSystem().hostPath(path);
      fs::create_directories(place.parent_path());
      GetParam().make(place);
    };
  }
  // What somebody had in it, or behind it, is where it was, or beside it where it had to make room.
  void expectKept() const {
    const fs::path other = place.string() + ".other", moved = place.parent_path() / "config.damaged.json";
    if (fs::exists(other)) EXPECT_EQ(test::contentsOf(other), "mine");
    if (std::string_view(GetParam().name) == "FolderWithAFile")
      EXPECT_EQ(test::contentsOf((fs::is_directory(place) ? place : moved) / "mine"), "mine");
  }

  fs::path place;
};

// Where the settings cannot be read the home screen is SpringBoard's own.
TEST_P(AnOddFile, OfThePreferencesIsNotWaitedFor) {
  Home home({}, at(test::preferencesPath));
  EXPECT_EQ(home.report()["loaded"], true);
  home.save("topIconInset"_ns, 33);
  home.save("rows"_ns, 3);
  home.step("swipe up");
  home.step("wait 1");
  EXPECT_EQ(home.report()["pages"].size(), 3u);
  expectKept();
}

TEST_P(AnOddFile, OfThePresetsIsNotWaitedForAndThePanelSaves) {
  Home home(test::homeOptions("iPhone 7", test::panelSettings(), {}), at(test::presetsPath));
  home.step("swipe up");
  home.step("wait 1");
  ASSERT_FALSE(home.report()["panel"].isNull());
  const tilo::RQPopupView panel = tilo::RQGestureController::sharedInstance().popView();
  panel.saveWithTitle("Home"_ns);
  EXPECT_EQ(home.report()["panel"]["presets"], (sim::Json::array({"Home"})));
  panel.deleteSelectedLayout({});
  EXPECT_EQ(home.report()["panel"]["presets"], sim::Json::array());
  expectKept();
}

INSTANTIATE_TEST_SUITE_P(Being, AnOddFile, testing::ValuesIn(kinds),
                         [](const auto& test) { return std::string(test.param.name); });

}  // namespace
