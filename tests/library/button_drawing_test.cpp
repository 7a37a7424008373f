// BButton drawn: the flat look's colours, the older look, and what changes them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <tuple>

#include "controls/button.hpp"
#include "controls/button_colors.hpp"
#include "platform/uikit/application.hpp"
#include "platform/uikit/layer.hpp"
#include "simulator/device/clock.hpp"
#include "simulator/uikit/drawing/drawing_context.hpp"
#include "simulator/uikit/drawing/rendering.hpp"
#include "tests/simulator/quartz/pixels.hpp"
#include "tests/support/home.hpp"

namespace {

namespace fs = std::filesystem;
using bridge::Strong;
using sim::test::Pixel;
using test::Home;
using tilo::BButton;
using tilo::ButtonColor;

constexpr CGRect frame{{20, 100}, {100, 40}};

// A black screen with a button on it, two pixels to the point.
class Screen {
 public:
  Screen() {
    back->backgroundColor.set(UIColor::blackColor());
    UIApplication::sharedApplication().keyWindow().addSubview(back);
  }

  Strong<BButton> add(UIColor color, NSUInteger style) {
    auto button = bridge::make<BButton, &BButton::initWithFrame_color_style>(frame, color, style);
    back->addSubview(button);
    return button;
  }

  // Places in points of the button; the pixel whose corner lies there.
  Pixel at(double x, double y) {
    const sim::Surface picture = sim::uikit::renderScreen(sim::clock::now());
    return sim::test::pixelAt(picture.get(), static_cast<int>(std::lround((frame.origin.x + x) * 2)),
                              static_cast<int>(std::lround((frame.origin.y + y) * 2)));
  }
  Pixel fill() { return at(50, 20); }
  Pixel outline() { return at(50, 0); }

