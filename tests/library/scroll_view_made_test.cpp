// Icon scroll views, whichever initialiser SpringBoard sends: each is set up, and once.
#include <gtest/gtest.h>

#include <map>

#include "bridge/replace.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "simulator/appsupport/client.hpp"
#include "simulator/product/names.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::original;
using bridge::replace;
using test::Home;

const std::vector<std::string> settings{"--set", "enabled=YES", "--set", "quick=YES"};

std::map<id, int> told;  // how often each scroll view was told of the panel's end
void countTelling(SBIconScrollView self, bridge::Object) { ++told[self.raw]; }

void tellPanelsEnd() {
  bridge::install(replace<SBIconScrollView, &SBIconScrollView::layout, countTelling>());
  NSNotificationCenter::defaultCenter().postNotificationName_object("PopupViewDidDisappearNotification"_ns,
                                                                    {});
}

NSUInteger stockRecognizers() {
  return bridge::make<UIScrollView, &UIView::initWithFrame>(CGRect{})->gestureRecognizers().count();
}

void expectSetUp(SBIconScrollView view) {
  EXPECT_TRUE(view.swipeGesture());
  EXPECT_TRUE(view.tapGesture());
  EXPECT_EQ(view.gestureRecognizers().count(), stockRecognizers() + 1);
  tellPanelsEnd();
  EXPECT_EQ(told[view.raw], 1);
}

constexpr CGRect somewhere{{10, 20}, {300, 400}};

TEST(ScrollView, ThatIsMadeByInitIsSetUpOnce) {
  Home home(settings);
  auto view = bridge::make<SBIconScrollView, &NSObject::init>();
  expectSetUp(view.get());
}

TEST(ScrollView, ThatIsMadeWithAFrameIsSetUpOnce) {
  Home home(settings);
  auto view = bridge::make<SBIconScrollView, &UIView::initWithFrame>(somewhere);
  expectSetUp(view.get());
  EXPECT_EQ(view->frame(), somewhere);
}

TEST(ScrollView, ThatIsMadeWithAFrameHasNoGesturesWhileQuickSettingsAreOff) {
  Home home({"--set", "enabled=YES", "--set", "quick=NO"});
  auto view = bridge::make<SBIconScrollView, &UIView::initWithFrame>(somewhere);
  EXPECT_FALSE(view->swipeGesture());
  EXPECT_EQ(view->gestureRecognizers().count(), stockRecognizers());
  tellPanelsEnd();
  EXPECT_EQ(told[view->raw], 1);
}

// Made before SpringBoard makes its own.
bridge::Strong<SBIconScrollView> first;
bridge::Strong<NSObject> makeFirst(SBIconController self) {
  first = bridge::make<SBIconScrollView, &UIView::initWithFrame>(somewhere);
  return original<makeFirst>(self);
}

TEST(ScrollView, ThatIsMadeFirstServesTheMessagesForGoodWhenItIsMadeWithAFrame) {
  Home home(settings, [](sim::Simulation&) {
    bridge::install(replace<SBIconController, &NSObject::init, makeFirst>());
  });
  auto send = [&] {
    return sim::appsupport::send(home.simulation().fileSystem().root(), sim::product::settingsCentre,
                                 {"ListPreferencesDidChangeNotification"_ns, {}},
                                 {.whileWaiting = [] { sim::appsupport::serveMessages(); }});
  };
  EXPECT_EQ(send(), sim::appsupport::Outcome::delivered);
  first.clear();
  EXPECT_EQ(send(), sim::appsupport::Outcome::delivered);
}

TEST(ScrollView, ThatIsGoneIsToldNothingMore) {
  Home home(settings);
  bridge::make<SBIconScrollView, &UIView::initWithFrame>(somewhere);
  tellPanelsEnd();
  EXPECT_EQ(told.size(), 1u);  // the home screen's own
}

}  // namespace
