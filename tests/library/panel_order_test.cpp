// In which order the panel does things that others hear or are asked.
#include <gtest/gtest.h>

#include "platform/foundation/notification_center.hpp"
#include "tests/library/key_value.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using test::PanelHome;

std::string asked;
CGFloat side(SBRootIconListView) { return asked += "side ", 1; }
CGFloat top(SBRootIconListView) { return asked += "top ", 2; }
CGFloat horizontal(SBRootIconListView) { return asked += "horizontal ", 3; }
CGFloat vertical(SBRootIconListView) { return asked += "vertical ", 4; }

TEST(Export, AsksForInsetsBeforePaddings) {
  PanelHome home;
  home.open();
  test::standIn<SBRootIconListView, &SBIconListView::sideIconInset, side>();
  test::standIn<SBRootIconListView, &SBIconListView::topIconInset, top>();
  test::standIn<SBRootIconListView, &SBIconListView::horizontalIconPadding, horizontal>();
  test::standIn<SBRootIconListView, &SBIconListView::verticalIconPadding, vertical>();
  home.panel().exportSettings();
  EXPECT_EQ(asked, "side top horizontal vertical ");
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

}  // namespace
