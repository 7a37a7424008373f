// Rows of Settings as a person sees them: on a screen that turns, under a finger, with names that find no
// room, and lists that are empty.
#include <algorithm>

#include "platform/uikit/label.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/input/fingers.hpp"
#include "simulator/preferences/list_controller.hpp"
#include "simulator/preferences/navigation.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/views/view.hpp"
#include "tests/preferences/pane_home.hpp"
#include "tests/simulator/quartz/pixels.hpp"

namespace {

using sim::preferences::shownCell;
using sim::test::Pixel;
using test::PaneHome;

constexpr Pixel white{255, 255, 255, 255}, pressed{217, 217, 217, 255};

// At a point of a screen with two pixels to the point.
Pixel seenAt(CGFloat x, CGFloat y) {
  const sim::Surface picture = sim::uikit::renderScreen(sim::clock::now());
  return sim::test::pixelAt(picture.get(), static_cast<int>(x * 2), static_cast<int>(y * 2));
}

// The least of a color's parts between two points.
int darkestIn(CGRect place) {
  const sim::Surface picture = sim::uikit::renderScreen(sim::clock::now());
  int least = 255;
  for (CGFloat x = place.origin.x; x < place.origin.x + place.size.width; x += 0.5)
    for (CGFloat y = place.origin.y; y < place.origin.y + place.size.height; y += 0.5) {
      const Pixel seen = sim::test::pixelAt(picture.get(), static_cast<int>(x * 2), static_cast<int>(y * 2));
      least = std::min({least, seen.red, seen.green, seen.blue});
    }
  return least;
}

CGRect onScreen(UIView view) { return view.convertRect_toView(view.bounds(), {}); }

// Where a row has nothing but its ground.
CGPoint placeIn(const char* title) {
  const CGRect row = onScreen(shownCell(title));
  return {row.origin.x + 5, row.origin.y + 22};
}
Pixel groundOf(const char* title) { return seenAt(placeIn(title).x, placeIn(title).y); }

UILabel textOf(PSTableCell cell) {
  UILabel found;
  sim::uikit::forEachInTree(cell, [&](UIView view) {
    if (bridge::isKindOf<UILabel>(view) && !found) found = bridge::as<UILabel>(view);
  });
  return found;
}

CGFloat rightEndOf(UIView view) { return onScreen(view).origin.x + onScreen(view).size.width; }

TEST(SettingsRows, FillAScreenThatTurns) {
  PaneHome home({"--device", "iPad Air 2"});
  for (const auto& [way, width] : {std::pair("landscape", 1024), {"portrait", 768}}) {
    home.step(std::string("rotate ") + way);
    EXPECT_EQ(rightEndOf(shownCell("Enabled")), width) << way;
    EXPECT_EQ(rightEndOf(PaneHome::control("Enabled")), width - 16) << way;
    EXPECT_EQ(seenAt(width - 4, 116), white) << way;
  }
}

TEST(SettingsRows, FillAPhonesScreenThatTurns) {
  PaneHome home({"--device", "iPhone 7 Plus"});
  home.step("rotate landscape");
  EXPECT_EQ(rightEndOf(shownCell("Enabled")), 736);
}

// The clock, drawn over a bar that is nearly white.
TEST(SettingsRows, HaveAStatusBarThatStaysBlackWhenTheScreenTurns) {
  PaneHome home({"--device", "iPad Air 2"});
  const auto darkest = [](CGFloat width) { return darkestIn({{width / 2 - 20, 4}, {40, 12}}); };
  EXPECT_LT(darkest(768), 30);
  home.step("rotate landscape");
  EXPECT_LT(darkest(1024), 30);
}

TEST(SettingsRows, AreGreyWhileAFingerRestsOnThem) {
  PaneHome home;
  home.scrollTo("Back Up");
  const CGPoint place = placeIn("Paste Layout");
  sim::input::fingerDown(1, place);
  EXPECT_EQ(groundOf("Paste Layout"), white);
  home.step("wait 0.2");
  EXPECT_EQ(groundOf("Paste Layout"), pressed);
  EXPECT_EQ(groundOf("Back Up"), white);
  sim::input::fingerMove(1, {place.x, place.y - 40});
  EXPECT_EQ(groundOf("Paste Layout"), white);
  sim::input::fingerUp(1, {place.x, place.y - 40});
}

TEST(SettingsRows, AreGreyWhileTheirPageStandsBesideThemOnATablet) {
  PaneHome home({"--device", "iPad Air 2"});
  EXPECT_EQ(seenAt(5, 20 + 44 + 35 + 22), pressed);
  home.step("drag 200 121 200 300");
  home.step("wait 1");
  EXPECT_EQ(seenAt(5, 20 + 44 + 35 + 22), pressed);
}

TEST(SettingsRows, StayWhiteUnderAFingerThatScrolls) {
  PaneHome home;
  home.scrollTo("Back Up");
  const CGPoint place = placeIn("Paste Layout");
  sim::input::fingerDown(1, place);
  sim::input::fingerMove(1, {place.x, place.y - 40});
  home.step("wait 0.3");
  EXPECT_EQ(groundOf("Paste Layout"), white);
  sim::input::fingerUp(1, {place.x, place.y - 40});
}

TEST(SettingsRows, StayWhiteUnderAFingerWhereATapDoesNothing) {
  PaneHome home;
  sim::input::fingerDown(1, placeIn("Rows"));
  home.step("wait 0.3");
  EXPECT_EQ(groundOf("Rows"), white);
  sim::input::fingerUp(1, placeIn("Rows"));
}

TEST(SettingsRows, FadeWhenTheirPageIsLeft) {
  PaneHome home;
  home.scrollTo("Layout");
  home.tap("Layout");
  home.step("tap \"Tilo\"");
  home.step("wait 0.15");  // what slides away covers less and less of it
  const Pixel fading = groundOf("Layout");
  EXPECT_GT(fading.red, pressed.red);
  EXPECT_LT(fading.red, white.red);
  home.step("wait 0.5");
  EXPECT_EQ(groundOf("Layout"), white);
}

TEST(SettingsRows, FadeAtOnceWhereTheyAreButtons) {
  PaneHome home;
  home.scrollTo("Reset to Defaults");
  home.tap("Reset to Defaults");
  home.step("choose \"Cancel\"");
  home.step("wait 0.5");
  EXPECT_EQ(groundOf("Reset to Defaults"), white);
}

std::string withName(const char* name) {
  return test::temporaryFile(
      "named.json", test::presetsDocument(sim::Json::array({test::preset(name, 1, 11, 12, 13, 14)})));
}

TEST(SettingsRows, HaveRoomForEveryTitleOfThePageOnTheNarrowestPhone) {
  PaneHome home({"--device", "iPhone 5s"});
  sim::uikit::layoutPass();
  for (const PSTableCell cell : sim::preferences::cellsOf(sim::preferences::topPage()))
    if (const UILabel text = textOf(cell); text && text.text().length() > 3)
      EXPECT_GE(text.frame().size.width, text.sizeThatFits({1000, 44}).width) << text.text().UTF8String();
}

TEST(SettingsRows, EndANameThatFindsNoRoomBeforeTheirMark) {
  constexpr const char* name = "A layout with a name that is too long for any row";
  PaneHome home({"--presets", withName(name)});
  home.open("Layout");
  EXPECT_LE(rightEndOf(textOf(shownCell(name))), 375 - 15 - 14 - 6);
  EXPECT_GT(rightEndOf(textOf(shownCell(name))), 300);
  home.back();
  home.open("Copy Layout");
  EXPECT_LE(rightEndOf(textOf(shownCell(name))), 375 - 15);
}

// White, too, on white.
TEST(PaneLook, HasAnEdgeAroundEachColor) {
  PaneHome home;
  home.open("Panel Color");
  for (const char* name : {"White", "Red"}) {
    const CGRect row = onScreen(shownCell(name));
    EXPECT_LT(darkestIn({{375 - 50 - 26 - 2, row.origin.y + row.size.height / 2}, {2, 1}}), 230) << name;
  }
}

// What is read below the rows, or where these would be.
std::string footerSeen() {
  std::string found;
  const UIView page = sim::preferences::topPage().view();
  sim::uikit::layoutPass();
  for (NSUInteger i = 0; i < page.subviews().count(); ++i)
    if (const auto view = bridge::as<UIView>(page.subviews().objectAtIndex(i));
        bridge::isKindOf<UILabel>(view))
      found = bridge::as<UILabel>(view).text().UTF8String();
  return found;
}

TEST(PaneLook, SaysOnEmptyListsWhatWillBeThere) {
  PaneHome home;
  home.open("Copy Layout");
  EXPECT_EQ(footerSeen(), "Layouts saved in Quick Settings appear here. Tap one to copy it.");
  home.back();
  home.open("Restore");
  EXPECT_EQ(footerSeen(), "Backups appear here, the newest first. Tap one to put it in place.");
}

}  // namespace
