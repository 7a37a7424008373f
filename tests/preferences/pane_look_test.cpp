// How Settings looks: the page's icon in the list, large titles, the row that is chosen on a tablet; choices
// in their order, and colours as such.
#include "platform/uikit/image_view.hpp"
#include "platform/uikit/label.hpp"
#include "platform/uikit/scroll_view.hpp"
#include "simulator/preferences/list_controller.hpp"
#include "simulator/preferences/navigation.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "simulator/uikit/views/view.hpp"
#include "simulator/uikit/views/window.hpp"
#include "tests/preferences/pane_home.hpp"

namespace {

using test::PaneHome;

// All that is shown anywhere of that kind.
template <class T>
std::vector<T> shown() {
  std::vector<T> found;
  sim::uikit::layoutPass();
  for (const UIWindow window : sim::uikit::windows())
    sim::uikit::forEachInTree(window, [&](UIView view) {
      if (bridge::isKindOf<T>(view)) found.push_back(bridge::as<T>(view));
    });
  return found;
}

// The label of that text and size; the last one that is found, which is the frontmost.
UILabel label(const std::string& text, CGFloat size) {
  UILabel found;
  for (const UILabel each : shown<UILabel>())
    if (each.text() && text == each.text().UTF8String() && each.font().pointSize() == size) found = each;
  return found;
}

UIView cellOf(UIView view) {
  while (view && !bridge::isKindOf<PSTableCell>(view)) view = view.superview();
  return view;
}

struct SettingsList : test::Home {
  explicit SettingsList(std::vector<std::string> options) : Home(std::move(options)) {
    step("launch \"Settings\"");
    step("wait 0.5");
  }
};

TEST(SettingsLook, HasThePagesIconBesideItsName) {
  SettingsList home({});
  const UIView cell = cellOf(label("Tilo", 17));
  ASSERT_TRUE(cell);
  CGRect icon{};
  sim::uikit::forEachInTree(cell, [&](UIView view) {
    if (bridge::isKindOf<UIImageView>(view) && view.frame().origin.x < 100) icon = view.frame();
  });
  EXPECT_EQ(icon, (CGRect{{15, 7.5}, {29, 29}}));
  EXPECT_EQ(label("Tilo", 17).frame().origin.x, 59);
}

TEST(SettingsLook, HasNoLargeTitleBeforeEleven) {
  SettingsList home({"--device", "iPhone 7", "--ios", "10.3"});
  EXPECT_FALSE(label("Settings", 34));
  EXPECT_EQ(label("Settings", 17).alpha(), 1);
}

TEST(SettingsLook, HasALargeTitleFromElevenOnThatBecomesTheBarsWhenScrolled) {
  SettingsList home({"--device", "iPhone 8", "--ios", "11.1"});
  const UILabel large = label("Settings", 34);
  ASSERT_TRUE(large);
  EXPECT_EQ(label("Settings", 17).alpha(), 0);
  const auto list = bridge::as<UIScrollView>(large.superview());
  list.contentOffset.set({0, 60});
  home.step("wait 0.1");
  EXPECT_EQ(label("Settings", 17).alpha(), 1);
}

TEST(SettingsLook, HasAPlainTitleOnThePageItself) {
  PaneHome home({"--device", "iPhone 8", "--ios", "11.1"});
  EXPECT_FALSE(label("Tilo", 34));
  EXPECT_EQ(label("Tilo", 17).alpha(), 1);
}

std::vector<PSTableCell> rows() {
  sim::uikit::layoutPass();
  return sim::preferences::cellsOf(sim::preferences::topPage());
}

TEST(PaneLook, ListsLayoutsByNameAfterCustom) {
  const auto file = test::presetsDocument(
      sim::Json::array({test::preset("Wide", 1, 11, 12, 13, 14), test::preset("Airy", 0, 1, 2, 3, 4)}));
  PaneHome home({"--presets", test::temporaryFile("two.json", file)});
  home.open("Layout");
  std::vector<std::string> names;
  for (const PSTableCell row : rows()) names.emplace_back(row.specifier().name().UTF8String());
  EXPECT_EQ(names, (std::vector<std::string>{"Custom", "Wide", "Airy"}));
}

TEST(PaneLook, ShowsEachColorBesideItsName) {
  PaneHome home;
  home.open("Panel Color");
  ASSERT_EQ(rows().size(), 9u);
  const PSTableCell red = rows()[6];
  EXPECT_STREQ(red.specifier().name().UTF8String(), "Red");
  CGFloat part[4] = {};
  sim::uikit::forEachInTree(red.contentView(), [&](UIView view) {
    if (view.frame().size.width == 26)
      view.backgroundColor().getRed_green_blue_alpha(&part[0], &part[1], &part[2], &part[3]);
  });
  EXPECT_NEAR(part[0], 249 / 255., 1e-6);
  EXPECT_NEAR(part[1], 84 / 255., 1e-6);
  EXPECT_NEAR(part[2], 115 / 255., 1e-6);
}

}  // namespace
