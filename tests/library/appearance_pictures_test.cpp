// What is drawn with the library loaded, to the pixel: SpringBoard's own wherever nothing else was asked for.
#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "bridge/replace.hpp"
#include "panel/popup_view.hpp"
#include "platform/springboard/icon.hpp"
#include "platform/springboard/icon_label.hpp"
#include "platform/springboard/page_control.hpp"
#include "simulator/springboard/applications.hpp"
#include "simulator/springboard/icon_label.hpp"
#include "simulator/uikit/drawing/color.hpp"
#include "tests/library/panel_home.hpp"

namespace {

using Options = std::vector<std::string>;

struct Picture {
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface{nullptr, cairo_surface_destroy};

  // A point of a screen of two pixels a point.
  std::uint32_t at(int x, int y) const {
    return *reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface.get()) +
                                                   2 * y * cairo_image_surface_get_stride(surface.get()) +
                                                   2 * x * 4);
  }
  // All that is above the dock, whose icons stand elsewhere with the library.
  std::string aboveDock() const {
    constexpr int dockTop = 2 * 570;
    return {reinterpret_cast<const char*>(cairo_image_surface_get_data(surface.get())),
            static_cast<std::size_t>(dockTop * cairo_image_surface_get_stride(surface.get()))};
  }
};

Picture pictureOf(Options options, const std::string& script = "wait 0\n") {
  const std::string file = test::temporaryFile("home.png", "");
  options.insert(options.end(), {"--script", "-", "--snapshot", file});
  EXPECT_EQ(test::runSimulator(options, script).status, 0);
  Picture picture;
  picture.surface.reset(cairo_image_surface_create_from_png(file.c_str()));
  EXPECT_EQ(cairo_surface_status(picture.surface.get()), CAIRO_STATUS_SUCCESS);
  return picture;
}

Options with(Options device, std::initializer_list<const char*> settings) {
  for (const char* setting : settings) device.insert(device.end(), {"--set", setting});
  return device;
}

class LoadedAndOff : public testing::TestWithParam<Options> {};

// Icons, labels with their shadows, and the dots of which another page's is lit.
TEST_P(LoadedAndOff, LooksLikeSpringBoardAlone) {
  Options stock = GetParam();
  stock.push_back("--stock");
  const Options off = with(GetParam(), {"enabled=NO"});
  EXPECT_TRUE(pictureOf(off).aboveDock() == pictureOf(stock).aboveDock());
  const std::string second = "swipe left\nwait 1\n";
  EXPECT_TRUE(pictureOf(off, second).aboveDock() == pictureOf(stock, second).aboveDock());
  EXPECT_TRUE(pictureOf(off, second).aboveDock() != pictureOf(off).aboveDock());
}

INSTANTIATE_TEST_SUITE_P(On, LoadedAndOff,
                         testing::Values(Options{"--device", "iPhone 7"},
                                         Options{"--device", "iPhone 6", "--ios", "9.3.3"}));

TEST(LoadedAndOn, WithLabelsAndDotsDrawsThemAsSpringBoardDoes) {
  // The stock spacing, so that everything stands where it does without the library.
  const Options on = with({}, {"enabled=YES", "labels=YES", "page=YES"}), off = with({}, {"enabled=NO"});
  const Options hidden = with({}, {"enabled=YES", "labels=NO", "page=NO"});
  const auto spacing = {"custom_preset=-1", "sideIconInset=27", "horiIconPadding=27", "topIconInset=30",
                        "vertIconPadding=14"};
  EXPECT_TRUE(pictureOf(with(on, spacing)).aboveDock() == pictureOf(off).aboveDock());
  EXPECT_TRUE(pictureOf(with(hidden, spacing)).aboveDock() != pictureOf(off).aboveDock());
}

TEST(SquareIcons, AreDrawnToTheirCorners) {
  const Picture round = pictureOf(with({}, {"enabled=NO"})), square = pictureOf(with({}, {"square=YES"}));
  // "Messages", whose corner is at 27, 30.
  EXPECT_NE(square.at(28, 31), round.at(28, 31));
  EXPECT_EQ(square.at(57, 32), round.at(57, 32));
}

// The view itself is told, so that it stays square when the setting goes.
TEST(SquareIcons, AreAPropertyOfTheirViews) {
  test::Home home({"--set", "square=YES"});
  home.save("square"_ns, NSNumber::numberWithBool(NO));
  EXPECT_EQ(home.report()["pages"][0]["icons"][0]["square"], true);
}

void roundsItself(SBIconImageView self) {
  bridge::original<roundsItself>(self);
  self.setShowsSquareCorners(NO);
}

