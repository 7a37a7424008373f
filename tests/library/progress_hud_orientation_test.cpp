// A notice box in a window, for each way in which an interface can be held.
#include "tests/library/grid_home.hpp"
#include "tests/library/hud_fixture.hpp"

namespace {

NSInteger held = 1;
NSInteger orientation(UIApplication) { return held; }

struct Way {
  NSInteger orientation;
  CGAffineTransform transform;
  bool sideways;
};

class ProgressHUDHeld : public test::HUD, public testing::WithParamInterface<Way> {
 protected:
  ProgressHUDHeld() : HUD({"--device", "iPad Air 2"}) {
    test::standIn<UIApplication, &UIApplication::statusBarOrientation, orientation>();
  }
};

TEST_P(ProgressHUDHeld, IsTurnedThatWay) {
  held = GetParam().orientation;
  window().addSubview(hud);
  EXPECT_EQ(hud->transform(), GetParam().transform);
  const CGSize size = window().bounds().size;
  EXPECT_EQ(hud->bounds().size, GetParam().sideways ? (CGSize{size.height, size.width}) : size);
  EXPECT_EQ(hud->frame(), window().bounds());
}

INSTANTIATE_TEST_SUITE_P(
    As, ProgressHUDHeld,
    testing::Values(Way{1, {1, 0, 0, 1, 0, 0}, false}, Way{2, {-1, 0, 0, -1, 0, 0}, false},
                    Way{3, {0, 1, -1, 0, 0, 0}, true}, Way{4, {0, -1, 1, 0, 0, 0}, true}),
    [](const auto& way) { return "Orientation" + std::to_string(way.param.orientation); });

}  // namespace
