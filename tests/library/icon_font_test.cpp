// The resource bundle and the icon font in it: where they are looked for, and what becomes of a font that
// cannot be had.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "panel/popup_view.hpp"
#include "panel/resource_bundle.hpp"
#include "platform/foundation/data.hpp"
#include "platform/uikit/font.hpp"
#include "settings/gesture_controller.hpp"
#include "tests/library/device_files.hpp"

namespace {

using test::Home;

constexpr const char* bundleFolder = "/Library/MobileSubstrate/DynamicLibraries/Tilo_Main.bundle";
constexpr const char* fontPath = "/Library/MobileSubstrate/DynamicLibraries/Tilo_Main.bundle/FontAwesome.ttf";

std::vector<std::string> withPanel(std::vector<std::string> more = {}) {
  std::vector<std::string> options{"--set", "enabled=YES", "--set", "quick=YES"};
  options.insert(options.end(), more.begin(), more.end());
  return options;
}

tilo::RQPopupView panel() { return tilo::RQGestureController::sharedInstance().popView(); }

void openPanel(Home& home) {
  home.step("swipe up");
  home.step("wait 2");
  ASSERT_TRUE(panel().window());
}

std::vector<std::string> logOf(Home& home) { return home.report()["log"]; }

bool knows(NSString font) { return static_cast<bool>(UIFont::fontWithName_size(font, 20)); }

std::string bytesOf(const std::string& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

// No font came of it, and the panel is there all the same.
void expectPanelWithoutFont(Home& home) {
  openPanel(home);
  EXPECT_EQ(logOf(home), std::vector<std::string>{"[Error] Failed to load font: (null)"});
  EXPECT_FALSE(knows("FontAwesome"_ns));
  EXPECT_EQ(panel().toggleButton().titleLabel().font().pointSize(), 17);
  EXPECT_STREQ(panel().toggleButton().currentTitle().UTF8String(), "\uF139");
}

TEST(IconFont, IsLoadedByTheFirstPanel) {
  Home home(withPanel());
  EXPECT_FALSE(knows("FontAwesome"_ns));
  openPanel(home);
  EXPECT_EQ(logOf(home), std::vector<std::string>{"[Info] LOADED"});
  EXPECT_TRUE(knows("FontAwesome"_ns));
}

TEST(IconFont, IsRefusedToEveryLaterPanelWhichHasItAllTheSame) {
  Home home(withPanel());
  openPanel(home);
  for (int later = 0; later < 2; ++later) {
    panel().hide();
    home.step("wait 2");
    openPanel(home);
  }
  const auto lines = logOf(home);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0], "[Info] LOADED");
  EXPECT_TRUE(lines[1].starts_with("[Error] Failed to load font: ")) << lines[1];
  EXPECT_NE(lines[1].find("already registered"), std::string::npos) << lines[1];
  EXPECT_EQ(lines[2], lines[1]);
  EXPECT_STREQ(panel().toggleButton().titleLabel().font().fontName().UTF8String(), "FontAwesome");
}

using RetainCount = bridge::Message<"retainCount", NSUInteger()>;

bridge::Strong<NSData> fontBytes;
NSData seenBytes(Class self, NSString path) {
  const NSData bytes = bridge::original<seenBytes>(self, path);
  if (std::string_view(path.UTF8String()).ends_with(".ttf")) fontBytes = bridge::retained(bytes);
  return bytes;
}

// A panel that is refused the font keeps none of its bytes either.
TEST(IconFont, LeavesNobodyHoldingTheFilesBytes) {
  Home home(withPanel());
  bridge::install(bridge::replace<NSData, &NSData::dataWithContentsOfFile, seenBytes>());
  for (int panels = 0; panels < 2; ++panels) {
    openPanel(home);
    ASSERT_TRUE(fontBytes);
    EXPECT_EQ(RetainCount::send(fontBytes.get().raw), 1u);
    fontBytes.clear();
    panel().didHitCancel();
    home.step("wait 1");
  }
}

