// How the panel comes and goes, collapses, and follows a finger.
#include <gtest/gtest.h>

#include "panel/popup_view.hpp"
#include "platform/foundation/notification_center.hpp"
#include "platform/uikit/application.hpp"
#include "simulator/device/usage_error.hpp"
#include "tests/library/key_value.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using sim::Json;
using test::PanelHome;
using test::springProgress;
using tilo::RQPopupView;

constexpr double approximately = 1e-4;                // points: the clock counts whole microseconds
constexpr double restingTop = 138.5, topBelow = 842;  // of the card on an iPhone 7: 667 + 370 - 195

double top(PanelHome& home) { return home.shown()["frame"][1]; }

CGRect frameOf(PanelHome& home) {
  Json frame = home.shown()["frame"];
  return {{frame[0], frame[1]}, {frame[2], frame[3]}};
}

UIView windowOfHome() { return UIApplication::sharedApplication().keyWindow(); }

TEST(PanelArrival, BeginsBelowTheWindowInItsMiddle) {
  PanelHome home;
  home.controller().showPopup();
  EXPECT_EQ(frameOf(home), (CGRect{{37.5, topBelow}, {300, 390}}));
  EXPECT_EQ(home.panel().superview(), windowOfHome());
}

TEST(PanelArrival, SpringsToTheMiddleWithinFourTenthsOfASecond) {
  PanelHome home;
  home.controller().showPopup();
  for (int i = 1; i <= 8; ++i) {
    home.wait(0.05);
    double expected = topBelow + (restingTop - topBelow) * springProgress(0.05 * i, 0.4, 0.7);
    EXPECT_NEAR(top(home), expected, approximately) << 0.05 * i;
  }
  EXPECT_EQ(top(home), restingTop);
}

TEST(PanelArrival, PassesTheMiddleAndComesBack) {
  PanelHome home;
  home.controller().showPopup();
  home.wait(0.2);
  EXPECT_LT(top(home), restingTop);
}

TEST(PanelArrival, IgnoresWhatItIsShownWith) {
  PanelHome home;
  auto view = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{1, 2}, {3, 4}});
  home.controller().gestureView.set(view);
  home.open();
  EXPECT_EQ(frameOf(home), (CGRect{{37.5, restingTop}, {300, 390}}));
  EXPECT_FALSE(view->superview());
}

// Without a key window its centre and bounds read as zero.
TEST(PanelArrival, IsPlacedFromZeroWithoutAKeyWindow) {
  PanelHome home;
  home.open();
  auto panel = bridge::make<RQPopupView, &NSObject::init>();
  bridge::Slot slot;
  bridge::replaceMethod(bridge::classNamed<UIApplication>(), bridge::selector<"keyWindow">(),
                        reinterpret_cast<IMP>(+[](id, SEL) -> id { return nullptr; }), slot);
  panel->show({});
  EXPECT_EQ(panel->center(), (CGPoint{0, 0}));
  EXPECT_FALSE(panel->superview());
}

TEST(PanelArrival, IsForEveryPanelThatIsAskedFor) {
  PanelHome home;
  home.open();
  RQPopupView first = home.panel();
  home.controller().showPopup();
  EXPECT_EQ(home.panel(), first);
  home.step("tap \"close\"");
  home.wait(1);
  auto kept = bridge::retained(first);
  home.controller().showPopup();
  EXPECT_NE(home.panel().raw, first.raw);
}

std::vector<std::string> disappearances() {
  std::vector<std::string> found;
  for (const std::string& name : test::witnessed)
    if (name == "PopupViewDidDisappearNotification") found.push_back(name);
  return found;
}

// What another object than the panel heard at the moment of the notification.
struct Scene {
  id sender;
  bool onScreen;
};
std::vector<Scene> scenes;

void noteScene(test::Witness, test::Notification posted) {
  if (std::string(posted.name().UTF8String()) != "PopupViewDidDisappearNotification") return;
  bridge::Object sender = bridge::as<NSNotification>(posted).object();
  scenes.push_back({sender.raw, static_cast<bool>(bridge::as<UIView>(sender).window())});
}

