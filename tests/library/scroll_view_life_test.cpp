// What reaches the icon scroll view before it exists, while it lives and after its end, and which of the
// system's own methods stay unheard.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "settings/store/configuration_manager.hpp"
#include "simulator/appsupport/client.hpp"
#include "simulator/product/names.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/support/home.hpp"

namespace {

using bridge::install;
using bridge::original;
using bridge::replace;
using sim::appsupport::Outcome;
using test::Home;

const std::vector<std::string> settings{"--set",     "enabled=YES", "--set",
                                        "quick=YES", "--set",       "forceTouch=YES"};

// What a settings pane sends when the side inset becomes 33.
Outcome sendSideInset(sim::Simulation& device) {
  auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
  info->setObject_forKey("sideIconInset"_ns, "name"_ns);
  info->setObject_forKey(NSNumber::numberWithFloat(33), "index"_ns);
  return sim::appsupport::send(device.fileSystem().root(), sim::product::settingsCentre,
                               {"ListPreferencesDidChangeNotification"_ns, info.get()},
                               {.whileWaiting = [] { sim::appsupport::serveMessages(); }});
}

float storedSideInset() {
  auto stored = tilo::ConfigurationManager::sharedManager().configuration().objectForKey("sideIconInset"_ns);
  return bridge::as<NSNumber>(stored).floatValue();
}

TEST(Messages, SentBeforeThereIsAScrollViewReachNobody) {
  Outcome early = Outcome::delivered;
  Home home(settings, [&](sim::Simulation& device) { early = sendSideInset(device); });
  EXPECT_EQ(early, Outcome::unserved);
  EXPECT_EQ(storedSideInset(), 0);
  EXPECT_EQ(sendSideInset(home.simulation()), Outcome::delivered);
  EXPECT_EQ(storedSideInset(), 33);
}

// The messaging centre neither keeps its target nor forgets it.
TEST(Messages, ReachTheFirstScrollViewForTheLifeOfTheProcess) {
  Home home(settings);
  auto second = bridge::make<SBIconScrollView, &NSObject::init>();
  auto& first = sim::springboard::homeScreen().scrollView;
  first->removeFromSuperview();
  first.clear();
  home.step("wait 0.1");
  EXPECT_EQ(sendSideInset(home.simulation()), Outcome::delivered);
  EXPECT_EQ(storedSideInset(), 33);
}

int deaths = 0;
void countDeath(SBIconScrollView self) {
  ++deaths;
  original<countDeath>(self);
}

TEST(Messages, KeepNoScrollViewButTheFirst) {
  Home home(settings);
  install(replace<SBIconScrollView, &NSObject::dealloc, countDeath>());
  bridge::make<SBIconScrollView, &NSObject::init>().clear();
  EXPECT_EQ(deaths, 1);
  sim::springboard::homeScreen().scrollView->removeFromSuperview();
  sim::springboard::homeScreen().scrollView.clear();
  home.step("wait 1");
  EXPECT_EQ(deaths, 1);
}

// Made while the panel was not wanted, a scroll view has no recognisers.
TEST(Messages, AboutRecognisersThatAreNotThereAttachNone) {
  Home home({"--set", "enabled=YES", "--set", "quick=NO"});
  home.save("quick"_ns, NSNumber::numberWithBool(YES));
  const SBIconScrollView view = sim::springboard::homeScreen().scrollView;
  const NSUInteger before = view.gestureRecognizers().count();
  for (const BOOL twoFinger : {YES, NO}) {
    auto info = bridge::make<NSMutableDictionary, &NSObject::init>();
    info->setObject_forKey("Use Two Finger Tap Instead"_ns, "name"_ns);
    info->setObject_forKey(NSNumber::numberWithBool(twoFinger), "value"_ns);
    view.preferencesUpdated_withUserInfo("PreferencesDidChangeNotification"_ns, info);
  }
  EXPECT_EQ(view.gestureRecognizers().count(), before);
}

// The system's own methods under the library's, counted.
int heardMoves = 0, heardEnds = 0, heardOffsets = 0;
void systemMoved(SBIconScrollView self, NSSet touches, UIEvent event) {
  ++heardMoves;
  original<systemMoved>(self, touches, event);
}
void systemEnded(SBIconScrollView self, NSSet touches, UIEvent event) {
  ++heardEnds;
  original<systemEnded>(self, touches, event);
}
void systemOffset(SBIconScrollView self, CGPoint offset) {
  ++heardOffsets;
  original<systemOffset>(self, offset);
}

void countTheSystemsOwn(sim::Simulation&) {
  install(replace<SBIconScrollView, &UIResponder::touchesMoved_withEvent, systemMoved>());
  install(replace<SBIconScrollView, &UIResponder::touchesEnded_withEvent, systemEnded>());
  install(replace<SBIconScrollView, bridge::setterOf<&UIScrollView::contentOffset>, systemOffset>());
}

TEST(Touches, ReachTheSystemsOwnMethodsWithoutTheLibrary) {
  std::vector<std::string> stock = settings;
  stock.push_back("--stock");
  Home home(stock, countTheSystemsOwn);
  home.step("press 2");
  EXPECT_GT(heardMoves, 0);
  EXPECT_GT(heardEnds, 0);
}

TEST(Touches, NeverReachTheSystemsOwnMethodsWithTheLibrary) {
  Home home(settings, countTheSystemsOwn);
  home.step("press 2");
  home.step("swipe left");
  EXPECT_EQ(heardMoves, 0);
  EXPECT_EQ(heardEnds, 0);
  EXPECT_GT(heardOffsets, 0);  // of which the library makes use
}

CGFloat spacingOfTheSystem(SBDockIconListView) {
  ++heardOffsets;
  return 77;
}
NSUInteger rowsOfTheSystem(Class, NSInteger) {
  ++heardMoves;
  return 9;
}

TEST(SystemAnswers, OfDockSpacingAndFolderRowsAreNeverAskedFor) {
  Home home(
      {"--set", "enabled=YES", "--set", "icons=YES", "--set", "rows=7", "--set", "columns=4", "--ios",
       "12.1"},
      [](sim::Simulation&) {
        install(replace<SBDockIconListView, &SBDockIconListView::effectiveSpacing, spacingOfTheSystem>());
        install(replace<SBFolderIconListView, &SBIconListView::iconRowsForInterfaceOrientation,
                        rowsOfTheSystem>());
      });
  EXPECT_EQ(home.dock().effectiveSpacing.ifAnswered(), 10);
  EXPECT_EQ(home.report()["folder"]["classRows"], 3);
  EXPECT_EQ(heardOffsets, 0);
  EXPECT_EQ(heardMoves, 0);
}

// Around the library's own replacement: every offset that is set, and every page count that is stored.
int offsetsSet = 0, countsStored = 0, floatsOfThree = 0;
void outermostOffset(SBIconScrollView self, CGPoint offset) {
  ++offsetsSet;
  const int before = countsStored;
  original<outermostOffset>(self, offset);
  EXPECT_EQ(countsStored, before + 1);
}
void storedValue(tilo::ConfigurationManager self, NSString key, bridge::Object value) {
  if (key.isEqualToString("numOfPages"_ns)) {
    const auto count = bridge::as<NSNumber>(value);
    ++countsStored;
    floatsOfThree += *count.objCType() == 'f' && count.floatValue() == 3;
  }
  original<storedValue>(self, key, value);
}

TEST(Scrolling, StoresThePageCountAsAFloatAtEveryStep) {
  Home home(settings);
  install(replace<SBIconScrollView, bridge::setterOf<&UIScrollView::contentOffset>, outermostOffset>());
  install(replace<tilo::ConfigurationManager, &tilo::ConfigurationManager::saveWithKey_value, storedValue>());
  home.step("drag 300 400 80 400 0.5");
  home.step("wait 1");
  EXPECT_GT(offsetsSet, 30);  // a drag of half a second, at 60 moves a second, and the way to the page's edge
  EXPECT_EQ(countsStored, offsetsSet);
  EXPECT_EQ(floatsOfThree, offsetsSet);
}

}  // namespace
