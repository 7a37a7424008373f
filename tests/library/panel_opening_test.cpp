// When the gesture controller opens a panel, and which one it keeps.
#include <gtest/gtest.h>

#include "platform/uikit/application.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;
using tilo::RQPopupView;

struct Switches {
  const char* what;
  std::vector<std::string> settings;
  bool opens;

  friend void PrintTo(const Switches& switches, std::ostream* stream) { *stream << switches.what; }
};

class Opening : public testing::TestWithParam<Switches> {};

TEST_P(Opening, WantsBothSwitchesOn) {
  std::vector<std::string> settings{"custom_preset=-1"};
  settings.insert(settings.end(), GetParam().settings.begin(), GetParam().settings.end());
  test::Home home(test::homeOptions("iPhone 7", settings));
  tilo::RQGestureController::sharedInstance().showPopup();
  EXPECT_EQ(static_cast<bool>(PanelHome::panel()), GetParam().opens);
  EXPECT_EQ(!home.report()["panel"].isNull(), GetParam().opens);
}

INSTANTIATE_TEST_SUITE_P(Settings, Opening,
                         testing::Values(Switches{"BothOn", {"enabled=YES", "quick=YES"}, true},
                                         Switches{"AsNumbers", {"enabled=1", "quick=2"}, true},
                                         Switches{"LibraryOff", {"enabled=NO", "quick=YES"}, false},
                                         Switches{"QuickOff", {"enabled=YES", "quick=NO"}, false},
                                         Switches{"BothOff", {"enabled=NO", "quick=NO"}, false},
                                         Switches{"LibraryAbsent", {"quick=YES"}, false},
                                         Switches{"QuickAbsent", {"enabled=YES"}, false},
                                         Switches{"BothAbsent", {}, false}),
                         [](const auto& test) { return std::string(test.param.what); });

int panelsIn(UIView window) {
  NSArray views = window.subviews();
  int count = 0;
  for (NSUInteger i = 0; i < views.count(); ++i)
    count += bridge::isKindOf<RQPopupView>(views.objectAtIndex(i));
  return count;
}

TEST(OpenPanel, StaysTheOnlyOne) {
  PanelHome home;
  home.controller().showPopup();
  RQPopupView first = home.panel();
  ASSERT_TRUE(first);
  home.controller().showPopup();
  home.wait(1);
  home.controller().showPopup();
  EXPECT_EQ(home.panel(), first);
  EXPECT_EQ(panelsIn(UIApplication::sharedApplication().keyWindow()), 1);
}

TEST(OpenPanel, CountsAsOpenUntilItHasSlidOut) {
  PanelHome home;
  home.open();
  RQPopupView first = home.panel();
  home.step("tap \"close\"");
  home.wait(0.5);
  home.controller().showPopup();
  EXPECT_EQ(home.panel(), first);
}

TEST(OpenPanel, IsANewOneEveryTime) {
  PanelHome home;
  home.open();
  auto first = bridge::retained(home.panel());
  home.step("tap \"close\"");
  home.wait(1);
  EXPECT_EQ(home.panel(), first.get()) << "kept after it has closed";
  home.open();
  EXPECT_NE(home.panel().raw, first.get().raw);
  EXPECT_FALSE(home.shown().isNull());
}

TEST(OpenPanel, MayBeInsideAnotherViewOfTheWindow) {
  PanelHome home;
  home.open();
  RQPopupView panel = home.panel();
  auto holder = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{0, 0}, {375, 667}});
  UIApplication::sharedApplication().keyWindow().addSubview(holder);
  holder->addSubview(panel);
  home.controller().showPopup();
  EXPECT_EQ(home.panel(), panel);
}

std::vector<id> shownWith;
void noteShown(RQPopupView, bridge::Object view) { shownWith.push_back(view.raw); }

TEST(OpenPanel, IsShownWithTheGestureView) {
  PanelHome home;
  test::standIn<RQPopupView, &RQPopupView::show, noteShown>();
  home.controller().showPopup();
  auto view = bridge::make<UIView, &UIView::initWithFrame>(CGRect{});
  home.controller().gestureView.set(view);
  home.controller().showPopup();
  EXPECT_EQ(shownWith, (std::vector<id>{nullptr, view.get().raw}));
}

struct Screen {
  const char* device;
  const char* orientation;

  friend void PrintTo(const Screen& screen, std::ostream* stream) {
    *stream << screen.device << ' ' << screen.orientation;
  }
};

class OpenPanelOn : public testing::TestWithParam<Screen> {};

TEST_P(OpenPanelOn, EveryScreenIsInItsMiddle) {
  PanelHome home({}, {"--orientation", GetParam().orientation}, GetParam().device);
  home.open();
  CGSize size = UIApplication::sharedApplication().keyWindow().bounds().size;
  EXPECT_EQ(size.width > size.height, std::string(GetParam().orientation) == "landscape");
  EXPECT_EQ(home.shown()["frame"], sim::Json({size.width / 2 - 150, size.height / 2 - 195, 300, 390}));
  home.step("increment \"Top Inset\"");
  EXPECT_EQ(home.shown()["rows"]["Top Inset"]["value"], 31);
  home.step("page 1");
  home.step("page 0");
  home.step("tap \"close\"");
  home.wait(1);
  EXPECT_TRUE(home.shown().isNull());
}

INSTANTIATE_TEST_SUITE_P(Devices, OpenPanelOn,
                         testing::Values(Screen{"iPhone 4s", "portrait"}, Screen{"iPhone 5", "portrait"},
                                         Screen{"iPhone 7", "portrait"}, Screen{"iPhone 7 Plus", "portrait"},
                                         Screen{"iPhone X", "portrait"}, Screen{"iPad mini 2", "portrait"},
                                         Screen{"iPad Pro (12.9-inch)", "portrait"},
                                         Screen{"iPhone 7 Plus", "landscape"},
                                         Screen{"iPad mini 2", "landscape"},
                                         Screen{"iPad Pro (12.9-inch)", "landscape"}));

TEST(OpenPanel, StaysUsableWhenTheDeviceTurns) {
  PanelHome home({}, {}, "iPad Air 2");
  home.open();
  home.step("rotate landscape");
  home.wait(1);
  home.step("increment \"Top Inset\"");
  EXPECT_EQ(home.stored("topIconInset"_ns), 31);
  home.step("tap \"close\"");
  home.wait(1);
  home.open();
  EXPECT_EQ(home.shown()["frame"], sim::Json({362, 189, 300, 390}));
}

TEST(OpenPanel, HasItsPressesHeardAfterAnEarlierOneWasHidden) {
  PanelHome home;
  for (int round = 1; round <= 3; ++round) {
    home.open();
    home.step("increment \"Top Inset\"");
    EXPECT_EQ(home.stored("topIconInset"_ns), 30 + round);
    home.panel().hide();
    home.wait(1);
  }
}

}  // namespace