 private:
  Home home;
  Strong<UIView> back = bridge::make<UIView, &UIView::initWithFrame>(CGRect{{0, 0}, {375, 667}});
};

UIColor orange() { return UIColor::colorWithRed_green_blue_alpha(0.8, 0.4, 0.2, 1); }

Pixel pixelOf(UIColor color) {
  CGFloat red = 0, green = 0, blue = 0, alpha = 0;
  color.getRed_green_blue_alpha(&red, &green, &blue, &alpha);
  const auto byte = [](double part) { return static_cast<int>(std::lround(part * 255)); };
  return {byte(red), byte(green), byte(blue), byte(alpha)};
}

UIColor darker(CGFloat by) { return bridge::as<ButtonColor>(orange()).bb_darkenColorWithValue(by); }

UIColor paler(UIColor color) {
  return bridge::as<ButtonColor>(color).bb_desaturatedColorToPercentSaturation(0.6);
}

void expectNear(Pixel shown, UIColor color) {
  const Pixel wanted = pixelOf(color);
  EXPECT_NEAR(shown.red, wanted.red, 1);
  EXPECT_NEAR(shown.green, wanted.green, 1);
  EXPECT_NEAR(shown.blue, wanted.blue, 1);
}

TEST(FlatButton, IsFilledWithItsColorAndOutlinedALittleDarker) {
  Screen screen;
  auto button = screen.add(orange(), 1);
  expectNear(screen.fill(), orange());
  expectNear(screen.outline(), darker(0.06f));
  expectNear(screen.at(50, 39.5), darker(0.06f));
  expectNear(screen.at(0, 20), darker(0.06f));
  expectNear(screen.at(99.5, 20), darker(0.06f));
  expectNear(screen.at(50, 1), orange());
}

TEST(FlatButton, IsDarkerWhileItIsHighlighted) {
  Screen screen;
  auto button = screen.add(orange(), 1);
  expectNear(screen.fill(), orange());
  button->highlighted.set(YES);
  expectNear(screen.fill(), darker(0.06f));
  expectNear(screen.outline(), darker(0.12f));
  button->highlighted.set(NO);
  expectNear(screen.fill(), orange());
}

TEST(FlatButton, IsPalerWhileItIsDisabled) {
  Screen screen;
  auto button = screen.add(orange(), 1);
  expectNear(screen.fill(), orange());
  button->enabled.set(NO);
  expectNear(screen.fill(), paler(orange()));
  expectNear(screen.outline(), paler(darker(0.06f)));
  button->enabled.set(YES);
  expectNear(screen.fill(), orange());
}

TEST(FlatButton, IsDarkerAndPalerWhenItIsBoth) {
  Screen screen;
  auto button = screen.add(orange(), 1);
  button->highlighted.set(YES);
  button->enabled.set(NO);
  expectNear(screen.fill(), paler(darker(0.06f)));
  expectNear(screen.outline(), paler(darker(0.12f)));
}

TEST(FlatButton, HasRoundCornersOfItsRadius) {
  Screen screen;
  auto button = screen.add(orange(), 1);
  EXPECT_EQ(screen.at(0, 0), pixelOf(UIColor::blackColor()));
  expectNear(screen.at(2.5, 2.5), orange());
  button->buttonCornerRadius.set(NSNumber::numberWithFloat(15));
  button->setNeedsDisplay();
  EXPECT_EQ(screen.at(2.5, 2.5), pixelOf(UIColor::blackColor()));
}

TEST(FlatButton, IsRedrawnInAnotherColor) {
  Screen screen;
  auto button = screen.add(orange(), 1);
  expectNear(screen.fill(), orange());
  button->color.set(UIColor::blueColor());
  expectNear(screen.fill(), UIColor::blueColor());
  button->setType(tilo::BButtonTypeSuccess);
  expectNear(screen.fill(), ButtonColor::bb_successColorV3());
}

TEST(FlatButton, HasAnOutlineOfOnePointWhateverWasDrawnBefore) {
  Home home;
  const sim::Surface image = sim::makeImage(40, 20);
  const sim::Context cairo(image.get());
  const sim::uikit::DrawingContext drawing(cairo);
  CGContextSetLineWidth(UIGraphicsGetCurrentContext(), 8);
  const CGRect whole{{0, 0}, {40, 20}};
  bridge::make<BButton, &BButton::initWithFrame_color_style>(whole, orange(), 1)->drawRect(whole);
  expectNear(sim::test::pixelAt(image.get(), 20, 0), darker(0.06f));
  expectNear(sim::test::pixelAt(image.get(), 20, 2), orange());
}

TEST(ClearButton, ShowsNothingButItsTitle) {
  Screen screen;
  auto button = screen.add(UIColor::clearColor(), 1);
  const Pixel black = pixelOf(UIColor::blackColor());
  for (const bool highlighted : {false, true})
    for (const bool enabled : {false, true}) {
      button->highlighted.set(highlighted);
      button->enabled.set(enabled);
      EXPECT_EQ(screen.fill(), black);
      EXPECT_EQ(screen.outline(), black);
    }
}

TEST(ClearButton, ShowsNothingInTheOlderLookEither) {
  Screen screen;
  auto button = screen.add(UIColor::clearColor(), 0);
  for (const double y : {0.0, 1.5, 20.0, 38.5, 39.5})
    EXPECT_EQ(screen.at(50, y), pixelOf(UIColor::blackColor())) << y;
}

TEST(ButtonOfAnUnknownStyle, ShowsNothingButItsTitle) {
  Screen screen;
  auto button = screen.add(orange(), 2);
  EXPECT_EQ(screen.fill(), pixelOf(UIColor::blackColor()));
  EXPECT_EQ(screen.outline(), pixelOf(UIColor::blackColor()));
  button->setStyle(1);
  expectNear(screen.fill(), orange());
}

TEST(RaisedButton, GetsDarkerFromAboveToBelow) {
  Screen screen;
  auto button = screen.add(orange(), 0);
  int last = 256;
  for (const double y : {4.0, 12.0, 20.0, 28.0, 35.0}) {
    const int red = screen.at(50, y).red;
    EXPECT_LT(red, last) << y;
    last = red;
  }
  EXPECT_LT(screen.at(50, 38.5).red, last) << "the border";
}

TEST(RaisedButton, HasALitEdgeInsideAboveAndOutsideBelow) {
  Screen screen;
  auto button = screen.add(orange(), 0);
  EXPECT_GT(screen.at(50, 1.5).blue, screen.at(50, 4).blue + 30);
  EXPECT_GT(screen.at(50, 39.5).blue, 50);
}

TEST(RaisedButton, IsDarkerAboveWhileItIsHighlighted) {
  Screen screen;
  auto button = screen.add(orange(), 0);
  const int before = screen.at(50, 4).red;
  button->highlighted.set(YES);
  EXPECT_LT(screen.at(50, 4).red, before - 40);
  EXPECT_LT(screen.at(50, 3).red, screen.at(50, 20).red);
}

TEST(RaisedButton, IsPalerWhileItIsDisabled) {
  Screen screen;
  auto button = screen.add(orange(), 0);
  const Pixel before = screen.fill();
  button->enabled.set(NO);
  const Pixel after = screen.fill();
  EXPECT_NEAR(after.red - after.blue, 0.6 * (before.red - before.blue), 4);
}

TEST(Button, DrawsNothingWithoutAContext) {
  Screen screen;
  auto raised = screen.add(orange(), 0), flat = screen.add(orange(), 1);
  raised->drawRect(frame);
  flat->drawRect(frame);
  expectNear(screen.fill(), orange());
}

// A button of one color, small enough that each of its pixels tells; sides of two pixels to the point.
class AStyledButton : public testing::TestWithParam<std::tuple<NSUInteger, const char*>> {
 protected:
  static constexpr int width = 24, height = 20;