TEST(PanelHiding, SlidesItStraightDownKeepingItsPlaceSideways) {
  PanelHome home;
  home.open();
  home.step("drag 187 155 207 215 0.3");
  home.panel().hide();
  double from = restingTop + 60;
  for (int i = 1; i <= 6; ++i) {
    home.wait(0.1);
    double expected = from + (topBelow - from) * springProgress(0.1 * i, 0.7, 0.7);
    EXPECT_NEAR(top(home), expected, approximately) << 0.1 * i;
    EXPECT_EQ(home.shown()["frame"][0], 57.5);
  }
  home.wait(0.1);
  EXPECT_TRUE(home.shown().isNull());
}

TEST(PanelHiding, AnnouncesItselfOnceWhenItIsOver) {
  PanelHome home;
  home.open();
  auto witness = test::makeWitness();
  test::standIn<test::Witness, &test::Witness::notified, noteScene>();
  NSNotificationCenter::defaultCenter().addObserver_selector_name_object(
      witness.get(), bridge::selector<"notified:">(), {}, {});
  home.panel().hide();
  home.wait(0.69);
  EXPECT_TRUE(scenes.empty());
  home.wait(0.5);
  ASSERT_EQ(scenes.size(), 1u);
  EXPECT_EQ(scenes[0].sender, home.panel().raw);
  EXPECT_TRUE(scenes[0].onScreen) << "it is taken down after that";
  EXPECT_TRUE(home.shown().isNull());
}

TEST(PanelHiding, EndsTheObservationOfTheSlidersButtons) {
  PanelHome home;
  home.open();
  home.panel().hide();
  home.wait(1);
  NSNotificationCenter::defaultCenter().postNotificationName_object("slider_buttons_pressed"_ns, {});
  EXPECT_FALSE(home.panel().moveTimer());
  EXPECT_EQ(home.panel().alpha(), 1);
}

TEST(PanelHiding, LaysTheIconsOutAgain) {
  PanelHome home;
  home.open();
  ASSERT_TRUE(home.report()["relayouts"].empty());
  home.panel().hide();
  home.wait(1);
  EXPECT_EQ(home.report()["relayouts"].size(), 1u);
}

TEST(PanelHiding, IsWhatTheSecondPagesDoneActionDoes) {
  PanelHome home;
  home.open();
  test::Listening listening;
  home.panel().didHitDone();
  home.wait(2);
  EXPECT_TRUE(home.shown().isNull());
  EXPECT_EQ(disappearances().size(), 1u);
}

TEST(PanelCancelling, WaitsForTheNextTurnAndSlidesTheSameWay) {
  PanelHome home;
  home.open();
  home.panel().didHitCancel();
  EXPECT_EQ(home.panel().center(), (CGPoint{187.5, 333.5}));
  for (int i = 1; i <= 6; ++i) {
    home.wait(0.1);
    double expected = restingTop + (topBelow - restingTop) * springProgress(0.1 * i, 0.7, 0.7);
    EXPECT_NEAR(top(home), expected, approximately) << 0.1 * i;
  }
  home.wait(0.1);
  EXPECT_TRUE(home.shown().isNull());
  EXPECT_FALSE(home.panel().superview());
}

TEST(PanelCancelling, TwiceIsNoMoreThanOnce) {
  PanelHome home;
  home.open();
  home.panel().didHitCancel();
  home.panel().didHitCancel();
  home.wait(0.3);
  double expected = restingTop + (topBelow - restingTop) * springProgress(0.3, 0.7, 0.7);
  EXPECT_NEAR(top(home), expected, approximately);
  home.panel().didHitCancel();
  home.wait(0.4);
  EXPECT_TRUE(home.shown().isNull());
  EXPECT_FALSE(home.panel().superview());
}

TEST(PanelCancelling, AnnouncesNothing) {
  PanelHome home;
  home.open();
  test::Listening listening;
  home.step("tap \"close\"");
  home.wait(2);
  ASSERT_TRUE(home.shown().isNull());
  EXPECT_TRUE(disappearances().empty());
  EXPECT_TRUE(home.report()["relayouts"].empty());
}

