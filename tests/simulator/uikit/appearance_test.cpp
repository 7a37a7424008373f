// The appearance proxy.
#include "platform/foundation/number.hpp"
#include "platform/uikit/button.hpp"
#include "tests/simulator/uikit/fixture.hpp"

namespace test {
namespace {

// A view with a property of its own, and a view that derives from it.
struct RoundView : bridge::Face<"TestRoundView", UIView> {
  static constexpr bridge::ClassMethod<"TestRoundView", "appearance", RoundView()> appearance{};
  MESSAGE Property<"roundness", NSNumber> roundness;
};
struct RounderView : bridge::Face<"TestRounderView", RoundView> {};

struct RoundState {
  Strong<NSNumber> roundness;
};
using RoundClass = bridge::Implementation<RoundView, RoundState>;

class Appearance : public UIKit {
 protected:
  Appearance() {
    RoundClass::define<UIView>(RoundClass::property<&RoundView::roundness, &RoundState::roundness>());
    bridge::Implementation<RounderView>::define<RoundView>();
    of<RoundView>().roundness.set({});
  }

  template <class T>
  static RoundView of() {
    return RoundView::appearance.on(bridge::classNamed<T>());
  }
};

TEST_F(Appearance, RemembersWhatIsWantedOfAClass) {
  EXPECT_FALSE(of<RoundView>().roundness());
  of<RoundView>().roundness.set(NSNumber::numberWithInt(5));
  EXPECT_EQ(of<RoundView>().roundness().intValue(), 5);
}

TEST_F(Appearance, IsOneForEachClass) {
  EXPECT_TRUE(of<RoundView>() == of<RoundView>());
  EXPECT_FALSE(of<RoundView>() == of<RounderView>());
}

TEST_F(Appearance, OfAClassIsThatOfItsSubclassesUnlessTheyWantAnother) {
  // confirmed: Apple documentation of UIAppearance
  of<RoundView>().roundness.set(NSNumber::numberWithInt(5));
  EXPECT_EQ(of<RounderView>().roundness().intValue(), 5);
  of<RounderView>().roundness.set(NSNumber::numberWithInt(9));
  EXPECT_EQ(of<RounderView>().roundness().intValue(), 9);
  EXPECT_EQ(of<RoundView>().roundness().intValue(), 5);
}

TEST_F(Appearance, IsNoneOfItsViews) {
  auto view = make<RoundView, &UIView::initWithFrame>(CGRect{});
  view->roundness.set(NSNumber::numberWithInt(1));
  EXPECT_FALSE(of<RoundView>().roundness());
}

TEST_F(Appearance, RaisesForWhatTheSimulatorWouldNotApply) {
  EXPECT_ANY_THROW(of<RoundView>().backgroundColor.set(UIColor::redColor()));
  EXPECT_ANY_THROW(of<RoundView>().layoutIfNeeded());
}

}  // namespace
}  // namespace test