// A font that the simulator makes holds a descriptor for as long as it lives.
TEST(IconFont, IsLetGoOfByAPanelThatIsRefusedIt) {
  Home home(withPanel());
  const auto open = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
  openPanel(home);
  const auto before = open();
  panel().didHitCancel();
  home.step("wait 1");
  openPanel(home);
  EXPECT_EQ(open(), before);
}

TEST(IconFont, MayBeMissing) {
  Home home(withPanel(),
            [](sim::Simulation& device) { std::filesystem::remove(device.fileSystem().hostPath(fontPath)); });
  expectPanelWithoutFont(home);
}

TEST(IconFont, MayBeMissingWithItsWholeBundle) {
  Home home(withPanel(), [](sim::Simulation& device) {
    std::filesystem::remove_all(device.fileSystem().hostPath(bundleFolder));
  });
  expectPanelWithoutFont(home);
  EXPECT_FALSE(tilo::ResourceBundle::frameworkBundle());
}

TEST(IconFont, MayBeUnreadable) {
  Home home(withPanel(),
            [](sim::Simulation& device) { device.fileSystem().refuse(fontPath, sim::Faults::reading, EIO); });
  expectPanelWithoutFont(home);
}

class BrokenIconFont : public testing::TestWithParam<test::Contents> {};

TEST_P(BrokenIconFont, IsNotLoaded) {
  Home home(withPanel(), test::having(fontPath, GetParam().bytes));
  expectPanelWithoutFont(home);
}

INSTANTIATE_TEST_SUITE_P(
    , BrokenIconFont,
    testing::Values(test::Contents{"empty", ""}, test::Contents{"text", "this is no font"},
                    test::Contents{"headOfAFont", std::string("\0\1\0\0\0\x0d\0\x80\0\3", 10)}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(IconFont, IsTheOneInTheDevicesFile) {
  Home home(withPanel(), test::having(fontPath, bytesOf("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf")));
  openPanel(home);
  EXPECT_EQ(logOf(home), std::vector<std::string>{"[Info] LOADED"});
  EXPECT_FALSE(knows("FontAwesome"_ns));
  EXPECT_TRUE(knows("DejaVuSans"_ns));
}

TEST(ResourceBundle, LiesBesideTheLibraryOfSubstrate) {
  Home home;
  EXPECT_STREQ(tilo::ResourceBundle::frameworkBundle().bundlePath().UTF8String(), bundleFolder);
}

TEST(ResourceBundle, LiesBesideTheLibraryOfSbinject) {
  Home home(withPanel({"--loader", "sbinject"}));
  EXPECT_STREQ(tilo::ResourceBundle::frameworkBundle().bundlePath().UTF8String(),
               "/bootstrap/Library/SBInject/Tilo_Main.bundle");
  openPanel(home);
  EXPECT_EQ(logOf(home), std::vector<std::string>{"[Info] LOADED"});
}

TEST(ResourceBundle, IsLookedForOnce) {
  Home home;
  const NSBundle first = tilo::ResourceBundle::frameworkBundle();
  home.write("/bootstrap/Library/SBInject/Tilo_Main.bundle/FontAwesome.ttf", "another");
  EXPECT_EQ(tilo::ResourceBundle::frameworkBundle(), first);
  EXPECT_STREQ(tilo::ResourceBundle::frameworkBundle().bundlePath().UTF8String(), bundleFolder);
}

TEST(ResourceBundle, OfTheSbinjectFolderIsWantedEvenWhereItHasNone) {
  Home home({}, [](sim::Simulation& device) {
    std::filesystem::create_directories(device.fileSystem().hostPath("/bootstrap/Library/SBInject"));
  });
  EXPECT_FALSE(tilo::ResourceBundle::frameworkBundle());
}

}  // namespace