TEST(PanelCancelling, KeepsTheObservationOfTheSlidersButtons) {
  PanelHome home;
  home.open();
  home.step("tap \"close\"");
  home.wait(1);
  NSNotificationCenter::defaultCenter().postNotificationName_object("slider_buttons_pressed"_ns, {});
  EXPECT_TRUE(home.panel().moveTimer());
  EXPECT_EQ(home.panel().alpha(), 0.5);
}

TEST(PanelCancelling, KeepsItsPlaceSideways) {
  PanelHome home;
  home.open();
  home.step("drag 187 155 147 155 0.3");
  home.step("tap \"close\"");
  home.wait(0.3);
  EXPECT_EQ(home.shown()["frame"][0], -2.5);
}

TEST(PanelCancelling, IsWhatLaunchingAnApplicationDoes) {
  PanelHome home;
  home.open();
  test::Listening listening;
  home.step("launch \"Calendar\"");
  EXPECT_EQ(home.report()["application"], "Calendar");
  EXPECT_FALSE(home.shown().isNull());
  home.wait(1);
  EXPECT_TRUE(home.shown().isNull());
  EXPECT_TRUE(disappearances().empty());
}

TEST(PanelCollapsing, LeavesTheHeaderWhereItIs) {
  PanelHome home;
  home.open();
  home.step("tap \"collapse\"");
  home.wait(1);
  EXPECT_EQ(frameOf(home), (CGRect{{37.5, restingTop}, {300, 40}}));
  EXPECT_EQ(home.shown()["collapsed"], true);
  EXPECT_EQ(home.shown()["views"]["children"][0]["frame"], Json({0, 0, 300, 40}));
}

TEST(PanelCollapsing, SpringsWithinFourTenthsOfASecond) {
  PanelHome home;
  home.open();
  home.panel().toggleHeight();
  for (int i = 1; i <= 4; ++i) {
    home.wait(0.1);
    double expected = 390 - 350 * springProgress(0.1 * i, 0.4, 0.7);
    EXPECT_NEAR(frameOf(home).size.height, expected, approximately) << 0.1 * i;
    EXPECT_NEAR(top(home), restingTop, approximately);
  }
}

Json toggle(PanelHome& home) { return home.shown()["views"]["children"][0]["children"][3]; }