  sim::Surface drawn() {
    const auto [style, state] = GetParam();
    const auto button = screen.add(orange(), style);
    button->frame.set({frame.origin, {width, height}});
    button->highlighted.set(state == std::string("pressed"));
    button->enabled.set(state != std::string("disabled"));
    return sim::uikit::renderScreen(sim::clock::now());
  }

  Screen screen;
};

// The largest difference of a channel; all there is where one is of another size, or not there.
int difference(cairo_surface_t* one, const fs::path& file) {
  constexpr int all = 255;
  if (!fs::exists(file)) return all;
  const sim::Surface other = sim::readPng(file);
  const int columns = cairo_image_surface_get_width(one), rows = cairo_image_surface_get_height(one);
  if (columns != cairo_image_surface_get_width(other.get()) ||
      rows != cairo_image_surface_get_height(other.get()))
    return all;
  int most = 0;
  for (int y = 0; y < rows; ++y)
    for (int x = 0; x < columns; ++x) {
      const Pixel here = sim::test::pixelAt(one, x, y), there = sim::test::pixelAt(other.get(), x, y);
      most = std::max({most, std::abs(here.red - there.red), std::abs(here.green - there.green),
                       std::abs(here.blue - there.blue)});
    }
  return most;
}

// The pictures were looked at. A channel may be off by two where a processor rounds otherwise.
TEST_P(AStyledButton, LooksAsItsPicture) {
  const auto [style, state] = GetParam();
  const std::string name = std::string(style == 0 ? "raised" : "flat") + "-" + state + ".png";
  const sim::Surface screen = drawn();
  const sim::Surface part = sim::makeImage(2 * width + 8, 2 * height + 8);
  const sim::Context context(part.get());
  cairo_set_source_surface(context, screen.get(), 4 - 2 * frame.origin.x, 4 - 2 * frame.origin.y);
  cairo_paint(context);
  const int most = difference(part.get(), fs::path(PICTURES) / name);
  const fs::path seen = fs::temp_directory_path() / name;
  if (most > 2) sim::writePng(part.get(), seen);
  EXPECT_LE(most, 2) << "what was drawn is in " << seen;
}

INSTANTIATE_TEST_SUITE_P(Of, AStyledButton,
                         testing::Combine(testing::Values<NSUInteger>(0, 1),
                                          testing::Values("plain", "pressed", "disabled")),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param) == 0 ? "Raised" : "Flat") +
                                  std::get<1>(info.param);
                         });

}  // namespace
