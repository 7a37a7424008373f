// In which order the panel does things that others hear or are asked.
#include <gtest/gtest.h>

#include "controls/progress_hud.hpp"
#include "platform/foundation/notification_center.hpp"
#include "tests/library/key_value.hpp"
#include "tests/library/presets_home.hpp"

namespace {

using bridge::original;
using test::PanelHome;
using Notes = std::vector<std::string>;

Notes notes;

std::string asked;
CGFloat side(SBRootIconListView) { return asked += "side ", 1; }
CGFloat top(SBRootIconListView) { return asked += "top ", 2; }
CGFloat horizontal(SBRootIconListView) { return asked += "horizontal ", 3; }
CGFloat vertical(SBRootIconListView) { return asked += "vertical ", 4; }

void standInForLengths() {
  test::standIn<SBRootIconListView, &SBIconListView::sideIconInset, side>();
  test::standIn<SBRootIconListView, &SBIconListView::topIconInset, top>();
  test::standIn<SBRootIconListView, &SBIconListView::horizontalIconPadding, horizontal>();
  test::standIn<SBRootIconListView, &SBIconListView::verticalIconPadding, vertical>();
}

TEST(Export, AsksForInsetsBeforePaddings) {
  PanelHome home;
  home.open();
  standInForLengths();
  home.panel().exportSettings();
  EXPECT_EQ(asked, "side top horizontal vertical ");
}

// Another library's answer may follow what is stored.
void noteLength(tilo::RQGestureController self, NSString key, bridge::Object value) {
  asked += key.UTF8String();
  asked += ' ';
  original<noteLength>(self, key, value);
}

TEST(Export, AsksForAllLengthsBeforeItStoresOne) {
  PanelHome home;
  home.open();
  standInForLengths();
  test::standIn<tilo::RQGestureController, &tilo::RQGestureController::savePrefsWithKey_value, noteLength>();
  home.panel().exportSettings();
  EXPECT_EQ(asked,
            "side top horizontal vertical sideIconInset topIconInset horiIconPadding vertIconPadding ");
}

// Whoever hears that the panel has gone may press its sliders' buttons, which it hears no more.
int announced = 0;
void pressing(test::Witness, test::Notification heard) {
  if (!heard.name().isEqualToString("PopupViewDidDisappearNotification"_ns)) return;
  ++announced;
  NSNotificationCenter::defaultCenter().postNotificationName_object("slider_buttons_pressed"_ns, {});
}

TEST(PanelHiding, IsAnnouncedWhenTheSlidersAreNoMoreListenedTo) {
  PanelHome home;
  home.open();
  auto witness = test::makeWitness();
  test::standIn<test::Witness, &test::Witness::notified, pressing>();
  NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
      witness.get(), bridge::selector<"notified:">(), "PopupViewDidDisappearNotification"_ns, {});
  home.panel().hide();
  home.wait(1);
  EXPECT_EQ(announced, 1);
  EXPECT_FALSE(home.panel().moveTimer());
}

// What whoever hears of a stored preference finds in the panel.
void noteStored(tilo::RQGestureController self, NSString key, bridge::Object value) {
  std::string note = key.UTF8String();
  if (PanelHome::live(key) == sim::plain(value)) note += " known";
  if (self.popView().alpha() == 1) note += " not faded";
  const tilo::ColorSlider slider = self.popView().horSlider();
  if (slider.valueLabel().text().floatValue() == slider.value()) note += " shown";
  notes.push_back(note);
  original<noteStored>(self, key, value);
}

class MovingIcons : public testing::Test {
 protected:
  MovingIcons() {
    home.open();
    test::standIn<tilo::RQGestureController, &tilo::RQGestureController::savePrefsWithKey_value,
                  noteStored>();
  }

  PanelHome home;
};

TEST_F(MovingIcons, FadesThePanelWhenTheChoiceIsStored) {
  home.step("increment \"Horizontal Padding\" 1");
  EXPECT_EQ(notes, (Notes{"custom_preset known not faded shown", "horiIconPadding known shown"}));
}

TEST_F(MovingIcons, ShowsTheNumberThatIsStored) {
  home.step("slide \"Horizontal Padding\" 60");
  ASSERT_GT(notes.size(), 2u);
  for (size_t i = 1; i < notes.size(); i += 2) EXPECT_EQ(notes[i], "horiIconPadding known shown") << i;
}

void noteMoving(tilo::RQPopupView self, tilo::ColorSlider slider) {
  notes.push_back(self.moveTimer() ? "timed" : "not timed");
  original<noteMoving>(self, slider);
}

TEST_F(MovingIcons, IsTimedFromWhenTheButtonIsPressed) {
  test::standIn<tilo::RQPopupView, &tilo::RQPopupView::moveIcons, noteMoving>();
  home.step("increment \"Horizontal Padding\" 1");
  ASSERT_FALSE(notes.empty());
  EXPECT_EQ(notes[0], "timed");
}

void noteLookUp(tilo::RQGestureController self, int row) {
  notes.push_back(PanelHome::stored("custom_preset"_ns).dump());
  original<noteLookUp>(self, row);
}

TEST(Selecting, StoresTheChoiceBeforeItsRecordIsLookedUp) {
  test::PresetsHome home(test::layouts({"a", "b"}));
  home.openPresets();
  test::standIn<tilo::RQGestureController, &tilo::RQGestureController::updateConfigWithValue, noteLookUp>();
  home.step("pick 1");
  home.step("tap \"Select\"");
  EXPECT_EQ(notes, Notes{"1"});
}

void noteNotice(tilo::RQProgressHUD self, BOOL animated, double delay) {
  notes.push_back(self.labelText() ? self.labelText().UTF8String() : "nothing");
  original<noteNotice>(self, animated, delay);
}

TEST(Export, SaysWhatItDidBeforeItsNoticeIsToGo) {
  PanelHome home;
  home.open();
  test::standIn<tilo::RQProgressHUD, &tilo::RQProgressHUD::hide_afterDelay, noteNotice>();
  home.step("call exportSettings");
  EXPECT_EQ(notes, Notes{"Exported Current Icon Layout"});
}

BOOL noteOpening(UIApplication self, NSURL url) {
  notes.push_back("opens");
  return original<noteOpening>(self, url);
}
void noteClosing(tilo::RQPopupView self) {
  notes.push_back("closes");
  original<noteClosing>(self);
}

TEST(OpenSettings, ClosesThePanelWhenTheSettingsOpen) {
  PanelHome home;
  home.open();
  test::standIn<UIApplication, &UIApplication::openURL, noteOpening>();
  test::standIn<tilo::RQPopupView, &tilo::RQPopupView::didHitCancel, noteClosing>();
  home.step("call openSettings");
  ASSERT_GE(notes.size(), 2u);
  EXPECT_EQ(notes[0], "opens");
}

}  // namespace
