// Pictures have the pixels of the device's panel.
#include "simulator/springboard/icon_controller.hpp"
#include "tests/simulator/app/run.hpp"

namespace {

struct Screen {
  const char* device;
  unsigned width, height;  // pixels held upright
  bool turns;

  friend void PrintTo(const Screen& screen, std::ostream* stream) { *stream << screen.device; }
};

class Snapshot : public testing::TestWithParam<Screen> {
 protected:
  static std::array<unsigned, 2> size(const test::Options& options) {
    std::string file = test::temporaryFile("a.png", "");
    test::Run run = test::runSimulator(test::joined(options, {"--stock", "--snapshot", file}));
    EXPECT_EQ(run.status, 0) << run.errors;
    return test::pngSize(file);
  }
};

TEST_P(Snapshot, IsAsLargeAsThePanel) {
  const Screen& screen = GetParam();
  std::array<unsigned, 2> upright{screen.width, screen.height}, sideways{screen.height, screen.width};
  EXPECT_EQ(size({"--device", screen.device}), upright);
  EXPECT_EQ(size({"--device", screen.device, "--orientation", "landscape"}),
            screen.turns ? sideways : upright);
}

INSTANTIATE_TEST_SUITE_P(
    Screens, Snapshot,
    testing::Values(Screen{"iPhone 4s", 640, 960, false}, Screen{"iPhone 5", 640, 1136, false},
                    Screen{"iPhone 7", 750, 1334, false}, Screen{"iPhone 7 Plus", 1080, 1920, true},
                    Screen{"iPhone X", 1125, 2436, false}, Screen{"iPad 2", 768, 1024, true},
                    Screen{"iPad Air 2", 1536, 2048, true}, Screen{"iPad Pro (10.5-inch)", 1668, 2224, true},
                    Screen{"iPad Pro (12.9-inch)", 2048, 2732, true}));

std::string pictureOf(test::Home& home) {
  const std::string file = test::temporaryFile("a.png", "");
  home.simulation().snapshot(file);
  return test::contentsOf(file);
}

// Nothing of the page behind it is seen, neither icons nor labels.
TEST(OpenFolder, LooksAsItDoesOverAnEmptyPage) {
  test::Home home({"--stock"});
  const auto pages = [] { return sim::springboard::homeScreen().scrollView.get(); };
  const std::string closed = pictureOf(home);
  home.step("open \"Extras\"");
  home.step("wait 1");
  const std::string open = pictureOf(home);
  pages().hidden.set(YES);
  EXPECT_TRUE(pictureOf(home) == open);
  pages().hidden.set(NO);
  home.step("home");
  home.step("wait 1");
  EXPECT_TRUE(pictureOf(home) == closed);
}

}  // namespace
