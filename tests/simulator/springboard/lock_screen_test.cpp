// The lock screen.
#include "platform/springboard/lock_screen.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "tests/support/home.hpp"

namespace {

class LockScreen : public testing::Test {
 protected:
  test::Home home{{"--stock", "--device", "iPad Air 2"}};

  static bool visible() { return SBLockScreenManager::sharedInstance().isLockScreenVisible.ifAnswered(); }

  std::string picture() {
    std::string file = test::temporaryFile("screen.png", "");
    home.step("snapshot " + file);
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
};

TEST_F(LockScreen, HasOneManagerAndOneController) {
  SBLockScreenManager manager = SBLockScreenManager::sharedInstance();
  EXPECT_TRUE(manager);
  EXPECT_EQ(SBLockScreenManager::sharedInstance(), manager);
  EXPECT_TRUE(manager.lockScreenViewController());
  EXPECT_EQ(manager.lockScreenViewController(), manager.lockScreenViewController());
}

TEST_F(LockScreen, IsVisibleWhileTheDeviceIsLocked) {
  EXPECT_FALSE(visible());
  home.step("lock");
  EXPECT_TRUE(visible());
  home.step("rotate landscape");
  EXPECT_TRUE(visible());
  home.step("lock");
  EXPECT_TRUE(visible());
  home.step("unlock");
  EXPECT_FALSE(visible());
  home.step("unlock");
  EXPECT_FALSE(visible());
}

TEST_F(LockScreen, CoversTheHomeScreenAndUncoversIt) {
  std::string before = picture();
  home.step("lock");
  std::string locked = picture();
  EXPECT_NE(locked, before);
  home.step("unlock");
  EXPECT_EQ(picture(), before);
  home.step("lock");
  EXPECT_EQ(picture(), locked);
}

TEST_F(LockScreen, TakesTheFingersFromWhatLiesBelow) {
  const sim::Json icon = home.report()["pages"][0]["icons"][0]["frame"];
  const std::string place =
      std::to_string(icon[0].get<double>() + 10) + " " + std::to_string(icon[1].get<double>() + 10);
  home.step("finger 1 down " + place);
  home.step("lock");
  home.step("finger 1 up " + place);
  home.step("unlock");
  EXPECT_TRUE(home.report()["application"].isNull());
  home.step("tap " + place);
  EXPECT_FALSE(home.report()["application"].isNull());
}

TEST_F(LockScreen, LeavesTheHomeScreenAsItIs) {
  sim::Json before = home.report();
  home.step("lock");
  EXPECT_EQ(home.report()["pages"], before["pages"]);
  home.step("unlock");
  EXPECT_EQ(home.report(), before);
}

}  // namespace
