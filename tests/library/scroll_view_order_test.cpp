// In which order the icon scroll view does what others can see.
#include <gtest/gtest.h>

#include "bridge/replace.hpp"
#include "platform/springboard/icon_scroll_view.hpp"
#include "settings/store/configuration_manager.hpp"
#include "simulator/springboard/icon_controller.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using bridge::original;
using test::PanelHome;
using Notes = std::vector<std::string>;

Notes notes;

SBIconScrollView scrollView() { return sim::springboard::homeScreen().scrollView.get(); }

// Of ours: whether the one that the view gets knows its delegate, and which it has already.
void noteAttached(SBIconScrollView self, UIGestureRecognizer recognizer) {
  original<noteAttached>(self, recognizer);
  const UIGestureRecognizer swipe = self.swipeGesture(), tap = self.tapGesture();
  if (recognizer != swipe && recognizer != tap) return;
  std::string note = recognizer.delegate() ? "ready" : "without delegate";
  if ((recognizer == tap ? swipe : tap).view()) note += ", beside the other";
  notes.push_back(note);
}

void noteWhatIsAttached() {
  bridge::install(bridge::replace<SBIconScrollView, &UIView::addGestureRecognizer, noteAttached>());
}

TEST(ScrollView, GetsARecogniserThatIsReady) {
  PanelHome home({"twoFinger=YES"});
  noteWhatIsAttached();
  auto made = bridge::make<SBIconScrollView, &NSObject::init>();
  EXPECT_EQ(notes, Notes{"ready"});
}

TEST(ScrollView, NeverHasBothRecognisers) {
  PanelHome home;
  noteWhatIsAttached();
  home.step("message PreferencesDidChangeNotification name=\"Use Two Finger Tap Instead\" value=YES");
  EXPECT_EQ(notes, Notes{"ready"});
}

int& pageCount() { return test::libraryVariable<int>("tilo::numOfPages"); }

void noteStored(tilo::ConfigurationManager self, NSString key, bridge::Object value) {
  if (key.isEqualToString("numOfPages"_ns)) notes.push_back("counted " + std::to_string(pageCount()));
  original<noteStored>(self, key, value);
}

// SpringBoard's own scrolling.
void noteScrolled(SBIconScrollView self, CGPoint offset) {
  notes.push_back("stored " + PanelHome::live("numOfPages"_ns).dump());
  original<noteScrolled>(self, offset);
}

TEST(ScrollView, CountsItsPagesThenStoresHowManyThenScrolls) {
  test::Home home(
      test::homeOptions("iPhone 7", test::panelSettings(), {"--pages", "2"}), [](sim::Simulation&) {
        test::standIn<SBIconScrollView, bridge::setterOf<&UIScrollView::contentOffset>, noteScrolled>();
      });
  test::standIn<tilo::ConfigurationManager, &tilo::ConfigurationManager::saveWithKey_value, noteStored>();
  pageCount() = 7;
  PanelHome::controller().rootObj().removeObjectForKey("numOfPages"_ns);
  notes.clear();
  scrollView().contentOffset.set({});
  EXPECT_EQ(notes, (Notes{"counted 2", "stored 2.0"}));
}

}  // namespace