TEST(SquareIcons, AreToldWhenSpringBoardHasLaidThemOut) {
  test::Home home({"--set", "square=YES"}, [](sim::Simulation&) {
    test::standIn<SBIconImageView, &UIView::layoutSubviews, roundsItself>();
  });
  home.save("square"_ns, NSNumber::numberWithBool(NO));
  EXPECT_EQ(home.report()["pages"][0]["icons"][0]["square"], true);
}

// What SpringBoard itself answers is handed on, whatever it is.
UIColor red(SBIconLabelImageParameters) { return UIColor::redColor(); }
UIColor green(SBIconLabelImageParameters) { return UIColor::greenColor(); }

TEST(Labels, HaveTheColoursThatSpringBoardGivesThem) {
  test::Home home(
      {"--set", "enabled=YES", "--set", "labels=YES", "--springboard", "complete"}, [](sim::Simulation&) {
        test::standIn<SBIconLabelImageParameters, &SBIconLabelImageParameters::textColor, red>();
        test::standIn<SBIconLabelImageParameters, &SBIconLabelImageParameters::shadowColor, green>();
      });
  auto parameters = sim::springboard::makeLabelParameters("Name"_ns);
  EXPECT_EQ(sim::uikit::colorOf(parameters->textColor()), (sim::Color{1, 0, 0, 1}));
  EXPECT_EQ(sim::uikit::colorOf(parameters->shadowColor.ifAnswered()), (sim::Color{0, 1, 0, 1}));
}

std::vector<std::pair<NSInteger, BOOL>> dots;
void seenDot(SBIconListPageControl self, UIImageView image, BOOL enabled, NSInteger index) {
  dots.emplace_back(index, enabled);
  bridge::original<seenDot>(self, image, enabled, index);
}

TEST(PageDots, AreThoseThatSpringBoardNames) {
  test::Home home({"--set", "enabled=YES", "--set", "page=YES"}, [](sim::Simulation&) {
    test::standIn<SBIconListPageControl, &SBIconListPageControl::_setIndicatorImage_toEnabled_index,
                  seenDot>();
  });
  ASSERT_GE(dots.size(), 3u);
  for (NSInteger page = 0; page < 3; ++page)
    EXPECT_NE(std::ranges::find(dots, std::pair<NSInteger, BOOL>(page, page == 0)), dots.end()) << page;
}

void seenDotWithoutNumber(SBIconListPageControl self, UIImageView image, BOOL enabled) {
  dots.emplace_back(0, enabled);
  bridge::original<seenDotWithoutNumber>(self, image, enabled);
}

TEST(PageDots, AreThoseThatSpringBoardNamesWithoutANumberToo) {
  test::Home home({"--springboard", "complete", "--set", "enabled=YES", "--set", "page=YES"},
                  [](sim::Simulation&) {
                    test::standIn<SBIconListPageControl, &SBIconListPageControl::_setIndicatorImage_toEnabled,
                                  seenDotWithoutNumber>();
                  });
  EXPECT_EQ(std::ranges::count(dots, std::pair<NSInteger, BOOL>(0, YES)) * 2,
            std::ranges::count(dots, std::pair<NSInteger, BOOL>(0, NO)));
  EXPECT_FALSE(dots.empty());
}

int cancelled = 0, shownAlready = 0;
void countedCancel(tilo::RQPopupView self) {
  ++cancelled;
  shownAlready += static_cast<bool>(sim::springboard::shownApplication());
  bridge::original<countedCancel>(self);
}

using sim::springboard::LaunchMessage;

struct Launch {
  const char *name, *springboard, *version;
  LaunchMessage message = LaunchMessage::fromIcon;

  friend void PrintTo(const Launch& launch, std::ostream* stream) { *stream << launch.name; }
};

class LaunchByEveryMessage : public testing::TestWithParam<Launch> {};

TEST_P(LaunchByEveryMessage, CancelsThePanelBeforeTheApplicationComes) {
  test::PanelHome home({}, {"--springboard", GetParam().springboard, "--ios", GetParam().version});
  sim::springboard::useLaunchMessage(GetParam().message);
  home.open();
  bridge::install(bridge::replace<tilo::RQPopupView, &tilo::RQPopupView::didHitCancel, countedCancel>());
  home.step("launch \"Calendar\"");
  EXPECT_EQ(cancelled, 1);
  EXPECT_EQ(shownAlready, 0);
}

INSTANTIATE_TEST_SUITE_P(On, LaunchByEveryMessage,
                         testing::Values(Launch{"FromAnIcon", "real", "10.3.3"},
                                         Launch{"Plainly", "real", "10.3.3", LaunchMessage::plain},
                                         Launch{"WithSettings", "real", "11.1"},
                                         Launch{"Animated", "complete", "10.3.3"}),
                         [](const auto& launch) { return launch.param.name; });

}  // namespace