TEST(PanelCollapsing, TurnsTheGlyphJustShortOfAHalfTurn) {
  PanelHome home;
  home.open();
  home.step("tap \"collapse\"");
  home.wait(1);
  constexpr double angle = 3.1384510609362035;
  const double expected[] = {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
  Json found = toggle(home)["transform"];
  for (size_t i = 0; i < 6; ++i) EXPECT_NEAR(found[i].get<double>(), expected[i], 1e-12);
  EXPECT_GT(found[1].get<double>(), 0.003);
}

// Because of what is missing to the half turn there is a shorter way, and it is always the same.
TEST(PanelCollapsing, TurnsTheGlyphClockwiseAndBackTheSameWay) {
  PanelHome home;
  home.open();
  home.panel().toggleHeight();
  home.wait(0.06);
  EXPECT_GT(toggle(home)["transform"][1].get<double>(), 0.1);
  home.wait(1);
  home.panel().toggleHeight();
  home.wait(0.06);
  EXPECT_GT(toggle(home)["transform"][1].get<double>(), 0.1);
}

TEST(PanelCollapsing, TwiceBringsHeightAndGlyphBackExactly) {
  PanelHome home;
  home.open();
  for (int i = 0; i < 2; ++i) {
    home.step("tap \"collapse\"");
    home.wait(1);
  }
  EXPECT_EQ(home.panel().frame(), (CGRect{{37.5, restingTop}, {300, 390}}));
  EXPECT_EQ(home.panel().toggleButton().transform(), identityTransform);
  EXPECT_EQ(home.shown()["collapsed"], false);
}

class PanelHeight : public testing::TestWithParam<std::pair<double, double>> {};

TEST_P(PanelHeight, GoesToTheHeaderUnlessItIsThere) {
  PanelHome home;
  home.open();
  auto [height, expected] = GetParam();
  home.panel().frame.set({{10, 20}, {300, height}});
  home.step("tap \"collapse\"");
  home.wait(1);
  EXPECT_EQ(home.panel().frame(), (CGRect{{10, 20}, {300, expected}}));
}

INSTANTIATE_TEST_SUITE_P(Heights, PanelHeight,
                         testing::Values(std::pair{40., 390.}, std::pair{40.25, 40.}, std::pair{39.75, 40.},
                                         std::pair{200., 40.}, std::pair{390., 40.}, std::pair{500., 40.}));

TEST(PanelCollapsing, PutsThePagesOutOfSight) {
  PanelHome home;
  home.open();
  home.step("tap \"collapse\"");
  home.wait(1);
  EXPECT_THROW(home.step("tap \"Add\""), sim::UsageError);
  home.step("tap \"close\"");
  home.wait(1);
  EXPECT_TRUE(home.shown().isNull());
}

struct Drag {
  double x, y;
};

class PanelDrag : public testing::TestWithParam<Drag> {};

TEST_P(PanelDrag, MovesTheCardAsFarAsTheFinger) {
  PanelHome home;
  home.open();
  auto [x, y] = GetParam();
  home.step("drag 187 155 " + std::to_string(187 + x) + " " + std::to_string(155 + y) + " 0.5");
  CGRect frame = frameOf(home);
  EXPECT_NEAR(frame.origin.x, 37.5 + x, 1e-9);
  EXPECT_NEAR(frame.origin.y, restingTop + y, 1e-9);
  home.wait(2);
  EXPECT_EQ(frameOf(home), frame) << "no snapping, no coasting, no leaving";
}

INSTANTIATE_TEST_SUITE_P(Ways, PanelDrag,
                         testing::Values(Drag{100, 0}, Drag{-100, 0}, Drag{0, 120}, Drag{0, -120},
                                         Drag{57, 33}, Drag{-187, 511}, Drag{0, 511}, Drag{187, -150}));

TEST(PanelDragging, FollowsTheFingerAtEveryMove) {
  PanelHome home;
  home.open();
  home.step("finger 1 down 187 155");
  home.step("finger 1 move 187 175");
  EXPECT_EQ(top(home), restingTop + 20);
  for (double y : {176.5, 190.0, 155.0, 100.0, 155.0}) {
    home.step("finger 1 move 187 " + std::to_string(y));
    EXPECT_EQ(top(home), restingTop + y - 155);
  }
  home.step("finger 1 up 187 155");
  EXPECT_EQ(top(home), restingTop);
}

TEST(PanelDragging, GoesOnFromWhereItWasLeft) {
  PanelHome home;
  home.open();
  home.step("drag 187 155 187 255 0.3");
  home.step("drag 187 255 167 305 0.3");
  EXPECT_NEAR(frameOf(home).origin.x, 17.5, approximately);
  EXPECT_NEAR(frameOf(home).origin.y, restingTop + 150, approximately);
}

TEST(PanelDragging, WorksWhileItIsCollapsed) {
  PanelHome home;
  home.open();
  home.step("tap \"collapse\"");
  home.wait(1);
  home.step("drag 150 160 150 460 0.3");
  EXPECT_EQ(frameOf(home), (CGRect{{37.5, restingTop + 300}, {300, 40}}));
}

TEST(PanelDragging, DoesNotMoveTheHomeScreenBelow) {
  PanelHome home;
  home.open();
  home.step("drag 187 155 20 155 0.2");
  home.wait(1);
  EXPECT_EQ(home.report()["pageDots"]["current"], 0);
}

TEST(PanelDragging, LeavesTheHomeScreenBesideItUsable) {
  PanelHome home;
  home.open();
  home.step("drag 350 40 20 40 0.2");
  home.wait(1);
  EXPECT_EQ(home.report()["pageDots"]["current"], 1);
  EXPECT_EQ(top(home), restingTop);
}

}  // namespace
